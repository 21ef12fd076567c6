"""Clocks per element against a function's size, one line per value of its
other parameters, one or two sides overlaid, as PNG and SVG."""

import os
import re

import matplotlib
matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402
from matplotlib import ticker  # noqa: E402

from .grid import medians, select  # noqa: E402
from .tables import EMPTY, param_names  # noqa: E402

MAX_LINES = 6
SIDE_STYLES = ("-", "--")
SIDE_MARKERS = ("o", "s")


def _number(text):
    try:
        return float(text)
    except ValueError:
        return None


def size_column(rows):
    """The column the figures are drawn against: the first parameter column
    whose values change, which is the size in every grid of the catalogue."""
    params = [p for p, _, _ in rows]
    if not params:
        return None
    for i in range(len(params[0])):
        if len(set(p[i] for p in params)) > 1:
            return i
    for i, value in enumerate(params[0]):
        if value != EMPTY:
            return i
    return None


def _series(rows, size_at, names):
    """Lines in first-appearance order: label -> list of (size text, clocks)."""
    lines = {}
    for params, variant, clocks in rows:
        others = ["%s=%s" % (names[i], v) for i, v in enumerate(params)
                  if i != size_at and v != EMPTY]
        if variant:
            others.append(variant)
        label = " ".join(others) or "all"
        lines.setdefault(label, []).append((params[size_at], clocks))
    return lines


def safe_name(function):
    return re.sub(r"[^A-Za-z0-9_.-]", "_", function)


def plot_function(function, sides, out_dir):
    """sides: list of (side name, runs, medians of that side). Returns the
    files written."""
    first_runs = sides[0][1]
    rows = next((m[function] for _, _, m in sides if function in m), [])
    size_at = size_column(rows)
    if size_at is None:
        return []
    names = param_names([r for _, runs, _ in sides for r in runs], function)
    unit = next((row.unit for _, runs, _ in sides for run in runs for row in run.rows
                 if row.function == function and row.unit not in ("", EMPTY)), "e")
    fig, ax = plt.subplots(figsize=(8, 5))
    colors = plt.rcParams["axes.prop_cycle"].by_key()["color"]
    numeric = True
    all_sizes = []
    shown = total = 0
    for s, (side_name, _, m) in enumerate(sides):
        if function not in m:
            continue
        lines = _series(m[function], size_at, names)
        total = max(total, len(lines))
        for n, (label, points) in enumerate(list(lines.items())[:MAX_LINES]):
            points = [(x, y) for x, y in points if y is not None]
            xs = [_number(x) for x, _ in points]
            if any(x is None for x in xs):
                numeric = False
            all_sizes += [x for x, _ in points]
            if numeric:
                points = sorted(points, key=lambda p: _number(p[0]))
            tag = label if len(sides) == 1 else "%s %s" % ("AB"[s], label)
            ax.plot([_number(x) if numeric else x for x, _ in points], [y for _, y in points],
                    linestyle=SIDE_STYLES[s % 2], marker=SIDE_MARKERS[s % 2],
                    color=colors[n % len(colors)], label=tag)
            shown = max(shown, n + 1)
    sizes = [_number(x) for x in all_sizes]
    if numeric and sizes and min(sizes) > 0 and max(sizes) / min(sizes) >= 16:
        ax.set_xscale("log", base=2)
        ax.xaxis.set_major_formatter(ticker.ScalarFormatter())
    cpu = first_runs[0].title_value("CPU") if first_runs else ""
    title = "%s: clocks per element (%s)" % (function, unit)
    if shown < total:
        title += ", first %d of %d grids" % (shown, total)
    ax.set_title(title + ("\n" + cpu if cpu else ""), fontsize=10)
    ax.set_xlabel(names[size_at] if size_at < len(names) else "size")
    ax.set_ylabel("clocks per element")
    ax.set_ylim(bottom=0)
    ax.grid(True, alpha=0.3)
    ax.legend(fontsize=8)
    if len(sides) > 1:
        fig.text(0.01, 0.01, "   ".join("%s (%s): %s" % ("AB"[i], SIDE_STYLES[i % 2], name)
                                      for i, (name, _, _) in enumerate(sides)), fontsize=8)
        fig.tight_layout(rect=(0, 0.04, 1, 1))
    else:
        fig.tight_layout()
    os.makedirs(out_dir, exist_ok=True)
    written = []
    for ext in ("png", "svg"):
        path = os.path.join(out_dir, "%s.%s" % (safe_name(function), ext))
        fig.savefig(path, dpi=100)
        written.append(path)
    plt.close(fig)
    return written


def plot(sides, out_dir, patterns=()):
    """sides: list of (name, runs). Draws every selected function."""
    prepared = [(name, runs, medians(runs)) for name, runs in sides]
    functions = []
    for _, _, m in prepared:
        functions += [f for f in m if f not in functions]
    written = []
    for function in select(functions, patterns):
        written += plot_function(function, prepared, out_dir)
    return written
