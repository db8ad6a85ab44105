#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Puts measurements into the document: the tables and a picture of cost over size.

  document.py DOCUMENT.md PICTURE.svg RESULTS.json
"""
import json
import math
import re
import sys

# What grows, in the order of the picture, and what one of it is called.
GROWING = {"monitors/library": "monitors", "history/library": "history entries",
           "look_up_tables/library": "look-up tables", "package_name/library": "models",
           "threads/library": "threads", "build/pocketjson": "members, built",
           "read_of_many/pocketjson": "members, read", "copy_members/pocketjson": "members, copied"}
COLOURS = ("#1b6ca8", "#c0392b", "#7f8c8d", "#8e44ad", "#d68910", "#117a65", "#2e86c1", "#34495e")
LEFT, TOP, WIDTH, HEIGHT = 70, 20, 460, 420
MOST_ITEMS, LEAST_NS, MOST_NS = 1e4, 0.5, 1e8


def place(size, nanoseconds):
    x = LEFT + WIDTH * math.log10(size) / math.log10(MOST_ITEMS)
    height = math.log10(nanoseconds / LEAST_NS) / math.log10(MOST_NS / LEAST_NS)
    return f"{x:.1f}", f"{TOP + HEIGHT * (1 - height):.1f}"


def grid():
    for power in range(5):
        x, _ = place(10 ** power, 1)
        yield f'<path class="grid" d="M{x} {TOP}V{TOP + HEIGHT}"/>'
        yield f'<text x="{x}" y="{TOP + HEIGHT + 18}" text-anchor="middle">{10 ** power:,}</text>'
    for power, name in ((0, "1 ns"), (3, "1 µs"), (6, "1 ms"), (8, "100 ms")):
        _, y = place(1, 10 ** power)
        yield f'<path class="grid" d="M{LEFT} {y}H{LEFT + WIDTH}"/>'
        yield f'<text x="{LEFT - 8}" y="{float(y) + 4:.1f}" text-anchor="end">{name}</text>'


def curves(sizes):
    for row, (name, items) in enumerate(GROWING.items()):
        points = [place(float(size), point["ns"]) for size, point in sizes.get(name, {}).items()]
        line = " ".join(",".join(point) for point in points)
        colour, y = COLOURS[row], TOP + 14 + 20 * row
        yield f'<polyline points="{line}" fill="none" stroke="{colour}" stroke-width="2"/>'
        for x, height in points:
            yield f'<circle cx="{x}" cy="{height}" r="3" fill="{colour}"/>'
        yield f'<text x="{LEFT + WIDTH + 16}" y="{y}" fill="{colour}">{items}</text>'


def picture(sizes):
    yield (f'<svg xmlns="http://www.w3.org/2000/svg" width="680" height="{TOP + HEIGHT + 40}" '
           'font-family="sans-serif" font-size="12">')
    yield "<style>.grid{stroke:#ddd}</style>"
    yield '<rect width="100%" height="100%" fill="white"/>'
    yield from grid()
    yield from curves(sizes)
    yield "</svg>"


def read(path):
    with open(path, encoding="utf-8") as file:
        return json.load(file)


def main(document_path, picture_path, results_path):
    results = read(results_path)
    with open(document_path, encoding="utf-8") as file:
        text = file.read()
    for name, lines in results["tables"].items():
        marks = rf"(<!-- {name} -->\n).*?(<!-- end of {name} -->)"
        text, times = re.subn(marks, lambda m, body=lines: f"{m[1]}{body}\n{m[2]}", text,
                              flags=re.DOTALL)
        if times != 1:
            sys.exit(f"{document_path}: {times} places for {name}")
    with open(document_path, "w", encoding="utf-8") as file:
        file.write(text)
    with open(picture_path, "w", encoding="utf-8") as file:
        file.write("\n".join(picture(results["sizes"])) + "\n")


main(*sys.argv[1:])
