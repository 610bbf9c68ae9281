#!/usr/bin/env python3
"""The Debian package on a fresh machine: it is installed with what it asks for and no more, started from its entry in the
menu, a batch is printed to a PDF with the keyboard alone, and after its removal the disk is what it was before.

    install_deb.py --build FOLDER [--pictures FOLDER]

--build is the build folder of the release. Takes root, debootstrap and the mirror that this machine has its packages from.
Exit status 77 where these are missing.
"""
import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys

HERE = pathlib.Path(__file__).parent
for place in ("print/pdf", "print/windows", "windows"):
    sys.path.insert(0, str(HERE.parent / place))
from clean_root import USER, CleanRoot, in_a_namespace_of_its_own  # noqa: E402
from debian_package import field, make, need  # noqa: E402
from desk import Desk  # noqa: E402
from failures import Failures  # noqa: E402
from form_checker import FormChecker  # noqa: E402
from print_batch import this_month  # noqa: E402
from printed import Batch, settings_of  # noqa: E402

EXAMPLE = HERE.parents[1] / "examples" / "tarvik.reg"
COUNT = 250
TOLERANCE_MM = 0.05
ENTRY = "/usr/share/applications/drukkeuring.desktop"
PROGRAM = "usr/bin/drukkeuring"
SETTINGS = ".config/tarvik/settings.reg"
# What may be new in the user's home: the settings, and the toolkit's folders that its file window has shown.
KEPT = re.compile(rf"home/{USER}/(\.config(/(tarvik(/settings\.reg)?|QtProject\.conf))?"
                  rf"|keuring\.pdf)")
# What apt and dpkg keep of each installation.
SYSTEMS = re.compile(r"var/(cache/(apt/archives/.*|debconf/.*-old|ldconfig/.*)|lib/(apt|dpkg)/.*|log/(apt/.*|dpkg\.log))"
                     r"|etc/ld\.so\.cache")


class Trial:
    """One machine, from the installation to the removal."""

    def __init__(self, root, desk, package, failures):
        self.root = root
        self.desk = desk
        self.package = package
        self.failures = failures
        self.home = root.folder / "home" / USER

    def user_runs(self, *command):
        return self.root.run(*command, user=USER, DISPLAY=self.desk.display)

    def install(self):
        copy = self.root.folder / "tmp" / self.package.name
        shutil.copy(self.package, copy)
        self.root.install(f"/tmp/{self.package.name}")
        copy.unlink()
        owned = self.root.run("dpkg", "-L", "drukkeuring").split("\n")
        files = [name for name in owned if name and not (self.root.folder / name[1:]).is_dir()]
        self.failures.check(len(files) > 10 and all((self.root.folder / name[1:]).is_file() for name in files),
                            f"{len(files)} files of the package are there")
        self.failures.check(self.root.run("dpkg", "--verify", "drukkeuring") == "", "and are as they were packed")
        return files

    def start(self):
        self.user_runs("install", "-D", "/usr/share/doc/drukkeuring/examples/tarvik.reg", SETTINGS)
        self.user_runs("gio", "launch", ENTRY)
        title = self.desk.wait_for_window("first-page")
        self.failures.check(title.startswith("Ondor Drukkeuring"), f"the menu's entry opens \"{title}\"")
        self.failures.check(len(self.root.processes(PROGRAM)) == 1, "one program runs")

    def print_batch(self):
        """From the first page to the file with keys alone: the general procedure, 250 forms."""
        self.desk.press("Return", "Tab", "Up", "space", "Return")
        self.desk.press("Tab", "space", "Return")
        self.desk.press("Return")
        self.desk.wait_for_window("print-manager")
        self.desk.press("space")
        size = self.desk.size()
        self.desk.press("alt+t")
        self.desk.wait(lambda: self.desk.size() != size, "the details are not shown")
        self.desk.press("Tab", "Tab", "End")  # the last paper is Legal: three forms are longer than a sheet of A4
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
        fonts = subprocess.run(["pdffonts", str(pdf)], check=True, capture_output=True, text=True).stdout
        self.failures.check("OCR" in fonts and "Tahoma" in fonts, "in the fonts of the forms")

    def close(self):
        self.desk.press("alt+s")
        self.desk.wait(lambda: not self.root.processes(PROGRAM), "the program stays")

    def remove(self):
        settings = (self.home / SETTINGS).read_bytes()
        self.root.run("apt-get", "purge", "-y", "drukkeuring")
        self.root.run("apt-get", "autoremove", "--purge", "-y", "-o", "APT::AutoRemove::RecommendsImportant=false",
                      "-o", "APT::AutoRemove::SuggestsImportant=false")
        self.failures.check((self.home / SETTINGS).read_bytes() == settings, "the settings stand")

    def compare(self, before, files):
        after = self.root.files()
        different = {name for name in {*before, *after} if before.get(name) != after.get(name)}
        self.failures.none_of([name for name in files if (self.root.folder / name[1:]).exists()],
                              "no file of the package is left")
        self.failures.none_of(sorted(name for name in different if not KEPT.fullmatch(name) and not SYSTEMS.fullmatch(name)),
                              "nothing else is left, is gone or has changed")
        self.failures.none_of(sorted(name for name in different if "drukkeuring" in name and not KEPT.fullmatch(name)),
                              "nor is anything with its name")

    def run(self):
        self.root.add_user()
        self.root.install("libglib2.0-bin")  # the desktop's own starter of entries
        before, packages = self.root.files(), self.root.packages()
        files = self.install()
        brought = self.root.packages() - packages
        print(f"{field(self.package, 'Version')} brings {len(brought)} packages.")
        month = this_month()  # the month is on the forms
        self.start()
        pdf = self.print_batch()
        self.check_batch(pdf, month)
        self.close()
        self.remove()
        self.failures.none_of(sorted(self.root.packages() ^ packages), "the packages are those of before")
        self.compare(before, files)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=pathlib.Path, required=True)
    parser.add_argument("--pictures", type=pathlib.Path)
    parser.add_argument("--inside", type=pathlib.Path, help="for the script's own use")
    arguments = parser.parse_args()
    if not arguments.inside:
        sys.exit(in_a_namespace_of_its_own(sys.executable, [os.path.abspath(__file__), *sys.argv[1:]]))
    need("Xvfb", "xdotool", "import", "pdftotext")
    failures = Failures()
    package = make(arguments.build, arguments.inside / "package")
    if arguments.pictures:
        arguments.pictures.mkdir(parents=True, exist_ok=True)
    root = CleanRoot(arguments.inside)
    with Desk("drukkeuring", arguments.pictures) as desk:
        Trial(root, desk, package, failures).run()
    failures.exit()


if __name__ == "__main__":
    sys.exit(main())
