"""A Windows of the test's own: a Wine prefix that knows nothing of the user's and shows no window.

One prefix is made in the build folder and copied for each test by hard links, which takes no time. Without a screen
windows and printing work all the same; use_screen() gives one to look at.
"""
import contextlib
import fcntl
import os
import pathlib
import shutil
import signal
import struct
import subprocess
import sys
import tempfile

LOADER = pathlib.Path("/usr/lib/wine/wine64")  # itself: the script around it starts other things as well
SERVER = pathlib.Path("/usr/lib/wine/wineserver64")
FONTS = pathlib.Path("/usr/share/wine/fonts")
OCR_FONT = pathlib.Path("/usr/share/fonts/opentype/ocr-b/OCRB.otf")
# By the package's name, and by the one that stories and tests have with a hyphen.
OCR_FAMILIES = {"ocr_b.ttf": "OCR B", "ocr-b.ttf": "OCR-B"}
DEJAVU = pathlib.Path("/usr/share/fonts/truetype/dejavu")
LOCALE_SOURCES = pathlib.Path("/usr/share/i18n/locales")

SKIPPED = 77  # exit status of a test that cannot be made here
START_PATIENCE, END_PATIENCE = 300, 60  # seconds for one program, and for all of them to be gone

SETTINGS = r"""Windows Registry Editor Version 5.00

[HKEY_CURRENT_USER\Software\Wine\Drivers]
"Graphics"="null"

[HKEY_CURRENT_USER\Software\Wine\WineDbg]
"ShowCrashDialog"=dword:00000000
"""

SCREEN = r"""Windows Registry Editor Version 5.00

[HKEY_CURRENT_USER\Control Panel\Desktop]
"LogPixels"=dword:{dpi:08x}

[HKEY_CURRENT_USER\Software\Wine\Drivers]
"Graphics"="x11"

[HKEY_CURRENT_USER\Software\Wine\X11 Driver]
"Managed"="N"
"""

# A LOGFONTW: the height of its characters in dots, its weight, and its name.
LOG_FONT, NORMAL, NAME_LENGTH = "<iiiii8x64s", 400, 32

# What Control Panel has for each colour of the system under a theme of high contrast.
BLACK, WHITE, YELLOW, GREEN, CYAN = "0 0 0", "255 255 255", "255 255 0", "0 192 0", "0 255 255"
HIGH_CONTRAST = {
    "ActiveBorder": WHITE, "ActiveTitle": BLACK, "AppWorkSpace": BLACK, "Background": BLACK, "ButtonAlternateFace": BLACK,
    "ButtonDkShadow": WHITE, "ButtonFace": BLACK, "ButtonHilight": WHITE, "ButtonLight": WHITE, "ButtonShadow": WHITE,
    "ButtonText": YELLOW, "GradientActiveTitle": BLACK, "GradientInactiveTitle": BLACK, "GrayText": GREEN,
    "Hilight": CYAN, "HilightText": BLACK, "HotTrackingColor": CYAN, "InactiveBorder": WHITE, "InactiveTitle": BLACK,
    "InactiveTitleText": WHITE, "InfoText": WHITE, "InfoWindow": BLACK, "Menu": BLACK, "MenuBar": BLACK,
    "MenuHilight": CYAN, "MenuText": YELLOW, "Scrollbar": BLACK, "TitleText": WHITE, "Window": BLACK,
    "WindowFrame": WHITE, "WindowText": WHITE,
}


def skip(reason):
    print(f"skipped: {reason}")
    sys.exit(SKIPPED)


