"""How far the texts on a printed sheet stand from where the document has them."""

import numpy

from postscript import RESOLUTION

MM = 25.4 / RESOLUTION
REACH = 36  # dots that a text is looked for around its place: 3 mm
EDGE = 3  # dots of white around a text
LEAST = 6  # dots: smaller marks are no texts
MOST = 40  # texts of a page that are looked for
ALIKE = 0.5  # share of a text's ink that may differ: drivers draw dots in patterns of their own


def resampled(ink, resolution, left, top, shape):
    """Dots of any resolution on a sheet of RESOLUTION; left and top are points from the sheet's top left."""
    down, across = (max(1, int(dots // RESOLUTION)) for dots in reversed(resolution))
    high, wide = ink.shape[0] // down * down, ink.shape[1] // across * across
    ink = ink[:high, :wide].reshape(high // down, down, wide // across, across).mean(axis=(1, 3), dtype=numpy.float32)
    resolution = (resolution[0] / across, resolution[1] / down)
    for axis, (dots, start, length) in enumerate(((resolution[1], top, shape[0]), (resolution[0], left, shape[1]))):
        edges = (numpy.arange(length + 1) / RESOLUTION - start / 72) * dots
        total = numpy.cumsum(ink, axis=axis, dtype=numpy.float32)
        total = numpy.concatenate([numpy.zeros_like(total.take([0], axis)), total], axis)
        edges = numpy.clip(edges, 0, ink.shape[axis])
        low = numpy.minimum(edges.astype(int), ink.shape[axis] - 1)
        part = (edges - low).astype(numpy.float32)
        part = part[:, None] if axis == 0 else part[None, :]
        at = total.take(low, axis) * (1 - part) + total.take(low + 1, axis) * part
        ink = numpy.diff(at, axis=axis) * (RESOLUTION / dots)
    return ink


def _vertex(before, middle, after):
    bend = before - 2 * middle + after
    return 0.0 if bend <= 0 else float(numpy.clip(0.5 * (before - after) / bend, -0.5, 0.5))


def displacement(patch, window):
    """Where the patch lies best in the window, in dots from its top left, and the share of ink that differs there."""
    size = (window.shape[0], window.shape[1])
    corr = numpy.fft.irfft2(numpy.fft.rfft2(window, size) * numpy.conj(numpy.fft.rfft2(patch, size)), size)
    high, wide = window.shape[0] - patch.shape[0] + 1, window.shape[1] - patch.shape[1] + 1
    squares = numpy.pad(numpy.cumsum(numpy.cumsum(window.astype(float) ** 2, 0), 1), ((1, 0), (1, 0)))
    energy = (squares[patch.shape[0]:, patch.shape[1]:] - squares[:-patch.shape[0], patch.shape[1]:]
              - squares[patch.shape[0]:, :-patch.shape[1]] + squares[:-patch.shape[0], :-patch.shape[1]])
    differs = energy - 2 * corr[:high, :wide]
    row, column = numpy.unravel_index(numpy.argmin(differs), differs.shape)
    own = float((patch.astype(float) ** 2).sum())
    share = float(differs[row, column] + own) / own
    y = row + (_vertex(*differs[row - 1:row + 2, column]) if 0 < row < high - 1 else 0)
    x = column + (_vertex(*differs[row, column - 1:column + 2]) if 0 < column < wide - 1 else 0)
    return x, y, share


def displacements(document, sheet, words, area=None):
    """For each word of the document (text, left, top, right, bottom in points) what it is off by: (text, x, y) in
    millimetres, or (text, None, None) if it is not there. Both pictures are of RESOLUTION, from the top left. Words
    that are not wholly in the area (left, top, right, bottom in points) are left out."""
    found = []
    inside = [word for word in words if area is None or (
        word[1] >= area[0] and word[2] >= area[1] and word[3] <= area[2] and word[4] <= area[3])]
    for text, *box in inside[::max(1, -(-len(inside) // MOST))]:
        left, top, right, bottom = (round(each * RESOLUTION / 72) for each in box)
        left, top = max(left - EDGE, 0), max(top - EDGE, 0)
        patch = document[top:bottom + EDGE, left:right + EDGE].astype(numpy.float32)
        if min(patch.shape) < LEAST or not patch.any():
            continue
        padded = numpy.zeros((patch.shape[0] + 2 * REACH, patch.shape[1] + 2 * REACH), numpy.float32)
        from_y, from_x = max(top - REACH, 0), max(left - REACH, 0)
        part = sheet[from_y:top + patch.shape[0] + REACH, from_x:left + patch.shape[1] + REACH]
        y, x = from_y - (top - REACH), from_x - (left - REACH)
        padded[y:y + part.shape[0], x:x + part.shape[1]] = part
        x, y, share = displacement(patch, padded)
        if share > ALIKE:
            found.append((text, None, None))
        else:
            found.append((text, (x - REACH) * MM, (y - REACH) * MM))
    return found
