"""What is handed out: the packages' contents, and the installer on a machine of its own, with nothing left of it.

Run by ctest; ARCH says which Wine is the machine, BUILD where to work. PROGRAMS, when
set, is where the programs are, else a build folder. RELEASE, when set, is a folder of
tools/release whose packages are taken; else they are made of the programs as built.
"""
import contextlib
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tarfile
import unittest
import unittest.mock
import zipfile

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(REPOSITORY / "tests/e2e"), str(REPOSITORY / "package")]
import archives  # noqa: E402
import installer  # noqa: E402
import module  # noqa: E402
import notice  # noqa: E402
from host import ARCH, BUILD, Transcript, wine  # noqa: E402
from source import Refused, Source  # noqa: E402

WORK = BUILD / "release-test"
PREFIX = WORK / "machine"
os.environ["WINEPREFIX"] = str(PREFIX)
# What ships is 32-bit, on every machine.
PROGRAMS = next(folder for folder in (pathlib.Path(os.environ.get("PROGRAMS", "none")), REPOSITORY / "build/x86", BUILD)
                if (folder / "ZavikMDITabs.arx").exists())
ENTRY = r"Software\{}Autodesk\AutoCAD\{}\Applications\ZavikMDITabs"
OURS = re.compile(r"Software\\(Wow6432Node\\)?(Zavik|Autodesk\\AutoCAD\\.*\\Applications"
                  r"|Classes\\Installer|Microsoft\\Windows\\CurrentVersion\\(Installer|Uninstall))(\\|$)")
# Where Windows Installer lists all products; the lists stay, empty. The last is Wine's own, made at each of its starts.
BOOKS = re.compile(r"Installer\\(UserData\\S-1-5-18\\)?(Features|Products|UpgradeCodes|Components)$"
                   r"|CurrentVersion\\Uninstall$|NetworkCards$")
VERSION = installer.version()
NEXT = re.sub(r"\d+$", lambda patch: str(int(patch[0]) + 1), VERSION)
OLD, NEW = "R16.0\\ACAD-201:409", "R16.2\\ACAD-4004:407"  # hosts from the start
STAND_IN = (PROGRAMS / "cadhost.exe").exists()
LATER = "R16.1\\ACAD-301:40C"  # installed after the tabs
# A module's two exports, and what it says of itself.
CODE = "__declspec(dllexport) int {}(void) {{ return 0; }} __declspec(dllexport) int acrxGetApiVersion(void) {{ return 0; }}"
RESOURCE = """1 VERSIONINFO FILEVERSION {} BEGIN BLOCK "StringFileInfo" BEGIN BLOCK "040904E4" BEGIN
VALUE "Comments", "Built from {}" END END BLOCK "VarFileInfo" BEGIN VALUE "Translation", 0x409, 1252 END END"""


def content(version):
    """A folder with what is installed, in that version."""
    folder = WORK / version
    archives.lay_out_for_autocad(PROGRAMS / "ZavikMDITabs.arx", PROGRAMS / "tabscheck.exe", REPOSITORY, version, folder)
    if version == NEXT:
        for path in (*folder.glob("*.*"), *folder.glob("support/**/*.*")):
            path.write_bytes(path.read_bytes() + b"; new\r\n")
    return folder


def released(pattern):
    """The package of that kind to try; None when there is none."""
    for path in pathlib.Path(os.environ.get("RELEASE", "none")).glob(pattern):
        return shutil.copy(path, WORK / path.name)


def package(version):
    """An installer; for the stand-in host, unless one of a module for AutoCAD is tried."""
    path = WORK / f"ZavikMDITabs-{version}.msi"
    installer.make(content(version), path, version, "test", 1_000_000_000, stand_in=STAND_IN)
    return path


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

    def allow_stand_in(self):
        self.run_windows("reg", "add", rf"HKLM\Software\{self.wow}Zavik\StandIn", "/v", "Machine", "/d", "yes", "/f")

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

    def listed(self, value):
        """What the list of programs says."""
        text = wine("reg", "query", rf"HKLM\Software\{self.wow}Microsoft\Windows\CurrentVersion\Uninstall", "/s")[1]
        return re.findall(rf"{value}\s+REG_\w*SZ\s+(.*\S)", text)

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
        home = PREFIX / "drive_c" / folder / "Zavik/ZavikMDITabs"
        self.assertEqual({path.relative_to(home) for path in home.rglob("*")},
                         {path.relative_to(WORK / NEXT) for path in (WORK / NEXT).rglob("*")})
        self.assertEqual(self.listed("InstallLocation"), [rf"C:\{folder}\Zavik\ZavikMDITabs" "\\"])

    def check_as_before(self, before, files_before):
        after = software()
        self.assertEqual({key: (before.get(key), after.get(key)) for key in before.keys() | after.keys()
                          if before.get(key) != after.get(key)}, {})
        self.assertEqual(files() ^ files_before, set())


