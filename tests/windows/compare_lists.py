#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares two builds' lists of tests, and what the second has skipped.

  compare_lists.py LINUX-BUILD WINDOWS-BUILD WINDOWS-RESULTS   (what ctest --output-junit writes)

A test of one list only, one that was skipped, and one that not every Java runtime has on Windows
needs a line in missing_tests.txt that says why; a line that nothing needs any more is an error, too.
Writes WINDOWS-BUILD/lists.txt: each test, and what became of it on either side.
"""
import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree as tree

HERE = pathlib.Path(__file__).parent
RUNTIMES = 3  # tests/windows/run.sh tests with so many


def same_name(name):
    """Runtimes of other versions are other runtimes of the same tests; parameters may print
    otherwise."""
    return re.sub(r" +# GetParam.*", "", re.sub(r"^real\.jdk\d+\.", "real.jdk.", name))


def names(build):
    text = subprocess.run(["ctest", "--test-dir", build, "-N"], check=True,
                          stdout=subprocess.PIPE).stdout.decode()
    return re.findall(r"^ *Test +#\d+: (.*)$", text, re.M)


def skipped(results):
    """Also what else did not run: ctest has failed then, and here no reason excuses it. And what a
    driver of several tests says of its own."""
    found = set()
    for case in tree.parse(results).iter("testcase"):
        name = same_name(case.get("name"))
        if case.find("skipped") is not None or case.get("status") not in ("run", "fail"):
            found.add(name)
        for part in re.findall(r"^skipped (?:__main__\.)?([\w.]+): ",
                               case.findtext("system-out") or "", re.M):
            found.add(f"{name}.{part}")
    return found


def of_few_runtimes(windows):
    versions = {}
    for name in windows:
        match = re.match(r"real\.jdk(\d+)\.(?!xcheck)", name)
        if match:
            versions.setdefault(same_name(name), set()).add(match.group(1))
    every = set().union(*versions.values())
    if len(every) != RUNTIMES:
        return set(versions)
    return {name for name, own in versions.items() if own != every}


class Reasons:
    def __init__(self):
        self.lines = []
        for line in (HERE / "missing_tests.txt").read_text(encoding="utf-8").splitlines():
            if line and not line.startswith("#"):
                side, pattern, reason = line.split("\t")
                self.lines.append((side, pattern, reason))
        self.used = set()

    def of(self, side, name):
        for line in self.lines:
            if line[0].rstrip("?") == side and line[2] and re.fullmatch(line[1], name):
                self.used.add(line)
                return line[2]
        return None

    def unused(self):
        return [line[1] for line in self.lines
                if line not in self.used and not line[0].endswith("?")]


def main(linux_build, windows_build, results):
    linux = {same_name(name) for name in names(linux_build)}
    listed = names(windows_build)
    windows = {same_name(name) for name in listed}
    left_out = skipped(results)
    reasons = Reasons()
    wrong = []
    why = {}
    for side, what, concerned in (("L", "only on Linux", linux - windows),
                                  ("W", "only on Windows", windows - linux),
                                  ("S", "skipped", left_out),
                                  ("R", "not with each runtime", of_few_runtimes(listed))):
        for name in sorted(concerned):
            reason = reasons.of(side, name)
            why.setdefault(name, reason or "")
            if reason is None:
                wrong.append(f"{what}, without a reason: {name}")
    wrong += [f'missing_tests.txt: nothing needs "{pattern}"' for pattern in reasons.unused()]

    rows = []
    for name in sorted(linux | windows | left_out):
        on_windows = "skipped" if name in left_out else "runs" if name in windows else "-"
        rows.append("\t".join((name, "listed" if name in linux else "-", on_windows,
                               why.get(name, ""))).rstrip() + "\n")
    path = pathlib.Path(windows_build) / "lists.txt"
    path.write_text("# test, Linux, Windows, reason\n" + "".join(rows), encoding="utf-8")

    for line in wrong:
        print(line)
    print(f"{len(linux)} tests on Linux, {len(windows)} on Windows, "
          f"{len((linux & windows) - left_out)} run on both, {len(left_out)} skipped on Windows "
          f"(tests of drivers' own among them); all of them: {path}")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
