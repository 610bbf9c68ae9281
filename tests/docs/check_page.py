#!/usr/bin/env python3
"""Holds the handbook's page of HTML to what a reader without a network needs: each picture is beside it, each link leads somewhere in
it, nothing comes from elsewhere, and no picture is shown larger than it is.

    check_page.py FOLDER
"""
import collections
import html.parser
import pathlib
import struct
import sys
import xml.etree.ElementTree as Tree

LOADED = {"img": "src", "link": "href", "script": "src", "iframe": "src"}


class Page(html.parser.HTMLParser):
    """Anchors, links, and files that the page loads."""

    def __init__(self, file):
        super().__init__()
        self.anchors = collections.Counter()
        self.links = []
        self.files = []
        self.pictures = []
        self.feed(file.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attrs):
        given = dict(attrs)
        if "id" in given:
            self.anchors[given["id"]] += 1
        if tag == "a":
            self.links.append(given.get("href", ""))
        elif tag in LOADED:
            self.files.append(given.get(LOADED[tag], ""))
        if tag == "img":
            self.pictures.append((given["src"], int(given["width"]), int(given["height"])))


def size_of(picture):
    if picture.suffix == ".svg":
        drawing = Tree.parse(picture).getroot()
        return float(drawing.get("width")), float(drawing.get("height"))
    return struct.unpack_from(">II", picture.read_bytes(), 16)


def is_size_of(shown, picture):
    """A picture for dense screens is shown at about half its size: a title bar grows less, a text breaks elsewhere."""
    return all(own / 3 <= side <= own + 1 for side, own in zip(shown, size_of(picture)))


def complaints(folder):
    page = Page(folder / "index.html")
    if len(page.links) < 10 or len(page.files) < 10:
        yield "the page has hardly any links or pictures"
    for anchor, count in page.anchors.items():
        if count > 1:
            yield f"#{anchor} stands there {count} times"
    for link in page.links:
        if not link.startswith("#") or link[1:] not in page.anchors:
            yield f"{link} leads nowhere"
    for file in page.files:
        if "?" in file or not (folder / file).is_file():
            yield f"{file} is not beside the page"
    for file, *shown in page.pictures:
        if (folder / file).is_file() and not is_size_of(shown, folder / file):
            yield f"{file} is shown in a size of {shown}"
    for section in (folder / "sections").iterdir():
        link, = Page(section).links
        if link != f"../index.html#{section.stem}" or section.stem not in page.anchors:
            yield f"{section.name} leads to {link}"


def main():
    found = list(complaints(pathlib.Path(sys.argv[1])))
    print("\n".join(found) or "The handbook's page is whole.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
