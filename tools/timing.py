"""Prints where the time of build and tests went: timing.py BUILD [ROWS]

Read from the logs that ninja and the tests leave in the folders of BUILD. Seconds are those of the clock, so they grow with
what else the machine does.
"""
import collections
import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

# CMakeFiles/iban.dir/Iban.cpp.o: the folder that a reader knows stands in front of it.
OF_CMAKE = re.compile(r"/CMakeFiles/.*")


def built(folder):
    """Seconds by output, of the last time that each was made."""
    seconds = {}
    for line in (folder / ".ninja_log").read_text().splitlines():
        fields = line.split("\t")
        if len(fields) == 5:
            seconds[fields[3]] = (int(fields[1]) - int(fields[0])) / 1000
    return seconds


def tested(reports):
    seconds = {}
    for path in reports.glob("*.xml"):
        for case in ElementTree.parse(path).iter("testcase"):
            name = case.get("name")
            if path.name != "ctest.xml":
                name = f"{path.stem}: {case.get('classname')}.{name}"
            seconds[name] = float(case.get("time") or 0)
    return seconds


def table(title, seconds, rows):
    print(f"\n{title}: {sum(seconds.values()):.0f} s in {len(seconds)}")
    for name, spent in sorted(seconds.items(), key=lambda item: -item[1])[:rows]:
        print(f"{spent:8.1f}  {name}")


def by(name_of, seconds):
    totals = collections.Counter()
    for name, spent in seconds.items():
        totals[name_of(name)] += spent
    return totals


def main():
    build = pathlib.Path(sys.argv[1])
    rows = int(sys.argv[2]) if len(sys.argv) > 2 else 10
    for log in sorted(build.glob("*/.ninja_log")):
        seconds = built(log.parent)
        table(f"{log.parent}, slowest files", seconds, rows)
        table(f"{log.parent}, folders", by(lambda name: OF_CMAKE.sub("", name), seconds), rows)
    for reports in sorted(build.glob("*/reports")):
        seconds = tested(reports)
        single = {name: spent for name, spent in seconds.items() if ": " in name}
        entries = {name: spent for name, spent in seconds.items() if ": " not in name}
        table(f"{reports}, slowest entries", entries, rows)
        table(f"{reports}, groups", by(lambda name: name.split(".")[0], entries), rows)
        table(f"{reports}, slowest of the tests that run together", single, rows)


if __name__ == "__main__":
    main()
