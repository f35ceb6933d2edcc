"""A thousand drawings through tabscheck, against one cat of the settings files that count for them.

    /usr/bin/python3 bench/bench_tabscheck.py        # ARCH=x64 for the other build

Nothing else should run meanwhile. The program's start under Wine is shown by itself.
"""
import os
import pathlib
import shutil
import statistics
import subprocess
import tempfile
import time

REPOSITORY = pathlib.Path(__file__).resolve().parents[1]
ARCH = os.environ.get("ARCH", "x86")
PROGRAM = REPOSITORY / "build" / ARCH / "tabscheck.exe"
SAMPLES = REPOSITORY / "samples"
FOLDERS, DRAWINGS = 20, 50


def tree(folder):
    """An installation, and a project of 20 folders with 50 drawings each; half the folders have texts."""
    program = folder / "install/ZavikMDITabs"
    shutil.copytree(REPOSITORY / "support", program / "support")
    shutil.copytree(SAMPLES / "DomainSettings", folder / "install/DomainSettings")
    shutil.copy(PROGRAM, program)
    project = folder / "Riverside"
    shutil.copytree(SAMPLES / "Projects/Riverside/Settings", project / "Settings")
    shutil.copy(SAMPLES / "Projects/Riverside/ProjectSettings.txt", project)
    for number in range(FOLDERS):
        place = project / f"Drawings {number:02}"
        place.mkdir()
        if number % 2:
            shutil.copy(SAMPLES / "Projects/Station/Drawings/Details/MDITabs.ini", place)
        for copy in range(DRAWINGS):
            shutil.copy(SAMPLES / "Projects/Riverside/Drawings/A-101.dwg", place / f"A-{copy:03}.dwg")


def seconds(command, folder):
    """The best of five runs."""
    times = []
    for _ in range(5):
        start = time.perf_counter()
        subprocess.run(command, cwd=folder, stdout=subprocess.DEVNULL, check=True)
        times.append(time.perf_counter() - start)
    return min(times), statistics.median(times)


def main():
    with tempfile.TemporaryDirectory(dir=REPOSITORY / "build") as name:
        folder = pathlib.Path(name)
        tree(folder)
        wine = [REPOSITORY / "tools/wine", ARCH, r"install\ZavikMDITabs\tabscheck.exe"]
        settings = [*folder.rglob("*.ini"), *folder.rglob("*Settings.txt")]
        rows = [("start alone (--help)", [*wine, "--help"]),
                ("1,000 drawings, as text", [*wine, "Riverside"]),
                ("1,000 drawings, --json", [*wine, "--json", "Riverside"]),
                (f"cat of the {len(settings)} settings files", ["cat", *settings]),
                ("cat of the drawings too", ["cat", *settings, *folder.rglob("*.dwg")])]
        for label, command in rows:
            best, median = seconds(command, folder)
            print(f"{label:32} {best * 1000:8.1f} ms  (median {median * 1000:.1f})")


if __name__ == "__main__":
    main()
