#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Plants one mistake after the other in a copy of the tree and shows that a test fails for each.

  tools/reliability/mutate.py COPY BUILD [--jobs N] [--table FILE] [--only WORD] [--skip N]

COPY   a copy of the tree, which is changed and restored (never the tree itself)
BUILD  a configured and built build folder of that copy, tests included

First all tests that will be asked run over the copy as it is; one that fails there ends the run. A
mistake is noticed when a test fails by its own word (an assertion, a crash, an abort). A time-out
alone is none: that test runs again by itself, and counts only when it passes its limit there too. A
mistake that no test notices fails the run. One that does not compile is none and fails it too.
"""
import argparse
import collections
import itertools
import pathlib
import re
import subprocess
import sys
import time

TARGETS = ["l5kov", "l5kov_stepclock", "java_objects_test", "platform_test"]
LIMIT = 120  # seconds of one test, beside others
ALONE_LIMIT = 240  # and by itself
# How ctest words the end of a program that failed by its own doing.
FAILURES = re.compile(r"Failed|SEGFAULT|ILLEGAL|NUMERICAL|Subprocess aborted|Child aborted|"
                      r"Bus error|OTHER_FAULT")


def mutations(text):
    for block in re.split(r"\n\s*\n", re.sub(r"(?m)^#.*\n", "", text).strip()):
        found = {"old": [], "new": []}
        for line in block.splitlines():
            if line.startswith("FILE "):
                found["file"] = line[5:]
            elif line.startswith("TEST "):
                found["test"] = line[5:]
            elif line.startswith("-"):
                found["old"].append(line[2:])
            elif line.startswith("+"):
                found["new"].append(line[2:])
        found["old"] = "\n".join(found["old"])
        found["new"] = "\n".join(found["new"])
        yield found


def run(command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          errors="replace")


def build(folder, jobs):
    return run(["cmake", "--build", folder, "-j", str(jobs), "--target", *TARGETS])


def ask(folder, tests, jobs, limit, *more):
    """Runs tests; {name: how it ended} of those that did not pass, and how many ran."""
    said = run(["ctest", "--test-dir", folder, "-R", tests, "-E", "NOT_BUILT", "-LE", "slow",
                "-j", str(jobs), "--timeout", str(limit), *more]).stdout
    if "No tests were found" in said:
        raise SystemExit(f"no test matches {tests}")
    count = re.search(r"tests failed out of (\d+)", said)
    ended = dict(re.findall(r"^\s*\d+ - (\S+) \((.*)\)$", said, re.M))
    return ended, int(count.group(1)) if count else 0


def alone(folder, name):
    """How one test ends by itself; "" when it passes."""
    return ask(folder, f"^{re.escape(name)}$", 1, ALONE_LIMIT)[0].get(name, "")


def check_baseline(folder, wanted, jobs):
    for test in sorted({mutation["test"] for mutation in wanted}):
        listed = run(["ctest", "--test-dir", folder, "-N", "-R", test, "-LE", "slow"]).stdout
        if "Total Tests: 0" in listed:
            raise SystemExit(f"no test matches {test}")
    ended, count = ask(folder, "|".join(sorted({m["test"] for m in wanted})), jobs, LIMIT)
    failing = {name: how for name, how in ended.items()
               if (alone(folder, name) if how == "Timeout" else how)}
    if failing or not count:
        raise SystemExit(f"without any mistake {count} tests ran and these fail: {failing}")
    print(f"without a mistake: all {count} tests pass", flush=True)


def noticed(folder, tests, jobs):
    """The first test that fails and how it ended, or nothing."""
    for more in (["--stop-on-failure"], []):
        ended, _ = ask(folder, tests, jobs, LIMIT, *more)
        failing = [(name, how) for name, how in ended.items() if FAILURES.search(how)]
        if failing:
            return failing[0]
        for name in [name for name, how in ended.items() if how == "Timeout"]:
            again = alone(folder, name)
            if again == "Timeout" or FAILURES.search(again):
                return name, f"by itself too: {again}"
        if not ended:
            return None
    return None


def strike(copy, folder, mutation, jobs):
    file = copy / mutation["file"]
    original = file.read_text()
    if original.count(mutation["old"]) != 1:
        return "not in the file once", ""
    file.write_text(original.replace(mutation["old"], mutation["new"], 1))
    try:
        if build(folder, jobs).returncode:
            return "does not compile", ""
        found = noticed(folder, mutation["test"], jobs)
        return ("noticed", f"{found[0]} ({found[1]})") if found else ("NOT NOTICED", "")
    finally:
        file.write_text(original)


def first_difference(old, new):
    """The first line that the mistake changes, as it was and as it is."""
    lines = itertools.zip_longest(old.strip().splitlines(), new.strip().splitlines(), fillvalue="")
    was, now = next(pair for pair in lines if pair[0] != pair[1])
    return was.strip() or "(added)", now.strip() or "(dropped)"


def write_table(file, rows):
    counts = collections.Counter(row[0] for row in rows)
    lines = ["| in | mistakes |", "|---|---|"]
    lines += [f"| `{name}` | {count} |" for name, count in counts.items()]
    lines += [f"| together | {len(rows)} |", "",
              "| file | line | mistake | first test that fails |", "|---|---|---|---|"]
    lines += ["| " + " | ".join([row[0], f"`{row[1]}`", f"`{row[2]}`", row[3]]).replace(
        "||", "\\|\\|") + " |" for row in rows]
    file.write_text("\n".join(lines) + "\n")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("copy", type=pathlib.Path)
    parser.add_argument("build")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--table", type=pathlib.Path)
    parser.add_argument("--only", default="", help="those with this word in file or line")
    parser.add_argument("--skip", type=int, default=0, help="leave out the first so many")
    given = parser.parse_args()
    here = pathlib.Path(__file__).resolve().parent
    if given.copy.resolve() == here.parent.parent:
        raise SystemExit("COPY is the tree itself")
    wanted = [m for m in mutations((here / "mutations.txt").read_text())
              if given.only in m["file"] + m["old"]][given.skip:]
    built = build(given.build, given.jobs)
    if built.returncode:
        raise SystemExit(built.stdout[-2000:])
    check_baseline(given.build, wanted, given.jobs)
    rows, bad, begun = [], 0, time.time()
    for mutation in wanted:
        verdict, by = strike(given.copy, given.build, mutation, given.jobs)
        bad += verdict != "noticed"
        old, new = first_difference(mutation["old"], mutation["new"])
        rows.append((mutation["file"], old, new, by or verdict))
        print(f"{verdict:16} {mutation['file']}: {old} -> {new}: {by}", flush=True)
    build(given.build, given.jobs)
    print(f"{len(wanted) - bad} of {len(wanted)} mistakes noticed in {time.time() - begun:.0f} s")
    if given.table:
        write_table(given.table, rows)
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
