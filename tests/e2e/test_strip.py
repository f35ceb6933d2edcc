"""The strip follows the drawings."""
import unittest

from host import HostTest

RIVERSIDE = r"Projects\Riverside\Drawings"


class StripTest(HostTest):
    def test_tabs_follow_the_drawings(self):
        strips = self.run_host([
            "STRIP",
            rf"OPEN {RIVERSIDE}\A-100.rev2.dwg",
            rf"OPEN {RIVERSIDE}\Grundriß-Süd.dwg",
            r'OPEN "Projects\Station\Drawings\S-200.dwg"',
            "STRIP",
            "CLICK 1", "STRIP",
            "SWITCH 0", "STRIP",
            "CLOSE", "STRIP",
        ]).strips
        names = ["A-100.rev2", "Grundriß-Süd", "S-200"]
        opened, clicked, switched, closed = strips[1:]
        self.assertEqual(opened.texts[-3:], names)
        first = len(opened.tabs) - 3  # behind the drawing that the host starts with, if any
        self.assertEqual(opened.selected, first + 2)
        self.assertEqual(clicked.selected, 1)
        self.assertEqual(switched.selected, 0)
        self.assertEqual(len(closed.tabs), len(opened.tabs) - 1)
        self.assertTrue(opened.tabs[-1].document.endswith(r"\Projects\Station\Drawings\S-200.dwg"))

    def test_marker_follows_edit_save_and_undo(self):
        strips = self.run_host([
            rf"OPEN {RIVERSIDE}\A-101.dwg",
            "STRIP",
            "LINE 0 0 10 10", "STRIP",
            "QSAVE", "STRIP",
        ]).strips
        self.assertEqual([strip.texts[-1] for strip in strips], ["A-101", "A-101 *", "A-101"])

    def test_band_lies_between_the_frame_edge_and_the_drawings(self):
        strips = self.run_host([rf"OPEN {RIVERSIDE}\A-101.dwg", "STRIP"]).strips
        left, top, right, bottom = strips[0].rect
        self.assertTrue(strips[0].visible)
        self.assertEqual(strips[0].client[3] - top, 2, "by default below the drawings, its edge over theirs")
        self.assertGreater(right - left, 0)
        self.assertGreater(bottom - top, 0)

    def test_strip_is_absent_when_switched_off(self):
        self.set_registry({"Use": 0})
        transcript = self.run_host([rf"OPEN {RIVERSIDE}\A-101.dwg", "STRIP"])
        self.assertEqual([strip.exists for strip in transcript.strips], [False])

    def test_unload_and_load_again_with_drawings_open(self):
        transcript = self.run_host([
            rf"OPEN {RIVERSIDE}\A-101.dwg",
            rf"OPEN {RIVERSIDE}\Drawing1.dwg",
            "STRIP",
            "ARX U ZavikMDITabs.arx", "STRIP",
            r"ARX L install\ZavikMDITabs\ZavikMDITabs.arx", "STRIP",
        ])
        before, without, after = transcript.strips
        self.assertFalse(without.exists)
        self.assertEqual(after.texts, before.texts)
        self.assertEqual(after.selected, before.selected)


if __name__ == "__main__":
    unittest.main()
