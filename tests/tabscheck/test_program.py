"""The program from outside: its exit codes, what it says of input that is no good, and that it never writes."""
import hashlib
import json
import re
import subprocess
import unittest

from checker import CONSOLE, PROGRAM, REPOSITORY, CheckerTest, drawing
from host import ARCH, wine

CLEAN, PROBLEMS, UNCHECKED = 0, 1, 2
REMOTE = r"Software\Zavik\{}\Remote Configurable"
HOST = r"Software\Autodesk\AutoCAD\R16.0\ACAD-201:409\Applications\ZavikMDITabs"


class ProgramTest(CheckerTest):
    def add_value(self, key, name, value):
        code, text = wine("reg", "add", key, "/v", name, "/d", value, "/f")
        self.assertEqual(code, 0, text)
        self.addCleanup(wine, "reg", "delete", key, "/f")

    def told_after(self, path, *changes):
        """The problems that --json tells of the path's only drawings, after each change by reg."""
        outputs = self.batch(*(command for change in changes for command in (f"reg {change} /f >nul", f"{PROGRAM} --json {path}")))[1::2]
        return [[problem for drawing in json.loads(output)["drawings"][:1] for problem in drawing["problems"]] for output, _ in outputs]

    def state(self):
        """All files of the test's folder, and the user's keys."""
        files = {path: (hashlib.sha256(path.read_bytes()).hexdigest(), path.stat().st_mtime_ns)
                 for path in sorted(self.folder.rglob("*")) if path.is_file()}
        return files, wine("reg", "query", r"HKCU\Software", "/s")[1]

    def test_exit_codes(self):
        self.write({"clean/D.dwg": drawing(), "odd/D.dwg": drawing(), "odd/MDITabs.ini": "Colour=red\n",
                    "bad/D.dwg": drawing(), "bad/MDITabs.ini": "no key\n", "bad/MDITabs4.ini": "", "read/secret.dwg": drawing(),
                    "closed/D.dwg": drawing(), "closed/MDITabs.ini": "", "shut/D/D.dwg": drawing(), "shut/ProjectSettings.txt": "",
                    "alone/MDITabs.ini": "no key\n", "none/x.txt": "", "Ж/D.dwg": drawing(),
                    "meant/ProjectSettings.txt": "# tabscheck: accept keyword-unknown\nJOBS\n{\n}\n"})
        for name in ("read/secret.dwg", "closed/MDITabs.ini", "shut/ProjectSettings.txt"):
            (self.folder / name).chmod(0)
        commands = {
            CLEAN: ("clean clean/new.dwg", "odd", "cle*", "/?", "--version", "--strict Projects Sketches",
                    "--strict meant/ProjectSettings.txt",
                    "--strict --accept key-unknown:MDITabs.ini odd"),
            PROBLEMS: ("bad clean", "--strict odd", "bad/MDITabs.ini", "--strict bad/MDITabs4.ini", "--root clean clean", "alone",
                       "--strict --accept key-unknown:Tabs.ini odd"),
            UNCHECKED: ("", "bad nowhere", "nowhere/new.dwg", "read", "cle*x", "shut", "closed", "clean none", "--json --problems clean",
                        "--root nowhere clean", "--frobnicate clean", "--get Colour clean",
                        "--accept key-unknwon odd")}
        expected = [(command, code) for code in commands for command in commands[code]]
        found = self.batch(*(f"{PROGRAM} {command} >nul 2>&1" for command, _ in expected))
        self.assertEqual([(command, int(code)) for (command, _), (_, code) in zip(expected, found)], expected)
        # Some with the words that lead to the repair.
        for command, words in ((".", "letters that the Windows code page lacks"), ("Ж/D.dwg", "letters that the Windows code page lacks"),
                               ('odd" --strict', "before a quotation mark takes that in"), ("--release 2004 odd", "16.0, 16.1, 16.2"),
                                   ("--product AutoCADX odd", "AutoCAD, AutoCAD Electrical, "),
                               ("--root install/ZavikMDITabs/support odd", "one level up: .*ZavikMDITabs")):
            with self.subTest(command):
                code, _, complaints = self.check(*command.split())
                self.assertEqual(code, UNCHECKED)
                self.assertRegex(complaints, words)

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
        for told in (r"d{60}.*: the path is longer than",
                     r"H\\closed.*: access denied", r"\\nowhere\\share: the network share cannot be reached",
                     r"Q:\\drawings: no such file or folder"):
            self.assertRegex(complaints, f"(?m)^tabscheck: .*{told}")
        self.assertEqual(len(complaints.splitlines()), 4, complaints)  # none of the circle
        reports = json.loads(output)["drawings"]
        self.assertEqual([report["path"] for report in reports],
                         [self.path(f"H/{name}") for name in ("a/1.dwg", "b/2.dwg", "long/3.dwg")])
        self.assertEqual([(p["line"], p["severity"]) for p in reports[2]["problems"]], [(2, "error"), (1, "warning")])
        self.assertEqual([one["path"].rpartition("\\")[2] for one in json.loads(output)["unchecked"]], ["", "*", "share", "drawings"])
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
            self.assertEqual([p["text"] for p in report["problems"]],
                             [] if stamp else ['the value "Domain Settings" reaches nobody: its sub-key Stamps has no stamp for it'])
            self.assertEqual(report["texts"]["PopupSaveText"]["value"], value)
            domain = [place for place in report["searched"] if place["layer"] == "domain"]
            self.assertEqual((domain[0]["path"], domain[0]["keys"]), (self.path(value + "/support/MDITabs.ini"), 1))
            self.assertEqual(report["domain"][0], {"path": self.path(value), "found": True, "registry":
                                                    (machine if stamp else user).replace("HKLM", "HKEY_LOCAL_MACHINE").replace(
                                                        "HKCU", "HKEY_CURRENT_USER")})
        self.assertEqual(self.state(), before)
        told = self.told_after("Sketches", *(f'add "{machine}" /v "Domain Settings" /d "{value}"' for value in (
            self.path("gone"), self.path("Office/support"), "", self.path("Office"))), f'add "{user}\\Stamps" /v "Domain Settings" /d 1')
        self.assertEqual([[p["name"] for p in problems] for problems in told], [["domain-absent"], ["domain-deep"], [], [], ["domain-stamp"]])
        self.assertRegex(told[-1][0]["text"], 'has its stamp "1" and yet ".*User"')

    def test_entries_that_load_nothing_or_hide_the_machine_s(self):
        module, other = self.path("install/ZavikMDITabs/support/MDITabs.ini"), self.path("Sketches/Sketch.dwg")  # any file
        machine, user = "HKLM\\" + HOST, "HKCU\\" + HOST
        for key in (machine, user):
            self.addCleanup(wine, "reg", "delete", key, "/f")
        steps = [(f'add "{key}" /v {name} /t {kind} /d {value}', words) for key, name, kind, value, words in (
            (machine, "LOADER", "REG_SZ", f'"{module}"', ""), (user, "LOADER", "REG_SZ", f'"{module.upper()}"', ""),
            (user, "LOADCTRLS", "REG_DWORD", "12", "hides the machine's: .*lacks 2"), (user, "LOADCTRLS", "REG_DWORD", "18", "has 16"),
            (user, "LOADCTRLS", "REG_DWORD", "2", ""), (user, "LOADER", "REG_SZ", f'"{other}"', 'loads ".*Sketch.dwg" and not ".*MDITabs.ini"'),
            (user, "LOADER", "REG_SZ", f'"\\"{module}\\""', "has quotes"), (user, "LOADER", "REG_SZ", r"D:\old.arx", "not there"))]
        steps += [(f'delete "{user}" /v LOADER', "has no LOADER"), (f'delete "{user}"', ""),
                  (f'add "{machine}" /v LOADCTRLS /t REG_DWORD /d 16', "^its LOADCTRLS has 16")]
        for (step, words), problems in zip(steps, self.told_after(r"Projects\Station", *(step for step, _ in steps))):
            with self.subTest(step):
                self.assertRegex("".join(problem["text"] for problem in problems), words or "^$")

    def test_which_installation_and_which_host(self):
        support = "install/Other/support/"
        self.write({support + "MDITabs.ini": "PopupSaveText=plain\n", support + "MDITabs16.2.ini": "PopupSaveText=R\n",
                    support + "MDITabsAutoCAD Map_16.2.ini": "PopupCloseText=P\n", "install/Other/Components/ZavikMDITabs.arx": ""})

        def texts(*arguments):
            report, = self.reports(*arguments, "Sketches").values()
            return report["texts"]["PopupSaveText"]["value"], report["texts"]["PopupCloseText"]["value"]

        self.assertEqual(texts(), ("&Save", "&Close"))
        self.assertEqual(texts("--root", "install/Other"), ("plain", ""))
        self.assertEqual(texts("--root", "install/Other/Components/..", "--release", "16.2", "--product", "AutoCAD Map"), ("R", "P"))
        self.write({"Sketches/MDITabs.ini": "TooltipText=%X_DIR_PROGRAM% %X_DIR_APPLICATION_ROOT%\nSameNameText=' - '\n"})
        told = self.told("--root", "install/Other", "Sketches/new.dwg")
        report, = told["drawings"]
        self.assertEqual(told["asked"], {"root": self.path("install/Other/"), "release": "16.0", "product": "AutoCAD", "paths": [self.path("Sketches/new.dwg")]})
        root = f"Z:{self.folder}/install/Other/"
        self.assertEqual(report["tooltip"]["text"], f"{root}Components/ {root}")
        # What is switched on by its text shows when that is there.
        self.assertEqual(report["texts"]["SameNameText"]["value"], " - ")
        self.assertEqual(len(report["texts"]), 10)

    def test_every_key_that_the_module_reads_is_known(self):
        read = set()
        for path in [*(REPOSITORY / "settings").glob("*.cpp"), *(REPOSITORY / "additions").glob("*.cpp")]:
            read |= set(re.findall(r'"(\w+(?:Text|Title|Address)|MaximumName|DrawingsOrder|MenuCommand)"', path.read_text("ascii")))
        listed = re.findall(r'\{"(\w+)", ', (REPOSITORY / "settings/TextKeys.h").read_text("ascii"))
        self.assertEqual(sorted(listed), sorted(read))

    def test_a_drawing_whose_contents_are_not_read(self):
        folder = "Projects/Station/Drawings/"
        self.write({folder + "binary.dwg": b"AC1015\0\0\0\0\0\x01" + bytes(500)})
        for report in self.reports(folder + "binary.dwg", folder + "new.dwg").values():
            self.assertEqual((report["tooltip"]["rule"], report["tooltip"]["text"], report["problems"]),
                             ("template", "Station, Platform 2: %HALVORAN::NUMBER%\n%HALVORAN::TITLE%", []))
            self.assertEqual(report["project"]["source"], self.path("Projects/Station/ProjectSettings.txt"))
            self.assertEqual([one["tag"] for one in report["project"]["mapping"]], ["TITLE1", "NUMBER"])

    def test_what_is_the_same_is_shown_once(self):
        self.write({f"Projects/Station/Drawings/T{number}.dwg": drawing() for number in range(20)})
        self.write({"Projects/Station/Drawings/MDITabs.ini": "Colour=red\n"})

        def shown(*arguments):
            return self.check(*arguments)[1].decode(CONSOLE).replace("\r", "")

        text = shown("Projects", "Sketches", "Projects/Station/Drawings/T0.dwg")
        self.assertEqual([text.count(block) for block in ("searched for MDITabs.ini", "\nproject ", "STN_SHEET", "tooltip", " PopupXrefsText ")], [3, 1, 3, 7, 3])
        self.assertIn("22 drawings in " + self.path("Projects/Station/Drawings/"), text)
        self.assertRegex(text, r"20 drawings in .*: by DefaultTooltipText")
        self.assertTrue(text.endswith("\n31 drawings checked: 0 errors, 1 warning\n"), text[-200:])
        problems = shown("--problems", "Projects", r"Projects\Station\Drawings\T*.dwg", r"Projects\Station\Drawings\MDITabs.ini")
        self.assertIn("read it [22 drawings] (key-unknown)\n", problems)
        self.assertEqual(problems.count("\n"), 4, problems)  # each once, and its line
        self.assertEqual(shown("--get", "popupsavetext", "Projects/Station/Drawings/Details", "Sketches"),
                         f"""    PopupSaveText      "&Save detail"  [D-300.dwg]
        from      folder   {self.path("Projects/Station/Drawings/Details/MDITabs.ini")}:2
        overrides project  {self.path("Projects/Station/Settings/support/MDITabs.ini")}:2  "&Save and keep open"
        overrides standard {self.path("install/ZavikMDITabs/support/MDITabs.ini")}:11  "&Save"
    PopupSaveText      "&Save"  [Sketch.dwg]
        from      standard {self.path("install/ZavikMDITabs/support/MDITabs.ini")}:11
""")
        self.assertEqual(re.findall(r'(?m)^    (\w+) ', shown("--overrides", "Sketches")), ["DefaultTooltipText", "TooltipTitle"])

    def test_an_output_that_nobody_reads_ends_the_program(self):
        self.write({f"many/{number}/D.dwg": drawing() for number in range(300)})
        program = subprocess.Popen([str(REPOSITORY / "tools/wine"), ARCH, r"install\ZavikMDITabs\tabscheck.exe", "--json", "many"],
                                   cwd=self.folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE)
        program.stdout.read(1)
        program.stdout.close()
        self.assertEqual(program.wait(60), UNCHECKED)


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
