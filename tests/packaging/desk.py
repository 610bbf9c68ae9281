"""A desk with a screen that nobody sees and a keyboard: windows are found, and keys are pressed, as in any X session."""
import os
import pathlib
import re
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).parent.with_name("windows")))
from show import Screen  # noqa: E402

PATIENCE = 300  # seconds
WIDTH, HEIGHT = 1100, 800


class Desk(Screen):
    """Programs of the class are the ones that are worked. Pictures go to a folder, if there is one."""

    def __init__(self, window_class, pictures=None):
        super().__init__(WIDTH, HEIGHT)
        self.window_class = window_class
        self.pictures = pictures
        self.known = []
        self.count = 0

    def tell(self, *words):
        return subprocess.run(["xdotool", *words], env={**os.environ, "DISPLAY": self.display}, check=False,
                              capture_output=True, text=True).stdout

    def windows(self):
        return self.tell("search", "--onlyvisible", "--class", self.window_class).split()

    def wait(self, holds, what):
        end = time.monotonic() + PATIENCE
        while not holds():
            if time.monotonic() > end:
                self.picture_of("lost")
                raise TimeoutError(what)
            time.sleep(0.05)

    def wait_for_window(self, name):
        """The next window that comes up takes the keys; its title."""
        self.wait(lambda: len(self.windows()) > len(self.known), f"{name} does not come")
        window, = set(self.windows()) - set(self.known)
        self.known.append(window)
        self.tell("windowfocus", "--sync", window)
        self.wait(lambda: self.tell("getwindowfocus").strip() == window, f"{name} does not take the keyboard")
        self.picture_of(name)
        return self.tell("getwindowname", window).strip()

    def wait_for_close(self, windows=1):
        """The last windows that came up are gone, and the one below takes the keys."""
        left = len(self.known) - windows
        self.wait(lambda: len(self.windows()) <= left, "a window stays")
        del self.known[left:]
        if self.known:
            self.tell("windowfocus", "--sync", self.known[-1])

    def press(self, *keys):
        for key in keys:
            self.tell("key", key)

    def size(self):
        """Of the window that takes the keys."""
        return re.search(r"Geometry: (\S+)", self.tell("getwindowgeometry", self.known[-1]))[1]

    def type(self, text):
        self.tell("type", text)

    def picture_of(self, name):
        if self.pictures:
            self.count += 1
            self.picture((0, 0, WIDTH, HEIGHT), self.pictures / f"{self.count}-{name}.png")
