"""Prints a batch of test forms to PDF with the given program and checks every text of every form: what it says and
where it stands, by pdftotext and by measures that are written down here once more.

check_forms.py PROGRAM TYPE CONTRACT TRAFFIC
"""

import html
import json
import os
import re
import subprocess
import sys
import tempfile
from collections import defaultdict

sys.path.insert(0, os.path.dirname(__file__))
from fontfile import FontFile  # noqa: E402
import layout  # noqa: E402

FORMS = 250
TOLERANCE_MM = 0.05
TWIPS_PER_MM = 1440 / 25.4
TWIPS_PER_POINT = 20
FONT_FOLDERS = ("/usr/share/wine/fonts", "/usr/local/share/wine/fonts", "/opt/wine-stable/share/wine/fonts")
NOT_FOUND = 77  # exit status of a test that cannot be made here


def font_file(family, style, name):
    for folder in FONT_FOLDERS:
        path = os.path.join(folder, name)
        if name and os.path.exists(path):
            return path
    answer = subprocess.run(["fc-match", "-f", "%{family}\n%{file}", f"{family}:style={style}"], check=True,
                            capture_output=True, text=True).stdout.split("\n")
    if family not in answer[0]:
        print(f"{family} is not installed")
        sys.exit(NOT_FOUND)
    return answer[1]


def fonts():
    plain = FontFile(font_file("Tahoma", "Regular", "tahoma.ttf"))
    bold = FontFile(font_file("Tahoma", "Bold", "tahomabd.ttf"))
    return {"plain": plain, "bold": bold, "ocr": FontFile(font_file("OCR B", "Regular", ""))}


def reader_ascents(pdf):
    """How far above the base line pdftotext begins a word, for a size of 1, by the font's name in the PDF."""
    with open(pdf, "rb") as file:
        data = file.read()
    found = re.findall(rb"/FontName /\w+\+(\S+).*?/Ascent ([-\d.]+)", data, re.S)
    return {name.decode("ascii"): min(float(ascent) / 1000, 1.05) for name, ascent in found}


def words(pdf):
    """Words by page: text, left, right and top in twips."""
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


class Checker:
    def __init__(self, batch, pdf):
        self.fonts = fonts()
        self.fonts["font before"] = self.fonts["plain"]
        self.batch = batch
        self.ascents = reader_ascents(pdf)
        self.page_count, self.pages = words(pdf)
        self.errors = []
        self.worst = 0.0

    def ascent(self, font):
        mark = {"ocr": "OCR", "bold": "Bold"}.get(font)
        names = [n for n in self.ascents if (mark in n if mark else "OCR" not in n and "Bold" not in n)]
        return self.ascents[names[0]] if names else 0

    def take(self, page, text, near):
        """Takes the word with this text that is nearest to a place (left, right or None, top) off the page."""
        def distance(word):
            across = abs(word[1] - near[0]) if near[0] is not None else abs(word[2] - near[1])
            return max(across, abs(word[3] - near[2]))

        candidates = [word for word in self.pages[page] if word[0] == text]
        if not candidates:
            self.errors.append(f"page {page}: {text!r} is missing")
            return None
        word = min(candidates, key=distance)
        off = distance(word) / TWIPS_PER_MM
        if off > TOLERANCE_MM:
            self.errors.append(f"page {page}: {text!r} is {off:.3f} mm off, nearest at {word[1:]}, expected {near}")
            return None
        self.worst = max(self.worst, off)
        self.pages[page].remove(word)
        return word

    def check_text(self, page, text):
        font = self.fonts[text.font]
        top = text.y + font.top_to_base(text.size) - self.ascent(text.font) * text.size * TWIPS_PER_POINT
        across = text.x - (font.width(text.text, text.size) if text.right else 0)
        for match in re.finditer(r"\S+", text.text):
            left = across + font.width(text.text[:match.start()], text.size)
            right = left + font.width(match.group(), text.size)
            self.take(page, match.group(), (left, None, top))
            if text.right and match.end() == len(text.text) and abs(right - text.x) > 1:
                self.errors.append(f"page {page}: {text.text!r} ends {right}")

    def run(self):
        last = 0
        count = 0
        for page, texts in layout.forms(self.batch, self.fonts):
            last = page
            count += 1
            for text in texts:
                self.check_text(page, text)
        if count != FORMS:
            self.errors.append(f"{count} forms drawn")
        expected_pages = last if any(self.batch_has_text()) else None
        if expected_pages is not None and self.page_count != expected_pages:
            self.errors.append(f"{self.page_count} pages instead of {expected_pages}")
        for page, left in self.pages.items():
            self.errors += [f"page {page}: {word} was not expected" for word in left]

    def batch_has_text(self):
        return (bool(texts) for _, texts in layout.forms(self.batch, self.fonts))


def check_known_values():
    assert layout.check_digit("100000012010326", 15) == "7"
    assert layout.check_digit("00012345", 8) == "7"
    assert layout.check_digit("00000000", 8) == "0"


def main():
    program, form_type, contract, traffic = sys.argv[1:5]
    check_known_values()
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([program, folder, form_type, contract, traffic, str(FORMS)], check=True)
        with open(os.path.join(folder, "forms.json"), encoding="utf-8") as file:
            batch = json.load(file)
        pdf = os.path.join(folder, "forms.pdf")
        if not os.path.exists(pdf):
            print("no PDF was written")
            return 1
        checker = Checker(batch, pdf)
        checker.run()
        embedded = subprocess.run(["pdffonts", pdf], check=True, capture_output=True, text=True).stdout.split("\n")[2:]
        checker.errors += [f"not embedded: {line}" for line in embedded if line and line.split()[-5] != "yes"]
    for error in checker.errors[:20]:
        print(error)
    print(f"{len(checker.errors)} errors, {FORMS} forms, {checker.page_count} pages, worst {checker.worst:.4f} mm")
    return 1 if checker.errors else 0


if __name__ == "__main__":
    sys.exit(main())
