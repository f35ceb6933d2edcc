"""The files that a release is made of, and what they are called."""
import gzip
import hashlib
import io
import os
import pathlib
import re
import shutil
import subprocess
import tarfile

NOTE = "RELEASE"  # in the source archive, in place of git: which commit, of when, the sum of its files, of what kind
CHANGED = " with changes"  # behind a commit that is not all


class Refused(Exception):
    """What cannot be released, and why."""


class Source:
    """A commit, or an unpacked source archive; files gives {path: (is executable, contents)}.

    The contents are git's own, whatever its configuration would make of them in a working folder.
    """

    def __init__(self, folder, snapshot=False):
        self.folder = folder
        if (folder / ".git").exists():
            changed = self._read_git(snapshot)
        elif (folder / NOTE).exists():
            changed = self._read_archive(snapshot)
        else:
            raise Refused(f"{folder} is neither a git repository nor an unpacked source archive: it has no {NOTE}")
        self.name = self.commit + (CHANGED if changed else "")
        self.built_from = f"commit {self.name}"
        self.version = self._find("CMakeLists.txt", r"project\(\w+ VERSION (\d+\.\d+\.\d+)")
        newest = self._find("CHANGELOG.md", r"\n## (\S+)")
        if newest != self.version:
            raise Refused(f"CMakeLists.txt has version {self.version}, CHANGELOG.md starts with {newest}")
        self.label, self.kind = self.version, "snapshot" if snapshot else "release"
        if snapshot:
            self.label += f"-snapshot-{self.commit[:8]}{'-changed' if changed else ''}"
        elif changed:
            raise Refused("the tree has changes; commit them, or try --snapshot")
        elif (folder / ".git").exists() and f"v{self.version}" not in self._git("tag", "--points-at", "HEAD").split():
            raise Refused(f"this commit has no tag v{self.version}; set it, or try --snapshot")

    def _git(self, *arguments, text=True, **how):
        return subprocess.run(["git", "-C", self.folder, *arguments], check=True, stdout=subprocess.PIPE,
                              text=text, **how).stdout

    def _read_git(self, snapshot):
        """A snapshot has tracked changes; a release counts whatever git sees as one."""
        self.commit = self._git("rev-parse", "HEAD").strip()
        self.seconds = int(self._git("log", "-1", "--format=%ct", "HEAD"))
        stashed = self._git("stash", "create").strip() if snapshot else ""
        listing = self._git("ls-tree", "-r", "-z", stashed or self.commit).split("\0")[:-1]
        entries = [re.fullmatch(r"(\d+) blob (\w+)\t(.*)", line, re.S).groups() for line in listing]
        packed = io.BytesIO(self._git("cat-file", "--batch", text=False,
                                      input="".join(f"{name}\n" for _, name, _ in entries).encode()))
        self.files = {}
        for mode, _, path in entries:
            size = int(packed.readline().split()[2])
            self.files[path] = (mode == "100755", packed.read(size))
            packed.read(1)
        return bool(stashed) if snapshot else bool(self._git("status", "--porcelain"))

    def _read_archive(self, snapshot):
        note = dict(line.split(" ", 1) for line in (self.folder / NOTE).read_text("ascii").splitlines())
        if note["kind"] != "release" and not snapshot:
            raise Refused("this is the source of a snapshot, not of a release; try --snapshot")
        self.commit, self.seconds = note["commit"].removesuffix(CHANGED), int(note["seconds"])
        self.files = {}
        for top, folders, names in os.walk(self.folder):
            here = pathlib.Path(top)
            folders[:] = [name for name in folders if name != "__pycache__" and here / name != self.folder / "build"]
            for path in (here / name for name in names):
                self.files[path.relative_to(self.folder).as_posix()] = (os.access(path, os.X_OK), path.read_bytes())
        del self.files[NOTE]
        return note["commit"] != self.commit or note["files"] != self._sum()

    def _sum(self):
        """Of paths and contents; not of what a file may do, which an archiver can lose."""
        lines = [f"{hashlib.sha256(data).hexdigest()}  {path}\n" for path, (_, data) in sorted(self.files.items())]
        return hashlib.sha256("".join(lines).encode()).hexdigest()

    def _find(self, path, pattern):
        return re.search(pattern, self.files[path][1].decode())[1]

    def export(self, folder):
        shutil.rmtree(folder, ignore_errors=True)
        for path, (executable, data) in self.files.items():
            target = folder / path
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(data)
            target.chmod(0o755 if executable else 0o644)

    def write_archive(self, target, inside):
        note = f"commit {self.name}\nseconds {self.seconds}\nfiles {self._sum()}\nkind {self.kind}\n".encode()
        with open(target, "wb") as file, gzip.GzipFile("", "wb", 9, file, self.seconds) as packed, \
                tarfile.open(fileobj=packed, mode="w", format=tarfile.PAX_FORMAT) as archive:
            for path, (executable, data) in sorted({**self.files, NOTE: (False, note)}.items()):
                entry = tarfile.TarInfo(f"{inside}/{path}")
                entry.size, entry.mtime, entry.mode = len(data), self.seconds, 0o755 if executable else 0o644
                archive.addfile(entry, io.BytesIO(data))
