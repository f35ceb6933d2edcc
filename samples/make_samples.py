#!/usr/bin/python3
"""Writes the sample drawings beside this script. Needs ezdxf (tools/install --samples).

The output is a function of this file alone: run twice, it gives the same bytes.
"""
import io
import pathlib

import ezdxf

HERE = pathlib.Path(__file__).resolve().parent
ezdxf.options.write_fixed_meta_data_for_testing = True

# What a summary field is called among the header variables.
SUMMARY = {
    "title": "$TITLE", "subject": "$SUBJECT", "author": "$AUTHOR",
    "keywords": "$KEYWORDS", "comments": "$COMMENTS",
    "last_saved_by": "$LASTSAVEDBY", "revision": "$REVISIONNUMBER",
    "hyperlink_base": "$HYPERLINKBASE",
}
XREF, OVERLAY, RESOLVED = 4, 8, 32


class Drawing:
    """One drawing under construction, saved by save()."""

    def __init__(self, version):
        self.version = version
        self.doc = ezdxf.new(version)
        self.space = self.doc.modelspace()
        self.header = []
        self.xrefs = 0
        self.places = {}

    def summary(self, custom=(), **fields):
        for field, text in fields.items():
            self.header += [("9", SUMMARY[field]), ("1", text)]
        for tag, value in custom:
            self.header += [("9", "$CUSTOMPROPERTYTAG"), ("1", tag),
                            ("9", "$CUSTOMPROPERTY"), ("1", value)]

    def lines(self, *chains, at=None):
        """Each chain of points as lines that hang together, in the drawing or a block."""
        target = self.space if at is None else at
        for chain in chains:
            if self.version == "R12" or len(chain) == 2:
                for start, end in zip(chain, chain[1:]):
                    target.add_line(start, end)
            else:
                target.add_lwpolyline(chain)

    def text(self, text, where, height=10.0, at=None):
        (self.space if at is None else at).add_text(text, dxfattribs={"insert": where, "height": height})

    def block(self, name, *chains):
        block = self.doc.blocks.new(name)
        self.lines(*chains, at=block)
        return block

    def insert(self, name, where, xscale=1.0, yscale=1.0, rotation=0.0):
        return self.space.add_blockref(name, where, {
            "xscale": xscale, "yscale": yscale, "rotation": rotation})

    def axes(self, along_x, along_y, length_x, length_y):
        """Chain-dotted, numbered from the left and lettered from below, with a mark at their ends."""
        dashes = [[(start, 0), (start + length, 0)]
                  for period in range(0, 400, 50) for start, length in ((period, 34), (period + 40, 4))]
        self.block("AXIS", *dashes)
        for number, (x, y) in enumerate(along_x):
            self.insert("AXIS", (x, y), length_y / 400, rotation=90)
            self.mark(str(number + 1), (x, y + length_y + 11))
        for number, (x, y) in enumerate(along_y):
            self.insert("AXIS", (x, y), length_x / 400)
            self.mark("ABCDE"[number], (x - 11, y))

    def mark(self, text, centre):
        self.space.add_circle(centre, 11)
        self.text(text, (centre[0] - 4, centre[1] - 5), 12)

    def dimensions(self, stops, y, unit):
        """A chain of dimensions below a plan; a unit of the sheet is so many millimetres."""
        self.lines([(stops[0] - 6, y), (stops[-1] + 6, y)])
        for x in stops:
            self.lines([(x - 3, y - 3), (x + 3, y + 3)])
        for left, right in zip(stops, stops[1:]):
            self.text(str((right - left) * unit), ((left + right) / 2 - 14, y + 4), 13)

    def border(self, name, tags, title, size=(841, 594)):
        """A sheet's frame and the box at its lower right, with the title's row and one for the rest."""
        width, height = size
        unit = max(size) / 672
        self.text_height = 14 * unit
        block = self.block(name, box(0, 0, width, height),
                           box(0.025 * width, 0.012 * width, 0.988 * width, height - 0.012 * width))
        right, low, row = 0.988 * width, 0.012 * width, 36 * unit
        left = right - 310 * unit
        splits = [left, *[left + 130 * unit, left + 200 * unit][:len(tags) - 2], right]
        for tag, start, end in zip(tags[1:], splits, splits[1:]):
            self.lines(box(start, low, end, low + row), at=block)
            self.places[tag] = (start + 6 * unit, low + 5 * unit)
        self.lines(box(left, low, right, low + 2 * row), box(left, low, right, low + 3 * row), at=block)
        self.places[tags[0]] = (left + 6 * unit, low + row + 5 * unit)
        self.text(title, (left + 6 * unit, low + 2 * row + 11 * unit), 16 * unit, block)
        for tag, (x, y) in self.places.items():
            caption = tag.removeprefix("DWG_").replace("_", " ").rstrip("1").capitalize()
            self.text({"No": "Drawing no."}.get(caption, caption), (x, y + 19 * unit), 10 * unit, block)
            block.add_attdef(tag, (x, y), text="-", dxfattribs={
                "height": self.text_height, "prompt": tag.capitalize()})

    def insert_border(self, name, at, values):
        reference = self.space.add_blockref(name, at)
        for tag, text in values.items():
            x, y = self.places[tag]
            reference.add_attrib(tag, text, (at[0] + x, at[1] + y), dxfattribs={"height": self.text_height})

    def xref(self, name, path, flags=XREF | RESOLVED):
        """Inserted where its name reads as one of a list."""
        self.doc.add_xref_def(path, name, flags)
        self.space.add_blockref(name, (40, 122 - 18 * self.xrefs))
        self.xrefs += 1

    def save(self, path, newline):
        stream = io.StringIO()
        self.doc.write(stream)
        lines = stream.getvalue().split("\n")
        tags = list(zip((code.strip() for code in lines[0::2]), lines[1::2]))
        for name in {name for code, name in self.header if code == "9"}:
            tags = without_variable(tags, name)
        end_of_header = tags.index(("0", "ENDSEC"))
        tags[end_of_header:end_of_header] = self.header
        text = "".join(f"{code:>3}{newline}{value}{newline}" for code, value in tags)
        target = HERE / path
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(text.encode("utf-8" if self.version >= "R2007" else "cp1252"))


