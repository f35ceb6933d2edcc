"""Every kind of problem, with its file, line and column: what tabscheck says is wrong, and nothing else."""
import pathlib
import re
import unittest

from checker import ANSI, CONSOLE, CheckerTest, drawing

PROJECT = "PROJECTLABEL\n{\n  P\n}\n"
# A title block of the project, and a drawing that holds it.
BORDER = PROJECT + 'TITLEBLOCKS\n{\n  BORDER "A" "B1"\n  NUMBER NO\n}\n'
NUMBERED = drawing(["B1"], [("B1", {"NO": "7"})])
LATE_SECTION = {"ProjectSettings.txt": PROJECT, "Settings/support/MDITabs.ini": "PopupSaveText=P\n[Tabs]\nModifiedText=x\n",
                "MDITabs.ini": "PopupCloseText=C\n"}

# (kind, files of the drawing's folder, problems as (file, line, column, severity, text))
ROWS = [
    ("a line without =", {"MDITabs.ini": "PopupSaveText=S\n  no key\n"},
     [("MDITabs.ini", 2, 3, "error", 'no "=".*drops this whole copy')]),
    ("a header without ], and one that swallows", {"MDITabs.ini": "[Tabs] ; note\nPopupSaveText=S\n[Tabs]\nModifiedText=x\n"},
     [("MDITabs.ini", 1, 1, "warning", 'does not end in "]".*no section, and are read'),
      ("MDITabs.ini", 3, 1, "error", r"\[Tabs\] swallows the keys below it: ModifiedText$")]),
    ("a section before keys and later files", LATE_SECTION,
     [("Settings/support/MDITabs.ini", 2, 1, "error",
       r"\[Tabs\] swallows the keys below it: ModifiedText; and keys of later files: PopupCloseText \(.*MDITabs.ini:1\)")]),
    ("a section of somebody else", {"MDITabs.ini": "PopupSaveText=S\n[Others]\nColour=red\n[]\nPopupCloseText=C\n"}, []),
    ("unknown keys", {"MDITabs.ini": "PopupSvaeText=S\nColour=red\nPOPUPCLOSETEXT=C\nPopupSaveTxt=x\nPopupSaveText=x\n"},
     [("MDITabs.ini", 1, 1, "warning", 'unknown key "PopupSvaeText": the strip does not read it$'),
      ("MDITabs.ini", 2, 1, "warning", 'unknown key "Colour": the strip does not read it$'),
      ("MDITabs.ini", 4, 1, "warning", 'unknown key "PopupSaveTxt": the strip does not read it$')]),
    ("unknown tokens", {"MDITabs.ini": "TooltipText= 100% of 5%10% %PATH%, %PAHT% %X_PATH%%HALVORAN::NUMBR%\n"},
     [("MDITabs.ini", 1, 36, "warning", '%PAHT% stays.*no such keyword.*mean "PATH"'),
      ("MDITabs.ini", 1, 51, "warning", '%HALVORAN::NUMBR% stays.*no mapping.*mean "HALVORAN::NUMBER"')]),
    ("date formats", {"MDITabs.ini": f"TooltipText=%CURRENT_DATE::|Q%%UPDATE_DATE::|Y%%UPDATE_DATE%%CURRENT_DATE::{'|Y' * 32}%%CURRENT_DATE::d.m.% %CURRENT_DATE::%d.%m.%\n"},
     [("MDITabs.ini", 1, 13, "error", r'shows nothing.*"\|Q"'),
      ("MDITabs.ini", 1, 48, "warning", "%UPDATE_DATE% stays.*needs a format"),
      ("MDITabs.ini", 1, 61, "error", "shows nothing"),
      ("MDITabs.ini", 1, 141, "warning", r'shows "d\.m\." and no date: "\|" stands before'),
      ("MDITabs.ini", 1, 162, "error", r'%CURRENT_DATE::%d.% shows "\d\d\." and what follows.*write "\|"')]),
    ("a mapping that the border lacks",
     {"ProjectSettings.txt": BORDER.replace("NUMBER NO", "NUMBER NO\n  T  'NOPE'\n  U no\n  UNUSED X"), "D.dwg": NUMBERED,
      "MDITabs.ini": "TooltipText=%HALVORAN::NUMBER%%HALVORAN::T%%X_HALVORAN::U%\n"},
     [("ProjectSettings.txt", 9, 7, "warning", '"B1" has no attribute "NOPE": %HALVORAN::T% is empty$'),
      ("ProjectSettings.txt", 10, 5, "warning", 'no attribute "no".*the drawing\'s is "NO", and the case')]),
    ("a brace that stands on no line of its own",
     {"ProjectSettings.txt": "JOBNUMBER\n{ 5 }\n" + BORDER.replace("}\nT", "} T"), "D.dwg": NUMBERED},
     [("ProjectSettings.txt", 3, 1, "error", 'PROJECTLABEL stands inside the block JOBNUMBER of line 1.*"}" of line 2 does not'),
      ("ProjectSettings.txt", 6, 1, "error", '"}" does not stand on its own: the block PROJECTLABEL of line 3 goes on to line 10')]),
    ("braces that are missing", {"ProjectSettings.txt": "JOBTITLE\n{\n  TITLEBLOCKS of the job\n" + BORDER.replace("}\nT", "T")},
     [("ProjectSettings.txt", 4, 1, "error", 'PROJECTLABEL stands inside the block JOBTITLE of line 1.*missing before line 4'),
      ("ProjectSettings.txt", 7, 1, "error", 'TITLEBLOCKS stands inside the block PROJECTLABEL of line 4.*missing before line 7')]),
    ("a remark of the other file's form",
     {"ProjectSettings.txt": "  ; remark\n" + BORDER},
     [("ProjectSettings.txt", 1, 3, "error", '";" begins no remark.*the block PROJECTLABEL of line 2 is lost')]),
    ("typographic quotes, and a remark in a block", {"ProjectSettings.txt": BORDER.replace('"B1"', "“B1”").replace("NO", "“NO”\n ; x")},
     [("ProjectSettings.txt", 7, 3, "error", "ignored: it has typographic quotes"),
      ("ProjectSettings.txt", 8, 3, "warning", "quotes are part of the tag"),
      ("ProjectSettings.txt", 9, 2, "warning", '";" begins no remark here.*the line counts')]),
    ("tokens of another form", {"MDITabs.ini": "TooltipText=%HALVORAN:TITLE% %UPDATE_DATE:|d% %PATH and %CURRENT_DATE::|Y %FILENAME%"
                                "%Update_Date::|d% %UPDATE_DATE|d% %UPDATE_DATE::%%PATH%%HALVORAN.A%\n"},
     [("MDITabs.ini", 1, 13, "warning", '%HALVORAN:TITLE% stays.*"::" stands between name and key'),
      ("MDITabs.ini", 1, 30, "warning", '%UPDATE_DATE:.d% stays.*between name and format'),
      ("MDITabs.ini", 1, 47, "warning", '%PATH stays as it is written: its closing "%" is missing'),
      ("MDITabs.ini", 1, 57, "warning", '%CURRENT_DATE::.Y  stays as it is written: its closing'),
      ("MDITabs.ini", 1, 85, "warning", 'no such keyword; did you mean "UPDATE_DATE"'), ("MDITabs.ini", 1, 103, "warning", "between name and format"),
      ("MDITabs.ini", 1, 119, "warning", "%UPDATE_DATE::% stays.*needs a format"), ("MDITabs.ini", 1, 140, "warning", "between name and key")]),
    ("tokens where they are no tokens", {"MDITabs.ini": "DefaultTooltipText=See %Halvoran:a%, 100%\nSameNameText= (%DISTINCT_FOLDER%%HALVORAN::A%)\n"},
     [("MDITabs.ini", 1, 20, "warning", "%Halvoran:a% stays.*DefaultTooltipText is no template"),
      ("MDITabs.ini", 2, 33, "warning", "%HALVORAN::A% stays")]),
    ("captions and addresses",
     {"MDITabs.ini": 'PopupSaveText="Save"\nPopupCloseText=Clos&e\nPopupHelpText=H&&&elp\nHelpAddress=ask%Ann%\nSupportAddress=www.office.example\n'},
     [("MDITabs.ini", 1, 15, "warning", "the quotes are shown"), ("MDITabs.ini", 3, 15, "warning", 'its mnemonic "E" with "Clos&e"'),
      ("MDITabs.ini", 4, 13, "warning", "no address"), ("MDITabs.ini", 5, 16, "warning", "no mail address")]),
    ("names that are never read",
     {"ProjectSettings.txt": PROJECT.replace("P\n}", "{P}\n}"), "Settings/MDITabs.ini": "", "Settings/support/MDITabs2004.ini": "", "MDITabs16.0.ini.txt": "",
      "Settings/support/MDITabsAutoCAD_16.1.ini": "", "Settings/support/MDITabs_16.0.ini": "", "Setting/support/MDITabs.ini": "", "ProjectSettings.txt.txt": "", "MDITabs.bak": ""},
     [("MDITabs16.0.ini.txt", 0, 0, "warning", 'never read; did you mean ".*MDITabs.ini"'), ("ProjectSettings.txt.txt", 0, 0, "warning", "never read$"),
      ("Setting", 0, 0, "warning", "never read"), ("Settings/MDITabs.ini", 0, 0, "warning", r'mean ".*Settings\\support\\MDITabs.ini"'),
      ("Settings/support/MDITabs2004.ini", 0, 0, "warning", "never read; did you mean"),
      ("Settings/support/MDITabs_16.0.ini", 0, 0, "warning", "never read; did you mean")]),
    ("a key and a project's file that may be meant", {"MDITabs.ini": "PopupSvaeText=S\n", "ProjectSetting.txt": PROJECT},
     [("MDITabs.ini", 1, 1, "warning", 'unknown key.*mean "PopupSaveText"'), ("ProjectSetting.txt", 0, 0, "warning", r'mean ".*\\ProjectSettings.txt"')]),
    ("border lines", {"ProjectSettings.txt": PROJECT + 'TITLEBLOCKS\n{\n BORDER "A" "B" "C"\n BORDER "A" "B" "1" "2" "3"\n BORDER"A" "B"\n BORDR "A" "B"\n'},
     [("ProjectSettings.txt", 5, 1, "error", 'no line "}": its borders and mappings are ignored'),
      ("ProjectSettings.txt", 7, 2, "error", "ignored: it has 3 quoted fields where 2, 5 or 6"),
      ("ProjectSettings.txt", 9, 2, "error", '"BORDER" and a blank stand'), ("ProjectSettings.txt", 10, 2, "error", "border is ignored")]),
    ("unknown keywords", {"ProjectSettings.txt": "ProjectLable\n{\n  P\n}\n// x\nCOLOURS\n{\n}\n"},
     [("ProjectSettings.txt", 1, 1, "warning", 'unknown keyword "ProjectLable".*mean "PROJECTLABEL"'),
      ("ProjectSettings.txt", 6, 1, "warning", 'unknown keyword "COLOURS": skipped with its block$')]),
    ("encodings that are not read", {"MDITabs.ini": "\ufeffA=S".encode("utf-16-be"), "MDITabs16.0.ini": "A=1".encode("utf-16-le"),
                                     "MDITabsAutoCAD_16.0.ini": "A=S".encode("utf-8-sig"), "ProjectSettings.txt": "JOBNUMBER".encode("utf-16")},
     [("MDITabs.ini", 1, 1, "error", "in UTF-16, big-endian"), ("MDITabs16.0.ini", 1, 1, "error", "in UTF-16 without its mark"),
      ("MDITabsAutoCAD_16.0.ini", 1, 1, "error", 'in UTF-8.*"Unicode"'), ("ProjectSettings.txt", 1, 1, "error", "in UTF-16, which.*save it as ANSI$")]),
    ("UTF-8 without its mark", {"MDITabs.ini": "PopupSavText=Größe\n".encode(), "ProjectSettings.txt": ("LABEL é\n{\n}\n" + PROJECT).encode()},
     [("MDITabs.ini", 1, 16, "warning", 'UTF-8 without a mark.*"öße" becomes "Ã¶ÃŸe"'), ("MDITabs.ini", 1, 1, "warning", "unknown key"),
      ("ProjectSettings.txt", 1, 7, "warning", '"é" becomes "Ã©"'), ("ProjectSettings.txt", 1, 1, "warning", "unknown keyword")]),
    ("UTF-16 outside the code page", {"MDITabs.ini": "PopupSaveText=Sé\r\nPopupCloseText=aЖ\r\nPopupOptionsText=😀\r\n".encode("utf-16")},
     [("MDITabs.ini", 2, 17, "warning", r'U\+0416 is not in the Windows code page: it becomes "\?"'),
      ("MDITabs.ini", 3, 18, "warning", r'U\+1F600 is not .* becomes "\?\?"')]),
    ("characters of no text", {"MDITabs.ini": b"PopupSaveText=S\x9d\x1b\r\nPopupCloseText=a\0b\r\n", "MDITabs16.0.ini": b"PopupSaveText=S\rPopupCloseText=C"},
     [("MDITabs.ini", 2, 17, "warning", "a zero byte"), ("MDITabs16.0.ini", 1, 16, "warning", "a carriage return alone ends no line")]),
    ("a drawing cut off", {"D.dwg": NUMBERED[:400]}, [("D.dwg", 87, 1, "error", "the drawing cannot be read: ")]),
]


