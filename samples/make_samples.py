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

    def summary(self, custom=(), **fields):
        for field, text in fields.items():
            self.header += [("9", SUMMARY[field]), ("1", text)]
        for tag, value in custom:
            self.header += [("9", "$CUSTOMPROPERTYTAG"), ("1", tag),
                            ("9", "$CUSTOMPROPERTY"), ("1", value)]

    def outline(self, width, height):
        corners = [(0, 0), (width, 0), (width, height), (0, height)]
        for start, end in zip(corners, corners[1:] + corners[:1]):
            self.space.add_line(start, end)

    def block(self, name, width, height):
        block = self.doc.blocks.new(name)
        block.add_line((0, 0), (width, height))
        block.add_line((0, height), (width, 0))
        self.space.add_blockref(name, (width, height))

    def anonymous_block(self):
        block = self.doc.blocks.new_anonymous_block()
        block.add_circle((0, 0), 1)
        self.space.add_blockref(block.name, (5, 5))

    def border(self, name, tags):
        block = self.doc.blocks.new(name)
        for start, end in [((0, 0), (841, 0)), ((841, 0), (841, 594)),
                           ((841, 594), (0, 594)), ((0, 594), (0, 0))]:
            block.add_line(start, end)
        for row, tag in enumerate(tags):
            block.add_attdef(tag, (650, 20 + 10 * row), text="-", dxfattribs={
                "height": 5, "prompt": tag.capitalize()})

    def insert_border(self, name, at, values):
        reference = self.space.add_blockref(name, at)
        for row, (tag, text) in enumerate(values.items()):
            reference.add_attrib(tag, text, (at[0] + 650, at[1] + 20 + 10 * row),
                                 dxfattribs={"height": 5})

    def xref(self, name, path, flags=XREF | RESOLVED):
        self.doc.add_xref_def(path, name, flags)
        self.space.add_blockref(name, (0, 0))

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


SHEET = ["DWG_TITLE", "DWG_NO", "DWG_REV", "DRAWN_BY"]


def sheet(title, number, revision, drawn_by):
    return dict(zip(SHEET, [title, number, revision, drawn_by]))


def riverside():
    folder = "Projects/Riverside/Drawings/"

    # Dots in the base name; every kind of block and of external reference.
    drawing = Drawing("R2010")
    drawing.outline(800, 500)
    drawing.block("DOOR", 9, 20)
    drawing.anonymous_block()
    drawing.xref("Grid", "..\\Xrefs\\Grid.dwg")
    drawing.xref("Survey", "..\\Xrefs\\Survey.dwg")
    drawing.xref("Landscape", "P:\\Riverside\\Xrefs\\Landscape.dwg")
    drawing.xref("Services", "..\\Xrefs\\Services.dwg", XREF | OVERLAY | RESOLVED)
    drawing.xref("Traffic", "..\\Xrefs\\Traffic.dwg", XREF)
    drawing.border("RIVER_A1", SHEET)
    drawing.insert_border("RIVER_A1", (0, 0), sheet("Ground floor – general arrangement", "A-100", "2", "KM"))
    drawing.summary(title="Not shown: the sheet has a title block", author="K. Meier")
    drawing.save(folder + "A-100.rev2.dwg", "\r\n")

    # The border twice: the first insert counts. All summary fields.
    drawing = Drawing("R2004")
    drawing.outline(400, 300)
    drawing.border("RIVER_A1", SHEET)
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
    drawing.outline(600, 400)
    drawing.border("OFFICE_A3", ["ZEICHNUNG", "BLATT"])
    drawing.insert_border("OFFICE_A3", (0, 0), {"ZEICHNUNG": "Grundriß Süd – Übersicht", "BLATT": "GR-1"})
    drawing.save(folder + "Grundriß-Süd.dwg", "\r\n")

    # As a new drawing looks: no title block, no title.
    drawing = Drawing("R2004")
    drawing.outline(100, 100)
    drawing.save(folder + "Drawing1.dwg", "\n")

    for name in ("Grid", "Survey", "Services"):
        drawing = Drawing("R12")
        for step in range(0, 801, 200):
            drawing.space.add_line((step, 0), (step, 500))
        drawing.save(f"Projects/Riverside/Xrefs/{name}.dwg", "\n")


def station():
    folder = "Projects/Station/Drawings/"
    tags = ["TITLE1", "NUMBER"]

    drawing = Drawing("R12")
    drawing.outline(500, 200)
    drawing.block("COLUMN", 4, 4)
    drawing.border("STN_SHEET", tags)
    drawing.insert_border("STN_SHEET", (0, 0), {"TITLE1": "Platform 2, section", "NUMBER": "S-200"})
    drawing.save(folder + "S-200.dwg", "\r\n")

    # Copies of the samples make this one read-only.
    drawing = Drawing("R2004")
    drawing.outline(500, 200)
    drawing.border("STN_SHEET", tags)
    drawing.insert_border("STN_SHEET", (0, 0), {"TITLE1": "Platform 2, as issued", "NUMBER": "S-201"})
    drawing.summary(title="Issued copy", custom=[("Issue", "C1")])
    drawing.save(folder + "S-201 issued.dwg", "\n")

    # A title, but no title block; its folder has texts of its own.
    drawing = Drawing("R2010")
    drawing.outline(50, 50)
    drawing.anonymous_block()
    drawing.summary(title="Canopy detail – gutter and fascia", author="J. Patel")
    drawing.save(folder + "Details/D-300.dwg", "\n")


def outside_projects():
    drawing = Drawing("R2000")
    drawing.outline(210, 297)
    drawing.border("STANDARD_A4", ["TITLE", "DRAWN"])
    drawing.insert_border("STANDARD_A4", (0, 0), {"TITLE": "Car park sketch", "DRAWN": "JP"})
    drawing.save("Sketches/Sketch.dwg", "\r\n")


riverside()
station()
outside_projects()
