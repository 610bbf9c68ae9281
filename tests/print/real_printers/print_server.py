"""A print server of the test's own that runs the machine's real filters and drivers. What would go to a printer is saved
instead."""

import dataclasses
import pathlib
import shutil
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2]))
from support.print_server import PROGRAMS, PrivateServer  # noqa: E402

PATIENCE = 120  # seconds for one job

CONFIGURATION = """LogLevel info
PreserveJobFiles Yes
PreserveJobHistory Yes
JobKillDelay 5
DirtyCleanInterval 0
<Location /admin>
  Order allow,deny
  Allow all
</Location>
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


class PrintServer(PrivateServer):
    def __init__(self):
        super().__init__(CONFIGURATION, data="/usr/share/cups", folders=("rasters", "home/.cups"))
        self.folder.chmod(0o755)  # filters need not run as the user that the server runs as
        (self.folder / "rasters").chmod(0o1777)
        self._queues = ""
        for name in ("daemon", "driver", "notifier", "cgi-bin", "monitor"):
            if (PROGRAMS / name).exists():
                (self.folder / "bin" / name).symlink_to(PROGRAMS / name)
        for program in (PROGRAMS / "filter").iterdir():
            (self.folder / "bin/filter" / program.name).symlink_to(program)
        (self.folder / "bin/backend/ipp").symlink_to(PROGRAMS / "backend/ipp")
        self.write("bin/backend/save", SAVE, 0o700)
        self.write("client.conf", "")

    def environment(self):
        """For programs that are to print here, with a home of their own."""
        home = self.folder / "home"
        return {**super().environment(), "CUPS_SERVERROOT": str(self.folder), "HOME": str(home),
                "XDG_CACHE_HOME": str(home / "cache"), "XDG_CONFIG_HOME": str(home / "config"),
                "QT_QPA_PLATFORM": "offscreen"}

    def save_raster_of(self, driver):
        """Saves what comes to this filter as well."""
        file = self.folder / "bin/filter" / driver
        file.unlink()
        self.write(f"bin/filter/{driver}", TEE.replace("{real}", str(PROGRAMS / "filter" / driver)), 0o755)

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
            self.write("printers.conf", self._queues)
        super().start()

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
