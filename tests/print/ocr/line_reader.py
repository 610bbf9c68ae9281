"""Reads the OCR line of printed forms as a bank's scanner does: a picture of 300 dots to the inch, and for each field of
the line its place on the form and the characters that it may hold."""

import os
import pathlib
import re
import shutil
import subprocess
import sys

HERE = pathlib.Path(__file__).parent
sys.path.insert(0, str(HERE.with_name("pdf")))
from form_checker import fonts  # noqa: E402
import layout  # noqa: E402

DPI = 300
DOTS_PER_TWIP = DPI / 1440
PITCH = 0.254 * layout.CM  # of OCR-B, twips
ABOVE, BELOW = 0.36 * layout.CM, 0.11 * layout.CM  # the base line: from there the crop reaches
BESIDE = 0.1 * layout.CM  # the fields stand 2.5 mm apart
FRAME = 20  # dots of white around each crop
SHEETS_AT_ONCE = 4
PGM_HEADER = re.compile(rb"P5\s(\d+)\s(\d+)\s255\s")

DIGITS = "0123456789"
LETTERS = "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
FIELDS = {  # the allowed characters, in the order of the line
    "mark": "X",
    "reference": DIGITS + "+",
    "amount": DIGITS + "<",
    "bank": DIGITS + LETTERS + "+",
    "account": DIGITS + LETTERS + "+",
    "kind": DIGITS + ">",
}


def run_quietly(words, **options):
    """A command that leaves the machine to others."""
    return subprocess.run(["nice", "-n", "10", *map(str, words)], check=True, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, env={**os.environ, "OMP_THREAD_LIMIT": "1"}, **options).stdout


def missing_tool():
    """The first command that is not installed, or None."""
    return next((tool for tool in ("pdftoppm", "tesseract") if not shutil.which(tool)), None)


class Picture:
    """Shades of grey, a byte each, row by row."""

    def __init__(self, width, height, pixels):
        self.width = width
        self.height = height
        self.pixels = pixels

    def crop(self, left, top, right, bottom):
        """With a white frame; what lies outside the picture is white as well."""
        white = b"\xff"
        rows = [white * (right - left)] * FRAME
        for y in range(top, bottom):
            inside = b""
            if 0 <= y < self.height:
                inside = self.pixels[y * self.width + max(left, 0):y * self.width + min(right, self.width)]
            rows.append((white * max(-left, 0) + inside).ljust(right - left, white))
        rows += [white * (right - left)] * FRAME
        edge = white * FRAME
        return Picture(right - left + 2 * FRAME, len(rows), b"".join(edge + row + edge for row in rows))

    def save(self, path):
        path.write_bytes(f"P5 {self.width} {self.height} 255\n".encode("ascii") + self.pixels)


def pictures_in(data):
    """The pictures of a stream of binary PGM files."""
    at = 0
    while at < len(data):
        header = PGM_HEADER.match(data, at)
        width, height = int(header[1]), int(header[2])
        at = header.end()
        yield Picture(width, height, data[at:at + width * height])
        at += width * height


def sheets(pdf, count):
    """The first `count` sheets as pictures, a few at a time: each takes some nine megabytes."""
    for first in range(1, count + 1, SHEETS_AT_ONCE):
        last = min(first + SHEETS_AT_ONCE - 1, count)
        yield from pictures_in(run_quietly(["pdftoppm", "-r", DPI, "-gray", "-f", first, "-l", last, pdf]))


def line_places(texts):
    """The texts of the OCR line, from left to right: they end the form and share a base line."""
    line = [text for text in texts if text.font == "ocr" and text.y == texts[-1].y]
    assert [len(text.text) for text in line] == [1, 17, 10, 9, 19, 3], line
    return line


def crop_of(sheet, text, base):
    across = (text.x - BESIDE, text.x + len(text.text) * PITCH + BESIDE)
    down = (base - ABOVE, base + BELOW)
    left, right, top, bottom = (round(twips * DOTS_PER_TWIP) for twips in (*across, *down))
    return sheet.crop(left, top, right, bottom)


def read_crops(files, allowed):
    """What Tesseract reads in each picture as one line of the allowed characters."""
    names = files[0].with_name("names.txt")
    names.write_text("".join(f"{file}\n" for file in files), encoding="utf-8")
    output = run_quietly(["tesseract", names, "-", "--psm", 7, "--dpi", DPI, "-l", "eng",
                          "-c", f"tessedit_char_whitelist={allowed}", "-c", "load_system_dawg=0",
                          "-c", "load_freq_dawg=0"]).decode("utf-8")
    pages = output.split("\f")
    assert len(pages) == len(files), f"{len(pages)} of {len(files)} pictures were read"
    return ["".join(page.split()) for page in pages]


def read_lines(pdf, batch, count, folder):
    """For the first `count` forms the printed fields and the read ones, each a dict by the names of FIELDS. Places come
    from the layout of the form and what was set; of the texts nothing but their length."""
    folder = pathlib.Path(folder)
    font = fonts()
    forms = [(page, line_places(texts)) for page, texts in layout.forms(batch, font)][:count]
    files = {name: [] for name in FIELDS}
    for page, sheet in enumerate(sheets(pdf, forms[-1][0]), start=1):
        for number, line in ((n, line) for n, (at, line) in enumerate(forms) if at == page):
            for name, text in zip(FIELDS, line):
                files[name].append(folder / f"{name}-{number:04}.pgm")
                crop_of(sheet, text, text.y + font["ocr"].top_to_base(text.size)).save(files[name][-1])
    read = {name: read_crops(files[name], allowed) for name, allowed in FIELDS.items()}
    return [({name: text.text for name, text in zip(FIELDS, line)}, {name: read[name][number] for name in FIELDS})
            for number, (_, line) in enumerate(forms)]


def is_sound(fields):
    """Whether what was read agrees with its own check digits."""
    reference, amount, account = (fields[name][:-1] for name in ("reference", "amount", "account"))
    if not (reference.isdecimal() and amount.isdecimal() and account.isalnum() and account.isascii()):
        return False
    moved = account[4:] + account[:4]
    return (reference[0] == layout.check_digit(reference[1:], 15) and amount[-1] == layout.check_digit(amount[:-1], 8)
            and int("".join(str(int(letter, 36)) for letter in moved)) % 97 == 1)


def judge(lines, wanted):
    """Tells of every line that was misread; true if at least `wanted` were read without an error, each of them with
    check digits that agree."""
    right = 0
    for number, (printed, read) in enumerate(lines, start=1):
        sound = is_sound(read)
        wrong = [f"{name} {read[name]!r} instead of {printed[name]!r}" for name in FIELDS if read[name] != printed[name]]
        right += sound and not wrong
        if wrong:
            print(f"form {number}: {'; '.join(wrong)}; the check digits {'agree' if sound else 'tell'}")
        elif not sound:
            print(f"form {number}: the check digits do not agree with {read}")
    print(f"{right} of {len(lines)} lines are right")
    return right >= wanted
