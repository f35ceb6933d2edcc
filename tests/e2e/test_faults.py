"""Each call of the host that a step makes fails in turn, each notification of it is withheld, and the session goes on."""
import re
import unittest

from host import DISCREET, MODULE, REPOSITORY, options
from test_extras import EVERYTHING, ExtrasBase

ROWS = re.findall(r"^\| `\w+\.h` \| (?:`(\w+)`)? ?\| (.*) \|", (REPOSITORY / "docs/host-api.md").read_text(), re.M)
HEARD = {name for path in (REPOSITORY / "reactors").glob("*Reactor.h")
         for name in re.findall(r"void (\w+)\(.*override", path.read_text())}
# The host's own objects, and what only frees: without the ones there is no host, the others cannot refuse.
ALWAYS_THERE = re.compile(r"acDoc|acedGetAcadFrame|acedEditor|acedRegCmds|acrx|AcRx(Object|Class|Dict)|acdbHostApp|acutDel|acdbFree|acutNewString")
LISTED = [name for owner, operations in ROWS for operation in re.findall(r"`(\w+)`", operations)
          if not ALWAYS_THERE.match(name := f"{owner}::{operation}" if owner else operation)
          and (operation in HEARD or not owner.endswith("Reactor"))]
# What a drawing's data are read with fails in tests/module, call by call; the rest here.
SESSION = re.compile(r"AcAp|AcEd|AcRx|acedGetVar|AcDbDatabase(?!::getSym|Summary)|AcDbHost.*orkingDatabase$")
LOAD, UNLOAD = f"ARX L {MODULE}", "ARX U ZavikMDITabs"
HOME, AWAY = "Projects/Station/Drawings/A-101.dwg", "Projects/Riverside/Drawings/A-101.dwg"
ONE, BOTH = ["Drawing1", "A-101"], ["Drawing1", "A-101 (Station)", "A-101 (Riverside)"]
CHANGED = ["Drawing1", "A-101 [changed]"]
# What leads to a step; the step, and the tabs after it; what is done then, and the tabs; how all is as before.
STEPS = {
    "open": ([], [f"OPEN {AWAY}"], BOTH, ["LINE 0 0 1 1"], [*BOTH[:2], BOTH[2] + " *"], ["CLOSE"]),
    "edit": ([], ["LINE 0 0 1 1"], CHANGED, ["LINE 0 0 1 1"], CHANGED, ["QSAVE"]),
    "save": (["LINE 0 0 1 1"], ["QSAVE"], ONE, ["LINE 0 0 1 1"], CHANGED, ["QSAVE"]),
    "close": ([f"OPEN {AWAY}"], ["CLOSE"], ONE, ["CLICK 2", "HOVER 2", "MENU 2", "MIDDLECLICK 2", f"OPEN {AWAY}"], BOTH, ["CLOSE"]),
    "hover": ([UNLOAD, LOAD], ["HOVER 1"], ONE, [], ONE, []),
    "menu": ([], ["MENU 1 22392"], ONE, [], ONE, []),
    "click": ([], ["MENU 1 21000", "CLICK 1"], ONE, ["SWITCH 1"], ONE, []),
    "options": ([], options(DISCREET), ONE, [], ONE, []),
    "unload": ([], [UNLOAD], [], [LOAD], ONE, []),
    "load": ([UNLOAD], [LOAD], ONE, [], ONE, []),
}


# Where the tabs differ then: what the host did not say, or could not name, when it was asked.
WALK = {"newAcApDocumentIterator", "done", "document"}
ODD = {
    "open": {"documentCreated", "fileName", "database", "addReactor", *WALK},
    "edit": {"objectAppended", "fileName", "database", "document", "workingDatabase", "acedGetVar"},
    "save": {"saveComplete", "fileName", "document", "setWorkingDatabase", "acedGetVar"},
    "close": {"documentToBeDestroyed", "fileName", *WALK},
    "load": {"registerAppMDIAware", *WALK},
}
LEFT_BEHIND = re.compile("fileName|Iterator|documentToBeDestroyed|addReactor|registerApp")


class FaultsTest(ExtrasBase):
    def test_each_call_can_fail(self):
        self.assertGreater(len(LISTED), 90)
        transcript = self.run_host([f"FAULT {name} 1000000" for name in LISTED], arguments=())
        self.assertEqual(transcript.exit_code, 0)
        self.assertNotEqual(self.run_host(["FAULT acdbNothing 1"], arguments=(), expect_exit=None).exit_code, 0)

    def play(self, faults):
        script = [LOAD, f"OPEN {HOME}"]
        for step, fault in faults:
            before, lines, _, then, _, after = STEPS[step]
            script += [*before, f"FAULT {fault}", *lines, "FAULT", "STRIP", *then, "STRIP", *after]
            script += [UNLOAD, LOAD] if LEFT_BEHIND.search(fault) else []
        transcript = self.run_host(script, arguments=(), expect_exit=None)
        self.assertNotIn("CRASH", transcript.text)
        self.assertEqual(len(transcript.strips), 2 * len(faults))
        return transcript

    def test_a_session_goes_on(self):
        (self.folder / HOME).write_bytes((self.folder / AWAY).read_bytes())
        self.set_registry({"MiddleClickCloses": 1})
        self.switch_on(**EVERYTHING, SameNameText='" (%DISTINCT_FOLDER%)"')
        counted = self.play([(step, "* 0") for step in STEPS]).text.split("fault: ")[1:]
        faults = [(step, f"{name} {n}") for step, calls in zip(STEPS, counted)
                  for name, count in re.findall(r"called: (\S+) (\d+)", calls) if SESSION.match(name)
                  for n in range(1, min(int(count), 3) + 1)]
        faults.sort(key=lambda fault: "unlockApplication" in fault[1])  # without it the module stays
        transcript = self.play(faults)
        self.assertEqual(transcript.text.count("fault: fired"), len(faults))
        odd = {}
        for (step, fault), *strips in zip(faults, transcript.strips[::2], transcript.strips[1::2]):
            if [strip.texts for strip in strips] != [STEPS[step][2], STEPS[step][4]]:
                odd.setdefault(step, set()).add(re.search(r"(\w+) \d", fault)[1])
        self.assertEqual(odd, ODD)


if __name__ == "__main__":
    unittest.main()
