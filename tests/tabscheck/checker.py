"""Runs the built tabscheck.exe, and writes the trees that it is to look at."""
import json
import pathlib
import re
import shutil
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "e2e"))
from host import ANSI, ARCH, BUILD, ENDED, NOT_STARTED, REPOSITORY, HostTest, wine  # noqa: E402

PROGRAM = r"install\ZavikMDITabs\tabscheck.exe"
CONSOLE = "cp437"  # of Wine without a console


def drawing(blocks=(), inserts=(), title=""):
    """A drawing's bytes: blocks by name, inserts as (block, {tag: value})."""
    def section(name, tags):
        tags = [(0, "SECTION"), (2, name), *tags, (0, "ENDSEC")]
        return "".join(f"{code}\r\n{value}\r\n" for code, value in tags)

    header = [(9, "$ACADVER"), (1, "AC1018"), (9, "$DWGCODEPAGE"), (3, "ANSI_1252"), (9, "$TITLE"), (1, title)]
    records = [tag for name in blocks for tag in ((0, "BLOCK"), (2, name), (70, 2), (0, "ENDBLK"))]
    entities = []
    for name, values in inserts:
        entities += [(0, "INSERT"), (66, 1), (2, name)]
        entities += [tag for attribute, value in values.items() for tag in ((0, "ATTRIB"), (1, value), (2, attribute))]
        entities.append((0, "SEQEND"))
    text = section("HEADER", header) + section("BLOCKS", records) + section("ENTITIES", entities)
    return (text + "0\r\nEOF\r\n").encode(ANSI)


class CheckerTest(HostTest):
    """Each test has an installation with tabscheck beside the module, and the samples."""

    def setUp(self):
        super().setUp()
        shutil.copy(BUILD / "tabscheck.exe", self.folder / "install/ZavikMDITabs")

    def write(self, files):
        """{name: text or bytes}, below the test's folder; texts in the ANSI code page."""
        for name, contents in files.items():
            path = self.folder / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(contents if isinstance(contents, bytes) else contents.replace("\n", "\r\n").encode(ANSI))

    def check(self, *arguments):
        """Exit code, output as bytes, complaints as text."""
        result = subprocess.run(
            [str(REPOSITORY / "tools/wine"), ARCH, PROGRAM, *arguments],
            cwd=self.folder, stdin=subprocess.DEVNULL, capture_output=True)
        if result.returncode in (ENDED, NOT_STARTED):
            raise AssertionError(result.stderr.decode(CONSOLE))
        # Wine's background processes write where the program does that they were started by.
        complaints = re.sub("(?m)^wine: .*\n", "", result.stderr.decode(CONSOLE).replace("\r", ""))
        return result.returncode, result.stdout, complaints

    def batch(self, *commands):
        """Of each command, run one after the other by one batch: its output and its exit code."""
        lines = ["@echo off\n"] + [f"{command}\necho ===%ERRORLEVEL%\n" for command in commands]
        self.write({"run.cmd": "".join(lines).encode(CONSOLE)})
        return re.findall(r"(?s)(.*?)===(\d+)\n", wine("cmd", "/c", "run.cmd", cwd=self.folder)[1])

    def told(self, *arguments):
        """What --json says."""
        code, output, complaints = self.check("--json", *arguments)
        self.assertEqual((code in (0, 1, 2), complaints), (True, ""))
        told = json.loads(output)
        self.assertNotRegex(output.decode(), "[\0-\t\v-\x1f\x7f-\x9f]")
        self.assertEqual(told["version"], 2)
        return told

    def reports(self, *arguments):
        """{drawing's path: what is said of it}."""
        return {drawing["path"]: drawing for drawing in self.told(*arguments)["drawings"]}
