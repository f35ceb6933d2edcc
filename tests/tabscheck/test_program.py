"""The program from outside: its exit codes, what it says of input that is no good, and that it never writes."""
import hashlib
import json
import re
import unittest

from checker import CONSOLE, REPOSITORY, CheckerTest, drawing
from host import wine

CLEAN, PROBLEMS, UNCHECKED = 0, 1, 2
REMOTE = r"Software\Zavik\{}\Remote Configurable"
HOST = r"Software\Autodesk\AutoCAD\R16.0\ACAD-201:409\Applications\ZavikMDITabs"


class ProgramTest(CheckerTest):
    def add_value(self, key, name, value):
        code, text = wine("reg", "add", key, "/v", name, "/d", value, "/f")
        self.assertEqual(code, 0, text)
        self.addCleanup(wine, "reg", "delete", key, "/f")

    def state(self):
        """All files of the test's folder, and the user's keys."""
        files = {path: (hashlib.sha256(path.read_bytes()).hexdigest(), path.stat().st_mtime_ns)
                 for path in sorted(self.folder.rglob("*")) if path.is_file()}
        return files, wine("reg", "query", r"HKCU\Software", "/s")[1]

    def test_exit_codes(self):
        self.write({"clean/D.dwg": drawing(), "odd/D.dwg": drawing(), "odd/MDITabs.ini": "Colour=red\n",
                    "bad/D.dwg": drawing(), "bad/MDITabs.ini": "no key\n", "bad/MDITabs4.ini": "", "read/secret.dwg": drawing(),
                    "closed/D.dwg": drawing(), "closed/MDITabs.ini": "", "shut/D/D.dwg": drawing(), "shut/ProjectSettings.txt": ""})
        for name in ("read/secret.dwg", "closed/MDITabs.ini", "shut/ProjectSettings.txt"):
            (self.folder / name).chmod(0)
        for code, *arguments in (
                (CLEAN, "clean", "clean/new.dwg"), (CLEAN, "odd"), (PROBLEMS, "--strict", "odd"), (PROBLEMS, "bad", "clean"),
                (UNCHECKED, "bad", "nowhere"), (UNCHECKED, "nowhere/new.dwg"), (UNCHECKED, "read"), (CLEAN, "cle*"),
                (UNCHECKED, "cle*x"), (UNCHECKED, "shut"), (CLEAN, "/?"), (PROBLEMS, "bad/MDITabs.ini"), (PROBLEMS, "--strict", "bad/MDITabs4.ini"),
                (PROBLEMS, "--root", "clean", "clean"), (UNCHECKED, "closed"), (UNCHECKED, "--json", "--problems", "clean"), (CLEAN, "clean/D.*"),
                (UNCHECKED, "--root", "nowhere", "clean"), (UNCHECKED,), (UNCHECKED, "--frobnicate", "clean")):
            with self.subTest(arguments):
                self.assertEqual(self.check(*arguments)[0], code)

    def test_what_cannot_be_checked_is_told_and_the_rest_checked(self):
        self.write({"H/a/1.dwg": drawing(), "H/b/2.dwg": drawing(), "H/b/MDITabs.ini": "PopupSaveText=S",
                    "H/long/3.dwg": drawing(), "H/long/MDITabs.ini": f"PopupSaveText={'x' * 2 ** 20}\n{'y' * 2 ** 20}", "H/long/MDITabs16.0.ini": f"{'z' * 999}=1",
                    "H/closed/4.dwg": drawing()})
        (self.folder / "H/a/loop").symlink_to("..")
        deep = self.folder / "H" / "/".join(["d" * 60] * 4)
        deep.mkdir(parents=True)
        (deep / "5.dwg").write_bytes(drawing())
        (self.folder / "H/closed").chmod(0)
        code, output, complaints = self.check("--json", "H", r"\\nowhere\share", r"Q:\drawings")
        self.assertEqual(code, UNCHECKED)
        for told in (r"H\\a\\loop.*: .*already under another path", r"d{60}.*: the path is longer than",
                     r"H\\closed.*: access denied", r"\\nowhere\\share: the network share cannot be reached",
                     r"Q:\\drawings: no such file or folder"):
            self.assertRegex(complaints, f"(?m)^tabscheck: .*{told}")
        self.assertEqual(len(complaints.splitlines()), 5, complaints)
        reports = json.loads(output)["drawings"]
        self.assertEqual([report["path"] for report in reports],
                         [self.path(f"H/{name}") for name in ("a/1.dwg", "b/2.dwg", "long/3.dwg")])
        self.assertEqual([(p["line"], p["severity"]) for p in reports[2]["problems"]], [(2, "error"), (1, "warning")])
        # A line of a megabyte is shown in part, and nothing of it is lost.
        self.assertLess(max(map(len, self.check("H/long/3.dwg")[1].splitlines())), 600)
        (self.folder / "H/long/MDITabs.ini").write_text(f"PopupSaveText={'x' * 2 ** 20}")
        report, = self.reports("H/long").values()
        self.assertEqual(len(report["texts"]["PopupSaveText"]["value"]), 2 ** 20)

    def test_never_writes_and_asks_the_registry_as_the_strip_would(self):
        self.write({"Office/support/MDITabs.ini": "PopupSaveText=Office\n", "User/support/MDITabs.ini": "PopupSaveText=User\n",
                    "install/ZavikMDITabs/ZavikMDITabs.avf": "ProductName=Suite\nProductVersion=1\n"})
        machine, user = (root + "\\" + REMOTE.format("Suite") for root in ("HKLM", "HKCU"))
        self.add_value(user, "Domain Settings", self.path("User"))
        self.add_value(machine, "Domain Settings", self.path("Office"))
        before = self.state()
        for stamp, value in ((None, "User"), ("1", "Office")):
            if stamp:  # the roll-out begins with the machine's stamp
                self.add_value(machine + r"\Stamps", "Domain Settings", stamp)
            report, = self.reports("Sketches").values()
            self.assertEqual(report["texts"]["PopupSaveText"]["value"], value)
            domain = [place for place in report["searched"] if place["layer"] == "domain"]
            self.assertEqual((domain[0]["path"], domain[0]["keys"]), (self.path(value + "/support/MDITabs.ini"), 1))
            self.assertEqual(report["domain"][0], {"path": self.path(value), "found": True, "registry":
                                                    (machine if stamp else user).replace("HKLM", "HKEY_LOCAL_MACHINE").replace(
                                                        "HKCU", "HKEY_CURRENT_USER")})
        self.assertEqual(self.state(), before)
        self.add_value(machine, "Domain Settings", self.path("gone"))
        code, output, _ = self.check("--problems", "Sketches")
        self.assertEqual(code, UNCHECKED)
        self.assertRegex(output.decode(CONSOLE), r'HKEY_LOCAL_MACHINE\\.*: error: .*names ".*gone".*not there \[1 drawing\]')
        self.add_value(machine, "Domain Settings", "")  # taken back
        self.assertEqual(self.check("--problems", "Sketches")[0], 0)

    def test_an_entry_of_the_user_that_hides_the_machine_s(self):
        self.add_value("HKLM\\" + HOST, "LOADER", r"C:\Program Files\Zavik\ZavikMDITabs.arx")
        self.assertEqual([p for report in self.reports("Projects/Station").values() for p in report["problems"]], [])
        self.add_value("HKCU\\" + HOST, "LOADER", r"D:\old\ZavikMDITabs.arx")
        user = "HKCU\\" + HOST
        for name, kind, value, words in (("LOADER", "REG_SZ", r"c:\PROGRAM FILES\Zavik\ZavikMDITabs.arx", ""),
                                         ("LOADCTRLS", "REG_DWORD", "12", "lacks 2"), ("LOADCTRLS", "REG_DWORD", "18", "has 16")):
            wine("reg", "add", user, "/v", name, "/t", kind, "/d", value, "/f")
            report, = self.reports("Projects/Station/Drawings/Details").values()
            self.assertRegex("".join(problem["text"] for problem in report["problems"]), words or "^$")
        wine("reg", "delete", user, "/v", "LOADER", "/f")
        wine("reg", "delete", user, "/v", "LOADCTRLS", "/f")
        report, = self.reports("Projects/Station/Drawings/Details").values()
        self.assertIn("has no LOADER", report["problems"][0]["text"])
        self.add_value(user, "LOADER", r"D:\old\ZavikMDITabs.arx")
        for report in self.reports("Projects/Station").values():
            problem, = report["problems"]
            self.assertEqual((problem["severity"], problem["file"].upper(), problem["line"]),
                             ("warning", ("HKEY_CURRENT_USER\\" + HOST).upper(), 0))
            self.assertRegex(problem["text"], r"hides the machine's: .*D:\\old\\.*not \"C:\\Program")

    def test_which_installation_and_which_host(self):
        support = "install/Other/support/"
        self.write({support + "MDITabs.ini": "PopupSaveText=plain\n", support + "MDITabs16.2.ini": "PopupSaveText=R\n",
                    support + "MDITabsMap_16.2.ini": "PopupCloseText=P\n", "install/Other/Components/ZavikMDITabs.arx": ""})

        def texts(*arguments):
            report, = self.reports(*arguments, "Sketches").values()
            return report["texts"]["PopupSaveText"]["value"], report["texts"]["PopupCloseText"]["value"]

        self.assertEqual(texts(), ("&Save", "&Close"))
        self.assertEqual(texts("--root", "install/Other"), ("plain", ""))
        self.assertEqual(texts("--root", "install/Other/", "--release", "16.2"), ("R", ""))
        self.assertEqual(texts("--root", "install/Other/Components/..", "--release", "16.2", "--product", "Map"), ("R", "P"))
        self.write({"Sketches/MDITabs.ini": "TooltipText=%X_DIR_PROGRAM% %X_DIR_APPLICATION_ROOT%\nSameNameText=' - '\n"})
        report, = self.reports("--root", "install/Other", "Sketches/new.dwg").values()
        root = f"Z:{self.folder}/install/Other/"
        self.assertEqual(report["tooltip"]["text"], f"{root}Components/ {root}")
        # What is switched on by its text shows when that is there.
        self.assertEqual(report["texts"]["SameNameText"]["value"], " - ")
        self.assertEqual(len(report["texts"]), 10)

    def test_every_key_that_the_module_reads_is_known(self):
        read = set()
        for path in [*(REPOSITORY / "settings").glob("*.cpp"), *(REPOSITORY / "additions").glob("*.cpp")]:
            read |= set(re.findall(r'"(\w+(?:Text|Title|Address))"', path.read_text("ascii")))
        listed = re.findall(r'\{"(\w+)", ', (REPOSITORY / "settings/TextKeys.h").read_text("ascii"))
        self.assertEqual(sorted(listed), sorted(read))

    def test_a_drawing_whose_contents_are_not_read(self):
        for name, contents in (("binary.dwg", b"AC1015\0\0\0\0\0\x01" + bytes(500)), ("new.dwg", None)):
            with self.subTest(name):
                if contents:
                    self.write({f"Projects/Station/Drawings/{name}": contents})
                report, = self.reports(f"Projects/Station/Drawings/{name}").values()
                self.assertEqual(report["tooltip"]["rule"], "template")
                self.assertEqual(report["tooltip"]["text"],
                                 "Station, Platform 2: %HALVORAN::NUMBER%\n%HALVORAN::TITLE%")
                self.assertEqual(report["project"]["source"], self.path("Projects/Station/ProjectSettings.txt"))
                self.assertEqual([(one["key"], one["tag"]) for one in report["project"]["mapping"]],
                                 [("TITLE", "TITLE1"), ("NUMBER", "NUMBER")])
                self.assertEqual(report["problems"], [])

    def test_drawings_with_the_same_result_are_shown_once(self):
        self.write({f"Projects/Station/Drawings/T{number}.dwg": drawing() for number in range(20)})
        text = self.check("Projects")[1].decode(CONSOLE).replace("\r", "")
        self.assertEqual(text.count("searched for MDITabs.ini"), 4)
        self.assertIn("22 drawings in " + self.path("Projects/Station/Drawings/"), text)
        self.assertRegex(text, r"T0\.dwg to T9\.dwg \(20 drawings\): by DefaultTooltipText")
        self.assertTrue(text.endswith("\n30 drawings checked: 0 errors, 1 warning\n"), text[-200:])
        self.write({"Projects/Station/Drawings/MDITabs.ini": "Colour=red\n"})
        problems = self.check("--problems", "Projects", r"Projects\Station\Drawings\T*.dwg",
                              r"Projects\Station\Drawings\MDITabs.ini")[1].decode(CONSOLE).replace("\r", "")
        self.assertIn("read it [22 drawings]\n", problems)
        self.assertEqual(problems.count("\n"), 7, problems)  # each once, and its line


class GuideTest(CheckerTest):
    def test_the_guide_s_chapter_shows_what_the_program_says(self):
        guide = (REPOSITORY / "docs/cad-manager.md").read_text("utf-8")
        chapter = guide.partition("## Which file said so")[2].partition("\n## ")[0]
        runs = re.findall(r"(?s)(?:```ini\n(; (\S+)\n.*?)```.*?)?```\n> tabscheck (.*?)\n(.*?)```", chapter)
        self.assertGreaterEqual(len(runs), 3)
        for contents, file, arguments, shown in runs:
            if file:
                self.write({file.replace("\\", "/").removeprefix("P:/Office/"): contents})
            words = [self.path(word.removeprefix("P:\\Office\\")) for word in arguments.split()]
            output = self.check(*words)[1].decode(CONSOLE).replace("\r", "")
            output = output.replace(self.path(""), "P:\\Office\\").replace(f"Z:{self.folder}/", "P:/Office/")
            # "..." stands for lines that the chapter leaves out.
            for part in shown.split("...\n"):
                self.assertIn(part, output)


if __name__ == "__main__":
    unittest.main()
