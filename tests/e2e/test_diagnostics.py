"""The diagnostics: the log file, its echo on the command line, assertions, and how the command uses them."""
import re
import unittest

from host import DEBUG, EXTENSIONS, MODULE, TOP, HostTest, options, wine, BUILD

A101 = r"Projects\Riverside\Drawings\A-101.dwg"
STAMP = r"\[\d\d:\d\d:\d\d\]"
TRACE = re.compile(STAMP + r" ZavikMDITabs : (.*)$")


class DiagnosticsTest(HostTest):
    def log(self):
        """The path of the log, on our side."""
        _, text = wine("cmd", "/c", "echo %TEMP%")
        return pathlib_of(text.strip()) / "Zavik Diagnostics" / "ZavikMDITabs.log"
