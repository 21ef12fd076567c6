"""Command line of kelvar-compare."""

import argparse
import os
import sys
import time

from . import compare as comparing
from . import report, runner
from .tables import TableError, load_runs

DESCRIPTION = """\
Read, compare and plot the performance tables of kelvar: did a change of the
library make it faster, and is that real?

  run      run kelvar N times for build A (and B), interleaved A B A B
  compare  compare two tables or two folders of repeated runs, with a verdict
  plot     draw clocks per element against size, as PNG and SVG
  summary  list one run's functions by clocks per element, flag missed accuracy

Before and after, in three lines:
  tools/kelvar-compare run --lib-b other/lib -- -fLogGauss_32f_D2
  (runs build/bin/kelvar 5 times with its own library as A, 5 times with
   LD_LIBRARY_PATH=other/lib as B, and prints the comparison)
  tools/kelvar-compare compare RESULTS/A RESULTS/B --markdown
  tools/kelvar-compare plot RESULTS/A RESULTS/B -o plots

Exit codes: 0 done, 1 a function is slower (with --fail-on-regression),
2 a table, folder or program could not be found or read, or a key is wrong.
Run "kelvar-compare COMMAND --help" for the options of a command."""

DEFAULT_KELVAR = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))),
                              "..", "build", "bin", "kelvar")


def _add_verdict_options(p, select=True):
    g = p.add_argument_group("verdict and output")
    g.add_argument("--alpha", type=float, default=0.05,
                   help="significance level of the rank test (default 0.05)")
    g.add_argument("--threshold", type=float, default=2.0, metavar="PERCENT",
                   help="a change within this many percent is 'same' even when "
                        "significant (default 2)")
    g.add_argument("--fail-on-regression", action="store_true",
                   help="exit with code 1 when a function is significantly slower beyond "
                        "the threshold, to gate a continuous-integration job")
    fmt = g.add_mutually_exclusive_group()
    fmt.add_argument("--csv", action="store_true", help="write CSV instead of text")
    fmt.add_argument("--markdown", action="store_true", help="write Markdown instead of text")
    g.add_argument("--functions-only", action="store_true",
                   help="leave out the table of rows")
    if select:
        g.add_argument("-f", "--function", action="append", default=[], metavar="PATTERN",
                       help="only functions whose name holds PATTERN (wildcards * ? "
                            "allowed); may be repeated")


