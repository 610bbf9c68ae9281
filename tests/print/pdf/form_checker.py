"""Holds every text of every printed form against the place that layout.py gives it."""

import html
import os
import re
import subprocess
from collections import defaultdict

from fontfile import FontFile
import layout

TWIPS_PER_MM = 1440 / 25.4
TWIPS_PER_POINT = 20
FONT_FOLDERS = ("/usr/share/wine/fonts", "/usr/local/share/wine/fonts", "/opt/wine-stable/share/wine/fonts")


class FontMissing(Exception):
    """Its text is the family."""


def font_file(family, style, name):
    for folder in FONT_FOLDERS:
        path = os.path.join(folder, name)
        if name and os.path.exists(path):
            return path
    answer = subprocess.run(["fc-match", "-f", "%{family}\n%{file}", f"{family}:style={style}"], check=True,
                            capture_output=True, text=True).stdout.split("\n")
    if family not in answer[0]:
        raise FontMissing(family)
    return answer[1]


def fonts():
    plain = FontFile(font_file("Tahoma", "Regular", "tahoma.ttf"))
    bold = FontFile(font_file("Tahoma", "Bold", "tahomabd.ttf"))
    return {"plain": plain, "bold": bold, "ocr": FontFile(font_file("OCR B", "Regular", "")), "font before": plain}


def reader_ascents(pdf):
    """How far above the base line pdftotext begins a word, for a size of 1, by the font's name in the PDF."""
    with open(pdf, "rb") as file:
        data = file.read()
    found = re.findall(rb"/FontName ?/\w+\+([^/\s]+).*?/Ascent ([-\d.]+)", data, re.S)
    return {name.decode("ascii"): min(float(ascent) / 1000, 1.05) for name, ascent in found}


def words(pdf):
    """Number of pages, and the words by page: text, left, right and top in twips."""
    output = subprocess.run(["pdftotext", "-bbox", pdf, "-"], check=True, capture_output=True, text=True).stdout
    pattern = re.compile(r'<(page) |<word xMin="(.*?)" yMin="(.*?)" xMax="(.*?)" yMax=".*?">(.*?)</word>')
    pages = defaultdict(list)
    page = 0
    for start, left, top, right, text in pattern.findall(output):
        if start:
            page += 1
        else:
            pages[page].append([html.unescape(text), *(float(v) * TWIPS_PER_POINT for v in (left, right, top))])
    return page, pages


class FormChecker:
    """`batch` tells what was set and drawn, as layout.py reads it. A printer draws letters that are whole dots high:
    `dots` is its number of them to the inch, or None where letters have any size."""

    def __init__(self, batch, pdf, tolerance_mm, dots=None):
        self.fonts = fonts()
        self.batch = batch
        self.tolerance_mm = tolerance_mm
        self.dots = dots
        self.ascents = reader_ascents(pdf)
        self.page_count, self.pages = words(pdf)
        self.errors = []
        self.worst = 0.0

    def ascent(self, font):
        mark = {"ocr": "OCR", "bold": "Bold"}.get(font)
        names = [n for n in self.ascents if (mark in n if mark else "OCR" not in n and "Bold" not in n)]
        return self.ascents[names[0]] if names else 0

    def drawn_size(self, size):
        return round(size * self.dots / 72) * 72 / self.dots if self.dots else size

    def take(self, page, text, left, top):
        """Takes the word with this text that is nearest to a place off the page."""
        def distance(word):
            return max(abs(word[1] - left), abs(word[3] - top))

        candidates = [word for word in self.pages[page] if word[0] == text]
        if not candidates:
            self.errors.append(f"page {page}: {text!r} is missing")
            return
        word = min(candidates, key=distance)
        off = distance(word) / TWIPS_PER_MM
        if off > self.tolerance_mm:
            self.errors.append(f"page {page}: {text!r} is {off:.3f} mm off, nearest at {word[1:]}, "
                               f"expected {(left, top)}")
            return
        self.worst = max(self.worst, off)
        self.pages[page].remove(word)

    def check_text(self, page, text):
        font = self.fonts[text.font]
        top = (text.y + font.top_to_base(text.size)
               - self.ascent(text.font) * self.drawn_size(text.size) * TWIPS_PER_POINT)
        across = text.x - (font.width(text.text, text.size) if text.right else 0)
        for match in re.finditer(r"\S+", text.text):
            self.take(page, match.group(), across + font.width(text.text[:match.start()], text.size), top)

    def run(self):
        """Fills `errors`: texts that are missing, that are somewhere else, or that nothing asks for."""
        last = count = drawn = 0
        for page, texts in layout.forms(self.batch, self.fonts):
            last = page
            count += 1
            drawn += len(texts)
            for text in texts:
                self.check_text(page, text)
        if count != len(self.batch["documents"]):
            self.errors.append(f"{count} forms drawn")
        if drawn > 0 and self.page_count != last:
            self.errors.append(f"{self.page_count} pages instead of {last}")
        for page, left in self.pages.items():
            self.errors += [f"page {page}: {word} was not expected" for word in left]


def check_known_values():
    assert layout.check_digit("100000012010326", 15) == "7"
    assert layout.check_digit("00012345", 8) == "7"
    assert layout.check_digit("00000000", 8) == "0"
