"""The texts of the program, read from its sources."""
import functools
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]
SRC = ROOT / "src"

ESCAPES = {"n": "\n", "r": "\r", "t": "\t", "0": "\0"}
QUOTED = r'(?:u8|L)?"(?:\\.|[^"\\\n])*"'
TOKEN = re.compile(rf"{QUOTED}|'(?:\\.|[^'\\\n])'|//[^\n]*|/\*.*?\*/", re.DOTALL)
# Literals that stand beside each other are one.
LITERAL = re.compile(rf"{QUOTED}(?:\s*{QUOTED})*")

# What hands a text to the user, at once or as the description of a failure.
TELLERS = re.compile(r"\b(?:MsgBox|Melding|tell|MessageBoxW|RuntimeError|PrinterError|ThrowPrintFailure|TellPrintFailure|"
                     r"WithReason|AskPrinter|QMessageBox\s+\w+)\s*(?=\()|(?:\breturn\s*)(?=\{\s*(?:base::)?Error[A-Z]\w*\s*,)")
NAME = re.compile(r"\b[A-Za-z_]\w*\b")
DEEPEST = 3  # a message is made by a function that is handed what another has made, and no deeper


def sources():
    for path in sorted(SRC.rglob("*")):
        if path.suffix in {".h", ".cpp"}:
            yield path


@functools.cache
def code(path):
    """The file without its comments."""
    return TOKEN.sub(lambda m: " " if m[0].startswith("/") else m[0], path.read_text(encoding="utf-8"))


def literals(text):
    for found in LITERAL.finditer(text):
        parts = re.findall(QUOTED, found[0])
        whole = "".join(part[part.index('"') + 1:-1] for part in parts)
        yield re.sub(r"\\(.)", lambda m: ESCAPES.get(m[1], m[1]), whole)


def normal(text):
    """As it stands on the screen: without the marks of access keys and the blanks around it."""
    return " ".join(re.sub("&(.)", r"\1", text).split())


def lines(text):
    """The lines of a text; the toolkit's place holders part them as well."""
    return [line for line in map(normal, re.split(r"\r?\n|%\d", text)) if re.search(r"[^\W\d]", line)]


@functools.cache
def texts():
    """Every text of the program, line by line."""
    return {line for path in sources() for literal in literals(code(path)) for line in lines(literal)}


def access_keys():
    """Each letter that is pressed with Alt, and the caption in which it is underlined."""
    return {(found[1].upper(), normal(literal).rstrip(":")) for path in sources() for literal in literals(code(path))
            if (found := re.search("&([a-z])", literal, re.IGNORECASE))}


def closed(text, start):
    """What stands between the bracket at `start` and the one that closes it."""
    pairs = {"(": ")", "{": "}", "[": "]"}
    depth = []
    for token in re.compile(rf"{QUOTED}|'(?:\\.|[^'\\\n])'|[][(){{}}]").finditer(text, start):
        if token[0] in pairs:
            depth.append(pairs[token[0]])
        elif depth and token[0] == depth[-1]:
            depth.pop()
            if not depth:
                return text[start + 1:token.start()]
    return ""


@functools.cache
def constants():
    """Texts by name, of the whole program."""
    found = {}
    for path in sources():
        for name, value in re.findall(rf"\bconstexpr\b[^;=]*?(\w+)\s*=\s*({QUOTED}(?:\s*{QUOTED})*)\s*;", code(path)):
            found.setdefault(name, []).extend(literals(value))
    return found


def made_here(name, text):
    """What a name of this file stands for: the values of a variable, or the body of a function."""
    for value in re.finditer(rf"\b{name}\s*(?:=|\+=)\s*([^;]*);", text):
        yield value[1]
    if name.endswith("_"):  # a member, which a constructor begins with
        return
    for head in re.finditer(rf"\b{name}\s*\([^;{{}}]*\)\s*(?:const\s*|noexcept\s*)*(?=\{{)", text):
        yield closed(text, head.end())


def reached(part, text, depth=0):
    """The literals of a piece of code and of what it names."""
    yield from literals(part)
    if depth == DEEPEST:
        return
    for name in sorted(set(NAME.findall(LITERAL.sub(" ", part)))):
        yield from constants().get(name, [])
        for value in made_here(name, text):
            yield from reached(value, text, depth + 1)


def messages():
    """Every line that the program can tell its user in a box, by file."""
    found = {}
    for path in sources():
        text = code(path)
        for teller in TELLERS.finditer(text):
            told = closed(text, teller.end())
            for literal in reached(told, text):
                for line in lines(literal):
                    found.setdefault(line, path.relative_to(ROOT).as_posix())
    return found
