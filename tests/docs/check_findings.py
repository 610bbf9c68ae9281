#!/usr/bin/env python3
"""Holds the codes of the precheck against the handbook: each that the program can find is explained there, as bad as the
program takes it, and no other is named."""
import re
import sys

import documents
import program_texts

HANDBOOK = documents.ROOT / "docs" / "handleiding.md"
PRECHECK = program_texts.SRC / "precheck"
CODE = r"[a-z]+\.[a-z]+(?:-[a-z]+)*"
KIND = re.compile(rf'"({CODE})"\s*(?:,\s*(?:Gravity::)?(Spoils|LookAt)\b)?')
GRAVITIES = {"Spoils": "fout", "LookAt": "let op"}
# What looks like a code between backticks and is a file.
FILE = re.compile(r"\.(reg|conf|log|exe|cpl|zip|deb|md)$")


def kinds():
    """How bad each code of the sources is; None where the source tells that elsewhere."""
    found = {}
    for path in sorted(PRECHECK.rglob("*.cpp")):
        for code, gravity in KIND.findall(program_texts.code(path)):
            found[code] = GRAVITIES.get(gravity)
    return found


def named(text):
    """The codes of the handbook, each with the line that names it first."""
    found = {}
    for line, span in documents.spans(text):
        if re.fullmatch(CODE, span) and not FILE.search(span):
            found.setdefault(span, line)
    return found


def explained(text):
    """What the row of its own says of each code: how bad it is."""
    rows = (cells for _, cells in documents.table_rows(text) if len(cells) == 3)
    return {code.strip("`"): gravity for code, gravity, _ in rows if re.fullmatch(f"`{CODE}`", code)}


def complaints():
    text = HANDBOOK.read_text(encoding="utf-8")
    name = HANDBOOK.relative_to(documents.ROOT)
    in_program, in_handbook, rows = kinds(), named(text), explained(text)
    if not in_program:  # nothing is looked for as yet
        return
    for code, line in in_handbook.items():
        if code not in in_program:
            yield f"{name}:{line}: the program finds no `{code}`"
    for code, gravity in in_program.items():
        if code not in rows:
            yield f"{name}: does not explain `{code}`"
        elif gravity and rows[code] != gravity:
            yield f"{name}: `{code}` is \"{gravity}\", not \"{rows[code]}\""


def main():
    found = list(complaints())
    print("\n".join(found) or "The handbook explains what the precheck finds.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
