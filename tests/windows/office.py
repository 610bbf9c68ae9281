"""An office as the program meets it: a Windows with settings of Tarvik, a print server, and a user."""
import contextlib
import pathlib
import shutil

from agent import Agent, Registry, text_of
from control_ids import Ids
from messages import CB_GETCOUNT, CB_GETLBTEXT
from player import Player
from print_server import PPD, PrintServer
from wine_prefix import WinePrefix, skip

# Every calibration is another, so that each can be told apart on paper.
STORED = pathlib.Path(__file__).parents[1] / "support" / "settings" / "told_apart.reg"

PRINTER, PAPER, BIN, ORIENTATION = range(4)
FORMS, NAME_LIST, REPORT = range(3)
TITLES = ("Acceptgiroformulieren voor de drukkeuring", "Namenlijst", "Instellingen calibratie")


class Office:
    """Its printer is described by `ppd`. Close it, or use it with `with`."""

    def __init__(self, build, ppd=PPD):
        for tool, package in (("ps2pdf", "Ghostscript"), ("pdftotext", "Poppler")):
            if not shutil.which(tool):
                skip(f"{package} is not installed")
        with contextlib.ExitStack() as ends:
            self.prefix = ends.enter_context(WinePrefix.for_test(build))
            self.server = ends.enter_context(PrintServer(ppd=ppd))
            self.prefix.settings.update(self.server.settings)
            self.prefix.import_settings(STORED)
            self.ids = Ids.of(self.prefix, build)
            self.program = self.prefix.windows_path(build / "bin" / "drukkeuring.exe")
            self.build = build
            self._seat_user(self.prefix.command())
            ends.callback(lambda: self.agent.close())
            self._ends = ends.pop_all()

    def _seat_user(self, command, log=None):
        self.agent = Agent(command, self.build / "bin" / "win_agent.exe", log)
        self.user = Player(self.agent, Registry(self.agent), self.program, self.ids)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._ends.close()

    def use_screen(self, display):
        """Windows appear on this X display from now on. Only while the program does not run."""
        self.agent.close()
        self.prefix.use_screen(display)
        self._seat_user(self.prefix.command())

    def use_high_contrast(self):
        """From now on. Only while the program does not run."""
        self.agent.close()
        self.prefix.use_high_contrast()
        self._seat_user(self.prefix.command())

    def trace(self, channels, log):
        """Wine tells in this file what goes on in these debug channels. Only while the program does not run."""
        self.agent.close()
        self.prefix.settings["WINEDEBUG"] = channels
        self._seat_user(self.prefix.command(), log)

    def limit_files(self, bytes_):
        """Nobody can make a longer file in what runs from now on, as on a disk that is full. None: there is no limit. Only
        while the program does not run. The agent before goes when the next one is there: a Windows in which nothing runs ends
        soon, and the one that came in its place would have the limit as well."""
        command = self.prefix.command()
        if bytes_ is not None:
            command = ["sh", "-c", 'trap "" XFSZ; exec "$@"', "sh", "prlimit", f"--fsize={bytes_}", *command]
        before = self.agent
        self._seat_user(command)
        self.agent.nap()
        before.close()

    def play(self, *lines):
        self.user.play(lines, finish=False)

    def start_at_the_last_page(self, batch=0):
        """`batch` is the position of the size of the batch on the wizard's third page."""
        self.play("start", "click frmMain.Verder", "click frmMain.optProcedure(0)", "click frmMain.Verder",
                  f"click frmMain.optTestpartij({batch})", "click frmMain.Verder")

    def wait_for_precheck(self):
        """The line that tells what is wrong with the batch gets its windows a moment after the last page has come."""
        self.user.wait_until(lambda: self.user.value("frmMain.cmdVoorcontrole.Visible") is True)

    def open_manager(self, details=False):
        self.play("click frmMain.cmdPrinten", *["click frmPrintManager.cmdDetails"] * details)

    def box(self, number):
        return self.user.window("frmPrintManager", f"cboPrinterSelect({number})")

    def choices(self, number):
        handle = self.box(number).handle
        count = self.agent.number("send", handle, CB_GETCOUNT, 0, 0)
        return [text_of(self.agent.ask("entry", handle, CB_GETLBTEXT, i)) for i in range(count)]

    def chosen(self, number):
        return self.box(number).text

    def choose(self, number, text):
        """Picks an entry of one of the manager's combos by its text."""
        self.play(f"pick frmPrintManager.cboPrinterSelect({number}) {self.choices(number).index(text)}")

    def pick_document(self, document):
        self.play(f"pick frmPrintManager.lstAfdrukken {document}")

    def print_document(self, document):
        """The manager closes at the end of it."""
        self.pick_document(document)
        self.play("click frmPrintManager.cmdPrint")

    def events(self, *kinds):
        """What has happened so far, of these kinds."""
        return [record for record in self.user.records if record.get("event") in kinds]
