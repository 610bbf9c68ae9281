#!/usr/bin/env python3
"""The user logs off: Windows asks every program, and tells it when it is the end. The program lets a print finish, and ends
otherwise with the printer's defaults as they were.

    end_session.py --build FOLDER

FOLDER is the build folder of the Windows program. Exit status 77 where Wine, CUPS or Ghostscript is missing.
"""
from failures import test_in_office
from messages import BOX, WM_ENDSESSION, WM_QUERYENDSESSION
from office import BIN, ORIENTATION, PAPER, REPORT

FORM_TRAY = "Lade 3 met formulieren"
COPIES = "frmPrintManager.UserText(0)"


class LogOff:
    def __init__(self, office, failures):
        self.office = office
        self.user = office.user
        self.check = failures.check
        self.start()
        self.first = self.settings()

    def start(self):
        self.user.shown.clear()
        self.office.start_at_the_last_page()
        self.office.open_manager(details=True)

    def settings(self):
        return [self.office.chosen(number) for number in (PAPER, BIN, ORIENTATION)]

    def may_end(self):
        """Every window is asked, also those that are not on show. One may go meanwhile."""
        answers = [self.office.agent.ask("send", top.handle, WM_QUERYENDSESSION, 0, 0) for top in self.user.forms()]
        return "1" in answers and "0" not in answers

    def end(self, really):
        """As Windows does it, each window is told; the program is gone then, or left alone."""
        for top in self.user.forms():
            self.office.agent.ask("send", top.handle, WM_ENDSESSION, int(really), 0)
        if really:
            self.user.wait_until(lambda: self.user.program.exit_code() is not None)

    def choose_tray(self):
        self.office.choose(BIN, FORM_TRAY)
        self.office.pick_document(REPORT)

    def ends_well(self, what):
        self.check(self.may_end(), f"{what}: the program lets the user go")
        self.end(True)
        self.check(self.user.program.exit_code() == 0, f"{what}: it has ended: {self.user.program.exit_code()}")
        self.start()
        found = self.settings()
        self.check(found == self.first, f"{what}: the printer's settings are {found}")

    def run(self):
        self.choose_tray()
        self.office.play("click frmPrintManager.cmdPrintVoorbeeld")
        self.ends_well("while a preview is open")

        self.choose_tray()
        self.office.play("click frmPrintManager.cmdPrintVoorbeeld", "menu frmPrintPreview ID_Sluiten")
        self.ends_well("after a preview")

        self.choose_tray()
        self.no_copies()
        self.ends_well("after a print that came to nothing")

        self.check(self.may_end(), "somebody else may have something against it")
        self.end(False)
        self.check(self.user.program.exit_code() is None, "then the program goes on")
        self.office.play("click frmPrintManager.cmdAnnuleren", "click frmMain.Cancel")
        self.check(not self.office.events("error", "ignored", "refused"), "nothing was refused")

    def no_copies(self):
        """A print of 0 copies, which the user is told about in the middle of the run."""
        self.office.play(f"paste {COPIES} 0")
        errand = self.user.program.begin(self.user.mouse(self.user.handle("frmPrintManager", "cmdPrint")))
        while not any(top.kind == BOX and top.visible for top in self.user.program.tops()):
            self.office.agent.nap()
        self.check(not self.may_end(), "a print is under way: the program asks for patience")
        self.user.settle(errand)


if __name__ == "__main__":
    test_in_office(lambda office, failures: LogOff(office, failures).run())
