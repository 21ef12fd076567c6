"""Aligned text tables and number forms shared by the reports."""


def fmt_clocks(x):
    """Clocks in the forms the program writes them: more places for smaller
    figures, so that a median reads like the table's own cells."""
    if x is None or x <= 0:
        return "-"
    if x < 0.0001 or x > 10000000:
        return "%.3e" % x
    places = 0
    limit = 100.0
    while x < limit and places < 6:
        places += 1
        limit /= 10.0
    return "%.*f" % (places, x)


def fmt_ratio(x):
    return "-" if x is None else "%.3f" % x


def fmt_p(p):
    if p is None:
        return "-"
    return "<0.001" if p < 0.001 else "%.3f" % p


def fmt_range(low, high):
    if low is None or high is None:
        return "-"
    return "%.3f..%.3f" % (low, high)


def aligned(header, rows, right=()):
    """Columns padded to their widest cell; columns named in right are
    right-aligned (figures), the others left-aligned (names)."""
    table = [list(header)] + [list(r) for r in rows]
    widths = [max(len(str(r[i])) for r in table) for i in range(len(header))]
    lines = []
    for r in table:
        cells = []
        for i, cell in enumerate(r):
            cell = str(cell)
            cells.append(cell.rjust(widths[i]) if header[i] in right else cell.ljust(widths[i]))
        lines.append("  ".join(cells).rstrip())
    lines.insert(1, "  ".join("-" * w for w in widths))
    return "\n".join(lines)


def markdown(header, rows):
    esc = lambda c: str(c).replace("|", "\\|")
    out = ["| " + " | ".join(esc(h) for h in header) + " |",
           "|" + "|".join("---" for _ in header) + "|"]
    out += ["| " + " | ".join(esc(c) for c in r) + " |" for r in rows]
    return "\n".join(out)
