#!/usr/bin/env python3
"""The program as users run it, while the machine fails it: calls that fail once, kills, full disks, the end of the
screen, and other programs that write the same settings. Ends with what was done and what was found.

campaign.py --program P --player P --writer P --settings F [--only PART...] [--sample N]
"""
import argparse
import concurrent.futures
import itertools
import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile
import threading
import time

import faults
from judge import KINDS, Judge
from machine import Machine, pdf_server, plain
from support.print_server import end_with_parent

NOT_FOUND = 77  # exit status of a test that cannot be made here
WORKERS = os.cpu_count() or 1
TRIES = 3  # of a run that did not come to the call
ENOUGH = 0.7  # of the calls that are to fail: which call has which number differs from run to run
KILLS, SCREENS, PAIRS, VALUES = 200, 10, 40, 15
DISKS = (*range(4, 100, 4), *range(100, 340, 10))  # kilobytes


class Campaign:
    def __init__(self, options, place):
        self.options, self.place = options, pathlib.Path(place)
        self.local, self.lock, self.random = threading.local(), threading.Lock(), random.Random(20261122)
        self.servers, self.skipped, self.done, self.short = [], [], {}, []
        self.pool = concurrent.futures.ThreadPoolExecutor(WORKERS)
        self.pool.submit(self.look).result()

    def look(self):
        """At a run in which nothing fails."""
        machine = self.machine()
        began = time.monotonic()
        self.trace = self.place / "reference"
        run = machine.run(faults.watching(self.trace), self.trace)
        self.took = time.monotonic() - began
        if run.status != 0 or run.messages or run.job is None or run.missing:
            raise SystemExit(f"the run without any failure fails: {run[:3]}")
        self.points = faults.points(run.log, machine.place)
        self.judge = Judge(machine.lines_of_settings(), run.job.document, run.pdf)
        self.judge.judge(machine, run, "nothing fails")
        print(f"{len(self.points)} calls, a run takes {self.took:.1f} s", flush=True)

    def machine(self):
        """This worker's own, as new."""
        if not hasattr(self.local, "machine"):
            with self.lock:
                number = len(self.servers)
                self.servers.append(pdf_server())
            self.local.machine = Machine(self.place / str(number), self.options, self.servers[number])
        return self.local.machine.prepare()

    def each(self, part, jobs, work):
        jobs = list(jobs)
        if self.options.sample:
            jobs = self.random.sample(jobs, min(self.options.sample, len(jobs)))
        done = sum(self.pool.map(work, jobs))
        self.done[part] = done
        if done < ENOUGH * len(jobs):
            self.short.append(part)
        print(f"{part}: {done} of {len(jobs)}", flush=True)

    def note(self, call, *arguments):
        with self.lock:
            call(*arguments)

    def faults(self):
        self.each("single faults", itertools.product(self.points, faults.ERRORS), self.one_fault)

    def one_fault(self, job):
        point, error = job
        for _ in range(TRIES):
            machine = self.machine()
            trace = machine.place / "trace"
            run = machine.run(faults.failing(point, error, trace), trace)
            failed = faults.injected(run.log, machine.place)
            if not failed and run.status != 0:
                continue  # the player has missed its moment
            self.note(self.judge.judge, machine, run, f"{error} of {failed[0][2] if failed else point}")
            if any(call == point.call and what for call, what, _ in failed):
                return 1
        return 0

    def kills(self):
        self.each("kills", range(KILLS), self.one_kill)

    def one_kill(self, _):
        machine = self.machine()
        process = machine.start()
        time.sleep(self.random.uniform(0.05, self.took))
        process.kill()
        process.communicate()
        machine.take_job(False)
        self.note(self.judge.files, machine, "a kill")
        stay = [path for path in machine.leftovers() if not path.name.startswith(".settings-")]
        # Beside a PDF that is replaced there may be the new one, whole.
        for path in stay:
            if path.parent != machine.out or not plain(path.read_bytes()):
                self.note(self.judge.note, "changed", f"{path} stays", "a kill")
        return 1

    def disks(self):
        if subprocess.run(["unshare", "-Urm", "true"], check=False, capture_output=True).returncode:
            self.skipped.append("full disks")
            return
        self.each("full disks", [(size, name) for size in DISKS for name in ("uit", "home/.cache")], self.one_disk)

    def one_disk(self, job):
        size, name = job
        machine = self.machine()
        folder = machine.place / name
        folder.mkdir(parents=True, exist_ok=True)
        keep = machine.place / "keep.pdf"
        # The file system is seen in there alone, so what becomes of the PDF is carried out.
        script = ('mount -t tmpfs -o size=$1k tmpfs "$2" || exit 99; echo -n "%PDF-1.4 van gisteren" >"$2/uit.pdf";'
                  'shift 3; "$@"; status=$?; cp "$CAMPAIGN_PDF" ../keep.pdf; exit $status')
        run = machine.run(["unshare", "-Urm", "sh", "-c", script.replace("../keep.pdf", str(keep)), "sh", str(size),
                           str(folder), "--"])
        if name == "uit" and keep.exists():
            run = run._replace(pdf=keep.read_bytes())
            shutil.copy(keep, machine.out / "uit.pdf")
        self.note(self.judge.judge, machine, run, f"{size} kB for {name}")
        return 1

    def screens(self):
        if not shutil.which("Xvfb"):
            self.skipped.append("ends of the screen")
            return
        self.each("ends of the screen", range(SCREENS), self.one_screen)

    def one_screen(self, number):
        machine = self.machine()
        display = f":{700 + number}"
        screen = subprocess.Popen(["Xvfb", display, "-nolisten", "tcp"], stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL, preexec_fn=end_with_parent)
        socket = pathlib.Path(f"/tmp/.X11-unix/X{display[1:]}")
        end = time.monotonic() + 10
        while not socket.exists() and time.monotonic() < end:
            time.sleep(0.01)
        process = machine.start(QT_QPA_PLATFORM="xcb", DISPLAY=display)
        time.sleep(self.random.uniform(0.3, self.took + 0.3))
        screen.kill()
        screen.wait()
        process.communicate(timeout=60)
        machine.take_job(False)
        self.note(self.judge.files, machine, "the end of the screen")
        for path in machine.leftovers():
            self.note(self.judge.note, "changed", f"{path.name} stays", "the end of the screen")
        return 1

    def pairs(self):
        self.each("pairs of writers", range(PAIRS), self.one_pair)

    def one_pair(self, number):
        machine = self.machine()
        writers = [subprocess.Popen([self.options.writer, machine.settings, name, str(VALUES)], stdout=subprocess.PIPE)
                   for name in ("Een", "Twee")]
        taken = [name for writer in writers for name in writer.communicate()[0].decode().split()]
        text = machine.settings.read_bytes()
        for name in taken:
            if f'"{name}"="{name}"'.encode() not in text and f'"{name}"="{name}"'.encode("utf-16-le") not in text:
                self.note(self.judge.note, "forgotten", f"{name} was taken and is gone", f"pair {number}")
        if len(taken) != 2 * VALUES:
            self.note(self.judge.note, "forgotten", f"{2 * VALUES - len(taken)} refused", f"pair {number}")
        return 1

    def report(self):
        for line in self.judge.found:
            print(line)
        print(", ".join(f"{count} {part}" for part, count in self.done.items()) + f"; skipped: "
              f"{', '.join(self.skipped) or 'nothing'}")
        print(", ".join(f"{self.judge.counts[kind]} {kind}" for kind in KINDS))
        if self.short:
            print(f"too few: {', '.join(self.short)}")
        return 1 if self.short or any(self.judge.counts[kind] for kind in KINDS) else 0


def main():
    parser = argparse.ArgumentParser()
    for name in ("program", "player", "writer", "settings"):
        parser.add_argument(f"--{name}", required=True, type=os.path.abspath)
    parts = ("faults", "kills", "disks", "screens", "pairs")
    parser.add_argument("--only", nargs="*", choices=parts, default=parts)
    parser.add_argument("--sample", type=int, help="so many of each part")
    options = parser.parse_args()
    if not shutil.which("strace"):
        print("skipped: strace is not installed")
        return NOT_FOUND
    with tempfile.TemporaryDirectory(prefix="veldtocht-") as place:
        campaign = Campaign(options, place)
        try:
            for part in options.only:
                getattr(campaign, part)()
            return campaign.report()
        finally:
            campaign.pool.shutdown()
            for server in campaign.servers:
                server.close()


if __name__ == "__main__":
    sys.exit(main())
