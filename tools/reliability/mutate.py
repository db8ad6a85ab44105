#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Plants one mistake after the other in a copy of the tree and shows that a test fails for each.

  tools/reliability/mutate.py COPY BUILD [--jobs N] [--table FILE] [--only WORD] [--skip N]

COPY   a copy of the tree, which is changed and restored (never the tree itself)
BUILD  a configured and built build folder of that copy, tests included

A mistake that no test notices fails the run. One that does not compile is none and fails it too.
"""
import argparse
import pathlib
import re
import subprocess
import sys
import time


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


def run(command, **more):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          **more)


def build(folder, jobs):
    targets = ["l5kov", "l5kov_stepclock", "java_objects_test", "platform_test"]
    return run(["cmake", "--build", folder, "-j", str(jobs), "--target", *targets])


def noticed(folder, tests, jobs):
    """The tests that fail; those that are not built do not count."""
    said = run(["ctest", "--test-dir", folder, "-R", tests, "-E", "NOT_BUILT", "-j", str(jobs),
                "--stop-on-failure", "--timeout", "120"])
    if "No tests were found" in said.stdout:
        raise SystemExit(f"no test matches {tests}")
    return re.findall(r"^\s*\d+ - (\S+) \((?:Failed|Timeout|SEGFAULT|.*Abort.*|.*)\)$", said.stdout,
                      re.M) if said.returncode else []


def strike(copy, folder, mutation, jobs):
    file = copy / mutation["file"]
    original = file.read_text()
    if original.count(mutation["old"]) < 1:
        return "not in the file", []
    file.write_text(original.replace(mutation["old"], mutation["new"], 1))
    try:
        built = build(folder, jobs)
        if built.returncode:
            return "does not compile", []
        failing = noticed(folder, mutation["test"], jobs)
        return ("noticed" if failing else "NOT NOTICED"), failing
    finally:
        file.write_text(original)


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
    rows, bad, begun = [], 0, time.time()
    for mutation in wanted:
        verdict, failing = strike(given.copy, given.build, mutation, given.jobs)
        bad += verdict != "noticed"
        first = failing[0] if failing else verdict
        rows.append((mutation["file"], mutation["old"].strip().splitlines()[0],
                     (mutation["new"].strip().splitlines() or ["(dropped)"])[0] or "(dropped)", first))
        print(f"{verdict:16} {mutation['file']}: {rows[-1][1]} -> {rows[-1][2]}: {first}", flush=True)
    build(given.build, given.jobs)
    print(f"{len(wanted) - bad} of {len(wanted)} mistakes noticed in {time.time() - begun:.0f} s")
    if given.table:
        lines = ["| file | line | mistake | first test that fails |", "|---|---|---|---|"]
        lines += ["| " + " | ".join([row[0], f"`{row[1]}`", f"`{row[2]}`", row[3]]).replace("||", "\\|\\|")
                  + " |" for row in rows]
        given.table.write_text("\n".join(lines) + "\n")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
