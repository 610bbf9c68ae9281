#!/usr/bin/env python3
"""The running program as a screen reader of the Linux desktop meets it: over the bus of AT-SPI, with a screen that nobody sees.

    atspi.py PROGRAM

Exit status 77 where the bus, its tools or a screen without eyes (Xvfb) is missing.
"""
import ast
import os
import pathlib
import re
import subprocess
import shutil
import sys
import tempfile
import time

SKIPPED = 77
PATIENCE = 300  # seconds
BUS_LAUNCHER = pathlib.Path("/usr/libexec/at-spi-bus-launcher")
REGISTRY = ("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
LABELLED_BY = 2

# Role and name of what has to be there, among others, on the wizard's first page.
EXPECTED = [
    ("frame", "Ondor Drukkeuring 3.0"), ("panel", "Incassant en instellingen"),
    ("label", "Drukkeuring IBAN-acceptgiroformulieren"), ("label", "IBAN:"), ("text", "Incassant"), ("text", "Adres"),
    ("text", "Postcode"), ("text", "Woonplaats"), ("text", "IBAN"), ("push button", "< Terug"),
    ("push button", "Volgende >"), ("push button", "Sluiten"),
]


def value_of(text):
    """The first value of an answer such as "(<'text'>,)" or "(uint32 7,)"."""
    found = re.match(r"\(<?((?:'(?:[^'\\]|\\.)*')|(?:\"(?:[^\"\\]|\\.)*\"))>?,\)", text)
    return ast.literal_eval(found[1]) if found else text


class Bus:
    """The bus of assistive technology."""

    def __init__(self):
        address = self.call(["--session"], ("org.a11y.Bus", "/org/a11y/bus"), "org.a11y.Bus.GetAddress")
        self.where = ["--address", value_of(address)]

    @staticmethod
    def call(where, place, method, *arguments):
        return subprocess.run(["gdbus", "call", *where, "--dest", place[0], "--object-path", place[1], "--method", method,
                               *arguments], check=True, capture_output=True, text=True, timeout=PATIENCE).stdout.strip()

    def ask(self, place, method, *arguments):
        return self.call(self.where, place, method, *arguments)

    def children(self, place):
        answer = self.ask(place, "org.a11y.atspi.Accessible.GetChildren")
        return re.findall(r"\('([^']+)', (?:objectpath )?'([^']+)'\)", answer)

    def name(self, place):
        return value_of(self.ask(place, "org.freedesktop.DBus.Properties.Get", "org.a11y.atspi.Accessible", "Name"))

    def role(self, place):
        return value_of(self.ask(place, "org.a11y.atspi.Accessible.GetRoleName"))

    def labels(self, place):
        """Names of the objects by which one is labelled."""
        answer = self.ask(place, "org.a11y.atspi.Accessible.GetRelationSet")
        found = re.search(rf"\((?:uint32 )?{LABELLED_BY}, \[(.*?)\]\)", answer)
        return [self.name(label) for label in re.findall(r"\('([^']+)', (?:objectpath )?'([^']+)'\)", found[1])] if found else []


class Failures:
    def __init__(self):
        self.count = 0

    def check(self, holds, what):
        print("ok" if holds else "FAILED", what)
        self.count += not holds


def window_of(bus, running):
    """The program's window, once it is there."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end and running.poll() is None:
        for program in bus.children(REGISTRY):
            for window in bus.children(program):
                return window
        time.sleep(0.1)
    raise RuntimeError("no window comes to the bus")


def tree(bus, place):
    """Place, role and name of an object and of all that it holds, also on the pages that do not show."""
    yield place, bus.role(place), bus.name(place)
    for child in bus.children(place):
        yield from tree(bus, child)


def look(program):
    bus = Bus()
    failures = Failures()
    running = subprocess.Popen([program])
    try:
        found = list(tree(bus, window_of(bus, running)))
        labels = [bus.labels(place) for place, role, name in found if (role, name) == ("text", "IBAN")]
    finally:
        running.terminate()
        running.wait(PATIENCE)
    failures.check(len(found) > len(EXPECTED), f"{len(found)} objects, the first of them {found[0][1:]}")
    for role, name in EXPECTED:
        failures.check((role, name) in [(each, called) for _, each, called in found], f"{role} {name}")
    failures.check(labels == [["IBAN:"]], f"the account is labelled {labels}")
    failures.check(not [name for _, _, name in found if re.match(r"pict|line|lbl|Wizard", name)],
                   "nothing is called as the program calls it")
    return failures.count


def on_a_screen(program):
    """The same within a session, a screen and a home of its own."""
    with tempfile.TemporaryDirectory() as home:
        reading, writing = os.pipe()
        screen = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-noreset", "-screen", "0", "1280x1024x24"],
                                  pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as told:
            display = told.readline().strip()
        settings = {**os.environ, "DISPLAY": f":{display}", "QT_QPA_PLATFORM": "xcb", "HOME": home, "XDG_RUNTIME_DIR": home,
                    "XDG_CACHE_HOME": home, "XDG_CONFIG_HOME": home, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
                    "ASAN_OPTIONS": "detect_leaks=0"}  # of the libraries of the screen
        try:
            return subprocess.run(["dbus-run-session", "--", sys.executable, __file__, "--inside", program], env=settings,
                                  check=False).returncode
        finally:
            screen.terminate()
            screen.wait()


def main():
    if sys.argv[1] == "--inside":
        return 1 if look(sys.argv[2]) else 0
    missing = [tool for tool in ("dbus-run-session", "gdbus", "Xvfb") if not shutil.which(tool)]
    if missing or not BUS_LAUNCHER.exists():
        print(f"skipped: {missing or BUS_LAUNCHER} is not installed")
        return SKIPPED
    return on_a_screen(sys.argv[1])


if __name__ == "__main__":
    sys.exit(main())
