"""Every kind of problem, with its name, file, line and column: what tabscheck says is wrong, and nothing else."""
import pathlib
import re
import unittest

from checker import ANSI, CONSOLE, CheckerTest, drawing

PROJECT = "PROJECTLABEL\n{\n  P\n}\n"
# A title block of the project, and a drawing that holds it.
BORDER = PROJECT + 'TITLEBLOCKS\n{\n  BORDER "A" "B1"\n  NUMBER NO\n}\n'
NUMBERED = drawing(["B1"], [("B1", {"NO": "7"})])
INI, TXT, SUPPORT = "MDITabs.ini", "ProjectSettings.txt", "Settings/support/MDITabs.ini"

# (kind, files of a folder that has a drawing unless it says so, problems as "file:line:column name" and words of some)
ROWS = [
    ("all damaged lines, and nothing that follows from them", {INI: "PopupSaveText=S\n  no key\n[Tabs]\nModifiedText=x\nneither\n"},
     "MDITabs.ini:2:3 line-damaged (drops this whole copy), MDITabs.ini:5:1 line-damaged"),
    ("a header without ], and one that swallows", {INI: "[Tabs] ; note\nPopupSaveText=S\n[Tabs]\nModifiedText=x\n"},
     "MDITabs.ini:1:1 header-open (no section, and are read), MDITabs.ini:3:1 section (swallows the keys behind it: ModifiedText .*ini:4)"),
    ("a section before keys and later files", {TXT: PROJECT, SUPPORT: "PopupSaveText=P\n[Tabs]\nColour=x\n", INI: "Size=C\n"},
     "Settings/support/MDITabs.ini:2:1 section (it: Size .*MDITabs.ini:1)"),
    ("unknown keys, and one twice", {INI: "PopupSvaeText=S\nColour=red\nPOPUPCLOSETEXT=C\nPopupSaveTxt=x\nPopupSaveText=x\npopupsavetext=y\nPopupXerfsText=x\n"},
     "MDITabs.ini:1:1 key-unknown, MDITabs.ini:2:1 key-unknown (read it$), MDITabs.ini:4:1 key-unknown, MDITabs.ini:6:1 key-twice (line 5, too), "
     'MDITabs.ini:7:1 key-unknown (mean "PopupXrefsText")'),
    ("values that no hand meant", {INI: "PopupSaveText == S\nPopupCloseText=3DClose\nModifiedText=*  ; marker\nTooltipTitle=“T”\nPopupXrefsText='X'\n"
                                   "PopupOptionsText=3D &View; options\n"},
     "MDITabs.ini:1:16 value-equals, MDITabs.ini:2:16 value-coded, MDITabs.ini:3:14 value-remark (; marker), "
     "MDITabs.ini:4:14 typographic (“T”), MDITabs.ini:5:16 quotes-shown ('X')"),
    ("addresses, and what needs another", {INI: "HelpAddress=ask%Ann%\nSupportAddress=www.office.example\n"},
     "MDITabs.ini:1:13 address, MDITabs.ini:1:13 key-alone, MDITabs.ini:2:16 address (: one mail), MDITabs.ini:2:16 key-alone"),
    ("texts that are nothing", {INI: "PopupSaveText=\nPopupCloseText=\nTooltipTitle=\nPopupHelpText=\n"},
     "MDITabs.ini:1:1 caption-absent (PopupSaveText), MDITabs.ini:2:1 caption-absent, MDITabs.ini:3:1 text-absent"),
    ("unknown tokens", {TXT: BORDER, INI: "TooltipText= 100% of 5%10% %PATH%, %PAHT% %X_PATH%%HALVORAN::NUMBR%%Update_Date::|d%\n"},
     'MDITabs.ini:1:36 token-unknown (mean "%PATH%"), MDITabs.ini:1:51 token-unmapped (mean "%HALVORAN::NUMBER%"), '
     'MDITabs.ini:1:68 token-unknown (mean "%UPDATE_DATE::.d%")'),
    ("tokens with blanks and marks", {TXT: BORDER, INI: 'TooltipText=% PATH% %"FILENAME"% %HALVORAN::NUMBER % % CURRENT_DATE::|Y%\n'},
     'MDITabs.ini:1:13 token-unknown (mean "%PATH%"), MDITabs.ini:1:21 token-unknown, MDITabs.ini:1:34 token-unknown, '
     'MDITabs.ini:1:54 token-unknown (mean "%CURRENT_DATE::.Y%")'),
    ("tokens that count elsewhere", {TXT: BORDER + 'TITLEBLOCKS\n{\n BORDER "A" "B2"\n  REVISION R\n}\n',
                                     INI: "TooltipText=%DISTINCT_FOLDER%%HALVORAN::REVISION%\nSameNameText= (%DISTINCT_FOLDER%%HALVORAN::A%)\n"},
     "MDITabs.ini:1:13 token-elsewhere (for SameNameText alone), MDITabs.ini:1:30 token-elsewhere (line 13 of .*another title block), "
     "MDITabs.ini:2:33 token-elsewhere (nothing of title blocks)"),
    ("a label where there is none", {"P/" + TXT: BORDER.replace("  P\n", ""), "P/D.dwg": NUMBERED, "P/" + INI: "TooltipText=%HALVORAN_PROJECT_LABEL%\n",
                                     INI: "TooltipText=%X_HALVORAN_PROJECT_LABEL%\n"},
     "MDITabs.ini:1:13 token-elsewhere (in no project), P/MDITabs.ini:1:13 label-absent"),
    ("date formats", {INI: f"TooltipText=%CURRENT_DATE::|Q%%UPDATE_DATE::|Y%%UPDATE_DATE%%CURRENT_DATE::{'|Y' * 32}%%CURRENT_DATE::d.m.% %CURRENT_DATE::%d.%m.%\n"},
     'MDITabs.ini:1:13 date-format (shows "":), MDITabs.ini:1:48 date-format (shows "%UPDATE_DATE%"), MDITabs.ini:1:61 date-format, '
     'MDITabs.ini:1:141 date-format (shows "d\\.m\\."), MDITabs.ini:1:162 date-format'),
    ("tokens of another form", {TXT: BORDER, INI: "TooltipText=%HALVORAN:TITLE% %UPDATE_DATE:|d% %PATH and %CURRENT_DATE::|Y %FILENAME%"
                                " %UPDATE_DATE|d% %UPDATE_DATE::%%PATH%%HALVORAN.A% PATH%%FILENAME%\n"},
     'MDITabs.ini:1:13 token-unmapped, MDITabs.ini:1:30 token-unknown (mean "%UPDATE_DATE::.d%"), MDITabs.ini:1:47 token-open (%PATH stays), '
     "MDITabs.ini:1:57 token-open, MDITabs.ini:1:86 token-unknown, MDITabs.ini:1:102 date-format, MDITabs.ini:1:123 token-unmapped, MDITabs.ini:1:140 token-unopened"),
    ("a token in a plain text, and a drawing cut off", {INI: "DefaultTooltipText=See %Halvoran:a%, 100%\n", "D.dwg": NUMBERED[:200]},
     "D.dwg:37:1 drawing-damaged, MDITabs.ini:1:20 no-template (%Halvoran:a%)"),
    ("attributes that the border lacks", {TXT: BORDER.replace("NUMBER NO", "NUMBER NO\n  T  'NOPE'\n  U no\n  UNUSED X"),
                                          INI: "TooltipText=%HALVORAN::NUMBER%%HALVORAN::T%%X_HALVORAN::U%\n"},
     'ProjectSettings.txt:9:7 tag-absent ("NOPE": %HALVORAN::T% is empty$), ProjectSettings.txt:10:5 tag-absent (the drawing\'s is "NO")'),
    ("a brace that stands on no line of its own", {TXT: "JOBNUMBER\n{ 5 }\n" + BORDER.replace("}\nT", "} T")},
     'ProjectSettings.txt:2:1 block-open (JOBNUMBER of line 1 goes on to line 3.*"}" does not), '
     "ProjectSettings.txt:6:1 block-open (PROJECTLABEL of line 3 goes on to line 10)"),
    ("braces that are missing", {TXT: "JOBTITLE\n{\n  TITLEBLOCKS of the job\n" + BORDER.replace("}\nT", "T")},
     "ProjectSettings.txt:1:1 block-open (JOBTITLE of line 1 goes on to line 4.*is missing), ProjectSettings.txt:4:1 block-open"),
    ("a remark of the other file's form", {TXT: "  ; remark\n" + BORDER}, "ProjectSettings.txt:1:3 remark-block"),
    ("typographic quotes, and a remark in a block", {TXT: BORDER.replace('"B1"', "“B1”").replace("NO", "“NO”\n ; x")},
     "ProjectSettings.txt:7:3 border-fields, ProjectSettings.txt:7:14 typographic, ProjectSettings.txt:8:10 typographic, ProjectSettings.txt:9:2 remark-line"),
    ("border lines", {TXT: PROJECT + 'TITLEBLOCKS\n{\n BORDER "A" "B" "C"\n BORDER "A" "B" "1" "2" "3"\n BORDER"A" "B"\n BORDR "A" "B"\n'},
     "ProjectSettings.txt:5:1 block-open (to the end), ProjectSettings.txt:7:2 border-fields, "
     "ProjectSettings.txt:9:2 border-fields, ProjectSettings.txt:10:2 border-fields"),
    ("borders and mappings that repeat, or name nothing",
     {TXT: BORDER.replace("NUMBER NO", 'BORDER "B" "b1" "" "-"\n  BORDER "A" "b1.dwg"\n  BORDER "C" "L:\\B1"\n  BORDER "D" " " "-" "-" "-" "-"\n'
                          "  NUMBER NO\n  TITLE NO # the number\n  number NO")},
     "ProjectSettings.txt:8:3 border-twice, ProjectSettings.txt:9:3 border-twice (line 7, too), ProjectSettings.txt:10:3 border-name, "
     "ProjectSettings.txt:11:3 border-name, ProjectSettings.txt:13:3 tag-blank (NO # the number), ProjectSettings.txt:14:3 mapping-twice (line 12, too)"),
    ("borders of which none is used, and two labels", {TXT: BORDER.replace("B1", "B7").replace("  P\n", "  P\n  Q\n"), "E.dwg": drawing()},
     "ProjectSettings.txt:4:3 label-twice, ProjectSettings.txt:8:3 border-absent (2 drawings)"),
    ("unknown keywords", {TXT: "ProjectLable\n{\n  P\n}\n// x\nCOLOURS\n{\n}\n"},
     'ProjectSettings.txt:1:1 keyword-unknown (mean "PROJECTLABEL"), ProjectSettings.txt:6:1 keyword-unknown (block$)'),
    ("marks of an encoding, each one problem", {INI: "\ufeffno key".encode("utf-16-be"), "MDITabs16.0.ini": "A=1".encode("utf-16-le"),
                                                "MDITabsAutoCAD_16.0.ini": "; x\nPopupSaveText=S".encode("utf-8-sig"), TXT: "JOBNUMBER".encode("utf-16")},
     "MDITabs.ini:1:1 encoding (big-endian), MDITabs16.0.ini:1:1 encoding (without its mark), "
     'MDITabsAutoCAD_16.0.ini:1:1 encoding (UTF-8.*"Unicode"), ProjectSettings.txt:1:1 encoding (save it as ANSI$)'),
    ("UTF-8 without its mark", {INI: "PopupSaveText=Größe\n".encode(), TXT: ("# é\n" + PROJECT).encode()},
     'MDITabs.ini:1:17 utf-8 ("öße" becomes "Ã¶ÃŸe"), ProjectSettings.txt:1:3 utf-8 ("é" becomes "Ã©")'),
    ("UTF-16 outside the code page", {INI: "PopupSaveText=Sé\r\nPopupCloseText=aЖ\r\nPopupOptionsText=😀\r\n".encode("utf-16")},
     'MDITabs.ini:2:17 letter-lost (becomes "\\?"), MDITabs.ini:3:18 letter-lost'),
    ("characters of no text", {INI: b"PopupSaveText=Gr\x94\xe1e\r\nPopupCloseText=a\0b\r\nModifiedText=x\r\n\x1aTooltipTitle=x",
                               "MDITabs16.0.ini": b"PopupSaveText=S\rPopupCloseText=C",
                               "MDITabsAutoCAD_16.0.ini": "<<<<<<< HEAD\nPopupSaveText=S\n=======\n>>>>>>> other\n"},
     "MDITabs.ini:1:17 dos-letter, MDITabs.ini:2:17 zero-byte, MDITabs.ini:3:15 text-end, MDITabs16.0.ini:1:16 lone-return, "
     "MDITabsAutoCAD_16.0.ini:1:1 merge-mark (left$), MDITabsAutoCAD_16.0.ini:3:1 merge-mark, MDITabsAutoCAD_16.0.ini:4:1 merge-mark"),
    ("settings without a project", {"P/Settings/support/MDITabs.ini": "", "P/Drawings/D.dwg": NUMBERED, "P/Drawings/support/MDITabs.ini": "", "Q/D.dwg": NUMBERED, "Q/Settings/ProjectSettings.txt": PROJECT},
     "P/Drawings/support/MDITabs.ini:0:0 never-read (beside the drawings, or in Settings), P/Settings/support/MDITabs.ini:0:0 never-read, "
     "Q/Settings/ProjectSettings.txt:0:0 never-read (mean \".*Q.ProjectSettings.txt)"),
    ("a project's file one level up, and one inside", {TXT: PROJECT, "P/Settings/support/MDITabs.ini": "", "P/D.dwg": NUMBERED, "Settings/ProjectSettings.txt": PROJECT},
     "P/Settings/support/MDITabs.ini:0:0 never-read (mean \".*rows.\\d+.Settings.support.MDITabs.ini), Settings/ProjectSettings.txt:0:0 never-read (txt\" is)"),
    ("files in the wrong folder", {TXT: PROJECT, "support/MDITabs.ini": "", "Settings/MDITabs.ini": "", "Settings/MDITabs/MDITabs.ini": "", "DomainSettings.txt": "",
                                   "Setting/support/StandardSettings.txt": ""},
     "DomainSettings.txt:0:0 never-read (DomainSettings.txt\" is), Setting/support/StandardSettings.txt:0:0 never-read, "
     "Settings/MDITabs.ini:0:0 never-read, Settings/MDITabs/MDITabs.ini:0:0 never-read, support/MDITabs.ini:0:0 never-read"),
    ("names that are nearly right, and copies", {TXT: PROJECT, INI: "", "MDITabs2004.ini": "", "MDITabs16.ini": "", "MDITabs16.0.ini.txt": "", "MDITabs_16.0.ini": "",
                                                 "MDITabs.bak": "", "Copy of MDITabs.ini": "", "MDITabs (1).ini": "", "MDITabs.ini~": "", "ProjectSettings_old.txt": "",
                                                 "MDITabs17.0.ini": "", "MDITaps.ini": "", "Notes.txt": ""},
     ", ".join(f"{name}:0:0 never-read" for name in ("Copy of MDITabs.ini", "MDITabs (1).ini", "MDITabs.bak", "MDITabs.ini~",
                                                     'MDITabs16.0.ini.txt', "MDITabs16.ini", "MDITabs17.0.ini", "MDITabs2004.ini", "MDITabs_16.0.ini", "MDITaps.ini",
                                                     "ProjectSettings_old.txt"))),
    ("sections and copies for others are no mistake, damage is", {INI: "PopupSaveText=S\n[Others]\nColour=red\n[]\nPopupCloseText=C\n", "MDITabs16.1.ini": "no key", "MDITabsAutoCAD Map_16.0.ini": "PopupSaveText=&M"},
     "MDITabs16.1.ini:1:1 line-damaged"),
    ("a new project without drawings", {"D.dwg": None, "P/" + TXT: PROJECT, "P/" + SUPPORT: "PopupSaveText=&P\n"}, ""),
    ("what is accepted where it stands", {TXT: "# tabscheck: accept keyword-unknown, block-open\n// another remark\nCOLOURS\n{\n}\nJOBS\n{\n}\n",
                                          INI: "; tabscheck: accept key-unknown\nColour=red\nSize=3\n"},
     "MDITabs.ini:3:1 key-unknown, ProjectSettings.txt:6:1 keyword-unknown"),
]


