"""The diagnostics: log file, echo and assertions; and what they tell about the command."""
import os
import pathlib
import re
import unittest

from host import ANSI, ARCH, BOTTOM, DEBUG, EXTENSIONS, MODULE, REPOSITORY, TOP, USE, HostTest, options

A101 = r"Projects\Riverside\Drawings\A-101.dwg"
PREFIX = pathlib.Path(os.environ.get("WINEPREFIX", REPOSITORY / "build" / f"wineprefix-{ARCH}"))
TRACE = re.compile(r"\[\d\d:\d\d:\d\d\] ZavikMDITabs : (.*)$")
REACTORS = re.compile(r"C(?:DocManager|Editor)Reactor::(?:attach|detach|addDocuments|removeDocuments)\(\)$")
DETACH = ["CEditorReactor::detach()", "CEditorReactor::removeDocuments()",
          "CDocManagerReactor::detach()", "CDocManagerReactor::removeDocuments()"]
ATTACH = ["CDocManagerReactor::attach()", "CDocManagerReactor::addDocuments()",
          "CEditorReactor::attach()", "CEditorReactor::addDocuments()"]
TRACED = "] ZavikMDITabs : "
# Destroys the strip that is not there, and makes one.
STYLE_WHILE_OFF = options(USE, TOP, USE)
REBUILD = ["CDocManagerReactor::removeDocuments()", "CDocManagerReactor::addDocuments()"]


def reactor_steps(lines):
    """What the reactors were told to do, in order."""
    traces = filter(None, map(TRACE.match, lines))
    return [trace[1] for trace in traces if REACTORS.match(trace[1])]


class DiagnosticsTest(HostTest):
    def log(self):
        """The log file's lines; none without one."""
        for path in PREFIX.glob("drive_c/users/*/Temp/Zavik Diagnostics/ZavikMDITabs.log"):
            return path.read_text(ANSI).splitlines()
        return None

    def remove_log(self):
        for path in PREFIX.glob("drive_c/users/*/Temp/Zavik Diagnostics"):
            for file in path.iterdir():
                file.unlink()
            path.rmdir()

    def test_log_and_echo_from_the_start(self):
        self.set_registry({}, {"DebugStartup": 1})
        long = r"Projects\Riverside\Drawings\A-" + "1" * 120 + ".dwg"
        (self.folder / A101.replace("\\", "/")).rename(self.folder / long.replace("\\", "/"))
        transcript = self.run_host(["ARX U ZavikMDITabs.arx", f"ARX L {MODULE}", f"OPEN {long}"])
        log = self.log()
        self.assertEqual(sum(line.startswith("Diagnostics started: ") for line in log), 1)
        header = log[:log.index(":") + 1]
        self.assertRegex(header[0], r"^Diagnostics started: \d\d/\d\d/\d\d \d\d:\d\d:\d\d$")
        self.assertRegex(header[1], r"^::HostName=.+")
        self.assertIn("PathLocation::LOCATION_FILE_MODULE=" + self.path(MODULE), header)
        self.assertEqual(header[-2:], [":" + "-" * 25, ":"])
        traces = log[len(header):]
        self.assertEqual(reactor_steps(traces)[:4], ATTACH, "the first start's log is gone")
        opened = f'ZavikMDITabs : CDocManagerReactor::documentCreated("{self.path(long)}")'
        self.assertEqual([line[11:] for line in traces].count(opened), 1)
        self.assertEqual([line[11:] for line in transcript.lines].count(opened), 1, "the same on the command line")

    def test_what_the_command_does_with_the_reactors(self):
        self.set_registry({}, {"DebugStartup": 1})
        steps = {
            "nothing": (options(), []),
            "texts": (options(EXTENSIONS), REBUILD),
            "style": (options(TOP), DETACH + ATTACH + REBUILD),
            "both": (options(BOTTOM, EXTENSIONS), DETACH + ATTACH + REBUILD),
            "cancelled": (options(TOP, EXTENSIONS, end=2), []),
            "off": (options(USE), DETACH),
            "on": (options(USE), ATTACH + REBUILD),
            "off with style": (options(TOP, USE), DETACH + ATTACH),
            "unload": (["ARX U ZavikMDITabs.arx"], DETACH),
        }
        script = []
        for name, (lines, _) in steps.items():
            script += [f"; {name}", *lines, "SETVAR SDI"]
        transcript = self.run_host(script)
        parts = "\n".join(transcript.lines[transcript.lines.index("ZavikMDITabs loaded."):]).split("\nSDI = 0")
        for part, (name, (_, expected)) in zip(parts, steps.items(), strict=False):
            with self.subTest(name):
                self.assertEqual(reactor_steps(part.splitlines()), expected)
        self.assertEqual(len(parts), len(steps) + 1)

    def test_debug_mode_is_of_the_session(self):
        self.remove_log()
        transcript = self.run_host([
            "LINE 0 0 1 1",
            *options(DEBUG), "SETVAR SDI", "LINE 0 0 2 2", "UNDO", "UNDO", "SETVAR SDI",
            *options(DEBUG), "SETVAR SDI", "LINE 0 0 3 3",
        ])
        before, on, _, off = transcript.text.split("SDI = 0")
        self.assertNotIn(TRACED, before.split("Command: ZavikMDITabs")[0], "off by default")
        self.assertEqual(on.count("CDocManagerReactor::updateDatabaseModifiedFlag(...)"), 1,
                         "the tab hears of a change of state, not of each edit")
        self.assertNotIn(TRACED, off)
        self.assertTrue(self.log()[0].startswith("Diagnostics started: "))

    def test_checks_asked_for_at_the_start_end_with_it(self):
        self.remove_log()
        self.set_registry({"Use": 0}, {"DebugStartup": 1, "AssertStartup": 1})
        transcript = self.run_host(["LINE 0 0 1 1", *STYLE_WHILE_OFF, "STRIP"])
        self.assertEqual(transcript.strips[0].texts, ["Drawing1 *"])
        self.assertIsNone(self.log(), "checks alone write no log")
        self.assertNotIn(TRACED, transcript.text)

    def test_a_failed_check_is_reported_and_the_work_goes_on(self):
        self.set_registry({"Use": 0}, {"DebugStartup": 1})
        transcript = self.run_host([
            *STYLE_WHILE_OFF, *["WAIT 30", "DIALOG", "PRESS 1"] * 3, "STRIP", "NEW", "STRIP",
        ])
        failed = [("m_pReactor != NULL", "EditorReactor"), ("m_pReactor != NULL", "DocManagerReactor"),
                  ("m_pWndTabs != NULL", "ZavikMDITabs")]
        boxes = re.findall(r'"Module : <(.*?)>\\nAssertion : <(.*?)>\\nFile : <(.*?)>\\nLine : \d+\\n\\n.+?"',
                           transcript.text)
        self.assertEqual(boxes, [("ZavikMDITabs.arx", *check) for check in failed])
        self.assertEqual(transcript.lines.count('dialog: "Assertion Failure: ZavikMDITabs.arx"'), 3)
        logged = [re.search(r'\] (\w+)\(\d+\): Assertion in "ZavikMDITabs.arx" \((.*)\)\.$', line)
                  for line in self.log()]
        self.assertEqual([(line[2], line[1]) for line in logged if line], failed)
        self.assertEqual([strip.texts for strip in transcript.strips], [["Drawing1"], ["Drawing1", "Drawing2"]])


if __name__ == "__main__":
    unittest.main()
