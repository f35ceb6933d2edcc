"""Whole sessions in debug mode: each line that is traced, reported or shown, in its order.

tests/transcripts/NAME.scr is played, what comes is compared with NAME.txt beside it.
WRITE=1 writes the latter anew; the difference is to be read.
"""
import os
import pathlib
import re
import unittest

from host import ANSI, ARCH, REPOSITORY, HostTest

FOLDER = REPOSITORY / "tests/transcripts"
PREFIX = pathlib.Path(os.environ.get("WINEPREFIX", REPOSITORY / "build" / f"wineprefix-{ARCH}"))
DRIVE = PREFIX / "dosdevices/w:"
TRACED = re.compile(r"\[\d\d:\d\d:\d\d\] ")
NOON = 1092153600      # in the summer of 2004

# What differs from machine to machine.
NEUTRAL = [
    (TRACED, "[time] "),
    (r'((?:USER|COMPUTER)_NAME", )"[^"]*"', r'\1"..."'),
    (r"C:\\users\\[^\\]*", r"C:\\users\\person"),
]


def neutral(text):
    for pattern, replacement in NEUTRAL:
        text = re.sub(pattern, replacement, text)
    return text


class TranscriptsTest(HostTest):
    def setUp(self):
        super().setUp()
        # A drive of the test's own: traces are divided by their length, which no path is to change.
        DRIVE.unlink(missing_ok=True)
        DRIVE.symlink_to(self.folder)
        self.addCleanup(DRIVE.unlink)
        for path in self.folder.rglob("*"):
            os.utime(path, (NOON, NOON))
        self.set_registry({}, {"DebugStartup": 1})

    def play(self, name):
        script = (FOLDER / f"{name}.scr").read_text("utf-8")
        transcript = self.run_host(script, arguments=(), expect_exit=None)
        self.check_log(transcript)
        text = neutral(transcript.text)
        golden = FOLDER / f"{name}.txt"
        if os.environ.get("WRITE"):
            golden.write_text(text, "utf-8")
        self.assertEqual(text.splitlines(), golden.read_text("utf-8").splitlines())

    def check_log(self, transcript):
        """Each traced line is in the log, too, as often and undivided."""
        log = next(PREFIX.glob("drive_c/users/*/Temp/Zavik Diagnostics/ZavikMDITabs.log")).read_text(ANSI)
        body = log[log.index("\n:\n") + 3:]
        shown = "".join(line for line in transcript.text.splitlines())
        at = 0
        for line in body.splitlines():
            at = shown.find(line, at)
            self.assertNotEqual(at, -1, line)

    def test_session(self):
        self.play("session")


if __name__ == "__main__":
    unittest.main()
