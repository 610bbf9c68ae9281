#!/usr/bin/env python3
"""Tells from the include lines how src/ hangs together: house.py [--tree FOLDER] [--write | --check]

Prints the rooms, which knows which, and figures of the whole; --tree looks at another checkout of the project.
--write draws the picture of the rooms (docs/images/rooms.svg); --check ends with 1 if that picture is another one.
"""
import argparse
import collections
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
PICTURE = pathlib.Path("docs/images/rooms.svg")
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)
# Written by a generator, and a part of the room around it.
GENERATED = "generated"


class House:
    """The sources of a tree by their names from src/ on, and who includes whom."""

    def __init__(self, root):
        src = root / "src"
        self.texts = {path.relative_to(src).as_posix(): path.read_text(encoding="utf-8")
                      for path in sorted(src.rglob("*")) if path.suffix in {".h", ".cpp", ".inc"}}
        self.includes = {name: [other for other in INCLUDE.findall(text) if other in self.texts]
                         for name, text in self.texts.items()}
        self.files = collections.Counter()
        self.lines = collections.Counter()
        for name, text in self.texts.items():
            if GENERATED not in name.split("/"):
                self.files[room_of(name)] += 1
                self.lines[room_of(name)] += text.count("\n")
        self.knows = collections.defaultdict(set)
        for name, others in self.includes.items():
            self.knows[room_of(name)] |= {room_of(other) for other in others} - {room_of(name)}

    def reaches(self, room):
        """All that a room knows, also by way of others."""
        found, ahead = set(), [room]
        while ahead:
            for other in self.knows[ahead.pop()] - found:
                found.add(other)
                ahead.append(other)
        return found

    def needs(self, room):
        """What a room knows, but for what it would know all the same by way of another of these."""
        known = self.knows[room]
        return {other for other in known
                if not any(other in self.reaches(between) for between in known - {other})}

    def upward_includes(self):
        """Include lines by which a room knows one that knows it too."""
        reached = {room: self.reaches(room) for room in self.files}
        return [(name, other) for name, others in self.includes.items() for other in others
                if room_of(other) != room_of(name) and room_of(name) in reached[room_of(other)]]

    def headers_of_one(self):
        """Headers that only one file includes, and those that only one includes beside the .cpp of the same name."""
        includers = collections.defaultdict(set)
        for name, others in self.includes.items():
            for other in others:
                includers[other].add(name)
        headers = [name for name in self.texts if name.endswith(".h")]
        alone = [name for name in headers if len(includers[name]) == 1]
        beside = [name for name in headers if len(includers[name] - {name.removesuffix(".h") + ".cpp"}) == 1]
        return alone, beside

    def levels(self):
        """The rooms by the number of rooms that stand beneath them; none where they know each other in a ring."""
        if self.upward_includes():
            return []
        height = {}
        for room in sorted(self.files, key=lambda room: len(self.reaches(room))):
            height[room] = max((height[other] + 1 for other in self.knows[room]), default=0)
        return [sorted(room for room in height if height[room] == level) for level in range(max(height.values()) + 1)]


def room_of(name):
    return "/".join(part for part in name.split("/")[:-1] if part != GENERATED)


