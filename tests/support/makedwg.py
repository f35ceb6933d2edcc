#!/usr/bin/python3
"""Writes small binary drawings for tests, R2000, R2004 and 2007, with no more in them than a reader for
tabs reads: no CAD system opens them.

    makedwg.py FOLDER      writes made_2000.dwg and so on, and with more in it large, 60 KB, and overlapping
"""
import pathlib
import struct
import sys


def bits(value, count):
    return format(value, f"0{count}b")


def raw(layout, *values):
    return "".join(bits(byte, 8) for byte in struct.pack("<" + layout, *values))


def number(value, layout):
    """BS or BL, by the layout of the long form."""
    return "10" if value == 0 else "01" + bits(value, 8) if value < 256 else "00" + raw(layout, value)


def double(*values):
    return "".join({0.0: "10", 1.0: "01"}.get(v) or "00" + raw("d", v) for v in values)


def handle(code, value):
    data = value.to_bytes((value.bit_length() + 7) // 8, "big")
    return bits(code, 4) + bits(len(data), 4) + "".join(bits(byte, 8) for byte in data)


def modular(value, sign):
    """MC where there is a sign, else UMC."""
    out, last, rest = b"", 0x40 if sign else 0x80, abs(value)
    while rest >= last:
        out, rest = out + bytes([rest & 0x7F | 0x80]), rest >> 7
    return out + bytes([rest | (0x40 if sign and value < 0 else 0)])


def packed(data):
    """All of it as one run of literals."""
    more = len(data) - 18
    head = bytes([len(data) - 3]) if more <= 0 else bytes(1 + (more - 1) // 255) + bytes([(more - 1) % 255 + 1])
    return head + data + b"\x11\0\0"


# What is in model space: references, each to a block by its place in the list, and how.
MODEL = [(3, dict(colour=0xA005, columns=3)), (2, dict(damaged=True)), (4, dict(invisible=1, colour=0x4000))]
# In its own fields one ends too early. A last block with "e" has what is in it once more.
BLOCKS = [  # name; dependent, anonymous, with attributes, xref, overlay, unloaded; path; references
    ("*Paper_Space", "", "", [(2, dict(attributes=[("TITLE", "Plan^A"), ("AUTHOR", "J\u00f6rg" + 2100 * "g")])), (2, {})]),
    ("BORDER", "t", "", []),
    ("GRID", "x", "..\\grid.dwg", []),
    ("SITE", "xo", "C:\\jobs\\site.dwg", []),
    ("OLD", "xu", "old.dwg", []),
    ("GRID|LAMP", "d", "no reference", []),
    ("*Paper_Space", "e", "", [(2, {}), (5, {})]),
    ("*D7", "a", "", []),
    ("*U", "a", "", []),
]
SUMMARY = ["Titel", "s", "\u00c4", "k", "a\r\nb", "me", "3", "http://x"]
CUSTOM = [("Client", "A = B"), ("Empty", "")]


class Drawing:
    def __init__(self, year, model):
        self.year, self.late, self.objects, self.last = year, year >= 2004, {}, 0x100
        self.strings = ""  # of the object that is being made; from 2007 on they have a stream of their own
        self.object(0x10, 0x33, self.text("Frame"), 2)
        blocks = [("*Model_Space", "", "", model), *BLOCKS]
        self.records = [0x1F, 0x1B, *(self.new() for _ in blocks[2:])]
        entities = [[self.new() for _ in inserts] for *_, inserts in blocks]
        references = [[] for _ in blocks]
        for k, (_, flags, _, inserts) in enumerate(blocks):
            after = [*entities[k][1:], entities[k][0] if "e" in flags else 0]
            for own, (block, how), *links in zip(entities[k], inserts, [0, *entities[k]], after):
                references[block].append(own)
                self.insert(own, max(2 - k, 0), self.records[k], links, block, **how)
        for record, (name, flags, path, _), *lists in zip(self.records, blocks, entities, references):
            self.record(record, name, flags, path, *lists)
        listed = [*self.records[2:-1], 0, 0, self.records[-1]]  # two were deleted
        self.object(1, 0x30, number(len(listed), "I"), 0, *(handle(2, record) for record in listed),
                    handle(3, 0x1F), handle(3, 0x1B))
        if not self.late:
            self.properties()

    def new(self):
        self.last += 1
        return self.last

    def text(self, value):
        if self.year < 2007:
            data = value.encode("cp1252") + b"\0" if value else b""
            return number(len(data), "H") + raw(f"{len(data)}s", data)
        self.strings += number(len(value), "H") + raw(f"{2 * len(value)}s", value.encode("utf-16le"))
        return ""

    def add(self, own, kind, data, *references):
        head = number(kind, "H")
        body = handle(0, own) + "10" + data
        if self.year == 2007:
            size, strings, self.strings = len(self.strings), self.strings, ""
            length = raw("H", size) if size < 0x8000 else raw("2H", size >> 15, size & 0x7FFF | 0x8000)
            body += strings + length + "1" if size else "0"
        all_bits = head + raw("I", len(head) + 32 + len(body)) + body + "".join(references)
        all_bits += "0" * (-len(all_bits) % 8)
        body = int("1" + all_bits, 2).to_bytes(len(all_bits) // 8 + 1, "big")[1:]
        self.objects[own] = struct.pack("<H", len(body)) + body + b"\0\0"  # without a checksum

    def object(self, own, kind, data, owner, *references):
        self.add(own, kind, "10" + "1" * self.late + data, handle(4, owner), handle(3, 0) * (not self.late), *references)

    def entity(self, mode, owner, links, invisible=0, colour=0):
        colour *= self.late
        data = "0" + bits(mode, 2) + "10" + "01"[self.late] + number(colour, "H")
        data += ("01" + bits(7, 8)) * (colour & 0xC000 == 0x8000) + "10" * (colour & 0x2000 != 0)
        data += double(1.0) + "1100" + ("11" + bits(0, 8)) * (self.year == 2007) + number(invisible, "H") + bits(29, 8)
        references = handle(4, owner) * (mode == 0)
        if not self.late:
            references += handle(3, 0) + handle(4, links[0]) + handle(4, links[1])
        references += handle(5, 1) * (colour & 0x4000 != 0) + handle(5, 0x10) + handle(5, 1)
        return data, references + handle(5, 1) * (self.year == 2007)

    def insert(self, own, mode, record, links, block, attributes=(), columns=0, damaged=False, **how):
        chain = [self.new() for _ in attributes]
        data, references = self.entity(mode, record, links, **how)
        data += double(1.5, 2.0, 0.0) + "0111" + raw("d", 2.0) + "00" + double(0.0, 0.0, 0.0, 1.0)
        data += ("1" + number(len(chain), "I") * self.late) if chain else "0"
        if columns:
            data += number(columns, "H") + number(2, "H") + double(5.0, 6.0)
        self.add(own, 8 if columns else 7, data[:-100] if damaged else data, references, handle(5, self.records[block]),
                 *(handle(3, at) for at in (chain if self.late else chain[:1] + chain[-1:])))
        for at, (tag, value), *near in zip(chain, attributes, [0, *chain], [*chain[1:], 0]):
            data, references = self.entity(0, own, near)
            self.add(at, 2, data + bits(0xFF, 8) + raw("2d", 1.5, 2.0) + "11" + raw("d", 2.5) + self.text(value)
                     + self.text(tag) + "10" + bits(1, 8), references, handle(5, 0x11))

    def record(self, own, name, flags, path, entities, references):
        data = self.text(name)
        data += ("11" if "d" in flags else "10") if self.year == 2007 else "110"
        data += "".join("01"[flag in flags] for flag in "datxou"[self.year == 2007:])
        if self.late and "x" not in flags:
            data += number(len(entities) + bool(entities), "I")
        data += double(0.0, 7.0, 0.0) + self.text(path) + bits(1, 8) * len(references) + bits(0, 8)
        listed = [*entities, *entities[:1]]
        if not self.late and "x" not in flags:
            listed = [entities[0], 0x999 if "e" in flags else entities[-1]] if entities else [0, 0]
        self.object(own, 0x31, data + self.text("") + "10", 1, handle(5, 0), handle(3, 1),
                    *(handle(4, e) for e in listed), handle(3, 1), *(handle(4, e) for e in references), handle(5, 0))

    def properties(self):
        names = number(1, "I") + "10" + bits(0, 8) + self.text("DWGPROPS")
        self.object(0x0B, 0x2A, names, 0x0C, handle(2, 0x10))  # not the drawing's own
        self.object(0x0C, 0x2A, names, 0, handle(2, 0x0D))
        items = [(1, "DWGPROPS COOKIE"), *zip((2, 3, 4, 7, 6, 8, 9), SUMMARY),
                 *((300 + k, "=".join(pair)) for k, pair in enumerate(CUSTOM)), (1, SUMMARY[7])]
        body = struct.pack("<HdHIH3d", 40, 0.5, 90, 1, 10, 1, 2, 3)
        body += b"".join(struct.pack("<HHB", code, len(value), 30) + value.encode("cp1252") for code, value in items)
        self.object(0x0D, 0x4F, number(len(body), "I") + raw(f"{len(body)}s", body), 0x0C)

    def layout(self, start):
        """The objects, and the map of them, as from that offset on."""
        body, page, last = b"", b"", (0, 0)
        for own in sorted(self.objects):
            now = own, start + len(body)
            page += modular(now[0] - last[0], False) + modular(now[1] - last[1], True)
            last, body = now, body + self.objects[own]
        return body, struct.pack(">H", len(page) + 2) + page + b"\0\0" + b"\0\2\0\0"

    def bytes(self):
        return {2000: self.plain_file, 2004: self.paged_file, 2007: self.woven_file}[self.year]()

    def plain_file(self):
        body, table = self.layout(0x100)
        head = b"AC1015" + bytes(13) + struct.pack("<HIBII", 30, 1, 2, 0x100 + len(body), len(table))
        return head.ljust(0x100, b"\0") + body + table

    def sections(self):
        def string(value):
            return struct.pack("<H", len(value) + 1) + (value + "\0").encode("cp1252" if self.year < 2007 else "utf-16le")
        info = b"".join(map(string, SUMMARY)) + bytes(24) + struct.pack("<H", len(CUSTOM))
        info += b"".join(string(key) + string(value) for key, value in CUSTOM) + bytes(8)
        body, table = self.layout(0)
        return ("SummaryInfo", info, 1), ("AcDbObjects", body, 2), ("Handles", table, 2)

    def paged_file(self):
        out, pages, described = bytearray(0x100), [], b""

        def page(data):
            pages.append((len(pages) + 1, len(data)))
            out.extend(data)
            return len(pages)

        def system(tag, data):
            return struct.pack("<5I", tag, len(data), len(packed(data)), 2, 0) + packed(data)
        for name, data, how in self.sections():
            parts, room = b"", 0x400
            for start in range(0, len(data), room):
                piece = data[start:start + room].ljust(room if how == 2 else 0, b"\0")
                stored = packed(piece) if how == 2 else piece
                head = struct.pack("<8I", *(x ^ 0x4164536B ^ len(out) for x in (0x4163043B, 1, len(stored), room, start, 0, 0, 0)))
                parts += struct.pack("<IIQ", page(head + stored), len(stored), start)
            described += struct.pack("<Q6I64s", len(data), len(parts) // 16, room, 1, how, 1, 0, b"AcDb:" + name.encode()) + parts
        number_of_map = page(system(0x4163003B, struct.pack("<5I", 3, 2, 0x7400, 0, 3) + described))
        address = len(out) - 0x100
        gap = struct.pack("<iI16s", -1, 0, bytes(range(16)))
        out += system(0x41630E3B, gap + b"".join(struct.pack("<iI", *entry) for entry in pages))
        plain = bytearray(b"AcFssFcAJMB".ljust(0x54, b"\0") + struct.pack("<QI", address, number_of_map).ljust(0x18, b"\0"))
        seed = 1
        for k, byte in enumerate(plain):
            seed = (seed * 0x343FD + 0x269EC3) & 0xFFFFFFFF
            out[0x80 + k] = byte ^ seed >> 16 & 0xFF
        out[:6], out[0x13:0x15] = b"AC1018", struct.pack("<H", 30)
        return bytes(out)

    def woven_file(self):
        """Nothing is packed; the summary's pages are not woven."""
        def woven(data, of_block, blocks):
            data = data.ljust(of_block * blocks, b"\0")
            parts = [data[k * of_block:(k + 1) * of_block].ljust(255, b"\0") for k in range(blocks)]
            return bytes(part[k] for k in range(255) for part in parts)
        out, pages, described, numbers = b"", b"", b"", [0] * 34

        def page(number, data):
            nonlocal out, pages
            pages += struct.pack("<Qq", len(data), number)
            out += data
        for number, (name, data, how) in enumerate(self.sections(), 1):
            blocks, name = ((len(data) + 7) // 8 * 8 + 250) // 251, "AcDb:" + name
            page(number, woven(data, 251, blocks) if how == 2 else data)
            described += struct.pack("<8Q", len(data), 0x7400, 0, 0, 2 * len(name), 0, 4 if how == 2 else 1, 1)
            described += name.encode("utf-16le") + struct.pack("<7Q", 0, 0, number, len(data), len(data), 0, 0)
        page(-1, bytes(32))

        def system(data):
            return woven(data, 239, ((len(data) + 7) // 8 * 8 * 2 + 238) // 239)
        page(4, system(described))
        numbers[22] = numbers[25] = len(described)
        numbers[7], numbers[10], numbers[11] = len(out), len(pages), len(pages)
        numbers[3], numbers[24], numbers[27] = 2, 4, 2
        header = woven(struct.pack("<24xi4x34Q", -1, *numbers), 239, 3)
        return (b"AC1021".ljust(0x80, b"\0") + header).ljust(0x480, b"\0") + out + system(pages)


if __name__ == "__main__":
    folder = pathlib.Path(sys.argv[1])
    for year in (2000, 2004, 2007):
        (folder / f"made_{year}.dwg").write_bytes(Drawing(year, MODEL).bytes())
    large = bytearray(Drawing(2000, [(2, dict(attributes=[("NUMBER", "A-101"), ("DATE", "2005-01-31")]))] * 285).bytes())
    (folder / "large").write_bytes(large)
    # Each object says that it goes on as far as it can.
    at, (end,) = 0x100, struct.unpack_from("<I", large, 0x1A)
    while at < end:
        after = at + struct.unpack_from("<H", large, at)[0] + 4
        struct.pack_into("<H", large, at, min(0x7FFF, len(large) - at - 2))
        at = after
    (folder / "overlapping").write_bytes(large)
