"""The lines of a scenario's script."""
import re


class Unplayable(Exception):
    """The script asks for what nobody can do or see from outside."""


def words_of(line):
    line = line.strip()
    if not line or line.startswith("#"):
        return []
    name = line.split(None, 1)[0]
    if name in {"expect", "call", "poke"}:
        return line.split(None, 2)
    return [QUOTED.sub(lambda text: ESCAPE.sub(escaped, text[1]), word) for word in WORD.findall(line)]


WORD = re.compile(r'(?:"(?:[^"\\]|\\.)*"|[^\s"])+')
QUOTED = re.compile(r'"((?:[^"\\]|\\.)*)"')
ESCAPE = re.compile(r'\\(["\\n0])')


def escaped(match):
    return {"n": "\n", "0": "\0"}.get(match[1], match[1])
