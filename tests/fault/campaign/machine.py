"""A user's machine for one run of the program: settings, printer defaults, an old PDF, a print server, and what became
of them."""
import collections
import os
import pathlib
import re
import shutil
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "windows"))
from print_server import PPD, PrintServer  # noqa: E402

# The queues of that server take PDF here.
PDF_TYPES = "application/pdf pdf string(0,%PDF)\napplication/octet-stream\napplication/vnd.cups-raw\n"
PDF_PPD = PPD.replace('*cupsFilter: "application/postscript 0 -"', '*cupsFilter2: "application/pdf application/pdf 0 -"')

TRAY, SLOT = "Lade 3 met formulieren", "Tray3"
DEFAULTS = b"Dest Kantoor InputSlot=Manual x-afdeling=4\nDest Elders InputSlot=Upper\n"
OLD_PDF = b"%PDF-1.4 van gisteren"
FAR = 60  # seconds after which a run hangs
SOON = 5  # seconds in which a job comes out of the queue

PERHAPS = "Misschien wordt het toch afgedrukt"
REFUSED = ("niet afgedrukt", "niet aangenomen", "kon niet worden klaargezet", "kon niet worden begonnen")
NO_PRINTER = ("kon niet worden gevonden", "Fout tijdens de initialisatie")
NO_FILE = "kon niet worden geschreven"

Run = collections.namedtuple("Run", "status messages missing unreachable job pdf log")


def plain(pdf):
    """The text of a PDF as it stands on paper; nothing if it is not whole."""
    start = re.search(rb"startxref\s+(\d+)\s+%%EOF\s*$", pdf)
    if not start or not pdf[int(start[1]):].startswith(b"xref"):
        return b""
    return subprocess.run(["pdftotext", "-layout", "-", "-"], input=pdf, check=False, capture_output=True).stdout


def pdf_server():
    return PrintServer(("Kantoor", "Elders"), PDF_TYPES, PDF_PPD)


class Machine:
    """`place` is an empty folder of its own; the server may be shared by runs that follow each other."""

    def __init__(self, place, options, server):
        self.place, self.options, self.server = pathlib.Path(place), options, server
        self.home, self.out = self.place / "home", self.place / "uit"
        self.settings = self.home / ".config/tarvik/settings.reg"
        self.cups = self.place / "cups"  # where root keeps the users' defaults

    def prepare(self):
        for folder in (self.settings.parent, self.home / ".cups", self.out, self.cups):
            shutil.rmtree(folder, ignore_errors=True)
            folder.mkdir(parents=True)
        shutil.rmtree(self.home / ".cache", ignore_errors=True)
        shutil.copy(self.options.settings, self.settings)
        self.settings.chmod(0o600)
        (self.home / "brief.txt").write_text("van mij", encoding="utf-8")
        for folder in (self.home / ".cups", self.cups):
            (folder / "lpoptions").write_bytes(DEFAULTS)
        (self.out / "uit.pdf").write_bytes(OLD_PDF)
        return self

    @property
    def environment(self):
        return {"PATH": os.environ["PATH"], "HOME": str(self.home), "LC_ALL": "C.UTF-8", "TMPDIR": str(self.place),
                "XDG_CONFIG_HOME": str(self.home / ".config"), "XDG_CACHE_HOME": str(self.home / ".cache"),
                "XDG_RUNTIME_DIR": str(self.place), "CUPS_SERVERROOT": str(self.cups), "QT_QPA_PLATFORM": "offscreen",
                "QT_NO_GLIB": "1", "CAMPAIGN_PDF": str(self.out / "uit.pdf"), "CAMPAIGN_TRAY": TRAY,
                **self.server.settings}

    def command(self, before=()):
        # Through env: what comes before the program is not to load the player.
        return [*before, "env", f"LD_PRELOAD={self.options.player}", self.options.program]

    def start(self, before=(), **environment):
        return subprocess.Popen(self.command(before), env={**self.environment, **environment}, cwd=self.place,
                                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def run(self, before=(), trace=None, **environment):
        process = self.start(before, **environment)
        try:
            told = process.communicate(timeout=FAR)[0].decode("utf-8", "replace")
        except subprocess.TimeoutExpired:
            process.kill()
            told, _ = process.communicate()
            return Run("hangs", [], [], [], None, None, "")
        return self.outcome(process.returncode, told, trace)

    def outcome(self, status, told, trace=None):
        lines = [line.partition("\t") for line in told.splitlines()]
        messages = [text for kind, _, text in lines if kind == "message"]
        stuck = [text for kind, _, text in lines if kind == "stuck"]
        missing = [text for kind, _, text in lines if kind == "missing"]
        unreachable = [text for kind, _, text in lines if kind == "unreachable"]
        expected = not any(word in text for text in messages for word in REFUSED + NO_PRINTER)
        job = self.take_job(expected and not stuck and status == 0 and TRAY not in missing and "Kantoor" not in missing)
        pdf = (self.out / "uit.pdf").read_bytes() if (self.out / "uit.pdf").exists() else None
        return Run(f"stuck at {stuck[0]}" if stuck else status, messages, missing, unreachable, job, pdf,
                   trace.read_text("utf-8", "replace") if trace and trace.exists() else "")

    def take_job(self, expected):
        end = time.monotonic() + (SOON if expected else 0.15)
        while not self.server.has_job():
            if time.monotonic() > end:
                return None
            time.sleep(0.01)
        return self.server.next_job()

    # What must hold whatever happened.

    def leftovers(self):
        """Files that nobody made but the program, and that no run needs."""
        own = {"settings.reg", "lpoptions", "uit.pdf", "brief.txt"}
        toolkits = "QtProject.conf"  # it writes that itself, with a lock that it takes from the dead
        return [path for path in (*self.home.rglob("*"), *self.out.rglob("*"), *self.cups.rglob("*"))
                if path.is_file() and path.name not in own and not path.name.startswith(toolkits)]

    def strangers(self):
        """Files that are not the program's and have changed."""
        changed = [str(path) for path in (self.home / ".cups/lpoptions", self.cups / "lpoptions")
                   if not path.exists() or path.read_bytes() != DEFAULTS]
        if (self.home / "brief.txt").read_text("utf-8") != "van mij":
            changed.append("brief.txt")
        return changed

    def lines_of_settings(self):
        """The settings, apart the values that the program stores; None if the file is gone."""
        if not self.settings.exists():
            return None
        raw = self.settings.read_bytes()
        text = raw.decode("utf-16" if raw[:2] == b"\xff\xfe" else "utf-8")
        stored = tuple(f'"{name}"' for name in ("CurrentPrinter", "MatrixPrinter", "PrinterOrientation", "GMUFontSize"))
        lines = text.splitlines()
        return ([line for line in lines if not line.startswith(stored)],
                [line for line in lines if line.startswith(stored)])
