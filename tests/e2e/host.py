"""Drives the built host and module from outside: a script in, a transcript out.

Run by ctest, which says in ARCH and BUILD which build to drive. By hand:
    ARCH=x86 BUILD=build/x86 /usr/bin/python3 tests/e2e/test_samples.py -v
"""
import collections
import itertools
import os
import pathlib
import re
import shutil
import subprocess
import time
import unittest

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]
ARCH = os.environ.get("ARCH", "x86")
BUILD = pathlib.Path(os.environ.get("BUILD", REPOSITORY / "build" / ARCH)).resolve()
DESKTOP = os.environ.get("DESKTOP", ARCH)
PREFIX = pathlib.Path(os.environ.get("WINEPREFIX", REPOSITORY / f"build/wineprefix-{DESKTOP}"))
ENDED, NOT_STARTED = 124, 125  # by tools/wine
ANSI = "cp1252"
MODULE = r"install\ZavikMDITabs\ZavikMDITabs.arx"
OPTIONS_KEY = r"HKEY_CURRENT_USER\Software\Zavik\ZavikMDITabs"
DIAGNOSTICS_KEY = r"HKEY_CURRENT_USER\Software\Zavik\Halvoran"
READ_ONLY = ["Projects/Station/Drawings/S-201 issued.dwg", "Projects/Riverside/Xrefs/Survey.dwg"]

# The time zone of what tools/wine runs is ours too.
os.environ["TZ"] = "EST5EDT"
time.tzset()

DISCREET = 1007  # a control of the options dialog

STRIP = re.compile(r"strip: .* tabs=(\d+) selected=(-?\d+) active=(-?\d+)$")
TAB = re.compile(r'tab \d+: text="(.*)" image=(-?\d+) document="(.*)"$')
Tab = collections.namedtuple("Tab", "text image document")
TIP = re.compile(r'tip: title="(?P<title>.*)" text="(?P<text>.*)"$')
ITEM = re.compile(r'(?P<indent> *)item (?:(?P<id>\d+): "(?P<caption>.*)" enabled=(?P<enabled>\d)( checked=1)?|-)$')
CONTROL = re.compile(r'control (?P<id>\d+): "(?P<text>.*)" checked=(?P<checked>\d+) enabled=(?P<enabled>\d)$')


