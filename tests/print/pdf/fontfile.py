"""Widths and line metrics straight from a TrueType or OpenType file."""

import struct


class FontFile:
    def __init__(self, path):
        with open(path, "rb") as file:
            data = file.read()
        count = struct.unpack_from(">H", data, 4)[0]
        tables = {}
        for i in range(count):
            tag, _, offset, length = struct.unpack_from(">4sLLL", data, 12 + 16 * i)
            tables[tag.decode("ascii")] = data[offset:offset + length]
        self.em = struct.unpack_from(">H", tables["head"], 18)[0]
        self.ascent, self.descent = struct.unpack_from(">HH", tables["OS/2"], 74)
        wide = struct.unpack_from(">H", tables["hhea"], 34)[0]
        self._widths = [struct.unpack_from(">H", tables["hmtx"], 4 * i)[0] for i in range(wide)]
        self._glyphs = self._read_cmap(tables["cmap"])

    @staticmethod
    def _read_cmap(cmap):
        count = struct.unpack_from(">H", cmap, 2)[0]
        for i in range(count):
            platform, encoding, offset = struct.unpack_from(">HHL", cmap, 4 + 8 * i)
            if (platform, encoding) == (3, 1) and struct.unpack_from(">H", cmap, offset)[0] == 4:
                return FontFile._read_segments(cmap, offset)
        raise ValueError("no Unicode table")

    @staticmethod
    def _read_segments(cmap, offset):
        segments = struct.unpack_from(">H", cmap, offset + 6)[0] // 2

        def row(index):
            start = offset + 14 + index * 2 * segments + (2 if index > 0 else 0)
            return struct.unpack_from(f">{segments}H", cmap, start), start

        (ends, _), (starts, _), (deltas, _), (ranges, ranges_at) = row(0), row(1), row(2), row(3)
        glyphs = {}
        for i in range(segments):
            for code in range(starts[i], ends[i] + 1):
                if ranges[i] == 0:
                    glyph = (code + deltas[i]) & 0xFFFF
                else:
                    at = ranges_at + 2 * i + ranges[i] + 2 * (code - starts[i])
                    glyph = struct.unpack_from(">H", cmap, at)[0] if at + 2 <= len(cmap) else 0
                    glyph = (glyph + deltas[i]) & 0xFFFF if glyph else 0
                if glyph:
                    glyphs[code] = glyph
        return glyphs

    def width(self, text, points):
        """Width in twips."""
        units = 0
        for character in text:
            glyph = self._glyphs.get(ord(character), 0)
            units += self._widths[min(glyph, len(self._widths) - 1)]
        return units / self.em * points * 20

    def top_to_base(self, points):
        return self.ascent / self.em * points * 20

    def height(self, points):
        return (self.ascent + self.descent) / self.em * points * 20
