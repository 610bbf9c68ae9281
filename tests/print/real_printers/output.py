"""What came out for a printer, whatever its language: its settings, which can be compared, and its pages."""

import dataclasses
import re

import numpy

import pcl
import pdf_page
import placement
import postscript
import raster

# Of the job, not of the printer: names, moments, numbers.
PERSONAL = re.compile(
    rb"(?i)(user|name|time|date|job ?id|host|owner|jobinfo|jobattr|dminfo|title|creat|@PJL (SET )?JOB|for:)")
COPIES = re.compile(r"(?i)collate|copies|qty")  # there is one of each
MEDIA_KEYS = ("PageSize", "MediaPosition", "ManualFeed", "InputAttributes", "Duplex", "Tumble", "NumCopies",
              "MirrorPrint", "MediaClass", "MediaType")


@dataclasses.dataclass
class Output:
    """The count of pages is None where the language cannot be read. Sizes are points. `sheet(n, shape)` gives the
    darkness of each dot of page n on a sheet of postscript.RESOLUTION; there is none where the language cannot be read
    that far."""
    pages: int = None
    sizes: list = dataclasses.field(default_factory=list)
    settings: dict = dataclasses.field(default_factory=dict)
    sheet: object = None


def _jcl(data):
    return [line for line in postscript.jcl(data[:20000])
            if not PERSONAL.search(line.encode("latin-1")) and not COPIES.search(line)]


def _on_sheet(ink, shape):
    full = numpy.zeros(shape, numpy.float32)
    high, wide = min(shape[0], ink.shape[0]), min(shape[1], ink.shape[1])
    full[:high, :wide] = ink[:high, :wide]
    return full


def read_postscript(job):
    data = job.printed.read_bytes()
    if b"%!" not in data:
        return read_pdf(job)
    pages = postscript.pages(data)
    requests = [(name, value) for name, value in postscript.requests(data) if name in MEDIA_KEYS]
    features = {name: value for name, value in postscript.features(data).items()}
    return Output(len(pages), [size for size, _ in pages],
                  {"features": features, "requests": requests, "jcl": _jcl(data)},
                  lambda n, shape: _on_sheet(pages[n][1], shape))


def read_pdf(job):
    data = job.printed.read_bytes()
    document = job.printed.parent / "printed.pdf"
    document.write_bytes(data[data.find(b"%PDF"):data.rfind(b"%%EOF") + 6])
    pages = pdf_page.pages(document)
    return Output(len(pages), [size for size, _ in pages], {"jcl": _jcl(data)},
                  lambda n, shape: _on_sheet(pages[n][1], shape))


def read_raster(job):
    pages = raster.read((job.raster or job.printed).read_bytes())
    settings = [{key: value for key, value in dataclasses.asdict(page).items() if key != "ink"} for page in pages]
    return Output(len(pages), [page.size for page in pages], {"pages": settings, "jcl": _jcl(job.printed.read_bytes())},
                  lambda n, shape: placement.resampled(pages[n].ink, pages[n].resolution, pages[n].box[0],
                                                       pages[n].size[1] - pages[n].box[3], shape))


def read_pcl5(job):
    data = job.printed.read_bytes()
    stream = pcl.read_pcl5(data)
    commands = {name: stream.last(name) for name in ("&lA", "&lH", "&lS", "&lP", "&lX")}
    return Output(stream.pages(), [], {"commands": commands, "jcl": _jcl(data)})


def read_pclxl(job):
    data = job.printed.read_bytes()
    pages = pcl.read_xl(data)
    return Output(len(pages), [], {"pages": pages, "jcl": _jcl(data)})


def read_bytes(job):
    lines = [line for line in job.printed.read_bytes().split(b"\n") if not PERSONAL.search(line[:200])]
    return Output(None, [], {"bytes": lines})


READERS = {"postscript": read_postscript, "pdf": read_pdf, "raster": read_raster, "pcl5": read_pcl5,
           "pclxl": read_pclxl, "bytes": read_bytes}
