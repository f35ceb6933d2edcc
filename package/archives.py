"""What the packages hold, and the archives, with fixed times and orders."""
import hashlib
import re
import shutil
import struct
import subprocess
import time
import zipfile
import zlib

import notice

STYLE = ("body{font:15px/1.45 Tahoma,Verdana,sans-serif;max-width:52em;margin:1.5em auto;padding:0 1em;color:#222}"
         "table{border-collapse:collapse}td,th{border:1px solid #bbb;padding:.2em .6em;text-align:left}"
         "pre,code{font-family:Consolas,'Courier New',monospace;background:#f2f2f2}pre{padding:.6em}")
# One of these goes along with each package, as README.txt.
FOR_AUTOCAD, TO_TRY = "README.txt", "README-try.txt"
DOS = "cp437"


def write_text(target, text):
    """With the line ends of Windows."""
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_bytes(text.replace(b"\r\n", b"\n").replace(b"\n", b"\r\n"))


def copy(source, target):
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copyfile(source, target)


def write_texts(source, version, readme, folder):
    """What every package has for reading."""
    text = (source / "package" / readme).read_text("utf-8").replace("<version>", version)
    write_text(folder / "README.txt", text.encode())
    write_text(folder / "CHANGELOG.txt", (source / "CHANGELOG.md").read_bytes())
    write_text(folder / "NOTICE.txt", notice.make().encode())
    write_guides(source, version, folder / "guides")


def write_guides(source, version, folder):
    """docs/ for those who use the module, as HTML; every link leads somewhere in the folder."""
    names = ("user-guide", "cad-manager")
    shutil.copytree(source / "docs/pictures", folder / "pictures", copy_function=shutil.copyfile)
    for name in names:
        text = (source / f"docs/{name}.md").read_text("utf-8").replace("<version>", version)
        text = re.sub(r"\]\(([\w-]+)\.md", r"](\1.html", text)
        body = subprocess.run(["cmark-gfm", "-e", "table", "-e", "autolink"], input=text, check=True,
                              stdout=subprocess.PIPE, encoding="utf-8").stdout
        title = re.search(r"^# (.*)", text)[1]
        page = (f'<!DOCTYPE html>\n<html lang="en"><head><meta charset="utf-8"><title>{title}</title>'
                f"<style>{STYLE}</style></head>\n<body>\n{body}</body></html>\n")
        (folder / f"{name}.html").write_text(page, "utf-8")
    for name in names:
        for link in re.findall(r'(?:href|src)="([^"#:]+)', (folder / f"{name}.html").read_text("utf-8")):
            if not (folder / link).exists():
                raise ValueError(f"the link to {link} in {name}.md leads out of the archive")


def lay_out_module(module, checker, source, folder):
    """The module's own folder: what it reads, and what checks that."""
    copy(module, folder / "ZavikMDITabs.arx")
    copy(checker, folder / "tabscheck.exe")
    for path in sorted((source / "support").iterdir()):
        write_text(folder / "support" / path.name, path.read_bytes())


def lay_out_for_autocad(module, checker, source, version, folder):
    """What is installed, and what the archive for those who may not install holds: the same."""
    shutil.rmtree(folder, ignore_errors=True)
    lay_out_module(module, checker, source, folder)
    # Beside the texts that an office edits, so that it sees what it edited and what came.
    shutil.copytree(folder / "support", folder / "support/original", copy_function=shutil.copyfile)
    write_texts(source, version, FOR_AUTOCAD, folder)


def lay_out_to_try(programs, source, version, folder):
    """The stand-in host with the module and the samples, as an office has them."""
    shutil.rmtree(folder, ignore_errors=True)
    for name in ("cadhost.exe", "cadmfc.dll"):
        copy(programs / name, folder / "host" / name)
    lay_out_module(programs / "ZavikMDITabs.arx", programs / "tabscheck.exe", source, folder / "install/ZavikMDITabs")
    for target in ("install/DomainSettings", "Projects", "Sketches"):
        shutil.copytree(source / "samples" / target.removeprefix("install/"), folder / target,
                        copy_function=shutil.copyfile)
    write_text(folder / "try.cmd", (source / "package/try.cmd").read_bytes())
    write_texts(source, version, TO_TRY, folder)


class Entry(zipfile.ZipInfo):
    """A name beyond ASCII is in the code page of DOS, as Windows XP reads it, and once more in Unicode for others."""

    def __init__(self, name, date_time):
        super().__init__(name, date_time)
        self.create_system, self.external_attr = 0, 0x20  # DOS, an ordinary file
        self.compress_type = zipfile.ZIP_DEFLATED
        if not name.isascii():
            unicode = b"\1" + struct.pack("<L", zlib.crc32(name.encode(DOS))) + name.encode()
            self.extra = struct.pack("<HH", 0x7075, len(unicode)) + unicode

    def _encodeFilenameFlags(self):
        return self.filename.encode(DOS), self.flag_bits


def write_zip(target, folder, inside, seconds):
    """Packs the folder, under the name inside, every file with that time."""
    with zipfile.ZipFile(target, "w") as archive:
        for path in sorted(path for path in folder.rglob("*") if path.is_file()):
            entry = Entry(f"{inside}/{path.relative_to(folder).as_posix()}", time.gmtime(seconds)[:6])
            archive.writestr(entry, path.read_bytes(), compresslevel=9)


def write_sums(folder, head=()):
    """SHA256SUMS, as sha256sum -c reads it; it passes over the head."""
    lines = [f"# {line}\n" for line in head]
    lines += [f"{hashlib.sha256(path.read_bytes()).hexdigest()}  {path.name}\n"
              for path in sorted(folder.iterdir()) if path.name != "SHA256SUMS"]
    (folder / "SHA256SUMS").write_text("".join(lines), "ascii")
