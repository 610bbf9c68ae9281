#!/usr/bin/env python3
"""Holds the disk of a Windows against what it was before the program previewed and printed: the program keeps its settings
in the registry and makes no file of its own, so there is nothing to find.

check_windows_writes.py --build FOLDER

FOLDER is the build folder of the Windows program. Exit status 77 where Wine or CUPS is missing.
"""

import argparse
import contextlib
import os
import pathlib
import sys
import tempfile

HERE = pathlib.Path(__file__).parent
sys.path.insert(0, str(HERE.with_name("windows")))
from office import FORMS, REPORT, Office  # noqa: E402


PRINTERS = os.path.join("windows", "system32", "spool", "drivers")  # where Windows keeps what the queues tell


def files_in(folder):
    """Path to what tells one state of a file from another."""
    found = {}
    for place, _, names in os.walk(folder):
        for name in names if PRINTERS not in place else ():
            path = pathlib.Path(place, name)
            with contextlib.suppress(FileNotFoundError):  # it has gone meanwhile
                status = path.lstat()
                found[str(path)] = (status.st_mtime_ns, status.st_size, status.st_ino)
    return found


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=pathlib.Path, required=True)
    build = parser.parse_args().build.resolve()
    with tempfile.TemporaryDirectory() as work:
        os.chdir(work)  # where the program is started
        with Office(build) as office:
            disk = office.prefix.folder / "drive_c"
            before = files_in(disk)
            office.start_at_the_last_page()
            office.open_manager()
            office.pick_document(FORMS)
            office.play("click frmPrintManager.cmdPrintVoorbeeld")
            office.user.shown.clear()
            office.agent.ask("terminate")
            office.start_at_the_last_page()
            office.open_manager()
            office.print_document(REPORT)
            job = office.server.next_job()
            office.play("click frmMain.Cancel")
            after = files_in(disk)
        found = sorted(path for path in {*before, *after} if before.get(path) != after.get(path))
        found += sorted(files_in(work))
        os.chdir("/")
    print("\n".join(found) or f"{len(after)} files, and none is new or changed.")
    return 1 if found or not before or not job.document else 0


if __name__ == "__main__":
    sys.exit(main())
