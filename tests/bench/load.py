"""Runs the program under loads of growing size, each in a process of its own, and prints a table with the growth.

load.py LOAD [PDF_BATCH]

Time is the processor's, so that other programs on the machine count for little.
Ends with 1 where time or memory grows faster than the load.
"""

import json
import os
import statistics
import subprocess
import sys
import tempfile

ROUNDS, PDF_ROUNDS = 3, 1
# What is measured by its name, sizes, and what one size means.
LOADS = (
    ("forms", (250, 2500, 30000), "forms"),
    ("copies", (1, 10, 99), "of each of 9,999 forms"),
    ("creditor", (100, 1000, 10000), "characters of the creditor's name, 300 forms"),
    ("printers", (2, 20, 200), "printers, one opening of the print manager"),
    ("each_printer", (2, 20, 200), "printers, each chosen in one opening"),
    ("openings", (10, 100, 1000), "openings of the print manager"),
)
PDF = ("forms", (250, 2500, 30000), "forms to a PDF file")
# Noise of a shared machine, and the part of a load that does not depend on its size.
SLACK = 1.25
# The step in which the system counts the processor's time, and what the first of many costs more than the next.
TICK_MS = 2
# A heap gets its memory in pieces of this size.
PIECE_KB = 512


def run(command):
    return json.loads(subprocess.run(command, check=True, capture_output=True, text=True).stdout)


def median_of(measure, rounds):
    runs = [measure() for _ in range(rounds)]
    return {key: statistics.median(run_[key] for run_ in runs) for key in runs[0]}


def pdf(program, size):
    with tempfile.TemporaryDirectory() as folder:
        file = os.path.join(folder, "batch.pdf")
        measures = run([program, "program", str(size), file])
        measures["file_kb"] = os.path.getsize(file) / 1024
    return measures


def row(what, size, measures, before, smaller):
    """Prints a line of the table; False where the step from the smaller size is steeper than straight."""
    growth = memory = ""
    good = True
    if before:
        load = size / smaller
        growth = f"{measures['processor_ms'] / before['processor_ms']:.1f} for {load:.1f}"
        more = measures["growth_kb"] - before["growth_kb"]
        memory = f"{more / 1024:+.1f}"
        good = (measures["processor_ms"] <= before["processor_ms"] * load * SLACK + TICK_MS and
                more <= PIECE_KB + max(before["growth_kb"], 0) * (load * SLACK - 1))
    file = f"{measures['file_kb'] / 1024:.1f}" if "file_kb" in measures else ""
    print(f"| {size:,} {what} | {measures['processor_ms']:.1f} | {growth} | {measures['peak_kb'] / 1024:.1f} "
          f"| {memory} | {file} | {'yes' if good else 'NO'} |", flush=True)
    return good


def table(load, measure, rounds):
    good, before, smaller = True, None, None
    _, sizes, what = load
    for size in sizes:
        measures = median_of(lambda size=size: measure(size), rounds)
        good &= row(what, size, measures, before, smaller)
        before, smaller = measures, size
    return good


def main():
    program = sys.argv[1]
    print("| load | processor, ms | times the time, for times the load | peak, MB | more than the line above | file, MB "
          "| straight or less |\n|---|---|---|---|---|---|---|")
    good = True
    for load in LOADS:
        good &= table(load, lambda size, name=load[0]: run([program, name, str(size)]), ROUNDS)
    if len(sys.argv) > 2:
        good &= table(PDF, lambda size: pdf(sys.argv[2], size), PDF_ROUNDS)
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
