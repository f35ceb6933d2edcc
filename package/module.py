"""Whether a module that somebody built can be packed for AutoCAD as this release."""
import pefile

from source import Refused

EXPORTS = ("acrxEntryPoint", "acrxGetApiVersion")
STAND_IN = ("cadhost.exe", "cadmfc.dll")
WINDOWS_XP = (5, 1)


def named(symbols):
    return {(symbol.name or b"").decode("ascii", "replace") for symbol in symbols}


def version_of(image):
    """The version resource: "1.0.0.0" of its fixed part, "" when it has none, and its texts."""
    texts = {}
    for information in getattr(image, "FileInfo", [[]])[0]:
        for table in getattr(information, "StringTable", []):
            texts.update({key.decode(): value.decode() for key, value in table.entries.items()})
    fixed = getattr(image, "VS_FIXEDFILEINFO", [None])[0]
    pairs = (fixed.FileVersionMS, fixed.FileVersionLS) if fixed else ()
    numbers = [half for pair in pairs for half in divmod(pair, 1 << 16)]
    return ".".join(map(str, numbers)), texts


def reason_against(path, version, built_from):
    """Why the file cannot be the module of that version out of that source; "" when it can."""
    try:
        image = pefile.PE(str(path))
    except pefile.PEFormatError:
        return "it is no Windows program"
    if image.FILE_HEADER.Machine != 0x14C:
        return "it is not 32-bit, and AutoCAD 2004 to 2006 are"
    if not image.is_dll():
        return "it is a program, not a DLL"
    header = image.OPTIONAL_HEADER
    system = header.MajorSubsystemVersion, header.MinorSubsystemVersion
    if system > WINDOWS_XP:
        return (f"it was linked for Windows {system[0]}.{system[1]} and later, and AutoCAD 2004 to 2006 run on "
                "Windows 2000 and XP")
    if any(section.PointerToRawData + section.SizeOfRawData > path.stat().st_size for section in image.sections):
        return "its end is missing"
    exported = named(getattr(getattr(image, "DIRECTORY_ENTRY_EXPORT", None), "symbols", []))
    if missing := [name for name in EXPORTS if name not in exported]:
        return f"it does not export {' and '.join(missing)}, which AutoCAD calls"
    imported = {entry.dll.decode().lower() for entry in getattr(image, "DIRECTORY_ENTRY_IMPORT", [])}
    if stand_in := [name for name in STAND_IN if name in imported]:
        return (f"it imports {' and '.join(stand_in)}, so it was built for the stand-in host and AutoCAD cannot load it "
                "(docs/porting.md says how to build it for AutoCAD)")
    number, texts = version_of(image)
    if not number:
        return "it has no version resource, from which its version and source are read"
    if number != f"{version}.0":
        return f"it says that it is version {number}, and this release is {version}.0"
    if (comments := texts.get("Comments", "")) != f"Built from {built_from}":
        return f'its version resource says "{comments}", and this release is "Built from {built_from}"'
    return ""


def check(path, version, built_from):
    if reason := reason_against(path, version, built_from):
        raise Refused(f"{path.name} cannot be packed: {reason}.")
