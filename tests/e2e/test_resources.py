"""The process holds after many cycles what it held after the first, counted from outside the module."""
import re
import unittest

from host import ARCH, MODULE, HostTest

CYCLES = 200
DRAWINGS = 40
LOAD, UNLOAD = f"ARX L {MODULE}", "ARX U ZavikMDITabs"


class ResourcesTest(HostTest):
    def counts(self, script):
        transcript = self.run_host(script, arguments=())
        lines = [line for line in transcript.lines if line.startswith("resources: ")]
        return [{name: int(value) for name, value in re.findall(r"(\w+)=(\d+)", line)} for line in lines]

    def compare(self, before, after, handles_that_stay=0):
        # A single block or handle a cycle would be hundreds; Windows' own caches settle late.
        heap = after.pop("heap") - before.pop("heap")
        handles = after.pop("handles") - before.pop("handles")
        self.assertEqual(after, before)
        self.assertGreater(before["keys"], 0)
        self.assertLess(handles, handles_that_stay + 20)
        self.assertGreater(before["gdi"] * before["windows"] * before["menus"] * before["modules"], 0)
        self.assertLess(heap, 20)

    def test_loading_and_unloading_leaves_nothing(self):
        self.set_registry({"Use": 1})  # a key that is there can be left open
        # Semaphores of the compiler's runtime stay with each load, which nobody can reach to
        # close them: two where it has exceptions by tables of its own (32 bits), else one.
        cycle = [LOAD, UNLOAD]
        self.compare(*self.counts(["OPEN Projects/Riverside/Drawings/A-101.dwg", *cycle * 3, "RESOURCES",
                                   *cycle * CYCLES, "RESOURCES"]), handles_that_stay=CYCLES * (2 if ARCH == "x86" else 1))

    def test_opening_and_closing_drawings_leaves_nothing(self):
        # Titled, with a title block and xrefs, and with neither; what is kept a file name is kept once.
        names = ["Projects/Riverside/Drawings/A-101.dwg", "Sketches/Sketch.dwg"]
        cycle = [line for name in names for line in (f"OPEN {name}", "LINE 0 0 1 1", "CLOSE")]
        self.compare(*self.counts([LOAD, *cycle * 2, "RESOURCES", *cycle * (DRAWINGS // len(names)), "RESOURCES"]))


if __name__ == "__main__":
    unittest.main()
