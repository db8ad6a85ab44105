#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Slopes and a plot of a long run.

  tools/reliability/long_run_report.py LONG.csv [--svg FILE] [--check PHASE...]
                                       [--calibration-bytes N]

LONG.csv  what reliability_long_run printed, with tools/reliability/jvm_memory.sh as its probe

For each kind of work and each figure: the slope of a straight line fitted to the samples behind the
warm-up (the first quarter), as growth over the whole run, with its 95 % confidence interval. A slope
whose interval holds 0 is no growth that can be told from noise; the others are marked. "At least" and
"at most" are the ends of the interval by which --check judges, "caught from" is the smallest further
leak, even over the run, that it would have noticed.

--check ends with 1 when one of the phases (operations, threads, calibrations) is missing, or when
something has grown:
- handles and descriptors, if there are more at the end than there ever were in the warm-up, or if
  the lower end of their line's interval says so;
- the Java heap, if the lower end of its line's is more than 64 KiB;
- other memory, if "at least" is more than 512 KiB and so many bytes for each operation, thread or
  calibration as BYTES_EACH has.
The Java runtime's compilers take megabytes for moments, so of the native heap and of the Java runtime's
own memory it is what is beside the compilers' part, by the middle slope between any two samples (Theil
and Sen): the two are asked for one after the other, and now and then apart. Resident size keeps what the
compilers took: of it, it is the middle step from sample to sample, as often as there are steps (sign
test). These two overlook lumps, so the last sample may not have more than the first one behind the warm-up
by more than that limit and 16 MiB either.
"""
import argparse
import csv
import math
import sys

COLUMNS = ["resident", "Java heap", "native heap", "descriptors", "global handles", "weak handles",
           "Java's own", "its compilers'"]
COMPILERS = COLUMNS.index("its compilers'")
COUNTS = ["descriptors", "global handles", "weak handles"]
JAVA_HEAP_KIB = 64
ONCE_KIB = 512
COMPILERS_KIB = 16 * 1024
# A leak of the smallest block, 16 bytes, at every hundredth operation would be 0.16.
BYTES_EACH = {"operations": 0.1, "threads": 16.0, "calibrations": 1024.0}
SHOWN = {"resident": "#c23b22", "Java's own": "#7a5195", "native heap": "#2f7ebc",
         "Java heap": "#3a923a"}
# Student's t at 97.5 % for 1, 2, ... degrees of freedom (any table of it).
T975 = [12.71, 4.30, 3.18, 2.78, 2.57, 2.45, 2.36, 2.31, 2.26, 2.23, 2.20, 2.18, 2.16, 2.14, 2.13,
        2.12, 2.11, 2.10, 2.09, 2.09]


def read(file):
    phases = {}
    for row in csv.reader(open(file)):
        if len(row) != 2 + len(COLUMNS):
            raise SystemExit(f"{file}: no sample: {','.join(row)}")
        phases.setdefault(row[0], []).append([int(cell) for cell in row[1:]])
    return phases


def behind_warm_up(rows, column):
    """Where in the run (0 to 1) a figure had which value."""
    return [(row[0] / rows[-1][0], row[1 + column]) for row in rows[len(rows) // 4:]]


def beside_the_compilers(rows, column):
    return [(row[0] / rows[-1][0], row[1 + column] - row[1 + COMPILERS])
            for row in rows[len(rows) // 4:]]


def line(points):
    """Growth over the whole run by a straight line, and half the width of its confidence interval."""
    n = len(points)
    mx, my = sum(x for x, _ in points) / n, sum(y for _, y in points) / n
    sxx = sum((x - mx) ** 2 for x, _ in points)
    slope = sum((x - mx) * (y - my) for x, y in points) / sxx
    left = sum((y - my - slope * (x - mx)) ** 2 for x, y in points)
    return slope, T975[min(n - 3, len(T975) - 1)] * math.sqrt(left / (n - 2) / sxx)


def line_interval(points):
    slope, half = line(points)
    return slope - half, slope + half


def steps_interval(points, number):
    """Growth over the whole run of so many steps when each is the middle one: the interval that
    this is in with 95 % (sign test)."""
    steps = sorted(b[1] - a[1] for a, b in zip(points, points[1:]))
    n, rank, below = len(steps), 0, 1
    while below / 2 ** n <= 0.025:
        rank += 1
        below += math.comb(n, rank)
    at = max(rank - 1, 0)
    return steps[at] * number, steps[-1 - at] * number


def slopes_interval(points):
    """Growth over the whole run by the middle slope between two samples: the interval that this is
    in with 95 % (Sen's by Kendall's variance)."""
    n = len(points)
    slopes = sorted((b[1] - a[1]) / (b[0] - a[0])
                    for at, a in enumerate(points) for b in points[at + 1:])
    width = 1.96 * math.sqrt(n * (n - 1) * (2 * n + 5) / 18)
    at = max(int((len(slopes) - width) / 2) - 1, 0)
    return slopes[at], slopes[-1 - at]


def limit(phase, rows, name, bytes_each):
    if name in COUNTS:
        return 0.5
    if name == "Java heap":
        return JAVA_HEAP_KIB
    return ONCE_KIB + rows[-1][0] * bytes_each[phase] / 1024


def judged(rows, name):
    """The samples by which a figure is judged, and the interval of its growth."""
    column = COLUMNS.index(name)
    if name in ["native heap", "Java's own"]:
        points = beside_the_compilers(rows, column)
        return points, slopes_interval(points)
    points = behind_warm_up(rows, column)
    if name == "resident":
        return points, steps_interval(points, len(rows) - 1)
    return points, line_interval(points)


def lump(rows, name, points):
    """What there is more at the end than behind the warm-up, as far as it is told from the compilers."""
    if name in COUNTS:
        column = 1 + COLUMNS.index(name)
        return rows[-1][column] - max(row[column] for row in rows[:len(rows) // 4 + 1])
    if name == "Java heap":
        return 0
    return points[-1][1] - points[0][1] - COMPILERS_KIB


def panel(phase, rows, left, width, height, top_value):
    parts = [f'<text x="{left}" y="16">{rows[-1][0]:,} {phase}</text>',
             f'<rect x="{left}" y="24" width="{width}" height="{height}" fill="none" stroke="#999"/>']
    for name, colour in SHOWN.items():
        column = 1 + COLUMNS.index(name)
        points = " ".join(f"{left + width * row[0] / rows[-1][0]:.1f},"
                          f"{24 + height * (1 - row[column] / top_value):.1f}" for row in rows)
        parts.append(f'<polyline points="{points}" fill="none" stroke="{colour}" stroke-width="1.5"/>')
    return parts


def plot(phases, file):
    top_value = 1.05 * max(row[1] for rows in phases.values() for row in rows)
    width, height, gap = 250, 220, 20
    parts = []
    for number, (phase, rows) in enumerate(phases.items()):
        parts += panel(phase, rows, 60 + number * (width + gap), width, height, top_value)
    for step in range(0, int(top_value / 1024) + 1, 50):
        y = 24 + height * (1 - step * 1024 / top_value)
        parts.append(f'<text x="54" y="{y + 4:.1f}" text-anchor="end">{step}</text>')
    parts.append('<text x="4" y="16">MiB</text>')
    for number, (name, colour) in enumerate(SHOWN.items()):
        parts.append(f'<text x="{60 + 150 * number}" y="{height + 48}" fill="{colour}">{name}</text>')
    total = 60 + len(phases) * (width + gap)
    with open(file, "w") as out:
        out.write(f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {total} {height + 60}" '
                  'font-family="sans-serif" font-size="12">\n<rect width="100%" height="100%" '
                  'fill="#fff"/>\n' + "\n".join(parts) + "\n</svg>\n")


def caught_from(rows, name, least, allowed):
    """The smallest even leak that would have been noticed: each measure shifts by as much."""
    if name in COUNTS:
        return f"{math.floor(allowed - least) + 1}"
    if name == "Java heap":
        return f"{allowed - least:,.0f} KiB"
    each = (allowed - least) * 1024 / rows[-1][0]
    return f"{each:,.{2 if each < 1 else 0}f} bytes each"


def row_of(phase, rows, name):
    """The table's line of one figure, without its last columns."""
    points = behind_warm_up(rows, COLUMNS.index(name))
    slope, half = line(points)
    unit = "" if name in COUNTS else " KiB"
    mark = " (excludes 0)" if abs(slope) > half else ""
    return (f"| {rows[-1][0]:,} {phase} | {name} | {points[0][1]:,}{unit} "
            f"| {points[-1][1]:,}{unit} | {slope:+,.0f} ± {half:,.0f}{mark} |")


