"""What is wrong is named with its reason, fails the script, and disturbs nothing else."""
import unittest

from host import BUILD, MODULE, HostTest, wine

A101 = r"Projects\Riverside\Drawings\A-101.dwg"
S200 = r"Projects\Station\Drawings\S-200.dwg"


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
