"""Reads what a printer description (PPD 4.3) says of papers, margins, bins and defaults, by the format's own rules:
statements "*Keyword Option/Wording: Value" with values in quotes that may go over lines. Lengths are points."""

import dataclasses
import re

STATEMENT = re.compile(
    rb'^\*(?:%[^\n]*|([^\s:/]+)[ \t]*([^:\n/]*)(?:/([^:\n]*))?:[ \t]*("[^"]*"?|[^\n]*))', re.MULTILINE)
HEX = re.compile(rb"<([0-9A-Fa-f\s]*)>")
# The options that choose a bin; the first that a description has is the one.
BIN_OPTIONS = ("InputSlot", "HPPaperSource", "PaperSources")
NUMBER = re.compile(r"[-+]?(?:\d+\.?\d*|\.\d+)(?:[eE][-+]?\d+)?")
ENCODINGS = {b"ISOLatin1": "latin-1", b"ISOLatin2": "iso8859-2", b"ISOLatin5": "iso8859-9", b"UTF-8": "utf-8",
             b"WindowsANSI": "cp1252", b"JIS83-RKSJ": "shift_jis", b"MacStandard": "mac_roman"}


@dataclasses.dataclass
class Choice:
    keyword: str
    wording: str


@dataclasses.dataclass
class Custom:
    """Bounds of sizes that one can make up, and the strips that the printer does not reach on them."""
    width: tuple = (0, 0)
    height: tuple = (0, 0)
    margins: tuple = None  # left, bottom, right, top

    def takes(self, width, height):
        return self.width[0] <= width <= self.width[1] and self.height[0] <= height <= self.height[1]


@dataclasses.dataclass
class Description:
    papers: list = dataclasses.field(default_factory=list)
    bins: list = dataclasses.field(default_factory=list)
    sizes: dict = dataclasses.field(default_factory=dict)  # paper: (width, height)
    areas: dict = dataclasses.field(default_factory=dict)  # paper: (left, bottom, right, top) of what can be reached
    bin_option: str = BIN_OPTIONS[0]
    default_paper: str = ""
    default_bin: str = ""
    custom: Custom = None
    filters: list = dataclasses.field(default_factory=list)


def _numbers(value):
    return tuple(float(number) for number in NUMBER.findall(value))


def _unquoted(value):
    return value[1:-1] if value.startswith('"') and value.endswith('"') and len(value) > 1 else value.strip('"')


def _decoded(text, encoding):
    text = HEX.sub(lambda match: bytes.fromhex(re.sub(rb"\s", b"", match[1]).decode("ascii")), text)
    return text.decode(encoding, "replace").strip()


class _Reader:
    def __init__(self):
        self.found = Description()
        self.encoding = "latin-1"
        self.params = {}
        self.bins = {option.encode(): [] for option in BIN_OPTIONS}
        self.defaults = {}
        self.hw_margins = None
        self.is_custom = False

    def statement(self, keyword, option, wording, value):
        option = option.decode("latin-1").strip()
        text = _unquoted(value.strip().decode("latin-1"))
        if keyword == b"LanguageEncoding":
            self.encoding = ENCODINGS.get(value.strip(), "latin-1")
        elif option and (keyword == b"PageSize" or keyword in self.bins):
            choices = self.found.papers if keyword == b"PageSize" else self.bins[keyword]
            if all(choice.keyword != option for choice in choices):
                choices.append(Choice(option, _decoded(wording, self.encoding) if wording else option))
        elif keyword == b"PaperDimension":
            self._set(self.found.sizes, option, _numbers(text), 2)
        elif keyword == b"ImageableArea":
            self._set(self.found.areas, option, _numbers(text), 4)
        elif keyword.startswith(b"Default"):
            self.defaults.setdefault(keyword[len("Default"):].decode("latin-1"), text.strip())
        elif keyword == b"CustomPageSize" and option == "True":
            self.is_custom = True
        elif keyword == b"ParamCustomPageSize":
            self._param(option, text)
        elif keyword == b"HWMargins":
            self.hw_margins = self.hw_margins or _numbers(text)
        elif keyword in (b"cupsFilter", b"cupsFilter2"):
            self.found.filters.append(text)

    @staticmethod
    def _set(table, option, numbers, count):
        if len(numbers) >= count:
            table.setdefault(option, numbers[:count])

    def _param(self, option, text):
        words = text.split()
        if len(words) >= 4 and option not in self.params:
            self.params[option] = (float(words[2]), float(words[3]))

    def finish(self):
        self.found.bin_option = next((option for option in BIN_OPTIONS if self.bins[option.encode()]), BIN_OPTIONS[0])
        self.found.bins = self.bins[self.found.bin_option.encode()]
        self.found.default_paper = self.defaults.get("PageSize", "")
        self.found.default_bin = self.defaults.get(self.found.bin_option, "")
        if self.is_custom and "Width" in self.params and "Height" in self.params:
            margins = self.hw_margins if self.hw_margins and len(self.hw_margins) == 4 else None
            self.found.custom = Custom(self.params["Width"], self.params["Height"], margins)
        return self.found


def read(data):
    reader = _Reader()
    data = data.replace(b"\r\n", b"\n").replace(b"\r", b"\n")
    for match in STATEMENT.finditer(data):
        if match[1] is not None:
            reader.statement(match[1], match[2], match[3], match[4])
    return reader.finish()
