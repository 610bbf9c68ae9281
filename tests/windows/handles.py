#!/usr/bin/env python3
"""Counts what the program holds of the system over 200 prints and 200 previews in one run: objects of the drawing system,
windows, kernel handles, and, in a second run that Wine traces, handles of printers.

    handles.py --build FOLDER

Two kinds grow on purpose. Whoever writes a setting leaves its key open: a print writes the matrix mark and, at the closing of
the manager, its printer; a preview, printed or not, writes the mark alone. And whoever asks a printer for its state, as the manager's details do,
leaves the printer open. Exit status 77 where Wine, CUPS or Ghostscript is missing.
"""
import argparse
import pathlib
import re
import sys
import tempfile

from office import FORMS, REPORT, Office

WARM_UP = 10
PRINTS = 60  # each from a manager of its own
PRINTED_PREVIEWS = 140
PREVIEWS = 60
WINES_OWN = 8  # what comes and goes with its caches and threads; a loss in each print would be many times more
KEYS_OF_A_PRINT = 2
KEYS_OF_A_PREVIEW = 1
TRACED_TIMES = 4
VK_ESCAPE = 27


def print_once(office, details=False):
    office.open_manager(details)
    office.print_document(REPORT)
    office.server.next_job()


def preview_once(office):
    office.play("click frmPrintManager.cmdPrintVoorbeeld", f"key frmPrintPreview {VK_ESCAPE}")


def print_preview_once(office):
    office.play("click frmPrintManager.cmdPrintVoorbeeld", "menu frmPrintPreview ID_Afdrukken")
    office.server.next_job()


def handles_at_rest(office, windows):
    """GDI objects, windows and kernel handles, once no more than so many windows are left of what was closed."""
    office.user.wait_until(lambda: office.user.program.handles()[1] <= windows)
    return office.user.program.handles()


def expect(is_, should, what):
    print(f"{what}: {is_}")
    if is_[1] != should[1] or is_[0] > should[0] + WINES_OWN or abs(is_[2] - should[2]) > WINES_OWN:
        sys.exit(f"{should} GDI objects, windows and kernel handles were expected")


def grow(office, what, once, times, keys):
    """Does it often, and holds what is left of it against what was left after the first times. Windows at rest are those
    before it."""
    at_rest = office.user.program.handles()[1]
    for _ in range(WARM_UP):
        once(office)
    gdi, windows, kernel = handles_at_rest(office, at_rest)
    for _ in range(times - WARM_UP):
        once(office)
    expect(handles_at_rest(office, windows), [gdi, windows, kernel + keys * (times - WARM_UP)],
           f"after {times} {what}, {times - WARM_UP} of them since {[gdi, windows, kernel]}")


def count_handles(office):
    office.start_at_the_last_page()
    office.play("paste frmMain.UserText(0) 1")
    office.wait_for_precheck()
    grow(office, "prints", print_once, PRINTS, KEYS_OF_A_PRINT)
    office.open_manager()
    office.pick_document(FORMS)
    grow(office, "previews", preview_once, PREVIEWS, KEYS_OF_A_PREVIEW)
    grow(office, "previews that are printed", print_preview_once, PRINTED_PREVIEWS, KEYS_OF_A_PREVIEW)
    office.play("click frmPrintManager.cmdAnnuleren", "click frmMain.Cancel")


class Trace:
    """What Wine tells about the opening and closing of printers."""

    OPENED = re.compile(rb"OpenPrinter2W returning 1 ")
    CLOSED = re.compile(rb"ClosePrinter closing ")

    def __init__(self, file):
        self.file = file
        self.open = 0
        self.rest = b""

    def open_printers(self):
        lines = (self.rest + self.file.read()).split(b"\n")
        self.rest = lines.pop()
        for line in lines:
            self.open += bool(self.OPENED.search(line)) - bool(self.CLOSED.search(line))
        return self.open


def count_printers(office):
    with tempfile.TemporaryFile() as log, open(f"/dev/fd/{log.fileno()}", "rb") as file:
        office.trace("-all,trace+winspool", log)
        trace = Trace(file)
        office.start_at_the_last_page()
        office.play("paste frmMain.UserText(0) 1")
        for details in (False, True):
            print_once(office, details)
            print_once(office, details)
            before = trace.open_printers()
            for _ in range(TRACED_TIMES):
                print_once(office, details)
            grown = trace.open_printers() - before
            what = f"{TRACED_TIMES} prints {'with' if details else 'without'} the printer's details: {grown} left open"
            if trace.open == 0 or grown != TRACED_TIMES * details:
                sys.exit(what)
            print(what)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=pathlib.Path, required=True)
    with Office(parser.parse_args().build) as office:
        count_handles(office)
        count_printers(office)


if __name__ == "__main__":
    main()
