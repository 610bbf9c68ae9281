#!/usr/bin/env python3
"""The wizard's boxes and its ways out as a user of the real windows meets them: texts of the settings that are too long, the count
on the last page, an account that is refused, and a list that is clicked while a preview is made.

    wizard.py --build FOLDER

FOLDER is the build folder of the Windows program. Exit status 77 where Wine, CUPS or Ghostscript is missing.
"""
from agent import WM_COMMAND
from failures import test_in_office
from messages import LBN_SELCHANGE, LB_SETCURSEL, SBM_GETPOS, WM_CHAR, WM_MOUSEWHEEL
from office import FORMS, NAME_LIST, TITLES
from player import signed
from watcher import SETTINGS

VK_ESCAPE, VK_END = 0x1B, 0x23
REFUSED_ACCOUNT = "123456780"
SMALL_CHANGE = 15
GHOST = "frmPrintPreviewGhost"  # is there from the beginning of the preview's document

# Settings that are longer than their box, and how much of them shows.
LONG = [("IncassantBegunstigde", "UserText(70)", "N" * 80, 60), ("IncassantAdres", "UserText(71)", "A" * 61, 60),
        ("IncassantPostCode", "UserText(72)", "1234567890", 9), ("IncassantWoonplaats", "UserText(73)", "é" * 70, 60),
        ("IncassantBankGiro", "UserText(74)", "X" * 50, 34)]  # in blocks of four


class Wizard:
    def __init__(self, office, failures):
        self.office = office
        self.user = office.user
        self.equal = failures.equal

    def start(self, *commands):
        self.user.shown.clear()
        self.office.play("start", *commands)

    def box(self, name):
        return self.user.window("frmMain", name)

    def check_lengths(self):
        before = {name: self.user.registry.values(SETTINGS)[name][1].decode("utf-16-le")[:-1] for name, *_ in LONG}
        for name, _, text, _ in LONG:
            self.user.registry.set_text(SETTINGS, name, text)
        self.start()
        for name, box, text, most in LONG:
            shown = " ".join(text[i:i + 4] for i in range(0, len(text), 4)) if name == "IncassantBankGiro" else text
            self.equal(self.box(box).text, shown[:most], f"of {name} {most} characters show")
        box = self.box("UserText(70)")
        box.set_text("N" * 61)
        self.equal(box.text, "N" * 60, "one more, set by another program, does not show either")
        self.office.play("clear frmMain.UserText(74)", "click frmMain.Cancel")
        for name, text in before.items():
            self.user.registry.set_text(SETTINGS, name, text)

    def check_ways_out(self):
        """Escape and the close box do not move the focus, so they judge no account."""
        for way in (f"key frmMain {VK_ESCAPE}", "close frmMain"):
            self.start(f"type frmMain.UserText(74) {REFUSED_ACCOUNT}")
            before = len(self.office.events("message"))
            self.office.play(way)
            self.equal((self.user.program.exit_code(), len(self.office.events("message")) - before), (0, 0),
                       f"{way}: the program ends, and nobody is told anything")

    def check_count(self):
        self.user.shown.clear()
        self.office.start_at_the_last_page(2)
        values = [self.user.value(f"frmMain.UserText(0).{name}") for name in ("Text", "SelStart", "SelLength")]
        self.equal(values, ["100", 0, 3], "who arrives on the last page stands in the whole count")
        box = self.user.handle("frmMain", "UserText(0)")
        self.user.act((box, WM_CHAR, ord("7"), 1))
        self.equal(self.box("UserText(0)").text, "7", "and what is typed replaces it")

    def check_wheel(self):
        """Parts of a turn, as the system posts them: one of nothing takes nothing back and turns nothing."""
        preview = self.user.form("frmPrintPreview").handle
        self.office.play(f"key frmPrintPreview {VK_END}")
        bar = self.user.window("frmPrintPreview", "VScroll")
        wanted = bar.send(SBM_GETPOS)
        for parts, moved in (([60, 0, 60], 1), ([0, 0], 0), ([-60, 0, -60], -1), ([60, 60, 60], 1), ([60], 1)):
            for part in parts:
                self.office.agent.ask("post", preview, WM_MOUSEWHEEL, signed(0, part), 0)
            wanted -= moved * SMALL_CHANGE
            # What is sent overtakes what is posted: an answer does not tell that the wheel has been seen.
            self.user.wait_until(lambda place=wanted: bar.send(SBM_GETPOS) == place)
            self.user.wait_until(self.user.is_idle)
            self.equal(bar.send(SBM_GETPOS), wanted, f"{parts} scrolls up by {moved} notches")

    def check_list(self):
        """What the command was given is what the preview prints, whatever the list says meanwhile."""
        self.office.open_manager()
        self.office.pick_document(FORMS)
        manager = self.user.form("frmPrintManager").handle
        chosen = self.user.handle("frmPrintManager", "lstAfdrukken")
        number = self.user.ids.number("frmPrintManager", "lstAfdrukken")
        errand = self.user.program.begin(self.user.mouse(self.user.handle("frmPrintManager", "cmdPrintVoorbeeld")))
        self.user.wait_until(lambda: any(top.kind == GHOST for top in self.user.program.tops()))
        click = self.user.program.begin([(chosen, LB_SETCURSEL, NAME_LIST, 0),
                                         (manager, WM_COMMAND, signed(number, LBN_SELCHANGE), chosen)])
        self.user.settle(errand)
        self.user.wait_until(lambda: self.user.program.is_done(click))
        self.equal(self.user.value("frmPrintManager.lstAfdrukken.ListIndex"), NAME_LIST, "the list has been clicked")
        self.check_wheel()
        self.office.play("menu frmPrintPreview ID_Afdrukken")
        self.equal(self.office.server.next_job().title, TITLES[FORMS], "the preview prints what it shows")
        self.office.play("click frmPrintManager.cmdAnnuleren", "click frmMain.Cancel")

    def run(self):
        self.check_lengths()
        self.check_ways_out()
        self.check_count()
        self.check_list()
        self.equal(self.office.events("error", "ignored", "refused"), [], "nothing was refused")


if __name__ == "__main__":
    test_in_office(lambda office, failures: Wizard(office, failures).run())