class Installation(Machine):
    def test_rolled_out_upgraded_and_removed_without_a_trace(self):
        first, second = released("*.msi") or package(VERSION), package(NEXT)
        folder = PREFIX / "drive_c/Program Files/Zavik/ZavikMDITabs"
        texts, untouched = folder / "support/MDITabs.ini", folder / "support/StandardSettings.txt"
        if STAND_IN:
            self.msiexec("/i", first.name)
            self.assertFalse(folder.exists())
            self.allow_stand_in()
        before, files_before = software(), files()

        self.msiexec("/i", first.name)
        self.check_installed(before, "Program Files")
        if STAND_IN:
            self.check_strip()
            self.check_try()

        # An office edits its texts and has settings of its own beside the installation.
        edited = texts.read_bytes() + b"PopupSaveText = Keep\r\n"
        texts.write_bytes(edited)
        domain = folder.parent / "DomainSettings/support"
        domain.mkdir(parents=True)
        self.msiexec("/i", second.name)
        self.assertEqual((folder / "ZavikMDITabs.arx").read_bytes(), (WORK / NEXT / "ZavikMDITabs.arx").read_bytes())
        self.assertEqual(texts.read_bytes(), edited)
        for new in (untouched, folder / "support/original/MDITabs.ini"):
            self.assertEqual(new.read_bytes()[-7:], b"; new\r\n")

        self.msiexec("/i", first.name)
        self.assertEqual(self.listed("DisplayVersion"), [NEXT])

        self.add_host(LATER)
        self.lose_host(NEW)
        self.msiexec("/i", second.name, "REINSTALL=ALL")
        self.assertIn(LATER, self.registered())

        for host in (OLD, LATER):
            self.lose_host(host)
        (folder / "support/original/MDITabs.ini").unlink()
        self.msiexec("/x", second.name)
        self.assertEqual([path.name for path in folder.rglob("*.*")], ["MDITabs.ini.edited"])
        # Somebody unpacks the archive there, write-protects, edits, and takes up the installer again.
        shutil.copytree(WORK / NEXT / "support", folder / "support", dirs_exist_ok=True)
        texts.chmod(0o444)
        kept = folder / "support/StandardSettings.txt.edited"
        kept.write_bytes(b"earlier")
        untouched.write_bytes(b"later")
        self.msiexec("/i", second.name)
        self.assertEqual([texts.read_bytes(), untouched.read_bytes()], [edited, b"later"])
        self.assertEqual(kept.with_name(kept.name + "1").read_bytes(), b"earlier")
        # What fails with one text costs the other nothing.
        texts.with_name(texts.name + ".edited").symlink_to("nowhere/at all")
        self.msiexec("/x", second.name)
        self.assertEqual(kept.read_bytes(), b"later")
        self.assertTrue(domain.exists())
        shutil.rmtree(folder.parent)
        # The hosts are gone, all that was under their keys with them.
        self.check_as_before({key: values for key, values in before.items() if r"Software\Autodesk" not in key},
                             files_before)

    def check_strip(self):
        (WORK / "look.scr").write_text("STRIP\nHOVER 0\nSHOT installed.png\n")
        transcript = Transcript(0, self.run_windows(PROGRAMS / "cadhost.exe", "/nologo", "/b", "look.scr"))
        self.assertEqual(transcript.strips[0].texts, ["Drawing1"])
        self.assertEqual(transcript.tips, [("Drawing", "This drawing has no title.")])

    def check_try(self):
        """What is to try runs in any folder, although another is installed, and shows the sample office's texts."""
        path = released("*-try.zip")
        if not path:
            path = WORK / "try.zip"
            archives.lay_out_to_try(PROGRAMS, REPOSITORY, VERSION, WORK / "try")
            archives.write_zip(path, WORK / "try", "try", 1_000_000_000)
        self.assertIn("Drawings/Grundriß-Süd.dwg".encode("cp850"), path.read_bytes())  # as Windows XP reads it
        with zipfile.ZipFile(path) as archive:
            archive.extractall(WORK / "to try & see")
        folder, = (WORK / "to try & see").iterdir()
        (folder / "look.scr").write_text("STRIP\nHOVER 0\nMENU 4\nMENU 5\nSHOT try.png\n")
        before = software()
        transcript = Transcript(0, self.run_windows("cmd", "/c", "call", folder / "try.cmd", "/nologo", "/b", "look.scr"))
        self.assertEqual(transcript.strips[0].texts, [
            "A-100.rev2", "A-101", "Grundriß-Süd", "Drawing1", "S-200", "S-201 issued", "D-300", "Sketch"])
        self.assertEqual(transcript.tips[0][0], "Zavik sample office")
        saves = [any(item and item[2].replace("&", "") == "Save and keep open" for item in menu)
                 for menu in transcript.menus]
        self.assertEqual(saves, [True, False])  # the second is issued: nobody may write it
        after = software()
        self.assertEqual([key for key in after if after[key] != before.get(key) and r"Software\Zavik" not in key], [])


