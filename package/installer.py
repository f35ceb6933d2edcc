"""Makes the Windows Installer package out of a folder with the module and support/.

wixl makes the frame out of product.wxs. The rest is written into its tables: a
component for each host that may be on a machine, with the condition that it is
there, and the columns that wixl leaves empty. The same content gives the same
bytes.
"""
import hashlib
import os
import pathlib
import re
import shutil
import struct
import subprocess
import tempfile
import uuid

HERE = pathlib.Path(__file__).resolve().parent
# Component codes must stay what they are from version to version.
COMPONENTS = uuid.UUID("e61bfe10-3041-4665-a326-6dfa0029e3a0")
PACKAGES = uuid.UUID("643aeb8e-08a8-42af-bf01-b4ae9db8bd83")
MACHINE = "2"  # HKEY_LOCAL_MACHINE, as the tables count
# What a host's own installation writes into its key; the first that is there proves the host.
HOST_VALUES = ("AcadLocation", "ProductName")
REGISTRY_KEY_PATH, TRANSITIVE, NEVER_OVERWRITE = 4, 64, 128  # component attributes
ON_START, ON_COMMAND, ON_REQUEST = 2, 4, 8  # LOADCTRLS
MIGRATE_FEATURES, THIS_VERSION_TOO = 1, 0x200  # upgrade attributes
ENGLISH = "1033"


class Table:
    """A database table, as msiinfo exports and msibuild imports it."""

    def __init__(self, database, name):
        self.name = name
        text = subprocess.run(["msiinfo", "export", database, name], check=True, capture_output=True).stdout
        lines = [line.split("\t") for line in text.decode("cp1252").splitlines() if line]
        self.header, self.rows = lines[:3], lines[3:]
        self.columns = self.header[0]

    def add(self, *row):
        if len(row) != len(self.columns):
            raise ValueError(f"{self.name} has other columns than {row}")
        self.rows.append(list(map(str, row)))

    def set(self, key, **values):
        row, = (row for row in self.rows if row[0] == key)
        for column, value in values.items():
            row[self.columns.index(column)] = str(value)

    def drop(self, *keys):
        self.rows = [row for row in self.rows if row[0] not in keys]

    def write(self, folder):
        path = folder / f"{self.name}.idt"
        path.write_bytes("".join("\t".join(row) + "\r\n" for row in self.header + self.rows).encode("cp1252"))
        return path


def version():
    """The one that CMake has."""
    return re.search(r"project\(\w+ VERSION (\S+)", (HERE.parent / "CMakeLists.txt").read_text("utf-8"))[1]


def hosts():
    """(release, product, language) of every host that hosts.txt names."""
    releases, languages = [], []
    for line in (HERE / "hosts.txt").read_text("ascii").splitlines():
        word, *values = line.split() or ["#"]
        if word == "release":
            releases.append(values)
        elif word == "languages":
            languages += values
    for release, first, last in releases:
        base = 10 if len(first) == 4 else 16
        for product in range(int(first, base), int(last, base) + 1):
            for language in languages:
                yield release, str(product) if base == 10 else f"{product:X}", language


def add_hosts(tables):
    for release, product, language in hosts():
        host = f"{release.replace('.', '_')}_{product}_{language}"
        key = rf"SOFTWARE\Autodesk\AutoCAD\{release}\ACAD-{product}:{language}"
        for value in HOST_VALUES:
            tables["AppSearch"].add(f"HOST_{host}", f"{value}_{host}")
            tables["RegLocator"].add(f"{value}_{host}", MACHINE, key, value, 2)
        # Without the second half, what was written for a host that has gone since would stay for ever.
        tables["Component"].add(host, f"{{{uuid.uuid5(COMPONENTS, key)}}}".upper(), "INSTALLDIR",
                                REGISTRY_KEY_PATH | TRANSITIVE, f'HOST_{host} OR REMOVE~="ALL"', f"loader_{host}")
        tables["FeatureComponents"].add("tabs", host)
        application = key + r"\Applications\ZavikMDITabs"
        for name, subkey, value, data in (
                ("loader", "", "LOADER", "[#module]"),
                ("controls", "", "LOADCTRLS", f"#{ON_START | ON_COMMAND | ON_REQUEST}"),
                ("description", "", "DESCRIPTION", "Document tabs"),
                ("command", r"\Commands", "ZavikMDITabs", "ZavikMDITabs"),
                ("group", r"\Groups", "ZavikMDITabs", "ZavikMDITabs")):
            tables["Registry"].add(f"{name}_{host}", MACHINE, application + subkey, value, data, host)