class WinePrefix:
    """Programs run in it, each with the same settings of the machine. Close it, or use it with `with`."""

    def __init__(self, folder, locale="nl_NL"):
        self.folder = pathlib.Path(folder)
        self.locale = locale
        self.settings = {}
        """More variables for the programs that are run, such as CUPS_SERVER."""

    @classmethod
    def for_test(cls, build, locale="nl_NL"):
        """A prefix that is thrown away at its end; the test ends as skipped where there is no Wine."""
        base = base_prefix(pathlib.Path(build))
        folder = pathlib.Path(tempfile.mkdtemp(prefix="wine-", dir=base.parent))
        prefix = cls(folder / "prefix", locale)
        copy_prefix(base, prefix.folder)
        return prefix

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        """Ends whatever still runs in the prefix and takes it away. Nothing of it is to be kept, so nothing is written first."""
        self.stop("-k9")
        self._end_sleepers()
        shutil.rmtree(self.folder.parent, ignore_errors=True)

    def stop(self, how="-k"):
        environment = self.environment()
        subprocess.run([str(SERVER), how], env=environment, check=False, capture_output=True)
        with contextlib.suppress(subprocess.TimeoutExpired):
            subprocess.run([str(SERVER), "-w"], env=environment, check=False, capture_output=True, timeout=END_PATIENCE)

    def _end_sleepers(self):
        """Kills what sleeps on when its server has been killed: some six processes of Wine's own."""
        mark = f"WINEPREFIX={self.folder}\0".encode()
        for environment in pathlib.Path("/proc").glob("[0-9]*/environ"):
            with contextlib.suppress(OSError):  # one that has ended, or is not ours
                if mark in environment.read_bytes():
                    os.kill(int(environment.parent.name), signal.SIGKILL)

    def environment(self):
        kept = {name: value for name, value in os.environ.items()
                if name not in ("DISPLAY", "WAYLAND_DISPLAY", "LANG", "LANGUAGE") and not name.startswith("LC_")}
        return {**kept,
                "WINEPREFIX": str(self.folder),
                "WINEDEBUG": os.environ.get("WINEDEBUG", "-all"),
                "WINEDLLOVERRIDES": "mscoree,mshtml=;winemenubuilder.exe=d",
                "CUPS_SERVER": str(self.folder / "no-print-server"),
                "LOCPATH": str(self.folder.parent.parent / "locales"),
                "LC_ALL": f"{self.locale}.UTF-8",
                **self.settings}

    def command(self):
        """What stands before a Windows program to run it here, for a caller that starts processes itself."""
        own = {name: value for name, value in self.environment().items() if os.environ.get(name) != value}
        dropped = [word for name in os.environ if name not in self.environment() for word in ("-u", name)]
        return ["env", *dropped, *(f"{name}={value}" for name, value in own.items()), str(LOADER)]

    def run(self, program, *arguments, timeout=START_PATIENCE, check=True):
        """Runs a program to its end; its output as text. subprocess.TimeoutExpired if it takes longer.

        The output goes through a file: the desktop that the first program starts inherits it, and would keep a pipe
        open for as long as it lives.
        """
        words = [str(LOADER), str(program), *map(str, arguments)]
        with tempfile.TemporaryFile() as output:
            try:
                done = subprocess.run(words, env=self.environment(), check=False, timeout=timeout,
                                      stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.STDOUT)
            except subprocess.TimeoutExpired:
                self.stop()
                raise
            output.seek(0)
            text = output.read().decode("utf-8", "replace").replace("\r\n", "\n")
        if check and done.returncode != 0:
            raise subprocess.CalledProcessError(done.returncode, words, text)
        return subprocess.CompletedProcess(words, done.returncode, text)

    def windows_path(self, path):
        """The path as programs in the prefix name it: the whole machine is their drive Z:."""
        return "Z:" + str(pathlib.Path(path).resolve()).replace("/", "\\")

    def import_settings(self, reg_file):
        self.run("reg", "import", self.windows_path(reg_file))

    def use_high_contrast(self):
        """The colours of a desktop for users who see badly: yellow and white upon black, without the theme's pictures."""
        rows = [f'"{name}"="{colour}"' for name, colour in HIGH_CONTRAST.items()]
        file = self.folder / "contrast.reg"
        file.write_text("\n".join([
            "Windows Registry Editor Version 5.00", "", r"[HKEY_CURRENT_USER\Control Panel\Colors]", *rows, "",
            r"[HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\ThemeManager]", '"ThemeActive"="0"', ""]),
            encoding="utf-16")
        self.import_settings(file)
        self.stop()

    def use_dejavu(self, points):
        """The font of windows is one whose bold letters are bold at every size, as a user of Windows sees them: those of Wine's
        own have the outlines of the others."""
        for file in DEJAVU.glob("DejaVuSans*.ttf"):
            (self.folder / "drive_c" / "windows" / "Fonts" / file.name).symlink_to(file)
        name = "DejaVu Sans".encode("utf-16-le").ljust(2 * NAME_LENGTH, b"\0")
        font = struct.pack(LOG_FONT, -round(points * 96 / 72), 0, 0, 0, NORMAL, name)
        file = self.folder / "font.reg"
        file.write_text("\n".join([
            "Windows Registry Editor Version 5.00", "", r"[HKEY_CURRENT_USER\Control Panel\Desktop\WindowMetrics]",
            f'"MessageFont"=hex:{font.hex(",")}', ""]), encoding="utf-16")
        self.import_settings(file)

    def use_screen(self, display, dpi=96):
        """Windows appear on this X display from now on, with so many dots to the inch; 96 is 100 %."""
        file = self.folder / "screen.reg"
        file.write_text(SCREEN.format(dpi=dpi), encoding="utf-16")
        self.import_settings(file)
        self.stop()  # the desktop that runs without a screen
        self.settings["DISPLAY"] = display


