"""The files that ship: what each needs of Windows, what it offers, how big it is."""
import configparser
import pathlib
import unittest

import pefile
from host import ARCH, BUILD, REPOSITORY

# Functions that Windows 2000 has, a "[dll]" line before each group.
ALLOWED = pathlib.Path(__file__).with_name("windows2000.txt")
MACHINE = {"x86": 0x14C, "x64": 0x8664}[ARCH]


def exports(image):
    return [symbol.name.decode() for symbol in image.DIRECTORY_ENTRY_EXPORT.symbols]


def allowed_imports():
    lists = configparser.ConfigParser(allow_no_value=True, delimiters="=")
    lists.optionxform = str
    lists.read(ALLOWED, "ascii")
    return {(library, name) for library in lists.sections() for names in lists[library] for name in names.split()}


class CheckerFileTest(unittest.TestCase):
    file = "tabscheck.exe"
    hosts = ()  # it runs without one

    def setUp(self):
        self.path = BUILD / self.file
        self.image = pefile.PE(str(self.path))

    def test_imports_only_what_windows_2000_and_the_host_have(self):
        self.assertEqual(self.image.FILE_HEADER.Machine, MACHINE)
        offered = {dll: exports(pefile.PE(str(BUILD / dll))) for dll in self.hosts}
        allowed = allowed_imports()
        imports = {(entry.dll.decode().lower(), call.name.decode() if call.name else f"#{call.ordinal}")
                   for entry in self.image.DIRECTORY_ENTRY_IMPORT for call in entry.imports}
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
            header = self.image.OPTIONAL_HEADER
            self.assertLessEqual((header.MajorSubsystemVersion, header.MinorSubsystemVersion), (5, 0))

    def test_names_no_place_of_the_machine_it_was_built_on(self):
        data = self.path.read_bytes()
        for place in (str(REPOSITORY).encode(), b"/usr/"):
            at = data.find(place)
            self.assertEqual(at, -1, data[max(at, 0):at + 80])


class ModuleFileTest(CheckerFileTest):
    file = "ZavikMDITabs.arx"
    hosts = ("cadhost.exe", "cadmfc.dll")

    def test_exports_the_two_entry_points_undecorated(self):
        self.assertEqual(exports(self.image), ["acrxEntryPoint", "acrxGetApiVersion"])

    def test_is_small_and_stripped(self):
        self.assertLess(self.path.stat().st_size, 700 * 1024)


if __name__ == "__main__":
    unittest.main()