def without_variable(tags, name):
    """The tags without a header variable that is about to be given anew."""
    if ("9", name) not in tags:
        return tags
    start = tags.index(("9", name))
    end = next(i for i in range(start + 1, len(tags)) if tags[i][0] in ("9", "0"))
    return tags[:start] + tags[end:]


def box(left, low, right, high):
    return [(left, low), (right, low), (right, high), (left, high), (left, low)]


def faces(corners, openings):
    """The chains that a wall's face falls into where openings (boxes through the wall) break it."""
    chains, chain = [], [corners[0]]
    for (x0, y0), (x1, y1) in zip(corners, corners[1:]):
        along = 0 if y0 == y1 else 1
        start, end, across = (x0, x1, y0) if along == 0 else (y0, y1, x0)
        breaks = sorted(((o[along], o[along + 2]) for o in openings
                         if o[1 - along] <= across <= o[3 - along]
                         and min(start, end) < o[along] and o[along + 2] < max(start, end)), reverse=end < start)
        for low, high in breaks:
            for stop, begins in ((low, False), (high, True)) if start < end else ((high, False), (low, True)):
                point = (stop, across) if along == 0 else (across, stop)
                if begins:
                    chain = [point]
                else:
                    chains.append([*chain, point])
        chain.append((x1, y1))
    # The chain that ends where the first begins goes on with it.
    return [chain[:-1] + chains[0], *chains[1:]] if chains else [chain]


# An office floor, 620 by 300: its rooms, and what breaks their walls.
ROOMS = {
    "Meeting": (10, 170, 160, 290), "Office 1": (166, 170, 290, 290), "Office 2": (296, 170, 420, 290),
    "Office 3": (426, 170, 610, 290), "Corridor": (10, 124, 610, 164), "Reception": (10, 10, 160, 118),
    "Stair": (166, 10, 230, 118), "WC": (236, 10, 290, 118), "Kitchen": (296, 10, 420, 118),
    "Open office": (426, 10, 610, 118),
}
DOORS = [(120, 164), (250, 164), (310, 164), (440, 164), (186, 118), (250, 118), (310, 118), (440, 118)]
WINDOWS = [(30, 290), (90, 290), (203, 290), (333, 290), (450, 290), (530, 290),
           (238, 0), (333, 0), (450, 0), (530, 0)]


