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
PPD_BEGIN = """*PPD-Adobe: "4.3"
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
"""
DUPLEX = """*OpenUI *Duplex/Dubbelzijdig: PickOne
*OrderDependency: 30 AnySetup *Duplex
*DefaultDuplex: DuplexNoTumble
*Duplex None/Uit: "<</Duplex false>>setpagedevice"
*Duplex DuplexNoTumble/Lange kant: "<</Duplex true/Tumble false>>setpagedevice"
*Duplex DuplexTumble/Korte kant: "<</Duplex true/Tumble true>>setpagedevice"
*CloseUI: *Duplex
"""
PPD_END = """*DefaultFont: Courier
*Font Courier: Standard "(1.05)" Standard ROM
"""
EDGES = (18, 36, 18, 18)  # points around the sheet where no printer comes: left, bottom, right, top

# A paper's width and height are in points.
Paper = collections.namedtuple("Paper", "keyword name width height")
Slot = collections.namedtuple("Slot", "keyword name position")


def choices(option, title, place, rows, default):
    """One of the driver's lists."""
    entries = [f'*{option} {keyword}/{name}: "<<{setting}>>setpagedevice"' for keyword, name, setting in rows]
    return [f"*OpenUI *{option}{title}: PickOne", f"*OrderDependency: {place} AnySetup *{option}",
            f"*Default{option}: {default}", *entries, f"*CloseUI: *{option}"]


def driver(papers, slots, paper=None, slot=None, edges=EDGES):
    """The text of a PPD. It starts with this paper and slot, by keyword, or the first ones."""
    paper, slot = paper or papers[0].keyword, slot or slots[0].keyword
    left, bottom, right, top = edges
    sizes = [(size.keyword, size.name, f"/PageSize[{size.width} {size.height}]") for size in papers]
    positions = [(each.keyword, each.name, f"/MediaPosition {each.position}") for each in slots]
    areas = [f'*ImageableArea {size.keyword}: "{left} {bottom} {size.width - right} {size.height - top}"' for size in papers]
    sheets = [f'*PaperDimension {size.keyword}: "{size.width} {size.height}"' for size in papers]
    lines = [*choices("PageSize", "/Media Size", 10, sizes, paper), *choices("PageRegion", "", 10, sizes, paper),
             f"*DefaultImageableArea: {paper}", *areas, f"*DefaultPaperDimension: {paper}", *sheets,
             *choices("InputSlot", "/Bron", 20, positions, slot)]
    return PPD_BEGIN + "\n".join(lines) + "\n" + PPD_END


PPD = driver([Paper("A4", "A4 blanco", 595, 842), Paper("Legal", "US Legal", 612, 1008), Paper("A5", "A5", 420, 595)],
             [Slot("Upper", "Lade boven", 0), Slot("Tray3", "Lade 3 met formulieren", 2), Slot("Manual", "Handinvoer", 3)])

PPD_TWO_SIDED = PPD + DUPLEX  # by default

Job = collections.namedtuple("Job", "title copies options document")


class PrintServer(PrivateServer):
    """`queues` are names, or names with the PPD of each; the first is the default. Start it before Windows programs ask for
    printers."""

    def __init__(self, queues=("Kantoor",), types=TYPES, ppd=PPD):
        if not is_installed():
            skip("CUPS is not installed")
        super().__init__(more="LogLevel warn\n",
                         folders=("bin/daemon", "bin/notifier", "share/mime", "share/banners"))
        shutil.copy(PROGRAMS / "daemon/cups-exec", self.folder / "bin/daemon/cups-exec")
        self.write("share/mime/local.types", types)
        self.write("bin/backend/save", BACKEND, 0o700)  # the server then runs it as the user that it runs as itself
        drivers = queues if isinstance(queues, dict) else dict.fromkeys(queues, ppd)
        for queue, text in drivers.items():
            self.write(f"{queue}.ppd", text)
        try:
            self.start()
            for queue in drivers:
                self.lpadmin("-p", queue, "-E", "-v", "save:/dev/null", "-P", self.folder / f"{queue}.ppd",
                             "-D", f"Printer {queue}")
            self.lpadmin("-d", next(iter(drivers)))
        except BaseException:
            self.close()
            raise

    def next_job(self):
        """The oldest job that has not been asked for yet, once it has come out of its queue whole."""
        end = time.monotonic() + PATIENCE
        while not self.has_job():
            if time.monotonic() > end:
                raise TimeoutError("no job has come out of the queue")
            time.sleep(0.01)
        document = min(self._documents())
        text = {kind: document.with_suffix(f".{kind}").read_text("utf-8") for kind in ("title", "copies", "options")}
        job = Job(**text, document=document.read_bytes())
        document.unlink()  # the folder has what has not been asked for
        return job

    def has_job(self):
        return bool(self._documents())

    def _documents(self):
        return sorted((self.folder / "out").glob("*.ps"))
