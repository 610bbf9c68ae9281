"""A print server of the test's own, in a temporary folder: it knows nothing of the machine's and leaves it alone.

Its queues have a PPD and a backend that keeps what would go to the printer: a document in PostScript and the options
of its job.
"""
import collections
import ctypes
import os
import pathlib
import pwd
import shutil
import signal
import socket
import subprocess
import tempfile
import time

from wine_prefix import skip

EXEC = pathlib.Path("/usr/lib/cups/daemon/cups-exec")
PATIENCE = 60  # seconds

CONFIGURATION = """LogLevel warn
Listen @/cups.sock
Browsing Off
DefaultAuthType None
WebInterface No
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
"""

FILES = """SystemGroup root
{user}FileDevice Yes
FatalErrors config
ServerRoot @
ServerBin @/bin
DataDir @/share
CacheDir @/cache
StateDir @/state
RequestRoot @/spool
TempDir @/spool/tmp
AccessLog @/access.log
ErrorLog @/error.log
PageLog @/page.log
"""

# The backend gets the job's number, user, title, copies and options, and the document as a file or on its standard
# input. The document appears under its own name when it is whole.
BACKEND = """#!/bin/sh
[ $# -eq 0 ] && { echo 'direct save "Save" "Save"'; exit 0; }
job=@/out/$(printf '%06d' "$1")
printf '%s' "$3" > "$job.title"
printf '%s' "$4" > "$job.copies"
printf '%s' "$5" > "$job.options"
if [ $# -ge 6 ]; then cat "$6" > "$job.part"; else cat > "$job.part"; fi
mv "$job.part" "$job.ps"
"""

TYPES = """application/postscript ps eps ai string(0,%!) string(0,<04>%!)
application/octet-stream
application/vnd.cups-raw
"""

# No block of resolutions: the driver then takes the 600 dots to the inch of DefaultResolution.
PPD = """*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "KANTOOR.PPD"
*Manufacturer: "Proef"
*Product: "(Kantoor)"
*ModelName: "Kantoor"
*ShortNickName: "Kantoor"
*NickName: "Kantoor, model 1"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: False
*DefaultColorSpace: Gray
*TTRasterizer: Type42
*DefaultResolution: 600dpi
*LandscapeOrientation: Plus90
*cupsFilter: "application/postscript 0 -"
*OpenUI *PageSize/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4/A4 blanco: "<</PageSize[595 842]>>setpagedevice"
*PageSize Legal/US Legal: "<</PageSize[612 1008]>>setpagedevice"
*PageSize A5/A5: "<</PageSize[420 595]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4/A4 blanco: "<</PageSize[595 842]>>setpagedevice"
*PageRegion Legal/US Legal: "<</PageSize[612 1008]>>setpagedevice"
*PageRegion A5/A5: "<</PageSize[420 595]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4: "18 36 577 824"
*ImageableArea Legal: "18 36 594 990"
*ImageableArea A5: "18 36 402 577"
*DefaultPaperDimension: A4
*PaperDimension A4: "595 842"
*PaperDimension Legal: "612 1008"
*PaperDimension A5: "420 595"
*OpenUI *InputSlot/Bron: PickOne
*OrderDependency: 20 AnySetup *InputSlot
*DefaultInputSlot: Upper
*InputSlot Upper/Lade boven: "<</MediaPosition 0>>setpagedevice"
*InputSlot Tray3/Lade 3 met formulieren: "<</MediaPosition 2>>setpagedevice"
*InputSlot Manual/Handinvoer: "<</MediaPosition 3>>setpagedevice"
*CloseUI: *InputSlot
*DefaultFont: Courier
*Font Courier: Standard "(1.05)" Standard ROM
"""

Job = collections.namedtuple("Job", "title copies options document")


def end_with_parent():
    """For a process that has just begun: it ends with the one that began it, also where that is killed."""
    parent_death_signal = 1
    ctypes.CDLL(None).prctl(parent_death_signal, signal.SIGTERM)


