"""The statistics of a comparison: medians, the rank test, the range of a
function's ratio, and the verdict."""

import math
import warnings

import numpy as np
from scipy import stats as sstats

MIN_RUNS_FOR_TEST = 3
BOOTSTRAP_SAMPLES = 1000
BOOTSTRAP_SEED = 17


def u_test(a, b):
    """Two-sided Mann-Whitney U p-value, or None with fewer than 3 values a side."""
    a = [x for x in a if x is not None]
    b = [x for x in b if x is not None]
    if len(a) < MIN_RUNS_FOR_TEST or len(b) < MIN_RUNS_FOR_TEST:
        return None
    if len(set(a) | set(b)) == 1:
        return 1.0
    return float(sstats.mannwhitneyu(a, b, alternative="two-sided").pvalue)


def median(values):
    present = [x for x in values if x is not None]
    return float(np.median(present)) if present else None


def verdict(ratio, p, alpha, threshold):
    """faster, slower or same. Without a p-value (too few runs) the threshold
    alone decides."""
    if ratio is None:
        return "-"
    significant = p is None or p < alpha
    if significant and ratio > 1.0 + threshold:
        return "slower"
    if significant and ratio < 1.0 - threshold:
        return "faster"
    return "same"


def _median(x, axis):
    """nanmedian, by way of the much quicker median when nothing is missing."""
    return np.nanmedian(x, axis=axis) if np.isnan(x).any() else np.median(x, axis=axis)


def _matrix(rows, side):
    """Runs by rows of clocks, NaN where a run has no figure."""
    return np.array([[np.nan if v is None else v for v in getattr(r, side)] for r in rows],
                    dtype=float).T


def run_levels(a, b):
    """One figure per run: the median over the rows of the run's log-distance
    from the row's median over all runs. A few rows disturbed by load in one
    run move it little, a change of the whole function moves it fully."""
    with warnings.catch_warnings():
        warnings.simplefilter("ignore", RuntimeWarning)
        la, lb = np.log(a), np.log(b)
        ref = _median(np.vstack([la, lb]), 0)
        return _median(la - ref, 1), _median(lb - ref, 1)


def function_effect(rows, alpha):
    """Geometric mean of the row ratios, its range at confidence 1-alpha and
    the p-value of the runs' levels, for rows that hold figures on both sides.

    The range comes from resampling whole runs of each side, since the rows of
    one run share the state of the machine and are not independent."""
    ratios = [r.ratio for r in rows if r.ratio]
    if not ratios:
        return None, None, None, None
    ratio = math.exp(sum(math.log(x) for x in ratios) / len(ratios))
    used = [r for r in rows if r.ratio]
    a, b = _matrix(used, "values_a"), _matrix(used, "values_b")
    if a.shape[0] < MIN_RUNS_FOR_TEST or b.shape[0] < MIN_RUNS_FOR_TEST:
        return ratio, None, None, None
    level_a, level_b = run_levels(a, b)
    p = u_test([float(x) for x in level_a if not np.isnan(x)],
               [float(x) for x in level_b if not np.isnan(x)])
    rng = np.random.default_rng(BOOTSTRAP_SEED)
    with warnings.catch_warnings():
        warnings.simplefilter("ignore", RuntimeWarning)
        pick_a = rng.integers(0, a.shape[0], (BOOTSTRAP_SAMPLES, a.shape[0]))
        pick_b = rng.integers(0, b.shape[0], (BOOTSTRAP_SAMPLES, b.shape[0]))
        med_a = _median(a[pick_a], 1)
        med_b = _median(b[pick_b], 1)
        logs = np.nanmean(np.log(med_b / med_a), axis=1)
    logs = logs[~np.isnan(logs)]
    if logs.size == 0:
        return ratio, None, None, p
    low, high = np.percentile(logs, [100 * alpha / 2, 100 * (1 - alpha / 2)])
    return ratio, math.exp(low), math.exp(high), p
