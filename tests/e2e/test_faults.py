"""Each call of the host that the list names fails once in a session, and the session goes on."""
import re
import unittest

from host import MODULE, REPOSITORY, HostTest

ROWS = re.findall(r"^\| `\w+\.h` \| (?:`(\w+)`)? ?\| (.*) \|", (REPOSITORY / "docs/host-api.md").read_text(), re.M)
HEARD = {name for path in (REPOSITORY / "reactors").glob("*Reactor.h")
         for name in re.findall(r"void (\w+)\(.*override", path.read_text())}
# The host's own objects, and what only frees: without the ones there is no host, the others cannot refuse.
ALWAYS_THERE = re.compile(r"acDoc|acedGetAcadFrame|acedEditor|acedRegCmds|acrx|AcRx(Object|Class|Dict)|acdbHostApp|acutDel|acdbFree|acutNewString")
LISTED = [name for owner, operations in ROWS for operation in re.findall(r"`(\w+)`", operations)
          if not ALWAYS_THERE.match(name := f"{owner}::{operation}" if owner else operation)
          and (operation in HEARD or not owner.endswith("Reactor"))]
# What a drawing's data are read with fails in tests/module, call by call; the rest here.
SESSION = re.compile(r"(?!.*Reactor::)(?:AcAp|AcEd|AcRx|acedGetVar|acutPrintf|AcDbDatabase::|AcDbBlockTable"
                     r"|AcDbSymbol|AcDbHost.*workingDatabase$)")
NOT_MADE = {"acutPrintf", "AcDbBlockTableRecord::xrefStatus", "AcDbBlockTableRecord::xrefDatabase",
            "AcApDocManager::appContextOpenDocument", "AcApDocManager::enableDocumentActivation",
            "AcApDocManager::disableDocumentActivation"}


class FaultsTest(HostTest):
    def test_each_call_can_fail(self):
        self.assertGreater(len(LISTED), 90)
        transcript = self.run_host([f"FAULT {name} 1000000" for name in LISTED], arguments=())
        self.assertEqual(transcript.exit_code, 0)
        self.assertNotEqual(self.run_host(["FAULT acdbNothing 1"], arguments=(), expect_exit=None).exit_code, 0)

    def test_a_session_goes_on(self):
        border = "Projects/Riverside/Drawings/A-101.dwg"
        names = [name for name in LISTED if SESSION.match(name)]
        names.sort(key="AcRxDynamicLinker::unlockApplication".__eq__)  # without it the module stays
        script = []
        for name in names:
            script += [f"FAULT {name} 1", f"ARX L {MODULE}", f"OPEN {border}", "LINE 0 0 1 1", "UNDO", "REDO", "ERASE L",
                       "SETVAR LTSCALE 2", "BENCH 1", "CLICK 0", "MENU 1", "CLOSE", "DXFIN Sketches/Sketch.dwg",
                       "MENU 0 22392", "SAVEAS saved.dwg", "ARX U ZavikMDITabs", "FAULT", f"ARX L {MODULE}", "STRIP", "ARX U ZavikMDITabs"]
        transcript = self.run_host(script, arguments=(), expect_exit=None)
        self.assertNotIn("CRASH", transcript.text)
        fired = [line for line in transcript.lines if line.startswith("fault: ")]
        self.assertEqual(len(fired), len(names))
        unfired = {name for name, line in zip(names, fired) if line != "fault: fired"}
        self.assertEqual(unfired, NOT_MADE)
        # Afterwards the module loads and shows the drawing as ever.
        self.assertEqual([strip.texts for strip in transcript.strips], [["saved"]] * len(names))


if __name__ == "__main__":
    unittest.main()
