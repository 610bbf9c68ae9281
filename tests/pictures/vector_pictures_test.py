#!/usr/bin/env python3
"""Tests the maker of the Windows program's table of pictures."""
import math
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).parents[2]
MAKER = ROOT / "tools" / "pictures" / "vector_pictures.py"
sys.path.insert(0, str(MAKER.parent))
sys.dont_write_bytecode = True
import vector_pictures  # noqa: E402


def points(path):
    """Where each step ends."""
    return [step[-2:] for step in path if len(step) > 1]


class Paths(unittest.TestCase):
    def test_small_letters_count_from_the_point_before(self):
        self.assertEqual(vector_pictures.svg_path("M5 6h3v-2l-1 1z"),
                         [("M", 5, 6), ("L", 8, 6), ("L", 8, 4), ("L", 7, 5), ("Z",)])

    def test_what_follows_a_move_is_a_line(self):
        self.assertEqual(vector_pictures.svg_path("M18 6l-7 6 7 6")[2], ("L", 18, 18))
        self.assertEqual(vector_pictures.svg_path("m1 1 2 2"), [("M", 1, 1), ("L", 3, 3)])

    def test_a_curve_is_taken_as_it_is(self):
        self.assertEqual(vector_pictures.svg_path("M5 6c1 0 2 1 2 2C7 9 6 9 5 9"),
                         [("M", 5, 6), ("C", 6, 6, 7, 7, 7, 8), ("C", 7, 9, 6, 9, 5, 9)])

    def test_closing_goes_back_to_the_start_of_the_figure(self):
        self.assertEqual(vector_pictures.svg_path("M2 3h4zv5")[-1], ("L", 2, 8))

    def test_a_quarter_of_a_circle_is_one_curve_that_keeps_its_distance(self):
        (curve,) = vector_pictures.arc_curves(10, 0, 10, 10, False, True, 0, 10)
        _, x1, y1, x2, y2, x3, y3 = curve
        middle = ((10 + 3 * x1 + 3 * x2 + x3) / 8, (0 + 3 * y1 + 3 * y2 + y3) / 8)
        self.assertAlmostEqual(math.hypot(*middle), 10, delta=0.01)
        self.assertAlmostEqual(x3, 0)
        self.assertAlmostEqual(y3, 10)

    def test_the_large_arc_goes_the_long_way(self):
        short = vector_pictures.arc_curves(10, 0, 10, 10, False, True, 0, 10)
        long_way = vector_pictures.arc_curves(10, 0, 10, 10, True, False, 0, 10)
        self.assertEqual((len(short), len(long_way)), (1, 3))
        self.assertAlmostEqual(points(long_way)[0][1], -10)

    def test_radii_that_are_too_small_grow(self):
        curves = vector_pictures.arc_curves(0, 0, 1, 1, False, True, 10, 0)
        self.assertAlmostEqual(points(curves)[-1][0], 10)

    def test_a_circle_is_closed_and_keeps_within_its_square(self):
        path = vector_pictures.circle_path(6, 6, 2.5)
        self.assertEqual(path[-1], ("Z",))
        self.assertEqual({min(p[0] for p in points(path)), max(p[0] for p in points(path))}, {3.5, 8.5})


class Pictures(unittest.TestCase):
    def make(self, *shapes):
        """The maker's exit status, its complaint and what it wrote, for a picture of these shapes."""
        with tempfile.TemporaryDirectory() as folder:
            picture = pathlib.Path(folder, "sample.svg")
            picture.write_text('<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 12">' + "".join(shapes) +
                               "</svg>", encoding="utf-8")
            target = pathlib.Path(folder, "table.cpp")
            done = subprocess.run([sys.executable, str(MAKER), str(target), str(picture)], check=False, text=True,
                                  capture_output=True)
            return done.returncode, done.stderr, target.read_text("utf-8") if target.exists() else None

    def test_a_row_for_each_step_shape_and_picture(self):
        status, _, table = self.make('<path d="M1 2h3" fill="none" stroke="#0102ff" stroke-width="1.5" '
                                     'stroke-linecap="round" stroke-dasharray="2 1.6"/>')
        self.assertEqual(status, 0)
        self.assertIn("{'L', {4.0F, 2.0F, 0.0F, 0.0F, 0.0F, 0.0F}}", table)
        self.assertIn("{0, 2, 0x00000000, 0xFF0102FF, 1.5F, true, false, {2.0F, 1.6F}}", table)
        self.assertIn('{"sample", 24.0F, 12.0F, 0, 1}', table)

    def test_a_shape_without_a_colour_is_black(self):
        self.assertIn("0xFF000000, 0x00000000", self.make('<circle cx="6" cy="6" r="2"/>')[2])

    def test_what_is_not_understood_is_an_error(self):
        for shape in ('<ellipse rx="2" ry="1"/>', '<rect width="2" height="2" transform="scale(2)"/>',
                      '<circle r="1" fill="red"/>', '<path d="M1 1q2 2 3 3"/>', '<path d="M1 1a1 1 30 0 1 2 2"/>',
                      '<path d="M1 1h"/>', '<path d="M1 1h2" stroke-dasharray="1 2 3"/>'):
            status, complaint, table = self.make(shape)
            self.assertEqual((status, table), (1, None), shape)
            self.assertIn("sample.svg", complaint)

    def test_all_pictures_of_the_program_are_understood(self):
        for file in sorted((ROOT / "resources" / "pictures").glob("*.svg")):
            drawn = vector_pictures.picture(file)
            inside = [0 <= x <= drawn["width"] and 0 <= y <= drawn["height"]
                      for shape in drawn["shapes"] for x, y in points(shape["path"])]
            self.assertTrue(inside and all(inside), file.name)


if __name__ == "__main__":
    unittest.main()
