"""The diagnostics: log file, echo, and the switches at the start."""
import time
import unittest

from host import ANSI, MODULE, PREFIX, HostTest

A101 = r"Projects\Riverside\Drawings\A-101.dwg"
TRACED = "] ZavikMDITabs : "


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
        long = r"Projects\Riverside\Drawings\A-{}.dwg"  # as long as the system takes a path, below any folder
        long = long.format("1" * (257 - len(self.path(long))))
        (self.folder / A101.replace("\\", "/")).rename(self.folder / long.replace("\\", "/"))
        transcript = self.run_host(["ARX U ZavikMDITabs.arx", f"ARX L {MODULE}", f"OPEN {long}"])
        log = self.log()
        self.assertEqual(sum(line.startswith("Diagnostics started: ") for line in log), 1)
        header = log[:log.index(":") + 1]
        started = time.mktime(time.strptime(header[0], "Diagnostics started: %m/%d/%y %H:%M:%S"))
        self.assertLess(abs(time.time() - started), 600, "local time")
        self.assertRegex(header[1], r"^::HostName=.+")
        self.assertIn("PathLocation::LOCATION_FILE_MODULE=" + self.path(MODULE), header)
        self.assertEqual(header[-2], ":" + "-" * 25)
        traces = log[len(header):]
        opened = f'ZavikMDITabs : CDocManagerReactor::documentCreated("{self.path(long)}")'
        self.assertEqual([line[11:] for line in traces].count(opened), 1)
        self.assertEqual([line[11:] for line in transcript.lines].count(opened), 1, "the same on the command line")

    def test_checks_asked_for_at_the_start_end_with_it(self):
        self.remove_log()
        self.set_registry({}, {"DebugStartup": 1, "AssertStartup": 1})
        transcript = self.run_host(["FAULT AcApDocManager::document 1", "LINE 0 0 1 1", "LINE 0 0 1 1", "STRIP"])
        self.assertEqual(transcript.strips[0].texts, ["Drawing1 *"])
        self.assertIsNone(self.log(), "checks alone write no log")
        self.assertNotIn(TRACED, transcript.text)


if __name__ == "__main__":
    unittest.main()
