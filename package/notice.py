"""NOTICE.txt: the texts that what is linked into the programs asks for.

They are taken from the copyright files of the packages that were linked, as they are on the machine;
what GCC's does not tell of its C++ library stands in libstdcxx.txt. A test holds them to what the linker used.
"""
import pathlib
import re

# Package, what of it gets into the programs, and which of its files, where its copyright file tells them apart.
PARTS = (
    ("libboost1.81-dev", "Boost, whose headers are compiled in", ("*",)),
    ("mingw-w64-i686-dev", "mingw-w64, the C runtime's start and headers",
     ("*", *(f"mingw-w64-crt/{folder}/" for folder in ("crt", "gdtoa", "math", "misc", "stdio")))),
    ("gcc-mingw-w64-base", "GCC, whose libgcc and libstdc++ are linked in", ()),
)
# Of GCC's own file, which has no such parts.
EXCERPTS = (("GCC is Copyright", "\nThe libbacktrace library is"),
            ("GCC RUNTIME LIBRARY EXCEPTION\n\nVersion 3.1", "\nlibquadmath/"))


def field(stanza, name):
    match = re.search(rf"^{name}:(.*(?:\n[ \t].*)*)", stanza, re.M)
    return match[1] if match else ""


def selected(text, prefixes):
    """The stanzas about those files, and the licences that they name."""
    stanzas = re.split(r"\n\s*\n", text)
    about = [stanza for stanza in stanzas
             if any(path == prefix if prefix == "*" else path.startswith(prefix)
                    for path in field(stanza, "Files").split() for prefix in prefixes)]
    licences = {word for stanza in about for word in field(stanza, "License").strip().split("\n")[0].split(" and ")}
    texts = [stanza for stanza in stanzas
             if not field(stanza, "Files") and field(stanza, "License").split("\n")[0].strip() in licences]
    if not about:
        raise ValueError(f"no stanza about {prefixes}")
    return about + texts


def make():
    parts = ["What others made and is linked into the programs that this project built. A\n"
             "module that somebody else built may hold more. The licence of ZavikMDITabs itself\n"
             "is not chosen yet."]
    for package, what, prefixes in PARTS:
        text = pathlib.Path("/usr/share/doc", package, "copyright").read_text("utf-8")
        chosen = selected(text, prefixes) if prefixes else [
            text[(start := text.index(first)):text.index(last, start)].strip() for first, last in EXCERPTS]
        parts += [f"{'=' * 78}\n{what} (Debian package {package})\n{'=' * 78}", *(part.strip("\n") for part in chosen)]
    parts.append((pathlib.Path(__file__).parent / "libstdcxx.txt").read_text("ascii").strip())
    return "\n\n".join(parts) + "\n"