def wine(*command, cwd=REPOSITORY):
    """Runs a Windows program to its end; gives its exit code and its output."""
    # Once in thousands of times Wine cannot start a program, and says so: none of it has run.
    for _ in range(3):
        result = subprocess.run([REPOSITORY / "tools/wine", ARCH, *command], cwd=cwd, stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        output = result.stdout.decode(ANSI, "replace").replace("\r", "")
        if result.returncode in (ENDED, NOT_STARTED):
            raise AssertionError(output)
        if "ShellExecuteEx failed: Internal error" not in output:
            break
    return result.returncode, output


class Strip:
    """What one STRIP command printed; exists is False where there is no strip."""

    def __init__(self, line):
        self.tabs = []
        self.exists = line != "strip: none"
        if self.exists:
            self.count, self.selected, self.active = map(int, STRIP.match(line).groups())

    @property
    def texts(self):
        return [tab.text for tab in self.tabs]


class Transcript:
    """A host's whole output, with the observations read out of it in order."""

    def __init__(self, exit_code, text):
        self.exit_code = exit_code
        self.text = text
        self.lines = text.splitlines()
        self.strips = []
        for line in self.lines:
            if line.startswith("strip: "):
                self.strips.append(Strip(line))
            elif match := TAB.match(line):
                self.strips[-1].tabs.append(Tab(match[1], int(match[2]), match[3]))
        if any(strip.exists and strip.count != len(strip.tabs) for strip in self.strips):
            raise AssertionError(f"a strip announces more tabs than it lists, or less:\n{text}")

    @property
    def tips(self):
        r"""(title, text) of each HOVER; a line feed in the text stands as \n, as a path's may."""
        return [(m["title"], m["text"]) for m in filter(None, map(TIP.match, self.lines))]

    @property
    def menus(self):
        """For each MENU its items: (depth, id, caption, enabled); None for a separator.

        An item that opens a submenu has the id 0 or the host's own.
        """
        return [[None if m["id"] is None else
                 (len(m["indent"]) // 2, int(m["id"]), m["caption"], m["enabled"] == "1")
                 for m in block] for block in self._blocks(ITEM)]

    @property
    def dialogs(self):
        """For each DIALOG its controls by id: (text, checked, enabled)."""
        return [{int(m["id"]): (m["text"], int(m["checked"]), m["enabled"] == "1") for m in block}
                for block in self._blocks(CONTROL)]

    def _blocks(self, pattern):
        """The matches of consecutive lines, block by block."""
        return [list(block) for found, block in itertools.groupby(map(pattern.match, self.lines), bool) if found]


def options(*presses, end=1):
    """Script lines that run the options dialog: these controls, then OK (2 for Cancel).

    The dialog gets a moment first, in which it greys what is not for pressing.
    """
    return ["ZavikMDITabs", "WAIT 30", *(f"PRESS {control}" for control in presses), f"PRESS {end}"]


class HostTest(unittest.TestCase):
    """Each test has a folder of its own with an installation and the samples.

    The user's registry keys are emptied first; ctest lets one such test run at
    a time in a prefix.
    """
    maxDiff = None

    def setUp(self):
        self.folder = BUILD / "e2e" / self.id().rpartition(".")[0].rpartition(".")[2] / self._testMethodName
        self.remove_folder()
        program = self.folder / "install" / "ZavikMDITabs"
        program.mkdir(parents=True)
        shutil.copy(BUILD / "ZavikMDITabs.arx", program)
        shutil.copytree(REPOSITORY / "support", program / "support")
        samples = REPOSITORY / "samples"
        shutil.copytree(samples / "DomainSettings", self.folder / "install" / "DomainSettings")
        for name in ("Projects", "Sketches"):
            shutil.copytree(samples / name, self.folder / name)
        for name in READ_ONLY:
            (self.folder / name).chmod(0o444)
        self.set_registry({})

    def run(self, result=None):
        """A failed test leaves its folder to look at."""
        super().run(result)
        if not any(self in (test, getattr(test, "test_case", None)) for test, _ in result.failures + result.errors):
            self.remove_folder()

    def remove_folder(self):
        if self.folder.exists():
            for path in self.folder.rglob("*"):
                if not path.is_symlink():
                    path.chmod(0o755 if path.is_dir() else 0o644)
            shutil.rmtree(self.folder)

    def set_registry(self, options, diagnostics=None):
        """Makes these DWORDs all there is under our keys."""
        lines = ["REGEDIT4", "", r"[-HKEY_CURRENT_USER\Software\Zavik]", ""]
        for key, values in ((OPTIONS_KEY, options), (DIAGNOSTICS_KEY, diagnostics or {})):
            if values:
                lines.append(f"[{key}]")
                lines += [f'"{name}"=dword:{value:08x}' for name, value in values.items()]
                lines.append("")
        path = self.folder / "setup.reg"
        path.write_text("\r\n".join(lines) + "\r\n", ANSI, newline="")
        code, text = wine("reg", "import", path.name, cwd=self.folder)
        self.assertEqual(code, 0, text)

    def registry(self, key=OPTIONS_KEY):
        """The DWORDs that the key holds now."""
        code, text = wine("reg", "query", key)
        values = re.findall(r"^\s+(\S+)\s+REG_DWORD\s+0x([0-9a-fA-F]+)", text, re.M)
        return {name: int(value, 16) for name, value in values} if code == 0 else {}

    def path(self, name):
        """How the host names a file of the test's folder."""
        return f"Z:{self.folder}/{name}".replace("/", "\\")

    def run_host(self, script, arguments=("/ld", MODULE), expect_exit=0, demand=False):
        """Plays script lines in a new host process and gives its transcript, which stays in the folder.

        What the registry names for loading counts only with demand set.
        """
        if not isinstance(script, str):
            script = "\n".join(script)
        (self.folder / "test.scr").write_text(script.strip() + "\n", ANSI)
        switches = ["/nologo"] if demand else ["/nologo", "/nodemand"]
        code, text = wine(BUILD / "cadhost.exe", *switches, *arguments, "/b", "test.scr", cwd=self.folder)
        (self.folder / "test.txt").write_text(text, ANSI)
        if expect_exit is not None:
            self.assertEqual(code, expect_exit, text)
        return Transcript(code, text)
