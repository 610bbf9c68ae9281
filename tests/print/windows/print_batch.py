#!/usr/bin/env python3
"""The whole program under Wine, from Tarvik's settings to the paper: the wizard is walked for 250 forms, each of the three
documents is printed on a paper and from a tray that the user chooses by name, and what comes out of the print server is read
back, text by text. The printer's defaults are the old ones when the program starts anew.

    print_batch.py --build FOLDER

FOLDER is the build folder of the Windows program. Exit status 77 where Wine, CUPS or Ghostscript is missing.
"""
import argparse
import contextlib
import datetime
import pathlib
import sys
import tempfile

from printed import Batch, as_pdf, features, name_list_errors, report_errors, settings_of

PRINT = pathlib.Path(__file__).parents[1]
for folder in (PRINT / "pdf", PRINT.parent / "windows"):
    sys.path.insert(0, str(folder))
from failures import Failures  # noqa: E402
from form_checker import FontMissing, FormChecker, check_known_values  # noqa: E402
from office import BIN, FORMS, NAME_LIST, ORIENTATION, PAPER, REPORT, STORED, TITLES, Office  # noqa: E402
from wine_prefix import skip  # noqa: E402

COUNT = 250
TOLERANCE_MM = 0.1
DOTS = 600  # of the queue, to the inch
MARGIN_INCH = 0.25  # of each paper, left and above
MARGIN = 1440 * MARGIN_INCH  # twips
OFFSET = 1400 * MARGIN_INCH  # as which the program takes it
LIST_LEFT = MARGIN + 450

A4, LEGAL = "A4 blanco", "US Legal"
UPPER, FORM_TRAY, MANUAL = "Lade boven", "Lade 3 met formulieren", "Handinvoer"
UPRIGHT, SIDEWAYS = "Staand", "Liggend"


def this_month():
    now = datetime.datetime.now()
    return now.year, now.month


class Walk:
    """What the test does in the office, and what it finds."""

    def __init__(self, office, folder, failures):
        self.office = office
        self.folder = folder
        self.failures = failures
        self.settings = settings_of(STORED)

    def found_settings(self):
        """Opens the manager with its details, and tells the printer's own settings."""
        self.office.open_manager(details=True)
        return [self.office.chosen(number) for number in (PAPER, BIN, ORIENTATION)]

    def choose(self, paper, tray, way=UPRIGHT):
        for number, text in ((PAPER, paper), (BIN, tray), (ORIENTATION, way)):
            self.office.choose(number, text)

    def printed(self, document, paper, tray, way=UPRIGHT):
        """Prints with what has been chosen; the PDF of what arrives. `paper` and `tray` are the queue's own words."""
        self.office.print_document(document)
        job = self.office.server.next_job()
        title = TITLES[document]
        self.failures.check((job.title, job.copies) == (title, "1"), f"{title}: one copy of {job.title}")
        asked = features(job.document)
        self.failures.check((asked.get("PageSize"), asked.get("InputSlot")) == (paper, tray),
                            f"{title} is on the chosen paper from the chosen tray: {asked}")
        self.failures.check((b"%%Orientation: Landscape" in job.document) == (way == SIDEWAYS), f"and lies {way.lower()}")
        return as_pdf(job.document, self.folder)

    def check_forms(self):
        before = None
        while before != this_month():  # the month is on the forms
            before = this_month()
            self.choose(LEGAL, FORM_TRAY)  # three forms are longer than a sheet of A4
            pdf = self.printed(FORMS, "Legal", "Tray3")
            if before != this_month():
                self.found_settings()
        batch = Batch(self.settings, pdf, COUNT, before, (MARGIN, MARGIN), (OFFSET, OFFSET))
        self.failures.none_of(batch.errors(), "what was drawn by chance may be")
        checker = FormChecker(batch.record, pdf, TOLERANCE_MM, DOTS)
        checker.run()
        self.failures.none_of(checker.errors, f"every text of {COUNT} forms stands at its place")
        print(f"{checker.page_count} pages, the worst text is {checker.worst:.3f} mm off.")

    def check_lists(self):
        self.choose(A4, MANUAL)
        pdf = self.printed(NAME_LIST, "A4", "Manual")
        self.failures.none_of(name_list_errors(pdf, LIST_LEFT), "the name list")
        self.found_settings()
        self.choose(A4, UPPER)
        pdf = self.printed(REPORT, "A4", "Upper")
        self.failures.none_of(report_errors(pdf, self.settings, LIST_LEFT), "the report of the calibration")

    def run(self):
        office = self.office
        office.start_at_the_last_page()
        self.failures.check(office.user.window("frmMain", "UserText(0)").text == str(COUNT), "250 forms are asked for")
        first = self.found_settings()
        self.failures.check(first[0] == A4 and first[1] not in (UPPER, FORM_TRAY, MANUAL) and first[2] == UPRIGHT,
                            f"the printer's own settings: {first}")
        self.check_forms()
        self.failures.check(self.found_settings() == first, "the settings are put back at closing")
        self.check_lists()
        self.failures.check(self.found_settings() == first, "also after the lists")
        self.choose(LEGAL, FORM_TRAY, SIDEWAYS)
        self.printed(REPORT, "Legal", "Tray3", SIDEWAYS)

        self.start_anew("click frmMain.Cancel")
        self.failures.check(self.found_settings() == first, "a new start finds the settings as they were")
        self.choose(A4, FORM_TRAY)
        office.pick_document(REPORT)
        office.play("click frmPrintManager.cmdPrintVoorbeeld")
        self.start_anew(None)
        found = self.found_settings()
        self.failures.check(found == [first[0], FORM_TRAY, first[2]],
                            f"a program that is killed meanwhile leaves its tray behind: {found}")
        self.failures.none_of(map(str, office.events("message", "error", "ignored", "refused")), "nobody is told anything")

    def start_anew(self, end):
        if end:
            self.office.play(end)
        else:
            self.office.agent.ask("terminate")
        self.office.user.shown.clear()
        self.office.start_at_the_last_page()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=pathlib.Path, required=True)
    build = parser.parse_args().build
    check_known_values()
    failures = Failures()
    with contextlib.ExitStack() as ends:
        folder = ends.enter_context(tempfile.TemporaryDirectory())
        office = ends.enter_context(Office(build))
        try:
            Walk(office, folder, failures).run()
        except FontMissing as missing:
            skip(f"{missing} is not installed")
    failures.exit()


if __name__ == "__main__":
    main()
