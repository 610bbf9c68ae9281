"""What the documents of the project quote, link and name."""
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]
FENCE = re.compile(r"^(```|~~~).*?^\1\s*$", re.DOTALL | re.MULTILINE)
SPAN = re.compile(r"(?<!`)`([^`\n]+)`(?!`)")
LINK = re.compile(r"!?\[[^\]\n]*\]\(([^)\s]+)\)")
# One star on both sides, within a paragraph, with no blank inside either.
ITALIC = re.compile(r"(?<![*\w\\])\*(?![*\s])((?:(?!\*|\n\s*\n).)+?)(?<!\s)\*(?![*\w])", re.DOTALL)


def all_documents():
    return sorted([*ROOT.glob("*.md"), *(ROOT / "docs").rglob("*.md")])


def line_of(text, offset):
    return text.count("\n", 0, offset) + 1


def blanked(pattern, text):
    """The text with blanks in the place of what matches, so that lines keep their numbers."""
    return pattern.sub(lambda m: re.sub(r"[^\n]", " ", m[0]), text)


def spans(text):
    """What stands between backticks, with its line."""
    text = blanked(FENCE, text)
    return [(line_of(text, m.start()), m[1]) for m in SPAN.finditer(text)]


def italics(text):
    """What stands between single stars, with its line; bold text is no part of it."""
    text = blanked(SPAN, blanked(FENCE, text)).replace("**", "  ")
    return [(line_of(text, m.start()), m[1]) for m in ITALIC.finditer(text)]


def links(text):
    text = blanked(SPAN, blanked(FENCE, text))
    return [(line_of(text, m.start()), m[1]) for m in LINK.finditer(text)]


def anchors(text):
    """The names that links give the headings."""
    found = set()
    for heading in re.findall(r"^#+ (.*)$", blanked(FENCE, text), re.MULTILINE):
        bare = re.sub(r"[^\w\- ]", "", heading.strip().lower())
        found.add(bare.replace(" ", "-"))
    return found


def broken_links(path):
    """Links of a document to files and headings that are not there."""
    text = path.read_text(encoding="utf-8")
    for line, target in links(text):
        if re.match(r"[a-z]+:", target):
            continue
        name, _, anchor = target.partition("#")
        there = path.parent / name if name else path
        if not there.exists():
            yield f"{path.relative_to(ROOT)}:{line}: {target} is not there"
        elif anchor and anchor not in anchors(there.read_text(encoding="utf-8")):
            yield f"{path.relative_to(ROOT)}:{line}: {name or path.name} has no heading #{anchor}"


def table_rows(text):
    """The cells of each row of the tables, with its line; neither their heads nor the rules below these."""
    above = None
    for number, line in enumerate(blanked(FENCE, text).splitlines(), 1):
        row = line.strip()
        if row.startswith("|") and above and not re.fullmatch(r"[|\s:-]+", row):
            yield number, [cell.strip() for cell in re.split(r"(?<!\\)\|", row)[1:-1]]
        above = row if row.startswith("|") else None


def broken_tables(path):
    """Rows of a table that have more or fewer cells than its head."""
    head = None
    text = blanked(FENCE, path.read_text(encoding="utf-8"))
    for number, line in enumerate(text.splitlines(), 1):
        row = line.strip()
        if not row.startswith("|"):
            head = None
            continue
        cells = len(re.findall(r"(?<!\\)\|", row)) - 1
        head = head or cells
        if cells != head:
            yield f"{path.relative_to(ROOT)}:{number}: {cells} cells in a table of {head}"
