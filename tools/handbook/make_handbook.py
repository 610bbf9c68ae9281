#!/usr/bin/python3
"""Makes the handbook that the packages bring: one page of HTML with its pictures, readable without a network.

    make_handbook.py SOURCE.md STYLE.css FOLDER

FOLDER gets index.html, the style sheet, the pictures, and in sections/ a page for each heading that leads to it: what opens a file
on a desktop often drops the "#heading" behind its name. FOLDER.d is the list of what it was made of, as Ninja reads it.
"""
import argparse
import html
import pathlib
import shutil
import struct
import unicodedata
import xml.etree.ElementTree as Tree

import markdown
from markdown.treeprocessors import Treeprocessor

PAGE = """<!DOCTYPE html>
<html lang="nl">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>{title}</title>
<link rel="stylesheet" href="{style}">
</head>
<body>
<main>
{body}
</main>
</body>
</html>
"""
SECTION = """<!DOCTYPE html>
<html lang="nl">
<head>
<meta charset="utf-8">
<meta http-equiv="refresh" content="0; url=../index.html#{anchor}">
<title>{title}</title>
</head>
<body>
<p><a href="../index.html#{anchor}">{title}</a></p>
</body>
</html>
"""
DENSE = "-200"  # ends the name of the same picture for screens of 200 %


def anchor_of(heading, _separator):
    """As a link in the Markdown names it."""
    kept = (letter for letter in heading.strip().lower() if letter in "_- " or unicodedata.category(letter)[0] in "LN")
    return "".join(kept).replace(" ", "-")


def size_of(picture):
    if picture.suffix == ".svg":
        drawing = Tree.parse(picture).getroot()
        return [round(float(drawing.get(side))) for side in ("width", "height")]
    return struct.unpack_from(">II", picture.read_bytes(), 16)


class Rework(Treeprocessor):
    """What a page in a package has and one in a repository has not: sizes and dense pictures, tables that scroll, and no
    links to other documents."""

    def __init__(self, md, folder):
        super().__init__(md)
        self.folder = folder
        self.pictures = []

    def run(self, root):
        for image in root.iter("img"):
            self.complete(image)
        for link in root.iter("a"):
            if link.get("href", "").partition("#")[0].endswith(".md"):
                link.tag = "span"
                del link.attrib["href"]
        for parent in list(root.iter()):
            for place, child in enumerate(parent):
                if child.tag == "table":
                    wide = Tree.Element("div", {"class": "wide", "tabindex": "0"})
                    wide.tail, child.tail = child.tail, None
                    wide.append(child)
                    parent[place] = wide

    def complete(self, image):
        picture = pathlib.PurePosixPath(image.get("src"))
        width, height = size_of(self.folder / picture)
        dense = picture.with_stem(picture.stem + DENSE)
        if (self.folder / dense).exists():
            picture = dense
        image.attrib |= {"src": str(picture), "width": str(width), "height": str(height)}
        self.pictures.append(picture)


def headings(tokens):
    for token in tokens:
        yield token["id"], html.unescape(token["name"])
        yield from headings(token["children"])


def main():
    parser = argparse.ArgumentParser()
    for name in ("source", "style", "folder"):
        parser.add_argument(name, type=pathlib.Path)
    arguments = parser.parse_args()
    source, folder = arguments.source, arguments.folder
    shutil.rmtree(folder, ignore_errors=True)
    (folder / "sections").mkdir(parents=True)

    md = markdown.Markdown(extensions=["tables", "toc", "sane_lists"],
                           extension_configs={"toc": {"slugify": anchor_of}}, output_format="html")
    rework = Rework(md, source.parent)
    md.treeprocessors.register(rework, "rework", 0)  # after all others
    body = md.convert(source.read_text(encoding="utf-8"))
    title = md.toc_tokens[0]["name"]
    for anchor, heading in headings(md.toc_tokens):
        (folder / "sections" / f"{anchor}.html").write_text(SECTION.format(anchor=anchor, title=html.escape(heading)),
                                                            encoding="utf-8")
    for picture in rework.pictures:
        target = folder / picture
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(source.parent / picture, target)
    shutil.copyfile(arguments.style, folder / arguments.style.name)
    (folder / "index.html").write_text(PAGE.format(title=title, style=arguments.style.name, body=body), encoding="utf-8")
    made_of = [source, arguments.style, *(source.parent / picture for picture in rework.pictures)]
    folder.with_name(folder.name + ".d").write_text(f"{folder / 'index.html'}: {' '.join(map(str, made_of))}\n",
                                                    encoding="utf-8")


if __name__ == "__main__":
    main()
