"""The process holds after many cycles what it held after the first, counted from outside the module.

SOAK_SEED chooses what is done at random (0: anything), SOAK_STEPS how much in each of its rounds.
"""
import os
import random
import re
import unittest

from host import ARCH, MODULE, options
from test_extras import EVERYTHING, ExtrasBase

CYCLES = 200
DRAWINGS = 40
A101 = "Projects/Riverside/Drawings/A-101.dwg"
LOAD, UNLOAD = f"ARX L {MODULE}", "ARX U ZavikMDITabs"
USE, EXTENSIONS = 1003, 1004
# What a person does, and how often; what is refused (nothing to undo, a name in use) is done too.
WEIGHTS = {
    "OPEN {file}": 16, "NEW": 3, "CLOSE": 5, "MIDDLECLICK {n}": 5, "CLICK {n}": 16, "HOVER {n}": 2, "QSAVE": 8,
    "SAVEAS {file}": 3, "MENU {n} {item}": 8, "LOCKDOCS 1|CLICK {n}|LOCKDOCS 0": 2, "DRAG {n} {m}": 3, "WHEEL {m}": 1,
    "options": 4, f"{UNLOAD}|{LOAD}": 1, "LINE 0 0 {m} 5": 4, "ATTEDIT TITLE1 {m}": 3, "PROPS title T{m}": 3, "UNDO": 4,
    "REDO": 3, "XATTACH ../Xrefs/Grid.dwg": 3, "XDETACH Grid": 3, "INSERT OFFICE_A1 1 2": 3, "ERASE L": 3,
}
ITEMS = [22388, 22389, 22390, 22392, 22393, 22394, 22395, 21000, 21001]
DRAWING = re.compile(r'(?m)^drawing \d+: "((?:.*\\)?(.*)(\..*))"( modified)?( active)?$')
TEXT = re.compile(r"(.+?)( \*| \[changed\]| \(draft\))?$")


class ResourcesTest(ExtrasBase):
    def counts(self, script, expect_exit=0):
        self.transcript = self.run_host(script, (), expect_exit)
        self.assertEqual([line for line in self.transcript.lines if line.startswith("CRASH")], [])
        lines = [line for line in self.transcript.lines if line.startswith("resources: ")]
        return [{name: int(value) for name, value in re.findall(r"(\w+)=(\d+)", line)} for line in lines]

    def compare(self, before, after, handles_that_stay=0):
        # A single block or handle a cycle would be hundreds; Windows' own caches settle late.
        heap = after.pop("heap") - before.pop("heap")
        handles = after.pop("handles") - before.pop("handles")
        self.assertEqual(after, before)
        self.assertGreater(before["keys"], 0)
        self.assertLess(handles, handles_that_stay + 20)
        self.assertGreater(before["gdi"] * before["windows"] * before["menus"] * before["modules"], 0)
        self.assertLess(heap, 10)

    def test_loading_and_unloading_leaves_nothing(self):
        # A key that is there can be left open. Checks that are asked for at the start end with it.
        self.set_registry({"Use": 1}, {"AssertStartup": 1})
        first = [f"OPEN {A101}", LOAD, "FAULT AcApDocManager::document 1", "LINE 0 0 1 1", UNLOAD]
        # Semaphores of the compiler's runtime stay with each load, which nobody can reach to
        # close them: two where it has exceptions by tables of its own (32 bits), else one.
        cycle = [LOAD, UNLOAD]
        self.compare(*self.counts([*first, *cycle * 3, "RESOURCES", *cycle * CYCLES, "RESOURCES"]),
                     handles_that_stay=CYCLES * (2 if ARCH == "x86" else 1))

    def test_opening_and_closing_drawings_leaves_nothing(self):
        # Titled, with a title block and xrefs, and with neither; what is kept a file name is kept once.
        names = [A101, "Sketches/Sketch.dwg"]
        cycle = [line for name in names for line in (f"OPEN {name}", "LINE 0 0 1 1", "CLOSE")]
        self.compare(*self.counts([LOAD, *cycle * 2, "RESOURCES", *cycle * (DRAWINGS // len(names)), "RESOURCES"]))

    def test_strip_and_drawings_agree_at_random(self):
        self.switch_on(**EVERYTHING, PopupSaveAllText="Save all")
        self.set_registry({"MiddleClickCloses": 1, "DragTabs": 1, "WheelScrolls": 1})
        seed = int(os.environ.get("SOAK_SEED", 1)) or random.randrange(10**6)
        files = [f'"{path.relative_to(self.folder)}"' for path in sorted(self.folder.glob("[PS]*/**/*.dwg"))]
        on = {USE: True, EXTENSIONS: False}
        script, steps = [], []
        for _ in range(5):
            chance = random.Random(seed)
            script.append(LOAD)
            for _ in range(int(os.environ.get("SOAK_STEPS", 100))):
                line, = chance.choices([*WEIGHTS], WEIGHTS.values())
                if line == "options":
                    pressed, end = chance.randrange(1000, 1006), chance.choice((1, 1, 2))
                    pressed = pressed if on[USE] else USE
                    line = "|".join(options(pressed, end=end))
                    on[pressed] = on.get(pressed, True) != (end == 1)
                n, m = chance.randrange(7), chance.randrange(7)
                line = line.format(file=chance.choice(files), n=n, m=m, item=chance.choice(ITEMS))
                steps.append((line, dict(on)))
                script += [*line.split("|"), "SWITCH", "STRIP"]
            script += [*["CLOSE"] * 20, UNLOAD, "RESOURCES"]
        _, before, *_, after = self.counts(script, expect_exit=None)
        listed = re.split("(?m)^Command: SWITCH$", self.transcript.text)[1:]
        for i, (text, strip, (_, on)) in enumerate(zip(listed, self.transcript.strips, steps, strict=True)):
            told = f"SOAK_SEED={seed}: " + "; ".join(line for line, _ in steps[max(i - 9, 0):i + 1])
            self.assertEqual(strip.exists, on[USE], told)
            drawings = sorted((path, name + extension * on[EXTENSIONS], bool(modified), bool(active))
                              for path, name, extension, modified, active in DRAWING.findall(text))
            tabs = sorted((tab.document, name, bool(marker), tab is strip.tabs[strip.selected])
                          for tab in strip.tabs for name, marker in TEXT.findall(tab.text))
            self.assertEqual(tabs, drawings if strip.exists else [], told)
        self.compare(before, after, handles_that_stay=2 * self.transcript.text.count(" loaded."))


if __name__ == "__main__":
    unittest.main()
