"""A user of the real program who follows a script, through window messages and control numbers.

It knows the commands of a scenario that a user gives, and raises Unplayable at any other. What it writes down are the
records that do not depend on measures.
"""
import time

from agent import WM_CLOSE, WM_COMMAND, WM_NULL, Program, Window, text_of
from messages import (CBN_SELCHANGE, CB_GETCOUNT, CB_GETLBTEXT, CB_SETCURSEL, COMBO, EM_SETSEL, LBN_SELCHANGE, LB_GETCOUNT,
                      LB_GETTEXT, LB_SETCURSEL, MK_LBUTTON, SBM_SETPOS, SB_ENDSCROLL, SB_THUMBPOSITION, STATIC,
                      TB_ISBUTTONENABLED, VK_TAB, WM_CHAR, WM_HSCROLL, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_MOUSEWHEEL,
                      WM_VSCROLL)
from reader import PICTURE_BUTTONS, Reader
from script import Unplayable, words_of
from watcher import PATIENCE, SETTINGS

TWIPS_PER_DOT = 15
TICK = 0.02  # seconds in which a timer comes round, though Windows makes it no faster than 10 milliseconds


def signed(low, high=0):
    """MAKELONG."""
    return (low & 0xFFFF) | (high & 0xFFFF) << 16


