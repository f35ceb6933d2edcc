"""What a release consists of beside the installer: archives with fixed times and orders."""
import gzip
import hashlib
import pathlib
import re
import shutil
import subprocess
import time
import zipfile

HERE = pathlib.Path(__file__).resolve().parent
STYLE = ("body{font:15px/1.45 Tahoma,Verdana,sans-serif;max-width:52em;margin:1.5em auto;padding:0 1em;color:#222}"
         "table{border-collapse:collapse}td,th{border:1px solid #bbb;padding:.2em .6em;text-align:left}"
         "pre,code{font-family:Consolas,'Courier New',monospace;background:#f2f2f2}pre{padding:.6em}")


def copy_text(source, target):
    """With the line ends of Windows."""
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_bytes(source.read_bytes().replace(b"\r\n", b"\n").replace(b"\n", b"\r\n"))


def stage(module, source, folder):
    """Lays out what is installed: the module and support/ of the source tree, in a new folder."""
    if folder.exists():
        shutil.rmtree(folder)
    folder.mkdir(parents=True)
    shutil.copyfile(module, folder / "ZavikMDITabs.arx")
    for path in sorted((source / "support").iterdir()):
        copy_text(path, folder / "support" / path.name)


def write_guides(source, folder):
    """docs/ for those who use the module, as HTML; every link leads somewhere in the folder."""
    names = ("user-guide", "cad-manager")
    shutil.copytree(source / "docs/pictures", folder / "pictures", dirs_exist_ok=True)
    for name in names:
        text = (source / f"docs/{name}.md").read_text("utf-8")
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


def write_zip(target, folder, inside, seconds):
    """Packs the folder, under the name inside, every file with that time."""
    with zipfile.ZipFile(target, "w") as archive:
        for path in sorted(path for path in folder.rglob("*") if path.is_file()):
            entry = zipfile.ZipInfo(f"{inside}/{path.relative_to(folder).as_posix()}", time.gmtime(seconds)[:6])
            entry.external_attr = 0o644 << 16
            entry.compress_type = zipfile.ZIP_DEFLATED
            archive.writestr(entry, path.read_bytes(), compresslevel=9)


def write_source(target, repository, commit, inside, seconds):
    """The commit's files."""
    tar = subprocess.run(["git", "-C", repository, "archive", "--format=tar", f"--prefix={inside}/", commit],
                         check=True, stdout=subprocess.PIPE).stdout
    with open(target, "wb") as file, gzip.GzipFile("", "wb", 9, file, seconds) as packed:
        packed.write(tar)


def write_sums(folder):
    """SHA256SUMS, as sha256sum -c reads it."""
    lines = [f"{hashlib.sha256(path.read_bytes()).hexdigest()}  {path.name}\n"
             for path in sorted(folder.iterdir()) if path.name != "SHA256SUMS"]
    (folder / "SHA256SUMS").write_text("".join(lines), "ascii")