class ProblemsTest(CheckerTest):
    def test_each_kind_is_told_where_it_stands(self):
        for number, (_, files, _) in enumerate(ROWS):
            self.write({f"rows/{number:02}/{name}": contents for name, contents in {"D.dwg": drawing(), **files}.items()})
        reports = self.reports("rows")
        text = self.check("rows")[1].decode(CONSOLE).replace("\r", "")
        self.assertNotRegex(text, "[\0-\t\v-\x1f\x7f]")
        for number, (kind, files, expected) in enumerate(ROWS):
            with self.subTest(kind):
                folder = f"rows/{number:02}"
                found = reports[self.path(f"{folder}/D.dwg")]["problems"]
                wanted = [(self.path(f"{folder}/{name}"), *rest) for name, *rest in expected]
                self.assertEqual([(p["file"], p["line"], p["column"], p["severity"]) for p in found],
                                 [entry[:4] for entry in wanted])
                for problem, (*_, words) in zip(found, wanted):
                    self.assertRegex(problem["text"], words)
                    self.assert_shown(text, problem)

    def assert_shown(self, text, problem):
        """The line of the report, below it the line of the file and a caret in the column."""
        at = f":{problem['line']}:{problem['column']}" if problem["line"] else ""
        place = f"{problem['file']}{at}: {problem['severity']}: {problem['text']}\n"
        self.assertTrue(place.partition("becomes")[0] in text, place)
        if not at or "becomes" in place:
            return  # no place; or more than the console has
        line, caret = text.partition(place)[2].split("\n")[:2]
        contents = pathlib.Path(problem["file"][2:].replace("\\", "/")).read_bytes()
        if len(line) < 64 and not {0, 0xC3} & {*contents} and not problem["file"].endswith(".dwg"):
            self.assertEqual(line[4:], re.sub("[“”]", '"', contents.decode(ANSI).replace("\r\n", "\n").replace("\r", " ").splitlines()[problem["line"] - 1]))
            self.assertEqual(caret, "    " + " " * (problem["column"] - 1) + "^")


if __name__ == "__main__":
    unittest.main()
