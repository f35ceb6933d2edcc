"""Texts, tooltips and menus of the sample projects: an example of each settings layer."""
import unittest

from host import MODULE, HostTest

DRAWINGS = [
    r"Projects\Riverside\Drawings\A-100.rev2.dwg",
    r"Projects\Riverside\Drawings\A-101.dwg",
    r"Projects\Riverside\Drawings\Grundriß-Süd.dwg",
    r"Projects\Riverside\Drawings\Drawing1.dwg",
    r"Projects\Station\Drawings\S-200.dwg",
    r"Projects\Station\Drawings\S-201 issued.dwg",
    r"Projects\Station\Drawings\Details\D-300.dwg",
    r"Sketches\Sketch.dwg",
]


class SamplesTest(HostTest):
    def open_all(self, *script):
        """Plays the script in a host with a tab for every sample, in order."""
        transcript = self.run_host(["STRIP", *script], ["/ld", MODULE, *DRAWINGS])
        documents = [tab.document for tab in transcript.strips[0].tabs]
        self.assertEqual(documents, [self.path(name) for name in DRAWINGS])
        return transcript

    def test_tooltips(self):
        tips = self.open_all(*(f"HOVER {n}" for n in range(len(DRAWINGS)))).tips
        self.assertEqual(len(tips), len(DRAWINGS))
        self.assertEqual({title for title, text in tips}, {"Zavik sample office"})
        texts = [text for title, text in tips]
        folder = "Z:" + str(self.folder)
        riverside = folder + "/Projects/Riverside/Drawings/"
        self.assertEqual(texts[:7], [
            f"Riverside Quarter\nA-100 rev 2: Ground floor – general arrangement\n{riverside}A-100.rev2",
            f"Riverside Quarter\nA-101 rev 0: First floor, east\n{riverside}A-101",
            # the office's border maps no REVISION
            f"Riverside Quarter\nGR-1 rev %HALVORAN::REVISION%: Grundriß Süd – Übersicht\n{riverside}Grundriß-Süd",
            "Untitled: please fill in the title block.",
            "Station, Platform 2: S-200\nPlatform 2, section",
            "Station, Platform 2: S-201\nPlatform 2, as issued",
            "Canopy detail – gutter and fascia",
        ])
        first, file, folder_line, update = texts[7].split("\n")
        self.assertIn("Car park sketch", first)
        self.assertEqual(file, "File: Sketch.dwg")
        self.assertEqual(folder_line, "Folder: " + folder.replace("/", "\\") + "\\Sketches\\")
        self.assertRegex(update, r"^Last update: \d{4}-\d\d-\d\d \d\d:\d\d$")

    def test_menus_of_two_projects_side_by_side(self):
        menus = self.open_all(*(f"MENU {n}" for n in (0, 4, 5, 6, 7))).menus
        river, station, issued, detail, sketch = [
            [item and item[2] for item in menu if not item or item[0] == 0] for menu in menus]
        self.assertEqual(river, ["Save to &Riverside", "&Close", None, "&Options...", None, "Riverside &references"])
        self.assertEqual(station, ["Save and keep &open", "&Put away (16.0)", None, "&Options..."])
        self.assertEqual(issued, station[1:], "a read-only drawing has no Save")
        self.assertEqual(detail, ["Save &detail", "&Put away (16.0)", None, "&Options..."])
        self.assertEqual(sketch, ["&Save", "&Close", None, "&Options..."])
        self.assertTrue(all(item[3] for menu in menus for item in menu if item), "nothing is greyed")

    def test_references_with_the_read_only_marker(self):
        menu, = self.open_all("MENU 0").menus
        items = [item for item in menu if item and item[0] == 1]
        self.assertEqual([(item[1], item[2]) for item in items][:2], [
            (22394, "Grid.dwg"), (22395, "Survey.dwg (RO)")])
        captions = [item[2] for item in items]
        self.assertIn("Services.dwg", captions)
        self.assertNotIn("Traffic.dwg", captions, "not resolved, so not listed")

    def test_markers_of_the_layers(self):
        edits = []
        for tab in (0, 4, 6, 7):
            edits += [f"SWITCH {tab}", "LINE 0 0 1 1"]
        strips = self.open_all(*edits, "STRIP").strips
        texts = strips[-1].texts
        self.assertEqual([texts[n] for n in (0, 1, 4, 6, 7)],
                         ["A-100.rev2 *", "A-101", "S-200 [changed]", "D-300 (draft)", "Sketch *"])


if __name__ == "__main__":
    unittest.main()