def user_prefix(build):
    """The user's own, with the machine's print server; it stays."""
    base = base_prefix(pathlib.Path(build))
    home = pathlib.Path(os.environ.get("XDG_DATA_HOME", pathlib.Path.home() / ".local" / "share"))
    prefix = WinePrefix(home / "drukkeuring" / "windows")
    prefix.settings["LOCPATH"] = str(base.parent / "locales")
    prefix.settings["CUPS_SERVER"] = os.environ.get("CUPS_SERVER", "/run/cups/cups.sock")
    if not prefix.folder.exists():
        prefix.folder.parent.mkdir(parents=True, exist_ok=True)
        shutil.copytree(base, prefix.folder, symlinks=True)
    return prefix


def base_prefix(build):
    """The prefix that all others are copied from, made if it is not there yet."""
    if not LOADER.exists() or not SERVER.exists():
        skip("Wine is not installed")
    folder = build.resolve() / "wine"
    folder.mkdir(parents=True, exist_ok=True)
    with open(folder / "lock", "w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)  # tests run side by side
        if not is_whole(folder / "base"):
            shutil.rmtree(folder / "base", ignore_errors=True)
            shutil.rmtree(folder / "unfinished", ignore_errors=True)
            make_locales(folder / "locales")
            make_prefix(folder / "unfinished" / "prefix")
            (folder / "unfinished" / "prefix").rename(folder / "base")
            (folder / "unfinished").rmdir()
    return folder / "base"


def make_locales(folder):
    """Dutch settings, and Polish ones for a machine whose code page is another. Without them it is English."""
    folder.mkdir(exist_ok=True)
    for name in ("nl_NL", "pl_PL"):
        if shutil.which("localedef") and (LOCALE_SOURCES / name).exists():
            subprocess.run(["localedef", "-i", name, "-f", "UTF-8", str(folder / f"{name}.UTF-8")], check=False,
                           capture_output=True)


def fonts_of(prefix):
    return prefix / "drive_c" / "windows" / "Fonts"


def is_whole(prefix):
    """The OCR fonts are the last that a prefix gets, and one of an older test has fewer."""
    return all((fonts_of(prefix) / file).exists() for file in OCR_FAMILIES)


def make_prefix(folder):
    folder.mkdir(parents=True)
    prefix = WinePrefix(folder)
    prefix.run("wineboot", "-i")
    fonts = fonts_of(folder)
    fonts.mkdir(parents=True, exist_ok=True)
    for file in FONTS.glob("*.ttf"):
        if not (fonts / file.name).exists():
            (fonts / file.name).symlink_to(file)
    for file, family in OCR_FAMILIES.items():
        make_ocr_font(fonts / file, family)
    settings = folder / "settings.reg"
    settings.write_text(SETTINGS, encoding="utf-16")
    prefix.import_settings(settings)
    prefix.stop()


def make_ocr_font(target, family):
    if not OCR_FONT.exists():
        skip("the OCR-B font is not installed")
    maker = pathlib.Path(__file__).parents[1] / "print" / "windows" / "ttf_font.py"
    for python in (sys.executable, "/usr/bin/python3"):  # the packaged library belongs to the packaged Python
        if subprocess.run([python, str(maker), str(OCR_FONT), str(target), family], check=False,
                          capture_output=True).returncode == 0:
            return
    skip("the OCR-B font cannot be converted (fontTools)")


def copy_prefix(base, target):
    """By hard links, but for the settings, which each copy writes for itself."""
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copytree(base, target, symlinks=True,
                    copy_function=lambda source, copy: shutil.copy2(source, copy) if source.endswith(".reg")
                    else os.link(source, copy, follow_symlinks=False))