def floor(drawing, name, entrance=False):
    """The plan as a block: walls with their openings, doors, windows, a stair."""
    windows = WINDOWS if entrance else [*WINDOWS, (60, 0)]
    doors = [(x, y, x + 24, y + 6) for x, y in DOORS] + [(62, 0, 110, 10)] * entrance
    openings = doors + [(x, y, x + 50, y + 10) for x, y in windows]
    drawing.block("WINDOW", box(0, 0, 50, 10), [(0, 5), (50, 5)])
    drawing.block("DOOR", [(0, 0), (0, 24)]).add_arc((0, 0), 24, 0, 90)
    block = drawing.block(name)
    for corners in (box(0, 0, 620, 300), *(box(*room) for room in ROOMS.values())):
        drawing.lines(*faces(corners, openings), at=block)
    for left, low, right, high in doors:
        drawing.lines([(left, low), (left, high)], [(right, low), (right, high)], at=block)
    for place in windows:
        block.add_blockref("WINDOW", place)
    for x, y in DOORS:
        block.add_blockref("DOOR", (x, y + 6 if y > 140 else y), {"yscale": 1 if y > 140 else -1})
    if entrance:
        block.add_blockref("DOOR", (62, 10))
        block.add_blockref("DOOR", (110, 10), {"xscale": -1})
    treads = [(x, y + 9 * step) for step in range(0, 9, 2) for x, y in ((166, 12), (230, 12), (230, 21), (166, 21))]
    drawing.lines(treads, [(198, 12), (198, 93), (194, 85)], at=block)


def room_names(drawing, where, mirrored=False, height=13):
    for name, (left, low, right, high) in ROOMS.items():
        x, y = (left + right) / 2 + (48 if name == "Corridor" else 0), (low + high) / 2
        if name != "Stair":
            drawing.text(name, (where[0] + (620 - x if mirrored else x) - 0.26 * len(name) * height,
                                where[1] + y - height / 3), height)