class SixtyFourBitMachine(Machine):
    def test_in_its_32_bit_views_and_as_the_manager_says(self):
        first, second = released("*.msi") or package(VERSION), package(NEXT)
        self.allow_stand_in()
        before, files_before = software(), files()
        self.msiexec("/i", first.name)
        self.check_installed(before, "Program Files (x86)")
        self.msiexec("/x", first.name)

        module = PREFIX / "drive_c/CAD/Tabs/ZavikMDITabs.arx"
        self.msiexec("/i", first.name, r"INSTALLDIR=C:\CAD\Tabs", "LOADCTRLS=start")
        self.assertFalse(module.exists())
        self.msiexec("/i", first.name, r"INSTALLDIR=C:\CAD\Tabs", "LOADCTRLS=12", r"DOMAINSETTINGS=P:\Office")
        # What it was told stays so and is written anew, the folder even against the command line.
        settings = r"Software\Wow6432Node\Zavik\ZavikMDITabs\Remote Configurable"
        self.run_windows("reg", "delete", rf"HKLM\{settings}", "/f")
        self.msiexec("/i", second.name, r"INSTALLDIR=C:\Elsewhere")
        self.assertEqual(module.read_bytes(), (WORK / NEXT / "ZavikMDITabs.arx").read_bytes())
        keys = software()
        self.assertIn('"LOADCTRLS"=dword:0000000c', keys["system.reg " + ENTRY.format(self.wow, OLD)])
        for key in (settings, settings + r"\Stamps"):
            self.assertEqual(keys["system.reg " + key], [r'"Domain Settings"="P:\\Office"'])
        self.msiexec("/i", second.name, "REINSTALL=ALL", "DOMAINSETTINGS=none")
        keys = software()
        self.assertEqual([keys["system.reg " + key] for key in (settings, settings + r"\Stamps")],
                         [['"Domain Settings"=""'], ['"Domain Settings"="none"']])
        self.msiexec("/x", second.name)
        (PREFIX / "drive_c/CAD").rmdir()  # only the tabs' own folder leaves
        self.check_as_before(before, files_before)


