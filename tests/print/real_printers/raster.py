"""Reads pages of dots as CUPS hands them to drivers and as PWG raster printers get them (CUPS raster, all versions)."""

import dataclasses
import functools
import struct

import numpy

VERSIONS = {b"RaSt": 1, b"tSaR": 1, b"RaS2": 2, b"2SaR": 2, b"RaS3": 3, b"3SaR": 3}
HEADER = 1796
OLD_HEADER = 420
# Numbers grow with the light: W, RGB, RGBA, XYZ, Lab, RGBW, sGray, sRGB, Adobe RGB.
LIGHT_SPACES = {0, 1, 2, 15, 16, 17, 18, 19, 20}


@dataclasses.dataclass
class Page:
    """Lengths are points; `ink` is the darkness of each dot, 0 to 255."""
    size: tuple
    box: tuple  # left, bottom, right, top of what the dots cover
    resolution: tuple
    duplex: bool
    tumble: bool
    mirror: bool
    copies: int
    media_position: int
    manual_feed: bool
    media_class: str
    media_type: str
    size_name: str
    integers: tuple
    strings: tuple
    ink: numpy.ndarray


def _text(field):
    return field.split(b"\0")[0].decode("latin-1")


def _unpacked(data, at, header):
    """Lines of a page whose equal lines and dots are counted."""
    bits, line_bytes, height = header["bits_per_pixel"], header["line_bytes"], header["height"]
    unit = (header["bits_per_colour"] + 7) // 8 if header["colour_order"] else (bits + 7) // 8
    lines = []
    count = height * (header["colours"] if header["colour_order"] == 2 else 1)
    while len(lines) < count:
        repeat = data[at] + 1
        at += 1
        line = bytearray()
        while len(line) < line_bytes:
            code = data[at]
            at += 1
            if code == 128:
                line.extend(b"\0" * (line_bytes - len(line)))
            elif code > 128:
                length = (257 - code) * unit
                line.extend(data[at:at + length])
                at += length
            else:
                line.extend(data[at:at + unit] * (code + 1))
                at += unit
        lines.extend([bytes(line[:line_bytes])] * repeat)
    return b"".join(lines[:count]), at


def _ink(dots, header, order):
    """The darkness of each dot from its colours."""
    height, width, line_bytes = header["height"], header["width"], header["line_bytes"]
    colours, depth = header["colours"], header["bits_per_colour"]
    planes = colours if header["colour_order"] == 2 else 1
    lines = numpy.frombuffer(dots, numpy.uint8).reshape(planes * height, line_bytes)
    if depth == 16:
        values = (lines.view(">u2" if order == ">" else "<u2") >> 8).astype(numpy.uint8)
    elif depth == 8:
        values = lines
    else:
        bits = numpy.unpackbits(lines, axis=1)
        if depth > 1:
            bits = bits[:, :bits.shape[1] // depth * depth].reshape(len(bits), -1, depth)
            bits = (bits * (1 << numpy.arange(depth - 1, -1, -1))).sum(axis=2)
        values = (bits * (255 // ((1 << depth) - 1))).astype(numpy.uint8)
    if header["colour_order"] == 0:
        per_dot = header["bits_per_pixel"] // depth
        values = values[:, :width * per_dot].reshape(height, width, per_dot)[:, :, :colours]
    elif header["colour_order"] == 1:
        values = values.reshape(height, colours, -1)[:, :, :width].transpose(0, 2, 1)
    else:
        values = values.reshape(colours, height, -1)[:, :, :width].transpose(1, 2, 0)
    if header["colour_space"] in LIGHT_SPACES:
        return 255 - functools.reduce(numpy.maximum, (values[:, :, n] for n in range(min(values.shape[2], 3))))
    return functools.reduce(numpy.maximum, (values[:, :, n] for n in range(values.shape[2])))


def read(data, with_dots=True):
    """The pages of a document."""
    mark = bytes(data[:4])
    if mark not in VERSIONS:
        raise RuntimeError(f"no page of dots: it begins with {mark!r}")
    order = ">" if mark.startswith(b"RaS") else "<"
    version = VERSIONS[mark]
    length = OLD_HEADER if version == 1 else HEADER
    at = 4
    pages = []
    while at + length <= len(data):
        head = bytes(data[at:at + length])
        at += length

        def number(offset, head=head):
            return struct.unpack_from(order + "I", head, offset)[0]

        header = {"width": number(372), "height": number(376), "bits_per_colour": number(384),
                  "bits_per_pixel": number(388), "line_bytes": number(392), "colour_order": number(396),
                  "colour_space": number(400)}
        header["colours"] = (number(420) if version > 1 else 0) or max(
            1, header["bits_per_pixel"] // header["bits_per_colour"])
        if version == 2:
            dots, at = _unpacked(data, at, header)
        else:
            total = header["height"] * header["line_bytes"]
            total *= header["colours"] if header["colour_order"] == 2 else 1
            dots = data[at:at + total]
            at += total
        real_size = struct.unpack_from(order + "2f", head, 428) if version > 1 else (0, 0)
        real_box = struct.unpack_from(order + "4f", head, 436) if version > 1 else (0, 0, 0, 0)
        size = real_size if any(real_size) else struct.unpack_from(order + "2I", head, 352)
        box = real_box if any(real_box) else struct.unpack_from(order + "4I", head, 284)
        pages.append(Page(
            size=size, box=box if any(box) else (0, 0, *size),  # PWG raster has the whole sheet
            resolution=struct.unpack_from(order + "2I", head, 276), duplex=bool(number(272)),
            tumble=bool(number(368)), mirror=bool(number(332)), copies=number(340), media_position=number(324),
            manual_feed=bool(number(320)), media_class=_text(head[0:64]), media_type=_text(head[128:192]),
            size_name=_text(head[1732:1796]) if version > 1 else "",
            integers=struct.unpack_from(order + "16I", head, 452) if version > 1 else (),
            strings=tuple(_text(head[580 + 64 * i:644 + 64 * i]) for i in range(16)) if version > 1 else (),
            ink=_ink(dots, header, order) if with_dots else None))
    return pages
