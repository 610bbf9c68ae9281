"""What a test finds wrong, and the exit status that tells of it."""
import argparse
import pathlib
import sys

from office import Office


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


def test_in_office(test):
    """Runs `test(office, failures)` with the program of the build folder that the command line names, and ends."""
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=pathlib.Path, required=True)
    build = parser.parse_args().build
    failures = Failures()
    with Office(build) as office:
        test(office, failures)
    failures.exit()
