"""Runs the built tabscheck.exe, and writes the trees that it is to look at."""
import itertools
import json
import pathlib
import shutil
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "e2e"))
from host import ANSI, ARCH, BUILD, ENDED, NOT_STARTED, REPOSITORY, HostTest  # noqa: E402

CONSOLE = "cp437"  # of Wine without a console


def drawing(blocks=(), inserts=(), title="", xrefs=()):
    """A drawing's bytes: blocks by name, inserts as (block, {tag: value}), references as (name, path)."""
    handles = itertools.count(0x100)

    def tags(*pairs):
        return "".join(f"{code}\r\n{value}\r\n" for code, value in pairs)

    def entity(kind, *pairs):
        return tags((0, kind), (5, f"{next(handles):X}"), (8, 0), *pairs)

    def point():
        return (10, 0.0), (20, 0.0), (30, 0.0)

    def block(name, flags, path=""):
        return entity("BLOCK", (2, name), (70, flags), *point(), (3, name), (1, path)) + entity("ENDBLK")

    header = tags((9, "$ACADVER"), (1, "AC1018"), (9, "$DWGCODEPAGE"), (3, "ANSI_1252"))
    if title:
        header += tags((9, "$TITLE"), (1, title))
    records = "".join(block(name, 2) for name in blocks) + "".join(block(name, 36, path) for name, path in xrefs)
    entities = ""
    for name, values in inserts:
        entities += entity("INSERT", (66, 1), (2, name), *point())
        for tag, value in values.items():
            entities += entity("ATTRIB", *point(), (40, 2.5), (1, value), (2, tag), (70, 0))
        entities += entity("SEQEND")
    for name, _ in xrefs:
        entities += entity("INSERT", (2, name), *point())
    sections = (("HEADER", header), ("BLOCKS", records), ("ENTITIES", entities))
    text = "".join(tags((0, "SECTION"), (2, name)) + body + tags((0, "ENDSEC")) for name, body in sections)
    return (text + tags((0, "EOF"))).encode(ANSI)


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
            [str(REPOSITORY / "tools/wine"), ARCH, r"install\ZavikMDITabs\tabscheck.exe", *arguments],
            cwd=self.folder, stdin=subprocess.DEVNULL, capture_output=True)
        if result.returncode in (ENDED, NOT_STARTED):
            raise AssertionError(result.stderr.decode(CONSOLE))
        return result.returncode, result.stdout, result.stderr.decode(CONSOLE).replace("\r", "")

    def told(self, *arguments):
        """What --json says."""
        _, output, complaints = self.check("--json", *arguments)
        self.assertEqual(complaints, "")
        told = json.loads(output)
        self.assertNotRegex(output.decode(), "[\0-\t\v-\x1f\x7f-\x9f]")
        self.assertEqual(told["version"], 2)
        return told

    def reports(self, *arguments):
        """{drawing's path: what is said of it}."""
        return {drawing["path"]: drawing for drawing in self.told(*arguments)["drawings"]}

    def problems(self, *arguments):
        """All of them, each once, by file and place."""
        told = self.told(*arguments)
        problems = {(p["file"], p["line"], p["column"], p["name"], p["text"]): p
                    for about in told["drawings"] + told["files"] for p in about["problems"]}
        return [problems[key] for key in sorted(problems)]
