#!/usr/bin/env python3
"""The Debian package on a fresh machine: it is installed with what it asks for and no more, started from its entry in the
menu, F1 opens its handbook in each window, a batch is printed to a PDF with the keyboard alone, and after its removal the disk is
what it was before.

    install_deb.py --build FOLDER [--pictures FOLDER]

--build is the build folder of the release. Takes root, debootstrap and the mirror that this machine has its packages from.
Exit status 77 where these are missing.
"""
import pathlib
import re
import shutil
import sys

HERE = pathlib.Path(__file__).parent
for place in ("print/pdf", "print/windows", "windows"):
    sys.path.insert(0, str(HERE.parent / place))
from clean_root import OPENED, USER, CleanRoot  # noqa: E402
from debian_package import field, make  # noqa: E402
from desk import Desk  # noqa: E402
from failures import Failures  # noqa: E402
from keyboard_user import SETTINGS, KeyboardUser, trial_arguments  # noqa: E402
from print_batch import this_month  # noqa: E402

ENTRY = "/usr/share/applications/drukkeuring.desktop"
PROGRAM = "usr/bin/drukkeuring"
HANDBOOK = "usr/share/doc/drukkeuring/handleiding"
# What may be new in the user's home: the settings, and the toolkit's folders that its file window has shown.
KEPT = re.compile(rf"home/{USER}/(\.config(/(tarvik(/settings\.reg)?|QtProject\.conf))?"
                  rf"|keuring\.pdf)")
# What apt and dpkg keep of each installation.
SYSTEMS = re.compile(r"var/(cache/(apt/archives/.*|debconf/.*-old|ldconfig/.*)|lib/(apt|dpkg)/.*|log/(apt/.*|dpkg\.log))"
                     r"|etc/ld\.so\.cache")


class Trial(KeyboardUser):
    """One machine, from the installation to the removal."""

    def __init__(self, root, desk, package, failures):
        super().__init__(root, desk, PROGRAM, HANDBOOK, failures)
        self.package = package

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
        self.root.note_what_is_opened()
        before, packages = self.root.files(), self.root.packages()
        files = self.install()
        brought = self.root.packages() - packages
        print(f"{field(self.package, 'Version')} brings {len(brought)} packages.")
        month = this_month()  # the month is on the forms
        self.start()
        self.check_batch(self.print_batch(), month)
        self.close()
        (self.root.folder / OPENED[1:]).unlink()
        self.remove()
        self.failures.none_of(sorted(self.root.packages() ^ packages), "the packages are those of before")
        self.compare(before, files)


def main():
    arguments = trial_arguments(__file__)
    failures = Failures()
    package = make(arguments.build, arguments.inside / "package")
    root = CleanRoot(arguments.inside)
    with Desk("drukkeuring", arguments.pictures) as desk:
        Trial(root, desk, package, failures).run()
    failures.exit()


if __name__ == "__main__":
    sys.exit(main())
