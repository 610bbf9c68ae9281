#!/usr/bin/env python3
"""The report of the calibration on paper, for types of form that have a text and for one that has none, and with an OCR-B font
that the printer lacks.

    report.py --build FOLDER

FOLDER is the build folder of the Windows program. Exit status 77 where Wine, CUPS or Ghostscript is missing.
"""
import pathlib
import re
import subprocess
import sys
import tempfile

from print_batch import LIST_LEFT
from printed import FONT_SAMPLE, as_pdf, lines, report_errors, settings_of, text_of, words

sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "windows"))
from failures import test_in_office  # noqa: E402
from office import REPORT, STORED  # noqa: E402
from watcher import SETTINGS  # noqa: E402

OCR, PLAIN, MISSING = "OCR-B", "Tahoma", "Zo heet geen lettertype"
NO_TEXT = "0"  # the type of form that has none
SETUPS = [(NO_TEXT, OCR), ("2", OCR), ("3", PLAIN), ("1", MISSING)]
LINE = 8 * 1.207 * 20  # twips, of Tahoma at 8 points
NEAR = 25  # twips


def prints_in_ocr(pdf):
    fonts = subprocess.run(["pdffonts", pdf], check=True, capture_output=True, text=True).stdout
    return re.search(r"OCR-?B", fonts) is not None


def steps_to_sample(pdf):
    """From the line of the type to that of the font's sample, in twips."""
    _, pages = words(pdf)
    tops = {text_of(line): line[0][3] for line in lines(pages[1])}
    type_line = next(text for text in tops if text.startswith("Acceptgiro type:"))
    return tops[FONT_SAMPLE[0]] - tops[type_line]


def print_report(office, form_type, font, folder, failures):
    """The distance to the sample."""
    registry = office.user.registry
    settings = {**settings_of(STORED), "AcceptgiroType": form_type, "GMUFontName": font}
    for name in ("AcceptgiroType", "GMUFontName"):
        registry.set_text(SETTINGS, name, settings[name])
    office.user.shown.clear()
    office.start_at_the_last_page()  # the font is read at the start alone
    office.open_manager(details=True)  # which chooses how the sheet lies, and with it the margin
    office.print_document(REPORT)
    office.play("click frmMain.Cancel")
    pdf = as_pdf(office.server.next_job().document, folder)
    what = f"type {form_type}, {font}"
    failures.none_of(report_errors(pdf, settings, LIST_LEFT), f"{what}: all four places of a part, and the sample whole")
    # What Windows takes for a font that is not there is its own affair, and may be any.
    failures.check(font == MISSING or prints_in_ocr(pdf) == (font == OCR), f"{what}: the sample is in this font")
    failures.check(not office.events("message", "error"), f"{what}: nobody is told anything")
    return steps_to_sample(pdf)


def check(office, failures):
    with tempfile.TemporaryDirectory() as folder:
        steps = [print_report(office, form_type, font, folder, failures) for form_type, font in SETUPS]
    # A type with a text ends its line; the other leaves it open, and the next text stands as far below it.
    failures.check(all(abs(step - steps[0] - LINE) < NEAR for step in steps[1:]), f"the sample's distance: {steps}")


if __name__ == "__main__":
    test_in_office(check)
