"""Every printer description of the installed driver packages: papers, sizes, margins, bins and defaults as the program
lists them, held against the description itself, as read by a reader of our own. In one process of the program, one
description after the other.

check_ppds.py QUEUE_PROBE [SOURCE...]
"""

import collections
import json
import os
import pathlib
import subprocess
import sys
import tempfile

import offer_check
import ppd_file
import ppd_sources

EXCEPTIONS = pathlib.Path(__file__).parent / "exceptions.json"
MOST_MS = 50  # of processor, for one description
LEAST = 10000  # descriptions; with fewer, packages are missing
TRIES = 5  # for a description that took long: the machine may have been busy
SHOWN = 15
NOT_FOUND = 77  # exit status of a test that cannot be made here


class Program:
    """Asks the program; starts it anew where it ended."""

    def __init__(self, probe, folder):
        self._probe, self._file = probe, pathlib.Path(folder) / "queue.ppd"
        self._start()

    def _start(self):
        environment = {**os.environ, "LC_ALL": "C", "QT_QPA_PLATFORM": "offscreen"}
        self._process = subprocess.Popen([self._probe, "--ppds"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                         text=True, env=environment)

    def _ask(self):
        self._process.stdin.write(f"{self._file}\n")
        self._process.stdin.flush()
        return self._process.stdout.readline()

    def offer(self, ppd):
        """What it offers; None if it ended instead."""
        self._file.write_bytes(ppd)
        line = self._ask()
        if not line:
            self.close()
            self._start()
            return None
        offered = json.loads(line)
        for _ in range(TRIES):
            if offered["ms"] > MOST_MS:
                offered["ms"] = min(offered["ms"], json.loads(self._ask())["ms"])
        return offered

    def close(self):
        self._process.stdin.close()
        self._process.wait()


class Count:
    def __init__(self):
        self.queues = 0
        self.slowest = (0, "")
        self.faults = collections.defaultdict(list)
        self.excepted = collections.Counter()
        self.with_fault = set()
        self._exceptions = json.loads(EXCEPTIONS.read_text("utf-8"))

    def _reason(self, name, kind):
        return next((each["reason"] for each in self._exceptions
                     if each["ppd"] == name and kind in each["kinds"]), None)

    def add(self, name, kind, what):
        reason = self._reason(name, kind)
        if reason:
            self.excepted[f"{name}: {reason}"] += 1
        else:
            self.faults[kind].append((name, what))
            self.with_fault.add(name)

    def judge(self, name, ppd, offered):
        self.queues += 1
        if offered is None:
            self.add(name, "crash", "the program ended")
            return
        if offered["ms"] > self.slowest[0]:
            self.slowest = (offered["ms"], name)
        if offered["ms"] > MOST_MS:
            self.add(name, "slow", f"{offered['ms']:.0f} ms")
        for kind, what in offer_check.differences(ppd_file.read(ppd), offered):
            self.add(name, kind, what)

    def tell(self):
        for kind, found in sorted(self.faults.items(), key=lambda each: -len(each[1])):
            print(f"{kind}: {len(found)} on {len({name for name, _ in found})} queues")
            for name, what in found[:SHOWN]:
                print(f"    {name}: {what}")
        for reason, count in self.excepted.items():
            print(f"excepted, {count} times: {reason}")
        print(f"{self.queues} descriptions, {len(self.with_fault)} with a fault, slowest {self.slowest[0]:.0f} ms "
              f"({self.slowest[1]})")


def main():
    probe, *only = sys.argv[1:]
    if not ppd_sources.archives():
        print("skipped: the packages of printer drivers are not installed (tools/setup.sh printers)")
        return NOT_FOUND
    count = Count()
    with tempfile.TemporaryDirectory() as folder:
        program = Program(probe, folder)
        for source, descriptions in ppd_sources.sources():
            if only and source not in only:
                continue
            for name, ppd in descriptions():
                count.judge(name, ppd, program.offer(ppd))
        program.close()
    count.tell()
    if not only and count.queues < LEAST:
        print(f"fewer than {LEAST} descriptions: packages are missing")
        return 1
    return 1 if count.faults else 0


if __name__ == "__main__":
    sys.exit(main())
