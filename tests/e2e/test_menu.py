"""The context menu: what it offers for which drawing, and what it does."""
import threading
import time
import unittest

from host import HostTest

SAVE, CLOSE, OPTIONS, XREFS = 22392, 22393, 22391, 22394
A100 = r"Projects\Riverside\Drawings\A-100.rev2.dwg"
S200 = r"Projects\Station\Drawings\S-200.dwg"
ISSUED = r"Projects\Station\Drawings\S-201 issued.dwg"


class MenuTest(HostTest):
    def test_what_is_offered(self):
        transcript = self.run_host([
            f"OPEN {A100}", f"OPEN {S200}", f'OPEN "{ISSUED}"',
            "MENU 0", "MENU 1", "MENU 2", "MENU 3",
            "CLOSE", "CLOSE", "SWITCH 0", "CLOSE", "SETVAR SDI 1", "MENU 0",
        ])
        untitled, river, station, issued, single = transcript.menus
        self.assertEqual(untitled, [(0, SAVE, "&Save", True), (0, CLOSE, "&Close", True), None,
                                    (0, OPTIONS, "&Options...", True)])
        own = [(0, SAVE, "&Save to Riverside", True), *untitled[1:]]
        self.assertEqual(river, [*own, None, (0, 0, "Riverside &references", True),
                                 (1, XREFS, "Grid.dwg", True), (1, XREFS + 1, "Survey.dwg (RO)", True),
                                 (1, XREFS + 2, "Services.dwg", True)])
        self.assertEqual(single, own, "no references where one drawing is open at a time")
        self.assertEqual(station[0][2:], ("&Save and keep open", True))
        self.assertEqual(issued, station[1:], "read-only: no Save")

    def test_references_open_as_drawings(self):
        (self.folder / "Projects/Riverside/Xrefs/Services.dwg").write_text("not a drawing")
        transcript = self.run_host([
            f"OPEN {A100}", f"MENU 1 {XREFS + 1}", f"MENU 1 {XREFS}", "STRIP",
            f"MENU 1 {XREFS}", "STRIP",
        ])
        opened, again = transcript.strips
        self.assertEqual([tab.document for tab in opened.tabs[2:]],
                         [self.path(f"Projects/Riverside/Xrefs/{name}.dwg") for name in ("Survey", "Grid")])
        self.assertEqual(opened.selected, 3)
        self.assertEqual((again.texts, again.selected), (opened.texts, 3), "open already")

    def test_a_reference_that_has_gone(self):
        grid = self.folder / "Projects/Riverside/Xrefs/Grid.dwg"
        ready = self.folder / "ready.png"

        def remove():
            for _ in range(3000):
                if ready.exists():
                    return grid.unlink()
                time.sleep(0.01)

        helper = threading.Thread(target=remove)
        helper.start()
        transcript = self.run_host([f"OPEN {A100}", "STRIP", "SHOT ready.png", "WAIT 500",
                                    f"MENU 1 {XREFS}", "STRIP"], expect_exit=None)
        helper.join()
        before, after = transcript.strips
        self.assertIn((1, XREFS, "Grid.dwg (RO)", True), transcript.menus[0])
        self.assertIn(self.path("Projects/Riverside/Xrefs/Grid.dwg") + ": file not found", transcript.text)
        self.assertEqual((after.texts, after.selected), (before.texts, before.selected))
        self.assertNotIn("dialog", transcript.text)


if __name__ == "__main__":
    unittest.main()
