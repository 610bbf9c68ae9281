#!/usr/bin/env python3
"""Measures the start of the Windows program under Wine, warm: the time to the first page, beside that of a program that shows
one empty window, and the size of the file.

    start_time.py --build FOLDER [--times 15]
"""
import argparse
import pathlib
import statistics

from office import Office


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=pathlib.Path, required=True)
    parser.add_argument("--times", type=int, default=15)
    arguments = parser.parse_args()
    folder = arguments.build / "bin"
    with Office(arguments.build) as office:
        def path(name):
            return office.prefix.windows_path(folder / f"{name}.exe")

        told = office.prefix.run(folder / "start_timer.exe", arguments.times + 1, "EmptyWindow", path("empty_window"),
                                 "frmMain", path("drukkeuring"), timeout=600).stdout
    rounds = [[float(word) for word in line.split()] for line in told.splitlines()][1:]  # the first one warms up
    if any(time < 0 for times in rounds for time in times):
        raise SystemExit("a program did not start")
    empty, ours = (statistics.median(times) for times in zip(*rounds))
    print(f"empty window {empty:.1f} ms, first page {ours:.1f} ms, ratio {ours / empty:.2f} "
          f"(median of {arguments.times}, quickest {min(t[0] for t in rounds):.1f} and {min(t[1] for t in rounds):.1f})")
    print(f"drukkeuring.exe {(folder / 'drukkeuring.exe').stat().st_size} bytes")


if __name__ == "__main__":
    main()
