"""The program as somebody sees it who sits before it: which forms there are, and what happens while the user waits."""
import itertools
import re
import time

from agent import WM_COMMAND, WM_NULL, Window, text_of
from messages import BOX, BUTTON, STATIC
from script import Unplayable

SETTINGS = r"Software\Ondor\Tarvik\CurrentVersion"
PATIENCE = 300  # seconds for one thing that the user does
# What the key closes looks for messages once more while it goes, the key's release among them.
CLOSED_BY_KEY = {("frmPrintPreview", 27)}
NAPS = 5, 10, 20, 40  # milliseconds between two looks at a program that is busy; the last for as long as it takes


def no_look(_handle):
    """At a message box that nobody wants to see."""


class Watcher:
    """Answers message boxes, and writes down what it sees."""

    def __init__(self, agent, registry, command_line, ids):
        self.agent = agent
        self.registry = registry
        self.command_line = command_line
        self.ids = ids
        self.program = None
        self.records = []
        self.shown = []  # names of the forms on show or hidden for a while, in the order of loading
        self.stored = {}
        self.on_box = no_look  # for a look at a message box before it is answered

    # What is there.

    def forms(self):
        return [top for top in self.program.tops() if top.kind in self.ids.forms]

    def form(self, name):
        for top in self.forms():
            if top.kind == name:
                return top
        raise Unplayable(f"{name} is not there")

    def handle(self, form, control):
        number = self.ids.number(form, control)
        handle = self.agent.number("child", self.form(form).handle, number)
        if handle == 0:
            raise Unplayable(f"{form}.{control} has no window")
        return handle

    def window(self, form, control):
        return Window(self.agent, self.handle(form, control))

    def front(self):
        """The form that takes the user's input."""
        return next(top for top in self.forms() if top.visible and top.enabled)

    def area(self, handle):
        """Left, top, width and height on the screen, in dots."""
        return [int(word) for word in self.agent.ask("area", handle).split()]

    def reachable(self, form):
        top = self.form(form)
        return top.visible and top.enabled

    # What happens meanwhile.

    def note(self, **record):
        self.records.append(record)

    def watch(self):
        """Settings are written before the form that they belong to shows or goes."""
        self.watch_store()
        self.watch_forms()

    def watch_forms(self):
        visible = [top.kind for top in self.forms() if top.visible]
        for name in [name for name in self.shown if name not in visible]:
            self.shown.remove(name)
            self.note(event="unload", form=name)
        for name in visible:
            if name not in self.shown:
                self.shown.append(name)
                self.note(event="show", form=name)

    def answer_boxes(self):
        for top in self.program.tops():
            if top.kind != BOX or not top.visible:
                continue
            words = self.agent.ask("children", top.handle).split()
            parts = [words[i:i + 4] for i in range(0, len(words), 4)]
            texts = [text_of(text) for kind, _, _, text in parts if text_of(kind) == STATIC and text != "-"]
            buttons = [int(number) for kind, number, _, _ in parts if text_of(kind) == BUTTON]
            if not texts or not buttons:
                continue
            self.watch()
            self.on_box(top.handle)
            self.note_box(Window(self.agent, top.handle).text, texts[0])
            self.agent.ask("post", top.handle, WM_COMMAND, buttons[0], 0)
            while any(other.handle == top.handle for other in self.program.tops()):
                self.agent.nap()

    def note_box(self, title, text):
        """What nobody trapped is told in a box of the desktop's own."""
        if error := re.fullmatch(r"Fout (\d+):\n\n(.*)", text, re.DOTALL):
            self.note(event="error", number=int(error[1]), description=error[2])
        else:
            self.note(event="message", title=title, text=text)

    def watch_store(self):
        now = self.registry.values(SETTINGS) or {}
        for name, value in sorted(now.items()):
            if self.stored.get(name) != value:
                self.note(event="store", path=SETTINGS, name=name, value=value_of(*value))
        self.stored = now

    def settle(self, errand):
        """Waits until the errand is over, or a modal form waits for the user."""
        before = {top.handle for top in self.forms() if top.visible}

        def settled():
            if self.program.is_done(errand):
                return True
            fresh = [top for top in self.program.seen
                     if top.kind in self.ids.forms and top.visible and top.enabled and top.handle not in before]
            return bool(fresh) and self.answers(fresh[0].handle)

        self.wait_until(settled)
        self.watch()
        if not self.shown:
            self.wait_until(lambda: self.program.exit_code() is not None)

    def wait_until(self, holds):
        """Answers message boxes meanwhile."""
        end = time.monotonic() + PATIENCE
        for nap in itertools.chain(NAPS, itertools.repeat(NAPS[-1])):
            self.answer_boxes()
            if self.program.ended is not None or holds():
                return
            if time.monotonic() > end:
                raise TimeoutError(f"the program does not come back: {[top.kind for top in self.program.seen]}")
            self.agent.nap(nap)

    def answers(self, handle):
        """True once the window's message loop has come round."""
        errand = self.program.begin([(handle, WM_NULL, 0, 0)])
        end = time.monotonic() + PATIENCE
        while not self.program.is_done(errand) and time.monotonic() < end:
            if any(top.kind == BOX and top.visible for top in self.program.tops()):
                return False
            self.agent.nap()
        return True

    def act(self, *messages):
        self.settle(self.program.begin(messages))

    def press(self, form, key):
        """A key of the keyboard. The program takes its release from the queue when the key has been dealt with, or when a
        window that the key has opened waits for the user."""
        handle = self.form(form).handle
        self.agent.ask("activate", handle)
        for down in (1, 0):
            if self.agent.ask("key", key, down) != "ok":
                raise TimeoutError(f"the program does not take key {key}")
        if (form, key) in CLOSED_BY_KEY:
            self.wait_until(lambda: not any(top.handle == handle and top.visible for top in self.program.seen))
        self.wait_until(self.is_idle)
        self.watch()
        if not self.shown:
            self.wait_until(lambda: self.program.exit_code() is not None)

    def is_idle(self):
        """True once the message loop has come round to the form that takes the user's input, or no form is left."""
        reachable = [top for top in self.forms() if top.visible and top.enabled]
        return self.answers(reachable[0].handle) if reachable else not any(top.visible for top in self.forms())


def value_of(kind, data):
    if kind == 4:
        return int.from_bytes(data[:4], "little", signed=True)
    return data.decode("utf-16-le").split("\0")[0]