class Player(Reader):
    """Gives the script's commands."""

    def do_start(self):
        self.stored = self.registry.values(SETTINGS) or {}
        self.program = Program(self.agent, self.command_line)
        end = time.monotonic() + PATIENCE
        while not any(top.visible and top.enabled for top in self.forms()):
            self.answer_boxes()
            if self.program.exit_code() is not None or time.monotonic() > end:
                raise TimeoutError("the program shows no form")
            self.agent.nap()
        self.answers(self.form("frmMain").handle)
        self.watch()

    def mouse(self, handle):
        width, height = Window(self.agent, handle).size
        place = signed(width // 2, height // 2)
        return [(handle, WM_LBUTTONDOWN, MK_LBUTTON, place), (handle, WM_LBUTTONUP, 0, place)]

    def can_use(self, form, control):
        window = self.window(form, control)
        return self.reachable(form) and window.shown and window.usable

    def ignore(self, command, target):
        self.note(event="ignored", command=command, target=target)

    def do_click(self, path):
        form, control = path.split(".")
        if control.startswith("Toolbar("):
            self.click_tool(path, form, int(control[8:-1]))
            return
        window = self.window(form, control)
        if not self.can_use(form, control) or window.kind == STATIC:
            self.ignore("click", path)
        elif (form, control) in PICTURE_BUTTONS:
            self.click_picture_button(path, window.handle)
        else:
            self.act(*self.mouse(window.handle))

    def click_picture_button(self, path, handle):
        """It turns the page unless it is off."""
        page = self.value("frmPrintPreview.StatusBar(1).Text")
        self.act(*self.mouse(handle))
        if self.value("frmPrintPreview.StatusBar(1).Text") == page:
            self.ignore("click", path)

    def click_tool(self, path, form, number):
        bar = self.handle(form, "Toolbar")
        command = self.ids.tool(number)
        if not self.can_use(form, "Toolbar") or self.agent.number("send", bar, TB_ISBUTTONENABLED, command, 0) == 0:
            self.ignore("click", path)
        else:
            self.act((self.parent_of_bar(form), WM_COMMAND, command, bar))

    def parent_of_bar(self, form):
        return self.agent.number("parent", self.handle(form, "Toolbar"))

    def entries(self, path):
        """The texts of a list or combo."""
        window = self.window(*path.split("."))
        count, text = (CB_GETCOUNT, CB_GETLBTEXT) if window.kind == COMBO else (LB_GETCOUNT, LB_GETTEXT)
        return [text_of(self.agent.ask("entry", window.handle, text, place)) for place in range(window.send(count))]

    def do_pick(self, path, entry):
        self.pick("pick", path, int(entry))

    def do_pick_text(self, path, text):
        entries = self.entries(path)
        self.pick("pick-text", path, entries.index(text) if text in entries else len(entries))

    def pick(self, command, path, entry):
        form, control = path.split(".")
        window = self.window(form, control)
        combo = window.kind == COMBO
        count, choose, told = (CB_GETCOUNT, CB_SETCURSEL, CBN_SELCHANGE) if combo else (
            LB_GETCOUNT, LB_SETCURSEL, LBN_SELCHANGE)
        if not self.can_use(form, control) or not 0 <= entry < window.send(count):
            self.ignore(command, path)
            return
        number = self.ids.number(form, control)
        parent = self.agent.number("parent", window.handle)
        self.act((window.handle, choose, entry, 0), (parent, WM_COMMAND, signed(number, told), window.handle))

    def do_focus(self, path):
        form, control = path.split(".")
        if not self.can_use(form, control) or self.window(form, control).kind == STATIC:
            self.ignore("focus", path)
        else:
            self.act(*self.mouse(self.handle(form, control)))

    def do_tab(self, form=None):
        form = form or self.front().kind
        if self.reachable(form):
            self.press(form, VK_TAB)
        else:
            self.ignore("tab", form)

    def do_key(self, form, code):
        if self.reachable(form):
            self.press(form, int(code))
        else:
            self.ignore("key", form)

    def do_type(self, path, text):
        form, control = path.split(".")
        if not self.can_use(form, control):
            self.ignore("type", path)
            return
        box = self.handle(form, control)
        self.act(*self.mouse(box))
        if self.agent.number("focus") != box:
            return
        keys = text.replace(r"\b", "\b")
        end = len(Window(self.agent, box).text)
        self.act((box, EM_SETSEL, end, end), *((box, WM_CHAR, ord(key), 1) for key in keys))

    def do_clear(self, path):
        self.do_paste(path, "")

    def do_paste(self, path, text):
        self.window(*path.split(".")).set_text(text)
        self.watch_store()

    def do_wheel(self, form, delta):
        if self.reachable(form):
            self.act((self.form(form).handle, WM_MOUSEWHEEL, signed(0, int(delta)), 0))
        else:
            self.ignore("wheel", form)

    def do_scroll(self, path, value):
        form, control = path.split(".")
        if not self.can_use(form, control):
            self.ignore("scroll", path)
            return
        bar = self.handle(form, control)
        message = WM_HSCROLL if control.startswith("H") else WM_VSCROLL
        parent = self.agent.number("parent", bar)
        self.act((bar, SBM_SETPOS, int(value), 1), (parent, message, signed(SB_THUMBPOSITION, int(value)), bar),
                 (parent, message, SB_ENDSCROLL, bar))

    def do_resize(self, form, width, height):
        """About: whatever the frame is, nothing that is compared depends on it."""
        dots = [int(twips) // TWIPS_PER_DOT for twips in (width, height)]
        self.agent.ask("resize", self.form(form).handle, *dots)
        self.act((self.form(form).handle, WM_NULL, 0, 0))

    def do_menu(self, form, tool):
        if self.reachable(form):
            self.act((self.form(form).handle, WM_COMMAND, self.ids.menu_tool(form, tool), 0))
        else:
            self.ignore("menu", form)

    def do_tick(self, _timer, count=1):
        """Timers run by themselves, late on a machine with much to do."""
        time.sleep(int(count) * TICK)

    def do_close(self, form):
        if not self.reachable(form):
            self.ignore("close", form)
            return
        handle = self.form(form).handle
        self.act((handle, WM_CLOSE, 0, 0))
        if any(top.handle == handle and top.visible for top in self.forms()):
            self.note(event="refused", form=form)

    # The script.

    def play(self, lines, finish=True):
        for line in lines:
            words = words_of(line)
            if words:
                command = getattr(self, "do_" + words[0].replace("-", "_"), None)
                if command is None:
                    raise Unplayable(words[0])
                self.answer_what_came_late()
                command(*words[1:])
        if finish:
            self.finish()

    def answer_what_came_late(self):
        """A timer of the program may bring a box when nobody waits for one."""
        if self.program is not None and self.program.ended is None:
            self.answer_boxes()

    def finish(self):
        """Closes what is open, innermost first."""
        while self.program is not None and self.program.exit_code() is None:
            reachable = [top for top in self.forms() if top.visible and top.enabled]
            if not reachable:
                raise TimeoutError("no form takes input")
            if reachable[0].kind == "frmMain":
                break
            self.do_close(reachable[0].kind)
