#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the fuzz targets of a folder at low priority until each has had its processor time.

  fuzz/accumulate.py FOLDER [--hours 1] [--round 300] [--beside 2] [--nice 19] [--log FILE]
                     [--table] [TARGET...]

FOLDER  built by build.sh; new inputs go to FOLDER/corpus/TARGET
TARGET  those to run; all that have kept inputs by default

The targets that have had the least time so far run next, so that all gain evenly. The program can be
ended (SIGINT, SIGTERM) and started again at any moment: FOLDER/accumulated.csv keeps one line for
each round (target, processor seconds by getrusage, wall seconds, inputs, what the round ended with,
the program's SHA-256), an unfinished one too. What counts is the time of the programs that are
there now.

A crash leaves its input in FOLDER (TARGET-crash-…, and so on); a round that fails without one, since
it could not start or the system killed it, leaves what it said (TARGET-failed-….log). The target does
not run as long as either lies there, and the program ends with 1 after the others' hours.
"""
import argparse
import contextlib
import csv
import hashlib
import os
import pathlib
import re
import signal
import sys
import time

LIMITS = ["-max_len=4096", "-timeout=300", "-rss_limit_mb=4096", "-print_final_stats=1"]
FIELDS = ["target", "cpu_seconds", "wall_seconds", "inputs", "ended", "program"]
KINDS = ["crash", "leak", "oom", "timeout", "failed"]
ENDS = {signal.SIGINT, signal.SIGTERM}


class Rounds:
    """What each target's present program has had, and what the others had; kept in a file."""

    def __init__(self, folder, targets, file):
        self.file = file
        self.programs = {target: hashlib.sha256((folder / target).read_bytes()).hexdigest()[:16]
                         for target in targets}
        self.rows = []
        if self.is_begun():
            with file.open(newline="") as text:
                reader = csv.DictReader(text)
                self.rows = list(reader)
            odd = [row for row in self.rows if None in row or None in row.values()]
            if reader.fieldnames != FIELDS or odd:
                sys.exit(f"{file} has other columns than {','.join(FIELDS)}; move it away")

    def is_begun(self):
        return self.file.exists() and self.file.stat().st_size > 0

    def sum(self, target, field, present=True):
        return sum(float(row[field]) for row in self.rows if row["target"] == target
                   and (row["program"] == self.programs[target]) == present)

    def seconds(self, target):
        return self.sum(target, "cpu_seconds")

    def add(self, row):
        self.rows.append(row)
        fresh = not self.is_begun()
        with self.file.open("a", newline="") as out:
            writer = csv.DictWriter(out, FIELDS)
            if fresh:
                writer.writeheader()
            writer.writerow(row)


def targets_of(folder, kept, asked):
    known = sorted(name.name for name in kept.iterdir() if name.is_dir())
    strange = [target for target in asked if target not in known]
    if strange:
        sys.exit(f"{kept} has no {', '.join(strange)}")
    targets = sorted(set(asked)) or known
    missing = [target for target in targets if not os.access(folder / target, os.X_OK)]
    if missing:
        sys.exit(f"{folder} lacks {', '.join(missing)}")
    return targets


def crashes(folder, target):
    return [file for kind in KINDS for file in folder.glob(f"{target}-{kind}-*")]


def options_of(kept, target):
    words = kept.parent / "dictionaries" / f"{target}.dict"
    more = kept.parent / "options" / target
    lines = more.read_text().splitlines() if more.exists() else []
    return ([f"-dict={words}"] if words.exists() else []) + [
        line for line in lines if not line.startswith("#")]


def become(folder, kept, target, seconds, niceness, out):
    """Makes this process the target."""
    # The parent's handlers are not the child's; an end that came meanwhile is one for it, too.
    for number in ENDS:
        signal.signal(number, signal.SIG_DFL)
    signal.pthread_sigmask(signal.SIG_UNBLOCK, ENDS)
    os.dup2(out, 1)
    os.dup2(out, 2)
    os.nice(niceness)
    os.chdir(folder)
    corpus = folder / "corpus" / target
    corpus.mkdir(parents=True, exist_ok=True)
    os.execv(folder / target,
             [target, f"-max_total_time={seconds}", *LIMITS, *options_of(kept, target),
              f"-artifact_prefix={folder}/{target}-", str(corpus), str(kept / target)])


def start(folder, kept, target, seconds, niceness):
    log = folder / f"{target}.round.log"
    out = os.open(log, os.O_WRONLY | os.O_CREAT | os.O_TRUNC | os.O_CLOEXEC, 0o644)
    process = os.fork()
    if process == 0:
        try:
            become(folder, kept, target, seconds, niceness, out)
        except Exception as error:  # pylint: disable=broad-exception-caught
            os.write(out, f"{error!r}\n".encode())
        finally:
            os._exit(126)
    os.close(out)
    return process, log, time.monotonic()


def how_it_ended(folder, target, log, code, ending):
    if crashes(folder, target):
        return "crash"
    if code == 0:
        return "time"
    if ending:
        return "ended"
    log.rename(folder / f"{target}-failed-{time.time_ns()}.log")
    return "failed"


def finish(folder, running, process, status, usage, ending):
    target, log, begun = running.pop(process)
    found = re.search(r"number_of_executed_units: *(\d+)", log.read_text(errors="replace"))
    code = os.waitstatus_to_exitcode(status)
    return {"target": target, "cpu_seconds": f"{usage.ru_utime + usage.ru_stime:.3f}",
            "wall_seconds": f"{time.monotonic() - begun:.0f}",
            "inputs": found.group(1) if found else 0,
            "ended": how_it_ended(folder, target, log, code, ending)}


def table(folder, rounds, targets):
    for target in targets:
        print(f"{target:16} {rounds.seconds(target):8.0f} CPU s {rounds.sum(target, 'inputs'):14,.0f}"
              f" inputs; earlier programs {rounds.sum(target, 'cpu_seconds', False):8.0f} CPU s "
              f"{rounds.sum(target, 'inputs', False):14,.0f} inputs"
              f"{'  CRASHED or FAILED' if crashes(folder, target) else ''}")


class Turns:
    """The rounds that run. Ended from outside, it starts no more, and those that run end and count."""

    def __init__(self, folder, kept, rounds, given):
        self.folder, self.kept, self.rounds, self.given = folder, kept, rounds, given
        self.running = {}
        self.ending = False
        for number in ENDS:
            signal.signal(number, self.end)

    def end(self, _number, _frame):
        self.ending = True
        for process in self.running:
            with contextlib.suppress(ProcessLookupError):
                os.kill(process, signal.SIGINT)  # the fuzzer says its figures, and ends

    def begin(self):
        busy = {entry[0] for entry in self.running.values()}
        waiting = [target for target in self.rounds.programs
                   if target not in busy and not crashes(self.folder, target)
                   and self.rounds.seconds(target) < 3600 * self.given.hours]
        # An end waits until the process is known that it has to reach.
        signal.pthread_sigmask(signal.SIG_BLOCK, ENDS)
        while waiting and not self.ending and len(self.running) < self.given.beside:
            target = min(waiting, key=self.rounds.seconds)
            waiting.remove(target)
            process, log, begun = start(self.folder, self.kept, target, self.given.round,
                                        self.given.nice)
            self.running[process] = (target, log, begun)
        signal.pthread_sigmask(signal.SIG_UNBLOCK, ENDS)

    def run(self):
        self.begin()
        while self.running:
            process, status, usage = os.wait3(0)
            row = finish(self.folder, self.running, process, status, usage, self.ending)
            self.rounds.add(row | {"program": self.rounds.programs[row["target"]]})
            self.begin()


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
    parser.add_argument("--kept", type=pathlib.Path, help="folder of the kept inputs")
    given = parser.parse_intermixed_args()
    folder = given.folder.resolve()
    kept = (given.kept or pathlib.Path(__file__).resolve().parent / "corpus").resolve()
    targets = targets_of(folder, kept, given.target)
    rounds = Rounds(folder, targets, given.log or folder / "accumulated.csv")
    if not given.table:
        Turns(folder, kept, rounds, given).run()
    table(folder, rounds, targets)
    return 1 if any(crashes(folder, target) for target in targets) else 0


if __name__ == "__main__":
    sys.exit(main())
