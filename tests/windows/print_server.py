"""A print server of the test's own, for programs of Windows.

Its queues have a PPD and a backend that keeps what would go to the printer: a document in PostScript and the options
of its job.
"""
import collections
import pathlib
import shutil
import sys
import time

from wine_prefix import skip

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from support.print_server import PATIENCE, PROGRAMS, PrivateServer, is_installed  # noqa: E402

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


class PrintServer(PrivateServer):
    """`queues` are names; the first is the default. Start it before Windows programs ask for printers."""

    def __init__(self, queues=("Kantoor",), types=TYPES, ppd=PPD):
        if not is_installed():
            skip("CUPS is not installed")
        super().__init__(more="LogLevel warn\n",
                         folders=("bin/daemon", "bin/notifier", "share/mime", "share/banners"))
        self._taken = 0
        shutil.copy(PROGRAMS / "daemon/cups-exec", self.folder / "bin/daemon/cups-exec")
        self.write("share/mime/local.types", types)
        self.write("bin/backend/save", BACKEND, 0o700)  # the server then runs it as the user that it runs as itself
        self.write("queue.ppd", ppd)
        try:
            self.start()
            for queue in queues:
                self.lpadmin("-p", queue, "-E", "-v", "save:/dev/null", "-P", self.folder / "queue.ppd",
                             "-D", f"Printer {queue}")
            self.lpadmin("-d", queues[0])
        except BaseException:
            self.close()
            raise

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
