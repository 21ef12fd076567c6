"""Verdicts against synthetic runs whose effect is known."""

import os
import tempfile
import unittest

import numpy as np

from tablemaker import SIZES, run_cli, synthetic_side
from kvcompare import compare, stats
from kvcompare.tables import Row, Run

HEADER = ["funcBase", "funcDataType", "funcDescriptor", "Len/Size", "Parm1", "Comment",
          "Clocks", "per"]


def side(rng, runs, factor, noise, disturb=None):
    """In-memory runs of one function over SIZES; disturb(k, i) may scale
    row i of run k, as load on the machine does."""
    out = []
    for k in range(runs):
        run = Run("side", [], HEADER)
        for i, size in enumerate(SIZES):
            clocks = 2.0 * (1.0 + 8.0 / size) * factor * float(np.exp(rng.normal(0.0, noise)))
            scale = disturb(k, i) if disturb else 1.0
            clocks = None if scale is None else clocks * scale
            run.rows.append(Row("vdlsLogGauss_32f_D2", (str(size), "-"), "nLps=4", clocks,
                                "e", None, i + 1))
        out.append(run)
    return out


def judge(a, b, **options):
    return compare.compare("A", a, "B", b, **options).functions[0]


class KnownEffects(unittest.TestCase):
    def test_ten_percent_slowdown_under_one_percent_noise_is_slower(self):
        for seed in range(20):
            rng = np.random.default_rng(seed)
            f = judge(side(rng, 5, 1.0, 0.01), side(rng, 5, 1.10, 0.01))
            self.assertEqual(f.verdict, "slower", "seed %d" % seed)
            self.assertLess(f.p, 0.05)
            self.assertAlmostEqual(f.ratio, 1.10, delta=0.02)
            self.assertLess(f.low, f.ratio)
            self.assertGreater(f.high, f.ratio)
            self.assertGreater(f.low, 1.0, "the range of a clear slowdown leaves 1 out")

    def test_ten_percent_speedup_is_faster(self):
        rng = np.random.default_rng(5)
        self.assertEqual(judge(side(rng, 5, 1.0, 0.01), side(rng, 5, 0.9, 0.01)).verdict,
                         "faster")

    def test_no_effect_is_same_in_95_of_100_trials(self):
        rng = np.random.default_rng(2026)
        same = sum(judge(side(rng, 5, 1.0, 0.01), side(rng, 5, 1.0, 0.01)).verdict == "same"
                   for _ in range(100))
        self.assertGreaterEqual(same, 95)
        # The rank test alone, with no threshold to hide behind, holds its level too.
        same = sum(judge(side(rng, 5, 1.0, 0.01), side(rng, 5, 1.0, 0.01),
                         threshold=0.0).verdict == "same" for _ in range(100))
        self.assertGreaterEqual(same, 92)

    def test_large_noise_over_three_runs_is_not_significant(self):
        rng = np.random.default_rng(3)
        for _ in range(20):
            f = judge(side(rng, 3, 1.0, 0.30), side(rng, 3, 1.10, 0.30))
            self.assertGreaterEqual(f.p, 0.05)
            self.assertEqual(f.verdict, "same")

    def test_a_few_rows_hit_by_load_do_not_make_a_verdict(self):
        # Two rows of one run of B take 2.7 times as long, as on a busy machine.
        hit = lambda k, i: 2.7 if k == 1 and i in (2, 5) else 1.0
        rng = np.random.default_rng(11)
        f = judge(side(rng, 5, 1.0, 0.01), side(rng, 5, 1.0, 0.01, hit), threshold=0.0)
        self.assertEqual(f.verdict, "same")

    def test_figures_missing_from_some_runs_are_left_out(self):
        gaps = lambda k, i: None if (k + i) % 4 == 0 else 1.0
        rng = np.random.default_rng(4)
        f = judge(side(rng, 5, 1.0, 0.01, gaps), side(rng, 5, 1.10, 0.01, gaps))
        self.assertEqual(f.verdict, "slower")
        self.assertAlmostEqual(f.ratio, 1.10, delta=0.02)

    def test_single_runs_rest_on_the_threshold(self):
        rng = np.random.default_rng(1)
        f = judge(side(rng, 1, 1.0, 0.0), side(rng, 1, 1.5, 0.0))
        self.assertIsNone(f.p)
        self.assertIsNone(f.low)
        self.assertEqual(f.verdict, "slower")
        self.assertEqual(stats.verdict(1.015, None, 0.05, 0.02), "same")

    def test_rank_test_needs_three_runs_a_side(self):
        self.assertIsNone(stats.u_test([1.0, 2.0], [3.0, 4.0, 5.0]))
        self.assertIsNone(stats.u_test([1.0, None, 2.0], [3.0, 4.0, 5.0]))
        self.assertEqual(stats.u_test([2.0] * 3, [2.0] * 3), 1.0)


class RegressionGate(unittest.TestCase):
    """The exit code a continuous-integration job reads, from tables on disk."""

    def gate(self, factor, *options):
        with tempfile.TemporaryDirectory() as tmp:
            rng = np.random.default_rng(7)
            a = synthetic_side(os.path.join(tmp, "A"), rng, 5, 1.0, 0.01)
            b = synthetic_side(os.path.join(tmp, "B"), rng, 5, factor, 0.01)
            return run_cli("compare", a, b, "--fail-on-regression", *options)[:2]

    def test_exit_code_follows_the_slowest_function(self):
        code, out = self.gate(1.10)
        self.assertEqual(code, 1)
        self.assertIn("Verdict: 2 slower, 0 faster, 0 same", out)
        self.assertEqual(self.gate(1.10, "--threshold", "15")[0], 0,
                         "a slowdown within the threshold passes")
        self.assertEqual(self.gate(0.90)[0], 0, "a speedup passes")

    def test_csv_and_markdown_carry_the_same_verdicts(self):
        _, text = self.gate(1.10, "--csv", "-f", "MahDist")
        lines = text.splitlines()
        header = lines[0].split(",")
        self.assertEqual(header[:3], ["kind", "function", "parameters"])
        self.assertEqual(lines[1].split(",")[header.index("verdict")], "slower")
        self.assertEqual(len(lines), 1 + 1 + len(SIZES), "one function row and its rows")
        _, md = self.gate(1.10, "--markdown", "--functions-only")
        self.assertIn("| vdlsMahDist_32f_D2 | %d |" % len(SIZES), md)
        self.assertNotIn("### Rows", md)


if __name__ == "__main__":
    unittest.main()
