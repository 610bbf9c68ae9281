#!/usr/bin/env python3
"""The tar.gz for other distributions: what is in it, and the program out of it in a root that is laid out unlike Debian and has no
fonts. It is unpacked in /opt and moved, started, F1 opens its handbook in each window, and a batch is printed to a PDF with the
keyboard alone.

    check_archive.py --build FOLDER [--pictures FOLDER]

--build is the build folder of the release. Takes root, for the root. Exit status 77 where that or a tool is missing.
"""
import os
import pathlib
import subprocess
import sys
import tarfile

HERE = pathlib.Path(__file__).parent
for place in ("print/pdf", "print/windows", "windows"):
    sys.path.insert(0, str(HERE.parent / place))
from clean_root import USER  # noqa: E402
from debian_package import skip  # noqa: E402
from desk import Desk  # noqa: E402
from failures import Failures  # noqa: E402
from keyboard_user import EXAMPLE, SETTINGS, KeyboardUser, trial_arguments  # noqa: E402
from other_root import OtherRoot  # noqa: E402
from print_batch import this_month  # noqa: E402

FOLDER = "opt/Ondor"
PROGRAM = f"{FOLDER}/bin/drukkeuring"
HANDBOOK = f"{FOLDER}/share/doc/drukkeuring/handleiding"
HELD = {"LEESMIJ.txt", "bin/drukkeuring", "bin/drukkeuring-handleiding", "share/applications/drukkeuring.desktop",
        "share/doc/drukkeuring/copyright", "share/doc/drukkeuring/examples/tarvik.reg",
        "share/doc/drukkeuring/handleiding/index.html", "share/drukkeuring/fonts/OCRB.otf",
        "share/drukkeuring/fonts/fonts-ocr-b.copyright", "share/drukkeuring/fonts/fonts-wine.copyright",
        "share/drukkeuring/fonts/tahoma.ttf", "share/drukkeuring/fonts/tahomabd.ttf",
        "share/man/man1/drukkeuring.1.gz", "share/man/nl/man1/drukkeuring.1.gz"}


def make(build, folder):
    script = build / "packaging" / "make_archive.cmake"
    if not script.exists():
        skip("the build folder cannot make an archive")
    subprocess.run(["cmake", f"-DFOLDER={folder}", "-P", str(script)], check=True)
    archive, = folder.glob("drukkeuring-*.tar.gz")
    return archive


def check_contents(archive, build, failures):
    with tarfile.open(archive) as held:
        entries = held.getmembers()
        top, = {entry.name.split("/")[0] for entry in entries}
        names = {entry.name.removeprefix(f"{top}/") for entry in entries}
        failures.check(top == archive.name.removesuffix(".tar.gz") and HELD <= names, f"it holds {sorted(HELD - names) or 'everything'}")
        failures.none_of((entry.name for entry in entries if (entry.uid, entry.gid) != (0, 0) or entry.mode & 0o022),
                         "nobody but root may write to it")
        program = held.extractfile(f"{top}/bin/drukkeuring").read()
    failures.check(os.fsencode(build) not in program, "it knows nothing of the folder that it was built in")
    return top


class Trial(KeyboardUser):
    def __init__(self, root, desk, failures):
        super().__init__(root, desk, PROGRAM, HANDBOOK, failures)
        settings = self.home / SETTINGS
        root.run("mkdir", "-p", f"/home/{USER}/{SETTINGS.rpartition('/')[0]}", user=USER)
        settings.write_bytes(EXAMPLE.read_bytes())
        os.chown(settings, settings.parent.stat().st_uid, -1)

    def check_command(self):
        self.root.run(f"/{FOLDER}/bin/drukkeuring-handleiding", user=USER)
        self.check_opened("index.html")

    def run(self):
        month = this_month()  # the month is on the forms
        words = self.root.words([f"/{PROGRAM}"], USER)
        with subprocess.Popen(words, env=self.root.environment(USER, DISPLAY=self.desk.display), stdin=subprocess.DEVNULL) as program:
            try:
                self.desk.wait_for_window("first-page")
                self.check_command()
                self.check_batch(self.print_batch(), month)
                self.close()
            except BaseException:
                program.kill()
                raise


def main():
    arguments = trial_arguments(__file__)
    build = arguments.build.resolve()
    failures = Failures()
    archive = make(build, arguments.inside)
    top = check_contents(archive, build, failures)
    root = OtherRoot(arguments.inside, [build / "bin" / "drukkeuring"])
    (root.folder / "opt").mkdir()
    subprocess.run(["tar", "--extract", "--directory", str(root.folder / "opt"), "--file", str(archive)], check=True)
    (root.folder / "opt" / top).rename(root.folder / FOLDER)
    with Desk("drukkeuring", arguments.pictures) as desk:
        Trial(root, desk, failures).run()
    failures.exit()


if __name__ == "__main__":
    sys.exit(main())
