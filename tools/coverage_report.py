"""Prints how much of each folder of src/ the tests have reached, and each line that they have not reached whole.

coverage_report.py FILE

FILE is what gcovr writes with --json. Ends with 1 where the whole is below the goals.
"""

import collections
import json
import os
import sys

LINES_GOAL, BRANCHES_GOAL = 98, 92


class Count:
    def __init__(self):
        self.reached = 0
        self.all = 0

    def add(self, is_reached):
        self.reached += is_reached
        self.all += 1

    def percent(self):
        return 100 * self.reached / self.all if self.all else 100


def text_of(file, number):
    with open(file, encoding="utf-8") as source:
        return source.read().splitlines()[number - 1].strip()


def main():
    with open(sys.argv[1], encoding="utf-8") as report:
        files = json.load(report)["files"]
    lines, branches, unreached = collections.defaultdict(Count), collections.defaultdict(Count), []
    for file in sorted(files, key=lambda file: file["file"]):
        folder = os.path.dirname(file["file"])
        for line in file["lines"]:
            if line.get("gcovr/noncode"):
                continue
            ways = line.get("branches", [])
            missed = sum(way["count"] == 0 for way in ways)
            for name in (folder, "all"):
                lines[name].add(line["count"] > 0)
                for way in ways:
                    branches[name].add(way["count"] > 0)
            if line["count"] == 0 or missed:
                what = "line" if line["count"] == 0 else f"{missed} of {len(ways)} ways"
                number = line["line_number"]
                unreached.append(f"{file['file']}:{number}: {what}: {text_of(file['file'], number)}")

    print("| folder | lines | reached | branches | reached |\n|---|---|---|---|---|")
    for folder in sorted(lines, key=lambda name: (name == "all", name)):
        print(f"| {folder} | {lines[folder].all} | {lines[folder].percent():.1f} % | {branches[folder].all} | "
              f"{branches[folder].percent():.1f} % |")
    print("\nNot reached:", *unreached, sep="\n")
    return int(lines["all"].percent() < LINES_GOAL or branches["all"].percent() < BRANCHES_GOAL)


if __name__ == "__main__":
    sys.exit(main())