XREFS = {
    "Grid": [[(x, 0), (x, 500)] for x in range(0, 801, 200)] + [[(0, y), (800, y)] for y in range(50, 500, 100)],
    "Survey": [[(x, y + 40 * (x // 200 % 3)) for x in range(0, 801, 200)] for y in range(0, 401, 100)],
    "Services": [[(0, 100), (300, 100), (300, 400), (800, 400)], box(290, 90, 310, 110), box(290, 390, 310, 410)],
}
SHEET = ["DWG_TITLE", "DWG_NO", "DWG_REV", "DRAWN_BY"]


def sheet(title, number, revision, drawn_by):
    return dict(zip(SHEET, [title, number, revision, drawn_by]))


def riverside():
    folder = "Projects/Riverside/Drawings/"
    project = "Riverside Quarter, phase 1"

    # Dots in the base name; every kind of block and of external reference.
    drawing = Drawing("R2010")
    floor(drawing, "GROUND_FLOOR", entrance=True)
    drawing.insert("GROUND_FLOOR", (120, 200))
    room_names(drawing, (120, 200))
    drawing.axes([(x, 175) for x in (125, 283, 413, 543, 735)], [(80, y) for y in (205, 321, 367, 495)], 680, 350)
    drawing.dimensions([125, 283, 413, 543, 735], 156, 50)
    column = drawing.doc.blocks.new_anonymous_block()
    column.add_circle((0, 0), 4)
    for x in (172, 240):
        drawing.space.add_blockref(column.name, (x, 180))
    drawing.lines([(164, 200), (164, 172), (248, 172), (248, 200)])
    drawing.text("External references", (40, 140), 12)
    drawing.xref("Grid", "..\\Xrefs\\Grid.dwg")
    drawing.xref("Survey", "..\\Xrefs\\Survey.dwg")
    drawing.xref("Landscape", "P:\\Riverside\\Xrefs\\Landscape.dwg")
    drawing.xref("Services", "..\\Xrefs\\Services.dwg", XREF | OVERLAY | RESOLVED)
    drawing.xref("Traffic", "..\\Xrefs\\Traffic.dwg", XREF)
    for row, note in enumerate(["Notes", "1. Dimensions in millimetres.", "2. Levels in metres.",
                                "3. Do not scale.", "4. Floor level +12.40."]):
        drawing.text(note, (175, 122 - 18 * row), 13)
    drawing.space.add_circle((402, 70), 26)
    drawing.lines([(402, 44), (390, 58), (402, 96), (414, 58), (402, 44)])
    drawing.text("N", (397, 104), 14)
    drawing.border("RIVER_A1", SHEET, project)
    drawing.insert_border("RIVER_A1", (0, 0), sheet("Ground floor – general arrangement", "A-100", "2", "KM"))
    drawing.summary(title="Not shown: the sheet has a title block", author="K. Meier")
    drawing.save(folder + "A-100.rev2.dwg", "\r\n")

    # The border twice: the first insert counts. All summary fields.
    drawing = Drawing("R2004")
    floor(drawing, "FIRST_FLOOR")
    for left, mirrored in ((110, False), (1010, True)):
        drawing.insert("FIRST_FLOOR", (left + 620 * mirrored, 200), xscale=-1 if mirrored else 1)
        room_names(drawing, (left, 200), mirrored, 20)
    drawing.border("RIVER_A1", SHEET, project)
    drawing.insert_border("RIVER_A1", (0, 0), sheet("First floor, east", "A-101", "0", "KM"))
    drawing.insert_border("RIVER_A1", (900, 0), sheet("First floor, west", "A-102", "B", "JP"))
    drawing.summary(
        title="First floor", subject="General arrangement", author="K. Meier",
        keywords="plan, first floor", comments="Two sheets in one drawing",
        last_saved_by="kmeier", revision="4", hyperlink_base="http://projects.example/riverside/",
        custom=[("Scale", "1:100"), ("Checked", "JP"), ("Client ref", "RQ/7")])
    drawing.save(folder + "A-101.dwg", "\n")

    # A name and values outside ASCII; a border that only the office defines.
    drawing = Drawing("R2000")
    corner_house = [(130, 215), (300, 215), (300, 270), (260, 270), (260, 235), (130, 235), (130, 215)]
    for number, corners in enumerate([box(60, 150, 150, 195), box(170, 150, 300, 195), box(60, 215, 110, 270),
                                      corner_house]):
        ridge = (corners[0][1] + corners[2][1]) / 2 + (8 if number == 3 else 0)
        drawing.lines(corners, [(corners[0][0] + (130 if number == 3 else 0), ridge), (corners[1][0], ridge)])
        drawing.text(f"Haus {number + 1}", (corners[0][0] + 4, corners[0][1] + 5), 7)
    drawing.lines([(20, 130), (400, 130)], [(20, 108), (400, 108)], [(20, 135), (400, 135)],
                  [(325, 135), (325, 280)], [(345, 135), (345, 280)], [(350, 135), (350, 280)])
    drawing.text("Uferstraße", (180, 116), 8)
    for step in range(9):
        drawing.space.add_circle((70 + 28 * step, 142), 4)
        drawing.space.add_circle((366, 145 + 15 * step), 5)
    drawing.lines(*([(10.5 + 30 * x, low - 3 * (x % 3)) for x in range(14)] for low in (98, 84)))
    drawing.text("Fluss", (96, 86), 8)
    drawing.border("OFFICE_A3", ["ZEICHNUNG", "BLATT"], project, (420, 297))
    drawing.insert_border("OFFICE_A3", (0, 0), {"ZEICHNUNG": "Grundriß Süd – Übersicht", "BLATT": "GR-1"})
    drawing.save(folder + "Grundriß-Süd.dwg", "\r\n")

    # As a new drawing looks: no title block, no title.
    drawing = Drawing("R2004")
    drawing.lines(box(0, 0, 100, 100))
    drawing.save(folder + "Drawing1.dwg", "\n")

    for name in XREFS:
        drawing = Drawing("R12")
        drawing.lines(*XREFS[name])
        drawing.save(f"Projects/Riverside/Xrefs/{name}.dwg", "\n")


def section(drawing, title, number):
    """A platform with its track, columns and roof."""
    ground, platform = 235, 295
    drawing.lines([(60, ground), (330, ground), (330, platform - 12), (322, platform - 12), (322, platform),
                   (780, platform), (780, ground - 20), (330, ground - 20), (330, ground)],
                  [(322, platform - 12), (780, platform - 12)])
    for x in (130, 225):
        drawing.lines(box(x, ground + 6, x + 6, ground + 20), box(x - 3, ground + 20, x + 9, ground + 25))
    drawing.lines(box(95, ground, 265, ground + 6))
    for x in range(60, 330, 18):
        drawing.lines([(x, ground), (x - 10, ground - 10)])
    drawing.block("COLUMN", box(-6, 0, 6, 203), box(-14, 0, 14, 8), [(-6, 150), (-60, 207)], [(6, 150), (60, 199)])
    drawing.insert("COLUMN", (450, platform))
    drawing.insert("COLUMN", (640, platform), xscale=-1)
    roof = platform + 212
    drawing.lines([(340, roof), (545, roof - 16), (750, roof), (750, roof + 12), (545, roof - 4), (340, roof + 12),
                   (340, roof)], [(340, roof + 12), (340, roof + 18), (352, roof + 18), (352, roof + 11)])
    drawing.dimensions([322, 450, 640, 780], 185, 20)
    for level, y in (("+0.96", platform), ("+0.00", ground)):
        drawing.lines([(40, y), (58, y)], [(44, y + 10), (49, y), (54, y + 10), (44, y + 10)])
        drawing.text(level, (36, y + 14), 12)
    for text, where, to in (("Canopy, see D-300", (600, roof + 50), (560, roof)),
                            ("Platform 2", (690, platform + 35), (720, platform - 6)),
                            ("Track 3", (160, platform + 20), (180, ground + 6))):
        drawing.text(text, where, 14)
        drawing.lines([to, (where[0] - 4, where[1] + 4)])
    drawing.border("STN_SHEET", ["TITLE1", "NUMBER"], "Station, Platform 2")
    drawing.insert_border("STN_SHEET", (0, 0), {"TITLE1": title, "NUMBER": number})


def station():
    folder = "Projects/Station/Drawings/"

    drawing = Drawing("R12")
    section(drawing, "Platform 2, section", "S-200")
    drawing.save(folder + "S-200.dwg", "\r\n")

    # Copies of the samples make this one read-only.
    drawing = Drawing("R2004")
    section(drawing, "Platform 2, as issued", "S-201")
    drawing.summary(title="Issued copy", custom=[("Issue", "C1")])
    drawing.save(folder + "S-201 issued.dwg", "\n")

    # A title, but no title block; its folder has texts of its own.
    drawing = Drawing("R2010")
    drawing.lines([(0, 40), (90, 33), (90, 38), (0, 45), (0, 40)], box(4, 4, 10, 36),
                  [(90, 20), (96, 20), (96, 40), (90, 38)],
                  [(90, 22), (70, 22), (70, 34), (72, 34), (72, 24), (88, 24), (88, 33)],
                  [(0, 4), (90, 4), (90, 8), (10, 8)])
    bolt = drawing.doc.blocks.new_anonymous_block()
    bolt.add_circle((0, 0), 1)
    drawing.lines([(-1.5, 0), (1.5, 0)], [(0, -1.5), (0, 1.5)], at=bolt)
    for y in (12, 20, 28):
        drawing.space.add_blockref(bolt.name, (7, y))
    for text, where, to in (("Aluminium fascia", (102, 42), (96, 36)), ("Gutter, fall 1:100", (102, 28), (80, 24)),
                            ("Soffit board", (102, 10), (90, 6)), ("Bolts M16", (22, 16), (7, 20))):
        drawing.text(text, where, 3)
        drawing.lines([(where[0] - 1, where[1] + 1), to])
    drawing.text("Canopy detail, 1:5", (0, -8), 4)
    drawing.lines(box(-8, -14, 140, 60))
    drawing.summary(title="Canopy detail – gutter and fascia", author="J. Patel")
    drawing.save(folder + "Details/D-300.dwg", "\n")


def outside_projects():
    drawing = Drawing("R2000")
    drawing.lines(box(30, 80, 180, 270), *([(x, y), (x + 45, y)] for x in (30, 135) for y in range(100, 261, 20)))
    car = drawing.block("CAR", [(0, 3), (3, 0), (31, 0), (35, 4), (35, 10), (31, 14), (3, 14), (0, 11), (0, 3)],
                        box(9, 2, 25, 12))
    for x, y in ((35, 83), (35, 123), (35, 203), (140, 103), (140, 183), (140, 243)):
        drawing.insert(car.name, (x, y))
    drawing.lines([(105, 90), (105, 130), (101, 122)], [(105, 130), (109, 122)])
    drawing.text("In", (95, 84), 7)
    drawing.border("STANDARD_A4", ["TITLE", "DRAWN"], "Sketch", (210, 297))
    drawing.insert_border("STANDARD_A4", (0, 0), {"TITLE": "Car park sketch", "DRAWN": "JP"})
    drawing.save("Sketches/Sketch.dwg", "\r\n")


riverside()
station()
outside_projects()
