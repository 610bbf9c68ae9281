"""Holds what the program offers for a queue against the queue's own description. Lengths are millimetres."""

import re

POINT = 25.4 / 72
NEAR = 0.2
SAME_SHEET = 0.5  # a standard name may stand for a sheet as near as this
FORM_SHEET = (210.0, 304.8)
LONGEST = 200 * 25.4
PWG_SIZE = re.compile(r"_([\d.]+)x([\d.]+)(mm|in)$")
NONE_CHOSEN = ("Unknown", "")


def _is_near(one, other, limit=NEAR):
    return all(abs(a - b) <= limit for a, b in zip(one, other))


def size_in_name(keyword):
    match = PWG_SIZE.search(keyword)
    unit = 25.4 if match and match[3] == "in" else 1
    return (float(match[1]) * unit, float(match[2]) * unit) if match else None


def _is_possible(size):
    return all(0 < side <= LONGEST for side in size)


def wanted_papers(description):
    """By keyword the size and the margins (left, top, right, bottom) that the description gives. Margins that leave
    nothing of the sheet count as none."""
    wanted = {}
    for choice in description.papers:
        size = tuple(side * POINT for side in description.sizes.get(choice.keyword, (0, 0)))
        if choice.keyword == "Custom" or not _is_possible(size):
            continue
        area = description.areas.get(choice.keyword)
        left, bottom, right, top = (side * POINT for side in area) if area else (0, 0, *size)
        margins = [left, size[1] - top, size[0] - right, bottom]
        for one, other, length in ((0, 2, size[0]), (1, 3, size[1])):
            if max(abs(margins[one]), abs(margins[other]), margins[one] + margins[other]) >= length:
                margins[one] = margins[other] = 0
        wanted[choice.keyword] = (size, tuple(margins))
    return wanted


def _papers(description, offered):
    wanted = wanted_papers(description)
    given = {}
    for paper in offered["papers"]:
        if paper["standIn"]:
            continue
        if paper["ppd"] in given:
            yield "paper twice", paper["ppd"]
        given[paper["ppd"]] = paper
    for keyword, (size, margins) in wanted.items():
        paper = given.get(keyword)
        if paper is None:
            yield "paper missing", keyword
            continue
        if not _is_near((paper["width"], paper["height"]), size):
            yield "size", f"{keyword}: {paper['width']:.2f} x {paper['height']:.2f}, not {size[0]:.2f} x {size[1]:.2f}"
        own = tuple(paper[side] for side in ("left", "top", "right", "bottom"))
        if not _is_near(own, margins):
            yield "margins", f"{keyword}: " + ", ".join(f"{a:.2f}/{b:.2f}" for a, b in zip(own, margins))
        named = size_in_name(paper["pwg"])
        if paper["pwg"] != keyword and named and not _is_near(named, size, SAME_SHEET):
            yield "name of another sheet", f"{keyword}: {paper['pwg']} for {size[0]:.2f} x {size[1]:.2f}"
    for keyword in given.keys() - wanted.keys():
        if not keyword.startswith("Custom."):
            yield "paper of no description", keyword


def _form_sheet(description, offered):
    has = any(_is_near(size, FORM_SHEET, SAME_SHEET) for size, _ in wanted_papers(description).values())
    takes = description.custom is not None and description.custom.takes(*(side / POINT for side in FORM_SHEET))
    made = [paper for paper in offered["papers"] if paper["ppd"].startswith("Custom.")]
    if takes and not has and len(made) != 1:
        yield "form's sheet missing", f"{len(made)} sheets of a custom size"
    if (has or not takes) and made:
        yield "form's sheet of no use", made[0]["ppd"]
    for paper in made:
        if not _is_near((paper["width"], paper["height"]), FORM_SHEET, 0.05):
            yield "form's sheet size", f"{paper['width']} x {paper['height']}"
        margins = description.custom.margins if description.custom else None
        if margins:
            left, bottom, right, top = (side * POINT for side in margins)
            own = tuple(paper[side] for side in ("left", "top", "right", "bottom"))
            if not _is_near(own, (left, top, right, bottom)):
                yield "form's sheet margins", ", ".join(f"{a:.2f}/{b:.2f}" for a, b in
                                                        zip(own, (left, top, right, bottom)))


def _bins(description, offered):
    wanted = [choice.keyword for choice in description.bins if choice.keyword not in NONE_CHOSEN]
    given = [each["ppd"] for each in offered["bins"] if not each["standIn"]]
    for keyword in wanted:
        if keyword not in given:
            yield "bin missing", keyword
    for keyword in given:
        if keyword not in wanted:
            yield "bin of no description", keyword
    if sorted(set(given)) != sorted(given):
        yield "bin twice", str(given)


def _default(kind, chosen, items, preset, stand_in=None):
    """`stand_in` is what the program may take where the description names none."""
    known = {each["ppd"]: each["id"] for each in items if not each["standIn"]}
    if chosen in known:
        if preset != known[chosen] and chosen not in NONE_CHOSEN:
            yield kind, f"{preset}, not {known[chosen]} ({chosen})"
    elif preset in known.values() and not (chosen in NONE_CHOSEN and preset == known.get(stand_in)):
        yield kind, f"{preset} where the description has {chosen!r}"


def _numbers(offered):
    for items in (offered["papers"], offered["bins"]):
        ids = [each["id"] for each in items]
        if len(set(ids)) != len(ids):
            yield "number twice", str(sorted(each for each in ids if ids.count(each) > 1)[:4])


def differences(description, offered):
    """Pairs of the kind of a difference and what it is."""
    yield from _papers(description, offered)
    yield from _form_sheet(description, offered)
    yield from _bins(description, offered)
    yield from _default("default paper", description.default_paper, offered["papers"], offered["default"]["paper"],
                        "A4")  # something has to be drawn on
    yield from _default("default bin", description.default_bin, offered["bins"], offered["default"]["bin"])
    yield from _numbers(offered)
