#!/usr/bin/env python3
"""Checks that the program cannot start another one: it calls no function that does, so no text of the settings or of a
printer can reach a shell. But for the one with which the toolkit shows a file, the handbook.

check_imports.py PROGRAM
"""

import re
import shutil
import subprocess
import sys

NOT_FOUND = 77  # exit status of a test that cannot be made here
STARTING = re.compile(r"system|popen|w?exec(l|v)\w*|fexecve|v?fork|clone3?|posix_spawnp?|dlopen|wordexp"
                      r"|.*(QProcess|QDesktopServices).*")
HANDBOOK = {"_ZN16QDesktopServices7openUrlERK4QUrl"}
TEMPORARY = re.compile(r"tmpnam|tempnam|mktemp|tmpfile")  # names that others can take first


def imports(program):
    lines = subprocess.run(["nm", "--dynamic", "--undefined-only", program], check=True, capture_output=True,
                           text=True).stdout.splitlines()
    return [line.split()[-1].split("@")[0] for line in lines]


def main():
    if not shutil.which("nm"):
        print("skipped: nm is not installed")
        return NOT_FOUND
    names = imports(sys.argv[1])
    found = [name for name in names if name not in HANDBOOK and (STARTING.fullmatch(name) or TEMPORARY.fullmatch(name))]
    print(f"{len(names)} functions are called; forbidden are {found}")
    return 1 if found or "write" not in names else 0


if __name__ == "__main__":
    sys.exit(main())
