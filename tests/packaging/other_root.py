"""Another distribution, as far as this machine can be one: a root in which all libraries stand in /lib64, the toolkit's plugins in a
folder of their own, and nothing of Debian: no folders by architecture, no fonts, no packages.
"""
import os
import pathlib
import re
import shutil
import subprocess

from clean_root import USER, Root
from debian_package import need, skip

USER_ID = 1000
TOOLS = ("sh", "env", "dirname", "readlink", "cp", "mkdir")
PLUGINS = ("platforms/libqxcb.so", "imageformats/libqsvg.so", "iconengines/libqsvgicon.so")
PLUGIN_FOLDER = "/lib64/qt6-plugins"
NO_FONTS = """<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig><dir>/usr/share/fonts</dir><cachedir>/tmp/fontconfig</cachedir></fontconfig>
"""


def plugin_folder():
    found = subprocess.run(["qmake6", "-query", "QT_INSTALL_PLUGINS"], check=True, capture_output=True, text=True)
    return pathlib.Path(found.stdout.strip())


def libraries(files):
    """All that these files load, as the loader of this machine finds it, and the loader."""
    told = subprocess.run(["ldd", *map(str, files)], check=True, capture_output=True, text=True).stdout
    if missing := re.findall(r"(\S+) => not found", told):
        skip(f"these libraries are not installed: {missing}")
    return {pathlib.Path(path) for path in re.findall(r"(/\S+) \(0x", told)}


class OtherRoot(Root):
    def __init__(self, folder, programs):
        """`programs` are those whose libraries the root has."""
        super().__init__(folder)
        need("qmake6", "ldd", "ldconfig")
        plugins = plugin_folder()
        for name in ("lib64", "bin", "etc/fonts", "tmp", f"home/{USER}", "run/user-anna", "usr/share/fonts"):
            (self.folder / name).mkdir(parents=True)
        tools = [pathlib.Path(shutil.which(tool)).resolve() for tool in TOOLS]
        for tool, file in zip(TOOLS, tools):
            shutil.copy(file, self.folder / "bin" / tool)
        for plugin in PLUGINS:
            target = self.folder / PLUGIN_FOLDER[1:] / plugin
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(plugins / plugin, target)
        for library in libraries([*programs, *tools, *(plugins / plugin for plugin in PLUGINS)]):
            shutil.copy(library, self.folder / "lib64")
        (self.folder / "etc/ld.so.conf").write_text("/lib64\n", encoding="ascii")
        (self.folder / "etc/passwd").write_text(f"{USER}:x:{USER_ID}:{USER_ID}::/home/{USER}:/bin/sh\n", encoding="ascii")
        (self.folder / "etc/nsswitch.conf").write_text("passwd: files\n", encoding="ascii")
        (self.folder / "etc/fonts/fonts.conf").write_text(NO_FONTS, encoding="ascii")
        self.note_what_is_opened()
        (self.folder / "tmp").chmod(0o1777)
        for name in (f"home/{USER}", "run/user-anna"):
            os.chown(self.folder / name, USER_ID, USER_ID)
            (self.folder / name).chmod(0o700)
        subprocess.run(["ldconfig", "-r", str(self.folder)], check=True)

    def environment(self, user=None, **variables):
        return super().environment(user, QT_PLUGIN_PATH=PLUGIN_FOLDER, **variables)