def report(phases, bytes_each):
    """Prints the table; what is wrong, a line for each figure."""
    print("| over | figure | at a quarter | at the end | line | at least | at most | caught from |")
    print("|---|---|---|---|---|---|---|---|")
    complaints = []
    for phase, rows in phases.items():
        for column, name in enumerate(COLUMNS):
            told = row_of(phase, rows, name)
            if column == COMPILERS:  # a part of the Java runtime's own
                print(f"{told} | | |")
                continue
            points, (least, most) = judged(rows, name)
            allowed = limit(phase, rows, name, bytes_each)
            lumps = lump(rows, name, points)
            noticed = max(least, lumps) if name in COUNTS else least
            print(f"{told} {least:+,.0f} | {most:+,.0f} | "
                  f"{caught_from(rows, name, noticed, allowed)} |")
            if max(least, lumps) > allowed:
                complaints.append(f"{rows[-1][0]:,} {phase}: {name} grows by {least:,.1f} at least, "
                                  f"{lumps:,.1f} in lumps, {allowed:,.1f} allowed")
    return complaints


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("file")
    parser.add_argument("--svg")
    parser.add_argument("--check", nargs="+", metavar="PHASE", default=[])
    parser.add_argument("--calibration-bytes", type=float, default=BYTES_EACH["calibrations"])
    given = parser.parse_args()
    phases = {phase: rows for phase, rows in read(given.file).items() if len(rows) >= 8}
    missing = [phase for phase in given.check if phase not in phases]
    if missing or not phases:
        raise SystemExit(f"{given.file}: too few samples of {' '.join(missing) or 'anything'}")
    complaints = report(phases, {**BYTES_EACH, "calibrations": given.calibration_bytes})
    if given.svg:
        plot(phases, given.svg)
    if not given.check:
        return 0
    print("\n".join(complaints) or "nothing grows beyond its limit")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
