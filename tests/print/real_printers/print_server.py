"""A print server (cupsd) of the test's own, on a socket in a temporary folder: it runs the machine's real filters and
drivers and leaves the machine's own server alone. What would go to a printer is saved instead."""

import dataclasses
import os
import pathlib
import pwd
import shutil
import socket
import subprocess
import tempfile
import time

REAL_PROGRAMS = pathlib.Path("/usr/lib/cups")
PATIENCE = 120  # seconds for one job

CONFIGURATION = """LogLevel info
Listen @/cups.sock
Browsing Off
DefaultAuthType None
WebInterface No
PreserveJobFiles Yes
PreserveJobHistory Yes
JobKillDelay 5
DirtyCleanInterval 0
<Location />
  Order allow,deny
  Allow all
</Location>
<Location /admin>
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
FileDevice Yes
FatalErrors config
ServerRoot @
ServerBin @/bin
DataDir /usr/share/cups
CacheDir @/cache
StateDir @/state
RequestRoot @/spool
TempDir @/spool/tmp
AccessLog @/access.log
ErrorLog @/error.log
PageLog @/page.log
"""
# The document's name appears when all of it is there.
SAVE = """#!/bin/sh
[ $# -eq 0 ] && { echo 'direct save "Save" "Save"'; exit 0; }
mkdir -p @/out/$1
if [ $# -ge 6 ]; then cat "$6" > @/out/$1/part; else cat > @/out/$1/part; fi
mv @/out/$1/part @/out/$1/printed
"""
# A driver that reads a page of dots: what it gets is saved on its way.
TEE = """#!/bin/sh
[ $# -ge 6 ] && exec < "$6"
tee @/rasters/$1 | {real} "$1" "$2" "$3" "$4" "$5"
"""


@dataclasses.dataclass
class Job:
    number: int
    printed: pathlib.Path
    raster: pathlib.Path


class PrintServer:
    def __init__(self):
        self._owner = tempfile.TemporaryDirectory(prefix="printers")
        self.folder = pathlib.Path(self._owner.name)
        self.folder.chmod(0o755)
        self._process = None
        self._queues = ""
        for name in ("bin/backend", "bin/filter", "cache", "state", "spool/tmp", "out", "rasters", "ppd", "ssl",
                     "home/.cups"):
            (self.folder / name).mkdir(parents=True)
        (self.folder / "rasters").chmod(0o1777)
        for name in ("daemon", "driver", "notifier", "cgi-bin", "monitor"):
            if (REAL_PROGRAMS / name).exists():
                (self.folder / "bin" / name).symlink_to(REAL_PROGRAMS / name)
        for program in (REAL_PROGRAMS / "filter").iterdir():
            (self.folder / "bin/filter" / program.name).symlink_to(program)
        (self.folder / "bin/backend/ipp").symlink_to(REAL_PROGRAMS / "backend/ipp")
        self._write("cupsd.conf", CONFIGURATION)
        self._write("cups-files.conf", FILES + ("" if os.getuid() == 0 else f"User {self._user()}\n"))
        self._write("bin/backend/save", SAVE, 0o700)
        self._write("client.conf", "")

    @staticmethod
    def _user():
        return pwd.getpwuid(os.getuid()).pw_name

    def _write(self, name, text, mode=0o644):
        file = self.folder / name
        file.write_text(text.replace("@", str(self.folder)), encoding="utf-8")
        file.chmod(mode)

    def environment(self):
        """For programs that are to print here, with a home of their own."""
        home = self.folder / "home"
        return {**os.environ, "CUPS_SERVER": str(self.folder / "cups.sock"), "CUPS_SERVERROOT": str(self.folder),
                "HOME": str(home), "XDG_CACHE_HOME": str(home / "cache"), "XDG_CONFIG_HOME": str(home / "config"),
                "QT_QPA_PLATFORM": "offscreen"}

    def save_raster_of(self, driver):
        """Saves what comes to this filter as well."""
        file = self.folder / "bin/filter" / driver
        file.unlink()
        self._write(f"bin/filter/{driver}", TEE.replace("{real}", str(REAL_PROGRAMS / "filter" / driver)), 0o755)

    def add_queue(self, name, ppd, defaults=(), banners="none none"):
        """A queue of that description (bytes), with defaults of the server's as pairs of name and value. Before
        start() only."""
        (self.folder / "ppd" / f"{name}.ppd").write_bytes(ppd)
        options = "".join(f"Option {option} {value}\n" for option, value in defaults)
        self._queues += (f"<Printer {name}>\nInfo {name}\nDeviceURI save:/dev/null\nState Idle\nAccepting Yes\n"
                         f"JobSheets {banners}\n{options}</Printer>\n")

    def set_user_defaults(self, text):
        """What the user's own lpoptions say."""
        (self.folder / "home/.cups/lpoptions").write_text(text, encoding="utf-8")

    def start(self):
        if self._queues:
            self._write("printers.conf", self._queues)
        self._process = subprocess.Popen(
            ["cupsd", "-f", "-c", self.folder / "cupsd.conf", "-s", self.folder / "cups-files.conf"])
        end = time.monotonic() + 10
        while time.monotonic() < end:
            with socket.socket(socket.AF_UNIX) as client:
                try:
                    client.connect(str(self.folder / "cups.sock"))
                    return
                except OSError:
                    time.sleep(0.01)
        raise RuntimeError("the print server does not start:\n" + self.log())

    def stop(self):
        if self._process:
            self._process.terminate()
            try:
                self._process.wait(10)
            except subprocess.TimeoutExpired:
                self._process.kill()
                self._process.wait()
            self._process = None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stop()
        self._owner.cleanup()

    def log(self):
        file = self.folder / "error.log"
        return file.read_text("utf-8", "replace") if file.exists() else ""

    def run(self, *arguments, **more):
        return subprocess.run([str(each) for each in arguments], env=self.environment(), capture_output=True,
                              text=True, check=False, timeout=PATIENCE, **more)

    def last_job(self):
        """The number of the newest job, 0 if there is none."""
        return max((int(file.name[1:6]) for file in (self.folder / "spool").glob("d?????-*")), default=0)

    def wait_for(self, number):
        """What has come out of a job; RuntimeError with the filters' messages if nothing does."""
        out = self.folder / "out" / str(number)
        end = time.monotonic() + PATIENCE
        while not (out / "printed").exists():
            if time.monotonic() > end or f"[Job {number}] Job stopped due to filter errors" in self.log():
                lines = [line for line in self.log().splitlines() if f"[Job {number}]" in line]
                raise RuntimeError(f"job {number} does not come out:\n" + "\n".join(lines[-15:]))
            time.sleep(0.02)
        raster = self.folder / "rasters" / str(number)
        return Job(number, out / "printed", raster if raster.exists() else None)

    def drop(self, job):
        """Its files are large."""
        shutil.rmtree(job.printed.parent)
        if job.raster:
            job.raster.unlink()
