"""tabscheck and the strip say the same: on the samples, and on trees made at random."""
import os
import random
import unittest

from checker import ANSI, CheckerTest, drawing
from host import MODULE, TIP

KEYS = ["PopupSaveText", "PopupCloseText", "PopupOptionsText", "PopupXrefsText", "TooltipText", "DefaultTooltipText",
        "TooltipTitle", "ModifiedText", "XrefsReadOnlyText"]
VARIANTS = ["MDITabs.ini", "MDITabs16.0.ini", "MDITabsCAD Host_16.0.ini"]
BLOCKS = ["B0", "B1", "B2"]
TAGS = ["T0", "T1", "T2"]
TOKENS = ["%PATH%", "%X_FOLDER%", "%FILENAME%", "%NEWLINE%", "%DIR_PROJECT_DWG_ROOT%", "%DIR_PROJECT_DWG_SETTINGS%",
          "%DIR_PROGRAM%", "%X_DIR_APPLICATION_ROOT%", "%DIR_DOMAIN_SETTINGS%", "%HALVORAN_PROJECT_LABEL%",
          "%HALVORAN::A%", "%HALVORAN::B%", "%X_HALVORAN::A%", "%UNKNOWN%", "100% ", "%UPDATE_DATE::|Y-|m-|d%",
          "%CURRENT_DATE_UTC::|Y%", "%CURRENT_DATE::|Q%", "é=;", "%HALVORAN:A%", "%UPDATE_DATE:|d%", "%FILENAME",
          "%UPDATE_DATE::|Y", "%UPDATE_DATE::d.m.%", "%UPDATE_DATE::%d.%m.%", "%HALVORAN::a%", "%filename%"]


class Tree:
    """Settings at every layer and drawings below them, the same for the same seed."""

    def __init__(self, seed):
        self.random = random.Random(seed)
        self.files = {}
        self.drawings = []
        self.value = 0
        self.settings("install/ZavikMDITabs/support/", "install/ZavikMDITabs/support/StandardSettings.txt", 1)
        domain = self.random.choice(["install/DomainSettings/", "DomainSettings/"])
        self.settings(domain + "support/", domain + "DomainSettings.txt")
        for root in ("P", "P/Sub/Q"):
            self.settings(root + "/Settings/support/", root + "/ProjectSettings.txt")
        for folder in ("P/D", "P/Sub/Q/D", "P/Sub/Q/D/E", "N"):
            self.settings(folder + "/")
            for _ in range(2):
                name = f"{folder}/d{len(self.drawings)}.dwg"
                self.drawings.append(name)
                self.files[name] = self.drawing()

    def settings(self, folder, project=None, chance=0.5):
        for variant in VARIANTS:
            if self.random.random() < chance:
                self.files[folder + variant] = self.texts()
            chance /= 2
        if project and self.random.random() < 0.8:
            self.files[project] = self.project()

    def texts(self):
        lines = [f"{self.random.choice([key, key.upper(), key.lower()])} = {self.text(key)}" for key in KEYS
                 if self.random.random() < (0.95 if "Text" in key and "Tooltip" in key else 0.6)]
        odd = ["; a comment = no key", "", "[unfinished", "Colour=red", f"{self.random.choice(KEYS)}=twice"]
        lines += self.random.sample(odd, 2)
        self.random.shuffle(lines)
        if self.random.random() < 0.15:
            lines.insert(self.random.randint(0, len(lines)), self.random.choice(["[Tabs]", "[]"]))
        if self.random.random() < 0.25:
            lines.append("this line is no key")
        text = self.random.choice(["\n", "\r\n"]).join(lines)
        encoding = self.random.choice([ANSI, ANSI, ANSI, "utf-16", "utf-8-sig", "utf-8"])
        return (text + "\r\n;Ж" * (encoding == "utf-16")).encode(encoding)

    def text(self, key):
        self.value += 1
        if key == "TooltipText":
            return f"{self.value}:%UPDATE_DATE::|j%" + "".join(self.random.choices(TOKENS, k=6))
        return self.random.choice(["{}é {}", '"{} {}"', "' {}={}'", "&{};{}"]).format(key, self.value)

    def project(self):
        keyword, label = self.random.choice(["PROJECTLABEL", "ProjectLabel", "Label"]), f"label {self.value}"
        lines = self.random.choice([[keyword, "{", label, "}"], [keyword + " {", label, "}"], [keyword, "{ " + label + " }"],
                                    [keyword, label], ["; remark", keyword, "{", label, "}"]])
        for keyword in self.random.choices(["TITLEBLOCKS", "titleblocks", "MOCKBORDERS", "CADSTANDARDS"], k=3):
            lines += [keyword, "{"]
            for block in self.random.sample(BLOCKS, 2):
                fields = self.random.choice(['"x" "{}"', '"x" "{}.dwg" "1" "2" "3"', '"x" "{}" "3"', '“x” “{}”']).format(block)
                lines.append(f"  BORDER {fields}")
            lines += [f"  {key} {self.random.choice([*TAGS, *TAGS, 't0'])}" for key in "AB" if self.random.random() < 0.8]
            lines += ["  ; remark"] if self.random.random() < 0.1 else []
            lines += ["}"] if self.random.random() < 0.9 else []
        return "\r\n".join(lines).encode(ANSI)

    def drawing(self):
        blocks = self.random.sample(BLOCKS, self.random.randint(0, 2))
        inserts = [(block, {tag: f"{block}/{tag}\\é" for tag in self.random.sample(TAGS, 2)})
                   for block in blocks if self.random.random() < 0.8]
        return drawing(blocks, inserts, self.random.choice(["", "A title é"]))


