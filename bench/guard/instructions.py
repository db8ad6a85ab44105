#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Instructions of the JSON value's work beside nlohmann-json's, counted by valgrind: the same on
every run, however busy the machine.

  instructions.py VALUES_WORK     without valgrind exit status 77 (skipped), or 1 where everything
                                  is to be tested (L5KOV_TEST_ALL)
"""
import os
import re
import shutil
import subprocess
import sys

# Measured: 0.28, 0.32, 0.57 and 0.46. What exceeds these has got worse.
MOST = {"read": 0.33, "absent": 0.36, "write_nested": 0.61, "copy_then_write": 0.5}
TIMES = 2000


def instructions(program, library, work, times):
    run = subprocess.run(
        ["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", program, library, work,
         str(times)], check=True, capture_output=True, text=True)
    return int(re.search(r"Collected : (\d+)", run.stderr).group(1))


def per_work(program, library, work):
    """Start and end of the process fall out of the difference."""
    once, twice = (instructions(program, library, work, n * TIMES) for n in (1, 2))
    return (twice - once) / TIMES


def main(program):
    if shutil.which("valgrind") is None:
        print("no valgrind")
        return 1 if os.environ.get("L5KOV_TEST_ALL") else 77
    worse = 0
    for work, most in MOST.items():
        ours, theirs = (per_work(program, library, work) for library in ("pocketjson", "nlohmann"))
        ratio = ours / theirs
        worse += ratio > most
        print(f"{work}: {ours:.0f} instructions, nlohmann-json {theirs:.0f}: {ratio:.2f}, "
              f"at most {most}{'' if ratio <= most else '  WORSE'}")
    return 1 if worse else 0


sys.exit(main(sys.argv[1]))
