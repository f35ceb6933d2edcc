"""Folders know those below them: of the project's own files each includes its folder's and what the folder's row names."""
import pathlib
import re
import sys

TOP = pathlib.Path(__file__).resolve().parent.parent
ROWS = {
    "sdk": "module/VersionInfo.rc", "dwg": "", "dxf": "dwg library/text library/system sdk", "host": "dxf library/system sdk",
    "settings": "library sdk", "reactors": "settings library sdk", "tabs": "reactors settings library sdk",
    "additions": "tabs reactors settings library sdk", "module": "additions tabs reactors settings library sdk",
    "tabscheck": "dxf settings library sdk module/VersionInfo.rc",
}
below = "sdk"
for name in ("threads text network system controls diagnostics registry mail drawing files titleblock expansion "
             "maintenance").split():
    ROWS[f"library/{name}"] = below
    below += f" library/{name}"


def included(path):
    """What the file includes of the project's, from its top."""
    for name in re.findall(r'(?m)^\s*#\s*include\s*["<](.+)[">]', path.read_text("latin-1")):
        for folder in (path.parent, TOP, TOP / "sdk"):
            if (folder / name).is_file():
                yield (folder / name).resolve().relative_to(TOP).as_posix()
                break


faults = set()
for top in {path for path in TOP.iterdir() if path.is_dir()} - {TOP / "build", TOP / "tests", TOP / "bench", TOP / ".git"}:
    for path in (path for path in top.rglob("*") if path.suffix in (".cpp", ".h", ".rc")):
        row = "/".join(path.relative_to(TOP).parts[:2 if top.name == "library" else 1])
        if row not in ROWS:
            faults.add(f"{row}/ has no place in the order")
            continue
        faults |= {f"{path.relative_to(TOP)} includes {name}" for name in included(path)
                   if not any(f"{name}/".startswith(known + "/") for known in [row, *ROWS[row].split()])}
sys.exit("\n".join(sorted(faults)) or 0)
