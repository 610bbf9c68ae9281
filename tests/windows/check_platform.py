#!/usr/bin/env python3
"""Runs the checks of the Windows platform under Wine, on a Dutch machine with two printers and on one of another code
page, and holds what comes out of the printer against the font files.

    check_platform.py --build FOLDER

FOLDER is the build folder of the Windows program. Exit status 77 where Wine, CUPS or Ghostscript is missing.
"""
import argparse
import html
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

from failures import Failures
from print_server import PPD_TWO_SIDED, PrintServer
from wine_prefix import FONTS, OCR_FONT, WinePrefix, skip

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "print" / "pdf"))
from fontfile import FontFile  # noqa: E402
from form_checker import reader_ascents  # noqa: E402

TOLERANCE_MM = 0.05
TWIPS_PER_MM = 1440 / 25.4
TWIPS_PER_POINT = 20
TWIPS_PER_INCH = 1440
DUTCH_GROUPS = ("texts", "locale", "registry", "spooler", "fonts", "queues", "printer", "bitmaps", "guard")
POLISH_GROUPS = ("texts", "polish", "registry", "spooler", "printer")


def run_groups(prefix, program, groups, failures):
    for group in groups:
        done = prefix.run(program, group, check=False)
        print(done.stdout, end="")
        lost = done.returncode not in range(0, 200)
        failures.check(not lost, f"{group} ran to its end")
        failures.count += 0 if lost else done.returncode


def font_files():
    plain, bold = FontFile(FONTS / "tahoma.ttf"), FontFile(FONTS / "tahomabd.ttf")
    return {("Tahoma", False): plain, ("Tahoma", True): bold, ("OCR-B", False): FontFile(OCR_FONT)}


def words_of(pdf):
    """Pages of (word, left, top), in twips of the sheet."""
    output = subprocess.run(["pdftotext", "-bbox", str(pdf), "-"], check=True, capture_output=True, text=True).stdout
    pages = []
    for start, left, top, text in re.findall(r'<(page) |<word xMin="(.*?)" yMin="(.*?)".*?>(.*?)</word>', output):
        if start:
            pages.append([])
        else:
            pages[-1].append((html.unescape(text), float(left) * TWIPS_PER_POINT, float(top) * TWIPS_PER_POINT))
    return pages


def sizes_of(pdf):
    """Width and height of each page in points."""
    output = subprocess.run(["pdfinfo", "-l", "-1", str(pdf)], check=True, capture_output=True, text=True).stdout
    return [(round(float(width)), round(float(height)))
            for width, height in re.findall(r"Page +\d+ size: +([\d.]+) x ([\d.]+)", output)]


