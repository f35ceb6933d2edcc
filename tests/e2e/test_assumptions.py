"""What nobody knows of the vendor's host: the strip ends under each reading as the docs say."""
import re
import unittest

from host import MODULE, REPOSITORY, HostTest

SAVE = 22392
A100 = r"Projects\Riverside\Drawings\A-100.rev2.dwg"
A101 = r"Projects\Riverside\Drawings\A-101.dwg"
S200 = r"Projects\Station\Drawings\S-200.dwg"
D300 = r"Projects\Station\Drawings\Details\D-300.dwg"

# Open, edit, undo, redo, save, save as, references, close; then every drawing is visited once.
SESSION = [
    f"OPEN {A100}", f"OPEN {A101}", f"OPEN {S200}",
    "SWITCH 1", "LINE 0 0 1 1", "LINE 0 0 2 2", "UNDO", "REDO", "UNDO", "UNDO",
    "SWITCH 2", "ATTEDIT DWG_TITLE Roof", "QSAVE",
    r"SAVEAS Projects\Riverside\Drawings\A-105.dwg",
    f"READDWG {D300}", r"SAVECOPY Projects\Station\copy.dwg",
    r"XATTACH ..\Xrefs\Survey.dwg", "XRELOAD Survey", "LINE 0 0 3 3", "QSAVE", "XDETACH Survey",
    "SWITCH 1", f"MENU 2 {SAVE}", "SWITCH 3", r"SAVEAS Projects\Station\Drawings\S-202.dwg",
    "SWITCH 0", "CLOSE",
]
VISIT = [line for tab in range(3) for line in (f"SWITCH {tab}", "WAIT 1", f"HOVER {tab}", f"MENU {tab}")]
LOOK = [*VISIT, "STRIP"]


class AssumptionsTest(HostTest):
    def end(self, *names):
        """Tabs, tooltips and menus in the end, with what the files were called."""
        self.setUp()
        arguments = [word for name in names for word in ("/assume", name)]
        transcript = self.run_host([*SESSION, *LOOK], [*arguments, "/ld", MODULE])
        strip, = transcript.strips
        tabs = [(tab.text, tab.document, tab.image) for tab in strip.tabs]
        return {"tabs": tabs, "selected": (strip.selected, strip.active), "tips": transcript.tips,
                "menus": transcript.menus[-3:]}

    def test_the_end_is_what_the_docs_say(self):
        guide = (REPOSITORY / "docs/host-api.md").read_text("utf-8")
        rows = re.findall(r"(?m)^\| `([a-z-]+)` \|.*\| (?:held|differs: (\w+)) \|$", guide)
        default = self.end()
        self.assertEqual([tab[0] for tab in default["tabs"]], ["A-100.rev2", "A-105", "S-202"])
        self.assertEqual(len(rows), 9)
        for name, differs in rows:
            with self.subTest(name):
                ended = self.end(name)
                self.assertEqual([part for part in default if ended[part] != default[part]],
                                 [differs] if differs else [], (default, ended))


if __name__ == "__main__":
    unittest.main()
