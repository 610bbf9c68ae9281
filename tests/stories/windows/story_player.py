"""Plays a script against the real program: what a user does, what stands ready before, and what the script asks.

Words and questions that concern the inside of the program raise Unplayable, or are answered as unknown.
"""
import json
import time

from agent import Registry
from player import Player
from printers import driver_of, printers_in, unseen_in
from reader import Unknown
from script import Unplayable, words_of
from watcher import PATIENCE, SETTINGS

STATUS_DONE, STATUS_SCRIPT_ERROR, STATUS_EXPECTATION_FAILED = 0, 2, 3

# Calls that only ask: nobody outside hears the answer.
QUESTIONS = {"frmPrintManager.IsPrintPreview", "frmPrintPreviewGhost.Page"}

# Calls of Windows that can fail: what they then answer, and the number of the error.
ACCESS_DENIED, RPC_SERVER_UNAVAILABLE = 5, 1722
FAILING = {"DeviceCapabilitiesA": (-1, RPC_SERVER_UNAVAILABLE), "SetPrinterA": (0, ACCESS_DENIED),
           "RegSetValueExA": (ACCESS_DENIED, ACCESS_DENIED)}

PRINTER_LIST = "frmPrintManager.cboPrinterSelect(0)"
NEVER_SHOWN = "frmPrintPreviewGhost"


class ScriptError(Exception):
    """The script names what does not exist."""


class ExpectationFailed(Exception):
    """A value is not the one that the script expects."""


class StoryPlayer(Player):
    """Plays one script from an empty store on."""

    def __init__(self, agent, command_line, ids, script):
        registry = Registry(agent)
        super().__init__(agent, registry, command_line, ids)
        registry.delete(SETTINGS)
        registry.make(SETTINGS)
        self.script = script
        self.printers = list(printers_in(script))
        self.unseen = unseen_in(printers_in(script))
        self.ticked = False  # a timer has been given time to come round, and nothing has been asked since

    # What stands ready.

    def do_printer(self, _name, *options):
        """The print server has a queue of this name."""
        driver_of(dict(option.split("=", 1) for option in options))

    def do_set(self, name, text):
        self.registry.set_text(SETTINGS, name, text)

    def do_set_in(self, path, name, text):
        self.registry.set_text(path, name, text)

    def do_set_number(self, name, number):
        self.registry.set_number(SETTINGS, name, int(number))

    def do_no_key(self):
        self.registry.delete(SETTINGS)

    def do_clock(self, _moment):
        """Texts with the time are not compared."""

    def do_random(self, _seed):
        """Nor are those drawn by chance."""

    def do_trace(self, _what):
        """Nobody outside sees the program yield."""

    def do_poke(self, path, value):
        """Another program writes a setting. Of a printer's state Windows hears nothing from a print server."""
        if path.startswith("Store."):
            self.registry.set_text(SETTINGS, path[6:], json.loads(value))
            self.stored = self.registry.values(SETTINGS)
        elif not (path.startswith("Spooler.") and path.endswith(".status")):
            raise Unplayable(f"poke {path}")

    def do_fail(self, call, count=1):
        if call not in FAILING:
            raise Unplayable(f"fail {call}")
        if self.agent.ask("refuse", call, count, *FAILING[call], "first") != "ok":
            raise RuntimeError(f"the program does not call {call}")

    # What the user does.

    def do_pick(self, path, entry):
        """A story counts the printers as they were installed; Windows lists them by their names."""
        if path == PRINTER_LIST and 0 <= int(entry) < len(self.printers):
            entry = self.entries(path).index(self.printers[int(entry)])
        super().do_pick(path, entry)

    # The mouse, for the buttons that follow it.

    def point_at(self, form, control):
        left, top, width, height = self.area(self.handle(form, control))
        self.agent.ask("pointer", left + width // 2, top + height // 2)

    def do_over(self, path):
        self.mouse_on("over", path, self.point_at)

    def do_away(self, path):
        self.mouse_on("away", path, lambda form, _: self.point_at(form, "StatusBar"))

    def do_down(self, path):
        self.mouse_on("down", path, lambda form, control: (self.point_at(form, control), self.hold(1)))

    def do_up(self, path):
        self.mouse_on("up", path, lambda *_: self.hold(0))

    def mouse_on(self, command, path, act):
        form, control = path.split(".")
        if not self.can_use(form, control):
            self.ignore(command, path)
            return
        act(form, control)
        self.wait_until(self.is_idle)
        self.watch()

    def hold(self, down):
        if self.agent.ask("button", down) != "ok":
            raise TimeoutError("the program does not take the mouse's button")

    def do_tick(self, timer, count=1):
        """What is expected next may still come true."""
        super().do_tick(timer, count)
        self.ticked = True

    # Questions.

    def value(self, path):
        return Unknown if path in self.unseen else super().value(path)

    def do_expect(self, path, wanted):
        wanted_value = on_screen(json.loads(wanted))
        if self.ticked:
            self.ticked = False
            self.wait_for(path, wanted_value)
        self.do_get(path)
        told = self.records[-1].get("value", Unknown)
        if told is not Unknown and told != wanted_value:
            raise ExpectationFailed(f"{path} is {json.dumps(told, ensure_ascii=False)}, not {wanted}")

    def wait_for(self, path, wanted):
        end = time.monotonic() + PATIENCE
        while self.value(path) not in (wanted, Unknown) and time.monotonic() < end:
            self.agent.nap()

    def do_call(self, name, _arguments):
        if name not in QUESTIONS:
            raise Unplayable(f"call {name}")

    def handle(self, form, control):
        if not self.ids.has(form, control):
            raise ScriptError(f"no such control on {form}: {control}")
        return super().handle(form, control)

    # The script.

    def run(self):
        """Plays it to its end: an exit status as the runner has, and the complaint that goes with it."""
        for number, line in enumerate(self.script, start=1):
            try:
                self.play([line], finish=False)
            except (ScriptError, ExpectationFailed) as error:
                status = STATUS_SCRIPT_ERROR if isinstance(error, ScriptError) else STATUS_EXPECTATION_FAILED
                return status, f"line {number}: {error}"
        self.finish()
        return STATUS_DONE, ""


def on_screen(value):
    """A value without the form that nobody sees."""
    return [name for name in value if name != NEVER_SHOWN] if isinstance(value, list) else value


def settings_in(script):
    words = [words_of(line) for line in script]
    return {line[1]: int(line[2]) if line[0] == "set-number" else line[2]
            for line in words if line and line[0] in {"set", "set-number"}}
