#!/usr/bin/env python3
"""The setup of the Windows program under Wine: it installs silently, the program is started from the start menu and prints a
batch on the sheet of the forms, the setup and the removal leave a running program alone, an older version is replaced, and after the removal disk and
registry are what they were. And the zip holds what the setup installs,
and both exes tell the same of the product.

    check_setup.py --build FOLDER

FOLDER is the build folder of the Windows program. Exit status 77 where Wine, CUPS or Ghostscript is missing, or where no
setup has been made.
"""
import argparse
import hashlib
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time
import zipfile

HERE = pathlib.Path(__file__).parent
for folder in ("print/pdf", "print/windows", "security", "windows"):
    sys.path.insert(0, str(HERE.parent / folder))
from agent import Registry  # noqa: E402
from check_windows_writes import files_in  # noqa: E402
from failures import Failures  # noqa: E402
from form_checker import FontMissing, FormChecker  # noqa: E402
from office import FORMS, PAPER, STORED, Office  # noqa: E402
from print_batch import DOTS, MARGIN, OFFSET, TOLERANCE_MM, this_month  # noqa: E402
from print_server import Paper, Slot, driver  # noqa: E402
from printed import Batch, as_pdf, settings_of  # noqa: E402
from watcher import PATIENCE, SETTINGS  # noqa: E402
from wine_prefix import skip  # noqa: E402

TITLE = "Ondor Drukkeuring"
ENTRY = r"Software\Microsoft\Windows\CurrentVersion\Uninstall\Drukkeuring"
PROGRAM = "drukkeuring.exe"
PROGRAMS = {PROGRAM, "drukkeuring-voorcontrole.exe"}
HANDBOOK = "handleiding"
REMOVER = "verwijderen.exe"
COUNT = 250
SHEET = Paper("Acceptgiro", "Acceptgiro 210 x 304,8 mm", 595, 864)
# It begins with A4, as most do, and reaches the lowest OCR line.
PRINTER = driver([Paper("A4", "A4", 595, 842), SHEET], [Slot("Upper", "Lade boven", 0)], edges=(18, 12, 18, 18))
REFUSED = 2  # exit status of a setup that ended without having done anything
# What Windows notes itself, of its screen and its printers, and the settings, which are to stay.
OTHERS_KEYS = re.compile(r"\[HKEY_CURRENT_USER\\Software\\(Wine|Ondor\\Tarvik|"
                         r"Microsoft\\Windows NT\\CurrentVersion\\(Devices|Windows|PrinterPorts))\b.*", re.S)
# A removal goes on in a copy of itself, which Windows takes away at the next start.
LEFT_OVER = re.compile(r".*/Temp/(~nsu\w*\.tmp(/.*)?|ns\w+\.tmp)")


# What the properties of an exe tell of the product, alike for all.
PRODUCT = ("CompanyName", "LegalCopyright", "ProductName", "ProductVersion", "FileVersion")
OF_A_FILE = ("FileDescription", "InternalName", "OriginalFilename")


def told_by(exe, name):
    """A text of an exe's version data; None if it is not there."""
    key = re.escape(name.encode("utf-16-le")) + rb"(?:\0\0){1,2}((?:[^\0]\0|\0[^\0]|[^\0][^\0])+)"
    found = re.search(key, exe.read_bytes(), re.S)
    return found and found[1].decode("utf-16-le")


def parts(folder):
    """What the build has made for who installs it: name to sum."""
    files = [folder / program for program in PROGRAMS] + [path for path in (folder / HANDBOOK).rglob("*") if path.is_file()]
    return {path.relative_to(folder).as_posix(): sum_of(path) for path in files}


def sum_of(path):
    return hashlib.sha256(path.read_bytes()).hexdigest()


