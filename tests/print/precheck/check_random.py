"""Prints batches with random settings and holds what the precheck says of texts off the sheet and over each other
against the finished PDF: glyphs and their places as MuPDF finds them, outlines as fontTools reads them from the fonts
that the file holds. Lengths are millimetres.

check_random.py PROGRAM FIRST COUNT
"""

import io
import json
import logging
import os
import re
import subprocess
import sys
import tempfile
from collections import defaultdict

NOT_FOUND = 77  # exit status of a test that cannot be made here

try:
    import fitz
    from fontTools.pens.boundsPen import BoundsPen
    from fontTools.ttLib import TTFont
except ImportError as missing:
    print(f"{missing.name} is not installed")
    sys.exit(NOT_FOUND)

logging.getLogger("fontTools").setLevel(logging.ERROR)  # the toolkit's fonts do not tell when they were made

MM_PER_POINT = 25.4 / 72

# From where on a text counts, and by how much it may differ from that and still be judged either way. Places are whole
# units of 1/7200 inch in the file. The sheet as it was drawn by chance is not: a printer begins at a whole dot of 600
# to the inch.
OFF_SHEET, OFF_SHEET_BAND = 0.05, 0.03
OVERLAP, OVERLAP_BAND = 0.1, 0.01
PLACE_TOLERANCE = 0.01
SHOWN = 0.1  # least and steps of the lengths in a sentence

FORM = r"\((?:(?:bovenste|middelste|onderste) formulier|formulier onder de brief)\)"
FORMS = {1: "(bovenste formulier)", 2: "(middelste formulier)", 3: "(onderste formulier)",
         4: "(formulier onder de brief)"}
COUNT = r"(?:, op (\d+) formulieren)?\."
OFF = re.compile(rf"(.+? {FORM}) valt ([\d,]+) mm buiten wat de printer op dit vel kan afdrukken{COUNT}")
OFFS = re.compile(rf"(\d+) teksten van het (.+ formulier|formulier .+) vallen buiten wat de printer op dit vel kan afdrukken"
                  rf"{COUNT} Het verst: (.+), ([\d,]+) mm\.")
OVER = re.compile(rf"(.+? {FORM}) en (.+? {FORM}) staan over elkaar, over ([\d,]+) mm bij ([\d,]+) mm{COUNT}")
OVERS = re.compile(rf"(\d+) teksten van (hetzelfde formulier|het .+ formulier en het .+ formulier) staan over elkaar{COUNT}"
                   rf" Het meest: (.+? {FORM}) en (.+? {FORM}), over ([\d,]+) mm bij ([\d,]+) mm\.")
PAIR = re.compile(rf"(.+? {FORM}) en (.+? {FORM})")


class Outlines:
    """The glyphs of the fonts in a PDF."""

    def __init__(self, pdf):
        self.fonts = {}
        for xref in range(1, pdf.xref_length()):
            if pdf.xref_get_key(xref, "Subtype") == ("name", "/Type0"):
                name, _, _, data = pdf.extract_font(xref)
                assert name not in self.fonts, f"two fonts {name}"
                self.fonts[name] = TTFont(io.BytesIO(data))
        self.known = {}

    def ink(self, name, glyph):
        """Left, bottom, right and top for a size of 1, from the glyph's origin; None without ink."""
        if (name, glyph) not in self.known:
            font = self.fonts[name]
            pen = BoundsPen(font.getGlyphSet())
            font.getGlyphSet()[font.getGlyphName(glyph)].draw(pen)
            em = font["head"].unitsPerEm
            self.known[name, glyph] = pen.bounds and tuple(length / em for length in pen.bounds)
        return self.known[name, glyph]


def glyphs_of(page, outlines):
    """The page's glyphs but for the blanks, in the order in which they were drawn: character and ink."""
    for span in page.get_texttrace():
        size, name = span["size"], span["font"]
        for code, glyph, (x, y), _ in span["chars"]:
            if not chr(code).isspace():
                ink = outlines.ink(name, glyph)
                yield chr(code), ink and ((x + ink[0] * size) * MM_PER_POINT, (y - ink[3] * size) * MM_PER_POINT,
                                          (x + ink[2] * size) * MM_PER_POINT, (y - ink[1] * size) * MM_PER_POINT)


class Text:
    """A drawn text with what the paper shows of it."""

    def __init__(self, page, place, field, ink):
        self.page = page
        self.place = place
        self.field = field
        self.ink = ink

    def title(self):
        return f"{self.field} {FORMS[self.place]}"


def visible(text):
    return [c for c in text if not c.isspace() and not (c < " " or "\x7f" <= c < "\xa0")]


def measured_texts(pdf, outlines, batch):
    by_page = defaultdict(list)
    for page, *rest in batch["texts"]:
        by_page[page].append(rest)
    texts = []
    for page, drawn in by_page.items():
        glyphs = list(glyphs_of(pdf[page], outlines))
        at = 0
        for place, field, text in drawn:
            letters = visible(text)
            own = glyphs[at:at + len(letters)]
            assert [c for c, _ in own] == letters, f"{field}: {text!r} is {[c for c, _ in own]} in the file"
            at += len(letters)
            inks = [ink for _, ink in own if ink]
            if inks:
                left, top, right, bottom = zip(*inks)
                texts.append(Text(page, place, field, (min(left), min(top), max(right), max(bottom))))
        assert at == len(glyphs), f"page {page}: {len(glyphs) - at} glyphs more than were drawn"
    return texts


