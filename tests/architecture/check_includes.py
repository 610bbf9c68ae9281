#!/usr/bin/env python3
"""Checks from the include lines which folder of src/ knows which.

A folder may include itself and what it is listed with below; the record of the program's state may be read by
everyone and pulls in nothing but the type of a flag. Qt belongs to platform/qt, windows.h to platform/windows, CUPS to the Linux desktop.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
SRC = ROOT / "src"

ALLOWED = {
    "platform": set(),
    "payment": {"platform"},
    "testdata": {"payment", "platform"},
    "composition": {"payment", "testdata", "platform"},
    "printmanager": {"composition", "platform"},
    "preview": {"composition", "platform"},
    "wizard": {"printmanager", "preview", "composition", "payment", "testdata", "platform"},
    "program": {"wizard", "platform"},
}
STATE = "wizard/AppState.h"
STATE_MAY_READ = {"platform/Boolean.h"}
# The print manager knows no document: of the composition it may know the printer's measures alone.
PRINTMANAGER_MAY_READ = {"composition/PrinterMeasures.h"}

TOOLKITS = [
    (re.compile(r"^(Q[A-Z]\w*|Q\w+/.*|qt?[a-z_]+\.h|Qt\w+)$"), "platform/qt"),
    (re.compile(r"^(windows|winspool|commctrl|commdlg|shlobj|winreg)\.h$", re.IGNORECASE), "platform/windows"),
    (re.compile(r"^cups/"), "platform/qt"),
]
INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^>"]+)[>"]', re.MULTILINE)


def complaints():
    for path in sorted(SRC.rglob("*")):
        if path.suffix not in {".h", ".cpp", ".inc"}:
            continue
        name = path.relative_to(SRC).as_posix()
        folder = name.split("/")[0]
        for kind, included in INCLUDE.findall(path.read_text(encoding="utf-8")):
            for pattern, home in TOOLKITS:
                if pattern.match(included) and not name.startswith(home + "/"):
                    yield f"{name} includes {included}: that belongs below {home}"
            if kind == "<":
                continue
            if name == STATE and included not in STATE_MAY_READ:
                yield f"{name} includes {included}: it pulls in nothing of ours"
            target = included.split("/")[0]
            if "/" not in included or not (SRC / included).exists():
                if (path.parent / included).exists():
                    continue
                yield f"{name} includes {included}: not a header named from src/"
            elif target != folder and included != STATE and target not in ALLOWED[folder]:
                yield f"{name} includes {included}: {folder} may not know {target}"
            elif folder == "printmanager" and target == "composition" and included not in PRINTMANAGER_MAY_READ:
                yield f"{name} includes {included}: the print manager knows no document"
            elif folder == "platform" and not re.match(r"platform/(qt|windows|memory)/", name) and re.match(
                    r"platform/(qt|windows|memory)/", included):
                yield f"{name} includes {included}: what is portable knows no single platform"


def main():
    found = list(complaints())
    print("\n".join(found) or "All includes point one way.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
