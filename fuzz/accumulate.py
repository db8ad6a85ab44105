#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the fuzz targets of a folder at low priority until each has had its processor time.

  fuzz/accumulate.py FOLDER [--hours 1] [--round 300] [--beside 2] [--nice 19] [--log FILE] [TARGET...]

FOLDER  built by build.sh; new inputs go to FOLDER/corpus/TARGET
TARGET  those to run; all by default

The targets that have had the least time so far run next, so that all gain evenly and the program can
be ended and started again at any moment: FOLDER/accumulated.csv keeps one line for each round
(target, processor seconds by getrusage, wall seconds, inputs, what the round ended with). A crash
stops its target, leaves the input in FOLDER and makes the program end with 1 after the others' hours.
"""
import argparse
import csv
import os
import pathlib
import re
import sys
import time

LIMITS = ["-max_len=4096", "-timeout=300", "-rss_limit_mb=4096", "-print_final_stats=1"]
FIELDS = ["target", "cpu_seconds", "wall_seconds", "inputs", "ended"]


class Rounds:
    """What each target has had, kept in a file."""

    def __init__(self, file):
        self.file = file
        self.rows = list(csv.DictReader(file.open())) if file.exists() else []

    def seconds(self, target):
        return sum(float(row["cpu_seconds"]) for row in self.rows if row["target"] == target)

    def inputs(self, target):
        return sum(int(row["inputs"]) for row in self.rows if row["target"] == target)

    def crashed(self, target):
        return any(row["target"] == target and row["ended"] == "crash" for row in self.rows)

    def add(self, row):
        self.rows.append(row)
        fresh = not self.file.exists()
        with self.file.open("a", newline="") as out:
            writer = csv.DictWriter(out, FIELDS)
            if fresh:
                writer.writeheader()
            writer.writerow(row)


def targets_of(folder, kept):
    return sorted(name.name for name in kept.iterdir()
                  if name.is_dir() and os.access(folder / name.name, os.X_OK))


def options_of(kept, target):
    words = kept.parent / "dictionaries" / f"{target}.dict"
    more = kept.parent / "options" / target
    lines = more.read_text().splitlines() if more.exists() else []
    return ([f"-dict={words}"] if words.exists() else []) + [
        line for line in lines if not line.startswith("#")]


def start(folder, kept, target, seconds, niceness):
    corpus = folder / "corpus" / target
    corpus.mkdir(parents=True, exist_ok=True)
    log = folder / f"{target}.round.log"
    process = os.fork()
    if process == 0:
        os.nice(niceness)
        os.chdir(folder)
        out = os.open(log, os.O_WRONLY | os.O_CREAT | os.O_TRUNC, 0o644)
        os.dup2(out, 1)
        os.dup2(out, 2)
        os.execv(folder / target,
                 [target, f"-max_total_time={seconds}", *LIMITS, *options_of(kept, target),
                  f"-artifact_prefix={folder}/{target}-", str(corpus), str(kept / target)])
    return process, log, time.monotonic()


def finish(running, process, status, usage):
    target, log, begun = running.pop(process)
    found = re.search(r"number_of_executed_units: *(\d+)", log.read_text(errors="replace"))
    failed = os.waitstatus_to_exitcode(status) != 0
    return {"target": target, "cpu_seconds": f"{usage.ru_utime + usage.ru_stime:.1f}",
            "wall_seconds": f"{time.monotonic() - begun:.0f}",
            "inputs": found.group(1) if found else 0, "ended": "crash" if failed else "time"}


def table(rounds, targets):
    for target in targets:
        print(f"{target:16} {rounds.seconds(target):8.0f} CPU s {rounds.inputs(target):12d} inputs"
              f"{'  CRASHED' if rounds.crashed(target) else ''}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("target", nargs="*")
    parser.add_argument("--hours", type=float, default=1.0, help="of processor time for each target")
    parser.add_argument("--round", type=int, default=300, help="seconds of one run")
    parser.add_argument("--beside", type=int, default=2, help="targets at the same time")
    parser.add_argument("--nice", type=int, default=19, help="how far behind other programs")
    parser.add_argument("--log", type=pathlib.Path)
    parser.add_argument("--table", action="store_true", help="print what there is and end")
    given = parser.parse_intermixed_args()
    folder, kept = given.folder.resolve(), pathlib.Path(__file__).resolve().parent / "corpus"
    rounds = Rounds(given.log or folder / "accumulated.csv")
    running = {}
    while not given.table:
        busy = {entry[0] for entry in running.values()}
        waiting = [t for t in given.target or targets_of(folder, kept)
                   if t not in busy and not rounds.crashed(t)
                   and rounds.seconds(t) < 3600 * given.hours]
        while waiting and len(running) < given.beside:
            target = min(waiting, key=rounds.seconds)
            waiting.remove(target)
            process, log, begun = start(folder, kept, target, given.round, given.nice)
            running[process] = (target, log, begun)
        if not running:
            break
        process, status, usage = os.wait3(0)
        rounds.add(finish(running, process, status, usage))
    targets = targets_of(folder, kept)
    table(rounds, targets)
    return 1 if any(rounds.crashed(target) for target in targets) else 0


if __name__ == "__main__":
    sys.exit(main())
