"""What the host loads because the registry names it."""
import unittest

from host import ANSI, MODULE, HostTest, options, wine

KEY = r"SOFTWARE\Autodesk\AutoCAD\R16.0\ACAD-201:409\Applications\ZavikMDITabs"
AT_START, ON_COMMAND, DISABLED = 2, 4, 0x10


class DemandLoadingTest(HostTest):
    def enter(self, machine, user, loader):
        """Makes these all there is: their LOADCTRLS and LOADER."""
        lines = ["REGEDIT4", ""]
        for root, controls in (("HKEY_LOCAL_MACHINE", machine), ("HKEY_CURRENT_USER", user)):
            lines += [rf"[-{root}\SOFTWARE\Autodesk]", ""]
            if controls is not None:
                path = self.path(loader).replace("\\", "\\\\")
                lines += [rf"[{root}\{KEY}]", f'"LOADER"="{path}"', f'"LOADCTRLS"=dword:{controls:08x}', "",
                          rf"[{root}\{KEY}\Commands]", '"ZavikMDITabs"="ZavikMDITabs"', ""]
        (self.folder / "demand.reg").write_text("\r\n".join(lines), ANSI, newline="")
        code, text = wine("reg", "import", "demand.reg", cwd=self.folder)
        self.assertEqual(code, 0, text)

    def test_at_start_or_when_a_command_of_theirs_is_typed(self):
        for machine, user, loader, demand, at_start, behind in (
                (AT_START | ON_COMMAND, None, MODULE, True, True, True),
                (AT_START | ON_COMMAND, None, MODULE, False, False, False),
                (ON_COMMAND, None, MODULE, True, False, True),
                # An entry of the user hides the machine's.
                (AT_START | ON_COMMAND, AT_START | ON_COMMAND | DISABLED, MODULE, True, False, False),
                (None, AT_START, "gone.arx", True, False, False),
                (None, None, "", True, False, False)):
            self.enter(machine, user, loader)
            transcript = self.run_host(["STRIP", *options(end=2), "STRIP"], (), demand=demand, expect_exit=None)
            self.assertEqual([strip.exists for strip in transcript.strips], [at_start, behind], transcript.text)
            self.assertEqual('gone.arx", named in the registry, is not loaded: the file is not there.' in transcript.text,
                             loader == "gone.arx")


if __name__ == "__main__":
    unittest.main()
