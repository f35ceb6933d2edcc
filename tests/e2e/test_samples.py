"""The CAD manager's worked example: the samples show what its tables say."""
import calendar
import os
import re
import time
import unittest

from host import ANSI, MODULE, REPOSITORY, HostTest

OFFICE = r"P:\Office"


def table(*columns):
    """The rows of the guide's table with these columns; of each cell what stands in code quotes."""
    lines = (REPOSITORY / "docs/cad-manager.md").read_text("utf-8").splitlines()
    start = lines.index("| " + " | ".join(columns) + " |") + 2
    rows = []
    while lines[start].startswith("|"):
        rows.append([re.findall(r"`([^`]*)`", cell) for cell in lines[start].split("|")[1:-1]])
        start += 1
    return rows


class CaptionsTest(unittest.TestCase):
    def test_each_letter_chooses_one_item_of_a_menu(self):
        """Of what ships, with everything switched on, and of that with each sample's own captions."""
        def captions(file):
            return dict(re.findall(r"(?m)^;?(Popup\w+Text) = (.*)", file.read_text(ANSI)))
        shipped = captions(REPOSITORY / "support/MDITabs.ini")
        self.assertEqual(len(shipped), 11)
        for file in [REPOSITORY / "support/MDITabs.ini", *(REPOSITORY / "samples").rglob("MDITabs*.ini")]:
            letters = [letter.lower() for caption in (shipped | captions(file)).values()
                       for letter in re.findall("&(.)", caption)]
            self.assertEqual(len(set(letters)), len(letters), (file, sorted(letters)))


class WorkedExampleTest(HostTest):
    def test_each_layer_defines_what_the_guide_says(self):
        rows = table("layer", rf"file below `{OFFICE}`", "defines")
        self.assertEqual(len(rows), 6)
        every = [row[0][0] for row in table("key", "shown as")]
        for _, (file,), keys in rows:
            text = (self.folder / file.replace("\\", "/")).read_text(ANSI)
            defined = re.findall(r"(?m)^(\w+) *=", text)
            self.assertEqual(sorted(defined), sorted(keys or every), file)

    def test_drawings_show_what_the_guide_says(self):
        rows = table("drawing", "Save item", "Close item", "marker", "tooltip below `Zavik sample office`")
        self.assertEqual(len(rows), 6)
        # The template shows when the sketch was written, by the daylight rule of today.
        written = calendar.timegm((2006, 5, 17, 9, 30, 0)) - time.localtime().tm_gmtoff
        os.utime(self.folder / "Sketches/Sketch.dwg", (written, written))
        script = ["STRIP"]
        for number in range(len(rows)):
            script += [f"HOVER {number}", f"MENU {number}"]
        for number in range(len(rows)):
            script += [f"SWITCH {number}", "LINE 0 0 1 1"]
        transcript = self.run_host([*script, "STRIP"], ["/ld", MODULE, *(row[0][0] for row in rows)])
        clean, changed = transcript.strips
        for number, ((drawing,), (save,), (close,), (marker,), tooltip) in enumerate(rows):
            with self.subTest(drawing):
                self.assertEqual(clean.tabs[number].document, self.path(drawing))
                name = drawing.rpartition("\\")[2].removesuffix(".dwg")
                self.assertEqual((clean.texts[number], changed.texts[number]), (name, name + marker.strip('"')))
                self.assertEqual([item[2] for item in transcript.menus[number] if item][:2], [save, close])
                shown = r"\n".join(tooltip)
                for office, ours in ((OFFICE, self.path("")), (OFFICE.replace("\\", "/"), f"Z:{self.folder}/")):
                    shown = shown.replace(office + office[2], ours)
                self.assertEqual(transcript.tips[number], ("Zavik sample office", shown))

    def test_drawings_are_written_back_as_they_were(self):
        """After an edit that is undone, too; with those of other programs where they lie beside the project."""
        files = sorted([*self.folder.glob("[PS]*/**/*.dwg"), *REPOSITORY.parent.glob("shared/drawings/*.dxf")])
        self.assertGreater(len(files), 10)
        (self.folder / "out").mkdir()
        script = []
        for n, file in enumerate(files):
            script += [f"OPEN Z:{file}".replace("/", "\\"), f"SAVECOPY out\\{n}.same", "LINE 0 0 10.5 3",
                       f"SAVECOPY out\\{n}.edited", f"READDWG out\\{n}.edited", "UNDO", f"SAVECOPY out\\{n}.undone", "CLOSE"]
        self.run_host(script, arguments=())
        for n, file in enumerate(files):
            same, edited, undone = ((self.folder / f"out/{n}.{end}").read_bytes() for end in ("same", "edited", "undone"))
            self.assertTrue(same == undone == file.read_bytes(), file)
            self.assertRegex(edited, rb"\n10\.5\r?\n")


if __name__ == "__main__":
    unittest.main()
