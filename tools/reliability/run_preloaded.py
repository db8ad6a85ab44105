#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs plain test programs over a library that was built with AddressSanitizer.

  tools/reliability/run_preloaded.py --least TESTS LIBRARIES VENDORS PROGRAM...

TESTS      so many there must be at least
LIBRARIES  the folder of the sanitized libl5kov.so (and libl5kov_stepclock.so)
VENDORS    the folder of the vendors' stand-ins
PROGRAM    GoogleTest programs of another build, over the fake Java runtime

Only the library is built again and not its tests, which takes a tenth of the time. What the library
does wrong with memory is found, and so is what anybody does wrong with memory of the heap, and leaks.
Each test runs in a process of its own.
"""
import concurrent.futures
import os
import re
import subprocess
import sys


def environment(libraries, vendors):
    found = subprocess.run(["g++", "-print-file-name=libasan.so"], capture_output=True, text=True)
    return dict(os.environ, LD_PRELOAD=os.path.realpath(found.stdout.strip()),
                LD_LIBRARY_PATH=f"{libraries}:{vendors}",
                ASAN_OPTIONS="detect_leaks=1:verify_asan_link_order=0")


def tests_of(program, vendors):
    listed = subprocess.run([program, "--gtest_list_tests"], capture_output=True, text=True,
                            env=dict(os.environ, LD_LIBRARY_PATH=vendors), check=True)
    suite = ""
    for line in listed.stdout.splitlines():
        if not line.startswith(" "):
            suite = line.split()[0] if line.split() and line.split()[0].endswith(".") else ""
        elif suite:
            yield program, suite + line.split()[0]


def run(test, given):
    program, name = test
    if name.startswith("ProcessExit."):
        # They end a process whose threads go on; the search for leaks cannot stop those and dies.
        given = dict(given, ASAN_OPTIONS=given["ASAN_OPTIONS"].replace("leaks=1", "leaks=0"))
    ended = subprocess.run([program, f"--gtest_filter={name}"], env=given, text=True,
                           stdout=subprocess.PIPE, stderr=subprocess.STDOUT, errors="replace")
    # A test may expect a process of its own to die, but never a sanitizer's report.
    reported = re.search(r"ERROR: \w+Sanitizer|runtime error:|SUMMARY: \w+Sanitizer", ended.stdout)
    return name, ended.returncode, bool(reported), ended.stdout


def main():
    if sys.argv[1] != "--least":
        sys.exit(__doc__)
    least, libraries, vendors, *programs = sys.argv[2:]
    given = environment(libraries, vendors)
    tests = [test for program in programs for test in tests_of(program, vendors)]
    bad = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for name, status, reported, said in pool.map(lambda test: run(test, given), tests):
            if status != 0 or reported:
                bad += 1
                print(f"== {name}: status {status}{', reported' if reported else ''}\n{said[-4000:]}")
    print(f"{len(tests)} tests over the sanitized library, {bad} with a report or a failure")
    return 1 if bad or len(tests) < int(least) else 0


if __name__ == "__main__":
    sys.exit(main())
