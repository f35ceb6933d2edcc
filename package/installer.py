"""Makes the Windows Installer package out of a folder with what is to be installed.

wixl makes the frame out of product.wxs and the files. The rest is written into its
tables: a component for each host that may be on a machine, with the condition that
it is there, and the columns that wixl leaves empty. The same content gives the same
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
import xml.etree.ElementTree as xml

HERE = pathlib.Path(__file__).resolve().parent
# Component codes must stay what they are from version to version.
COMPONENTS = uuid.UUID("e61bfe10-3041-4665-a326-6dfa0029e3a0")
PACKAGES = uuid.UUID("643aeb8e-08a8-42af-bf01-b4ae9db8bd83")
# Name and upgrade code of what is for AutoCAD, and of what is for the tests: neither replaces the other.
FOR_AUTOCAD = ("Zavik MDI Tabs", "147D8637-1908-41EC-B5F7-0644843EB54B")
STAND_IN = ("Zavik MDI Tabs for the stand-in host", "EE0C725F-86C1-4EDE-A57E-32CD758CA8F7")
WIX = "{http://schemas.microsoft.com/wix/2006/wi}"
MACHINE = "2"  # HKEY_LOCAL_MACHINE, as the tables count
# What a host's own installation writes into its key; the first that is there proves the host.
HOST_VALUES = ("AcadLocation", "ProductName")
REGISTRY_KEY_PATH, TRANSITIVE = 4, 64  # component attributes
ON_START, ON_COMMAND, ON_REQUEST = 2, 4, 8  # LOADCTRLS
MIGRATE_FEATURES, THIS_VERSION_TOO = 1, 0x200  # upgrade attributes
COMPONENTS_A_FEATURE = 1600  # what Windows Installer takes
SET_PROPERTY = 51  # the type of a custom action
# That of one which calls a function of a script, later, with the rights of the machine, and may fail.
CALL_SCRIPT = 5 | 0x40 | 0x400 | 0x800
ENGLISH = "1033"
# Before the installation is looked at: what the command line does not say stays as it was.
BEFORE = (
    ("KeepFolder", "INSTALLDIR", "[PREVIOUSDIR]",
     "PREVIOUSDIR AND (Installed OR WIX_UPGRADE_DETECTED OR NOT INSTALLDIR)"),
    ("KeepLoadControls", "LOADCTRLS", "[PREVIOUSLOADCTRLS]", "PREVIOUSLOADCTRLS AND NOT LOADCTRLS"),
    ("LoadControls", "LOADCTRLS", str(ON_START | ON_COMMAND | ON_REQUEST), "NOT LOADCTRLS"),
    ("KeepDomain", "DOMAINSETTINGS", "[PREVIOUSDOMAIN]", "PREVIOUSDOMAIN AND NOT DOMAINSETTINGS"),
    ("DomainFolder", "DomainFolder", "[DOMAINSETTINGS]", 'NOT DOMAINSETTINGS~="none"'),
)
# When the folders are known: for the list of programs, and for the script, whose functions know the texts by name.
AFTER = (
    ("Location", "ARPINSTALLLOCATION", "[INSTALLDIR]", ""),
    ("HelpLink", "ARPHELPLINK", r"[INSTALLDIR]guides\cad-manager.html", ""),
    ("TextsToKeep", "KeepTexts", "[dir_support]|{texts}", ""),
    ("TextsToPutBack", "PutTextsBack", "[dir_support]|{texts}", ""),
)


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
    """(release, first product, last product, name) of what hosts.txt names, and their languages."""
    releases, languages = [], []
    for line in (HERE / "hosts.txt").read_text("ascii").splitlines():
        word, *values = line.split() or ["#"]
        if word == "release":
            releases.append((*values[:3], " ".join(values[3:])))
        elif word == "languages":
            languages += values
    return releases, languages


def products(first, last):
    base = 10 if len(first) == 4 else 16
    for product in range(int(first, base), int(last, base) + 1):
        yield str(product) if base == 10 else f"{product:X}"


def add_hosts(tables):
    releases, languages = hosts()
    for release, first, last, name in releases:
        feature = release.replace(".", "_")
        tables["Feature"].add(feature, "tabs", name, "", 2, 1, "", 0)
        for product in products(first, last):
            for language in languages:
                add_host(tables, feature, release, product, language)


def add_host(tables, feature, release, product, language):
    host = f"{feature}_{product}_{language}"
    key = rf"SOFTWARE\Autodesk\AutoCAD\{release}\ACAD-{product}:{language}"
    for value in HOST_VALUES:
        tables["AppSearch"].add(f"HOST_{host}", f"{value}_{host}")
        tables["RegLocator"].add(f"{value}_{host}", MACHINE, key, value, 2)
    # Without the second half, what was written for a host that has gone since would stay for ever.
    tables["Component"].add(host, f"{{{uuid.uuid5(COMPONENTS, key)}}}".upper(), "INSTALLDIR",
                            REGISTRY_KEY_PATH | TRANSITIVE, f'HOST_{host} OR REMOVE~="ALL"', f"loader_{host}")
    tables["FeatureComponents"].add(feature, host)
    application = key + r"\Applications\ZavikMDITabs"
    for name, subkey, value, data in (
            ("loader", "", "LOADER", "[#module]"),
            ("controls", "", "LOADCTRLS", "#[LOADCTRLS]"),
            ("description", "", "DESCRIPTION", "Document tabs"),
            ("command", r"\Commands", "ZavikMDITabs", "ZavikMDITabs"),
            ("group", r"\Groups", "ZavikMDITabs", "ZavikMDITabs")):
        tables["Registry"].add(f"{name}_{host}", MACHINE, application + subkey, value, data, host)


def check_features(tables):
    count = {}
    for feature, _ in tables["FeatureComponents"].rows:
        count[feature] = count.get(feature, 0) + 1
    for feature, components in count.items():
        if components > COMPONENTS_A_FEATURE:
            raise ValueError(f"the feature {feature} has {components} components, and Windows Installer takes "
                             f"{COMPONENTS_A_FEATURE} in one: package/hosts.txt needs more features")


def short_name(name, taken):
    """As DOS would call it; adds it to what is taken in its folder."""
    stem, _, kind = name.upper().rpartition(".") if "." in name else (name.upper(), "", "")
    short = f"{stem}.{kind}".rstrip(".")
    if not re.fullmatch(r"[\w-]{1,8}(\.\w{1,3})?", short) or short in taken:
        stems = (f"{re.sub(r'[^A-Z0-9]', '', stem)[:6]}~{number}" for number in range(1, 10))
        short = next(short for short in (f"{stem}.{kind[:3]}".rstrip(".") for stem in stems) if short not in taken)
    taken.add(short)
    return name if short == name.upper() else f"{short}|{name}"


def add_files(frame, content):
    """A component for each file, with a code that its path decides; gives the files that carry a version."""
    home = frame.find(f".//{WIX}Directory[@Id='INSTALLDIR']")
    feature = frame.find(f".//{WIX}Feature")

    def add(folder, element):
        taken = set()
        for path in sorted(folder.iterdir()):
            place = path.relative_to(content).as_posix()
            name = re.sub(r"\W", "_", place)
            if path.is_dir():
                inner = xml.SubElement(element, f"{WIX}Directory", Id=f"dir_{name}", Name=short_name(path.name, taken))
                add(path, inner)
                continue
            identifier = "module" if place == "ZavikMDITabs.arx" else f"file_{name}"
            component = xml.SubElement(element, f"{WIX}Component", Id=identifier,
                                       Guid=str(uuid.uuid5(COMPONENTS, place)).upper())
            xml.SubElement(component, f"{WIX}File", Id=identifier, Name=short_name(path.name, taken), Source=place,
                           KeyPath="yes")
            xml.SubElement(feature, f"{WIX}ComponentRef", Id=identifier)

    add(content, home)
    return "module", "file_tabscheck_exe"


def add_action(tables, sequence, name, kind, source, target, condition):
    tables["CustomAction"].add(name, kind, source, target, "")
    tables["InstallExecuteSequence"].add(name, condition, sequence)


def complete(tables, version, programs, texts, stand_in):
    """What wixl cannot be told."""
    # Without a version a program counts as a text file that somebody changed.
    for program in programs:
        tables["File"].set(program, Version=f"{version}.0", Language=ENGLISH)
        tables["MsiFileHash"].drop(program)
    tables["Component"].set("domain", Attributes=REGISTRY_KEY_PATH | TRANSITIVE,
                            Condition='DOMAINSETTINGS OR REMOVE~="ALL"')
    # A folder leaves with its last file, but not the folder above it.
    tables["CreateFolder"].add("COMPANYDIR", "module")
    # A build of the same version is replaced as an older one is, with its features' states.
    for row in tables["Upgrade"].rows:
        if row[tables["Upgrade"].columns.index("ActionProperty")] == "WIX_UPGRADE_DETECTED":
            row[tables["Upgrade"].columns.index("Attributes")] = str(MIGRATE_FEATURES | THIS_VERSION_TOO)
    # What a user who may not install says counts, too, where an administrator lets him install this.
    tables["Property"].set("SecureCustomProperties", Value=";".join((
        "WIX_DOWNGRADE_DETECTED", "WIX_UPGRADE_DETECTED", "INSTALLDIR", "LOADCTRLS", "DOMAINSETTINGS")))
    conditions = tables["LaunchCondition"]
    conditions.add('REMOVE~="ALL" OR (LOADCTRLS > 0 AND LOADCTRLS < 32)',
                   "LOADCTRLS is not a number from 1 to 31. The CAD manager's guide says what the numbers mean.")
    if stand_in:
        conditions.add('STANDIN OR REMOVE~="ALL"', "This package holds the module for the stand-in host and is for "
                       "tests alone: AutoCAD cannot load it.")
    # The old version leaves when the new one's files are in place, so that the edited ones are never without an
    # owner, and before the new one is registered, because Wine drops the upgrade code with the old version.
    sequence = tables["InstallExecuteSequence"]
    sequence.add("RemoveFolders", "", 3600)
    sequence.add("CreateFolders", "", 3700)
    sequence.add("InstallExecute", "", 5500)
    sequence.set("RemoveExistingProducts", Sequence=5600)
    for start, actions in ((60, BEFORE), (1010, AFTER)):
        for place, (name, property, value, condition) in enumerate(actions):
            add_action(tables, start + place, name, SET_PROPERTY, property, value.replace("{texts}", texts), condition)
    add_action(tables, 3490, "KeepTexts", CALL_SCRIPT, "texts.js", "keepTexts", "NOT UPGRADINGPRODUCTCODE")
    add_action(tables, 4010, "PutTextsBack", CALL_SCRIPT, "texts.js", "putTextsBack", 'NOT REMOVE~="ALL"')
    # Searches belong to the part that runs with the machine's rights.
    tables["InstallUISequence"].drop("AppSearch", "FindRelatedProducts", "LaunchConditions", "ValidateProductID",
                                     "MigrateFeatureStates")


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


def make(content, target, version, source, seconds, stand_in=False):
    """Writes the package of the files in the folder content; gives its product code.

    source says where they come from; seconds is the time that all of it carries. With stand_in it is for tests:
    it holds a module that only the stand-in host can load, says so, and refuses a machine that is not theirs.
    """
    if not re.fullmatch(r"\d+\.\d+\.\d+", version):
        raise ValueError(f"{version} is no version")
    name, upgrade = STAND_IN if stand_in else FOR_AUTOCAD
    digest = hashlib.sha256(f"{name} {version} {source} {seconds}".encode())
    for path in sorted(path for folder in (content, HERE) for path in folder.rglob("*") if path.is_file()):
        if "__pycache__" not in path.parts:
            digest.update(f"{path.name} {hashlib.sha256(path.read_bytes()).hexdigest()}\n".encode())
    product, package = (str(uuid.uuid5(PACKAGES, f"{what} {digest.hexdigest()}")).upper()
                        for what in ("product", "package"))
    with tempfile.TemporaryDirectory() as temporary:
        folder = pathlib.Path(temporary)
        shutil.copytree(content, folder, dirs_exist_ok=True)
        frame = xml.parse(HERE / "product.wxs")
        programs = add_files(frame, folder)
        for own in ("tabs.ico", "texts.js"):
            shutil.copyfile(HERE / own, folder / own)
        for path in folder.rglob("*"):
            path.chmod(0o755 if path.is_dir() else 0o644)
            os.utime(path, (seconds, seconds))
        frame.write(folder / "product.wxs")
        database = folder / "package.msi"
        variables = {"product": product, "name": name, "version": version, "upgrade": upgrade, "source": source}
        command = ["wixl", *(word for key, value in variables.items() for word in ("-D", f"{key}={value}")),
                   "-o", database, folder / "product.wxs"]
        result = subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if result.returncode != 0:
            raise RuntimeError(f"wixl: {result.stdout}")
        tables = {table: Table(database, table) for table in (
            "AppSearch", "Component", "CreateFolder", "CustomAction", "Feature", "FeatureComponents", "File",
            "InstallExecuteSequence", "InstallUISequence", "LaunchCondition", "MsiFileHash", "Property", "RegLocator",
            "Registry", "Upgrade")}
        texts = "|".join(sorted(path.name for path in (content / "support").iterdir() if path.is_file()))
        complete(tables, version, programs, texts, stand_in)
        add_hosts(tables)
        check_features(tables)
        command = ["msibuild", database]
        for table in tables.values():
            command += ["-i", table.write(folder)]
        subprocess.run(command, check=True)
        subprocess.run(["msibuild", database, "-s", f"{name} {version}", "Zavik", "Intel;1033", f"{{{package}}}"],
                       check=True)
        set_times(database, seconds)
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(database, target)
    return f"{{{product}}}"
