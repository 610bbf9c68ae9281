#!/usr/bin/env python3
"""Holds the handbook against the program.

In the handbook a text of the program stands between single stars, line by line, with "…" for what changes from time to
time. Each must be in the sources as it is, each message of the program must be in the handbook, and each picture there. Each access
key stands in the table of keys.
"""
import re
import sys

import documents
import program_texts

HANDBOOK = documents.ROOT / "docs" / "handleiding.md"
CHANGES = "…"
KEYS = "Werken met het toetsenbord"
# Buttons that cannot be pressed, and entries of a menu: the menu's own key opens it.
WITHOUT_A_KEY = {"Instellen...", "Annuleren", "Afdrukken...", "Afdrukvoorbeeld sluiten", "Afdrukvoorbeeld Afsluiten"}


def is_quoted_well(quoted):
    """True if the program has this text: as a line of its own, or in its fixed parts."""
    texts = program_texts.texts()
    if CHANGES not in quoted:
        return quoted in texts
    return all(any(part in text for text in texts) for part in map(str.strip, quoted.split(CHANGES)) if part)


def tells(quoted, message):
    """True if the quoted text is this message or holds this part of one."""
    wanted = ".+".join(map(re.escape, quoted.split(CHANGES)))
    return message in quoted or re.fullmatch(wanted, message) is not None


def untold_keys(text):
    section = text.partition(f"## {KEYS}")[2].partition("\n## ")[0]
    rows = [row for row in section.splitlines() if row.startswith("|")]
    for key, caption in sorted(program_texts.access_keys()):
        if caption not in WITHOUT_A_KEY and not any(f"Alt+{key}" in row and caption.lower() in row.lower() for row in rows):
            yield f"Alt+{key} of \"{caption}\""


def complaints():
    text = HANDBOOK.read_text(encoding="utf-8")
    name = HANDBOOK.relative_to(documents.ROOT)
    quotes = [(line, " ".join(quoted.split())) for line, quoted in documents.italics(text)]
    for line, quoted in quotes:
        if not is_quoted_well(quoted):
            yield f"{name}:{line}: the program has no text *{quoted}*"
    for message, file in program_texts.messages().items():
        if not any(tells(quoted, message) for _, quoted in quotes):
            yield f"{name}: says nothing of the message \"{message}\" ({file})"
    for untold in untold_keys(text):
        yield f"{name}: says nothing of {untold}"
    yield from documents.broken_links(HANDBOOK)


def main():
    found = list(complaints())
    print("\n".join(found) or "The handbook tells what the program shows.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