class ProblemsTest(CheckerTest):
    def test_each_kind_is_told_where_it_stands(self):
        for number, (_, files, _) in enumerate(ROWS):
            self.write({f"rows/{number:02}/{name}": contents for name, contents in {"D.dwg": NUMBERED, **files}.items()
                        if contents is not None})
        found = self.problems("rows")
        text = self.check("rows")[1].decode(CONSOLE).replace("\r", "")
        self.assertNotRegex(text, "[\0-\t\v-\x1f\x7f]")
        for number, (kind, _, expected) in enumerate(ROWS):
            with self.subTest(kind):
                folder = self.path(f"rows/{number:02}/")
                told = [problem for problem in found if problem["file"].startswith(folder)]
                wanted = re.findall(r"(\S[^,]*:\d+:\d+ [\w-]+)(?: \((.*?)\))?(?:, |$)", expected)
                self.assertEqual(self.places(told, folder), [place for place, _ in wanted])
                for problem, (_, words) in zip(told, wanted):
                    self.assertRegex(problem["text"], words or ".")
                    self.assert_shown(text, problem)

    @staticmethod
    def places(problems, folder):
        return [f"{p['file'].removeprefix(folder)}:{p['line']}:{p['column']} {p['name']}".replace("\\", "/") for p in problems]

    def test_the_installation_and_the_office(self):
        """What lies in the wrong one of their folders."""
        shared = "install/ZavikMDITabs/"
        self.write({shared + "StandardSettings.txt": "", shared + "support/DomainSettings.txt": "", shared + "Settings/support/MDITabs.ini": "",
                    "install/Domain Settings/DomainSettings.txt": "", "install/DomainSettings/MDITabs.ini": ""})
        self.assertEqual(self.places(self.problems("Sketches/Sketch.dwg", "--accept", "tag-absent"), self.path("install/")),
                         [f"{name}:0:0 never-read" for name in
                          ("Domain Settings/DomainSettings.txt", "DomainSettings/MDITabs.ini", "ZavikMDITabs/Settings/support/MDITabs.ini",
                           "ZavikMDITabs/StandardSettings.txt", "ZavikMDITabs/support/DomainSettings.txt")])

    def assert_shown(self, text, problem):
        """The line of the report, below it the line of the file and a caret in the column."""
        at = f":{problem['line']}:{problem['column']}" if problem["line"] else ""
        place = f"{problem['file']}{at}: {problem['severity']}: "
        self.assertTrue(place in text, place)
        contents = pathlib.Path(problem["file"][2:].replace("\\", "/")).read_bytes()
        if not at or {0, 0xC3, 0x94} & {*contents} or problem["file"].endswith(".dwg"):
            return  # no place; or more than the console has
        line, caret = text.partition(place)[2].split("\n")[1:3]
        if len(line) < 64:
            self.assertEqual(line[4:], re.sub("[“”]", '"', contents.decode(ANSI).replace("\r\n", "\n").replace("\r", " ").splitlines()[problem["line"] - 1]))
            self.assertEqual(caret, "    " + " " * (problem["column"] - 1) + "^")


if __name__ == "__main__":
    unittest.main()
