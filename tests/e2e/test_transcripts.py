"""Whole sessions in debug mode: each line that is traced, reported or shown, in its order.

tests/transcripts/NAME.scr is played; what comes of it is compared with NAME.txt beside it.
With WRITE=1 in the environment that is written anew; the difference is to be read.
"""
import difflib
import os
import re
import unittest

from host import ANSI, BUILD, PREFIX, REPOSITORY, HostTest, wine

FOLDER = REPOSITORY / "tests/transcripts"
DRIVE = PREFIX / "dosdevices/w:"
NOON = 1092153600      # in the summer of 2004
TRACE = re.compile(r"\[[\d:]{8}\] ZavikMDITabs : ")

# What differs from machine to machine, from build to build, from run to run.
NEUTRAL = [
    (r"\[\d\d:\d\d:\d\d\]", "[time]"),
    # Windows repeats the mouse's moves as it likes.
    (r"(\[time\] ZavikMDITabs : CARXMDITabs::getDocument\((?:const CPoint point|iItem = \d)\)\n){2}"
     r"(\[time\] ZavikMDITabs : CARXMDITabs::getTooltip\(.*\)\n(?!.*buildTooltip))?", ""),
    (r'((?:USER|COMPUTER)_NAME", )"[^"]*"', r'\1"..."'),
    (r"C:\\users\\[^\\]*", r"C:\\users\\person"),
    (r"(?m)^((?:::|OS::|Hardware::)[^=]*)=.*$", r"\1=..."),
    (r"Diagnostics started: [\d/]{8} [\d:]{8}$", "Diagnostics started: ..."),
    (r"(?:Hardware::SystemBiosVersion .*\n)+", "Hardware::SystemBiosVersion (0...)\n"),
    # Of a report: the line, and the stack, in the box and in the log.
    (r"\(\d+\): Assertion", "(line): Assertion"),
    (r'Line : \d+\\n\\n[^"]*', r"Line : ...\\n\\nstack"),
    (r"\[time\] (?:\S+ \+ 0x.*|0x[0-9a-f]+)(?:\n(?:\S+ \+ 0x.*|0x[0-9a-f]+)$)*", "[time] stack"),
    (r'(window "MDIClient" .*) focus', r"\1"),  # as the display has it at that time
    (r'(window "(?:Static" (?:1088|65535)|Button" 1)): rect=\S+(.* font="Tahoma"|.* icon=)', r"\1: rect=...\2"),
]

A101 = "Projects/Riverside/Drawings/A-101.dwg"
GOOD = b"0\nSECTION\n2\nHEADER\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n0\nENDSEC\n0\nEOF\n"
END = b"8\n0\n0\nENDSEC\n0\nEOF\n"
BROKEN = {
    "good": (b"", b""), "marked": (GOOD, b"\xEF\xBB\xBF" + GOOD), "no header": (GOOD[:28], b""),
    "no line end": (b"EOF\n", b"EOF"), "no end": (b"0\nEOF\n", b""), "more": (b"EOF\n", b"EOF\nwhat follows is nobody's\n"),
    "empty": (GOOD, b"\n"), "nothing": (GOOD, b"0\nEOF\n"), "code": (b"LINE\n8", b"LINE\n8x"),
    "large code": (b"LINE\n8", b"LINE\n99999999999"), "no value": (END, b"8\n"), "cut": (END, b"8\n0\n"),
    "section": (END, b"0\nEOF\n"), "sections": (b"0\nENDSEC\n", b""), "zero": (b"LINE", b"LI\0E"),
    "binary dxf": (GOOD, b"AutoCAD Binary DXF\r\n\x1a\0\0"), "ancient": (GOOD, b"AC2.10"), "binary": (GOOD, b"AC1015" + bytes(600)),
}


def neutral(text):
    for pattern, replacement in NEUTRAL:
        text = re.sub(pattern, replacement, text, flags=re.M)
    return text


