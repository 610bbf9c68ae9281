"""The jobs that are sent through each driver of drivers.json, and what must come out of them."""

import functools
import json
import pathlib
import re

import offer_check
import output
import pdf_page
import placement
import ppd_file
import ppd_sources

TABLE = pathlib.Path(__file__).parent / "drivers.json"
TOLERANCE_MM = 0.3
SIZE_MM = 0.5
FORM = "Custom.210x304.8mm"
FOLIO = re.compile(r"(?i)^(folio|foolscap|fanfoldgermanlegal|flsa|oficio|legal13|8\.5x13)$")
POSITION = re.compile(r"/MediaPosition (\d+)")
FEED_CLASS = re.compile(r"/MediaClass ?\(([^)]*)\)")
INSTALLED = re.compile(r"(?i)option|installed")  # what is built into a printer
OFF = ("None", "False", "Off")
TWO_SIDED_FEATURES = re.compile(r"(?i)^(.*duplex|.*sides)$")


class Driver:
    """A row of the table with its description, None if that is not installed."""

    def __init__(self, row, ppd):
        self.name, self.slot, self.reads = row["name"], row["slot"], row["reads"]
        self.filter = row.get("driver")
        # A filter with its path is found like any other, and its raster can be saved.
        self.ppd = ppd and ppd.replace(b"/usr/lib/cups/filter/", b"")
        self.description = ppd_file.read(self.ppd) if self.ppd else None

    def papers(self):
        """Keywords of the form's sheet, Legal and Folio, as far as the driver has them, with their size in mm."""
        sizes = offer_check.wanted_papers(self.description)
        found = {}
        own = [key for key, (size, _) in sizes.items()
               if all(abs(a - b) <= offer_check.SAME_SHEET for a, b in zip(size, offer_check.FORM_SHEET))]
        custom = self.description.custom
        if own:
            found[own[0]] = sizes[own[0]][0]
        elif custom and custom.takes(*(side / offer_check.POINT for side in offer_check.FORM_SHEET)):
            found[FORM] = offer_check.FORM_SHEET
        for key in ["Legal", *[key for key in sizes if FOLIO.match(key)][:1]]:
            if key in sizes:
                found[key] = sizes[key][0]
        return found

    def area(self, paper):
        """What the printer reaches of a paper: left, top, right, bottom in points from the top left."""
        if paper == FORM:
            margins = self.description.custom.margins or (0, 0, 0, 0)
            width, height = (side / offer_check.POINT for side in offer_check.FORM_SHEET)
            return margins[0], margins[3], width - margins[2], height - margins[1]
        width, height = self.description.sizes[paper]
        left, bottom, right, top = self.description.areas.get(paper, (0, 0, width, height))
        return left, height - top, right, height - bottom

    def code(self, option, choice):
        match = re.search(rb"^\*" + option.encode() + rb"[ \t]+" + re.escape(choice.encode("latin-1"))
                          + rb'[ \t]*(?:/[^:\n]*)?:[ \t]*"([^"]*)"', self.ppd, re.MULTILINE)
        return match[1].decode("latin-1") if match else ""


def drivers(only=()):
    """Those of the table, or of these names."""
    rows = [row for row in json.loads(TABLE.read_text("utf-8")) if not only or row["name"] in only]
    ppds = ppd_sources.find([row["ppd"] for row in rows])
    return [Driver(row, ppds.get(row["ppd"])) for row in rows]


def _settings_differ(one, other):
    for key in one.keys() | other.keys():
        if one.get(key) != other.get(key):
            left, right = one.get(key), other.get(key)
            if isinstance(left, dict) and isinstance(right, dict):
                pairs = {name: (left.get(name), right.get(name)) for name in left.keys() | right.keys()}
                unlike = {name: pair for name, pair in pairs.items()
                          if pair[0] != pair[1] and pair[0] not in OFF and not INSTALLED.search(name)}
                if unlike:
                    yield key, unlike
            elif isinstance(left, list) and isinstance(right, list):
                yield key, [pair for pair in zip(left, right) if pair[0] != pair[1]][:3] or (len(left), len(right))
            else:
                yield key, (left, right)


