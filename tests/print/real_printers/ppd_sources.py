"""Every printer description (PPD) that the installed driver packages can give, whatever way they keep them: as files,
packed into one archive, as sources of the PPD compiler, or made on demand by the driver."""

import base64
import gzip
import importlib.machinery
import importlib.util
import lzma
import pathlib
import subprocess
import sys
import tempfile

DRIVERS = pathlib.Path("/usr/lib/cups/driver")
SOURCES = pathlib.Path("/usr/share/cups/drv")
FOLDERS = (pathlib.Path("/usr/share/ppd"), pathlib.Path("/usr/share/cups/model"), pathlib.Path("/usr/share/cups/ppd"))
ARCHIVE_MARK = b"ppds_compressed_b64"
MAKER_TOOL = "gutenprint.5.3"
AT_ONCE = 2  # processes that make descriptions on demand


def archives():
    """The drivers that are a program with an archive in it."""
    return [driver for driver in sorted(DRIVERS.glob("*")) if ARCHIVE_MARK in driver.read_bytes()]


def of_archive(driver):
    sys.dont_write_bytecode = True
    loader = importlib.machinery.SourceFileLoader("archive", str(driver))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("archive", loader))
    loader.exec_module(module)
    index = module.load()
    text = lzma.decompress(base64.b64decode(index.pop("ARCHIVE")))
    for name, (start, length, _models) in index.items():
        yield f"{driver.name}:{name}", text[start:start + length]


def of_compiler(source):
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["ppdc", "-d", folder, str(source)], check=False, capture_output=True)
        for file in sorted(pathlib.Path(folder).iterdir()):
            yield f"{source.name}:{file.name}", file.read_bytes()


def of_folder(folder):
    for file in sorted(folder.rglob("*.ppd")):
        yield str(file), file.read_bytes()
    for file in sorted(folder.rglob("*.ppd.gz")):
        yield str(file), gzip.decompress(file.read_bytes())


def of_maker(driver):
    listed = subprocess.run([driver, "list"], check=True, capture_output=True, text=True).stdout
    names = [line.split('"')[1] for line in listed.splitlines() if line.startswith('"')]
    for first in range(0, len(names), AT_ONCE):
        running = [(name, subprocess.Popen([driver, "cat", name], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL))
                   for name in names[first:first + AT_ONCE]]
        for name, process in running:
            yield name, process.communicate()[0]


def sources():
    """Pairs of a source's name and a function that gives its descriptions as pairs of name and bytes."""
    for driver in archives():
        yield driver.name, lambda driver=driver: of_archive(driver)
    for source in sorted(SOURCES.glob("*.drv")):
        yield source.name, lambda source=source: of_compiler(source)
    for folder in FOLDERS:
        if folder.is_dir():
            yield str(folder), lambda folder=folder: of_folder(folder)
    if (DRIVERS / MAKER_TOOL).exists():
        yield MAKER_TOOL, lambda: of_maker(DRIVERS / MAKER_TOOL)


def find(wanted):
    """The descriptions of those names, as far as they are installed. Names are those of sources()."""
    found = {}
    for name in wanted:
        file = pathlib.Path(name)
        if name.startswith(MAKER_TOOL) and (DRIVERS / MAKER_TOOL).exists():
            found[name] = subprocess.run([DRIVERS / MAKER_TOOL, "cat", name], check=True, capture_output=True).stdout
        elif name.startswith("/") and file.exists():
            found[name] = file.read_bytes()
    others = set(wanted) - set(found)
    for source, descriptions in sources():
        if any(name.startswith(source + ":") for name in others):
            found.update((name, text) for name, text in descriptions() if name in others)
    return found
