"""The installer on a machine of its own: rolled out, upgraded, removed, and nothing left.

Run by ctest; ARCH says which Wine is the machine, BUILD where host and module
are. RELEASE, when set, is a folder of tools/release whose installer is taken;
else one is made of the module as built.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import unittest

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(REPOSITORY / "tests/e2e"), str(REPOSITORY / "package")]
import archives  # noqa: E402
import installer  # noqa: E402
from host import ARCH, BUILD, Transcript, wine  # noqa: E402

WORK = BUILD / "release-test"
PREFIX = WORK / "machine"
os.environ["WINEPREFIX"] = str(PREFIX)
ENTRY = r"Software\{}Autodesk\AutoCAD\{}\Applications\ZavikMDITabs"
OURS = re.compile(r"Software\\(Wow6432Node\\)?(Zavik|Autodesk\\AutoCAD\\.*\\Applications"
                  r"|Classes\\Installer|Microsoft\\Windows\\CurrentVersion\\(Installer|Uninstall))(\\|$)")
# Where Windows Installer lists all products; the lists stay, empty. The last is Wine's own, made at each of its starts.
BOOKS = re.compile(r"Installer\\(UserData\\S-1-5-18\\)?(Features|Products|UpgradeCodes|Components)$"
                   r"|CurrentVersion\\Uninstall$|NetworkCards$")
NEXT = re.sub(r"\d+$", lambda patch: str(int(patch[0]) + 1), installer.version())
OLD, NEW = "R16.0\\ACAD-201:409", "R16.2\\ACAD-4004:407"  # hosts from the start
LATER = "R16.1\\ACAD-301:40C"  # installed after the tabs


def content(version):
    """A folder with the module, in that version, and its texts."""
    folder = WORK / version
    module = BUILD / "ZavikMDITabs.arx"
    if (REPOSITORY / "build/x86/ZavikMDITabs.arx").exists():  # what ships is 32-bit, on every machine
        module = REPOSITORY / "build/x86/ZavikMDITabs.arx"
    archives.stage(module, REPOSITORY, folder)
    data = bytearray(module.read_bytes())
    fixed = data.index(b"\xbd\x04\xef\xfe")
    major, minor, patch = map(int, version.split("."))
    for offset, number in ((8, major << 16 | minor), (12, patch << 16)):
        data[fixed + offset:fixed + offset + 4] = number.to_bytes(4, "little")
    (folder / "ZavikMDITabs.arx").write_bytes(data)
    return folder


def package(version):
    path = WORK / f"ZavikMDITabs-{version}.msi"
    installer.make(content(version), path, version, "test", 1_000_000_000)
    return path


def released():
    """The package to try."""
    if "RELEASE" not in os.environ:
        return package(installer.version())
    path, = pathlib.Path(os.environ["RELEASE"]).glob("*.msi")
    return shutil.copy(path, WORK / path.name)


def software():
    """{key: its values} below Software, of the machine and of the user; ends what runs in the prefix."""
    subprocess.run([REPOSITORY / "tools/wine-stop", ARCH, PREFIX], check=True)
    keys = {}
    for hive in ("system.reg", "user.reg"):
        values = None
        for line in (PREFIX / hive).read_text("utf-8").splitlines():
            if match := re.match(r"\[(.*)\] \d+$", line):
                key = match[1].replace("\\\\", "\\")
                values = keys.setdefault(f"{hive} {key}", []) if key.startswith("Software\\") else None
            elif values is not None and line and not line.startswith("#time"):
                values.append(line)
    return {key: values for key, values in keys.items()
            if " Software\\Wine\\" not in key and (values or not BOOKS.search(key))}


def files():
    """All there are; but for the folder in which Windows Installer keeps packages, which stays, empty."""
    return {str(path.relative_to(PREFIX)) for path in (PREFIX / "drive_c").rglob("*")} - {"drive_c/windows/Installer"}


class Machine(unittest.TestCase):
    maxDiff = 4000

    def setUp(self):
        shutil.rmtree(WORK, ignore_errors=True)
        WORK.mkdir(parents=True)
        self.addCleanup(subprocess.run, [REPOSITORY / "tools/wine-stop", ARCH, PREFIX])
        self.wow = "Wow6432Node\\" if ARCH == "x64" else ""
        for host in (OLD, NEW):
            self.add_host(host)

    def run_windows(self, *command):
        code, text = wine(*command, cwd=WORK)
        self.assertEqual(code, 0, text)
        return text

    def add_host(self, host):
        self.run_windows("reg", "add", rf"HKLM\Software\{self.wow}Autodesk\AutoCAD\{host}", "/v", "AcadLocation",
                         "/d", r"C:\Program Files\AutoCAD", "/f")

    def lose_host(self, host):
        """The host is removed, with all of its keys that hold nothing of others."""
        self.run_windows("reg", "delete", rf"HKLM\Software\{self.wow}Autodesk\AutoCAD\{host}", "/v", "AcadLocation", "/f")

    def msiexec(self, *arguments):
        """Its exit code says little under Wine: it is cut to 8 bits. What it did is looked at instead."""
        wine("msiexec", *arguments, "/qn", cwd=WORK)

    def registered(self):
        text = wine("reg", "query", rf"HKLM\Software\{self.wow}Autodesk\AutoCAD", "/s")[1]
        return set(re.findall(r"AutoCAD\\(\S+)\\Applications\\ZavikMDITabs$", text, re.M))

    def installed_versions(self):
        text = wine("reg", "query", rf"HKLM\Software\{self.wow}Microsoft\Windows\CurrentVersion\Uninstall", "/s")[1]
        return re.findall(r"DisplayVersion\s+REG_SZ\s+(\S+)", text)

    def check_installed(self, before, folder):
        """The module is where it belongs, registered for the hosts that are there, and nothing else is new."""
        after = software()
        new = {key: values for key, values in after.items() if before.get(key) != values}
        self.assertEqual([key for key in new if not OURS.match(key.removeprefix("system.reg "))], [])
        for host in (OLD, NEW):
            entry = "system.reg " + ENTRY.format(self.wow, host)
            path = f"C:\\{folder}\\Zavik\\ZavikMDITabs\\ZavikMDITabs.arx".replace("\\", "\\\\")
            self.assertEqual(new[entry], ['"DESCRIPTION"="Document tabs"', '"LOADCTRLS"=dword:0000000e',
                                          f'"LOADER"="{path}"'])
            for subkey in ("Commands", "Groups"):
                self.assertEqual(new[rf"{entry}\{subkey}"], ['"ZavikMDITabs"="ZavikMDITabs"'])
        self.assertEqual(self.registered(), {OLD, NEW})
        self.assertTrue((PREFIX / "drive_c" / folder / "Zavik/ZavikMDITabs/ZavikMDITabs.arx").exists())


    def check_as_before(self, before, files_before):
        after = software()
        self.assertEqual({key: (before.get(key), after.get(key)) for key in before.keys() | after.keys()
                          if before.get(key) != after.get(key)}, {})
        self.assertEqual(files() ^ files_before, set())


class Installation(Machine):
    def test_rolled_out_upgraded_and_removed_without_a_trace(self):
        first = released()
        second = package(NEXT)
        folder = PREFIX / "drive_c/Program Files/Zavik/ZavikMDITabs"
        texts, module = folder / "support/MDITabs.ini", folder / "ZavikMDITabs.arx"
        before, files_before = software(), files()

        self.msiexec("/i", first.name)
        self.check_installed(before, "Program Files")
        self.check_strip()

        # An office edits its texts and has settings of its own beside the installation.
        texts.write_bytes(texts.read_bytes() + b"PopupSaveText = Keep\r\n")
        domain = folder.parent / "DomainSettings/support"
        domain.mkdir(parents=True)
        self.msiexec("/i", second.name)
        self.assertEqual(self.installed_versions(), [NEXT])
        self.assertEqual(module.read_bytes(), (WORK / NEXT / "ZavikMDITabs.arx").read_bytes())
        self.assertIn(b"Keep", texts.read_bytes())

        self.msiexec("/i", first.name)
        self.assertEqual(self.installed_versions(), [NEXT])

        self.add_host(LATER)
        self.lose_host(NEW)
        self.msiexec("/i", second.name, "REINSTALL=ALL")
        self.assertIn(LATER, self.registered())

        for host in (OLD, LATER):
            self.lose_host(host)
        self.msiexec("/x", second.name)
        self.assertTrue(domain.exists())
        shutil.rmtree(domain.parent)
        folder.parent.rmdir()
        # The hosts are gone, all that was under their keys with them.
        self.check_as_before({key: values for key, values in before.items() if r"Software\Autodesk" not in key},
                             files_before)

    def check_strip(self):
        (WORK / "look.scr").write_text("STRIP\nHOVER 0\nSHOT installed.png\n")
        transcript = Transcript(0, self.run_windows(BUILD / "cadhost.exe", "/nologo", "/b", "look.scr"))
        self.assertTrue(transcript.strips[0].visible)
        self.assertEqual(transcript.strips[0].texts, ["Drawing1"])
        self.assertEqual(transcript.tips, [("Drawing", "This drawing has no title.")])


class SixtyFourBitMachine(Machine):
    def test_in_its_32_bit_views_and_in_a_folder_of_the_managers_choice(self):
        first = released()
        before, files_before = software(), files()
        self.msiexec("/i", first.name)
        self.check_installed(before, "Program Files (x86)")
        self.msiexec("/x", first.name)

        second = package(NEXT)
        module = PREFIX / "drive_c/CAD/Tabs/ZavikMDITabs.arx"
        self.msiexec("/i", first.name, r"INSTALLDIR=C:\CAD\Tabs")
        self.assertTrue(module.exists())
        self.msiexec("/i", second.name)
        self.assertEqual(module.read_bytes(), (WORK / NEXT / "ZavikMDITabs.arx").read_bytes())
        self.msiexec("/x", second.name)
        (PREFIX / "drive_c/CAD").rmdir()  # only the tabs' own folder leaves
        self.check_as_before(before, files_before)


def load_tests(loader, tests, pattern):
    return loader.loadTestsFromTestCase(SixtyFourBitMachine if ARCH == "x64" else Installation)


if __name__ == "__main__":
    unittest.main()
