"""The document that the program hands to a queue: its texts with their places, and its pages as dots."""

import pathlib
import re
import subprocess
import tempfile

from postscript import RESOLUTION, read_pgm

PAGE = re.compile(r'<page width="([\d.]+)" height="([\d.]+)">(.*?)</page>', re.DOTALL)
WORD = re.compile(r'<word xMin="([-\d.]+)" yMin="([-\d.]+)" xMax="([-\d.]+)" yMax="([-\d.]+)">(.*?)</word>')


def words(file):
    """For each page its size in points and its words as (text, left, top, right, bottom), from its top left."""
    html = subprocess.run(["pdftotext", "-bbox", str(file), "-"], check=True, capture_output=True, text=True).stdout
    return [((float(width), float(height)),
             [(text, float(left), float(top), float(right), float(bottom))
              for left, top, right, bottom, text in WORD.findall(inside)])
            for width, height, inside in PAGE.findall(html)]


def pages(file):
    """Pages as pairs of their size in points and the darkness of each dot at RESOLUTION."""
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["pdftoppm", "-gray", "-r", str(RESOLUTION), str(file), f"{folder}/page"], check=True)
        found = []
        for each in sorted(pathlib.Path(folder).glob("*.pgm")):
            ink = 255 - read_pgm(each.read_bytes())
            found.append(((ink.shape[1] * 72 / RESOLUTION, ink.shape[0] * 72 / RESOLUTION), ink))
        return found
