"""Counts the tests of a run, and prints them as the last line: count_tests.py REPORTS

REPORTS holds ctest.xml, the reports of GoogleTest for those entries of it that stand for many tests, and fuzz.log where
fuzzers ran. Ends with 1 if a test failed, none ran, or one of the Windows program was skipped although
DRUKKEURING_WINDOWS=required.
"""
import os
import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

PASSED, FAILED, SKIPPED = "passed", "failed", "skipped"
ABOUT_WINDOWS = re.compile(r"windows\.|security\.windows|packaging\.setup")


def of_ctest(case):
    if case.get("status") == "run":
        return PASSED
    return FAILED if case.get("status") == "fail" else SKIPPED


def of_googletest(case):
    if case.find("failure") is not None:
        return FAILED
    return SKIPPED if case.get("result") == "skipped" else PASSED


def results_of(case, reports):
    """The name and the result of each test that an entry of ctest stands for."""
    entry = case.get("name")
    report = reports / f"{entry}.xml"
    own = (entry, of_ctest(case))
    if not report.exists():
        return [own]
    tests = [(f"{entry}: {test.get('classname')}.{test.get('name')}", of_googletest(test))
             for test in ElementTree.parse(report).iter("testcase") if test.get("status") == "run"]
    # What no single test answers for, a leak for instance.
    if own[1] == FAILED and not any(result == FAILED for _, result in tests):
        tests.append(own)
    return tests


def main():
    reports = pathlib.Path(sys.argv[1])
    try:
        entries = list(ElementTree.parse(reports / "ctest.xml").iter("testcase"))
    except (OSError, ElementTree.ParseError) as error:
        print(f"The tests did not run: {error}", file=sys.stderr)
        entries = []
    results = [result for case in entries for result in results_of(case, reports)]
    if os.environ.get("DRUKKEURING_WINDOWS") == "required":
        results = [(name, FAILED if result == SKIPPED and ABOUT_WINDOWS.match(name) else result)
                   for name, result in results]
    count = {kind: sum(result == kind for _, result in results) for kind in (PASSED, FAILED, SKIPPED)}
    fuzzed = reports / "fuzz.log"
    if fuzzed.exists():
        for passed, failed in re.findall(r"^(\d+) passed, (\d+) failed$", fuzzed.read_text(), re.MULTILINE):
            count[PASSED] += int(passed)
            count[FAILED] += int(failed)
    if not results:
        count[FAILED] += 1

    for name, result in results:
        if result != PASSED:
            print(f"{result}: {name}")
    print(f"{count[PASSED]} passed, {count[FAILED]} failed" + (f", {count[SKIPPED]} skipped" if count[SKIPPED] else ""))
    return 1 if count[FAILED] else 0


if __name__ == "__main__":
    sys.exit(main())
