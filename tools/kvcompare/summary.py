"""One side at a glance: functions by clocks per element, and the figures
that are not to be trusted."""

from . import stats
from .grid import function_rows, select
from .tables import describe_params, param_names
from .textout import aligned, fmt_clocks

HEADER = ("function", "rows", "min", "median", "max", "unit", "missed acc")


def summarize(name, runs, patterns=()):
    per_function = function_rows(runs)
    units = {}
    missed = []
    for index, run in enumerate(runs):
        for row in run.rows:
            units.setdefault(row.function, row.unit)
            if row.accuracy is not None:
                missed.append((row, index, run))
    lines = ["%s (%d run%s)%s" % (name, len(runs), "" if len(runs) == 1 else "s",
                                  ", " + runs[0].title_value("CPU") if runs[0].title else ""), ""]
    table = []
    missed_count = {}
    for row, _, _ in missed:
        missed_count[row.function] = missed_count.get(row.function, 0) + 1
    for function in select(per_function, patterns):
        figures = [stats.median(v) for _, _, v in per_function[function]]
        present = sorted(x for x in figures if x is not None)
        table.append((function, len(figures),
                      fmt_clocks(present[0] if present else None),
                      fmt_clocks(stats.median(present)),
                      fmt_clocks(present[-1] if present else None),
                      units.get(function, ""),
                      missed_count.get(function, 0) or "-",
                      stats.median(present) or 0.0))
    table.sort(key=lambda r: -r[-1])
    lines.append("Functions by clocks per element (the median of the runs per row):")
    lines.append(aligned(HEADER, [r[:-1] for r in table], HEADER[1:]))
    chosen = set(r[0] for r in table)
    flagged = [m for m in missed if m[0].function in chosen]
    lines.append("")
    if flagged:
        lines.append("Rows whose accuracy target was missed (acc= in the comment): "
                     "their figures are not to be trusted, measure them again:")
        for row, index, run in flagged:
            names = param_names(runs, row.function)
            lines.append("  %s %s: %s clocks/%s, acc=%s  (%s line %d)" % (
                row.function, describe_params(names, row.params), fmt_clocks(row.clocks),
                row.unit or "e", row.accuracy, run.path, row.line))
    else:
        lines.append("No row missed its accuracy target.")
    empty = [(f, p) for f in chosen for p, _, v in per_function[f]
             if all(x is None for x in v)]
    if empty:
        lines.append("Rows without a figure (\"-\" in Clocks):")
        for f, p in empty:
            lines.append("  %s %s" % (f, describe_params(param_names(runs, f), p)))
    return "\n".join(lines) + "\n", len(flagged)
