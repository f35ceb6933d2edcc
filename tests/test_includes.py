"""Folders know those below them: what a folder includes stands before it in its row, or is itself."""
import pathlib
import re
import sys

TOP = pathlib.Path(__file__).resolve().parent.parent
ROWS = {"": "library dwg dxf host settings reactors tabs additions module",
        "library/": "threads text network system controls diagnostics registry mail drawing files titleblock expansion maintenance"}
faults = []
for prefix, row in ROWS.items():
    order = row.split()
    present = {path.name for path in (TOP / prefix).iterdir() if path.is_dir()} if prefix else set()
    faults += [f"{prefix}{name} has no place in the order" for name in sorted(present - set(order))]
    for place, folder in enumerate(order):
        for path in (TOP / prefix / folder).rglob("*.*"):
            for line in re.findall(rf'#include "{prefix}(\w+)/', path.read_text("latin-1")):
                if line in order[place + 1:]:
                    faults.append(f"{path.relative_to(TOP)} includes {prefix}{line}/")
sys.exit("\n".join(faults) or 0)
