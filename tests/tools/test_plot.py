"""Plots of one and two sides."""

import os
import tempfile
import unittest

import numpy as np

from tablemaker import row, run_cli, synthetic_side, write_table
from kvcompare.plot import size_column


class Plots(unittest.TestCase):
    def setUp(self):
        self.tmp = tempfile.TemporaryDirectory()
        self.addCleanup(self.tmp.cleanup)

    def plot(self, *argv):
        code, out, _ = run_cli("plot", *argv)
        return code, out.split()

    def test_two_sides_give_a_png_and_an_svg_per_function(self):
        rng = np.random.default_rng(1)
        a = synthetic_side(os.path.join(self.tmp.name, "A"), rng, 2, 1.0, 0.01)
        b = synthetic_side(os.path.join(self.tmp.name, "B"), rng, 2, 1.2, 0.01)
        out = os.path.join(self.tmp.name, "plots")
        code, files = self.plot(a, b, "-o", out, "-f", "LogGauss")
        self.assertEqual(code, 0)
        self.assertEqual(sorted(os.path.basename(f) for f in files),
                         ["vdlsLogGauss_32f_D2.png", "vdlsLogGauss_32f_D2.svg"])
        with open(os.path.join(out, "vdlsLogGauss_32f_D2.png"), "rb") as f:
            self.assertEqual(f.read(8), b"\x89PNG\r\n\x1a\n")
        with open(os.path.join(out, "vdlsLogGauss_32f_D2.svg")) as f:
            svg = f.read()
        self.assertIn("<svg", svg)
        self.assertIn("clocks per element", svg)
        # The results folder of a run of both sides stands for A and B.
        code, files = self.plot(self.tmp.name, "-o", out, "-f", "MahDist")
        self.assertEqual(code, 0)
        with open([f for f in files if f.endswith(".svg")][0]) as f:
            self.assertIn("B all", f.read(), "a dashed line for side B")

    def test_one_side_with_a_grid_and_a_text_parameter(self):
        rows = [row("vdlsSel", size, 1.0 + size / 100.0, parm1=hint)
                for hint in ("fast", "accurate") for size in (8, 64, 512)]
        t = write_table(os.path.join(self.tmp.name, "t.csv"), rows)
        code, files = self.plot(t, "-o", os.path.join(self.tmp.name, "p"))
        self.assertEqual(code, 0)
        self.assertTrue(all(os.path.getsize(f) > 0 for f in files))
        self.assertEqual(self.plot(t, "-o", self.tmp.name, "-f", "NoSuch")[0], 2)

    def test_size_is_the_first_column_that_changes(self):
        grid = [(("8", "30"), "", 1.0), (("8", "40"), "", 1.0)]
        self.assertEqual(size_column(grid), 1)
        grid = [(("8", "30"), "", 1.0), (("16", "30"), "", 1.0)]
        self.assertEqual(size_column(grid), 0)
        self.assertEqual(size_column([(("-", "30"), "", 1.0)]), 1, "one row: its first used cell")


if __name__ == "__main__":
    unittest.main()
