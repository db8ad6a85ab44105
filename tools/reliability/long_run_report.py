#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Slopes and a plot of a long run.

  tools/reliability/long_run_report.py LONG.csv [--svg FILE]

LONG.csv  what reliability_long_run printed, with tools/reliability/jvm_memory.sh as its probe

For each kind of work and each figure: the slope of a straight line fitted to the samples behind the
warm-up (the first quarter), as growth over the whole run, with its 95 % confidence interval. A slope
whose interval holds 0 is no growth that can be told from noise.
"""
import argparse
import csv
import math
import sys

COLUMNS = ["resident", "Java heap", "native heap", "descriptors", "global handles", "weak handles",
           "Java's own"]
SHOWN = {"resident": "#c23b22", "Java's own": "#7a5195", "native heap": "#2f7ebc",
         "Java heap": "#3a923a"}
# Student's t at 97.5 % for 1, 2, ... degrees of freedom (any table of it).
T975 = [12.71, 4.30, 3.18, 2.78, 2.57, 2.45, 2.36, 2.31, 2.26, 2.23, 2.20, 2.18, 2.16, 2.14, 2.13,
        2.12, 2.11, 2.10, 2.09, 2.09]


def read(file):
    phases = {}
    for row in csv.reader(open(file)):
        if len(row) == 2 + len(COLUMNS):
            phases.setdefault(row[0], []).append([int(cell) for cell in row[1:]])
    return phases


def growth(rows, column):
    """Growth over the whole run, and half the width of its confidence interval."""
    behind = rows[len(rows) // 4:]
    x = [row[0] / rows[-1][0] for row in behind]
    y = [row[1 + column] for row in behind]
    n = len(x)
    mx, my = sum(x) / n, sum(y) / n
    sxx = sum((a - mx) ** 2 for a in x)
    slope = sum((a - mx) * (b - my) for a, b in zip(x, y)) / sxx
    left = sum((b - my - slope * (a - mx)) ** 2 for a, b in zip(x, y))
    return slope, T975[min(n - 3, len(T975) - 1)] * math.sqrt(left / (n - 2) / sxx)


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


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("file")
    parser.add_argument("--svg")
    given = parser.parse_args()
    phases = read(given.file)
    print("| over | figure | at a quarter | at the end | growth | 95 % interval |")
    print("|---|---|---|---|---|---|")
    for phase, rows in phases.items():
        for column, name in enumerate(COLUMNS):
            slope, half = growth(rows, column)
            unit = "" if "handles" in name or name == "descriptors" else " KiB"
            print(f"| {rows[-1][0]:,} {phase} | {name} | {rows[len(rows) // 4][1 + column]:,}{unit} "
                  f"| {rows[-1][1 + column]:,}{unit} | {slope:+,.0f} | ± {half:,.0f} |")
    if given.svg:
        plot(phases, given.svg)
    return 0


if __name__ == "__main__":
    sys.exit(main())
