"""What the host loads because the registry names it."""
import unittest

from host import ANSI, MODULE, HostTest, options, wine

KEY = r"SOFTWARE\Autodesk\AutoCAD\R16.0\ACAD-201:409\Applications\ZavikMDITabs"
AT_START, ON_COMMAND, DISABLED = 2, 4, 0x10


class DemandLoadingTest(HostTest):
    def tearDown(self):
        self.enter({})
        super().tearDown()

    def enter(self, controls, loader=MODULE):
        """Makes these all there is: {"HKEY_LOCAL_MACHINE": its LOADCTRLS, ...}."""
        lines = ["REGEDIT4", ""]
        for root in ("HKEY_LOCAL_MACHINE", "HKEY_CURRENT_USER"):
            lines += [rf"[-{root}\SOFTWARE\Autodesk]", ""]
            if root in controls:
                path = self.path(loader).replace("\\", "\\\\")
                lines += [rf"[{root}\{KEY}]", f'"LOADER"="{path}"', f'"LOADCTRLS"=dword:{controls[root]:08x}', "",
                          rf"[{root}\{KEY}\Commands]", '"ZavikMDITabs"="ZavikMDITabs"', ""]
        (self.folder / "demand.reg").write_text("\r\n".join(lines), ANSI, newline="")
        code, text = wine("reg", "import", "demand.reg", cwd=self.folder)
        self.assertEqual(code, 0, text)

    def strip(self, *before, demand=True, expect_exit=0):
        return self.run_host([*before, "STRIP"], (), demand=demand, expect_exit=expect_exit)

    def test_at_start_or_when_a_command_of_theirs_is_typed(self):
        self.enter({"HKEY_LOCAL_MACHINE": AT_START | ON_COMMAND})
        self.assertEqual(self.strip().strips[0].texts, ["Drawing1"])
        self.assertFalse(self.strip(demand=False).strips[0].exists)

        self.enter({"HKEY_LOCAL_MACHINE": ON_COMMAND})
        transcript = self.strip("STRIP", *options(end=2))
        self.assertEqual([strip.exists for strip in transcript.strips], [False, True])

    def test_an_entry_of_the_user_hides_the_machines(self):
        self.enter({"HKEY_LOCAL_MACHINE": AT_START | ON_COMMAND,
                    "HKEY_CURRENT_USER": AT_START | ON_COMMAND | DISABLED})
        self.assertFalse(self.strip().strips[0].exists)
        self.assertIn('Unknown command "ZavikMDITabs".', self.strip("ZavikMDITabs", expect_exit=1).text)

    def test_a_module_that_is_gone_is_said_and_the_host_goes_on(self):
        self.enter({"HKEY_CURRENT_USER": AT_START}, loader="gone.arx")
        transcript = self.strip()
        self.assertIn('gone.arx", named in the registry, is not loaded: the file is not there.', transcript.text)
        self.assertFalse(transcript.strips[0].exists)


if __name__ == "__main__":
    unittest.main()
