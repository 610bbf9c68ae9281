#!/usr/bin/env python3
"""Draws a form with its seven calibrated blocks, for the handbook: form_blocks.py --write | --check

The places are those of the layout tables in src/ for the narrow stub. --check ends with 1 if docs/images/formulier.svg is
another picture.
"""
import argparse
import pathlib
import re
import sys
from xml.sax.saxutils import escape

ROOT = pathlib.Path(__file__).resolve().parents[2]
PICTURE = ROOT / "docs" / "images" / "formulier.svg"

SCALE = 4.4  # units of the picture in a millimetre
FORM = (210, 101.6)  # mm: a third of 12 inch
STUB = 37  # mm: where a text of the stub is cut off
MARGIN, LEGEND = 6, 26  # mm
POINT = 25.4 / 72  # mm
LINE = 1.207  # height of a line of Tahoma, in its size
OCR_PITCH = 2.54  # mm from letter to letter at 10 points
LETTER, CAPITAL = 0.58, 0.66  # mean widths of letters in a font that may stand in for Tahoma, in its size

NESTED = re.compile(r"\.\w+ = \{[^{}]*\},?")  # tells nothing of places
ROW = re.compile(r"\{((?:\s*\.\w+ = [^{}]*?,?)+)\}")
FIELD = re.compile(r"\.(\w+) = ([^,{}]+)")


class Block:
    def __init__(self, title, colour):
        self.title, self.colour = title, colour
        self.texts = []  # left, top, width, height in mm; the text; is it OCR-B; is it bold

    def bounds(self, room):
        lefts, tops, rights, bottoms = zip(*((x, y, x + w, y + h) for x, y, w, h, *_ in self.texts))
        left, top = min(lefts) - room, min(tops) - room
        return left, top, max(rights) + room - left, max(bottoms) + room - top


BLOCKS = {
    "ocr": Block("OCR regel", "#b3261e"),
    "form": Block("Integrale acceptgiro (behalve OCR-regel)", "#4a5568"),
    "payer": Block("Naam/adres/woonplaatsgegevens", "#1f6fb2"),
    "stub reference": Block("Betalingskenmerk (linkersouche)", "#2f7d32"),
    "reference": Block("Betalingskenmerk op acceptgiro", "#0b7a75"),
    "stub creditor": Block("Incassant/begunstigde op linker souche", "#7b3fa0"),
    "creditor": Block("Incassant/begunstigde op acceptgiro", "#b35900"),
}

# What a form may hold: a text, its size in points, and whether it is OCR-B or bold; a line's feed is in points.
REFERENCE = "6100 0000 0101 1126"
FORM_TEXTS = {
    "Euro": ("128", 9, False), "Cent": ("45", 9, False), "Omschrijvingen": ("DRUKKEURING", 9, False),
    "Rekening": ("NL44INGB0000412739", 10, True),
}
PAYER_LINES = (("Dhr. P. ter Zegelma", 10), ("Testsingel 102", 10), ("9941 ZT  TESTERWOLD", 10))
STUB_CREDITOR = (("NL91ABNA0417164300", 8, False, 1.2 * 6), ("Stichting De Lijster", 6, True, 6), ("Voorbeeldstad", 6, True, 6))
CREDITOR = (("NL91ABNA0417164300", 9, False, 1.3 * 7), ("Stichting De Lijster", 7, True, 7),
            ("Dorpsstraat 12, 1234 AB  Voorbeeldstad", 7, True, 7))
OCR_FIELDS = {"Mark": "X", "Reference": "6100000001011126+", "Amount": "000128450<", "Bic": "ABNANL2A+",
              "Account": "NL91ABNA0417164300+", "Trailer": "17>"}


def rows(file, table):
    """The rows of a layout table that say where they stand or follow one that does."""
    source = (ROOT / "src" / file).read_text(encoding="utf-8")
    body = re.search(rf"\b{table} = \{{\{{(.*?)\}}\}};", source, re.DOTALL)[1]
    return [{name: value.strip().rpartition("::")[2] for name, value in FIELD.findall(row)}
            for row in ROW.findall(NESTED.sub("", body))]


def place(row):
    """In millimetres; nothing for what the row leaves as it is."""
    return [float(row[name]) * 10 if name in row else None for name in ("XCm", "YCm")]


def add(block, x, y, text, points, is_ocr=False, is_bold=False, ends_at_x=False):
    letter = CAPITAL if text.isupper() else LETTER
    width = len(text) * (OCR_PITCH * points / 10 if is_ocr else letter * points * POINT * (1.12 if is_bold else 1))
    BLOCKS[block].texts.append((x - width if ends_at_x else x, y, width, points * POINT * LINE, text, is_ocr, is_bold))


def add_lines(block, x, y, lines):
    for text, points, is_bold, feed in lines:
        add(block, x, y, text, points, is_bold=is_bold)
        y += feed * POINT * LINE * 1.1


def first(rows_of_table, **wanted):
    return next(row for row in rows_of_table if all(row.get(name) == value for name, value in wanted.items()))


