"""The table reader against the program's own tables and hand-made edge cases."""

import os
import subprocess
import tempfile
import unittest

from tablemaker import TITLE, row, run_cli, write_table
from kvcompare import compare, tables

KELVAR = os.environ.get("KELVAR_EXE")
QUICK_KEYS = ["-f=vdlsLogGauss_32f_D2", "-dMethod=Manual", "-dNumLoops=1", "-dRows=8;16",
              "-dCols=30"]


@unittest.skipUnless(KELVAR and os.path.exists(KELVAR), "KELVAR_EXE names no program")
class ProgramTables(unittest.TestCase):
    """A short Manual run of the program, read back."""

    @classmethod
    def setUpClass(cls):
        cls.tmp = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.tmp.cleanup)
        cls.dir = cls.tmp.name
        subprocess.run([KELVAR, "-B", "-l" + cls.dir, "-r", "-q", "-u"] + QUICK_KEYS,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
        cls.runs = tables.load_runs(cls.dir)

    def test_title_rows_keep_their_commas_and_rows_hold_figures(self):
        self.assertEqual(len(self.runs), 1, "the name and summary tables are no runs")
        run = self.runs[0]
        self.assertRegex(run.title_value("CPU"), r", .*(GHz|MHz)")
        self.assertTrue(run.title_value("Start"))
        self.assertEqual({r.function for r in run.rows}, {"vdlsLogGauss_32f_D2"})
        # rows 8 and 16, and the cols grid of 30 walks two strides of equal value
        self.assertGreaterEqual(len(run.rows), 2)
        for r in run.rows:
            self.assertGreater(r.clocks, 0)
            self.assertEqual(r.loops, "1")
            self.assertEqual(r.unit, "e")
        self.assertEqual(tables.param_names(self.runs, "vdlsLogGauss_32f_D2")[:2],
                         ["rows", "cols"])

    def test_table_against_itself_is_the_same_everywhere(self):
        path = os.path.join(self.dir, "kelvar.csv")
        code, out, _ = run_cli("compare", path, path)
        self.assertEqual(code, 0)
        self.assertIn("rows=8 cols=30", out)
        self.assertIn("Verdict: 0 slower, 0 faster, 1 same", out)
        self.assertNotIn("one side only", out)

    def test_run_mode_writes_each_run_into_its_folder(self):
        out_dir = os.path.join(self.dir, "results")
        code, out, err = run_cli("run", "--kelvar", KELVAR, "--runs", "1", "--lib-b",
                                 os.path.join(os.path.dirname(os.path.dirname(KELVAR)), "lib"),
                                 "--out", out_dir, *QUICK_KEYS)   # keys need no '--'
        self.assertEqual(code, 0, err)
        for side in ("A", "B"):
            self.assertTrue(os.path.isfile(os.path.join(out_dir, side, "run01", "kelvar.csv")))
        self.assertIn("run 2 of 2 (B 1)", err)
        self.assertIn("Verdict:", out)
        code, _, err = run_cli("run", "--kelvar", KELVAR, "--out", out_dir, "--", *QUICK_KEYS)
        self.assertEqual(code, 2, "a results folder is never mixed with new runs")
        self.assertIn("already exists", err)


class HandMadeTables(unittest.TestCase):
    def setUp(self):
        self.tmp = tempfile.TemporaryDirectory()
        self.addCleanup(self.tmp.cleanup)

    def path(self, name):
        return os.path.join(self.tmp.name, name)

    def test_edge_rows(self):
        title = TITLE + ["Library,a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p, q"]
        rows = [row("vdlsAdd", 16, 3.5),
                row("vdlsAdd", 16, 3.7),                     # same parameters again
                row("vdlsAdd", 32, None),                     # no figure
                row("vdlsAdd", 64, 9.0, comment="nLps=2048 acc=7.3%"),
                # a parameter value that holds a comma of its own
                "vdlsSel,32f,D2,8,fast,-,-,-,a,b,nLps=4,2.0,e,0.5,-",
                row("vdlsAdd", 16, 4.0, comment="deprecated")]   # postponed behind
        runs = tables.parse_performance_table(write_table(self.path("t.csv"), rows, title))
        run = runs[0]
        self.assertEqual(run.title_value("Library"), "vdlsr reference, 1.0.0 (r1), Nov 23 2026")
        self.assertEqual(len([v for k, v in run.title if k == "Library"]), 2)
        keys = list(run.keyed_rows())
        self.assertEqual(len(keys), 6, "no row may be lost to a clash of keys")
        self.assertEqual(keys[1][3], 1, "the repeated parameter set counts as a second row")
        self.assertEqual(run.rows[5].variant, "deprecated")
        self.assertNotEqual(keys[5][:3], keys[0][:3], "a postponed row has a key of its own")
        self.assertIsNone(run.rows[2].clocks)
        self.assertEqual((run.rows[3].loops, run.rows[3].accuracy), ("2048", "7.3%"))
        sel = run.rows[4]
        self.assertEqual(sel.params[:2], ("8", "fast"))
        self.assertEqual(sel.params[-1], "a,b")
        self.assertEqual((sel.clocks, sel.loops), (2.0, "4"))

    def test_appended_file_holds_one_run_per_block(self):
        path = self.path("t.csv")
        write_table(path, [row("vdlsAdd", 16, 3.5)])
        with open(path) as f:
            block = f.read()
        with open(path, "a") as f:
            f.write(block.replace("3.5", "3.9"))
        runs = tables.parse_performance_table(path)
        self.assertEqual([r.rows[0].clocks for r in runs], [3.5, 3.9])
        self.assertEqual(len(runs[1].title), len(TITLE))

    def test_rows_of_one_side_are_listed_not_dropped(self):
        a = write_table(self.path("a/kelvar.csv"), [row("vdlsAdd", 16, 3.0, comment="nLps=9 acc=8%"),
                                                    row("vdlsAdd", 32, 3.0),
                                                    row("vdlsOld", 8, 1.0)])
        b = write_table(self.path("b/kelvar.csv"), [row("vdlsAdd", 16, 3.0), row("vdlsAdd", 64, 3.0)])
        c = compare.compare("a", tables.load_runs(a), "b", tables.load_runs(b))
        self.assertEqual([(r.label, r.missed) for r in c.rows], [("Len/Size=16", 1)],
                         "a missed accuracy stays with its row")
        self.assertEqual(len(c.one_sided), 3)
        code, out, _ = run_cli("compare", a, b)
        self.assertIn("A only: vdlsAdd_32f_D2 Len/Size=32", out)
        self.assertIn("A only: vdlsOld_32f_D2, all its 1 row", out)
        self.assertIn("B only: vdlsAdd_32f_D2 Len/Size=64", out)

    def test_missing_and_foreign_files_exit_2_with_a_reason(self):
        code, out, err = run_cli("compare", self.path("none.csv"), self.path("none.csv"))
        self.assertEqual((code, out), (2, ""))
        self.assertIn("none.csv: no such file or folder", err)
        other = self.path("other.csv")
        with open(other, "w") as f:
            f.write("x,y\n1,2\n")
        code, _, err = run_cli("summary", other)
        self.assertEqual(code, 2)
        self.assertIn("not a performance table", err)
        os.makedirs(self.path("empty"))
        code, _, err = run_cli("plot", self.path("empty"))
        self.assertEqual(code, 2)
        self.assertIn("no performance table", err)

    def test_summary_flags_missed_accuracy(self):
        t = write_table(self.path("t.csv"), [row("vdlsAdd", 16, 3.0),
                                             row("vdlsAdd", 32, 5.0, comment="nLps=2048 acc=12%"),
                                             row("vdlsMul", 16, 30.0)])
        code, out, _ = run_cli("summary", t)
        self.assertEqual(code, 0)
        self.assertLess(out.index("vdlsMul_32f_D2"), out.index("vdlsAdd_32f_D2"),
                        "the costliest function comes first")
        self.assertIn("vdlsAdd_32f_D2 Len/Size=32: 5.00 clocks/e, acc=12%", out)


if __name__ == "__main__":
    unittest.main()
