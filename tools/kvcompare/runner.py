"""Repeated runs of kelvar for one or two builds of the library, interleaved
A B A B so that a drift of the machine falls on both sides alike."""

import os
import subprocess
import sys
import time

from .tables import TableError

TABLE_KEYS = ["-B", "-r", "-q", "-u", "-o"]


def hms(seconds):
    seconds = int(round(seconds))
    return "%02d:%02d:%02d" % (seconds // 3600, seconds // 60 % 60, seconds % 60)


def check_keys(keys):
    for key in keys:
        if key[:2] in ("-l", "/l"):
            raise TableError("do not give -l: every run writes its tables into its own "
                             "folder under the results folder (--out)")


class Progress:
    """One line rewritten in place on a terminal, one line per run otherwise."""

    def __init__(self, total, stream=None):
        self.total = total
        self.stream = stream or sys.stderr
        self.start = time.monotonic()
        self.tty = self.stream.isatty()

    def update(self, done, what):
        elapsed = time.monotonic() - self.start
        left = elapsed / done * (self.total - done) if done else 0.0
        text = "run %d of %d (%s), elapsed %s, about %s left" % (
            done, self.total, what, hms(elapsed), hms(left))
        if self.tty:
            self.stream.write("\r" + text.ljust(70) + ("\n" if done == self.total else ""))
        else:
            self.stream.write(text + "\n")
        self.stream.flush()


def run_side(kelvar, folder, lib, keys):
    """One run of the program into folder; returns its exit code."""
    os.makedirs(folder)
    env = dict(os.environ)
    if lib:
        old = env.get("LD_LIBRARY_PATH")
        env["LD_LIBRARY_PATH"] = os.path.abspath(lib) + (":" + old if old else "")
    command = [kelvar] + TABLE_KEYS + ["-l" + os.path.abspath(folder)] + list(keys)
    with open(os.path.join(folder, "console.txt"), "w") as console:
        console.write("# " + " ".join(command) + "\n")
        if lib:
            console.write("# LD_LIBRARY_PATH=" + env["LD_LIBRARY_PATH"] + "\n")
        console.flush()
        code = subprocess.call(command, stdout=console, stderr=subprocess.STDOUT,
                               stdin=subprocess.DEVNULL, env=env)
    if not any(name.endswith(".csv") and not name.endswith(("_name.csv", "_sum.csv"))
               for name in os.listdir(folder)):
        raise TableError("kelvar wrote no performance table into %s (exit code %d); "
                         "its console output is in %s" % (folder, code,
                                                          os.path.join(folder, "console.txt")))
    return code


def repeat_runs(kelvar, out_dir, sides, runs, keys, progress_stream=None):
    """sides: list of (name, library folder or None). Returns the side folders
    and the runs that ended with a failed test."""
    if not os.path.isfile(kelvar) or not os.access(kelvar, os.X_OK):
        raise TableError("%s: no kelvar program there; build it (cmake --build build "
                         "--target kelvar) or give --kelvar" % kelvar)
    check_keys(keys)
    folders = [os.path.join(out_dir, name) for name, _ in sides]
    for folder in folders:
        if os.path.exists(folder):
            raise TableError("%s already exists: give a new results folder with --out"
                             % folder)
    os.makedirs(out_dir, exist_ok=True)
    with open(os.path.join(out_dir, "runs.txt"), "w") as note:
        note.write("started %s\nkelvar %s\nkeys %s\n" % (
            time.strftime("%Y-%m-%d %H:%M:%S"), os.path.abspath(kelvar), " ".join(keys)))
        for name, lib in sides:
            note.write("side %s library %s\n" % (name, os.path.abspath(lib) if lib
                                                   else "(the program's own)"))
    progress = Progress(runs * len(sides), progress_stream)
    failed = []
    done = 0
    for k in range(1, runs + 1):
        for (name, lib), folder in zip(sides, folders):
            run_folder = os.path.join(folder, "run%02d" % k)
            if run_side(kelvar, run_folder, lib, keys) != 0:
                failed.append(run_folder)
            done += 1
            progress.update(done, "%s %d" % (name, k))
    return folders, failed