def complete(tables, version):
    """What wixl cannot be told."""
    # Without a version the module counts as a text file that somebody changed.
    tables["File"].set("module", Version=f"{version}.0", Language=ENGLISH)
    tables["MsiFileHash"].drop("module")
    # A folder leaves with its last file, but not the folder above it.
    tables["CreateFolder"].add("COMPANYDIR", "module")
    # A build of the same version is replaced as an older one is, with its features' states.
    for row in tables["Upgrade"].rows:
        if row[tables["Upgrade"].columns.index("ActionProperty")] == "WIX_UPGRADE_DETECTED":
            row[tables["Upgrade"].columns.index("Attributes")] = str(MIGRATE_FEATURES | THIS_VERSION_TOO)
    tables["CustomAction"].set("KeepFolder", Type=51)  # sets a property, in whatever rights there are
    # What an office edited stays as it is.
    for texts in ("texts", "standard"):
        tables["Component"].set(texts, Attributes=NEVER_OVERWRITE)
    # The old version leaves when the new one's files are in place, so that the edited ones are never without an
    # owner, and before the new one is registered, because Wine drops the upgrade code with the old version.
    sequence = tables["InstallExecuteSequence"]
    sequence.add("RemoveFolders", "", 3600)
    sequence.add("CreateFolders", "", 3700)
    sequence.add("InstallExecute", "", 5500)
    sequence.set("RemoveExistingProducts", Sequence=5600)
    sequence.drop("KeepFolder")
    sequence.add("KeepFolder", "PREVIOUSDIR AND NOT INSTALLDIR", 60)
    # Searches belong to the part that runs with the machine's rights.
    tables["InstallUISequence"].drop("AppSearch", "FindRelatedProducts", "LaunchConditions", "ValidateProductID",
                                     "MigrateFeatureStates", "KeepFolder")


def set_times(database, seconds):
    """Sets the two times in the summary, which say when the database was made."""
    data = bytearray(database.read_bytes())
    format_id = uuid.UUID("f29f85e0-4ff9-1068-ab91-08002b27b3d9").bytes_le
    start = data.index(format_id)
    section = start - 28 + struct.unpack_from("<I", data, start + 16)[0]
    count = struct.unpack_from("<I", data, section + 4)[0]
    properties = dict(struct.unpack_from("<II", data, section + 8 + 8 * i) for i in range(count))
    for number in (12, 13):
        place = section + properties[number]
        if struct.unpack_from("<I", data, place)[0] != 64:
            raise ValueError(f"{database}: property {number} is no time")
        struct.pack_into("<Q", data, place + 4, (seconds + 11644473600) * 10000000)
    database.write_bytes(data)


def make(content, target, version, source, seconds):
    """Writes the package of the files in the folder content.

    source says where they come from; seconds is the time that all of it carries.
    """
    if not re.fullmatch(r"\d+\.\d+\.\d+", version):
        raise ValueError(f"{version} is no version")
    files = [content / name for name in ("ZavikMDITabs.arx", "support/MDITabs.ini", "support/StandardSettings.txt")]
    digest = hashlib.sha256(f"{version} {source} {seconds}".encode())
    for path in [*files, HERE / "product.wxs", HERE / "hosts.txt", pathlib.Path(__file__)]:
        digest.update(hashlib.sha256(path.read_bytes()).digest())
    product, package = (str(uuid.uuid5(PACKAGES, f"{name} {digest.hexdigest()}")).upper()
                        for name in ("product", "package"))
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for path in files:
            copy = folder / path.relative_to(content)
            copy.parent.mkdir(exist_ok=True)
            shutil.copy(path, copy)
            copy.chmod(0o644)
            os.utime(copy, (seconds, seconds))
        database = folder / "package.msi"
        frame = ["wixl", "-D", f"product={product}", "-D", f"version={version}", "-D", f"source={source}",
                 "-o", database, HERE / "product.wxs"]
        result = subprocess.run(frame, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if result.returncode != 0:
            raise RuntimeError(f"wixl: {result.stdout}")
        tables = {name: Table(database, name) for name in (
            "AppSearch", "Component", "CreateFolder", "CustomAction", "FeatureComponents", "File", "InstallExecuteSequence", "InstallUISequence",
            "MsiFileHash", "RegLocator", "Registry", "Upgrade")}
        complete(tables, version)
        add_hosts(tables)
        command = ["msibuild", database]
        for table in tables.values():
            command += ["-i", table.write(folder)]
        subprocess.run(command, check=True)
        subprocess.run(["msibuild", database, "-s", "Installation Database", "Zavik", "Intel;1033", f"{{{package}}}"],
                       check=True)
        set_times(database, seconds)
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(database, target)
    return product