class Trial:
    """An office in which the program is installed and removed."""

    def __init__(self, office, setup, program, version, failures):
        self.office = office
        self.setup = setup
        self.program = program
        self.version = version
        self.check = failures.check
        self.failures = failures
        self.registry = Registry(office.agent)
        self.disk = office.prefix.folder / "drive_c"
        self.user, = (user for user in (self.disk / "users").iterdir() if user.name != "Public")
        self.folder = self.user / "AppData/Local/Programs/Drukkeuring"
        self.menu = self.user / "AppData/Roaming/Microsoft/Windows/Start Menu/Programs"
        self.shortcut = self.menu / f"{TITLE}.lnk"
        self.handbook = self.menu / f"{TITLE} - handleiding.lnk"

    def windows_path(self, path):
        """As the user knows it, on drive C."""
        return "C:\\" + str(path.relative_to(self.disk)).replace("/", "\\")

    def run(self, program, *arguments):
        return self.office.prefix.run(program, *arguments, check=False).returncode

    def keys(self):
        """The user's registry, a text for each key."""
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / "user.reg"
            self.office.prefix.run("reg", "export", "HKCU", self.office.prefix.windows_path(file), "/y")
            return set(re.split(r"\n+(?=\[)", file.read_text("utf-16").replace("\r", "").rstrip()))

    def entry(self):
        values = self.registry.values(ENTRY) or {}
        return {name: int.from_bytes(data, "little") if kind == 4 else data.decode("utf-16-le").rstrip("\0")
                for name, (kind, data) in values.items()}

    def check_installed(self, what):
        folder = self.windows_path(self.folder)
        self.check({*os.listdir(self.folder)} == {*PROGRAMS, HANDBOOK, REMOVER}, f"{what}: the folder holds what belongs there")
        self.check(parts(self.folder) == parts(self.program.parent), f"{what}: programs and handbook are those that were built")
        self.check(self.shortcut.exists() and self.handbook.exists(), f"{what}: the start menu has both")
        entry = self.entry()
        size = entry.pop("EstimatedSize", 0)
        kilobytes = sum((self.folder / name).stat().st_size for name in parts(self.folder)) // 1024
        self.check(kilobytes <= size <= kilobytes + 300, f"{what}: {size} KB are told")
        expected = {"DisplayName": TITLE, "DisplayVersion": self.version, "DisplayIcon": rf"{folder}\{PROGRAM},0",
                    "Publisher": told_by(self.program, "CompanyName"), "InstallLocation": folder, "UninstallString": rf'"{folder}\{REMOVER}"',
                    "QuietUninstallString": rf'"{folder}\{REMOVER}" /S', "NoModify": 1, "NoRepair": 1}
        self.check(entry.pop("URLInfoAbout", "").startswith("https://") and "@" in entry.pop("Contact", ""),
                   f"{what}: and where to turn to")
        self.check(entry == expected, f"{what}: the list of programs tells {entry}")

    def start(self):
        self.office.user.shown.clear()
        self.office.user.command_line = self.windows_path(self.shortcut)
        self.office.start_at_the_last_page()

    def check_print(self):
        month = this_month()  # the month is on the forms
        self.office.open_manager(details=True)
        self.office.choose(PAPER, SHEET.name)
        self.office.print_document(FORMS)
        job = self.office.server.next_job()
        if month != this_month():
            self.check_print()
            return
        with tempfile.TemporaryDirectory() as folder:
            pdf = as_pdf(job.document, folder)
            batch = Batch(settings_of(STORED), pdf, COUNT, month, (MARGIN, MARGIN), (OFFSET, OFFSET))
            self.failures.none_of(batch.errors(), "what was drawn by chance may be")
            checker = FormChecker(batch.record, pdf, TOLERANCE_MM, DOTS)
            checker.run()
            told = subprocess.run(["pdfinfo", str(pdf)], check=True, capture_output=True, text=True).stdout
        self.failures.none_of(checker.errors, f"the installed program prints {COUNT} forms, every text at its place")
        self.check(f"{SHEET.width} x {SHEET.height} pts" in told, "on sheets of 210 x 304.8 mm")

    def check_refusals(self):
        """While the program runs."""
        before = files_in(self.folder)
        self.check(self.run(self.setup, "/S") == REFUSED, "the setup refuses while the program runs")
        # In its own place, and not in a copy: so its exit status is to be had.
        self.check(self.run(self.folder / REMOVER, "/S", f"_?={self.windows_path(self.folder)}") == REFUSED,
                   "the removal refuses while the program runs")
        self.check(files_in(self.folder) == before and self.shortcut.exists() and self.entry(), "and changes nothing")
        self.check(self.office.user.program.exit_code() is None, "the program runs on")

    def check_update(self):
        (self.folder / PROGRAM).write_bytes(b"an older program")
        (self.folder / HANDBOOK / "vroeger.html").write_text("a section that there was")
        self.registry.set_text(ENTRY, "DisplayVersion", "2.9.0")
        self.check(self.run(self.setup, "/S") == 0, "the setup runs over an older version")
        self.check_installed("updated")

    def check_other_folder(self):
        """The setup's own option for a folder elsewhere; an update goes where the program is."""
        other = self.disk / "Elders"
        self.check(self.run(self.setup, "/S", rf"/D={self.windows_path(other)}") == 0, "the setup takes another folder")
        (other / PROGRAM).write_bytes(b"an older program")
        self.check(self.run(self.setup, "/S") == 0 and sum_of(other / PROGRAM) == sum_of(self.program)
                   and not self.folder.exists(), "and finds it again")
        self.remove(other)

    def remove(self, folder):
        """As the list of programs does it. The command comes back before its copy has done the work."""
        (folder / "printrap.log").write_text("what the program may write where it was started")
        program, argument = re.fullmatch(r'"(.*)" (/S)', self.entry()["QuietUninstallString"]).groups()
        self.check(self.run(program, argument) == 0, "the removal runs")
        end = time.monotonic() + PATIENCE
        while (folder.exists() or self.entry()) and time.monotonic() < end:
            self.office.agent.nap()

    def left_over(self, look):
        """What is found in the end: the removal's copy still has the last of its work before it when the program is gone."""
        end = time.monotonic() + PATIENCE
        while (found := look()) and time.monotonic() < end:
            self.office.agent.nap()
        return found

    def run_all(self):
        disk, keys = files_in(self.disk), self.keys()
        self.check_other_folder()
        self.check(self.run(self.setup, "/S") == 0, "the setup runs")
        self.check_installed("installed")
        self.start()
        self.check_print()
        self.check_refusals()
        self.office.play("click frmMain.Cancel")
        self.check_update()
        self.registry.set_text(SETTINGS, "IncassantWoonplaats", "Veendam")
        self.remove(self.folder)
        left = self.left_over(lambda: [path for path in {*disk} ^ {*files_in(self.disk)} if not LEFT_OVER.fullmatch(path)])
        self.failures.none_of(sorted(left), "no file is left behind, and none is gone")
        self.check(not self.folder.parent.exists() and not self.shortcut.exists() and not self.handbook.exists(),
                   "nor is a folder or an entry")
        settings = self.registry.values(SETTINGS)
        self.check(settings["IncassantWoonplaats"][1].decode("utf-16-le") == "Veendam\0", "the settings of Tarvik stand")
        new = self.left_over(lambda: [key for key in self.keys() - keys if not OTHERS_KEYS.fullmatch(key)])
        self.failures.none_of(new, "no key is left behind")


