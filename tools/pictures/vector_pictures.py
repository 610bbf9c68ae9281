#!/usr/bin/env python3
"""Turns the program's vector pictures into a C++ table: vector_pictures.py TABLE.cpp PICTURE.svg...

What the pictures use is understood and nothing more: <rect>, <circle> and <path> with flat colours. Every
shape becomes a path of moves, lines and cubic curves in the picture's own units. Anything else is an error.
"""
import math
import os
import re
import sys
import xml.etree.ElementTree as ElementTree

NAMESPACE = "{http://www.w3.org/2000/svg}"
KNOWN = {
    "rect": {"x", "y", "width", "height", "rx"},
    "circle": {"cx", "cy", "r"},
    "path": {"d"},
}
PAINT = {"fill", "stroke", "stroke-width", "stroke-linecap", "stroke-linejoin", "stroke-dasharray"}
# Length of the handles of a curve that comes closest to a quarter of a circle of radius 1.
QUARTER = 4 / 3 * (math.sqrt(2) - 1)


class PictureError(Exception):
    pass


def colour(text):
    """Opaque ARGB; 0 for none."""
    if text is None or text == "none":
        return 0
    if not re.fullmatch(r"#[0-9a-fA-F]{6}", text):
        raise PictureError(f"colour {text}")
    return 0xFF000000 | int(text[1:], 16)


def rect_path(x, y, width, height, radius):
    if radius == 0:
        return [("M", x, y), ("L", x + width, y), ("L", x + width, y + height), ("L", x, y + height), ("Z",)]
    right, bottom, k = x + width, y + height, radius * (1 - QUARTER)
    return [
        ("M", x + radius, y), ("L", right - radius, y),
        ("C", right - k, y, right, y + k, right, y + radius), ("L", right, bottom - radius),
        ("C", right, bottom - k, right - k, bottom, right - radius, bottom), ("L", x + radius, bottom),
        ("C", x + k, bottom, x, bottom - k, x, bottom - radius), ("L", x, y + radius),
        ("C", x, y + k, x + k, y, x + radius, y), ("Z",),
    ]


def circle_path(cx, cy, radius):
    return rect_path(cx - radius, cy - radius, 2 * radius, 2 * radius, radius)


def arc_curves(x1, y1, rx, ry, large, sweep, x2, y2):
    """The curves of an elliptical arc without rotation, each of at most a quarter of the ellipse."""
    # In units of the radii the ellipse is a circle of radius 1, at the same distance from both ends.
    ux1, uy1, ux2, uy2 = x1 / rx, y1 / ry, x2 / rx, y2 / ry
    half = math.hypot(ux2 - ux1, uy2 - uy1) / 2
    if half == 0:
        return []
    grow = max(1.0, half)
    away = math.sqrt(max(0.0, grow * grow - half * half)) / half / 2
    if large == sweep:
        away = -away
    cx = (ux1 + ux2) / 2 - away * (uy2 - uy1)
    cy = (uy1 + uy2) / 2 + away * (ux2 - ux1)
    start = math.atan2(uy1 - cy, ux1 - cx)
    turn = math.atan2(uy2 - cy, ux2 - cx) - start
    if sweep and turn < 0:
        turn += 2 * math.pi
    elif not sweep and turn > 0:
        turn -= 2 * math.pi
    count = max(1, math.ceil(abs(turn) / (math.pi / 2) - 1e-9))
    step = turn / count
    handle = 4 / 3 * math.tan(step / 4) * grow
    curves = []
    for i in range(count):
        a, b = start + i * step, start + (i + 1) * step
        points = [
            (cx + grow * math.cos(a) - handle * math.sin(a), cy + grow * math.sin(a) + handle * math.cos(a)),
            (cx + grow * math.cos(b) + handle * math.sin(b), cy + grow * math.sin(b) - handle * math.cos(b)),
            (cx + grow * math.cos(b), cy + grow * math.sin(b)),
        ]
        curves.append(("C", *[value for px, py in points for value in (px * rx, py * ry)]))
    return curves


ARGUMENTS = {"M": 2, "L": 2, "H": 1, "V": 1, "C": 6, "A": 7, "Z": 0}