class Picture:
    """The rooms in rows, each above all that it knows. A line that passes a row has a place of its own there."""

    BOX_WIDTH, BOX_HEIGHT, LANE, GAP, ROW, EDGE = 140, 34, 10, 22, 78, 16

    def __init__(self, house):
        self.rows = [list(rooms) for rooms in house.levels()]
        level_of = {room: level for level, rooms in enumerate(self.rows) for room in rooms}
        # From room to room, by what is passed on the way: a pair of the two names, one for all rows.
        self.lines = []
        self.neighbours = collections.defaultdict(list)
        for room in sorted(level_of):
            for other in sorted(house.needs(room)):
                between = range(level_of[room] - 1, level_of[other], -1)
                for level in between:
                    self.rows[level].append((room, other))
                self.lines.append((room, other, between))
                way = [room, (room, other), other] if between else [room, other]
                for one, next_one in zip(way, way[1:]):
                    self.neighbours[one].append(next_one)
                    self.neighbours[next_one].append(one)
        self.x = self.places()

    def places(self):
        """The middle of all that stands in the rows, from the left: near to what it is joined with."""
        x = {}
        for item in self.neighbours:
            x[item] = 0.0
        for _ in range(24):
            for row in [*self.rows, *self.rows[::-1]]:
                wish = {item: sum(x[near] for near in self.neighbours[item]) / len(self.neighbours[item]) for item in row}
                row.sort(key=lambda item: (wish[item], str(item)))
                right, kept = None, []
                for item in row:
                    half = (self.BOX_WIDTH if isinstance(item, str) else self.LANE) / 2
                    kept.append(wish[item] if right is None else max(wish[item], right + self.GAP + half))
                    right = kept[-1] + half
                shift = sum(wish[item] - place for item, place in zip(row, kept)) / len(row)
                x.update((item, place + shift) for item, place in zip(row, kept))
        left = min(place for place in x.values()) - self.BOX_WIDTH / 2 - self.EDGE
        return {item: round(place - left) for item, place in x.items()}

    def top(self, level):
        return self.EDGE + (len(self.rows) - 1 - level) * self.ROW

    def line(self, room, other, between):
        level = next(level for level, row in enumerate(self.rows) if room in row)
        points = [(self.x[room], self.top(level) + self.BOX_HEIGHT)]
        for passed in between:
            points += [(self.x[room, other], self.top(passed)), (self.x[room, other], self.top(passed) + self.BOX_HEIGHT)]
        end = next(level for level, row in enumerate(self.rows) if other in row)
        points.append((self.x[other], self.top(end)))
        return " ".join(f"{x},{y}" for x, y in points)

    def svg(self):
        width = max(self.x.values()) + self.BOX_WIDTH // 2 + self.EDGE
        height = self.top(0) + self.BOX_HEIGHT + self.EDGE
        out = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" width="{width}" height="{height}">',
               "<title>The rooms of src/: each knows those that its lines lead down to, and what stands beneath these</title>",
               '<defs><marker id="end" viewBox="0 0 8 8" refX="8" refY="4" markerWidth="8" markerHeight="8" orient="auto">'
               '<path d="M0,0 L8,4 L0,8 z" fill="#555"/></marker></defs>',
               f'<rect width="{width}" height="{height}" fill="#fff"/>',
               '<g fill="none" stroke="#555" marker-end="url(#end)">']
        out += [f'<polyline points="{self.line(*line)}"/>' for line in self.lines]
        out += ["</g>", '<g font-family="sans-serif" font-size="14" text-anchor="middle">']
        for level, row in enumerate(self.rows):
            for room in (item for item in row if isinstance(item, str)):
                left, top = self.x[room] - self.BOX_WIDTH // 2, self.top(level)
                out.append(f'<rect x="{left}" y="{top}" width="{self.BOX_WIDTH}" height="{self.BOX_HEIGHT}" rx="4" '
                           f'fill="#eef3f8" stroke="#345"/><text x="{self.x[room]}" y="{top + 22}">{room}</text>')
        return "\n".join([*out, "</g>", "</svg>", ""])


def tell(house):
    print(f"{'room':20}{'files':>6}{'lines':>8}  knows")
    for level in house.levels() or [sorted(house.files)]:
        for room in level:
            print(f"{room:20}{house.files[room]:6}{house.lines[room]:8}  {', '.join(sorted(house.knows[room])) or '-'}")
    lines = sum(house.lines.values())
    largest = max(house.lines, key=lambda room: house.lines[room])
    alone, beside = house.headers_of_one()
    print(f"""
files of src                       {sum(house.files.values())}
lines of src                       {lines}
largest room                       {largest}, {house.lines[largest] * 100 // lines} % of the lines, {house.files[largest]} files
headers                            {sum(name.endswith('.h') for name in house.texts)}
  that one file includes           {len(alone)}
  that one includes, and their .cpp {len(beside) - len(set(alone) & set(beside))}
include lines that lead upward     {len(house.upward_includes())}""")


def main():
    parser = argparse.ArgumentParser(description="Tells how src/ hangs together.")
    parser.add_argument("--tree", type=pathlib.Path, default=ROOT)
    parser.add_argument("--write", action="store_true")
    parser.add_argument("--check", action="store_true")
    arguments = parser.parse_args()
    house = House(arguments.tree)
    if not (arguments.write or arguments.check):
        tell(house)
        return 0
    if house.upward_includes():
        print("Rooms know each other in a ring:", *(f"{name} includes {other}" for name, other in house.upward_includes()), sep="\n")
        return 1
    picture = Picture(house).svg()
    if arguments.write:
        (arguments.tree / PICTURE).write_text(picture, encoding="utf-8")
    elif (arguments.tree / PICTURE).read_text(encoding="utf-8") != picture:
        print(f"{PICTURE} shows another house than src/: tools/house.py --write draws it anew.")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
