#!/usr/bin/env python3
"""Checks what the documents name between backticks: files and folders of the project, and names of its code.

A path is one from the root or from src/ on ("desktop/qt"), or of a file by its name alone ("QtTextBox.cpp"). A name, or a
"Class::Member", has to be found in the sources. Commands, and files of the machine, are not looked at. Links and tables are checked on the way.
What is odd and meant (docs/deliberate.md) names the file that holds it and the tests that fail without it; both have to be there.
"""
import functools
import os
import pathlib
import re
import sys

import documents
from documents import ROOT

DELIBERATE = ROOT / "docs" / "deliberate.md"
# What the program and its build make, and what belongs to the machine.
MADE = re.compile(r"^(build|dist|out)(/|$)|^[~/$.]|^\.\.")
MADE_NAMES = {"printrap.log", "settings.reg", "pdf-bestand.conf", "QtProject.conf"}
PATH = re.compile(r"^[\w.*-]+(/[\w.*-]+)+/?$")
FILE = re.compile(r"^[\w.-]+\.(cpp|h|py|sh|inc|md|txt|json|reg|svg|qrc|cmake|scenario|jsonl|in|log|conf)$")
MEMBER = re.compile(r"^((?:\w+::)+)(~?\w+)(?:\(.*\))?$")
NAME = re.compile(r"^\w*[A-Za-z]\w*(?:\(\))?$")


@functools.cache
def files():
    """The files of the project, without what a build makes."""
    found = []
    for folder, below, names in os.walk(ROOT):
        here = pathlib.Path(folder).relative_to(ROOT)
        below[:] = [name for name in below if (here / name).as_posix() not in {"build", "dist", "out", ".git"}
                    and name != "__pycache__"]
        found += [(here / name).as_posix() for name in names]
    return sorted(found)


@functools.cache
def code():
    """All that is no document, by file."""
    found = {}
    for name in files():
        if not re.search(r"\.(md|png|ico|jsonl)$|/corpus/", name):
            found[name] = (ROOT / name).read_bytes().decode("utf-8", "replace")
    for name in ("examples/tarvik.reg", "tests/support/settings/told_apart.reg"):  # as Windows exports them
        found[name] = (ROOT / name).read_text(encoding="utf-16")
    return found


@functools.cache
def words():
    return {word for text in code().values() for word in re.findall(r"\w+", text)}


def is_path(name):
    name = name.rstrip("/")
    if any((base / name).exists() for base in (ROOT, ROOT / "src")):
        return True
    return "*" in name and any(base.glob(name) for base in (ROOT, ROOT / "src") if next(base.glob(name), None))


def is_member(owner, member):
    """True if some file that defines the owner, or its members, has the member."""
    defines = re.compile(rf"\b(?:class|struct|enum|enum class|namespace)\s+(?:\w+::)*{owner}\b")
    named = re.compile(rf"\b{owner}::{member}\b")
    return any(named.search(text) or (defines.search(text) and re.search(rf"\b{member}\b", text))
               for text in code().values() if owner in text and member in text)


def complaint(name):
    """What is wrong with a name, or nothing."""
    if MADE.match(name) or name in MADE_NAMES:
        return None
    if PATH.match(name):
        return None if is_path(name) else "no such file or folder"
    if FILE.match(name):
        return None if any(file.rsplit("/", 1)[-1] == name for file in files()) else "no such file"
    member = MEMBER.match(name)
    if member:
        owner = member[1].rstrip(":").split("::")[-1]
        return None if is_member(owner, member[2]) else "no such member"
    if NAME.match(name):
        return None if name.removesuffix("()") in words() else "no such name in the sources"
    return None


@functools.cache
def tests():
    """The names of the tests, as often as they are given: of ctest, and of GoogleTest with and without their suite."""
    names = []
    for file, text in code().items():
        if file.startswith("tests/") and file.endswith(".cpp"):
            for suite, name in re.findall(r"^TEST(?:_[FP])?\((\w+),\s*(\w+)\)", text, re.MULTILINE):
                names += [name, f"{suite}.{name}"]
        elif file.startswith("tests/") and file.endswith("CMakeLists.txt"):
            names += re.findall(r"add_test\(NAME ([\w.]+)", text)
    return names


def test_complaint(name):
    """What is wrong with the name of a test, or of the file that is one."""
    if PATH.match(name):
        return None if name.startswith("tests/") and (ROOT / name).exists() else "no such test"
    return {0: "no such test", 1: None}.get(tests().count(name), "more than one test has this name")


def deliberate_complaints(path):
    for line, (what, where, test, why) in documents.table_rows(path.read_text(encoding="utf-8")):
        held_by = documents.SPAN.findall(test)
        if not (what and why and held_by and documents.SPAN.findall(where)):
            yield line, "a row tells what, where, which test, and why"
        for name in documents.SPAN.findall(where):
            if not is_path(name):
                yield line, f"`{name}`: no such file or folder"
        for name in held_by:
            wrong = test_complaint(name)
            if wrong:
                yield line, f"`{name}`: {wrong}"


def complaints():
    for line, wrong in deliberate_complaints(DELIBERATE):
        yield f"{DELIBERATE.relative_to(ROOT)}:{line}: {wrong}"
    for path in documents.all_documents():
        for line, name in documents.spans(path.read_text(encoding="utf-8")):
            wrong = complaint(name)
            if wrong:
                yield f"{path.relative_to(ROOT)}:{line}: `{name}`: {wrong}"
        yield from documents.broken_links(path)
        yield from documents.broken_tables(path)


def main():
    found = list(complaints())
    print("\n".join(found) or "All that the documents name is there.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
