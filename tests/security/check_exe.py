#!/usr/bin/env python3
"""Checks what the Windows program needs: check_exe.py PROGRAM.exe

It is one file: no library but Windows' own, and no function that Windows 7 lacks. The functions it may import stand in
windows7_functions.txt, a line for each library: a new one is added there after a look at its documented minimum.
"""
import pathlib
import re
import subprocess
import sys

LIMIT = 2_000_000
KNOWN = pathlib.Path(__file__).with_name("windows7_functions.txt")


def known_functions():
    """Library to its functions."""
    known = {}
    for line in KNOWN.read_text(encoding="ascii").splitlines():
        if line and not line.startswith("#"):
            library, functions = line.split(":")
            known.setdefault(library, set()).update(functions.split())
    return known


def imports(program):
    """Library and name of each imported function."""
    text = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", str(program)], check=True, capture_output=True,
                          text=True).stdout
    library = None
    for line in text.splitlines():
        if found := re.match(r"\s+DLL Name: (\S+)", line):
            library = found[1].lower()
        elif library and (found := re.match(r"\s+[0-9a-f]+\s+(?:<none>|\d+)\s+(\w+)$", line)):
            yield library, found[1]
        elif not line.strip():
            library = None


def complaints(program):
    known = known_functions()
    found = list(imports(program))
    if not found:
        yield "no imports were found"
    for library, function in found:
        if library not in known:
            yield f"{library} is no library of every Windows"
        elif function not in known[library]:
            yield f"{library}: {function} is not known to be in Windows 7"
    size = program.stat().st_size
    if size >= LIMIT:
        yield f"{size} bytes, the limit is {LIMIT}"


def main():
    program = pathlib.Path(sys.argv[1])
    found = list(complaints(program))
    print("\n".join(found) or f"{program.stat().st_size} bytes, and Windows 7 is enough.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
