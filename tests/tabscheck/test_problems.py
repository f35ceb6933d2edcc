"""Every kind of problem: what tabscheck says is wrong with the trees of problems.in stands in problems.txt,
word for word, with its place and its line; and nothing else.

With WRITE=1 in the environment that is written anew; the difference is to be read.
"""
import os
import pathlib
import re
import unittest

from checker import CONSOLE, CheckerTest, drawing

TREES = pathlib.Path(__file__).with_name("problems.in")
GOLDEN = TREES.with_suffix(".txt")
# One holds the title block of most of the projects.
NUMBERED = drawing(["B1"], [("B1", {"NO": "7"})])
DRAWINGS = {"numbered": NUMBERED, "cut": NUMBERED[:200], "plain": drawing(), "none": None}


class ProblemsTest(CheckerTest):
    maxDiff = None

    def write_trees(self):
        """Behind "== " stands the kind of a tree; behind "-- " a file with its encoding, or a drawing; then its lines."""
        for number, tree in enumerate(re.split(r"(?m)^== .*\n", TREES.read_text("utf-8"))[1:]):
            files = {"D.dwg": NUMBERED}
            for name, how, text in re.findall(r"(?m)^-- (.*\.\w+~?)(?: ([\w-]+))?\n((?:(?!-- ).*\n)*)", tree):
                text = re.sub(r"\\u(\w{4})", lambda code: chr(int(code[1], 16)), text).replace("\n", "\r\n")
                files[name] = DRAWINGS[how] if how in DRAWINGS else text.encode(how or "cp1252")
            self.write({f"rows/{number:02}/{name}": contents for name, contents in files.items() if contents is not None})

    def test_each_kind_is_told_where_it_stands(self):
        self.write_trees()
        arguments = "--accept", r"token-elsewhere:ZavikMDITabs\support\MDITabs.ini", "rows"
        text = self.check("--problems", *arguments)[1].decode(CONSOLE).replace("\r", "")
        told = self.told(*arguments)
        for problem in [problem for about in told["drawings"] + told["files"] for problem in about["problems"]]:
            at = f":{problem['line']}:{problem['column']}" if problem["line"] else ""
            self.assertIn(f"{problem['file']}{at}: {problem['severity']}: ", text)
        text = re.sub(r'shows "\d\d\."', 'shows "22."', text.replace(self.path(""), ""))
        if os.environ.get("WRITE"):
            GOLDEN.write_text(text, "utf-8")
        self.assertEqual(text, GOLDEN.read_text("utf-8"))
        self.assertNotRegex(text, "[\0-\t\v-\x1f\x7f]")


if __name__ == "__main__":
    unittest.main()