class PrintServer:
    """`queues` are names; the first is the default. Start it before Windows programs ask for printers."""

    def __init__(self, queues=("Kantoor",)):
        if not EXEC.exists() or not shutil.which("lpadmin", path=self._path()):
            skip("CUPS is not installed")
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="print-"))  # short: a socket's path is limited
        self._taken = 0
        for name in ("bin/backend", "bin/daemon", "bin/filter", "bin/notifier", "share/mime", "share/banners", "cache",
                     "state", "spool/tmp", "out", "ppd", "ssl"):
            (self.folder / name).mkdir(parents=True)
        shutil.copy(EXEC, self.folder / "bin/daemon/cups-exec")
        user = "" if os.getuid() == 0 else f"User {pwd.getpwuid(os.getuid()).pw_name}\n"
        self._write("cupsd.conf", CONFIGURATION)
        self._write("cups-files.conf", FILES.replace("{user}", user))
        self._write("share/mime/local.types", TYPES)
        self._write("bin/backend/save", BACKEND)
        (self.folder / "bin/backend/save").chmod(0o700)  # the server then runs it as the user that it runs as itself
        self._write("queue.ppd", PPD)
        self._server = subprocess.Popen(
            ["cupsd", "-f", "-c", str(self.folder / "cupsd.conf"), "-s", str(self.folder / "cups-files.conf")],
            env={**os.environ, "PATH": self._path()}, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            preexec_fn=end_with_parent)
        try:
            self._wait_until_it_listens()
            for queue in queues:
                self.lpadmin("-p", queue, "-E", "-v", "save:/dev/null", "-P", self.folder / "queue.ppd",
                             "-D", f"Printer {queue}")
            self.lpadmin("-d", queues[0])
        except BaseException:
            self.close()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def stop(self):
        """Ends the server, as a machine does that is switched off."""
        self._server.terminate()
        try:
            self._server.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            self._server.kill()
            self._server.wait()

    def close(self):
        self.stop()
        shutil.rmtree(self.folder, ignore_errors=True)

    @property
    def settings(self):
        """Variables that point a program at this server."""
        return {"CUPS_SERVER": str(self.folder / "cups.sock")}

    def lpadmin(self, *arguments):
        """An administrator's command. A server on a busy machine may drop a connection: it is asked again."""
        for wait in (0.1, 0.5, None):
            done = subprocess.run(["lpadmin", *map(str, arguments)], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                                  text=True, env={**os.environ, "PATH": self._path(), **self.settings})
            if not done.returncode:
                return
            if wait is None:
                raise RuntimeError(f"lpadmin {' '.join(map(str, arguments))}: {done.stderr.strip()}")
            time.sleep(wait)

    def next_job(self):
        """The oldest job that has not been asked for yet, once it has come out of its queue whole."""
        end = time.monotonic() + PATIENCE
        while len(self._documents()) <= self._taken:
            if time.monotonic() > end:
                raise TimeoutError("no job has come out of the queue")
            time.sleep(0.01)
        document = self._documents()[self._taken]
        self._taken += 1
        text = {kind: document.with_suffix(f".{kind}").read_text("utf-8") for kind in ("title", "copies", "options")}
        return Job(**text, document=document.read_bytes())

    def has_job(self):
        return len(self._documents()) > self._taken

    def _documents(self):
        return sorted((self.folder / "out").glob("*.ps"))

    def _write(self, name, text):
        (self.folder / name).write_text(text.replace("@", str(self.folder)), encoding="utf-8")

    def _wait_until_it_listens(self):
        """The socket's name is there before the server listens on it, and before it answers."""
        end = time.monotonic() + PATIENCE
        while not self._answers():
            if self._server.poll() is not None:
                raise RuntimeError(f"the print server ended with {self._server.returncode}")
            if time.monotonic() > end:
                raise TimeoutError("the print server does not listen")
            time.sleep(0.005)

    def _answers(self):
        with socket.socket(socket.AF_UNIX) as client:
            client.settimeout(PATIENCE)
            try:
                client.connect(str(self.folder / "cups.sock"))
                client.sendall(b"OPTIONS / HTTP/1.1\r\nHost: localhost\r\nConnection: close\r\n\r\n")
                return client.recv(16).startswith(b"HTTP/")
            except OSError:
                return False

    @staticmethod
    def _path():
        return os.environ.get("PATH", "") + ":/usr/sbin:/sbin"
