#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""make_jet3.py FOLDER: writes the intact jet3_*.mdb samples and expected_jet3.tsv, from FOLDER/expected.tsv.

A file is laid out once and never changed, so pages are full, tables have no indexes and nothing is ever deleted.
"""
import datetime
import pathlib
import struct
import sys

PAGE = 2048
HEADER_KEY = bytes([0xC7, 0xDA, 0x39, 0x6B])
SYSTEM = -0x80000000  # flag of an object that users do not see
LONGEST_NAME = 255  # bytes of a text

# name: (number of the type, length of its field)
TYPES = {"bool": (1, 1), "byte": (2, 1), "int": (3, 2), "long": (4, 4), "single": (6, 4), "double": (7, 8),
         "date": (8, 8), "bin": (9, 255), "text": (10, 255), "ole": (11, 0), "memo": (12, 0)}
FIXED = {"byte": "<B", "int": "<h", "long": "<i", "single": "<f", "double": "<d", "date": "<d"}

CATALOGUE = [("Id", "long"), ("ParentId", "long"), ("Name", "text"), ("Type", "int"), ("DateCreate", "date"),
             ("DateUpdate", "date"), ("Owner", "bin"), ("Flags", "long"), ("Database", "memo"), ("Connect", "memo"),
             ("ForeignName", "text"), ("RmtInfoShort", "bin"), ("RmtInfoLong", "ole"), ("Lv", "ole"),
             ("LvProp", "ole"), ("LvModule", "ole"), ("LvExtra", "ole")]


def rc4(key, data):
    state = list(range(256))
    j = 0
    for i in range(256):
        j = (j + state[i] + key[i % len(key)]) & 255
        state[i], state[j] = state[j], state[i]
    i = j = 0
    out = bytearray()
    for byte in data:
        i = (i + 1) & 255
        j = (j + state[i]) & 255
        state[i], state[j] = state[j], state[i]
        out.append(byte ^ state[(state[i] + state[j]) & 255])
    return bytes(out)


def pack(kind, value):
    if kind == "date" and not isinstance(value, float):
        value = float((datetime.date(*value) - datetime.date(1899, 12, 30)).days)
    return struct.pack(FIXED[kind], value)


def null_mask(values):
    mask = bytearray((len(values) + 7) // 8)
    for i, value in enumerate(values):
        if value is not None:
            mask[i // 8] |= 1 << (i % 8)
    return bytes(mask)


def row(columns, values, encoding):
    fixed = b""
    variable = []
    for (_, kind, *_), value in zip(columns, values):
        if kind in FIXED:
            fixed += bytes(TYPES[kind][1]) if value is None else pack(kind, value)
        else:
            variable.append(b"" if value is None else value.encode(encoding) if isinstance(value, str) else value)
    start = bytes([len(columns)]) + fixed
    mask = null_mask(values)
    if not variable:
        return start + mask
    offsets = [len(start)]
    for field in variable:
        offsets.append(offsets[-1] + len(field))
    jumps = 0  # the jump table has an entry for every 256 bytes of the row, itself included
    while (offsets[-1] + len(offsets) + jumps + 1 + len(mask) - 1) // 256 > jumps:
        jumps += 1
    table = [next((i for i, offset in enumerate(offsets) if offset >= 256 * (k + 1)), 0xFF) for k in range(jumps)]
    return (start + b"".join(variable) + bytes(offset & 255 for offset in reversed(offsets)) + bytes(reversed(table))
            + bytes([len(variable)]) + mask)


def data_page(table, rows):
    page = bytearray(PAGE)
    at = PAGE
    for i, content in enumerate(rows):
        at -= len(content)
        page[at:at + len(content)] = content
        struct.pack_into("<H", page, 10 + 2 * i, at)
    struct.pack_into("<BBHIH", page, 0, 1, 1, at - 10 - 2 * len(rows), table, len(rows))
    return bytes(page)


class JetFile:
    """One file. `key`: the key of its encrypted pages; 0 if they are not encrypted."""

    def __init__(self, code_page=932, language=0x411, encoding="cp932", key=0, reference_maps=False):
        self.pages = [None, None]
        self.maps = [bytes(5 + 128)]  # row 0: the map of the file itself
        self.code_page = code_page
        self.language = language
        self.encoding = encoding
        self.key = key
        self.reference_maps = reference_maps

    def new_page(self, content=None):
        self.pages.append(content)
        return len(self.pages) - 1

    def data_pages(self, table, rows):
        numbers = []
        waiting = []
        room = PAGE - 10
        for content in rows:
            if len(content) + 2 > room or len(waiting) == 255:
                numbers.append(self.new_page(data_page(table, waiting)))
                waiting = []
                room = PAGE - 10
            waiting.append(content)
            room -= len(content) + 2
        if waiting:
            numbers.append(self.new_page(data_page(table, waiting)))
        return numbers

    def usage_map(self, numbers):
        """Adds a map of pages; returns its row."""
        if self.reference_maps:
            bits = bytearray(PAGE)
            bits[0:2] = b"\x05\x01"
            at = 4
            content = bytearray(1 + 17 * 4)
            content[0] = 1
            struct.pack_into("<I", content, 1, len(self.pages))
        else:
            bits = content = bytearray(5 + 128)
            at = 5
        for number in numbers:
            bits[at + number // 8] |= 1 << (number % 8)
        if self.reference_maps:
            self.new_page(bytes(bits))
        self.maps.append(bytes(content))
        return len(self.maps) - 1

    def define(self, page, columns, row_count, used, free, system=False):
        body = b""
        variable = offset = 0
        for i, (_, kind, *length) in enumerate(columns):
            fixed = kind in FIXED
            text = kind in ("text", "memo")
            body += struct.pack("<BHHHHHHBHH", TYPES[kind][0], i, variable, i, self.language if text else 0,
                                self.code_page if text else 0, 0, (0x10 if system else 0) | (3 if fixed else 2),
                                offset if fixed else 0, length[0] if length else TYPES[kind][1])
            offset += TYPES[kind][1] if fixed else 0
            variable += 0 if fixed else 1
        for name, *_ in columns:
            body += bytes([len(name.encode(self.encoding))]) + name.encode(self.encoding)
        body += b"\xff\xff"
        head = struct.pack("<IIIBHHHIIBBHBBH", 0, row_count, 0, 0x53 if system else 0x4E, len(columns), variable,
                           len(columns), 0, 0, used, 1, 0, free, 1, 0)
        whole = bytearray(b"\x02\x01VC" + struct.pack("<I", 0) + head + body)
        struct.pack_into("<I", whole, 8, len(whole) - 8)
        while True:
            rest = whole[PAGE:]
            following = self.new_page() if rest else 0
            struct.pack_into("<I", whole, 4, following)
            self.pages[page] = bytes(whole[:PAGE].ljust(PAGE, b"\0"))
            if not rest:
                break
            page = following
            whole = bytearray(b"\x02\x01VC" + bytes(4)) + rest

    def add_table(self, page, columns, rows, system=False, row_count=None):
        numbers = self.data_pages(page, rows)
        used = self.usage_map(numbers)
        free = self.usage_map(numbers[-1:])
        self.define(page, columns, len(rows) if row_count is None else row_count, used, free, system)

    def header(self):
        page = bytearray(PAGE)
        page[0:20] = b"\0\1\0\0Standard Jet DB\0"
        masked = bytearray(126)
        struct.pack_into("<HHI", masked, 0x3A - 0x18, self.language, self.code_page, self.key)
        page[0x18:0x18 + 126] = rc4(HEADER_KEY, bytes(masked))
        return bytes(page)

    def build(self, tables, row_counts=None):
        """The bytes of a file with `tables`: (name, columns, rows). `row_counts`: what tables claim to have."""
        self.new_page()  # page 2: the catalogue
        now = 36000.5
        root = 0x0F000000
        objects = []

        def add_object(number, parent, name, kind, flags):
            values = [number, parent, name, kind, now, now, b"\x01\x02", flags] + [None] * 9
            objects.append(row(CATALOGUE, values, self.encoding))

        for number, name in ((1, "Tables"), (2, "Databases"), (3, "Relationships")):
            add_object(root + number, root, name, 3, SYSTEM)
        add_object(2, root + 1, "MSysObjects", 1, SYSTEM)
        for name, columns, rows in tables:
            page = self.new_page()
            self.add_table(page, columns, [row(columns, values, self.encoding) for values in rows],
                           row_count=(row_counts or {}).get(name))
            add_object(page, root + 1, name, 1, 0)
        self.add_table(2, CATALOGUE, objects, system=True)
        self.pages[1] = data_page(0, self.maps)
        self.pages[0] = self.header()
        if self.key:
            self.pages[1:] = [rc4(struct.pack("<I", self.key ^ number), page)
                              for number, page in enumerate(self.pages[1:], 1)]
        return b"".join(self.pages)


def load(tsv, encoding):
    """The rows that the encoding can represent, and their lines of the TSV file."""
    tables = {"Kinenbi": [], "Syukuzitu": [], "Holiday": [], "Halfday": [], "Usuallyday": []}
    lines = []
    for line in tsv.read_text(encoding="utf-8").splitlines():
        fields = line.split("\t")
        if fields[0] in ("Kinenbi", "Syukuzitu"):
            name = fields[1].replace("\\n", "\n")
            try:
                stored = name.encode(encoding)
            except UnicodeEncodeError:
                continue
            if len(stored) > LONGEST_NAME:
                stored = ("長" * (LONGEST_NAME // 2)).encode(encoding)
            name = stored.decode(encoding)
            fields[1] = name.replace("\\", "\\\\").replace("\n", "\\n")
            tables[fields[0]].append([name] + [int(text) for text in fields[2:]])
        else:
            tables[fields[0]].append([tuple(int(text) for text in fields[1].split("-"))])
        lines.append("\t".join(fields))
    return tables, lines


def five_tables(number, rows, without=(), names_behind=()):
    """The five tables, with `number` as the type of their numbers and additional columns before those of Kinenbi."""
    columns = {"Kinenbi": list(names_behind) + [("Name", "text")] + [(name, number) for name in
                                                                     ("Year", "Month", "Day", "Week")],
               "Syukuzitu": [("Name", "text", 50), ("Month", number), ("Day", number)]}
    return [(name, columns.get(name, [("Date", "date")]), rows[name]) for name in rows if name not in without]


def many(count):
    """Anniversaries that follow from their index alone."""
    return [["記念日その%d" % i, 1900 + i % 200 if i % 3 == 0 else 0, 0 if i % 5 == 0 and i % 3 else 1 + i % 12,
             0 if i % 7 == 0 else 1 + i % 28, (1 + i % 5) * 10 + 1 + (i // 5) % 7 if i % 7 == 0 else 0]
            for i in range(count)]


def main():
    folder = pathlib.Path(sys.argv[1])
    rows, lines = load(folder / "expected.tsv", "cp932")
    (folder / "expected_jet3.tsv").write_text("\n".join(lines) + "\n", encoding="utf-8")
    nothing = {name: [] for name in rows}
    more = [("Extra column number %d" % i, "long") for i in range(60)]
    nulls = dict(rows, Kinenbi=rows["Kinenbi"] + [[None, 0, 1, 2, 0], ["年なし", None, None, None, None], [None] * 5,
                                                  ["", 0, 1, 3, 0]],
                 Holiday=rows["Holiday"] + [[None], [36000.75], [-1.25], [-0.5], [-657434.0], [2958465.99]])
    lengths = dict(rows, Kinenbi=[["n" * 255, "x" * i, i, 1, 2, 0] for i in range(256)])
    files = {
        "jet3_full": JetFile().build(five_tables("long", rows)),
        "jet3_full_int16": JetFile().build(five_tables("int", rows)),
        "jet3_full_single": JetFile().build(five_tables("single", rows)),
        "jet3_empty": JetFile().build(five_tables("int", nothing)),
        "jet3_notable": JetFile().build(five_tables("int", rows, without=("Usuallyday",))),
        "jet3_20000": JetFile().build(five_tables("int", dict(rows, Kinenbi=many(20000)))),
        "jet3_cp1252": JetFile(1252, 0x409, "cp1252").build(five_tables(
            "int", dict(rows, Kinenbi=[["café", 0, 1, 2, 0], ["Ünï’s", 0, 1, 3, 0]], Syukuzitu=[["x", 1, 1]]))),
        "jet3_encrypted": JetFile(key=0x5EED1234).build(five_tables("long", rows)),
        "jet3_reference_maps": JetFile(reference_maps=True).build(five_tables("long", rows)),
        "jet3_wide": JetFile().build(five_tables("long", dict(rows, Kinenbi=[
            [7] * len(more) + values for values in rows["Kinenbi"]]), names_behind=more)),
        "jet3_lengths": JetFile().build(five_tables("long", lengths, names_behind=[("Note", "text")])),
        "jet3_nulls": JetFile().build(five_tables("long", nulls)),
        "jet3_wrong_count": JetFile().build(five_tables("long", rows), row_counts={"Holiday": 11}),
    }
    for name, content in files.items():
        (folder / (name + ".mdb")).write_bytes(content)


if __name__ == "__main__":
    main()
