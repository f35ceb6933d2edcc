"""Tooltips: where their text comes from, and when it is made anew."""
import unittest

from host import HostTest

A101 = r"Projects\Riverside\Drawings\A-101.dwg"
DETAIL = r"Projects\Station\Drawings\Details\D-300.dwg"
BLANK = r"Projects\Riverside\Drawings\Drawing1.dwg"
DEFAULT = "Untitled: please fill in the title block."


class TooltipTest(HostTest):
    def test_texts_follow_what_is_saved(self):
        station = self.folder / "Projects/Station"
        (station / "Drawings/blank.dwg").write_bytes((self.folder / BLANK.replace("\\", "/")).read_bytes())
        with (station / "Settings/support/MDITabs.ini").open("a", newline="") as texts:
            texts.write("DefaultTooltipText = Station: no title\r\n")
        transcript = self.run_host([
            f"OPEN {A101}", f"OPEN {DETAIL}", r"OPEN Projects\Station\Drawings\blank.dwg", f"OPEN {BLANK}",
            "HOVER 1", "SWITCH 1", "ATTEDIT DWG_TITLE Roof", "HOVER 1", "QSAVE", "HOVER 1",
            r"SAVEAS Projects\Riverside\Drawings\A-105.dwg", "HOVER 1",
            "HOVER 2", "SWITCH 2", "PROPS TITLE %PATH%", "HOVER 2", "QSAVE", "HOVER 2",
            "HOVER 4", "SWITCH 4", "PROPS TITLE A title", "QSAVE", "HOVER 4", "PROPS TITLE", "QSAVE", "HOVER 4",
            "HOVER 0", "HOVER 3",
        ])
        self.assertEqual({title for title, text in transcript.tips}, {"Zavik sample office"})
        texts = [text for title, text in transcript.tips]
        folder = f"Z:{self.folder}/Projects/Riverside/Drawings/"
        old, new = (rf"Riverside Quarter\nA-101 rev 0: {title}\n{folder}" for title in ("First floor, east", "Roof"))
        self.assertEqual(texts, [
            old + "A-101", old + "A-101", new + "A-101", new + "A-105",
            "Canopy detail – gutter and fascia", "Canopy detail – gutter and fascia", "%PATH%",
            DEFAULT, "A title", DEFAULT,
            DEFAULT, "Station: no title",
        ])


if __name__ == "__main__":
    unittest.main()
