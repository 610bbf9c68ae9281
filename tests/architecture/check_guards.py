#!/usr/bin/env python3
"""Checks that what Qt calls of the program lets no exception out: Qt knows none.

Each slot that is connected, each call that a timer makes later, and each event, filter, reading or writing that a class
overrides has to work in one of the guards of desktop/qt/Guarded.h, answer a constant, or do no more than what is listed here.
"""
import pathlib
import re
import sys

FOLDER = pathlib.Path(__file__).resolve().parents[2] / "src" / "desktop" / "qt"

# Members that guard what they do themselves.
GUARD = re.compile(r"\bGuarded(Quietly)?\(|\[[^\]]*\](\(int row\))? \{ (Click|Pick)\(")
# Functions that are given to it guarded (QtPlatform.h), a member that guards (Pick), and one that only looks at a key.
FREE = {"EndSignals.cpp", "QtListBox.cpp"}
FREE_HANDLERS = {"QtDesktop::eventFilter"}

CONNECTED = re.compile(r"\b(?:connect|singleShot)\(")
CALLED = r"(?:eventFilter|notify|\w+Event|event|readData|writeData)"
# A member behind its class, and one within it.
HANDLERS = [re.compile(rf"^\S.*?\b(\w+::{CALLED})\([^;{{]*\)[^;{{]*\{{", re.MULTILINE),
            re.compile(rf"^\s+\S.*?\b({CALLED})\([^;{{]*\)[^;{{]*\b(?:override|final)\b[^;{{]*\{{", re.MULTILINE)]
CONSTANT = re.compile(r"\{\s*return -?\w+;\s*\}")


def enclosed(text, at, opening, closing):
    """The text from the bracket at `at` to the one that closes it."""
    depth = 0
    for place in range(at, len(text)):
        depth += (text[place] == opening) - (text[place] == closing)
        if depth == 0:
            return text[at:place + 1]
    return text[at:]


def complaints():
    for path in sorted(FOLDER.glob("*.cpp")) + sorted(FOLDER.glob("*.h")):
        text = path.read_text(encoding="utf-8")
        for match in CONNECTED.finditer(text):
            if path.name not in FREE and not GUARD.search(enclosed(text, match.end() - 1, "(", ")")):
                yield f"{path.name}:{text.count(chr(10), 0, match.start()) + 1}: what is connected has no guard"
        for match in (match for handler in HANDLERS for match in handler.finditer(text)):
            body = enclosed(text, match.end() - 1, "{", "}")
            if match[1] not in FREE_HANDLERS and not GUARD.search(body) and not CONSTANT.fullmatch(body):
                yield f"{path.name}: {match[1]} has no guard"


def main():
    found = list(complaints())
    print("\n".join(found) or "Whatever Qt calls is guarded.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
