"""The command and its dialog: every row of what it does to the strip."""
import unittest

from host import (
    BOTTOM, DEBUG, DISCREET, EXTENSIONS, ICONS, MODULE, TOOLTIPS, TOP, USE, HostTest, options)

DEFAULTS = {"TabLocation": 1, "IsDiscreet": 0, "UseToolTips": 1, "UseExtensions": 0, "UseIcons": 1, "Use": 1}
DRAWINGS = [r"Projects\Riverside\Drawings\A-101.dwg", r"Projects\Station\Drawings\S-200.dwg"]
WITH_DRAWINGS = ["/ld", MODULE, *DRAWINGS]
NAMES = ["A-101", "S-200"]


class OptionsTest(HostTest):
    def test_the_dialog(self):
        transcript = self.run_host([
            "ZavikMDITabs", "WAIT 30", "DIALOG",
            f"PRESS {USE}", "DIALOG",
            f"PRESS {USE}", "DIALOG",
            f"PRESS {TOP}", f"PRESS {DISCREET}", f"PRESS {DEBUG}", "DIALOG", "PRESS 2", "STRIP",
            "ZavikMDITabs", "WAIT 30", "DIALOG", "PRESS 2",
        ])
        shown, greyed, back, changed, reopened = transcript.dialogs
        self.assertIn('dialog: "Zavik MDI Tabs - Options"', transcript.lines)
        self.assertEqual(shown, {
            USE: ("Use MDI Tabs", 1, True), DISCREET: ("Discreet mode", 0, True),
            TOOLTIPS: ("Show tooltips", 1, True), EXTENSIONS: ("Show file extensions", 0, True),
            ICONS: ("Show icons", 1, True), DEBUG: ("Debug mode", 0, True),
            1002: ("MDI Tab Postion", 0, True), TOP: ("Top", 0, True), BOTTOM: ("Bottom", 1, True),
            1: ("OK", 0, True), 2: ("Cancel", 0, True),
        })
        self.assertEqual({control for control, state in greyed.items() if state[2]}, {USE, 1, 2})
        self.assertEqual(back, shown)
        self.assertEqual([changed[c][1] for c in (TOP, BOTTOM, DISCREET, DEBUG)], [1, 0, 1, 1])
        self.assertEqual(reopened, shown, "Cancel changes nothing")
        strip, = transcript.strips
        self.assertEqual(strip.client[:2], (0, 0), "still below")
        self.assertEqual(self.registry(), {})

        self.run_host(options())
        self.assertEqual(self.registry(), DEFAULTS, "OK stores all six")

    def test_the_dialog_by_keyboard(self):
        keys = ["SPACE", "TAB", "TAB", "TAB"]      # greyed controls are passed over, back to the first
        reach = ["TAB"] * 6                        # from "Use MDI Tabs" to the position
        transcript = self.run_host([
            "ZavikMDITabs", "WAIT 30", *(f"KEY {key}" for key in keys), "DIALOG", "KEY SPACE", "DIALOG",
            *(f"KEY {key}" for key in [*reach, "UP"]), "DIALOG", "KEY ESCAPE", "STRIP",
            "ZavikMDITabs", "WAIT 30", *(f"KEY {key}" for key in [*reach, "DOWN", "TAB", "TAB", "TAB", "TAB", "SPACE"]),
            "DIALOG", "KEY ENTER", "STRIP",
        ])
        off, on, position, discreet = transcript.dialogs
        self.assertEqual((off[USE][1], off[DISCREET][2]), (0, False))
        self.assertEqual((on[USE][1], on[DISCREET][2]), (1, True))
        self.assertEqual((position[TOP][1], position[BOTTOM][1]), (1, 0))
        self.assertEqual((discreet[TOP][1], discreet[DISCREET][1]), (1, 1))
        escaped, entered = transcript.strips
        self.assertEqual((escaped.visible, escaped.client[1]), (True, 0), "Escape changes nothing")
        self.assertFalse(entered.visible, "discreet, with one drawing")
        self.assertEqual(self.registry(), {**DEFAULTS, "TabLocation": 0, "IsDiscreet": 1})

    def test_rows_with_the_strip_on(self):
        transcript = self.run_host([
            "STRIP",
            *options(), "STRIP",
            *options(EXTENSIONS), "STRIP",
            *options(ICONS), "STRIP",
            *options(EXTENSIONS, ICONS), "STRIP",
            *options(TOP), "STRIP",
            *options(BOTTOM, EXTENSIONS), "STRIP",
            *options(DISCREET), "STRIP", "CLOSE", "STRIP",
            *options(DISCREET, TOOLTIPS), "STRIP", "HOVER 0",
            *options(TOOLTIPS), "HOVER 0",
        ], WITH_DRAWINGS)
        start, same, named, bare, normal, top, both, discreet, one, loud = transcript.strips
        self.assertEqual((start.texts, start.selected), (NAMES, 1))
        for strip in (same, normal):
            self.assertEqual((strip.texts, strip.rect, strip.client, strip.selected),
                             (start.texts, start.rect, start.client, 1))
        files = [name + ".dwg" for name in NAMES]
        self.assertEqual((named.texts, named.rect), (files, start.rect))
        self.assertEqual([tab.image for strip in (named, bare, normal) for tab in strip.tabs], [0, 0, -1, -1, 0, 0])
        self.assertEqual(bare.rect, start.rect, "the band keeps its height")
        self.assertEqual((top.texts, top.selected, top.rect[1], top.client[1]), (NAMES, 1, 0, 27))
        self.assertEqual((both.texts, both.rect, both.selected), (files, start.rect, 1))
        self.assertTrue(discreet.visible)
        self.assertEqual((one.visible, one.count, one.client[3]), (False, 1, start.rect[3]))
        self.assertTrue(loud.visible)
        self.assertEqual(transcript.lines.count("tip: none"), 1, "tooltips off")
        self.assertEqual(len(transcript.tips), 1, "tooltips on again")
        self.assertEqual(self.registry(), {**DEFAULTS, "UseExtensions": 1})

    def test_rows_that_switch(self):
        transcript = self.run_host([
            *options(EXTENSIONS, USE), "STRIP",         # off; what is greyed is stored too
            *options(), "STRIP",
            *options(USE), "STRIP",                     # on
            *options(EXTENSIONS, TOP, USE), "STRIP",    # off with another style: made anew all the same
            "LINE 0 0 1 1", "CLICK 0", "STRIP",
            *options(USE), "STRIP",                     # on, where it is already
            *options(USE), "STRIP",
            *options(USE, BOTTOM, USE), "STRIP",        # another style while off
            "ARX U ZavikMDITabs.arx", "STRIP", "LINE 0 0 2 2",
            f"ARX L {MODULE}", "STRIP",                 # loaded switched off
            *options(USE), "STRIP",
        ], WITH_DRAWINGS)
        off, still, on, renewed, used, twice, off_again, restyled, unloaded, loaded, filled = transcript.strips
        self.assertFalse(off.exists or still.exists or off_again.exists or unloaded.exists or loaded.exists)
        files = [name + ".dwg" for name in NAMES]
        self.assertEqual((on.texts, on.selected), (files, 1))
        self.assertEqual((renewed.texts, renewed.rect[1]), (NAMES, 0))
        self.assertEqual((used.texts, used.selected), (["A-101", "S-200 [changed]"], 0), "it works")
        self.assertEqual((twice.texts, twice.selected), (used.texts, 0))
        self.assertEqual((restyled.texts, restyled.rect[1] > 0), (used.texts, True))
        self.assertEqual((filled.texts, filled.selected), (["A-101 *", "S-200 [changed]"], 0))
        self.assertEqual(self.registry(), DEFAULTS)


if __name__ == "__main__":
    unittest.main()