def build_parser():
    parser = argparse.ArgumentParser(prog="kelvar-compare", description=DESCRIPTION,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    sub = parser.add_subparsers(dest="command", metavar="COMMAND")
    sub.required = True

    p = sub.add_parser("run", help="repeat kelvar runs for one or two library builds",
                       formatter_class=argparse.RawDescriptionHelpFormatter,
                       description="Run kelvar --runs times for side A and, with --lib-b,\n"
                                   "as often for side B, interleaved A B A B. Each run's\n"
                                   "tables land in OUT/A/runNN and OUT/B/runNN. Keys for\n"
                                   "kelvar (selection -f -t, -d, -i) follow '--'; this\n"
                                   "command sets -B -r -q -u -o and -l itself.",
                       epilog="example:\n  kelvar-compare run --lib-b build-O0/lib -- "
                              "-fLogGauss_32f_D2 '-dRows=8;16'")
    p.add_argument("--runs", type=int, default=5, help="runs per side (default 5)")
    p.add_argument("--lib-a", metavar="DIR",
                   help="library folder for A (default: the program's own, build/lib)")
    p.add_argument("--lib-b", metavar="DIR",
                   help="library folder for B, put first on LD_LIBRARY_PATH")
    p.add_argument("--kelvar", default=os.path.normpath(DEFAULT_KELVAR),
                   help="the program to run (default: build/bin/kelvar of this checkout)")
    p.add_argument("--out", metavar="DIR",
                   help="results folder (default: kelvar-results/YYYYMMDD-HHMMSS)")
    p.add_argument("--no-compare", action="store_true",
                   help="with two sides, do not print the comparison at the end")
    _add_verdict_options(p, select=False)
    p.add_argument("keys", nargs=argparse.REMAINDER, help="keys for kelvar, after '--'")

    p = sub.add_parser("compare", help="compare two sides with a verdict per function",
                       formatter_class=argparse.RawDescriptionHelpFormatter,
                       description="A and B are each a performance table (kelvar.csv) or\n"
                                   "a folder searched for them, such as OUT/A of 'run'.\n"
                                   "Given one results folder of 'run', its A and B are\n"
                                   "compared. Rows are matched by function and parameters;\n"
                                   "rows of one side only are listed.")
    p.add_argument("a", metavar="A", help="the side before: a table or folder of runs")
    p.add_argument("b", metavar="B", nargs="?", help="the side after")
    _add_verdict_options(p)

    p = sub.add_parser("plot", help="draw clocks per element against size")
    p.add_argument("a", metavar="A", help="table or folder of runs")
    p.add_argument("b", metavar="B", nargs="?", help="a second side to overlay")
    p.add_argument("-o", "--out", default="kelvar-plots", metavar="DIR",
                   help="folder for the PNG and SVG files (default kelvar-plots)")
    p.add_argument("-f", "--function", action="append", default=[], metavar="PATTERN",
                   help="only functions whose name holds PATTERN; may be repeated")

    p = sub.add_parser("summary", help="one side's functions by clocks per element")
    p.add_argument("a", metavar="A", help="table or folder of runs")
    p.add_argument("-f", "--function", action="append", default=[], metavar="PATTERN",
                   help="only functions whose name holds PATTERN; may be repeated")
    return parser


def _run_sides(folder):
    """The side folders of a results folder of 'run', or None for any other path."""
    pair = [os.path.join(folder, "A"), os.path.join(folder, "B")]
    if os.path.isdir(pair[0]) and not os.path.exists(os.path.join(folder, "kelvar.csv")):
        return pair if os.path.isdir(pair[1]) else pair[:1]
    return None


def _sides(a, b):
    """The two sides to compare; one results folder of 'run' holds both."""
    if b is None:
        pair = _run_sides(a)
        if pair and len(pair) == 2:
            return pair
        raise TableError("give two sides, A and B, or a results folder of 'run' "
                         "that holds A and B")
    return [a, b]


def _filtered(runs, patterns):
    from .grid import select
    if not patterns:
        return runs
    for run in runs:
        keep = set(select({r.function for r in run.rows}, patterns))
        run.rows = [r for r in run.rows if r.function in keep]
    return runs


def _compare(args, out, a, b):
    patterns = getattr(args, "function", [])
    runs_a = _filtered(load_runs(a), patterns)
    runs_b = _filtered(load_runs(b), patterns)
    c = comparing.compare(a, runs_a, b, runs_b, alpha=args.alpha,
                          threshold=args.threshold / 100.0)
    if args.csv:
        out.write(report.as_csv(c))
    elif args.markdown:
        out.write(report.as_markdown(c, not args.functions_only))
    else:
        out.write(report.text(c, not args.functions_only))
    return 1 if args.fail_on_regression and c.regressions() else 0


def _run(args, out):
    keys = args.extra + (args.keys[1:] if args.keys[:1] == ["--"] else args.keys)
    if args.runs < 1:
        raise TableError("--runs must be 1 or more")
    out_dir = args.out or os.path.join("kelvar-results", time.strftime("%Y%m%d-%H%M%S"))
    sides = [("A", args.lib_a)] + ([("B", args.lib_b)] if args.lib_b else [])
    folders, failed = runner.repeat_runs(args.kelvar, out_dir, sides, args.runs, keys)
    for folder in failed:
        sys.stderr.write("kelvar-compare: a test failed in %s (see its kelvar.txt)\n" % folder)
    sys.stderr.write("kelvar-compare: tables are in %s\n" % out_dir)
    if len(folders) == 2 and not args.no_compare:
        return _compare(args, out, folders[0], folders[1])
    return 0


def main(argv=None, out=sys.stdout):
    parser = build_parser()
    args, extra = parser.parse_known_args(argv)
    if extra and args.command != "run":
        parser.error("unrecognized arguments: " + " ".join(extra))
    # Keys for the program that stand before '--' are passed on all the same.
    args.extra = extra
    try:
        if args.command == "run":
            return _run(args, out)
        if args.command == "compare":
            a, b = _sides(args.a, args.b)
            return _compare(args, out, a, b)
        if args.command == "plot":
            from . import plot
            paths = [args.a, args.b] if args.b else (_run_sides(args.a) or [args.a])
            sides = [(path, load_runs(path)) for path in paths]
            written = plot.plot(sides, args.out, args.function)
            if not written:
                raise TableError("no function to plot (check -f)")
            out.write("".join(p + "\n" for p in written))
            return 0
        if args.command == "summary":
            from . import summary
            for n, path in enumerate(_run_sides(args.a) or [args.a]):
                text, _ = summary.summarize(path, load_runs(path), args.function)
                out.write(("\n" if n else "") + text)
            return 0
    except TableError as e:
        sys.stderr.write("kelvar-compare: %s\n" % e)
        return 2
    return 2