def overshoot(ink, sheet):
    width, height, left, top, right, bottom = sheet
    return max(left - ink[0], top - ink[1], ink[2] - (width - right), ink[3] - (height - bottom))


def overlap(one, other):
    """How far two inks are over each other, to the right and down."""
    return min(one[2], other[2]) - max(one[0], other[0]), min(one[3], other[3]) - max(one[1], other[1])


def one_form(pair):
    return pair[0].place == pair[-1].place


def key_of(*texts):
    """What is told as the same: a text of one place, two of the same form whichever it is, or two of two places."""
    if len(texts) == 2 and one_form(texts):
        return tuple(sorted(text.field for text in texts))
    return tuple(sorted(text.title() for text in texts))


class Measured:
    """The same thing on one form or more."""

    def __init__(self):
        self.found = []  # by how much, and the texts

    def add(self, length, *texts):
        self.found.append((length, texts))

    def forms(self, least):
        """The forms on which it is found."""
        return {(text.page, text.place) for length, texts in self.found if length > least for text in texts}

    def worst(self):
        return max(length for length, _ in self.found)


def measure(texts, sheet):
    off = defaultdict(Measured)
    over = defaultdict(Measured)
    for text in texts:
        length = overshoot(text.ink, sheet)
        if length > OFF_SHEET - OFF_SHEET_BAND:
            off[key_of(text)].add(length, text)
    pages = defaultdict(list)
    for text in texts:
        pages[text.page].append(text)
    for page in pages.values():
        for i, one in enumerate(page):
            for other in page[i + 1:]:
                length = min(overlap(one.ink, other.ink))
                if length > OVERLAP - OVERLAP_BAND:
                    over[key_of(one, other)].add(length, one, other)
    return off, over


def number(text):
    return float(text.replace(",", "."))


