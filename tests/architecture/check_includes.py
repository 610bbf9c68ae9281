#!/usr/bin/env python3
"""Checks from the include lines which room of src/ knows which.

The rooms stand in the order of knowing: a room includes itself and those that stand above it. The desktops know the
machine, the forms and each other in their own order, and nothing of what the program is for.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
SRC = ROOT / "src"

ROOMS = ["base", "machine", "forms", "state", "payment", "testdata", "composition", "precheck", "printmanager", "preview",
         "wizard", "desktop/regfile", "desktop/cups", "desktop/qt", "desktop/windows", "program"]
# What a desktop builds on; the rooms between it and the forms are the program that runs on it.
BENEATH_A_DESKTOP = {"base", "machine", "forms", "state"}

HOMES = [
    (re.compile(r"^(Q[A-Z]\w*|Q\w+/.*|qt?[a-z_]+\.h|Qt\w+)$"), {"desktop/qt", "program"}),
    (re.compile(r"^(windows|winspool|commctrl|commdlg|shlobj|winreg)\.h$", re.IGNORECASE), {"desktop/windows"}),
    (re.compile(r"^cups/"), {"desktop/cups"}),
]
INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^>"]+)[>"]', re.MULTILINE)


def room_of(name):
    return next((room for room in ROOMS if name.startswith(room + "/")), None)


def may_know(room, other):
    if room.startswith("desktop/") and not other.startswith("desktop/") and other not in BENEATH_A_DESKTOP:
        return False
    return ROOMS.index(other) <= ROOMS.index(room)


def complaints():
    for path in sorted(SRC.rglob("*")):
        if path.suffix not in {".h", ".cpp", ".inc"}:
            continue
        name = path.relative_to(SRC).as_posix()
        room = room_of(name)
        if room is None:
            yield f"{name}: stands in no room"
            continue
        for kind, included in INCLUDE.findall(path.read_text(encoding="utf-8")):
            for pattern, homes in HOMES:
                if pattern.match(included) and room not in homes:
                    yield f"{name} includes {included}: that belongs below {', '.join(sorted(homes))}"
            if kind == "<":
                continue
            other = room_of(included)
            if other is None or not (SRC / included).exists():
                if not (path.parent / included).exists():
                    yield f"{name} includes {included}: not a header named from src/"
            elif not may_know(room, other):
                yield f"{name} includes {included}: {room} may not know {other}"


def main():
    found = [f"{room}: no such room" for room in ROOMS if not (SRC / room).is_dir()] + list(complaints())
    print("\n".join(found) or "All includes point one way.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