def _tray(driver, found):
    """Is the tray named in the output as the description names it?"""
    if driver.reads == "postscript" and "features" in found.settings:
        if found.settings["features"].get("InputSlot") != driver.slot:
            yield "tray", f"{found.settings['features'].get('InputSlot')}, not {driver.slot}"
    elif driver.reads == "raster":
        code = driver.code(driver.description.bin_option, driver.slot)
        for page in found.settings["pages"]:
            position, feed = POSITION.search(code), FEED_CLASS.search(code)
            if position and page["media_position"] != int(position[1]):
                yield "tray", f"position {page['media_position']}, not {position[1]}"
            if feed and page["media_class"] != feed[1]:
                yield "tray", f"class {page['media_class']!r}, not {feed[1]!r}"


def _sides(driver, found):
    if driver.reads == "raster":
        if any(page["duplex"] or page["mirror"] or page["copies"] > 1 for page in found.settings["pages"]):
            yield "sides", "two-sided, mirrored or in copies"
    elif driver.reads == "postscript":
        for name, choice in found.settings.get("features", {}).items():
            if TWO_SIDED_FEATURES.match(name) and "tumble" in choice.lower():
                yield "sides", f"{name}={choice}"
        asked = [value for name, value in found.settings.get("requests", []) if name == "Duplex"]
        if asked and asked[-1] != "false":
            yield "sides", f"Duplex {asked[-1]}"
    elif driver.reads == "pcl5" and found.settings["commands"]["&lS"]:
        yield "sides", f"&l{found.settings['commands']['&lS']:.0f}S"
    elif driver.reads == "pclxl":
        if any("DuplexPageMode" in page for page in found.settings["pages"]):
            yield "sides", "DuplexPageMode"
    for line in found.settings.get("jcl", []):
        if re.search(r"(?i)duplex *= *on", line):
            yield "sides", line


@functools.lru_cache(maxsize=4)
def _document(file):
    return pdf_page.words(file), pdf_page.pages(file)


class Verdict:
    """What came out of a job with a document."""

    def __init__(self, driver, paper, size, job, document):
        self._driver, self._paper, self._size = driver, paper, size
        self._found = output.READERS[driver.reads](job)
        self._words, self._pages = _document(document)
        self.worst = None

    def faults(self):
        """Pairs of the kind of a fault and what it is."""
        found = self._found
        if found.pages is not None and found.pages != len(self._words):
            yield "pages", f"{found.pages}, not {len(self._words)}"
        for each in found.sizes:
            own = tuple(side * offer_check.POINT for side in each)
            if any(abs(a - b) > SIZE_MM for a, b in zip(own, self._size)):
                yield "paper", f"{own[0]:.1f} x {own[1]:.1f}, not {self._size[0]:.1f} x {self._size[1]:.1f}"
        yield from _tray(self._driver, found)
        yield from _sides(self._driver, found)
        if found.sheet is not None:
            for number in range(min(found.pages, len(self._words))):
                yield from self._places(number)

    def _places(self, number):
        ink = self._pages[number][1]
        sheet = self._found.sheet(number, ink.shape)
        off = placement.displacements(ink, sheet, self._words[number][1], self._driver.area(self._paper))
        if not off:
            yield "texts", f"page {number + 1}: none to look for"
        gone = [text for text, x, _ in off if x is None]
        if gone:
            yield "texts", f"page {number + 1}: {len(gone)} of {len(off)} are not there: {gone[:3]}"
        far = max(((abs(x), abs(y), text) for text, x, y in off if x is not None), key=lambda each: max(each[:2]),
                  default=(0, 0, ""))
        self.worst = max(self.worst or 0, *far[:2])
        if max(far[:2]) > TOLERANCE_MM:
            yield "texts", f"page {number + 1}: {far[2]!r} is off by {far[0]:.2f}, {far[1]:.2f} mm"

    def unlike(self, control):
        """Where the printer is told other things than by `control`: the same document, sent with the same paper and
        tray to a queue without any defaults."""
        other = output.READERS[self._driver.reads](control).settings
        for key, difference in _settings_differ(self._found.settings, other):
            yield "unlike the plain job", f"{key}: {str(difference)[:400]}"
