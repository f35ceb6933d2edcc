"""The command and its dialog, and what of it shows on the strip."""
import unittest

from host import (
    BOTTOM, DEBUG, DISCREET, EXTENSIONS, ICONS, MODULE, TOOLTIPS, TOP, USE, HostTest, options)

DEFAULTS = {"TabLocation": 1, "IsDiscreet": 0, "UseToolTips": 1, "UseExtensions": 0, "UseIcons": 1, "Use": 1}
DRAWINGS = [r"Projects\Riverside\Drawings\A-101.dwg", r"Projects\Station\Drawings\S-200.dwg"]
WITH_DRAWINGS = ["/ld", MODULE, *DRAWINGS]
NAMES = ["A-101", "S-200"]
OPTIONS = 22391   # in a tab's menu


class OptionsTest(HostTest):
    def test_the_dialog(self):
        transcript = self.run_host([
            f"MENU 0 {OPTIONS}", "WAIT 30", "DIALOG",
            f"PRESS {USE}", "DIALOG",
            f"PRESS {USE}", "DIALOG",
            f"PRESS {TOP}", f"PRESS {DISCREET}", f"PRESS {DEBUG}", "DIALOG", "PRESS 2", "STRIP",
            "ZavikMDITabs", "WAIT 30", "DIALOG", "PRESS 2",
        ], WITH_DRAWINGS)
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

    def test_the_strip_after_the_dialog(self):
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
            *options(USE), "STRIP", "ARX U ZavikMDITabs.arx", "LINE 0 0 1 1", f"ARX L {MODULE}", "STRIP",
            *options(USE), "STRIP",
        ], WITH_DRAWINGS)
        start, same, named, bare, normal, top, both, discreet, one, loud, off, loaded, on = transcript.strips
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
        self.assertFalse(off.exists or loaded.exists)
        self.assertEqual((on.texts, on.selected), (["A-101.dwg *"], 0))
        self.assertEqual(self.registry(), {**DEFAULTS, "UseExtensions": 1})


if __name__ == "__main__":
    unittest.main()
