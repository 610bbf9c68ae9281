"""Reads the commands of PCL 5 and PCL XL that tell a printer paper, tray and sides."""

import dataclasses
import re
import struct

UEL = b"\x1b%-12345X"
COMMAND = re.compile(rb"\x1b([!-/])([`-~])?")
FIELD = re.compile(rb"([-+]?\d*\.?\d*)([@-~])")
DATA_COMMANDS = {"*bW", "*bV", "&pX", ")sW", "(sW", "*vW", "*cW", "&nW", "*gW", "*mW", "*oW", "*iW", "&bW", "*lW"}

XL_HEADER = re.compile(rb"[)(`] HP-PCL XL;\d;\d[^\n]*\n")
XL_TYPES = {0: ("B", 1), 1: ("H", 2), 2: ("I", 4), 3: ("h", 2), 4: ("i", 4), 5: ("f", 4)}
XL_BEGIN_PAGE, XL_END_PAGE = 0x43, 0x44
XL_NAMES = {0x25: "MediaSize", 0x26: "MediaSource", 0x27: "MediaType", 0x28: "Orientation", 0x2F: "CustomMediaSize",
            0x30: "CustomMediaSizeUnits", 0x34: "SimplexPageMode", 0x35: "DuplexPageMode", 0x36: "DuplexPageSide",
            0x2A: "PageOrigin"}


@dataclasses.dataclass
class Stream:
    """Commands in order, as pairs like ("&lH", 4); a page's end is ("FF", 0)."""
    commands: list

    def last(self, name):
        """The value that stands at the first page's end, None if it was never given."""
        found = None
        for command, value in self.commands:
            if command == "FF" or (command == "E" and found is not None):
                break
            found = value if command == name else found
        return found

    def pages(self):
        return sum(command == "FF" for command, _ in self.commands)


def read_pcl5(data):
    """Everything behind the job language; raster and font data are skipped."""
    at = data.find(b"\x1bE")
    commands = []
    while 0 <= at < len(data):
        if data.startswith(UEL, at):
            break
        if data[at] != 0x1b:
            if data[at] == 0x0c:
                commands.append(("FF", 0))
            at += 1
            continue
        match = COMMAND.match(data, at)
        if match is None:
            commands.append((chr(data[at + 1]) if at + 1 < len(data) else "", 0))
            at += 2
            continue
        group = (match[1] + (match[2] or b"")).decode("ascii")
        at = match.end()
        while True:
            field = FIELD.match(data, at)
            if field is None:
                break
            at = field.end()
            value = float(field[1]) if field[1] not in (b"", b"+", b"-", b".") else 0
            name = group + field[2].decode("ascii").upper()
            commands.append((name, value))
            if name in DATA_COMMANDS:
                at += int(value)
            if field[2].isupper() or field[2] == b"@":
                break
    return Stream(commands)


def read_xl(data):
    """For each page what BeginPage is given, by name."""
    header = XL_HEADER.search(data)
    if header is None:
        return []
    order = ">" if header[0][:1] == b"(" else "<"
    at = header.end()
    pages, given, pending = [], {}, None
    while at < len(data):
        tag = data[at]
        at += 1
        if 0xC0 <= tag <= 0xC5:
            code, size = XL_TYPES[tag & 7]
            pending = struct.unpack_from(order + code, data, at)[0]
            at += size
        elif 0xC8 <= tag <= 0xCD:
            code, size = XL_TYPES[tag & 7]
            wide = data[at] == 0xC1
            count = struct.unpack_from(order + ("H" if wide else "B"), data, at + 1)[0]
            at += 3 if wide else 2
            pending = struct.unpack_from(f"{order}{count}{code}", data, at)
            at += count * size
        elif 0xD0 <= tag <= 0xD5 or 0xE0 <= tag <= 0xE5:
            code, size = XL_TYPES[tag & 7]
            count = 2 if tag < 0xE0 else 4
            pending = struct.unpack_from(f"{order}{count}{code}", data, at)
            at += count * size
        elif tag == 0xF8:
            given[data[at]] = pending
            at += 1
        elif tag == 0xF9:
            given[struct.unpack_from(order + "H", data, at)[0]] = pending
            at += 2
        elif tag == 0xFA:
            at += 4 + struct.unpack_from(order + "I", data, at)[0]
        elif tag == 0xFB:
            at += 1 + data[at]
        elif tag == 0x1B:
            break
        elif 0x41 <= tag <= 0xBF:
            if tag == XL_BEGIN_PAGE:
                pages.append({XL_NAMES[key]: value for key, value in given.items() if key in XL_NAMES})
            given = {}
    return pages