def fill():
    height = None
    on_accept_part = False
    for row in rows("composition/PrintFormulier.cpp", "NarrowRows"):
        x, y = place(row)
        height = y if y is not None else height
        on_accept_part = on_accept_part or row.get("Font") == "Ocr"
        if row.get("Shift") == "Payer":
            if row["Text"] == "Regel0":
                for number, (text, points) in enumerate(PAYER_LINES):
                    add("payer", x, height + number * points * POINT * LINE, text, points)
        elif row.get("When") != "NoPaymentTraffic" and row.get("Way") != "LineFeed":
            text, points, is_ocr = FORM_TEXTS[row["Text"]]
            is_ocr = is_ocr or on_accept_part
            add("form", x, height, text, 10 if is_ocr else points, is_ocr, ends_at_x=row.get("Way") == "RightEdge")

    references = rows("composition/PrintOCRRegel.cpp", "ReferenceRows")
    add("reference", *place(first(references, Text="WholeReference")), REFERENCE, 10, True)
    add("stub reference", *place(first(references, Text="FirstHalf")), REFERENCE[:9], 9, True)
    add("stub reference", *place(first(references, Text="SecondHalf")), REFERENCE[10:], 9, True)

    creditor = rows("composition/PrintIncassant.cpp", "Rows")
    add_lines("stub creditor", *place(first(creditor, Text="Rekening", Shift="Stub")), STUB_CREDITOR)
    add_lines("creditor", *place(first(creditor, Text="Rekening", Shift="Accept")), CREDITOR)

    source = (ROOT / "src/composition/PrintOCRRegel.cpp").read_text(encoding="utf-8")
    y = float(re.search(r"OcrLineYCm = ([\d.]+);", source)[1]) * 10
    fields = (ROOT / "src/payment/OcrLine.h").read_text(encoding="utf-8")
    for x, name in re.findall(r"\{([\d.]+), &OcrLine::(\w+)", fields):
        add("ocr", float(x) * 10, y, OCR_FIELDS[name], 10, True)


def units(millimetres):
    return f"{millimetres * SCALE:.1f}".removesuffix(".0")


def text_element(x, y, width, height, text, is_ocr, is_bold):
    size = height / LINE
    family = "OCR B, OCR-B, monospace" if is_ocr else "Tahoma, Verdana, DejaVu Sans, sans-serif"
    bold = ' font-weight="bold"' if is_bold else ""
    return (f'<text x="{units(x)}" y="{units(y + size)}" font-family="{family}" font-size="{units(size)}"{bold} '
            f'textLength="{units(width)}" lengthAdjust="spacingAndGlyphs" xml:space="preserve">{escape(text)}</text>')


def badge(x, y, number, colour):
    return (f'<circle cx="{units(x)}" cy="{units(y)}" r="10" fill="{colour}"/>'
            f'<text x="{units(x)}" y="{units(y + 1.1)}" font-family="sans-serif" font-size="14" font-weight="bold" fill="#fff" '
            f'text-anchor="middle">{number}</text>')


def svg():
    fill()
    width, height = FORM[0] + 2 * MARGIN, FORM[1] + MARGIN + LEGEND + 6
    lines = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="{units(-MARGIN)} {units(-MARGIN)} {units(width)} {units(height)}" '
             f'width="{units(width)}" height="{units(height)}">',
             "<title>Een acceptgiro met smalle souche, en wat elke calibratie daarop verschuift</title>",
             f'<rect x="{units(-MARGIN)}" y="{units(-MARGIN)}" width="{units(width)}" height="{units(height)}" fill="#fff"/>',
             f'<rect width="{units(FORM[0])}" height="{units(FORM[1])}" fill="#fdf8ef" stroke="#999"/>',
             f'<line x1="{units(STUB)}" y1="0" x2="{units(STUB)}" y2="{units(FORM[1])}" stroke="#999" stroke-dasharray="3 4"/>',
             f'<text x="{units(2)}" y="{units(3.8)}" font-family="sans-serif" font-size="13" fill="#777">linkersouche</text>',
             f'<text x="{units(STUB + 2)}" y="{units(3.8)}" font-family="sans-serif" font-size="13" fill="#777">acceptgiro</text>']
    for number, (name, block) in enumerate(BLOCKS.items(), 1):
        if name == "form":  # all but the line moves with it
            boxes = [other.bounds(2.2) for key, other in BLOCKS.items() if key != "ocr"]
            left, top = max(0.6, min(box[0] for box in boxes)), min(box[1] for box in boxes)
            right, bottom = max(box[0] + box[2] for box in boxes), max(box[1] + box[3] for box in boxes)
            lines.append(f'<rect x="{units(left)}" y="{units(top)}" width="{units(right - left)}" height="{units(bottom - top)}" '
                         f'fill="none" stroke="{block.colour}" stroke-width="2" stroke-dasharray="8 5"/>')
            lines.append(badge(right, top, number, block.colour))
        else:
            left, top, across, down = block.bounds(1)
            lines.append(f'<rect x="{units(left)}" y="{units(top)}" width="{units(across)}" height="{units(down)}" rx="4" '
                         f'fill="{block.colour}" fill-opacity="0.12" stroke="{block.colour}" stroke-width="1.5"/>')
            lines.append(badge(left + across + 1, top - 0.6, number, block.colour))
        lines += [text_element(*text) for text in block.texts]
    for number, block in enumerate(BLOCKS.values(), 1):
        x, y = 4 + (number - 1) // 4 * (FORM[0] / 2), FORM[1] + 7 + (number - 1) % 4 * 6
        lines.append(badge(x, y, number, block.colour))
        lines.append(f'<text x="{units(x + 4)}" y="{units(y + 1.2)}" font-family="sans-serif" font-size="15">{escape(block.title)}</text>')
    return "\n".join([*lines, "</svg>", ""])


def main():
    parser = argparse.ArgumentParser(description="Draws a form with its seven calibrated blocks.")
    what = parser.add_mutually_exclusive_group(required=True)
    what.add_argument("--write", action="store_true")
    what.add_argument("--check", action="store_true")
    picture = svg()
    if parser.parse_args().write:
        PICTURE.write_text(picture, encoding="utf-8")
    elif PICTURE.read_text(encoding="utf-8") != picture:
        print(f"{PICTURE.relative_to(ROOT)} shows another form than src/: tools/pictures/form_blocks.py --write draws it anew.")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