class Paper:
    """What was printed, beside what the program says that it has printed."""

    def __init__(self, lines, document, folder, failures):
        self.failures = failures
        self.fonts = font_files()
        self.postscript = document
        (folder / "job.ps").write_bytes(document)
        pdf = folder / "job.pdf"
        subprocess.run(["ps2pdf", str(folder / "job.ps"), str(pdf)], check=True, capture_output=True)
        self.ascents = reader_ascents(pdf)
        self.pages = words_of(pdf)
        self.sizes = sizes_of(pdf)
        rows = [line.split("\t") for line in lines]
        margin_x, margin_y, self.dots = next([int(v) for v in row[1:]] for row in rows if row[0] == "margins")
        self.left, self.top = (margin * TWIPS_PER_INCH / self.dots for margin in (margin_x, margin_y))
        self.texts = [row[1:] for row in rows if row[0] == "text"]
        self.lines = [row[1:] for row in rows if row[0] == "line"]
        self.worst = 0.0

    def reader_ascent(self, name, bold):
        mark = "OCR" if name == "OCR-B" else "Bold" if bold else "Tahoma"
        names = [font for font in self.ascents if mark in font and (bold or "Bold" not in font)]
        return self.ascents[names[0]]

    def check_text(self, page, x, y, width, height, name, size, bold, text):
        bold, size = bold == "1", float(size)
        font = self.fonts[name, bold]
        what = f"{name} {size:g}{' bold' if bold else ''} \"{text[:20]}\""
        self.failures.check(abs(float(width) - font.width(text, size)) < 0.01, f"{what} is as wide as the font file says")
        self.failures.check(abs(float(height) - font.height(size)) < 0.01, f"{what} is as high as the font file says")
        drawn_size = round(size * self.dots / 72) * 72 / self.dots  # letters are whole dots high
        base = self.top + float(y) + font.top_to_base(size)
        top = base - self.reader_ascent(name, bold) * drawn_size * TWIPS_PER_POINT
        for match in re.finditer(r"\S+", text):
            left = self.left + float(x) + font.width(text[:match.start()], size)
            off = [max(abs(word[1] - left), abs(word[2] - top)) / TWIPS_PER_MM
                   for word in self.pages[int(page) - 1] if word[0] == match.group()]
            nearest = min(off, default=float("inf"))
            self.worst = max(self.worst, nearest)
            self.failures.check(nearest <= TOLERANCE_MM, f"{what}: \"{match.group()[:20]}\" is {nearest:.3f} mm off")

    def check_line(self, x1, y1, x2, y2):
        def dots(x, y):
            return tuple((float(v) * self.dots / TWIPS_PER_INCH) for v in (x, y))

        drawn = [[float(v) for v in found] for found in
                 re.findall(rb"(\d+) (\d+) moveto\s+(\d+) (\d+) lineto", self.postscript)]
        off = [max(abs(a - b) for a, b in zip(line, (*dots(x1, y1), *dots(x2, y2)))) for line in drawn]
        self.failures.check(min(off, default=9) <= 1, "the line lies at its place")

    def check(self, sizes):
        self.failures.check(self.sizes == sizes, f"the pages have the chosen paper: {self.sizes}")
        for text in self.texts:
            self.check_text(*text)
        for line in self.lines:
            self.check_line(*line[1:])
        print(f"The worst text is {self.worst:.3f} mm off.")


def check_paper(output, job, sizes, failures):
    with tempfile.TemporaryDirectory() as folder:
        Paper(output.splitlines(), job.document, pathlib.Path(folder), failures).check(sizes)


def check_samples(prefix, server, program, failures):
    done = prefix.run(program, "samples", check=False)
    failures.check(done.returncode == 0, "the samples are printed")
    job = server.next_job()
    failures.check(job.title == "Proefblad voor Zoë", f"the job has the document's title: {job.title}")
    features = re.findall(rb"%%BeginFeature: \*(\w+) (\w+)", job.document)
    failures.check((b"PageSize", b"Legal") in features, "the chosen paper is in the job")
    failures.check((b"InputSlot", b"Manual") in features, "and the chosen bin")
    failures.check([setting for feature, setting in features if feature == b"Duplex"] == [b"None"],
                   f"and one side of the sheet, whatever the printer does by default: {features}")
    failures.check(not server.has_job(), "documents that were given up have not been printed")
    check_paper(done.stdout, job, [(612, 1008)] * 2, failures)

    done = prefix.run(program, "side", check=False)
    failures.check(done.returncode == 0, "a sheet on its side is printed")
    check_paper(done.stdout, server.next_job(), [(595, 842)], failures)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=pathlib.Path, required=True)
    build = parser.parse_args().build
    if not shutil.which("ps2pdf"):
        skip("Ghostscript is not installed")
    program = build / "bin" / "win_platform_check.exe"
    failures = Failures()
    with PrintServer(("Kantoor", "Büro"), ppd=PPD_TWO_SIDED) as server:
        for locale, groups in (("nl_NL", DUTCH_GROUPS), ("pl_PL", POLISH_GROUPS)):
            with WinePrefix.for_test(build, locale) as prefix:
                prefix.settings.update(server.settings)
                run_groups(prefix, program, groups, failures)
                if locale == "nl_NL":
                    check_samples(prefix, server, program, failures)
    failures.exit()


if __name__ == "__main__":
    main()
