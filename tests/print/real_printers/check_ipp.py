"""Printers without a driver of their own: ippeveprinter, through a queue made as "everywhere" and through one that has
no PPD. What the program offers must be what the printer tells; a job must reach the printer with the sheet, the tray
and one side that were chosen, whatever the printer, the server and the user have as defaults.

check_ipp.py QUEUE_PROBE
"""

import json
import pathlib
import re
import shutil
import struct
import sys
import tempfile

import hostile
import offer_check
import text_sheets
from ipp_printer import IppPrinter
from print_server import PrintServer

NOT_FOUND = 77  # exit status of a test that cannot be made here
HUNDREDTHS = 100  # to the millimetre
NEAR = 20  # hundredths of a millimetre

PAPERS = (("iso_a4_210x297mm", 21000, 29700), ("na_legal_8.5x14in", 21590, 35560), ("om_folio_210x330mm", 21000, 33000))
MARGIN = 423
SOURCES = ("main", "alternate", "by-pass-tray", "manual")


# What a printer has to tell besides.
PLAIN_ATTRIBUTES = (
    "ATTR text printer-make-and-model 'Proef Lade'",
    "ATTR boolean color-supported false",
    "ATTR rangeOfInteger copies-supported 1-99",
    "ATTR integer copies-default 1",
    "ATTR mimeMediaType document-format-supported application/octet-stream,application/pdf,image/pwg-raster,image/urf",
    "ATTR mimeMediaType document-format-default application/octet-stream",
    "ATTR enum finishings-supported 3", "ATTR enum finishings-default 3",
    "ATTR keyword media-type-supported auto,stationery", "ATTR enum orientation-requested-supported 3,4,5,6",
    "ATTR keyword output-bin-supported face-down", "ATTR keyword output-bin-default face-down",
    "ATTR keyword print-color-mode-supported monochrome", "ATTR keyword print-color-mode-default monochrome",
    "ATTR enum print-quality-supported 4", "ATTR enum print-quality-default 4",
    "ATTR resolution printer-resolution-supported 600dpi", "ATTR resolution printer-resolution-default 600dpi",
    "ATTR resolution pwg-raster-document-resolution-supported 600dpi",
    "ATTR keyword pwg-raster-document-sheet-back normal",
    "ATTR keyword pwg-raster-document-type-supported black_1,sgray_8",
    "ATTR keyword urf-supported CP1,IS1,MT1,RS600,V1.4,W8,DM1",
    "ATTR keyword job-creation-attributes-supported copies,media,media-col,number-up,orientation-requested,page-ranges,"
    "print-color-mode,print-quality,print-scaling,printer-resolution,sides",
)


def _size(width, length):
    return f"{{MEMBER integer x-dimension {width} MEMBER integer y-dimension {length}}}"


def _collection(size, more=""):
    return (f"{{MEMBER collection media-size {size} "
            f"MEMBER integer media-bottom-margin {MARGIN} MEMBER integer media-left-margin {MARGIN} "
            f"MEMBER integer media-right-margin {MARGIN} MEMBER integer media-top-margin {MARGIN}{more}}}")


