#!/usr/bin/env python3
"""Checks the names of GoogleTest's tests: a suite is called after its class or subject, with "Test" behind it, and a test is
a sentence of words that begin with capitals. clang-tidy does not look at them, for they are arguments of a macro.
"""
import pathlib
import re
import sys

TESTS = pathlib.Path(__file__).resolve().parents[1]
TEST = re.compile(r"^TEST(?:_[FP])?\((\w+),\s*(\w+)\)", re.MULTILINE)
# A suite of another end runs first: GoogleTest knows tests that end the process by it.
SUITE = re.compile(r"\w+(Test|DeathTest)")
NAME = re.compile(r"[A-Z][A-Za-z0-9]*")


def complaints():
    for path in sorted(TESTS.rglob("*.cpp")):
        for suite, name in TEST.findall(path.read_text(encoding="utf-8")):
            if not SUITE.fullmatch(suite):
                yield f"{path.relative_to(TESTS)}: the suite {suite} does not end in Test"
            if not NAME.fullmatch(name):
                yield f"{path.relative_to(TESTS)}: {suite}.{name}"


def main():
    found = sorted(set(complaints()))
    print("\n".join(found) or "Each suite says that it is one.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
