#!/usr/bin/env python3
"""Makes a Windows icon of several sizes from a vector picture: make_icon.py PICTURE.svg ICON.ico

Each size is drawn by rsvg-convert and kept as PNG, which Windows takes in icons from Vista on.
"""
import struct
import subprocess
import sys

SIZES = [16, 20, 24, 32, 40, 48, 64, 256]


def drawn(picture, size):
    return subprocess.run(["rsvg-convert", "-w", str(size), "-h", str(size), picture],
                          check=True, capture_output=True).stdout


def icon(pictures):
    """ICONDIR, an ICONDIRENTRY for each picture, and the pictures. A side of 256 is written as 0."""
    directory = struct.pack("<HHH", 0, 1, len(pictures))
    place = len(directory) + 16 * len(pictures)
    entries = b""
    for size, png in pictures:
        entries += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(png), place)
        place += len(png)
    return directory + entries + b"".join(png for _, png in pictures)


def main():
    source, target = sys.argv[1:]
    with open(target, "wb") as out:
        out.write(icon([(size, drawn(source, size)) for size in SIZES]))


if __name__ == "__main__":
    main()