class Packages(unittest.TestCase):
    def setUp(self):
        self.folder = BUILD / "package-test"
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir()

    def build(self, *flags, entry="acrxEntryPoint", version="1,2,3,0", source="commit 1", compiler="i686"):
        """A module, as somebody might build it for AutoCAD."""
        path = self.folder / "module.arx"
        (self.folder / "module.c").write_text(CODE.format(entry) + " int main(void) { return 0; }")
        (self.folder / "module.rc").write_text(RESOURCE.format(version, source) if version else "1 RCDATA BEGIN 1 END")
        tool = f"{compiler}-w64-mingw32-"
        subprocess.run([tool + "windres", "module.rc", "resource.o"], cwd=self.folder, check=True)
        subprocess.run([tool + "gcc", *(flags or ["-shared"]), "-o", path, "module.c", "resource.o"], cwd=self.folder,
                       check=True)
        return path

    def test_a_module_for_autocad_is_packed_or_refused_with_the_reason(self):
        def reason(path):
            return module.reason_against(path, "1.2.3", "commit 1")

        self.assertEqual(reason(self.build()), "")
        for part, path in (("no Windows program", lambda: REPOSITORY / "README.md"),
                           ("its end is missing", lambda: os.truncate(path := self.build("-shared", "-s"), 8000) or path),
                           ("not 32-bit", lambda: self.build(compiler="x86_64")),
                           ("not a DLL", lambda: self.build("-s")),
                           ("does not export acrxEntryPoint,", lambda: self.build(entry="entryPoint")),
                           ("imports cadhost.exe and cadmfc.dll", lambda: PROGRAMS / "ZavikMDITabs.arx"),
                           ("no version resource", lambda: self.build(version="")),
                           ("for Windows 6.0 and", lambda: self.build("-shared", "-Wl,--major-subsystem-version,6")),
                           ("is version 1.2.3.4, and this release is 1.2.3.0", lambda: self.build(version="1,2,3,4")),
                           ('says "Built from commit 2"', lambda: self.build(source="commit 2"))):
            with self.subTest(part):
                self.assertIn(part, reason(path()))

    def test_the_source_archive_holds_the_commit_whatever_git_is_told_and_serves_as_its_repository(self):
        os.environ.update({"GIT_CONFIG_COUNT": "1", "GIT_CONFIG_KEY_0": "core.autocrlf", "GIT_CONFIG_VALUE_0": "true"})
        unpacked, note = self.folder / "inside", self.folder / "inside/RELEASE"

        def archive(folder):
            Source(folder, snapshot=True).write_archive(self.folder / "source.tar.gz", "inside")
            with tarfile.open(self.folder / "source.tar.gz") as file:
                file.extractall(self.folder)
            return (self.folder / "source.tar.gz").read_bytes()

        first = archive(REPOSITORY)
        self.assertEqual((unpacked / "samples/Sketches/Sketch.dwg").read_bytes(),
                         (REPOSITORY / "samples/Sketches/Sketch.dwg").read_bytes())
        self.assertTrue(os.access(unpacked / "run", os.X_OK))
        self.assertEqual(archive(unpacked), first)
        # What somebody changed is archived, then taken for a release, for an unchanged one, and changed again.
        (unpacked / "support/Another.txt").write_text("new")
        archive(unpacked)
        for word, other, reason in ((" ", " ", "of a snapshot"), ("snapshot", "release", "has changes"),
                                    (" with changes", "", None), ("files ", "files 0", "has changes")):
            note.write_text(note.read_text().replace(word, other))
            with self.assertRaisesRegex(Refused, reason) if reason else contextlib.nullcontext():
                self.assertEqual(Source(unpacked).label, VERSION)
        note.unlink()
        with self.assertRaisesRegex(Refused, "neither"):
            Source(unpacked)

    def test_the_notices_are_of_those_whose_code_is_linked_in(self):
        folder = PROGRAMS if (PROGRAMS / "cadhost.map").exists() else PROGRAMS.parents[1] / "x86"
        kept = "".join((folder / f"{name}.map").read_text().partition("Linker script and memory map")[2]
                       for name in ("mfc", "cadhost", "ZavikMDITabs", "tabscheck"))
        for name, symbols in (("Boost", "5boost"), ("doctest", "7doctest"), ("fast_float", "10fast_float"), ("Ryu", "3ryu")):
            self.assertEqual(name in notice.make(), symbols in kept, name)
        libraries = {os.path.realpath(path) for path in re.findall(r"^LOAD (/usr/.*)", kept, re.M)}
        self.assertEqual(set(re.findall("^(.*):", subprocess.check_output(["dpkg", "-S", *libraries], text=True), re.M)),
                         {"gcc-mingw-w64-i686-win32", "g++-mingw-w64-i686-win32", "mingw-w64-i686-dev"})

    def test_readers_find_this_version_and_a_feature_holds_what_the_installer_takes(self):
        archives.lay_out_for_autocad(PROGRAMS / "ZavikMDITabs.arx", PROGRAMS / "tabscheck.exe", REPOSITORY, VERSION,
                                     self.folder / "all")
        text = "".join(path.read_text("utf-8") for kind in ("README.txt", "*.html")
                       for path in (self.folder / "all").rglob(kind))
        self.assertEqual(set(re.findall(r"ZavikMDITabs-([^.]+\.[^.]+\.[^.]+)\.msi", text)), {VERSION})
        for page in (REPOSITORY / "README.md", *REPOSITORY.glob("docs/*.md"), *REPOSITORY.glob("package/README*")):
            self.assertNotRegex(page.read_text("utf-8"), r"ZavikMDITabs-\d|\bv\d+\.\d+\.\d+")
        # Else Windows does not look at its condition again at a reinstallation.
        installer.make(self.folder / "all", self.folder / "a.msi", VERSION, "test", 0)
        for name, _, _, attributes, condition, _ in installer.Table(self.folder / "a.msi", "Component").rows:
            self.assertEqual(bool(condition), bool(int(attributes) & installer.TRANSITIVE), name)
        with unittest.mock.patch.object(installer, "COMPONENTS_A_FEATURE", 600), \
                self.assertRaisesRegex(ValueError, "R16_2 has 682 components"):
            installer.make(self.folder / "all", self.folder / "a.msi", VERSION, "test", 0)


def load_tests(loader, tests, pattern):
    cases = [SixtyFourBitMachine] if ARCH == "x64" else [Installation]
    if ARCH == "x86" and STAND_IN:
        cases.append(Packages)
    return unittest.TestSuite(map(loader.loadTestsFromTestCase, cases))


if __name__ == "__main__":
    unittest.main()
