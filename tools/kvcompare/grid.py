"""A function's figures as a grid: median clocks per element of each row over
the runs of one side, in the order the program wrote them."""

import fnmatch

from . import stats


def function_rows(runs):
    """function -> list of (params, variant, [clocks per run]) in file order."""
    order = {}
    for i, run in enumerate(runs):
        for key, row in run.keyed_rows().items():
            rows = order.setdefault(key[0], {})
            if key not in rows:
                rows[key] = [None] * len(runs)
            rows[key][i] = row.clocks
    return {f: [(k[1], k[2], v) for k, v in rows.items()] for f, rows in order.items()}


def medians(runs):
    return {f: [(p, var, stats.median(v)) for p, var, v in rows]
            for f, rows in function_rows(runs).items()}


def select(functions, patterns):
    """Functions whose name holds one of the patterns (shell wildcards allowed)."""
    if not patterns:
        return list(functions)
    chosen = []
    for f in functions:
        for p in patterns:
            if fnmatch.fnmatchcase(f, p) or (not any(c in p for c in "*?[") and p in f):
                chosen.append(f)
                break
    return chosen