class TranscriptsTest(HostTest):
    """A script makes what it needs beyond the samples itself, and switches debug mode off where it tells nothing."""

    def setUp(self):
        super().setUp()
        # A drive of the test's own: what is traced is divided by its length, and no path is to tell.
        DRIVE.unlink(missing_ok=True)
        DRIVE.symlink_to(self.folder)
        self.addCleanup(DRIVE.unlink)
        self.set_registry({}, {"DebugStartup": 1})

    def play(self, name, arguments=()):
        for path in self.folder.rglob("*"):
            os.utime(path, (NOON, NOON))
        logs = "drive_c/users/*/Temp/Zavik Diagnostics/ZavikMDITabs.log"
        for log in PREFIX.glob(logs):
            log.unlink()
        shown = self.run_host((FOLDER / f"{name}.scr").read_text("utf-8"), arguments, expect_exit=None).text
        logged = "".join(log.read_text(ANSI) for log in PREFIX.glob(logs))
        self.check_echo(shown, logged)
        # Of the log what is not shown, too: its beginning, and the reports.
        header, _, body = neutral(logged).partition("[time]")
        reports = re.findall(r"(?m)^\[time\] (?!ZavikMDITabs : ).*\n", body)
        stored = "".join(f"{option} = {value:x}\n" for option, value in self.registry().items())
        text = f"{neutral(shown)}\nIn the log alone:\n{header}{''.join(reports)}\nStored:\n{stored}{self.written()}"
        golden = FOLDER / f"{name}.txt"
        if os.environ.get("WRITE"):
            golden.write_text(text, "utf-8")
        before = golden.read_text("utf-8")
        if text != before:
            self.fail("".join(difflib.unified_diff(before.splitlines(True), text.splitlines(True), golden.name, "now")))

    def written(self):
        """How the drawings in the folder "edits" differ from the one that was edited; what is left of saves."""
        def lines(path):
            return path.read_bytes().decode(ANSI).splitlines(True)
        edits = [(path, difflib.unified_diff(lines(self.folder / A101), lines(path), n=1)) for path in self.folder.glob("edits/*")]
        text = "".join(f"\n{path.name}:\n{''.join(difference)}" for path, difference in sorted(edits))
        return text + "".join(f"\n{name}" for name in sorted(path.name for path in self.folder.rglob("*.tmp")))

    def check_echo(self, shown, log):
        """The log's traces, all of them, are on the command line, each once and whole."""
        at = 0
        for line in filter(TRACE.match, log.splitlines()):
            self.assertEqual(shown.find(line, at) != -1, True, line)
            at = shown.find(line, at) + len(line)
        self.assertEqual(len(TRACE.findall(shown)), len(TRACE.findall(log)))

    def test_host(self):
        edits, saved, broken = (self.folder / name for name in ("edits", "saved", "broken"))
        for folder in (edits, saved, broken):
            folder.mkdir()
        # One attribute of the border is not asked for.
        drawing = self.folder / A101
        drawing.write_bytes(drawing.read_bytes().replace(b"DWG_REV\n 70\n0", b"DWG_REV\n 70\n2", 1))
        for name in ("saved/dwg9.tmp", "saved/dwg1aF.TMP", "saved/dwgs.tmp", f"saved/{'n' * 251}.dwg", "grid.dwg"):
            (self.folder / name).write_bytes(GOOD)
        for name, (old, new) in BROKEN.items():
            (broken / name).write_bytes(GOOD.replace(old, new, 1))
        binary = (BUILD / "drawings/made_2004.dwg").read_bytes()
        (broken / "plan.dwg").write_bytes(binary)
        self.play("host")
        for name in ("copy", "saved"):
            self.assertEqual((saved / f"{name}.dwg").read_bytes(), binary)

    def test_refused(self):
        for name in ("secret.dwg", "text.arx", "n" * 248 + ".dwg"):
            (self.folder / name).write_bytes(GOOD)
        (self.folder / "secret.dwg").chmod(0)
        self.play("refused", ["nowhere.dwg", "/ld", "nowhere.arx", "Sketches/Sketch.dwg"])
        for arguments, said in ((["/frobnicate"], "is unknown"), (["/b", "nowhere.scr"], "nowhere.scr")):
            code, text = wine(BUILD / "cadhost.exe", "/nologo", *arguments, cwd=self.folder)
            self.assertEqual((code, said in text), (1, True), text)


for script in FOLDER.glob("*.scr"):
    if not hasattr(TranscriptsTest, f"test_{script.stem}"):
        setattr(TranscriptsTest, f"test_{script.stem}", lambda self, name=script.stem: self.play(name))

if __name__ == "__main__":
    unittest.main()