class Checker:
    def __init__(self):
        self.errors = []
        self.settings = self.faultless = self.texts = self.compared = 0
        self.off = self.over = self.off_findings = self.over_findings = 0
        self.worst = 0.0

    def differ(self, batch, message):
        self.errors.append(f"settings {batch['number']}: {message}")

    def check_length(self, batch, what, said, measured, tolerance):
        if abs(said - measured) > tolerance:
            self.differ(batch, f"{what}: {said:.3f} is said, {measured:.3f} measured")

    def check_words(self, batch, what, said, measured, tolerance):
        """A length as it stands in a sentence."""
        self.check_length(batch, what, number(said), max(measured, SHOWN), SHOWN / 2 + tolerance)

    def check_count(self, batch, what, told, said, limit, band):
        """The number of forms on which any of what is told is found."""
        least, most = (len(set().union(*(measured.forms(at) for measured in told)))
                       for at in (limit + band, limit - band))
        if not max(least, 1) <= said <= most:
            self.differ(batch, f"{what}: said of {said}, measured of {least} to {most}")

    def check_place(self, batch, what, place, texts):
        """The text that a place on the sketch is of, as measured."""
        text = min(texts, key=lambda one: max(abs(a - b) for a, b in zip(one.ink, place)))
        difference = max(abs(a - b) for a, b in zip(text.ink, place))
        self.worst = max(self.worst, difference)
        if difference > PLACE_TOLERANCE:
            self.differ(batch, f"{what}: no text at {place}, nearest is {text.field} at {text.ink}")
        return text

    def check_texts(self, batch, finding, measured, key, band):
        """Each text that a finding is about, or pair of texts; what was measured of them."""
        told = []
        for name, length in finding["texts"]:
            found = measured.pop(key(name), None)
            if found is None:
                self.differ(batch, f"not measured: {name} of {finding['sentence']}")
                continue
            told.append(found)
            self.check_length(batch, f"{name}, worst", length, found.worst(), band)
        texts = [text for found in told for _, both in found.found for text in both]
        for place in finding["wrong"] if texts else ():
            self.check_place(batch, finding["sentence"], place, texts)
        return told

    def check_off(self, batch, finding, measured):
        sentence = finding["sentence"]
        one, more = OFF.fullmatch(sentence), OFFS.fullmatch(sentence)
        told = self.check_texts(batch, finding, measured, lambda name: (name,), OFF_SHEET_BAND)
        if not told:
            return
        names = [name for name, _ in finding["texts"]]
        if one and len(names) == 1:
            title, length, count = one.groups()
            right = title[0].lower() + title[1:] == names[0]
        elif more and len(names) == int(more[1]):
            _, form, count, field, length = more.groups()
            worst = max(length for _, length in finding["texts"])
            right = (all(name.endswith(f"({form})") for name in names)
                     and [f"{field} ({form})", worst] in finding["texts"])
        else:
            right = False
        if not right:
            self.differ(batch, f"not understood: {sentence}")
            return
        self.off_findings += 1
        self.off += int(count or 1)
        self.check_count(batch, sentence, told, int(count or 1), OFF_SHEET, OFF_SHEET_BAND)
        worst = max(found.worst() for found in told)
        self.check_words(batch, sentence, length, worst, OFF_SHEET_BAND)
        shown = max(overshoot(place, batch["sheet"]) for place in finding["wrong"])
        self.check_length(batch, f"worst of {sentence}", shown, worst, OFF_SHEET_BAND)

    @staticmethod
    def key_of_pair(name):
        one, other = PAIR.fullmatch(name).groups()
        fields, places = zip(*(title.rsplit(" (", 1) for title in (one, other)))
        return tuple(sorted(fields if places[0] == places[1] else (one, other)))

    def check_over(self, batch, finding, measured):
        sentence = finding["sentence"]
        one, more = OVER.fullmatch(sentence), OVERS.fullmatch(sentence)
        told = self.check_texts(batch, finding, measured, self.key_of_pair, OVERLAP_BAND)
        if not told:
            return
        keys = [self.key_of_pair(name) for name, _ in finding["texts"]]
        if one and len(keys) == 1:
            upper, lower, across, down, count = one.groups()
            upper = upper[0].lower() + upper[1:]
            right = True
        elif more and len({name for key in keys for name in key}) == int(more[1]):
            _, whose, count, upper, lower, across, down = more.groups()
            forms = {f"het {text.title().rsplit('(', 1)[1][:-1]}" for found in told for _, both in found.found
                     for text in both}
            right = (all(one_form(both) for found in told for _, both in found.found)
                     if whose == "hetzelfde formulier" else set(whose.split(" en ")) == forms)
        else:
            right = False
        if not right or self.key_of_pair(f"{upper} en {lower}") not in keys:
            self.differ(batch, f"not understood: {sentence}")
            return
        self.over_findings += 1
        self.over += int(count or 1)
        self.check_count(batch, sentence, told, int(count or 1), OVERLAP, OVERLAP_BAND)
        # The two that are named have the most in common; where several do, those that the sentence tells of.
        worst = max(found.worst() for found in told) - OVERLAP_BAND
        pairs = [overlap(*(text.ink for text in both)) for found in told for length, both in found.found
                 if length >= worst and {text.title() for text in both} == {upper, lower}]
        if not pairs:
            self.differ(batch, f"not the worst: {sentence}")
            return
        said = number(across), number(down)
        lengths = min(pairs, key=lambda pair: max(abs(one - other) for one, other in zip(pair, said)))
        for length, told_length in zip(lengths, (across, down)):
            self.check_words(batch, sentence, told_length, length, OVERLAP_BAND)

    def check_pages(self, batch, texts):
        """All texts of the pages of which something is said, one by one."""
        pages = defaultdict(list)
        for text in texts:
            pages[text.page].append(text.ink)
        for said in batch["said"]["pages"]:
            difference = min((max(abs(a - b) for one, other in zip(said, inks) for a, b in zip(one, other))
                              for inks in pages.values() if len(inks) == len(said)), default=None)
            if difference is None or difference > PLACE_TOLERANCE:
                self.differ(batch, f"a page of {len(said)} texts is not in the file, nearest by {difference}")
            else:
                self.worst = max(self.worst, difference)
                self.compared += len(said)

    def check(self, batch, texts):
        self.settings += 1
        self.faultless += not batch["said"]["findings"]
        self.texts += len(texts)
        off, over = measure(texts, batch["sheet"])
        for finding in batch["said"]["findings"]:
            if finding["code"] == "sheet.text-off":
                self.check_off(batch, finding, off)
            else:
                self.check_over(batch, finding, over)
        for what, left, surely in (("off the sheet", off, OFF_SHEET + OFF_SHEET_BAND),
                                   ("over each other", over, OVERLAP + OVERLAP_BAND)):
            for name, found in left.items():
                if found.worst() > surely:
                    self.differ(batch, f"not said: {name} {what} by {found.worst():.3f}")
        self.check_pages(batch, texts)


def main():
    program, first, count = sys.argv[1:4]
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([program, folder, first, count], check=True)
        with open(os.path.join(folder, "random.json"), encoding="utf-8") as file:
            batches = json.load(file)
        pdf = fitz.open(os.path.join(folder, "random.pdf"))
        outlines = Outlines(pdf)
        checker = Checker()
        for batch in batches:
            try:
                checker.check(batch, measured_texts(pdf, outlines, batch))
            except AssertionError as error:
                checker.differ(batch, error)
    for error in checker.errors[:30]:
        print(error)
    found = min(checker.settings, checker.faultless, checker.compared, checker.off_findings, checker.over_findings)
    print(f"{len(checker.errors)} errors, {checker.settings} settings, {checker.faultless} of them without a finding; "
          f"{checker.texts} texts, {checker.compared} of them compared; {checker.off_findings} findings of "
          f"{checker.off} texts off the sheet, {checker.over_findings} of {checker.over} over each other; worst place "
          f"{checker.worst:.4f} mm")
    return 1 if checker.errors or checker.settings != int(count) or found == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