class AgreementTest(CheckerTest):
    def test_trees_made_at_random(self):
        rules, dropped = set(), 0
        for seed in (1, 2):
            with self.subTest(seed=seed):
                self.remove_folder()
                self.setUp()
                tree = Tree(seed)
                for path in self.folder.rglob("*.ini"):
                    path.unlink()
                self.write(tree.files)
                for number, name in enumerate(tree.drawings):
                    os.utime(self.folder / name, (10 ** 9 + number * 10 ** 6,) * 2)
                reports = self.assert_same(tree.drawings)
                rules |= {report["tooltip"]["rule"] for report in reports}
                dropped += sum("line-damaged" == problem["name"] for report in reports for problem in report["problems"])
        self.assertEqual(rules, {"template", "title", "default"}, "the trees show every rule")
        self.assertGreater(dropped, 0, "and copies that are dropped")

    def assert_same(self, names):
        """What the strip shows of these drawings, all open at once, is what tabscheck says of each."""
        told = self.reports("--product", "CAD Host", *(self.path(name) for name in names))
        reports = [told[self.path(name)] for name in names]
        script = [f"{command} {number}" for number in range(len(names)) for command in ("HOVER", "MENU")]
        script += [line for number in range(len(names)) for line in (f"SWITCH {number}", "LINE 0 0 1 1")]
        shown = self.run_host([*script, "STRIP"], [*(self.path(name) for name in names), "/ld", MODULE])
        for number, (name, report) in enumerate(zip(names, reports)):
            texts = {key: report["texts"][key]["value"] for key in KEYS}
            with self.subTest(name):
                self.assertEqual(self.balloon(shown, number)[1], report["tooltip"]["text"].replace("\n", "\\n"))
                captions = [item[2] for item in shown.menus[number] if item]
                self.assertEqual(captions[:3], [texts[key] for key in KEYS[:3]])
                base = name.rpartition("/")[2].removesuffix(".dwg")
                self.assertEqual(shown.strips[-1].texts[number], base + texts["ModifiedText"])
        # The strip's title is that of the drawing that was current when the strip was made.
        title, text = self.balloon(shown, len(names) - 1)
        self.assertEqual(title, reports[-1]["tooltip"]["title"] if text else "")
        return reports

    @staticmethod
    def balloon(shown, number):
        """Title and text; there is no balloon without a text."""
        at = shown.lines.index(f"Command: HOVER {number}")
        match = TIP.match(shown.lines[at + 1])
        return (match["title"], match["text"]) if match else ("", "")


if __name__ == "__main__":
    unittest.main()
