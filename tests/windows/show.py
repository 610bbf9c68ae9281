#!/usr/bin/env python3
"""Starts the Windows program under Wine in a Windows of the user's own.

    show.py --build FOLDER --settings FILE.reg --out FOLDER [--tour FILE.scenario] [--dpi 192] [--contrast]

On a display the program is there to be used. Without one it plays a demonstration on a screen that nobody sees: a picture of
each window, and the three documents as PDF, are left in the folder.
"""
import argparse
import contextlib
import os
import pathlib
import shutil
import struct
import subprocess
import tempfile
import time

from agent import Agent, Registry
from control_ids import Ids
from messages import SC_KEYMENU, VK_DOWN, WM_CANCELMODE, WM_KEYDOWN, WM_SYSCOMMAND
from player import Player
from print_server import Paper, PrintServer, Slot, driver
from script import Unplayable
from watcher import SETTINGS, no_look
from wine_prefix import LOADER, WinePrefix, user_prefix

TOUR = pathlib.Path(__file__).parents[1] / "stories" / "pictures" / "tour.scenario"
# A printer that is right for the forms: their sheet is known, and reached to 4.2 mm from its edges.
OFFICE = driver([Paper("Acceptgiro", "Acceptgiro 210 x 304,8 mm", 595, 864), Paper("A4", "A4", 595, 842)],
                [Slot("Upper", "Lade boven", 0), Slot("Manual", "Handinvoer", 3)], edges=(12, 12, 12, 12))
POINTS = 8  # of the font of windows
PAUSE, PATIENCE = 0.3, 10  # seconds between two pictures of a window, and how often it is tried


class Screen:
    """An X display of our own, which nobody sees. Its pointer leaves no dots, and it does not begin anew when its last client has
    gone: one that comes in that moment would be sent away."""

    def __init__(self, width, height):
        self.corner = width - 1, height - 1
        self.folder = tempfile.TemporaryDirectory(prefix="screen-")
        number, self.ready = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(self.ready), "-screen", "0", f"{width}x{height}x24",
                                        "-fbdir", self.folder.name, "-nocursor", "-noreset", "-nolisten", "tcp"],
                                       pass_fds=[self.ready], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(self.ready)
        with os.fdopen(number) as answer:
            self.display = ":" + answer.readline().strip()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()
        self.folder.cleanup()

    def dots(self):
        """Width, height, bytes to a line, and the lines as they are on show: blue, green, red and nothing for each dot."""
        memory = pathlib.Path(self.folder.name, "Xvfb_screen0").read_bytes()  # an X window dump
        header = struct.unpack(">20I", memory[:80])
        bytes_of_a_colour = 12
        return header[4], header[5], header[12], memory[header[0] + header[19] * bytes_of_a_colour:]

    def picture(self, area, file):
        """Saves a part of the screen as soon as nothing more is drawn there: left, top, width, height in dots."""
        left, top, width, height = area
        before = None
        for _ in range(PATIENCE):
            made = subprocess.run(["import", "-display", self.display, "-window", "root", "-crop",
                                   f"{width}x{height}+{left}+{top}", "+repage", "-define", "png:exclude-chunks=date,time",
                                   "png:-"], check=True, capture_output=True).stdout
            if made == before:
                break
            before = made
            time.sleep(PAUSE)
        file.write_bytes(made)


def as_pdf(document, file):
    with tempfile.NamedTemporaryFile(suffix=".ps") as source:
        source.write(document)
        source.flush()
        subprocess.run(["ps2pdf", source.name, str(file)], check=True)


class Photographer(Player):
    """Leaves pictures and documents in a folder."""

    def __init__(self, agent, command_line, ids, screen, server, out):
        super().__init__(agent, Registry(agent), command_line, ids)
        self.screen, self.server, self.out = screen, server, out

    def do_start(self):
        super().do_start()
        # Where it rests on nothing that has a tip. Before there is a window, Wine may leave it in the middle.
        self.agent.ask("pointer", *self.screen.corner)

    def take(self, handle, name):
        self.screen.picture(self.area(handle), self.out / f"{name}.png")

    def do_picture(self, form, name, menu=None):
        if menu not in {None, "menu"}:
            raise Unplayable(f"a picture is of a form, or of its menu: {menu}")
        handle = self.form(form).handle
        if menu:
            self.agent.ask("post", handle, WM_SYSCOMMAND, SC_KEYMENU, 0)
            self.agent.ask("post", handle, WM_KEYDOWN, VK_DOWN, 0)
        self.take(handle, name)
        if menu:
            self.agent.ask("post", handle, WM_CANCELMODE, 0, 0)

    def do_picture_next(self, name):
        def take_once(handle):
            self.on_box = no_look
            self.take(handle, name)

        self.on_box = take_once

    def do_document(self, name):
        as_pdf(self.server.next_job().document, self.out / f"{name}.pdf")


def demonstrate(prefix, build, out, tour, dpi):
    shutil.rmtree(out, ignore_errors=True)
    out.mkdir(parents=True)
    with contextlib.ExitStack() as ends:
        server = ends.enter_context(PrintServer(ppd=OFFICE))
        screen = ends.enter_context(Screen(1280 * dpi // 96, 1024 * dpi // 96))
        prefix.settings.update(server.settings)
        prefix.use_dejavu(POINTS)
        prefix.use_screen(screen.display, dpi)
        agent = Agent(prefix.command(), build / "bin" / "win_agent.exe")
        ends.callback(agent.close)
        program = prefix.windows_path(build / "bin" / "drukkeuring.exe")
        player = Photographer(agent, program, Ids.of(prefix, build), screen, server, out)
        player.play(tour.read_text(encoding="utf-8").splitlines(), finish=False)
    print("\n".join(sorted(file.name for file in out.iterdir())))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=pathlib.Path, required=True)
    parser.add_argument("--settings", type=pathlib.Path, required=True)
    parser.add_argument("--out", type=pathlib.Path, required=True)
    parser.add_argument("--tour", type=pathlib.Path, default=TOUR)
    parser.add_argument("--dpi", type=int, default=96)
    parser.add_argument("--contrast", action="store_true", help="in a theme of high contrast")
    arguments = parser.parse_args()
    display = os.environ.get("DISPLAY")
    if not display:
        with WinePrefix.for_test(arguments.build) as prefix:
            prefix.import_settings(arguments.settings)
            if arguments.contrast:
                prefix.use_high_contrast()
            demonstrate(prefix, arguments.build, arguments.out, arguments.tour, arguments.dpi)
        return
    prefix = user_prefix(arguments.build)
    prefix.use_screen(display)
    if prefix.run("reg", "query", "HKCU\\" + SETTINGS, check=False).returncode != 0:
        prefix.import_settings(arguments.settings)
        print("No settings of Tarvik found: those of an example are in this Windows now. Yours, as exported on Windows, come in by\n"
              f"  WINEPREFIX={prefix.folder} {LOADER} reg import tarvik.reg")
    os.execve(LOADER, [str(LOADER), str(arguments.build / "bin" / "drukkeuring.exe")], prefix.environment())


if __name__ == "__main__":
    main()
