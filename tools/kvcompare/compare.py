"""Matching the rows of two sides and judging each row and function."""

from . import stats
from .tables import describe_params, param_names


class RowResult:
    def __init__(self, key, label, values_a, values_b, missed=0):
        self.key = key
        self.missed = missed          # runs of both sides that missed their accuracy
        self.function = key[0]
        self.label = label
        self.values_a = values_a      # one figure per run, None where missing
        self.values_b = values_b
        self.median_a = stats.median(values_a)
        self.median_b = stats.median(values_b)
        self.ratio = (self.median_b / self.median_a
                      if self.median_a and self.median_b else None)
        self.p = stats.u_test(values_a, values_b)
        self.verdict = "-"


class FunctionResult:
    def __init__(self, function, rows):
        self.function = function
        self.rows = rows
        self.ratio = self.low = self.high = self.p = None
        self.verdict = "-"


class OneSided:
    """A row that only one side has."""

    def __init__(self, side, function, label):
        self.side = side
        self.function = function
        self.label = label


class Comparison:
    def __init__(self, name_a, runs_a, name_b, runs_b, alpha, threshold):
        self.name_a, self.name_b = name_a, name_b
        self.runs_a, self.runs_b = runs_a, runs_b
        self.alpha, self.threshold = alpha, threshold
        self.rows = []
        self.functions = []
        self.one_sided = []

    @property
    def tested(self):
        return (len(self.runs_a) >= stats.MIN_RUNS_FOR_TEST
                and len(self.runs_b) >= stats.MIN_RUNS_FOR_TEST)

    def regressions(self):
        return [f for f in self.functions if f.verdict == "slower"]


def _collect(runs):
    """Key -> figures per run, in the order the keys first appear, and the
    number of runs whose figure of a key missed its accuracy target."""
    order = []
    figures = {}
    missed = {}
    for i, run in enumerate(runs):
        for key, row in run.keyed_rows().items():
            if key not in figures:
                figures[key] = [None] * len(runs)
                order.append(key)
            figures[key][i] = row.clocks
            if row.accuracy is not None:
                missed[key] = missed.get(key, 0) + 1
    return order, figures, missed


def _label(names, key):
    text = describe_params(names, key[1])
    if key[2]:
        text += " [" + key[2] + "]"
    if key[3]:
        text += " #%d" % (key[3] + 1)
    return text


def compare(name_a, runs_a, name_b, runs_b, alpha=0.05, threshold=0.02):
    result = Comparison(name_a, runs_a, name_b, runs_b, alpha, threshold)
    order_a, figures_a, missed_a = _collect(runs_a)
    order_b, figures_b, missed_b = _collect(runs_b)
    names = {}

    def label(key):
        if key[0] not in names:
            names[key[0]] = param_names(runs_a + runs_b, key[0])
        return _label(names[key[0]], key)

    by_function = {}
    for key in order_a:
        if key in figures_b:
            row = RowResult(key, label(key), figures_a[key], figures_b[key],
                            missed_a.get(key, 0) + missed_b.get(key, 0))
            row.verdict = stats.verdict(row.ratio, row.p, alpha, threshold)
            result.rows.append(row)
            by_function.setdefault(key[0], []).append(row)
        else:
            result.one_sided.append(OneSided("A", key[0], label(key)))
    for key in order_b:
        if key not in figures_a:
            result.one_sided.append(OneSided("B", key[0], label(key)))

    for function, rows in by_function.items():
        f = FunctionResult(function, rows)
        f.ratio, f.low, f.high, f.p = stats.function_effect(rows, alpha)
        f.verdict = stats.verdict(f.ratio, f.p, alpha, threshold)
        result.functions.append(f)

    result.functions.sort(key=lambda f: -(f.ratio or 0.0))
    result.rows.sort(key=lambda r: -(r.ratio or 0.0))
    return result
