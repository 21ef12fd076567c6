"""Performance tables written the way the program writes them, and the
command line of kelvar-compare, for tests."""

import io
import os
from contextlib import redirect_stderr

import numpy as np

from kvcompare import cli

TITLE = ["CPU,Processor with AVX2, 2x2.53 GHz, Max cache size 32768 K",
         "OS,Linux (6.1.0, x86_64)",
         "Computer,testhost",
         "Library,vdlsr reference, 1.0.0 (r1), Nov 23 2026",
         "Start,Mon Nov 23 02:45:43 2026"]
HEADER = ("funcBase,funcDataType,funcDescriptor,Len/Size,Parm1,Parm2,Parm3,Parm4,"
          "scaleFactor,Comment,Clocks,per,Time (usec),MFlops")


def row(base, size, clocks, parm1="-", comment="nLps=4", dtype="32f", desc="D2"):
    figure = "-" if clocks is None else "%.6g" % clocks
    return "%s,%s,%s,%s,%s,-,-,-,-,%s,%s,e,0.5,-" % (base, dtype, desc, size, parm1,
                                                    comment, figure)


def run_cli(*argv):
    """Exit code, standard output and standard error of kelvar-compare."""
    out, err = io.StringIO(), io.StringIO()
    with redirect_stderr(err):
        code = cli.main(list(argv), out)
    return code, out.getvalue(), err.getvalue()


def write_table(path, rows, title=TITLE):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w") as f:
        f.write("\n".join(list(title) + [HEADER] + list(rows)) + "\n")
    return path


SIZES = (16, 32, 64, 128, 256, 512, 1024, 2048)


def synthetic_side(folder, rng, runs, factor, noise, functions=("vdlsLogGauss", "vdlsMahDist")):
    """Folder of runs whose figures are a base curve times factor, each run and
    row with a log-normal noise of the given relative size."""
    for k in range(runs):
        rows = []
        for f, base in enumerate(functions):
            for size in SIZES:
                truth = (2.0 + f) * (1.0 + 8.0 / size) * factor
                rows.append(row(base, size, truth * float(np.exp(rng.normal(0.0, noise)))))
        write_table(os.path.join(folder, "run%02d" % (k + 1), "kelvar.csv"), rows)
    return folder
