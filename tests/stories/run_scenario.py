#!/usr/bin/env python3
"""Plays a scenario and compares its record with the one that stands beside it, line by line.

    run_scenario.py PROGRAM FILE.scenario           compare
    run_scenario.py --write PROGRAM FILE.scenario   write the record anew, to be read before it is kept

The print log of the run has to be that of FILE.log byte for byte; without such a file there may be none.

Comments at the top of a scenario tell what counts:
    # only: message show get      kinds of records that are compared; all if the line is missing
    # pages: 1 84                 pages whose texts and lines are compared; all if the line is missing
    # status: 3                   exit status, 0 if the line is missing
    # complaint: line 4           what standard error must hold, if the status is not 0
    # folder: /proc               current directory, where no file can be made; one of its own if it is missing
"""
import json
import os
import pathlib
import subprocess
import sys
import tempfile

DRAWN = {"text", "line"}


def directives(scenario):
    found = {}
    for line in scenario.read_text(encoding="utf-8").splitlines():
        name, colon, value = line.lstrip("# ").partition(":")
        if line.startswith("#") and colon and name in {"only", "pages", "status", "complaint", "folder"}:
            found[name] = value.strip()
    return found


def kind_of(record):
    return record.get("event") or next(iter(record))


def selected(lines, wanted):
    only = set(wanted["only"].split()) if "only" in wanted else None
    pages = {int(page) for page in wanted["pages"].split()} if "pages" in wanted else None
    for line in lines:
        record = json.loads(line)
        kind = kind_of(record)
        if only is not None and kind not in only:
            continue
        if pages is not None and kind in DRAWN and record["page"] not in pages:
            continue
        yield line


def bytes_of(file):
    return file.read_bytes() if file.exists() else b""


def compare_log(log, expected):
    told = bytes_of(expected)
    for number, (is_, should) in enumerate(zip(log.splitlines(True), told.splitlines(True)), start=1):
        if is_ != should:
            sys.exit(f"{expected.name}:{number}:\n  expected {should}\n  but was  {is_}")
    if log != told:
        sys.exit(f"the print log has {len(log)} bytes, not {len(told)}")


def main():
    arguments = sys.argv[1:]
    write = arguments[0] == "--write"
    program, scenario = (pathlib.Path(argument).resolve() for argument in arguments[-2:])
    wanted = directives(scenario)
    with tempfile.TemporaryDirectory() as own:
        folder = pathlib.Path(wanted.get("folder", own))
        surroundings = {**os.environ, "TZ": "UTC", "XDG_RUNTIME_DIR": own, "TMPDIR": own}
        run = subprocess.run([program, scenario], cwd=folder, capture_output=True, text=True, encoding="utf-8",
                             timeout=600, check=False, env=surroundings)
        log = bytes_of(folder / "printrap.log")
    record = list(selected(run.stdout.splitlines(), wanted))
    expected = scenario.with_suffix(".jsonl")
    status = int(wanted.get("status", "0"))
    if run.returncode != status:
        sys.exit(f"exit status {run.returncode}, not {status}\n{run.stderr}")
    if status == 0 and run.stderr:
        sys.exit(f"standard error is not empty:\n{run.stderr}")
    if wanted.get("complaint", "") not in run.stderr:
        sys.exit(f"standard error lacks {wanted['complaint']!r}:\n{run.stderr}")
    if write:
        expected.write_text("".join(line + "\n" for line in record), encoding="utf-8")
        if log:
            scenario.with_suffix(".log").write_bytes(log)
        return
    compare_log(log, scenario.with_suffix(".log"))
    told = expected.read_text(encoding="utf-8").splitlines()
    for number, (is_, should) in enumerate(zip(record, told), start=1):
        if is_ != should:
            sys.exit(f"{expected.name}:{number}:\n  expected {should}\n  but was  {is_}")
    if len(record) != len(told):
        more = record[len(told):] or told[len(record):]
        side = "more than expected" if len(record) > len(told) else "missing"
        sys.exit(f"{abs(len(record) - len(told))} records {side}, from line {min(len(record), len(told)) + 1}:\n"
                 f"  {more[0]}")


main()
