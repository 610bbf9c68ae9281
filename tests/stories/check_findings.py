#!/usr/bin/env python3
"""Each finding has a story of its own in the folder findings, named after its code, and each story there a finding."""
import pathlib
import re
import sys

HERE = pathlib.Path(__file__).resolve().parent
KINDS = HERE.parents[1] / "src" / "precheck" / "FindingKinds.cpp"
QUIET = "quiet"  # the story in which nothing is found


def complaints():
    codes = re.findall(r'\{Kind::\w+,\s*"([\w.-]+)"', KINDS.read_text(encoding="utf-8"))
    stories = {file.stem: file.read_text(encoding="utf-8") for file in (HERE / "findings").glob("*.scenario")}
    for code in codes:
        name = re.sub(r"\W", "_", code)
        if not stories.pop(name, "").startswith(f"# {code}: "):
            yield f"findings/{name}.scenario does not tell of {code}"
    yield from (f"findings/{name}.scenario: no such finding" for name in stories if name != QUIET)
    if not codes:
        yield f"{KINDS} names no findings"


def main():
    found = list(complaints())
    print("\n".join(found) or "Each finding has its story.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
