#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Instructions, counted by valgrind: the same on every run, however busy the machine.

  instructions.py VALUES_WORK     the guard: the JSON value's work beside nlohmann-json's, what has
                                  got worse; without valgrind exit status 77 (skipped), or 1 where
                                  everything is to be tested (L5KOV_TEST_ALL)
  instructions.py --all VALUES_WORK [QUERY_WORK]
                                  no limits: a table of every work that the program knows; and of
                                  a monitor's queries, without the Java runtime
"""
import collections
import os
import re
import shutil
import subprocess
import sys
import tempfile

# Measured: 0.28, 0.32, 0.57 and 0.46. What exceeds these has got worse.
MOST = {"read": 0.33, "absent": 0.36, "write_nested": 0.61, "copy_then_write": 0.5}
TIMES = 2000
QUERIES = 500

# Where the instructions of a query lie that are the asking side's own.
OWN = ("libl5kov.so", "libquery_guarded.so", "libquery_by_hand.so")
RUNTIMES = ("libc.so", "libstdc++.so", "libgcc_s.so", "ld-linux", "libm.so")


def counted(command, output="/dev/null"):
    run = subprocess.run(["valgrind", "--tool=callgrind", f"--callgrind-out-file={output}",
                          *command], check=True, capture_output=True, text=True)
    return int(re.search(r"Collected : (\d+)", run.stderr).group(1))


def per_work(program, library, work):
    """Start and end of the process fall out of the difference."""
    once, twice = (counted([program, library, work, str(n * TIMES)]) for n in (1, 2))
    return (twice - once) / TIMES


def works_of(program):
    return subprocess.run([program], check=True, capture_output=True,
                          text=True).stdout.split()


def costs_by_object(lines):
    """The instructions of each binary of OWN, and of those that it has called in the C and C++
    runtimes, from callgrind's output."""
    names = {}

    def binary(text):
        number, _, path = text.partition(" ")
        if path:
            names[number] = os.path.basename(path)
        return names[number]

    costs = collections.Counter()
    here = callee = ""
    called = False  # the next line is the cost of a call, what it calls in turn included
    for line in lines:
        key, _, rest = line.rstrip("\n").partition("=")
        if key == "ob":
            here = callee = binary(rest)
        elif key == "cob":
            callee = binary(rest)
        elif key == "calls":
            called = True
        elif re.match(r"[-+*\d]", line):
            if not here.startswith(OWN):
                pass
            elif not called:
                costs[here, "own"] += int(line.split()[-1])
            elif callee.startswith(RUNTIMES):
                costs[here, "runtimes"] += int(line.split()[-1])
            if called:
                called, callee = False, here
    return costs


def per_query(program, side, work):
    """Of one query, by binary."""
    both = []
    for times in (QUERIES, 2 * QUERIES):
        with tempfile.NamedTemporaryFile("r", encoding="utf-8") as output:
            counted([program, side, work, str(times)], output.name)
            with open(output.name, encoding="utf-8") as written:
                both.append(costs_by_object(written))
    total = collections.Counter()
    for (_, kind), cost in both[1].items():
        total[kind] += cost
    for (_, kind), cost in both[0].items():
        total[kind] -= cost
    return total["own"] / QUERIES, total["runtimes"] / QUERIES


def guard(program):
    worse = 0
    for work, most in MOST.items():
        ours, theirs = (per_work(program, library, work) for library in ("pocketjson", "nlohmann"))
        ratio = ours / theirs
        worse += ratio > most
        print(f"{work}: {ours:.0f} instructions, nlohmann-json {theirs:.0f}: {ratio:.2f}, "
              f"at most {most}{'' if ratio <= most else '  WORSE'}")
    return 1 if worse else 0


def table_of_values(program):
    print("| work | ours | nlohmann-json | ratio |\n|---|---:|---:|---:|")
    for work in works_of(program):
        ours, theirs = (per_work(program, library, work) for library in ("pocketjson", "nlohmann"))
        print(f"| {work} | {ours:.0f} | {theirs:.0f} | {ours / theirs:.2f} |", flush=True)


def table_of_queries(program):
    """Own code, and in the C and C++ runtimes for it."""
    print("\n| work | library's own | + runtimes | by hand | + runtimes | unchecked | + runtimes |"
          "\n|---|---:|---:|---:|---:|---:|---:|")
    for work in works_of(program):
        sides = ["library", "by_hand"] + (["unchecked"] if work.startswith("guarded") else [])
        cells = [f"{part:.0f}" for side in sides for part in per_query(program, side, work)]
        print(f"| {work} | {' | '.join(cells + [''] * (6 - len(cells)))} |", flush=True)


def main(arguments):
    if shutil.which("valgrind") is None:
        print("no valgrind")
        return 1 if os.environ.get("L5KOV_TEST_ALL") or "--all" in arguments else 77
    if arguments[0] != "--all":
        return guard(arguments[0])
    table_of_values(arguments[1])
    if len(arguments) > 2:
        table_of_queries(arguments[2])
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
