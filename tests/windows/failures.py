"""What a test finds wrong, and the exit status that tells of it."""
import argparse
import pathlib
import shutil
import sys

from office import Office
from show import Screen
from wine_prefix import skip


class Failures:
    """Prints each thing that is looked at, and counts those that are wrong."""

    def __init__(self):
        self.count = 0

    def check(self, holds, what):
        print("ok" if holds else "FAILED", what)
        self.count += not holds

    def equal(self, is_, should, what):
        self.check(is_ == should, f"{what}: {is_}" + f", expected {should}" * (is_ != should))

    def none_of(self, errors, what):
        errors = list(errors)
        self.check(not errors, f"{what}{': ' if errors else ''}{'; '.join(errors[:10])}")

    def exit(self):
        print(f"{self.count} failed")
        sys.exit(1 if self.count else 0)


def build_folder():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=pathlib.Path, required=True)
    return parser.parse_args().build


def test_in_office(test):
    """Runs `test(office, failures)` with the program of the build folder that the command line names, and ends."""
    failures = Failures()
    with Office(build_folder()) as office:
        test(office, failures)
    failures.exit()


def test_on_screen(test):
    """The same with a screen that nobody sees: `test(office, screen, failures)`."""
    build = build_folder()
    if not shutil.which("Xvfb"):
        skip("Xvfb is not installed")
    failures = Failures()
    with Screen(1280, 1024) as screen, Office(build) as office:
        office.use_screen(screen.display)
        test(office, screen, failures)
    failures.exit()