def printer_attributes(custom):
    """What the printer tells of itself. `custom` is whether it takes sheets of any size within bounds."""
    names = [name for name, _, _ in PAPERS]
    sizes = [_size(width, length) for _, width, length in PAPERS]
    if custom:
        names += ["custom_min_100x148mm", "custom_max_297x432mm"]
        sizes.append("{MEMBER rangeOfInteger x-dimension 10000-29700 MEMBER rangeOfInteger y-dimension 14800-43200}")
    preset = _collection(sizes[0], " MEMBER keyword media-source main")
    trays = [f'"type=sheetFeedAutoRemovableTray;maxcapacity=250;level=100;status=0;name={name};"' for name in SOURCES]
    return "\n".join([
        "ATTR keyword media-supported " + ",".join(names),
        "ATTR keyword media-default " + names[0],
        "ATTR keyword media-ready " + names[0],
        "ATTR collection media-size-supported " + ",".join(sizes),
        "ATTR collection media-col-database " + ",".join(_collection(size) for size in sizes),
        "ATTR collection media-col-default " + preset, "ATTR collection media-col-ready " + preset,
        "ATTR keyword media-col-supported media-bottom-margin,media-left-margin,media-right-margin,media-size,"
        "media-source,media-top-margin,media-type",
        f"ATTR integer media-bottom-margin-supported {MARGIN}", f"ATTR integer media-left-margin-supported {MARGIN}",
        f"ATTR integer media-right-margin-supported {MARGIN}", f"ATTR integer media-top-margin-supported {MARGIN}",
        "ATTR keyword media-source-supported " + ",".join(SOURCES),
        "ATTR octetString printer-input-tray " + ",".join(trays),
        "ATTR keyword sides-supported one-sided,two-sided-long-edge,two-sided-short-edge",
        "ATTR keyword sides-default two-sided-long-edge",
        "ATTR keyword print-scaling-supported auto,auto-fit,fill,fit,none",
        "ATTR keyword print-scaling-default fit",
        "ATTR integer number-up-supported 1,2,4",
        *PLAIN_ATTRIBUTES,
    ]) + "\n"


# What the printer may be told of these, nothing among it.
PLAIN = {
    "NUMBER_UP": ("", "1"), "COPIES": ("", "1"), "PAGE_RANGES": ("", "1-2147483647"),
    "JOB_SHEETS": ("", "none", "none,none"),
    "ORIENTATION_REQUESTED": ("", "3", "portrait", "none"), "PRINT_SCALING": ("", "none"), "PAGE_DELIVERY": ("",),
}


class Check:
    def __init__(self):
        self.faults = 0

    def that(self, holds, what):
        if not holds:
            self.faults += 1
            print("    " + what)


def offered_by(server, probe, queue, *more):
    done = server.run(probe, "--queue", queue, *more)
    if done.returncode != 0:
        raise RuntimeError(f"{queue}: {done.stderr[-300:]}")
    return json.loads(done.stdout)


def _is_near(one, other):
    return all(abs(a - b) <= NEAR for a, b in zip(one, other))


def _paper(offered, *size):
    return next((paper for paper in offered["papers"]
                 if _is_near((paper["width"] * HUNDREDTHS, paper["height"] * HUNDREDTHS), size)), None)


def check_offer(check, offered, custom):
    for name, width, length in PAPERS:
        paper = _paper(offered, width, length)
        check.that(paper is not None, f"{name} is not offered")
        if paper:
            sides = [paper[side] * HUNDREDTHS for side in ("left", "top", "right", "bottom")]
            check.that(all(abs(side - MARGIN) <= NEAR for side in sides), f"{name}: margins {sides}")
    form = _paper(offered, *(side * HUNDREDTHS for side in offer_check.FORM_SHEET))
    check.that((form is not None) == custom, f"the form's own sheet: {form}")
    check.that(len([each for each in offered["bins"] if not each["standIn"]]) >= len(SOURCES),
               f"bins {[each['name'] for each in offered['bins']]}")


def media_col(text):
    """Sizes and source of a media-col in ippeveprinter's writing."""
    return {name: int(value) if value.isdigit() else value
            for name, value in re.findall(r"([\w-]+)=([\w.-]+)", text) if name in (
                "x-dimension", "y-dimension", "media-source")}


def check_settings(check, attributes, name):
    """One side, one page to a sheet, all pages, once, as they are."""
    check.that(attributes.get("IPP_SIDES") == "one-sided", f"{name}: sides {attributes.get('IPP_SIDES')}")
    for option, allowed in PLAIN.items():
        value = attributes.get(f"IPP_{option}", "")
        check.that(value in allowed, f"{name}: {option} {value}")


def check_job(check, printer, size, source, name):
    attributes, _document = printer.job()
    told = media_col(attributes.get("IPP_MEDIA_COL", ""))
    own = (told.get("x-dimension", 0), told.get("y-dimension", 0))
    check.that(_is_near(own, size), f"{name}: sheet {own}, not {size}: {attributes}")
    check.that(told.get("media-source") == source, f"{name}: source {told.get('media-source')}, not {source}")
    check_settings(check, attributes, name)


