#!/usr/bin/python3
"""Draws the digits of OCR-B beside ordinary ones and those of OCR-A, for the handbook (docs/images/ocr-b.svg).

The outlines are those of the fonts, so that the picture shows them on a machine that has none of these. It wants the packages
fonts-ocr-b, fonts-ocr-a, fonts-wine and python3-fonttools.
"""
import pathlib

from fontTools.pens.boundsPen import BoundsPen
from fontTools.pens.svgPathPen import SVGPathPen
from fontTools.pens.transformPen import TransformPen
from fontTools.ttLib import TTFont

PICTURE = pathlib.Path(__file__).resolve().parents[2] / "docs" / "images" / "ocr-b.svg"
TEXT = "1234567890 +<>"
FONTS = (
    ("Zo is het goed: OCR-B", "#1b5e20", "/usr/share/fonts/opentype/ocr-b/OCRB.otf"),
    ("Fout: gewone cijfers", "#b3261e", "/usr/share/wine/fonts/tahoma.ttf"),
    ("Fout: OCR-A", "#b3261e", "/usr/share/fonts/truetype/ocr-a/OCRA.ttf"),
)
# In units of the picture.
WIDTH, ROW, LEFT = 700, 100, 20
DIGIT = 44  # height of a digit
CAPTION, BASE = 26, 84  # of a row, from its top


def outline(glyphs, name, place):
    """The path of a letter, to a tenth of a unit."""
    pen = SVGPathPen(glyphs, ntos=lambda number: f"{number:.1f}".removesuffix(".0"))
    glyphs[name].draw(TransformPen(pen, place))
    return pen.getCommands()


def line_of(file, base):
    font = TTFont(file)
    glyphs, letters = font.getGlyphSet(), font.getBestCmap()
    bounds = BoundsPen(glyphs)
    glyphs[letters[ord("1")]].draw(bounds)
    scale = DIGIT / (bounds.bounds[3] - bounds.bounds[1])
    x, paths = LEFT, []
    for letter in TEXT:
        name = letters[ord(letter)]
        paths.append(outline(glyphs, name, (scale, 0, 0, -scale, x, base)))
        x += font["hmtx"][name][0] * scale
    return "".join(paths)


def svg():
    height = ROW * len(FONTS) + 10
    lines = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {height}" width="{WIDTH}" height="{height}">',
             "<title>Cijfers van OCR-B, gewone cijfers en cijfers van OCR-A</title>",
             f'<rect width="{WIDTH}" height="{height}" fill="#fff"/>']
    for number, (caption, colour, file) in enumerate(FONTS):
        top = number * ROW
        lines.append(f'<text x="{LEFT}" y="{top + CAPTION}" font-family="sans-serif" font-size="16" font-weight="bold" '
                     f'fill="{colour}">{caption}</text>')
        lines.append(f'<path d="{line_of(file, top + BASE)}"/>')
    return "\n".join([*lines, "</svg>", ""])


if __name__ == "__main__":
    PICTURE.write_text(svg(), encoding="utf-8")
