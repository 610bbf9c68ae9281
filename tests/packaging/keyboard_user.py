"""A user of the installed program in a root of its own, who has the example's settings and works with keys alone."""
import argparse
import os
import pathlib
import subprocess
import sys

from clean_root import USER, in_a_namespace_of_its_own
from debian_package import need
from form_checker import FormChecker
from printed import Batch, settings_of

EXAMPLE = pathlib.Path(__file__).parents[2] / "examples" / "tarvik.reg"
SETTINGS = ".config/tarvik/settings.reg"
COUNT = 250
TOLERANCE_MM = 0.05


def trial_arguments(script):
    """Of a script that takes --build and --pictures; it goes on in a folder that is thrown away, `inside`, with mounts that nobody
    else sees."""
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=pathlib.Path, required=True)
    parser.add_argument("--pictures", type=pathlib.Path)
    parser.add_argument("--inside", type=pathlib.Path, help="for the script's own use")
    arguments = parser.parse_args()
    if not arguments.inside:
        sys.exit(in_a_namespace_of_its_own(sys.executable, [os.path.abspath(script), *sys.argv[1:]]))
    need("Xvfb", "xdotool", "import", "pdftotext")
    if arguments.pictures:
        arguments.pictures.mkdir(parents=True, exist_ok=True)
    return arguments


class KeyboardUser:
    """`program` and `handbook` are paths in the root."""

    def __init__(self, root, desk, program, handbook, failures):
        self.root = root
        self.desk = desk
        self.program = program
        self.handbook = handbook
        self.opened = 0  # pages of the handbook so far
        self.failures = failures
        self.home = root.folder / "home" / USER

    def check_opened(self, page):
        self.desk.wait(lambda: len(self.root.opened()) > self.opened, f"{page} is not opened")
        opened = [os.path.normpath(name.removeprefix("file://")) for name in self.root.opened()[self.opened:]]
        self.opened += len(opened)
        self.failures.equal(opened, [f"/{self.handbook}/{page}"], "the handbook that came along is opened")

    def arrive(self, section):
        """In a window, of which the handbook tells there."""
        self.desk.press("F1")
        self.check_opened(f"sections/{section}.html")

    def come_to_the_list(self):
        """The button comes once the count has been looked at."""
        self.desk.press("alt+o")
        return len(self.desk.windows()) > len(self.desk.known)

    def look_around(self):
        """The windows behind the last page."""
        self.desk.type("3")  # of a proof sheet: too few for a batch
        self.desk.wait(self.come_to_the_list, "the list of the precheck does not come")
        self.desk.wait_for_window("precheck")
        self.arrive("de-voorcontrole")
        self.desk.press("Escape")
        self.desk.wait_for_close()
        self.desk.press("alt+d")
        self.desk.wait_for_window("print-manager")
        self.arrive("afdrukken-met-afdrukbeheer")
        self.desk.press("space", "alt+v")
        self.desk.wait_for_window("preview")
        self.arrive("het-afdrukvoorbeeld")
        self.desk.press("Escape")
        self.desk.wait_for_close()
        self.desk.press("alt+s")
        self.desk.wait_for_close()
        self.desk.press("alt+t", "alt+v")  # and back, to the count of the batch

    def print_batch(self):
        """From the first page to the file with keys alone: the general procedure, 250 forms."""
        self.arrive("bladzijde-1-uw-gegevens")
        self.desk.press("Return")
        self.arrive("bladzijde-2-de-procedure")
        self.desk.press("Tab", "Up", "space", "Return")
        self.arrive("bladzijde-3-de-omvang")
        self.desk.press("Tab", "space", "Return")
        self.arrive("bladzijde-4-afdrukken")
        self.look_around()
        self.desk.press("Return")
        self.desk.wait_for_window("print-manager")
        self.desk.press("space")
        size = self.desk.size()
        self.desk.press("alt+t")
        self.desk.wait(lambda: self.desk.size() != size, "the details are not shown")
        self.desk.press("Tab", "Tab", "Home")  # the first paper is the sheet of the forms
        self.desk.picture_of("paper")
        self.desk.press("alt+d")
        self.desk.wait_for_window("file")
        pdf = self.home / "keuring.pdf"
        self.desk.type("keuring.pdf")
        self.desk.press("Return")
        self.desk.wait(pdf.exists, "no document is written")
        self.desk.wait_for_close(2)
        self.desk.picture_of("printed")
        return pdf

    def check_batch(self, pdf, month):
        batch = Batch(settings_of(EXAMPLE), str(pdf), COUNT, month, (0, 0), (0, 0))
        self.failures.none_of(batch.errors(), "what was drawn by chance may be")
        checker = FormChecker(batch.record, str(pdf), TOLERANCE_MM)
        checker.run()
        self.failures.none_of(checker.errors, f"every text of {COUNT} forms stands at its place")
        print(f"{checker.page_count} pages, the worst text is {checker.worst:.3f} mm off.")
        told = subprocess.run(["pdfinfo", str(pdf)], check=True, capture_output=True, text=True).stdout
        self.failures.check("595 x 864 pts" in told, "on sheets of 210 x 304.8 mm")
        fonts = subprocess.run(["pdffonts", str(pdf)], check=True, capture_output=True, text=True).stdout
        self.failures.check("OCR" in fonts and "Tahoma" in fonts, "in the fonts of the forms")

    def close(self):
        self.desk.press("alt+s")
        self.desk.wait(lambda: not self.root.processes(self.program), "the program stays")