def svg_path(data):
    tokens = re.findall(r"[A-Za-z]|[-+]?(?:\d+\.\d*|\.\d+|\d+)", data)
    path = []
    x = y = start_x = start_y = 0.0
    at = 0
    command = None
    while at < len(tokens):
        if tokens[at].isalpha():
            command = tokens[at]
            at += 1
        elif command in ("M", "m"):
            command = "L" if command == "M" else "l"  # what follows a move are lines
        kind = command.upper()
        if kind not in ARGUMENTS:
            raise PictureError(f"path command {command}")
        count = ARGUMENTS[kind]
        values = [float(token) for token in tokens[at:at + count]]
        if len(values) < count:
            raise PictureError(f"path ends within {command}")
        at += count
        base_x, base_y = (x, y) if command.islower() else (0.0, 0.0)
        if kind == "Z":
            path.append(("Z",))
            x, y = start_x, start_y
            continue
        before = (x, y)
        x = base_x + values[0] if kind == "H" else x if kind == "V" else base_x + values[-2]
        y = base_y + values[-1] if kind != "H" else y
        if kind == "M":
            start_x, start_y = x, y
            path.append(("M", x, y))
        elif kind == "C":
            path.append(("C", *[value + (base_x, base_y)[i % 2] for i, value in enumerate(values)]))
        elif kind == "A":
            rx, ry, rotation, large, sweep = values[:5]
            if rotation != 0:
                raise PictureError("an arc that is rotated")
            path += arc_curves(*before, rx, ry, bool(large), bool(sweep), x, y)
        else:
            path.append(("L", x, y))
    return path


def shape_path(kind, element):
    number = {name: float(element.get(name, "0")) for name in KNOWN[kind] if name != "d"}
    if kind == "rect":
        return rect_path(number["x"], number["y"], number["width"], number["height"], number["rx"])
    if kind == "circle":
        return circle_path(number["cx"], number["cy"], number["r"])
    return svg_path(element.get("d"))


def shape(element):
    kind = element.tag.removeprefix(NAMESPACE)
    if kind not in KNOWN:
        raise PictureError(f"element {kind}")
    unknown = set(element.keys()) - KNOWN[kind] - PAINT
    if unknown:
        raise PictureError(f"attribute {sorted(unknown)[0]} of {kind}")
    dashes = [float(part) for part in element.get("stroke-dasharray", "").split()]
    if len(dashes) not in (0, 2):
        raise PictureError("dashes that are not a dash and a gap")
    return {
        "path": shape_path(kind, element),
        "fill": colour(element.get("fill", "#000000")),
        "stroke": colour(element.get("stroke")),
        "width": float(element.get("stroke-width", "1")),
        "round_caps": element.get("stroke-linecap") == "round",
        "round_joins": element.get("stroke-linejoin") == "round",
        "dashes": dashes or [0.0, 0.0],
    }


def picture(file):
    root = ElementTree.parse(file).getroot()
    left, top, width, height = (float(part) for part in root.get("viewBox").split())
    if left != 0 or top != 0:
        raise PictureError(f"{file}: the picture does not begin at 0")
    try:
        shapes = [shape(element) for element in root]
    except PictureError as error:
        raise PictureError(f"{file}: {error}") from None
    return {"name": os.path.splitext(os.path.basename(file))[0], "width": width, "height": height, "shapes": shapes}


def literal(value):
    text = f"{value:.4f}".rstrip("0")
    return ("0." if text == "-0." else text) + ("0" if text.endswith(".") else "") + "F"


def table(pictures):
    steps, shapes, rows = [], [], []
    for drawn in pictures:
        first_shape = len(shapes)
        for each in drawn["shapes"]:
            first_step = len(steps)
            for command, *points in each["path"]:
                points += [0.0] * (6 - len(points))
                steps.append(f"    {{'{command}', {{{', '.join(map(literal, points))}}}}},")
            shapes.append(
                f"    {{{first_step}, {len(steps)}, 0x{each['fill']:08X}, 0x{each['stroke']:08X}, "
                f"{literal(each['width'])}, {str(each['round_caps']).lower()}, "
                f"{str(each['round_joins']).lower()}, "
                f"{{{', '.join(map(literal, each['dashes']))}}}}},")
        rows.append(f"    {{\"{drawn['name']}\", {literal(drawn['width'])}, {literal(drawn['height'])}, "
                    f"{first_shape}, {len(shapes)}}},")
    return "\n".join([
        "// Made from the pictures in resources/pictures by tools/pictures/vector_pictures.py.",
        '#include "desktop/windows/VectorPictureTable.h"', "",
        "namespace desktop::windows {", "",
        "namespace {", "",
        "constexpr PathStep Steps[] = {", *steps, "};", "",
        "constexpr PictureShape Shapes[] = {", *shapes, "};", "",
        "constexpr PictureRow Pictures[] = {", *rows, "};", "",
        "} // namespace", "",
        "constexpr PictureTable ThePictures{Pictures, Shapes, Steps};", "",
        "const PictureTable& AllPictures() {", "    return ThePictures;", "}", "",
        "} // namespace desktop::windows", "",
    ])


def main():
    target, *files = sys.argv[1:]
    try:
        text = table([picture(file) for file in files])
    except PictureError as error:
        sys.exit(f"vector_pictures.py: {error}")
    with open(target, "w", encoding="utf-8") as out:
        out.write(text)


if __name__ == "__main__":
    main()
