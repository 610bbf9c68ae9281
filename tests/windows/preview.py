#!/usr/bin/env python3
"""The preview of a batch that is longer than it shows: its message, every way from page to page, and a print of the whole batch
from its menu.

    preview.py --build FOLDER

FOLDER is the build folder of the Windows program. Exit status 77 where Wine, CUPS or Ghostscript is missing.
"""
import re

from failures import test_in_office
from messages import SBM_GETPOS
from office import FORMS, TITLES

VK_NEXT, VK_PRIOR, VK_HOME, VK_END = 0x22, 0x21, 0x24, 0x23
SHEETS = 84  # for 250 forms, three to a sheet
SHOWN = 40
A4_HEIGHT_POINTS, TWIPS_PER_POINT, TWIPS_PER_DOT, TITLE_BAR_TWIPS = 842, 20, 15, 375
TOO_LONG = ("Er zijn meer dan 40 pagina's gevonden, in het afdrukvoorbeeld worden maximaal 40 pagina's getoond.")

FIRST, BACK, ON, LAST, LEAVE = (f"click frmPrintPreview.Toolbar({number})" for number in (3, 4, 5, 6, 8))
UP, DOWN = "click frmPrintPreview.cmdUp", "click frmPrintPreview.cmdDown"
WHEEL_DOWN, WHEEL_UP = "wheel frmPrintPreview -120", "wheel frmPrintPreview 120"


def key(code):
    return f"key frmPrintPreview {code}"


# What the user does, the page that is then on show, and how far it is scrolled down: 0 to 100.
WAYS = [
    (ON, 2, 0), (ON, 3, 0), (BACK, 2, 0), (LAST, 40, 0), (FIRST, 1, 0),
    (DOWN, 2, 0), (DOWN, 3, 0), (UP, 2, 0), (FIRST, 1, 0),
    (WHEEL_DOWN, 1, 15), (WHEEL_DOWN, 1, 30), (WHEEL_UP, 1, 15), (WHEEL_UP, 1, 0), (WHEEL_UP, 1, 0),
    (key(VK_NEXT), 1, 25), (key(VK_NEXT), 1, 50), (key(VK_NEXT), 1, 75), (key(VK_NEXT), 1, 100), (key(VK_NEXT), 2, 0),
    (WHEEL_DOWN, 2, 15), (key(VK_PRIOR), 2, 0), (key(VK_PRIOR), 1, 0),
    (key(VK_END), 1, 100), (WHEEL_DOWN, 1, 100), (key(VK_HOME), 1, 0),
    (LAST, 40, 0), (key(VK_END), 40, 100), (key(VK_NEXT), 40, 100),
]


def look(user):
    """The number of the page on show, as the status bar tells it, and the place of the vertical bar."""
    return user.value("frmPrintPreview.StatusBar(1).Text"), user.window("frmPrintPreview", "VScroll").send(SBM_GETPOS)


def walk(office, failures):
    user = office.user
    for command, page, place in WAYS:
        office.play(command)
        failures.equal(look(user), (f"Pagina: {page}", place), command)


def check_ghost(office, failures):
    """The window that the pages are drawn for is as large as the paper, though no screen is: its hook moves the bounds."""
    user = office.user
    _, screen_height = (int(word) for word in user.agent.ask("screen").split())
    ghost = next(top for top in user.program.tops() if top.kind == "frmPrintPreviewGhost")  # it has no controls
    _, _, _, height = user.area(ghost.handle)
    title_bar = TITLE_BAR_TWIPS // TWIPS_PER_DOT
    least = int(A4_HEIGHT_POINTS * TWIPS_PER_POINT) // TWIPS_PER_DOT - title_bar
    print(f"the screen is {screen_height} dots high, the page {least}, the window {height}")
    failures.equal(least > screen_height, True, "the page is higher than the screen")
    failures.equal(height >= least, True, "the window is as high as the page")
    failures.equal(ghost.visible, False, "nobody sees it")


def check(office, failures):
    user = office.user
    office.start_at_the_last_page()
    office.open_manager()
    office.pick_document(FORMS)
    office.play("click frmPrintManager.cmdPrintVoorbeeld")
    failures.equal([box["text"] for box in office.events("message")], [TOO_LONG], "the user is told once")
    failures.equal(user.value("frmPrintPreview.StatusBar(2).Text"), f"Totaal aantal pagina's : {SHOWN}", "pages are counted")
    failures.equal(look(user), ("Pagina: 1", 0), "it begins at the top of the first page")
    walk(office, failures)

    check_ghost(office, failures)

    office.play("menu frmPrintPreview ID_Sluiten")
    failures.equal(user.shown, ["frmMain", "frmPrintManager"], "the menu closes the preview")
    office.play("click frmPrintManager.cmdPrintVoorbeeld", LEAVE)
    failures.equal(user.shown, ["frmMain", "frmPrintManager"], "and so does the toolbar")
    failures.equal(office.server.has_job(), False, "nothing has been printed")

    office.play("click frmPrintManager.cmdPrintVoorbeeld", "menu frmPrintPreview ID_Afdrukken")
    job = office.server.next_job()
    failures.equal((job.title, job.copies), (TITLES[FORMS], "1"), "the menu prints the document")
    failures.equal(len(re.findall(rb"%%Page: ", job.document)), SHEETS, "all of its pages")
    failures.equal(user.shown, ["frmMain", "frmPrintManager"], "the manager stays")
    office.play("click frmPrintManager.cmdAnnuleren")
    failures.equal(office.events("error", "ignored", "refused"), [], "nothing was refused")


if __name__ == "__main__":
    test_in_office(check)
