#!/usr/bin/env python3
"""The handbook of the real Windows program: F1 opens it in the user's browser, where it tells of each window; a handbook that is not
there is told.

    handbook.py --build FOLDER

FOLDER is the build folder of the Windows program. Exit status 77 where Wine, CUPS or Ghostscript is missing.
"""
import shutil

from failures import test_in_office
from office import NAME_LIST

VK_F1 = 0x70
# What this machine has for pages of the web notes their names, and shows nothing.
BROWSER = r"""Windows Registry Editor Version 5.00

[HKEY_CLASSES_ROOT\.html]
@="Proef.Bladzijde"

[HKEY_CLASSES_ROOT\Proef.Bladzijde\shell\open\command]
@="cmd /c echo %1>>C:\\geopend.txt"
"""


class Reader:
    def __init__(self, office, failures):
        self.office = office
        self.failures = failures
        drive = office.prefix.folder / "drive_c"
        self.noted = drive / "geopend.txt"
        self.folder = drive / "Mijn programma's"
        browser = office.prefix.folder / "browser.reg"
        browser.write_text(BROWSER, encoding="utf-16")
        office.prefix.import_settings(browser)

    def install(self, program):
        self.folder.mkdir()
        shutil.copy(program, self.folder)
        shutil.copytree(program.with_name("handleiding"), self.folder / "handleiding")
        self.office.user.command_line = rf'"C:\{self.folder.name}\{program.name}"'

    def opened(self):
        """The files, without a name that is still being written."""
        lines = self.noted.read_text("utf-8").split("\n")[:-1] if self.noted.exists() else []
        return [line.strip().strip('"') for line in lines]

    def check_opens(self, form, section):
        before = len(self.opened())
        self.office.play(f"key {form} {VK_F1}")
        self.office.user.wait_until(lambda: len(self.opened()) > before)
        self.failures.equal(self.opened()[before:], [rf"C:\{self.folder.name}\handleiding\sections\{section}.html"],
                            f"F1 in {form} opens")

    def check_missing(self):
        shutil.rmtree(self.folder / "handleiding")
        self.office.play(f"key frmMain {VK_F1}")
        message, = self.office.events("message")
        told = message["text"].replace("\r\n", "\n")
        self.failures.check(told.startswith("De handleiding kan niet worden geopend.\n")
                            and told.endswith(rf"\{self.folder.name}\handleiding\index.html"), f"what is not there is told: {told}")

    def run(self):
        self.office.play("start")
        self.check_opens("frmMain", "bladzijde-1-uw-gegevens")
        self.office.play("click frmMain.Verder")
        self.check_opens("frmMain", "bladzijde-2-de-procedure")
        self.office.play("click frmMain.optProcedure(0)", "click frmMain.Verder")
        self.check_opens("frmMain", "bladzijde-3-de-omvang")
        self.office.play("click frmMain.optTestpartij(0)", "click frmMain.Verder")
        self.check_opens("frmMain", "bladzijde-4-afdrukken")
        self.office.play("clear frmMain.UserText(0)", "type frmMain.UserText(0) 3")  # a proof sheet: too few for a batch
        self.office.user.wait_until(lambda: self.office.user.value("frmMain.cmdVoorcontrole.Visible") is True)
        self.office.play("click frmMain.cmdVoorcontrole")
        self.check_opens("frmVoorcontrole", "de-voorcontrole")
        self.office.play("click frmVoorcontrole.cmdSluiten")
        self.office.open_manager()
        self.check_opens("frmPrintManager", "afdrukken-met-afdrukbeheer")
        self.office.pick_document(NAME_LIST)
        self.office.play("click frmPrintManager.cmdPrintVoorbeeld")
        self.check_opens("frmPrintPreview", "het-afdrukvoorbeeld")
        self.office.play("click frmPrintPreview.Toolbar(8)", "click frmPrintManager.cmdAnnuleren")
        self.check_missing()
        self.office.play("click frmMain.Cancel")
        self.failures.equal(self.office.events("error", "ignored", "refused"), [], "nothing was refused")


def check(office, failures):
    reader = Reader(office, failures)
    reader.install(office.build / "bin" / "drukkeuring.exe")
    reader.run()


if __name__ == "__main__":
    test_in_office(check)
