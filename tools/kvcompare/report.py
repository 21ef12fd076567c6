"""The comparison as text, CSV or Markdown."""

import csv
import io

from .textout import aligned, fmt_clocks, fmt_p, fmt_range, fmt_ratio, markdown

ROW_HEADER = ("function", "parameters", "A", "B", "B/A", "p", "verdict", "acc")
FUNCTION_HEADER = ("function", "rows", "B/A", "range", "p", "verdict", "acc")
FIGURES = ("A", "B", "B/A", "p", "rows", "range", "acc")


def _row_cells(r):
    return (r.function, r.label, fmt_clocks(r.median_a), fmt_clocks(r.median_b),
            fmt_ratio(r.ratio), fmt_p(r.p), r.verdict, r.missed or "-")


def _function_cells(f):
    return (f.function, len(f.rows), fmt_ratio(f.ratio), fmt_range(f.low, f.high),
            fmt_p(f.p), f.verdict, sum(r.missed for r in f.rows) or "-")


def _one_sided_lines(c):
    """A function missing from the other side altogether takes one line;
    otherwise each of its one-sided rows is named."""
    compared = {r.function for r in c.rows}
    lines = []
    done = set()
    for o in c.one_sided:
        if o.function in compared:
            lines.append("%s only: %s %s" % (o.side, o.function, o.label))
        elif (o.side, o.function) not in done:
            done.add((o.side, o.function))
            count = sum(1 for x in c.one_sided if (x.side, x.function) == (o.side, o.function))
            lines.append("%s only: %s, all its %d row%s" % (o.side, o.function, count,
                                                             "" if count == 1 else "s"))
    return lines


def _counts(c):
    counts = {}
    for f in c.functions:
        counts[f.verdict] = counts.get(f.verdict, 0) + 1
    return ", ".join("%d %s" % (counts.get(v, 0), v) for v in ("slower", "faster", "same"))


def _notes(c):
    notes = ["B/A is B's clocks per element over A's: above 1 B is slower. "
             "Figures are medians of the runs.",
             "A function is slower or faster when its change exceeds %g%% and "
             "p < %g; otherwise it is the same." % (c.threshold * 100, c.alpha)]
    if any(r.missed for r in c.rows):
        notes.append("acc: the runs, of both sides, whose figure missed its accuracy "
                     "target (acc= in the table); such figures are not to be trusted.")
    if not c.tested:
        notes.append("With fewer than 3 runs a side there is no test: the threshold "
                     "alone decides. Repeat the runs (kelvar-compare run) to know.")
    elif min(len(c.runs_a), len(c.runs_b)) == 3:
        notes.append("With 3 runs a side the smallest possible p is 0.1: use 4 or "
                     "more runs to see a significant change.")
    return notes


def _sides(c):
    out = []
    for side, name, runs in (("A", c.name_a, c.runs_a), ("B", c.name_b, c.runs_b)):
        cpu = runs[0].title_value("CPU") if runs else ""
        out.append("%s: %s (%d run%s)%s" % (side, name, len(runs), "" if len(runs) == 1 else "s",
                                            ", " + cpu if cpu else ""))
    return out


def text(c, show_rows=True):
    parts = _sides(c) + [""]
    if show_rows and c.rows:
        parts += ["Rows, clocks per element:", aligned(ROW_HEADER, map(_row_cells, c.rows), FIGURES), ""]
    conf = "%g%%" % ((1 - c.alpha) * 100)
    parts += ["Functions, geometric mean of the row ratios with its %s range:" % conf,
              aligned(FUNCTION_HEADER, map(_function_cells, c.functions), FIGURES)
              if c.functions else "(no row is on both sides)", ""]
    if c.one_sided:
        parts.append("Rows on one side only (not compared):")
        parts += ["  " + line for line in _one_sided_lines(c)]
        parts.append("")
    parts += _notes(c)
    parts.append("Verdict: " + _counts(c))
    return "\n".join(parts) + "\n"


def as_csv(c):
    out = io.StringIO()
    w = csv.writer(out, lineterminator="\n")
    w.writerow(("kind", "function", "parameters", "runs_a", "runs_b", "median_a", "median_b",
                "ratio", "low", "high", "p", "verdict", "missed_accuracy"))
    na, nb = len(c.runs_a), len(c.runs_b)
    num = lambda x: "" if x is None else "%.6g" % x
    for f in c.functions:
        w.writerow(("function", f.function, "", na, nb, "", "", num(f.ratio), num(f.low),
                    num(f.high), num(f.p), f.verdict, sum(r.missed for r in f.rows)))
    for r in c.rows:
        w.writerow(("row", r.function, r.label, na, nb, num(r.median_a), num(r.median_b),
                    num(r.ratio), "", "", num(r.p), r.verdict, r.missed))
    for o in c.one_sided:
        w.writerow(("only_" + o.side.lower(), o.function, o.label, na, nb, "", "", "", "", "",
                    "", "", ""))
    return out.getvalue()


def as_markdown(c, show_rows=True):
    parts = ["- " + s for s in _sides(c)] + ["", "### Functions", "",
                                              markdown(FUNCTION_HEADER, map(_function_cells, c.functions)), ""]
    if show_rows and c.rows:
        parts += ["### Rows (clocks per element)", "", markdown(ROW_HEADER, map(_row_cells, c.rows)), ""]
    if c.one_sided:
        parts += ["### Rows on one side only", ""]
        parts += ["- " + line for line in _one_sided_lines(c)]
        parts.append("")
    parts += ["- " + n for n in _notes(c)] + ["", "**Verdict:** " + _counts(c)]
    return "\n".join(parts) + "\n"