def check_zip(file, program, failures):
    with zipfile.ZipFile(file) as archive:
        held = {entry.filename: hashlib.sha256(archive.read(entry)).hexdigest() for entry in archive.infolist() if not entry.is_dir()}
        failures.check(archive.testzip() is None and held == parts(program.parent), "the zip holds programs and handbook")


def check_version_data(setup, folder, version, failures):
    expected = {name: told_by(folder / PROGRAM, name) for name in PRODUCT}
    failures.check(all(expected.values()) and expected["ProductVersion"] == expected["FileVersion"] == version
                   and expected["ProductName"] == TITLE, f"the program tells of the product: {expected}")
    for exe in (setup, *(folder / program for program in PROGRAMS)):
        failures.equal({name: told_by(exe, name) for name in PRODUCT}, expected, f"{exe.name} tells the same")
        own = {name: told_by(exe, name) for name in OF_A_FILE}
        failures.check(all(own.values()) and own["OriginalFilename"] == exe.name, f"{exe.name} tells of itself: {own}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=pathlib.Path, required=True)
    build = parser.parse_args().build.resolve()
    setups = list((build / "packages").glob("drukkeuring-setup-*.exe"))
    if not setups:
        skip("no setup has been made: NSIS is not installed")
    newest = max(setups, key=lambda file: file.stat().st_mtime)
    version = newest.stem.rpartition("-")[2]
    failures = Failures()
    check_zip(newest.with_name(f"drukkeuring-{version}-windows.zip"), build / "bin" / PROGRAM, failures)
    check_version_data(newest, build / "bin", version, failures)
    with Office(build, PRINTER) as office:
        try:
            Trial(office, newest, build / "bin" / PROGRAM, version, failures).run_all()
        except FontMissing as missing:
            skip(f"{missing} is not installed")
    failures.exit()


if __name__ == "__main__":
    main()
