#!/usr/bin/env python3
"""What stands in one line or column in the windows, and in the middle of what: by the places of controls and the dots of the
screen.

    lines_up.py --build FOLDER

FOLDER is the build folder of the Windows program. Exit status 77 where Wine, CUPS, Ghostscript or a screen is missing.
"""
import functools

from agent import Window
from failures import test_on_screen
from look import Picture, contrast, until_right
from office import FORMS

INK = 1.5  # from this contrast on
MARK, RULE = 17, 10  # dots of an option's mark, and between two buttons of the toolbar
NOTE = "Controleer uw IBAN nummer voordat u verder gaat."


def shown(office, form):
    """The windows of a form's controls that are on show: (name, text, area)."""
    user = office.user
    top = user.form(form)
    for place, name in enumerate(user.ids.forms[form]):
        handle = user.agent.number("child", top.handle, user.ids.FIRST_CONTROL + place)
        if handle and Window(user.agent, handle).shown:
            yield name, Window(user.agent, handle).text, tuple(user.area(handle))


def places(office, form):
    """Areas by the names of controls, and of texts by the texts."""
    found = {}
    for name, text, area in shown(office, form):
        found.setdefault(name, area)
        found.setdefault(text, area)
    return found


def ink(picture, area):
    """Left, top, right and bottom dot of what stands out; the background is that of most dots. None for nothing."""
    left, top, width, height = area
    background = picture.painted(area)[0]
    stands_out = functools.lru_cache(lambda *colour: contrast(background, colour) > INK)
    seen = []
    for y in range(top, top + height):
        row = picture.dots[y * picture.line + 4 * left:y * picture.line + 4 * (left + width)]
        seen += [(left + x, y) for x, colour in enumerate(zip(row[2::4], row[1::4], row[0::4])) if stands_out(*colour)]
    if not seen:
        return None
    columns, rows = [x for x, _ in seen], [y for _, y in seen]
    return min(columns), min(rows), max(columns), max(rows)


def apart(is_, should, by, what):
    return [] if abs(is_ - should) <= by else [f"{what}: {is_}, expected {should}"]


def hint_is_uneven(office, screen):
    at, picture = places(office, "frmMain"), Picture(screen)
    before, bold, after = (ink(picture, at[text]) for text in ("Klik op ", "Volgende >", "om verder te gaan"))
    if None in (before, bold, after):
        return ["the hint is not drawn"]
    return apart(bold[0] - before[2], after[0] - bold[2], 2, "the gaps around the bold words")


def page_0(office):
    at = places(office, "frmMain")
    found = apart(at[NOTE][1], at["IBAN:"][1], 0, "top of the note beside the account")
    for name in ("lblOCRFont", "lblOCR", "lblContractsoort"):
        found += apart(at[name][0], at["UserText(74)"][0], 0, f"left edge of {name}")
    return found


def texts_below_an_option(office, screen):
    at, picture = places(office, "frmMain"), Picture(screen)
    left, top, width, height = at["optProcedure(1)"]
    caption = ink(picture, (left + MARK, top, width - MARK, height))
    text = ink(picture, at["De verkorte procedure wijkt op de volgende punten af van de algemene procedure:"])
    if None in (caption, text):
        return ["the texts are not drawn"]
    return apart(text[0], caption[0], 2, "left edge of the text below an option")


def page_3(office):
    at = places(office, "frmMain")
    return (apart(at["UserText(0)"][0], at["Terug"][0], 0, "left edge of the count") +
            apart(at["250 testdocumenten"][0], at["Terug"][0], 0, "left edge of the numbers") +
            apart(at["cmdPrinten"][0], at["Verder"][0], 0, "left edge of the print button"))


def manager(office):
    at = places(office, "frmPrintManager")
    box, bar = at["cboPrinterSelect(0)"], at["ProgressBar"]
    return apart(box[0], bar[0], 0, "left edge of the printer") + apart(box[2], bar[2], 0, "width of the printer")


def preview(office, screen):
    at, picture = places(office, "frmPrintPreview"), Picture(screen)
    bar, toolbar = at["StatusBar"], at["Toolbar"]
    found = apart(bar[1], at["Line5"][1], 0, "top of the status bar, at the rule")
    side = toolbar[3]  # a button is as wide as the bar is high
    first = ink(picture, (toolbar[0], toolbar[1], side, side))
    if first is None:
        return ["the toolbar is not drawn"]
    found += apart((first[1] + first[3]) / 2, toolbar[1] + side / 2, 1.5, "middle of the first picture, from above")
    found += apart((first[0] + first[2]) / 2, toolbar[0] + side / 2, 2, "middle of the first picture, from the left")
    # The arrow to the page before: behind one button, a rule and another button.
    back = picture.painted((toolbar[0] + 2 * side + RULE + 5, toolbar[1], side - 10, side))[1]
    up = picture.painted(at["cmdUp"])[1]
    for one, other in zip(back, up):
        found += apart(one, other, 20, f"a part of the colour of an arrow that is off, {back} and {up}")
    return found


def check(office, screen, failures):
    def right(looks, *what):
        complaints = until_right(looks, *what)
        failures.none_of(complaints, looks.__name__)

    office.play("start")
    right(page_0, office)
    right(hint_is_uneven, office, screen)
    office.play("click frmMain.Verder")
    right(texts_below_an_option, office, screen)
    for choice in ("optProcedure(0)", "optTestpartij(2)"):
        office.play(f"click frmMain.{choice}", "click frmMain.Verder")
    right(page_3, office)
    office.open_manager()
    right(manager, office)
    office.pick_document(FORMS)
    office.play("click frmPrintManager.cmdPrintVoorbeeld")
    right(preview, office, screen)
    office.play("menu frmPrintPreview ID_Sluiten", "click frmPrintManager.cmdAnnuleren", "click frmMain.Cancel")


if __name__ == "__main__":
    test_on_screen(check)
