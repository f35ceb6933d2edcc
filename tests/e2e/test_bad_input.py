"""What is wrong is named with its reason, fails the script, and disturbs nothing else."""
import sys
import unittest

from host import BUILD, MODULE, REPOSITORY, HostTest, wine

sys.path.insert(0, str(REPOSITORY / "tests/support"))
from makedwg import Drawing

A101 = r"Projects\Riverside\Drawings\A-101.dwg"
S200 = r"Projects\Station\Drawings\S-200.dwg"
DEFAULT_TIP = "Untitled: please fill in the title block."


class BadInputTest(HostTest):
    def test_bad_commands_drawings_and_modules(self):
        good = (self.folder / "Projects/Station/Drawings/S-200.dwg").read_bytes()
        (self.folder / "cut.dwg").write_bytes(good[:len(good) // 2])
        (self.folder / "noise.dwg").write_bytes(bytes(range(256)) * 40)
        (self.folder / "empty.dwg").write_bytes(b"")
        (self.folder / "secret.dwg").write_bytes(good)
        (self.folder / "secret.dwg").chmod(0)
        (self.folder / "text.arx").write_text("not a module")
        bad = {
            "OPEN missing.dwg": "missing.dwg: file not found",
            "OPEN Projects": "Projects: a folder, not a file",
            "OPEN secret.dwg": "secret.dwg: access denied",
            "OPEN cut.dwg": r"cut.dwg, line \d+: ",
            "OPEN noise.dwg": r"noise.dwg, line 1: ",
            "OPEN empty.dwg": r"empty.dwg(, line \d+)?: ",
            "DXFIN missing.dwg": "missing.dwg: file not found",
            r"SAVEAS no\such\folder\x.dwg": r"x.dwg: .+",
            f"SAVEAS {S200}": r'S-200.dwg" is open; the drawing is not saved',
            "ARX L text.arx": "not loaded: the file is no module",
            r"ARX L C:\windows\system32\version.dll": r"not loaded: .*entry point \(acrxEntryPoint\)",
            "ARX L missing.arx": "not loaded: the file is not there",
            f"ARX L {MODULE}": "not loaded: .*already",
            "ARX U missing.arx": "not unloaded: no module of that name",
            "FROBNICATE": 'Unknown command "FROBNICATE"',
            "LINE 0 0": "Too few arguments",
            "LINE a b c d": "is not a number",
            "SWITCH 99": "no drawing 99",
            "CLICK 99": "no tab 99",
            "MENU 1 12345": "no item 12345",
            "ATTEDIT NOSUCHTAG x": '"NOSUCHTAG" is not in the drawing',
            "SETVAR DBMOD 0": "DBMOD is read-only",
            "SETVAR SDI 1": "SDI cannot be set",
            "XRELOAD Nothing": '"Nothing" is not in the drawing',
            "PRESS 1": "There is no dialog",
        }
        script = [f"OPEN {S200}", f"OPEN {A101}", "LINE 0 0 1 1", "STRIP"]
        for command in bad:
            script += [command, "STRIP"]
        transcript = self.run_host(script, expect_exit=1)
        for number, (command, reason) in enumerate(bad.items()):
            with self.subTest(command):
                start = transcript.lines.index("Command: " + command)
                self.assertRegex("\n".join(transcript.lines[start + 1:start + 40]),
                                 rf"(?m)^.*{reason}.*$(\n.*)*?\nScript test.scr, line {5 + 2 * number} failed: ")
        first = transcript.strips[0]
        self.assertEqual(first.texts, ["Drawing1", "S-200", "A-101 *"])
        for strip in transcript.strips:
            self.assertEqual((strip.texts, strip.selected), (first.texts, first.selected))
        self.assertEqual(len(transcript.strips), 1 + len(bad))

    def test_a_binary_drawing_opens_without_contents(self):
        (self.folder / "binary.dwg").write_bytes(b"AC1015\0\0\0\0\0\x01" + bytes(500))
        transcript = self.run_host(["OPEN binary.dwg", "STRIP", "HOVER 1", "MENU 1"])
        self.assertEqual(transcript.strips[0].texts, ["Drawing1", "binary"])
        self.assertRegex(transcript.text, r"binary\.dwg.*contents.*not read")
        self.assertEqual(transcript.tips[0][1], DEFAULT_TIP)

    def test_a_binary_drawing_is_read_and_refuses_every_edit(self):
        room = [{"name": "*Model_Space", "layout": True}, {"name": "*Paper_Space", "layout": True}]
        title = {"block": 2, "attributes": [("TITLE", "Station"), ("NUMBER", "S-1")]}
        room[0]["inserts"] = [title] + [{"block": block} for block in (3, 4, 5)]
        xrefs = [{"name": name, "xref": True, "path": path}
                 for name, path in (("GRID", "grid.dwg"), ("TEXT", S200), ("GONE", "gone.dwg"))]
        plan = Drawing(2004, [*room, {"name": "BORDER"}, *xrefs], ["Plan"]).bytes()
        (self.folder / "plan.dwg").write_bytes(plan)
        (self.folder / "grid.dwg").write_bytes(Drawing(2000, [{**room[0], "inserts": []}, room[1]]).bytes())
        refused = ["LINE 0 0 1 1", "ERASE L", "INSERT BORDER 1 1", "ATTEDIT TITLE x", f"XATTACH {A101}", "XDETACH GRID",
                   "PROPS title x", "PROPS client x", f"DXFIN {S200}", "SETVAR LTSCALE 2", "QSAVE", "SAVEAS plan.dxf"]
        transcript = self.run_host(["OPEN plan.dwg", "HOVER 1", "MENU 1", "XRELOAD GRID", *refused, "SAVECOPY copy.dwg",
                                    "UNDO", "REDO", "SAVEAS saved.dwg", "STRIP", "MENU 1"], expect_exit=1)
        self.assertIn('plan.dwg" is a binary drawing: it is read, not written.', transcript.text)
        self.assertEqual(transcript.tips, [("Zavik sample office", "Plan")])
        for menu in transcript.menus:
            self.assertEqual([item[2] for item in menu if item],
                             ["&Close", "&Options...", "External &references", "grid.dwg", "S-200.dwg"])
        failed = [line.partition("failed: ")[2] for line in transcript.lines if " failed: " in line]
        self.assertEqual(failed, refused)
        reasons = [line for line in transcript.lines if "binary drawing is " in line or "use SAVEAS" in line]
        self.assertEqual(len(reasons), len(refused))
        self.assertEqual(transcript.strips[0].texts, ["Drawing1", "saved"])
        for name in ("plan", "copy", "saved"):
            self.assertEqual((self.folder / (name + ".dwg")).read_bytes(), plan)
        self.assertFalse((self.folder / "plan.dxf").exists())

    def test_what_the_command_line_names_may_be_missing(self):
        text = self.run_host(["STRIP"], ["nowhere.dwg", "/ld", "nowhere.arx", A101], expect_exit=1).text
        self.assertIn("nowhere.dwg: file not found", text)
        self.assertIn("not loaded: the file is not there", text)
        self.assertIn('"/frobnicate" is unknown', self.run_host([], ["/frobnicate"], expect_exit=1).text)
        code, text = wine(BUILD / "cadhost.exe", "/nologo", "/b", "nowhere.scr", cwd=self.folder)
        self.assertEqual(code, 1)
        self.assertIn("nowhere.scr", text)


if __name__ == "__main__":
    unittest.main()