def check_plain_job(check, server, printer, size, source, name):
    """Without a PPD the server passes no collection on. What it was told stands in its record of the job."""
    record = (server.folder / f"spool/c{server.last_job():05}").read_bytes()
    for member, value in (("x-dimension", size[0]), ("y-dimension", size[1])):
        check.that(struct.pack(">i", value) in record, f"{name}: no {member} {value} in the server's record")
    check.that(source.encode() in record, f"{name}: no {source} in the server's record")
    if any(_is_near(size, listed[1:]) for listed in PAPERS):  # this printer takes names from its list alone
        attributes, _document = printer.job()
        named = offer_check.size_in_name(attributes.get("IPP_MEDIA", ""))
        own = tuple(round(side * HUNDREDTHS) for side in named or (0, 0))
        check.that(_is_near(own, size), f"{name}: sheet {attributes.get('IPP_MEDIA')}, not {size}")
        check_settings(check, attributes, name)


def bin_of(offered, source):
    """The bin of the program's list that stands for a source of the printer."""
    def plain(keyword):
        return re.sub(r"[^a-z]", "", keyword.lower())

    return next((each for each in offered["bins"] if plain(source) in (plain(each["pwg"]), plain(each["ppd"]))), None)


def check_queue(check, server, probe, printer, queue, custom):
    has_ppd = (server.folder / f"ppd/{queue}.ppd").exists()
    offered = offered_by(server, probe, queue)
    check_offer(check, offered, custom)
    sizes = [(width, length) for _, width, length in PAPERS]
    if custom:
        sizes.append(tuple(round(side * HUNDREDTHS) for side in offer_check.FORM_SHEET))
    with tempfile.TemporaryDirectory() as folder:
        for size in sizes:
            paper, tray = _paper(offered, *size), bin_of(offered, "alternate")
            if not paper or not tray:
                check.that(False, f"{queue}: no {'paper ' + str(size) if not paper else 'bin alternate'}")
                continue
            document = pathlib.Path(folder) / "document.pdf"
            document.write_bytes(text_sheets.make(*(side / HUNDREDTHS / offer_check.POINT for side in size)))
            printer.forget()
            offered_by(server, probe, queue, "--paper", paper["id"], "--bin", tray["id"], "--print", document)
            name = f"{queue} {paper['name']}"
            if has_ppd:
                check_job(check, printer, size, "alternate", name)
            else:
                check_plain_job(check, server, printer, size, "alternate", name)
            print(f"    sent: {name}", flush=True)


def make_queue(server, queue, printer):
    server.lpadmin("-p", queue, "-E", "-v", printer.uri(), "-m", "everywhere")
    for option, value in hostile.SERVER:
        server.lpadmin("-p", queue, "-o", f"{option}-default={value}")


def check_printer(check, probe, custom):
    with IppPrinter("Proef", printer_attributes(custom)) as printer, PrintServer() as server:
        server.start()
        for queue in ("Overal", "Zonder"):
            make_queue(server, queue, printer)
        server.set_user_defaults(hostile.user(["Overal", "Zonder"]))
        check_queue(check, server, probe, printer, "Overal", custom)
        (server.folder / "ppd/Zonder.ppd").unlink()  # the server has read what it tells of the queue
        check_queue(check, server, probe, printer, "Zonder", custom)


def main():
    probe = sys.argv[1]
    for tool in ("ippeveprinter", "lpadmin", "dbus-daemon"):
        if shutil.which(tool) is None:
            print(f"skipped: {tool} is not installed (tools/setup.sh printers)")
            return NOT_FOUND
    check = Check()
    for custom in (True, False):
        print("sheets of any size within bounds:" if custom else "sheets of a list:", flush=True)
        check_printer(check, probe, custom)
    print(f"{check.faults} faults")
    return 1 if check.faults else 0


if __name__ == "__main__":
    sys.exit(main())
