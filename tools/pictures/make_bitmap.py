#!/usr/bin/env python3
"""Makes a Windows bitmap of 24 bits from a vector picture that has no transparent places:
make_bitmap.py PICTURE.svg BITMAP.bmp WIDTH HEIGHT
"""
import struct
import subprocess
import sys
import zlib

SIGNATURE = 8  # bytes of a PNG before its first chunk


def chunks(png):
    place = SIGNATURE
    while place < len(png):
        length, kind = struct.unpack_from(">I4s", png, place)
        yield kind, png[place + 8:place + 8 + length]
        place += length + 12


def nearest(left, above, corner):
    """Paeth's: which of the neighbours is nearest to what they let expect."""
    expected = left + above - corner
    return min((left, above, corner), key=lambda neighbour: abs(expected - neighbour))


GUESSES = (lambda left, above, corner: 0, lambda left, above, corner: left, lambda left, above, corner: above,
           lambda left, above, corner: (left + above) // 2, nearest)


def rows_of(png):
    """Width in pixels, bytes in a pixel, and each row's bytes, of a PNG of 8 bits that is not interlaced."""
    parts = list(chunks(png))
    width, height, depth, colours, _, _, interlaced = struct.unpack(">IIBBBBB", parts[0][1])
    if (depth, colours in (2, 6), interlaced) != (8, True, 0):
        raise SystemExit("the picture was drawn in a format that is not known here")
    size = 3 if colours == 2 else 4
    data = zlib.decompress(b"".join(body for kind, body in parts if kind == b"IDAT"))
    rows, above = [], bytes(width * size)
    for start in range(0, height * (width * size + 1), width * size + 1):
        guess, row = GUESSES[data[start]], bytearray(data[start + 1:start + 1 + width * size])
        for i in range(len(row)):
            before = i >= size
            row[i] = (row[i] + guess(row[i - size] if before else 0, above[i], above[i - size] if before else 0)) % 256
        rows.append(row)
        above = row
    return width, size, rows


def bitmap(png):
    """BITMAPFILEHEADER, BITMAPINFOHEADER, and the rows from below, blue first, each filled up to four bytes."""
    width, size, rows = rows_of(png)
    padding = bytes(-3 * width % 4)
    body = b"".join(b"".join(bytes(row[i:i + 3][::-1]) for i in range(0, len(row), size)) + padding
                    for row in reversed(rows))
    header = struct.pack("<IiiHHIIiiII", 40, width, len(rows), 1, 24, 0, len(body), 0, 0, 0, 0)
    return struct.pack("<2sIHHI", b"BM", 14 + len(header) + len(body), 0, 0, 14 + len(header)) + header + body


def main():
    source, target, width, height = sys.argv[1:]
    png = subprocess.run(["rsvg-convert", "-w", width, "-h", height, source], check=True, capture_output=True).stdout
    with open(target, "wb") as out:
        out.write(bitmap(png))


if __name__ == "__main__":
    main()
