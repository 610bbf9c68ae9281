"""Plays a scenario against the real program: a user who follows the script, through window messages and control numbers.

It knows the commands of the scenario runner that a user could give from outside; the rest raise Unplayable. What it writes
down are the records that do not depend on measures, so that they can be held beside those of the runner.
"""
import re
import time

from agent import WM_CLOSE, WM_COMMAND, WM_NULL, Program, Window, text_of

SETTINGS = r"Software\Ondor\Tarvik\CurrentVersion"
TWIPS_PER_DOT = 15
PATIENCE = 60  # seconds for one thing that the user does

BOX = "#32770"
BUTTON, COMBO, EDIT, LIST, STATIC = "Button", "ComboBox", "Edit", "ListBox", "Static"

WM_CHAR = 0x0102
WM_LBUTTONDOWN, WM_LBUTTONUP, MK_LBUTTON = 0x0201, 0x0202, 1
WM_MOUSEWHEEL = 0x020A
WM_VSCROLL, WM_HSCROLL, SB_THUMBPOSITION, SB_ENDSCROLL, SBM_SETPOS = 0x0115, 0x0114, 4, 8, 0x00E0
BM_GETCHECK = 0x00F0
CB_GETCOUNT, CB_GETCURSEL, CB_SETCURSEL, CBN_SELCHANGE = 0x0146, 0x0147, 0x014E, 1
EM_GETSEL, EM_SETSEL = 0x00B0, 0x00B1
LB_GETCOUNT, LB_GETCURSEL, LB_SETCURSEL, LBN_SELCHANGE = 0x018B, 0x0188, 0x0186, 1
SB_GETTEXTW = 0x040D
TB_ISBUTTONENABLED = 0x0409
VK_TAB = 9


class Unplayable(Exception):
    """The script asks for what nobody can do or see from outside."""


class Unknown:
    """A value that cannot be seen from outside."""


def signed(low, high=0):
    """MAKELONG."""
    return (low & 0xFFFF) | (high & 0xFFFF) << 16


