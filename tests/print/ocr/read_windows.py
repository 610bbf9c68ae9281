"""Reads the OCR line of 100 forms of the Windows program, as a bank does: it prints under Wine, and what comes out of the
print server becomes a picture.

read_windows.py --build FOLDER

FOLDER is the build folder of the Windows program. Exit status 77 where Wine, CUPS, Ghostscript or Tesseract is missing.
"""

import argparse
import contextlib
import pathlib
import sys
import tempfile

from line_reader import HERE, judge, missing_tool, read_lines

for folder in (HERE.with_name("windows"), HERE.parents[1] / "windows"):
    sys.path.insert(0, str(folder))
from office import BIN, FORMS as DOCUMENT_FORMS, PAPER, STORED, Office  # noqa: E402
from print_batch import FORM_TRAY, LEGAL, MARGIN, OFFSET, this_month  # noqa: E402
from printed import Batch, as_pdf, settings_of  # noqa: E402
from wine_prefix import skip  # noqa: E402

FORMS, WANTED = 100, 98


def print_forms(office, folder):
    """The PDF of what the program prints, and the month that stands on its forms."""
    before = None
    office.start_at_the_last_page()
    while before != this_month():
        before = this_month()
        office.open_manager(details=True)
        office.choose(PAPER, LEGAL)
        office.choose(BIN, FORM_TRAY)
        office.print_document(DOCUMENT_FORMS)
        job = office.server.next_job()
    return as_pdf(job.document, folder), before


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=pathlib.Path, required=True)
    build = parser.parse_args().build
    if missing_tool():
        skip(f"{missing_tool()} is not installed")
    with contextlib.ExitStack() as ends:
        folder = ends.enter_context(tempfile.TemporaryDirectory())
        with Office(build) as office:
            pdf, month = print_forms(office, folder)
        batch = Batch(settings_of(STORED), pdf, FORMS, month, (MARGIN, MARGIN), (OFFSET, OFFSET))
        lines = read_lines(pdf, batch.record, FORMS, folder)
    return 0 if len(lines) == FORMS and judge(lines, WANTED) else 1


if __name__ == "__main__":
    sys.exit(main())
