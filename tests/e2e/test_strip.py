"""The strip comes and goes with the module, drawings open or not."""
import unittest

from host import MODULE, HostTest

A101 = r"Projects\Riverside\Drawings\A-101.dwg"
S200 = r"Projects\Station\Drawings\S-200.dwg"


class StripTest(HostTest):
    def test_load_unload_and_load_again_with_drawings_open(self):
        transcript = self.run_host([
            f"OPEN {A101}", f"OPEN {S200}", "LINE 0 0 1 1", "SWITCH 1", "STRIP",
            f"ARX L {MODULE}", "STRIP",
            "ARX U ZavikMDITabs.arx", "STRIP",
            f"ARX L {MODULE}", "STRIP",
            "SWITCH 2", "UNDO", "CLICK 0", "STRIP",
            "ARX U ZavikMDITabs.arx", "LINE 0 0 2 2", "CLOSE", "STRIP",
            "CLOSE", "CLOSE", f"ARX L {MODULE}", "STRIP", f"OPEN {S200}", "STRIP",
        ], arguments=())
        before, loaded, unloaded, again, used, gone, empty, first = transcript.strips
        self.assertFalse(before.exists or unloaded.exists or gone.exists)
        self.assertEqual((loaded.texts, loaded.selected), (["Drawing1", "A-101", "S-200 [changed]"], 1))
        self.assertEqual((again.texts, again.selected), (loaded.texts, 1))
        self.assertEqual((used.texts, used.selected), (["Drawing1", "A-101", "S-200"], 0))
        self.assertEqual((empty.rect, empty.texts), ((0, 0, 0, 0), []), "without a drawing it takes no room")
        self.assertEqual((first.visible, first.texts, first.selected), (True, ["S-200"], 0))


if __name__ == "__main__":
    unittest.main()
