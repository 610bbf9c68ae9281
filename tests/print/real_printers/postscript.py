"""Reads PostScript as a printer gets it: what it asks of the printer, and its pages as dots, by Ghostscript."""

import pathlib
import re
import subprocess
import tempfile

import numpy

FEATURE = re.compile(rb"^%%(?:BeginFeature|IncludeFeature): \*(\S+)(?: ([^\r\n]+?))?[ \t]*\r?$", re.MULTILINE)
JCL = re.compile(rb"^(?:\x1b%-12345X)?(@PJL[^\r\n]*)", re.MULTILINE)
# Tells each request to the page device before it is carried out.
SPY = b"""userdict begin
/setpagedevice {
  dup { exch dup type /nametype eq {
      (REQUEST ) print =string cvs print ( ) print ===
    } { pop pop } ifelse } forall
  systemdict /setpagedevice get exec
} bind def
end
"""
RESOLUTION = 300


def features(data):
    """The printer's options that the job sets, each with its last choice."""
    return {name.decode("latin-1"): (value or b"").decode("latin-1") for name, value in FEATURE.findall(data)}


def jcl(data):
    """Lines of the job language around the document."""
    return [line.decode("latin-1").strip() for line in JCL.findall(data)]


def body(data):
    start = data.find(b"%!")
    end = data.rfind(b"\x1b%-12345X")
    return data[start:end if end > start else len(data)]


def _run(device, data, output, *more):
    with tempfile.TemporaryDirectory() as folder:
        spy = pathlib.Path(folder) / "spy.ps"
        spy.write_bytes(SPY)
        document = pathlib.Path(folder) / "document.ps"
        document.write_bytes(body(data))
        return subprocess.run(
            ["gs", "-q", "-dBATCH", "-dNOPAUSE", "-dSAFER", f"-sDEVICE={device}", f"-o{output}", *more, str(spy),
             str(document)], capture_output=True, check=False, timeout=120)


def requests(data):
    """What is asked of the page device, in order, as pairs of name and value in PostScript's writing."""
    output = _run("nullpage", data, "/dev/null").stdout.decode("latin-1")
    return [tuple(line.split(" ", 2)[1:]) for line in output.splitlines() if line.startswith("REQUEST ")]


def pages(data):
    """Pages as pairs of their size in points and the darkness of each dot at RESOLUTION."""
    with tempfile.TemporaryDirectory() as folder:
        done = _run("pgmraw", data, f"{folder}/%03d.pgm", f"-r{RESOLUTION}", "-dGraphicsAlphaBits=4",
                    "-dTextAlphaBits=4")
        found = []
        for file in sorted(pathlib.Path(folder).glob("*.pgm")):
            ink = 255 - read_pgm(file.read_bytes())
            found.append(((ink.shape[1] * 72 / RESOLUTION, ink.shape[0] * 72 / RESOLUTION), ink))
        if not found:
            raise RuntimeError("Ghostscript finds no page: " + done.stdout.decode("latin-1")[-300:])
        return found


def read_pgm(data):
    """The grey values of a picture."""
    fields = re.match(rb"P5\s+(?:#[^\n]*\n\s*)*(\d+)\s+(\d+)\s+(\d+)\s", data)
    width, height = int(fields[1]), int(fields[2])
    return numpy.frombuffer(data, numpy.uint8, width * height, fields.end()).reshape(height, width)
