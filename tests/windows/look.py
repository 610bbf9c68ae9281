#!/usr/bin/env python3
"""What the windows look like, by the dots of their pictures: every text can be read, in the usual colours and under a theme of
high contrast, whose colours are followed.

    look.py --build FOLDER

FOLDER is the build folder of the Windows program. Exit status 77 where Wine, CUPS, Ghostscript or a screen is missing.
"""
import collections
import time

from agent import Window
from failures import test_on_screen
from messages import BUTTON, COMBO, EDIT, LIST, STATIC
from office import FORMS
from wine_prefix import HIGH_CONTRAST

TEXT, DISABLED, SIGN = 4.5, 1.5, 2.8  # least contrast, 1 to 21; a thin line is mixed with what it lies on
PAUSE, PATIENCE = 0.1, 120  # seconds between two pictures, and how often it is tried
FRAME = 4  # dots
MARK, ARROW = 22, 26  # dots that an option's mark takes on the left, and a combo's arrow on the right


def light(level):
    share = level / 255
    return share / 12.92 if share <= 0.04045 else ((share + 0.055) / 1.055) ** 2.4


def luminance(colour):
    return sum(weight * light(level) for weight, level in zip((0.2126, 0.7152, 0.0722), colour))


def contrast(one, other):
    """As the Web Content Accessibility Guidelines count it."""
    low, high = sorted((luminance(one) + 0.05, luminance(other) + 0.05))
    return high / low


class Picture:
    """The whole screen."""

    def __init__(self, screen):
        self.width, self.height, self.line, self.dots = screen.dots()

    def colours(self, left, top, width, height):
        """How many dots of an area have each colour."""
        count = collections.Counter()
        for y in range(max(0, top), min(self.height, top + height)):
            start, end = max(0, left), min(self.width, left + width)
            row = self.dots[y * self.line + 4 * start:y * self.line + 4 * end]
            count.update(zip(row[2::4], row[1::4], row[0::4]))
        return count

    def painted(self, area):
        """The background of an area, and the colour on it that stands out most."""
        count = self.colours(*area)
        background = count.most_common(1)[0][0]
        return background, max(count, key=lambda colour: contrast(colour, background))


def inner(kind, area):
    left, top, width, height = area
    if kind == STATIC:
        return area
    mark = MARK if kind == "option" else 0
    arrow = ARROW if kind == COMBO else 0
    return left + FRAME + mark, top + FRAME, width - 2 * FRAME - mark - arrow, height - 2 * FRAME


def texts(office, form):
    """The controls of a form that show a text: name, whether enabled, and area of the text."""
    user = office.user
    top = user.form(form)
    for place, name in enumerate(user.ids.forms[form]):
        handle = user.agent.number("child", top.handle, user.ids.FIRST_CONTROL + place)
        if handle == 0:
            continue
        window = Window(user.agent, handle)
        if not window.shown or window.kind not in {BUTTON, COMBO, EDIT, LIST, STATIC}:
            continue
        if window.kind != LIST and not window.text.strip():
            continue
        kind = "option" if name.startswith(("opt", "chk")) else window.kind
        yield name, window.usable, inner(kind, user.area(handle))


def until_right(check, *what):
    """What is wrong on a screen that is still being drawn is looked at again: a list of complaints, empty in the end."""
    for _ in range(PATIENCE):
        complaints = check(*what)
        if not complaints:
            break
        time.sleep(PAUSE)
    return complaints


def unreadable(screen, form, shown):
    picture = Picture(screen)
    found = []
    for name, enabled, area in shown:
        background, ink = picture.painted(area)
        if contrast(background, ink) < (TEXT if enabled else DISABLED):
            found.append(f"{form}.{name}: {ink} on {background}")
    return found


def check_form(office, screen, form, failures):
    shown = list(texts(office, form))
    print(f"{form}: {len(shown)} texts")
    failures.check(len(shown) >= 5, f"{form} shows its texts")
    for complaint in until_right(unreadable, screen, form, shown):
        failures.check(False, complaint)


def faint_signs(office, screen):
    """Pictures of buttons that can be pressed, and do not stand out of what they lie on."""
    user = office.user
    picture = Picture(screen)
    left, top, _, height = user.area(user.handle("frmPrintPreview", "Toolbar"))
    areas = {"the toolbar's first picture": (left, top, height, height),  # a button is as wide as the bar is high
             "the arrow to the next page": user.area(user.handle("frmPrintPreview", "cmdDown"))}
    return [what for what, area in areas.items() if contrast(*picture.painted(area)) < SIGN]


def not_followed(office, screen):
    """The heading is a window and the page the face of a button, to the theme."""
    system = {name: tuple(int(part) for part in colour.split()) for name, colour in HIGH_CONTRAST.items()}
    user = office.user
    picture = Picture(screen)
    wanted = {"lblHeading": (system["Window"], system["WindowText"]),
              "lblContractsoort": (system["ButtonFace"], system["ButtonText"])}
    return [f"{name} has not the theme's colours" for name, colours in wanted.items()
            if picture.painted(user.area(user.handle("frmMain", name))) != colours]


def check(office, screen, high_contrast, failures):
    office.play("start")
    check_form(office, screen, "frmMain", failures)
    if high_contrast:
        for complaint in until_right(not_followed, office, screen):
            failures.check(False, complaint)
    for choice in ("optProcedure(0)", "optTestpartij(2)", None):
        office.play("click frmMain.Verder")
        check_form(office, screen, "frmMain", failures)
        if choice:
            office.play(f"click frmMain.{choice}")
    office.open_manager(details=True)
    check_form(office, screen, "frmPrintManager", failures)
    office.pick_document(FORMS)
    office.play("click frmPrintManager.cmdPrintVoorbeeld")
    for complaint in until_right(faint_signs, office, screen):
        failures.check(False, complaint)
    office.play("menu frmPrintPreview ID_Sluiten", "click frmPrintManager.cmdAnnuleren", "click frmMain.Cancel")


def check_both(office, screen, failures):
    check(office, screen, False, failures)
    office.use_high_contrast()
    check(office, screen, True, failures)


if __name__ == "__main__":
    test_on_screen(check_both)
