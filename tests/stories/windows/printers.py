"""The printers of a story, as queues of a print server."""
import re

from print_server import Paper, Slot, driver
from script import Unplayable, words_of

DEFAULTS = {"papers": "9:2100x2970:A4;5:2159x3556:Legal", "bins": "15:Automatisch;1:Lade 1", "paper": "9", "bin": "15"}
AUTOMATIC = "15"  # the slot that Windows puts before the driver's own
# Options that no print server hands on to Windows, or on which nothing depends that is compared.
UNLIKE = {"port", "comment", "status", "font", "dpi", "sheet", "printable", "offset", "orientation"}
# What is not compared where the story has printers: the state and the port, the comment, and the automatic slot's name.
UNSEEN = {"lblPrinterSelect(5).Caption", "lblPrinterSelect(7).Caption", "lblPrinterSelect(8).Caption",
          "cboPrinterSelect(2).Text"}
# Nor is this where a printer lies on its side: Windows begins upright.
UNSEEN_LANDSCAPE = {"cboPrinterSelect(3).Text"}
POINTS_PER_TENTH = 72 / 254


def printers_in(script):
    """Names, each with its options."""
    lines = [line for line in map(words_of, script) if line and line[0] == "printer"]
    return {line[1]: dict(option.split("=", 1) for option in line[2:]) for line in lines}


def unseen_in(printers):
    """Paths whose values are the machine's."""
    lying = any("orientation" in options for options in printers.values())
    names = (UNSEEN if printers else set()) | (UNSEEN_LANDSCAPE if lying else set())
    return {f"frmPrintManager.{name}" for name in names}


def driver_of(options):
    """A PPD with the story's papers and bins."""
    if unknown := options.keys() - UNLIKE - DEFAULTS.keys():
        raise Unplayable(f"a printer's {', '.join(sorted(unknown))}")
    settings = {**DEFAULTS, **options}
    papers = {number: Paper(re.sub(r"\W", "", name), name, *(points(side) for side in size.split("x")))
              for number, size, name in (entry.split(":") for entry in settings["papers"].split(";"))}
    bins = dict(entry.split(":") for entry in settings["bins"].split(";"))
    slots = {number: Slot(f"Slot{number}", name, position)
             for position, (number, name) in enumerate(bins.items()) if number != AUTOMATIC}
    slots = slots or {AUTOMATIC: Slot("Only", bins[AUTOMATIC], 0)}
    chosen = slots.get(settings["bin"])
    return driver(list(papers.values()), list(slots.values()), papers[settings["paper"]].keyword, chosen and chosen.keyword)


def points(tenths):
    return round(int(tenths) * POINTS_PER_TENTH)
