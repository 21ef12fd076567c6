"""Parser of the comma-separated tables that kelvar writes.

Cells are never quoted, so a value with commas of its own (the processor
line of the run title, a library's name, version and date) spreads over
several cells.  Title rows are therefore read as a label and the rest of
the line, and result rows are anchored at both ends: the function cells
from the left, the result cells from the right, the parameters between.
"""

import os

TITLE_LABELS = ("CPU", "OS", "Computer", "Library", "Start")
HEADER_FIRST = "funcBase"
NAME_ROW_MARK = "parmNames"
EMPTY = "-"


class TableError(Exception):
    """A table that cannot be found or read; the message says which and why."""


class Row:
    """One parameter set of one test: its key cells and its figures."""

    def __init__(self, function, params, comment, clocks, unit, usec, line):
        self.function = function
        self.params = params          # tuple of the parameter cells, "-" when unused
        self.comment = comment
        self.clocks = clocks          # clocks per element, None for "-"
        self.unit = unit
        self.usec = usec
        self.line = line              # line number in the file, from 1
        self.loops = None
        self.accuracy = None          # text behind "acc=", a missed target
        self.variant = ""             # other comment words: deprecated, inCache, ...
        self._read_comment(comment)

    def _read_comment(self, comment):
        words = []
        for word in comment.split():
            key, sep, value = word.partition("=")
            if sep and key in ("nLps", "nCalls", "nStat"):
                self.loops = value
            elif sep and key == "acc":
                self.accuracy = value
            elif word != EMPTY:
                words.append(word)
        self.variant = " ".join(words)

    def key(self):
        return (self.function, self.params, self.variant)


class Run:
    """The title and rows of one run, as one block of a performance table."""

    def __init__(self, path, title, header):
        self.path = path
        self.title = title            # list of (label, value) in file order
        self.header = header
        self.rows = []
        self.names = {}               # function -> parameter names per column

    def title_value(self, label):
        for name, value in self.title:
            if name == label:
                return value
        return ""

    @property
    def param_titles(self):
        return self.header[3:self.header.index("Comment")]

    def keyed_rows(self):
        """Rows by key; a key met again in the same run gets a running number."""
        keyed = {}
        seen = {}
        for row in self.rows:
            base = row.key()
            count = seen.get(base, 0)
            seen[base] = count + 1
            keyed[base + (count,)] = row
        return keyed


def function_name(cells):
    """The library function's full name from funcBase, type and descriptor."""
    return "_".join(c for c in cells if c and c != EMPTY)


def parse_number(text):
    if text in ("", EMPTY):
        return None
    try:
        return float(text)
    except ValueError:
        return None


def parse_performance_table(path):
    """All runs in one performance table (a file appended by -R holds several)."""
    try:
        with open(path, encoding="utf-8", errors="replace") as f:
            lines = f.read().splitlines()
    except OSError as e:
        raise TableError("cannot read %s: %s" % (path, e.strerror or e)) from None

    runs = []
    title = []
    run = None
    for number, line in enumerate(lines, 1):
        if not line.strip():
            continue
        cells = line.split(",")
        first = cells[0]
        if first == HEADER_FIRST:
            if "Comment" not in cells or "Clocks" not in cells:
                raise TableError("%s:%d: column title row without Comment and Clocks"
                                 % (path, number))
            run = Run(path, title, cells)
            runs.append(run)
            title = []
        elif first in TITLE_LABELS:
            # A title row: before the first column title row, or the start of
            # the next run's block in a file appended to by later runs.
            run = None
            title.append((first, ",".join(cells[1:])))
        elif run is None:
            raise TableError("%s:%d: not a performance table (no column title row "
                             "before the first result row)" % (path, number))
        else:
            _add_row(run, cells, number)
    if not runs:
        raise TableError("%s: not a performance table (no row starts with %s)"
                         % (path, HEADER_FIRST))
    _merge_name_table(runs, path)
    return runs


def _add_row(run, cells, number):
    header = run.header
    width = len(header)
    comment_at = header.index("Comment")
    results = width - comment_at
    if len(cells) < width:
        cells = cells + [EMPTY] * (width - len(cells))
    func = cells[:3]
    tail = cells[-results:] if len(cells) > width else cells[comment_at:width]
    params = cells[3:len(cells) - results] if len(cells) > width else cells[3:comment_at]
    n_params = comment_at - 3
    if len(params) > n_params:
        # A parameter value with a comma of its own: keep it in its last column.
        params = params[:n_params - 1] + [",".join(params[n_params - 1:])]
    function = function_name(func)
    if tail[0] == NAME_ROW_MARK:
        run.names[function] = list(params)
        return
    cell = dict(zip(header[comment_at:], tail))
    run.rows.append(Row(function, tuple(params), cell.get("Comment", EMPTY),
                        parse_number(cell.get("Clocks", EMPTY)), cell.get("per", ""),
                        parse_number(cell.get("Time (usec)", EMPTY)), number))


def _merge_name_table(runs, path):
    """Parameter names of the name table written beside the performance table."""
    stem, ext = os.path.splitext(path)
    name_path = stem + "_name" + ext
    if not os.path.isfile(name_path):
        return
    try:
        named = parse_performance_table(name_path)
    except TableError:
        return
    names = {}
    for block in named:
        names.update(block.names)
    for run in runs:
        for function, cols in names.items():
            run.names.setdefault(function, cols)


def is_performance_table(path):
    base = os.path.basename(path)
    if not base.endswith(".csv") or base.endswith("_name.csv") or base.endswith("_sum.csv"):
        return False
    try:
        with open(path, encoding="utf-8", errors="replace") as f:
            return any(line.startswith(HEADER_FIRST + ",") for line in f)
    except OSError:
        return False


def load_runs(path):
    """The runs of one side: a performance table, or a folder of repeated runs.

    A folder is searched through, so both a results folder of `kelvar-compare
    run` and a folder that holds tables side by side will do.
    """
    if os.path.isfile(path):
        return parse_performance_table(path)
    if not os.path.isdir(path):
        raise TableError("%s: no such file or folder" % path)
    tables = []
    for root, dirs, files in os.walk(path):
        dirs.sort()
        for name in sorted(files):
            full = os.path.join(root, name)
            if is_performance_table(full):
                tables.append(full)
    if not tables:
        raise TableError("%s: no performance table (.csv with a funcBase row) in this folder"
                         % path)
    runs = []
    for table in tables:
        runs.extend(parse_performance_table(table))
    return runs


def param_names(runs, function):
    """Names of the parameter columns of a function: from the name table when
    one was written, else the column titles."""
    for run in runs:
        if function in run.names:
            titles = run.param_titles
            return [n if n != EMPTY else titles[i] for i, n in enumerate(run.names[function])]
    return list(runs[0].param_titles) if runs else []


def describe_params(names, params):
    """"rows=8 cols=30" for the used parameter cells of a row."""
    parts = []
    for i, value in enumerate(params):
        if value != EMPTY:
            name = names[i] if i < len(names) else "p%d" % (i + 1)
            parts.append("%s=%s" % (name, value))
    return " ".join(parts) if parts else "(no parameters)"
