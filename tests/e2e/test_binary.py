"""The module's file: what it needs of Windows, what it offers, how big it is."""
import pathlib
import re
import unittest

from host import ARCH, BUILD, REPOSITORY
from pe import Image

# Functions that Windows 2000 has, a "[dll]" line before each group.
ALLOWED = pathlib.Path(__file__).with_name("windows2000.txt")
MACHINE = {"x86": 0x14C, "x64": 0x8664}[ARCH]


def allowed_imports():
    allowed, library = set(), None
    for line in ALLOWED.read_text("ascii").splitlines():
        if match := re.fullmatch(r"\[(.+)\]", line):
            library = match[1]
        elif not line.startswith("# "):
            allowed |= {(library, name) for name in line.split()}
    return allowed


class ModuleFileTest(unittest.TestCase):
    def setUp(self):
        self.path = BUILD / "ZavikMDITabs.arx"
        self.image = Image(self.path)

    def test_imports_only_what_windows_2000_and_the_host_have(self):
        self.assertEqual(self.image.machine, MACHINE)
        self.assertEqual(self.image.is_64, ARCH == "x64")
        offered = {dll: set(Image(BUILD / dll).exports) for dll in ("cadhost.exe", "cadmfc.dll")}
        allowed = allowed_imports()
        imports = self.image.imports
        self.assertIn(("kernel32.dll", "GetModuleFileNameA"), imports, "the table was read")
        self.assertTrue(offered.keys() <= {dll for dll, name in imports}, "the host's toolkit is shared")
        strangers = {(dll, name) for dll, name in imports
                     if name not in offered.get(dll, ()) and (dll, name) not in allowed}
        if ARCH == "x64":  # Windows 2000 is 32-bit; here the libraries alone count
            libraries = {dll for dll, name in allowed}
            strangers = {(dll, name) for dll, name in strangers if dll not in libraries}
        self.assertEqual(strangers, set())

    def test_runs_on_windows_2000(self):
        if ARCH == "x86":
            self.assertLessEqual(self.image.subsystem_version, (5, 0))

    def test_exports_the_two_entry_points_undecorated(self):
        self.assertEqual(self.image.exports, ["acrxEntryPoint", "acrxGetApiVersion"])

    def test_is_small_and_stripped(self):
        self.assertLess(self.path.stat().st_size, 700 * 1024)

    def test_names_no_place_of_the_machine_it_was_built_on(self):
        for place in (str(REPOSITORY).encode(), b"/usr/"):
            at = self.image.data.find(place)
            self.assertEqual(at, -1, self.image.data[max(at, 0):at + 80])


if __name__ == "__main__":
    unittest.main()
