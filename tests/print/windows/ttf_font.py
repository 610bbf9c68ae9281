#!/usr/bin/python3
"""Makes a TrueType font of an OpenType one with PostScript outlines, with the same widths and line metrics.

    ttf_font.py SOURCE TARGET FAMILY

Wine's printer driver prints the letters of a TrueType font as text that can be read back, and only those.
"""
import sys

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.cu2quPen import Cu2QuPen
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib import TTFont

LARGEST_ERROR = 0.5  # of the outlines, in units of the em


def outlines(source):
    glyphs = source.getGlyphSet()
    made = {}
    for name in source.getGlyphOrder():
        pen = TTGlyphPen(None)
        glyphs[name].draw(Cu2QuPen(pen, LARGEST_ERROR, reverse_direction=True))
        made[name] = pen.glyph()
    return made


def convert(source_file, target_file, family):
    source = TTFont(source_file)
    header, os2 = source["hhea"], source["OS/2"]
    builder = FontBuilder(source["head"].unitsPerEm, isTTF=True)
    builder.setupGlyphOrder(source.getGlyphOrder())
    builder.setupCharacterMap(source.getBestCmap())
    builder.setupGlyf(outlines(source))
    glyphs = builder.font["glyf"]
    builder.setupHorizontalMetrics({name: (width, getattr(glyphs[name], "xMin", 0))
                                    for name, (width, _) in source["hmtx"].metrics.items()})
    builder.setupHorizontalHeader(ascent=header.ascent, descent=header.descent, lineGap=header.lineGap)
    builder.setupNameTable({"familyName": family, "styleName": "Regular", "uniqueFontIdentifier": family,
                            "fullName": family, "psName": family.replace(" ", ""), "version": "Version 1.0"})
    builder.setupOS2(sTypoAscender=os2.sTypoAscender, sTypoDescender=os2.sTypoDescender,
                     sTypoLineGap=os2.sTypoLineGap, usWinAscent=os2.usWinAscent, usWinDescent=os2.usWinDescent,
                     xAvgCharWidth=os2.xAvgCharWidth, ulCodePageRange1=1, fsSelection=0x40)
    builder.setupPost(isFixedPitch=1)
    builder.save(target_file)


if __name__ == "__main__":
    convert(*sys.argv[1:])
