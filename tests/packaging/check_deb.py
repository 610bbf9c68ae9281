#!/usr/bin/env python3
"""Makes the Debian package and looks into it: its files and their rights, what it depends on, and what lintian, the desktop's
validators and man say about it.

    check_deb.py --build FOLDER --source FOLDER

--build is the build folder of the release. Exit status 77 where a tool is missing.
"""
import argparse
import gzip
import os
import pathlib
import re
import struct
import subprocess
import sys
import tarfile
import tempfile

from debian_package import field, make, need

ICON_SIZES = (16, 22, 24, 32, 48, 64, 128, 256)
ICONS = "usr/share/icons/hicolor"
DOC = "usr/share/doc/drukkeuring"
DESKTOP = "usr/share/applications/drukkeuring.desktop"
METAINFO = "usr/share/metainfo/nl.ondor.drukkeuring.metainfo.xml"
PROGRAMS = ("drukkeuring", "drukkeuring-voorcontrole")
SCRIPTS = ("drukkeuring-handleiding",)  # their manual is the program's
EXECUTABLES = {f"usr/bin/{name}" for name in (*PROGRAMS, *SCRIPTS)}
MANUALS = [f"usr/share/man/{language}man1/{name}.1.gz" for language in ("", "nl/") for name in PROGRAMS]
MANUAL_LINKS = {f"usr/share/man/{language}man1/{name}.1.gz" for language in ("", "nl/") for name in SCRIPTS}
HANDBOOK = f"{DOC}/handleiding"
FILES = {
    *EXECUTABLES, DESKTOP, METAINFO, *MANUALS, *MANUAL_LINKS, f"{ICONS}/scalable/apps/drukkeuring.svg",
    *(f"{ICONS}/{size}x{size}/apps/drukkeuring.png" for size in ICON_SIZES), "usr/share/doc-base/drukkeuring",
    f"{DOC}/changelog.gz", f"{DOC}/copyright", f"{DOC}/examples/tarvik.reg", f"{HANDBOOK}/handleiding.css",
}
# Beside the libraries, which dpkg-shlibdeps finds.
DEPENDS = {"fonts-wine", "fonts-ocr-b", "fonts-dejavu-core", "qt6-translations-l10n"}
LIBRARIES = {"libc6", "libcups2", "libfreetype6", "libqt6core6", "libqt6gui6", "libqt6svg6", "libqt6widgets6",
             "libstdc++6"}
RECOMMENDS = {"cups", "qt6-gtk-platformtheme", "qt6-wayland", "qt6-xdgdesktopportal-platformtheme", "xdg-utils"}
RUN_AS_ROOT = {"preinst", "postinst", "prerm", "postrm", "config"}


def entries(package):
    data = subprocess.run(["dpkg-deb", "--fsys-tarfile", str(package)], check=True, stdout=subprocess.PIPE).stdout
    with tempfile.TemporaryFile() as file:
        file.write(data)
        file.seek(0)
        with tarfile.open(fileobj=file) as archive:
            yield from ((entry, entry.name.removeprefix("./")) for entry in archive)


def file_errors(package):
    found = set()
    for entry, name in entries(package):
        if (entry.uid, entry.gid) != (0, 0):
            yield f"{name} is not root's"
        mode = 0o755 if entry.isdir() or name in EXECUTABLES else 0o644
        if entry.mode != mode and name not in MANUAL_LINKS:
            yield f"{name} has mode {entry.mode:o}"
        if not entry.isdir():
            found.add(name)
            if name in MANUAL_LINKS:
                if entry.linkname != "drukkeuring.1.gz":
                    yield f"{name} leads to {entry.linkname}"
            elif not entry.isfile() or entry.size == 0:
                yield f"{name} is no file with something in it"
    pages = {name for name in found if re.fullmatch(rf"{HANDBOOK}/(index\.html|sections/[\w-]+\.html|images/[\w/-]+\.(?:png|svg))", name)}
    if len(pages) < 30:
        yield f"the handbook has {len(pages)} files"
    for name in sorted((found ^ FILES) - pages):
        yield f"{name} is {'not known' if name in found else 'missing'}"


def path_errors(root, folders):
    """Nothing of the machine that made the package stands in it."""
    for name in FILES - MANUAL_LINKS:
        text = (root / name).read_bytes()
        text = gzip.decompress(text) if name.endswith(".gz") else text
        for folder in folders:
            if os.fsencode(folder) in text:
                yield f"{name} names {folder}"


def program_errors(program):
    def told(*command):
        return subprocess.run([*command, str(program)], check=True, capture_output=True, text=True).stdout

    if ".symtab" in told("readelf", "-SW"):
        yield "the program is not stripped"
    dynamic = told("readelf", "-dW")
    if "BIND_NOW" not in dynamic or "PIE" not in dynamic:
        yield "the program is not hardened"
    if re.search(r"R(UN)?PATH", dynamic):
        yield "the program looks for libraries in a folder of its own"
    if "GNU_RELRO" not in told("readelf", "-lW"):
        yield "the program's tables can be written"


def picture_errors(root):
    for size in ICON_SIZES:
        data = (root / f"{ICONS}/{size}x{size}/apps/drukkeuring.png").read_bytes()
        if struct.unpack_from(">II", data, 16) != (size, size):
            yield f"the icon of {size} has another size"


