#!/usr/bin/env python3
"""The buttons of the preview under a real mouse: the four looks of the picture buttons by the dots of the screen, a button that
is held while the pointer leaves, each button of the mouse, a double click, a button that is off, and the tips.

    mouse.py --build FOLDER

FOLDER is the build folder of the Windows program. Exit status 77 where Wine, CUPS or a screen is missing.
"""
import argparse
import os
import pathlib
import shutil
import subprocess
import time

from agent import Window
from failures import Failures
from look import Picture
from office import FORMS, Office
from show import Screen
from wine_prefix import skip

PAUSE, PATIENCE = 0.1, 600  # seconds between two pictures, and how often it is tried
RULE = 10  # dots
STILL = 4  # pictures that are alike, of a look that may not change
TIP = "tooltips_class32"
TIP_DOES_NOT_COME = 15  # looks for one that would take half a second
TIP_GOES = 30  # looks: by itself it would go after five seconds


class Mouse:
    """The mouse of a user who looks at the screen."""

    def __init__(self, office, screen):
        self.agent = office.agent
        self.user = office.user
        self.screen = screen

    def over(self, control):
        left, top, width, height = self.user.area(self.user.handle("frmPrintPreview", control))
        self.move(left + width // 2, top + height // 2)

    def over_tool(self, number):
        """A button of the toolbar, by its number: it is as wide as the bar is high, and a rule stands before and behind 3 to 6."""
        left, top, _, height = self.user.area(self.user.handle("frmPrintPreview", "Toolbar"))
        rules = RULE * ((number > 2) + (number > 7))
        buttons = number - (number > 2) - (number > 7)
        self.move(left + rules + (buttons - 1) * height + height // 2, top + height // 2)

    def away(self):
        left, top, width, height = self.user.area(self.user.handle("frmPrintPreview", "StatusBar"))
        self.move(left + width // 2, top + height // 2)

    def move(self, x, y):
        self.tool("mousemove", x, y)

    def press(self, *buttons):
        """"L" presses the left button and "l" lets it go, and so for the right and the middle one."""
        for button in buttons:
            self.tool("mousedown" if button.isupper() else "mouseup", "LMR".index(button.upper()) + 1)

    def tool(self, *words):
        subprocess.run(["xdotool", *map(str, words)], check=True, env={**os.environ, "DISPLAY": self.screen.display})

    def look(self, control):
        area = self.user.area(self.user.handle("frmPrintPreview", control))
        return tuple(sorted(Picture(self.screen).colours(*area).items()))

    def settled(self, control, unlike=()):
        """The look once it does not change any more. It is more than one colour, and none of those looks: a busy program is late
        with its answer to the mouse."""
        before, alike = None, 0
        for _ in range(PATIENCE):
            now = self.look(control)
            alike = alike + 1 if now == before and len(now) > 1 and now not in unlike else 0
            if alike == STILL:
                break
            before = now
            time.sleep(PAUSE)
        return before

    def becomes(self, control, look):
        return comes_true(lambda: self.look(control) == look)

    def page(self):
        return self.user.value("frmPrintPreview.StatusBar(1).Text")

    def turns_to(self, number):
        return comes_true(lambda: self.page() == f"Pagina: {number}")


def check_looks(mouse, failures):
    """Each is known by how the user comes to it, and all differ."""
    looks = {"normal": mouse.settled("cmdDown"), "off": mouse.settled("cmdUp")}
    mouse.over("cmdDown")
    looks["hot"] = mouse.settled("cmdDown", {looks["normal"]})
    mouse.press("L")
    looks["down"] = mouse.settled("cmdDown", {looks["normal"], looks["hot"]})
    failures.check(len(set(looks.values())) == 4, f"the looks differ: {[len(look) for look in looks.values()]}")

    mouse.away()
    failures.check(mouse.becomes("cmdDown", looks["hot"]), "held and left, it lights up")
    mouse.over("cmdDown")
    failures.check(mouse.becomes("cmdDown", looks["down"]), "entered again, it is down")
    mouse.away()
    failures.check(mouse.becomes("cmdDown", looks["hot"]), "the timer follows the pointer as long as it is held")
    failures.check(mouse.settled("cmdDown") == looks["hot"], "and it stays lit")
    mouse.press("l")
    failures.check(mouse.becomes("cmdDown", looks["normal"]), "let go outside, it is as it was")
    failures.check(mouse.page() == "Pagina: 1", "and has not been clicked")
    return looks


def check_other_buttons(mouse, looks, failures):
    for down, up, name in (("R", "r", "right"), ("M", "m", "middle")):
        mouse.over("cmdDown")
        failures.check(mouse.becomes("cmdDown", looks["hot"]), f"the {name} button: lit before")
        mouse.press(down)
        failures.check(mouse.becomes("cmdDown", looks["down"]), f"the {name} button holds it down")
        mouse.away()
        failures.check(mouse.becomes("cmdDown", looks["hot"]), f"the {name} button: lit while it is held")
        mouse.press(up)
        failures.check(mouse.becomes("cmdDown", looks["normal"]), f"the {name} button: let go outside")
        failures.check(mouse.page() == "Pagina: 1", f"the {name} button turns no page")


def check_clicks(mouse, looks, failures):
    mouse.over("cmdDown")
    mouse.press("L", "l")
    failures.check(mouse.turns_to(2), "a click turns the page")
    mouse.away()
    failures.check(mouse.becomes("cmdDown", looks["normal"]), "left after a click, it is as it was")
    # The second press of a double click is an event of its own, which the preview does not know.
    mouse.over("cmdUp")
    mouse.press("L", "l", "L", "l")
    failures.check(mouse.turns_to(1), "a double click is one click")
    mouse.over("cmdDown")
    mouse.press("L", "R", "r", "l")
    failures.check(mouse.turns_to(2), "another button in the midst of it does not take a click away")
    mouse.over("cmdUp")
    mouse.press("L", "l")
    failures.check(mouse.turns_to(1), "a click turns back")
    mouse.away()


def check_off(mouse, office, looks, failures):
    """A button that is off keeps its window: it still tells what it is for, and takes the mouse without an effect."""
    failures.check(mouse.becomes("cmdUp", looks["off"]), "on the first page the way back is off")
    window = Window(office.agent, office.user.handle("frmPrintPreview", "cmdUp"))
    failures.check(window.usable, "its window is not")
    mouse.over("cmdUp")
    mouse.press("L", "l")
    failures.check(mouse.settled("cmdUp") == looks["off"], "it does not light up")
    failures.check(mouse.page() == "Pagina: 1", "nor turn a page")
    mouse.away()
    mouse.over("cmdUp")
    failures.check(shows_tip(office, " Vorige pagina... "), "and shows its tip")
    mouse.away()


def check_tips(mouse, office, failures):
    """A toolbar's own tip is the button's text, which is for screen readers alone; the close button has none."""
    mouse.over_tool(1)
    failures.check(shows_tip(office, "Afdrukken (Kantoor)"), "the first button tells the printer")
    mouse.over_tool(8)
    failures.check(not any(tips(office) - {"Afdrukken (Kantoor)"} or time.sleep(PAUSE) for _ in range(TIP_DOES_NOT_COME)),
                    "the close button has no tip")
    failures.check(comes_true(lambda: not tips(office), TIP_GOES), "and that of another does not stay")
    mouse.over_tool(5)
    failures.check(shows_tip(office, " Volgende pagina "), "the next button has one")


def tips(office):
    """Texts of the tips on show."""
    shown = [top.handle for top in office.user.program.tops() if top.kind == TIP and top.visible]
    return {Window(office.agent, handle).text for handle in shown}


def shows_tip(office, text):
    return comes_true(lambda: text in tips(office))


def comes_true(holds, looks=PATIENCE):
    for _ in range(looks):
        if holds():
            return True
        time.sleep(PAUSE)
    return False


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=pathlib.Path, required=True)
    build = parser.parse_args().build
    for tool in ("Xvfb", "xdotool"):
        if not shutil.which(tool):
            skip(f"{tool} is not installed")
    failures = Failures()
    with Screen(1280, 1024) as screen, Office(build) as office:
        office.use_screen(screen.display)
        office.start_at_the_last_page()
        office.open_manager()
        office.pick_document(FORMS)
        office.play("click frmPrintManager.cmdPrintVoorbeeld")
        mouse = Mouse(office, screen)
        mouse.away()
        looks = check_looks(mouse, failures)
        check_other_buttons(mouse, looks, failures)
        check_clicks(mouse, looks, failures)
        check_off(mouse, office, looks, failures)
        check_tips(mouse, office, failures)
    failures.exit()


if __name__ == "__main__":
    main()