class Player:
    def __init__(self, agent, registry, command_line, ids):
        self.agent = agent
        self.registry = registry
        self.command_line = command_line
        self.ids = ids
        self.program = None
        self.records = []
        self.shown = []  # names of the forms on show or hidden for a while, in the order of loading
        self.stored = {}

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

    def front_area(self):
        """Left, top, width and height on the screen, in dots."""
        return [int(word) for word in self.agent.ask("area", self.front().handle).split()]

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
            self.note_box(Window(self.agent, top.handle).text, texts[0])
            self.agent.ask("post", top.handle, WM_COMMAND, buttons[0], 0)
            while any(other.handle == top.handle for other in self.program.tops()):
                self.agent.ask("nap")

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
            fresh = [top for top in self.forms() if top.visible and top.enabled and top.handle not in before]
            return bool(fresh) and self.answers(fresh[0].handle)

        self.wait_until(settled)
        self.watch()
        if not self.shown:
            self.wait_until(lambda: self.program.exit_code() is not None)

    def wait_until(self, holds):
        """Answers message boxes meanwhile."""
        end = time.monotonic() + PATIENCE
        while True:
            self.answer_boxes()
            if self.program.exit_code() is not None or holds():
                return
            if time.monotonic() > end:
                raise TimeoutError(f"the program does not come back: {[top.kind for top in self.program.tops()]}")
            self.agent.ask("nap")

    def answers(self, handle):
        """True once the window's message loop has come round."""
        errand = self.program.begin([(handle, WM_NULL, 0, 0)])
        end = time.monotonic() + PATIENCE
        while not self.program.is_done(errand) and time.monotonic() < end:
            if any(top.kind == BOX and top.visible for top in self.program.tops()):
                return False
            self.agent.ask("nap")
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
        self.wait_until(self.is_idle)
        self.watch()
        if not self.shown:
            self.wait_until(lambda: self.program.exit_code() is not None)

    def is_idle(self):
        """True once the message loop has come round to the form that takes the user's input, or no form is left."""
        reachable = [top for top in self.forms() if top.visible and top.enabled]
        return self.answers(reachable[0].handle) if reachable else not any(top.visible for top in self.forms())

    # What the user does.

    def do_set(self, name, text):
        self.registry.set_text(SETTINGS, name, text)

    def do_set_in(self, path, name, text):
        self.registry.set_text(path, name, text)

    def do_set_number(self, name, number):
        self.registry.set_number(SETTINGS, name, int(number))

    def do_no_key(self):
        self.registry.delete(SETTINGS)

    def do_printer(self, _name, *options):
        """The print server has a queue of this name."""
        if any(option.split("=")[0] not in MEASURES for option in options):
            raise Unplayable("printer " + " ".join(options))

    def do_clock(self, _moment):
        """Texts with the time are not compared."""

    def do_random(self, _seed):
        """Nor are those drawn by chance."""

    def do_start(self):
        self.stored = self.registry.values(SETTINGS) or {}
        self.program = Program(self.agent, self.command_line)
        end = time.monotonic() + PATIENCE
        while not any(top.visible and top.enabled for top in self.forms()):
            self.answer_boxes()
            if self.program.exit_code() is not None or time.monotonic() > end:
                raise TimeoutError("the program shows no form")
            self.agent.ask("nap")
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
        else:
            self.act(*self.mouse(window.handle))

    def click_tool(self, path, form, number):
        bar = self.handle(form, "Toolbar")
        command = self.ids.tool(number)
        if not self.can_use(form, "Toolbar") or self.agent.number("send", bar, TB_ISBUTTONENABLED, command, 0) == 0:
            self.ignore("click", path)
        else:
            self.act((self.parent_of_bar(form), WM_COMMAND, command, bar))

    def parent_of_bar(self, form):
        return self.agent.number("parent", self.handle(form, "Toolbar"))

    def do_pick(self, path, entry):
        form, control = path.split(".")
        window = self.window(form, control)
        combo = window.kind == COMBO
        count, choose, told = (CB_GETCOUNT, CB_SETCURSEL, CBN_SELCHANGE) if combo else (
            LB_GETCOUNT, LB_SETCURSEL, LBN_SELCHANGE)
        if not self.can_use(form, control) or not 0 <= int(entry) < window.send(count):
            self.ignore("pick", path)
            return
        number = self.ids.number(form, control)
        parent = self.agent.number("parent", window.handle)
        self.act((window.handle, choose, int(entry), 0), (parent, WM_COMMAND, signed(number, told), window.handle))

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

    def do_close(self, form):
        if not self.reachable(form):
            self.ignore("close", form)
            return
        handle = self.form(form).handle
        self.act((handle, WM_CLOSE, 0, 0))
        if any(top.handle == handle and top.visible for top in self.forms()):
            self.note(event="refused", form=form)

    # Questions.

    def do_get(self, path):
        value = self.value(path)
        if value is Unknown:
            self.note(get=path, unknown=True)
        else:
            self.note(get=path, value=value)

    def do_expect(self, path, _value):
        self.do_get(path)

    def value(self, path):
        if path == "Forms":
            return list(self.shown)
        if path.startswith("Store."):
            known = (self.registry.values(SETTINGS) or {}).get(path[6:])
            return None if known is None else value_of(*known)
        parts = path.split(".")
        if path == "frmMain.Page":
            return next(page for page in range(4) if self.window("frmMain", f"WizardPanel({page})").visible)
        if len(parts) == 2 and parts[1] == "ActiveControl":
            return self.ids.name(parts[0], self.agent.number("id", self.agent.number("focus")))
        if len(parts) == 2 and parts[1] == "Visible":
            return self.form(parts[0]).visible
        if len(parts) != 3 or parts[0] not in self.ids.forms or (parts[0], parts[1]) in FROM_THE_MACHINE:
            return Unknown
        return self.property(*parts)

    def property(self, form, control, name):
        if re.fullmatch(r"StatusBar\(\d+\)", control) and name == "Text":
            panel = int(control[10:-1])
            return text_of(self.agent.ask("fetch", self.handle(form, "StatusBar"), SB_GETTEXTW, panel - 1))
        if re.fullmatch(r"Toolbar\(\d+\)", control) and name == "Enabled":
            command = self.ids.tool(int(control[8:-1]))
            return self.agent.number("send", self.handle(form, "Toolbar"), TB_ISBUTTONENABLED, command, 0) != 0
        if not self.ids.has(form, control):
            return Unknown
        try:
            window = self.window(form, control)
        except Unplayable:
            return Unknown
        if name == "Visible":
            return window.visible
        if name == "Enabled":
            return window.own_enabled
        if window.kind == EDIT:
            return self.box_property(window, name)
        if window.kind in {COMBO, LIST}:
            return self.list_property(window, name)
        if window.kind == BUTTON and name == "Value" and control.startswith("opt"):
            return window.send(BM_GETCHECK) == 1
        if window.kind in {BUTTON, STATIC} and name == "Caption":
            return window.text
        return Unknown

    @staticmethod
    def box_property(window, name):
        start, end = (lambda places: (places & 0xFFFF, places >> 16))(window.send(EM_GETSEL))
        return {"Text": window.text, "SelStart": start, "SelLength": end - start}.get(name, Unknown)

    @staticmethod
    def list_property(window, name):
        combo = window.kind == COMBO
        if name == "ListIndex":
            return window.send(CB_GETCURSEL if combo else LB_GETCURSEL)
        if name == "ListCount":
            return window.send(CB_GETCOUNT if combo else LB_GETCOUNT)
        if name == "Text" and combo:
            return window.text
        return Unknown

    # The script.

    def play(self, lines, finish=True):
        for line in lines:
            words = words_of(line)
            if words:
                command = getattr(self, "do_" + words[0].replace("-", "_"), None)
                if command is None:
                    raise Unplayable(words[0])
                command(*words[1:])
        if finish:
            self.finish()

    def finish(self):
        """Closes what is open, innermost first."""
        while self.program is not None and self.program.exit_code() is None:
            reachable = [top for top in self.forms() if top.visible and top.enabled]
            if not reachable:
                raise TimeoutError("no form takes input")
            if reachable[0].kind == "frmMain":
                break
            self.do_close(reachable[0].kind)


# Options of a printer on which nothing depends that is compared.
MEASURES = {"port", "status", "font", "dpi", "sheet", "printable", "offset"}

# What the machine's own printers give instead of the script's.
FROM_THE_MACHINE = {("frmPrintManager", f"lblPrinterSelect({number})") for number in (5, 6, 7, 8)} | {
    ("frmPrintManager", f"cboPrinterSelect({number})") for number in (1, 2)}


def value_of(kind, data):
    if kind == 4:
        return int.from_bytes(data[:4], "little", signed=True)
    return data.decode("utf-16-le").split("\0")[0]


def words_of(line):
    line = line.strip()
    if not line or line.startswith("#"):
        return []
    name = line.split(None, 1)[0]
    if name in {"expect", "call", "poke"}:
        return line.split(None, 2)
    return [ESCAPE.sub(escaped, word[1:-1]) if word.startswith('"') else word for word in WORD.findall(line)]


WORD = re.compile(r'"(?:[^"\\]|\\.)*"|[^\s"]+')
ESCAPE = re.compile(r'\\(["\\n0])')


def escaped(match):
    return {"n": "\n", "0": "\0"}.get(match[1], match[1])
