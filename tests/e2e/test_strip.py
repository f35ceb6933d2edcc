"""The strip follows the drawings: the typical session, loading, the frame's layout."""
import unittest

from host import BOTTOM, DISCREET, MODULE, TOP, USE, HostTest, options

RIVERSIDE = r"Projects\Riverside\Drawings"
A100 = rf"{RIVERSIDE}\A-100.rev2.dwg"
A101 = rf"{RIVERSIDE}\A-101.dwg"
S200 = r"Projects\Station\Drawings\S-200.dwg"
ISSUED = r"Projects\Station\Drawings\S-201 issued.dwg"

BAND = 27          # with icons
LOGO = 60
OVERLAP = 2        # the tab control is that much taller than its band


class StripTest(HostTest):
    def test_a_session(self):
        strips = self.run_host([
            rf"OPEN {A100}", rf"OPEN {RIVERSIDE}\Grundriß-Süd.dwg", f"OPEN {S200}", "STRIP",
            "NEW", "STRIP",
            "CLICK 1", "STRIP",
            "SWITCH 3", "STRIP",
            "LINE 0 0 10 10", "STRIP",
            "LINE 0 0 20 10", "UNDO", "STRIP",
            "UNDO", "STRIP",
            "REDO", "STRIP",
            "LINE 0 0 10 10", "QSAVE", "STRIP",
            "UNDO", "STRIP",
            r"SAVEAS Projects\Station\Drawings\S-202.dwg", "STRIP",
            "CLOSE", "STRIP",
        ]).strips
        opened, new, clicked, switched, edited, half, undone, redone, saved, behind, renamed, closed = strips
        names = ["Drawing1", "A-100.rev2", "Grundriß-Süd", "S-200"]
        self.assertEqual((opened.texts, opened.selected), (names, 3))
        self.assertEqual(opened.tabs[3].document, self.path(S200))
        self.assertEqual((new.texts[:4], new.selected, new.count), (names, 4, 5), "appended and active")
        self.assertEqual([(strip.selected, strip.active) for strip in (clicked, switched)], [(1, 1), (3, 3)])
        untouched = new.texts
        marked = [*names[:3], "S-200 [changed]", new.texts[4]]
        self.assertEqual([strip.texts for strip in (edited, half, undone, redone, saved, behind)],
                         [marked, marked, untouched, marked, untouched, marked],
                         "the marker shows the difference from what is saved")
        self.assertEqual((renamed.texts[3], renamed.tabs[3].document),
                         ("S-202", self.path(r"Projects\Station\Drawings\S-202.dwg")))
        self.assertEqual(closed.texts, [*names[:3], new.texts[4]])
        self.assertEqual(closed.selected, closed.texts.index(closed.texts[closed.selected]))
        self.assertTrue((self.folder / "Projects/Station/Drawings/S-202.dwg").exists())

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

    def test_the_band_takes_its_place_from_the_drawings(self):
        counts = ["STRIP", f"OPEN {A101}", "STRIP", "CLOSE", "CLOSE", "STRIP", "NEW", "STRIP"]
        strips = self.run_host([*counts, *options(TOP), *counts, *options(BOTTOM, DISCREET), *counts,
                                *options(USE), "STRIP"]).strips
        one, two, none, again = strips[:4]
        width, height = one.client[2], one.rect[3]
        for strip in (one, two, again):
            self.assertTrue(strip.visible)
            self.assertEqual(strip.rect, (0, height - BAND - OVERLAP, width - LOGO, height))
            self.assertEqual(strip.client, (0, 0, width, height - BAND))
        self.assertEqual((none.visible, none.client, none.count), (False, (0, 0, width, height), 0))

        one, two, none, again = strips[4:8]
        for strip in (one, two, again):
            self.assertEqual(strip.rect, (0, 0, width - LOGO, BAND + OVERLAP))
            self.assertEqual(strip.client, (0, BAND, width, height))
        self.assertEqual((none.visible, none.client), (False, (0, 0, width, height)))

        discreet = strips[8:12]
        self.assertEqual([strip.visible for strip in discreet], [False, True, False, False])
        self.assertEqual([strip.client[3] for strip in discreet], [height, height - BAND, height, height])

        self.assertFalse(strips[12].exists)

    def test_options_are_read_at_the_start(self):
        self.set_registry({"UseIcons": 2, "TabLocation": 7, "UseExtensions": 2, "Use": 1})
        strip, = self.run_host([f"OPEN {A101}", "STRIP"]).strips
        self.assertEqual(strip.texts[1], "A-101")
        self.assertEqual({tab.image for tab in strip.tabs}, {-1}, "2 is not on")
        self.assertEqual(strip.rect[1], 0, "anything but 1 is above")

        self.set_registry({"Use": 0})
        self.assertFalse(self.run_host(["STRIP"]).strips[0].exists)


if __name__ == "__main__":
    unittest.main()