def description_errors(package, source):
    version = re.match(r"drukkeuring \((\S+)\)", (source / "packaging/debian/changelog").read_text("utf-8"))[1]
    if field(package, "Version") != version:
        yield f"the version is not {version}"
    depends = {word.split()[0] for word in field(package, "Depends").split(",")}
    for name in sorted((DEPENDS | LIBRARIES) - depends):
        yield f"{name} is not asked for"
    for name in sorted(depends - DEPENDS - LIBRARIES - {"libgcc-s1"}):
        yield f"{name} is asked for"
    if {word.strip() for word in field(package, "Recommends").split(",")} != RECOMMENDS:
        yield f"recommended are {field(package, 'Recommends')}"
    if not field(package, "Homepage").startswith("https://"):
        yield "there is no homepage"
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["dpkg-deb", "--control", str(package), folder], check=True)
        if scripts := RUN_AS_ROOT & set(os.listdir(folder)):
            yield f"the package runs {scripts} as root"


def sum_errors(package, root):
    sums = subprocess.run(["dpkg-deb", "--info", str(package), "md5sums"], check=True, capture_output=True, text=True).stdout
    files = {path for path in root.rglob("*") if path.is_file() and not path.is_symlink()}
    if {root / line.split()[1] for line in sums.splitlines()} != files:
        yield "there is not a sum for each file"
    done = subprocess.run(["md5sum", "--check", "--quiet"], cwd=root, input=sums, capture_output=True, text=True, check=False)
    if done.returncode:
        yield f"the sums are wrong: {done.stdout}"


def said(command, **settings):
    """What a validator has to say; nothing if it is content."""
    done = subprocess.run(command, capture_output=True, text=True, check=False,
                          env={**os.environ, "LC_ALL": "C.UTF-8", **settings})
    if done.returncode:
        yield f"{command[0]} {command[-1]}: {done.stdout}{done.stderr}"


def opener_errors(root):
    """What the entry of the menu runs is there, and what opens the handbook names it."""
    for line in (root / DESKTOP).read_text("utf-8").splitlines():
        if line.startswith("Exec=") and not (root / "usr/bin" / line.removeprefix("Exec=")).exists():
            yield f"{DESKTOP}: {line}"
    with tempfile.TemporaryDirectory() as folder:
        (pathlib.Path(folder) / "xdg-open").symlink_to("/bin/echo")
        opened = subprocess.run([str(root / "usr/bin/drukkeuring-handleiding")], capture_output=True, text=True, check=False,
                                env={"PATH": f"{folder}:{os.environ['PATH']}"})
    if opened.returncode or not os.path.samefile(opened.stdout.strip(), root / HANDBOOK / "index.html"):
        yield f"drukkeuring-handleiding opens {opened.stdout}{opened.stderr}"


def place_errors(root, source):
    """What the handbook says of the places of the package's files is true."""
    for place in re.findall(r"`/(usr/[^`]*)`", (source / "docs" / "handleiding.md").read_text("utf-8")):
        if not (root / place).exists():
            yield f"the handbook names /{place}, which the package has not"


def screenshot_errors(root, source):
    """Each is one of the pictures of the documents, which the homepage has below the same path."""
    home = re.search(r'<url type="homepage">(.*?)</url>', (root / METAINFO).read_text("utf-8"))[1]
    for picture in re.findall(r"<image[^>]*>(.*?)</image>", (root / METAINFO).read_text("utf-8")):
        if not picture.startswith(home) or not (source / "docs" / picture.removeprefix(home)).exists():
            yield f"{picture} is no picture of the documents"


def manual_errors(root):
    for manual in MANUALS:
        done = subprocess.run(["man", "--warnings", "-l", str(root / manual)], capture_output=True, text=True, check=False,
                              env={**os.environ, "LC_ALL": "C.UTF-8", "MANROFFSEQ": "", "MANWIDTH": "80"})
        if done.returncode or done.stderr or "settings.reg" not in done.stdout or not re.search(r"\b20\d\d-\d\d-\d\d\b", done.stdout):
            yield f"{manual}: {done.stderr or 'is not shown, or has no date'}"


def validator_errors(package, root):
    yield from said(["desktop-file-validate", str(root / DESKTOP)])
    yield from said(["appstreamcli", "validate", "--no-net", str(root / METAINFO)])
    yield from manual_errors(root)
    yield from said(["lintian", "--allow-root", "--pedantic", "--fail-on", "error,warning,pedantic",
                     "--tag-display-limit", "0", str(package)])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=pathlib.Path, required=True)
    parser.add_argument("--source", type=pathlib.Path, required=True)
    arguments = parser.parse_args()
    need("cpack", "dpkg-deb", "dpkg-shlibdeps", "readelf", "lintian", "desktop-file-validate", "appstreamcli", "man", "groff")
    source, build = arguments.source.resolve(), arguments.build.resolve()
    with tempfile.TemporaryDirectory() as folder:
        package = make(build, folder)
        found = list(file_errors(package))
        if not found:
            root = pathlib.Path(folder) / "root"
            subprocess.run(["dpkg-deb", "--extract", str(package), str(root)], check=True)
            found = [*path_errors(root, (source, build)), *(error for name in PROGRAMS for error in program_errors(root / "usr/bin" / name)),
                     *picture_errors(root), *opener_errors(root), *place_errors(root, source), *screenshot_errors(root, source),
                     *description_errors(package, source), *sum_errors(package, root),
                     *validator_errors(package, root)]
        print("\n".join(found) or f"{package.name}: {package.stat().st_size} bytes, all as it should be.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
