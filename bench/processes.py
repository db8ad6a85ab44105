#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Measures what a process can do only once: whole programs, many times, in turn.

  processes.py BUILD JAVA_HOME REPETITIONS OUTPUT.json
"""
import json
import os
import subprocess
import sys
import tempfile
import time


def printed_time(command, environment):
    """The nanoseconds that a program prints."""
    return float(subprocess.run(command, env=environment, check=True, capture_output=True).stdout)


def whole_time(command, environment):
    """The nanoseconds from start to end of a program."""
    start = time.monotonic_ns()
    subprocess.run(command, env=environment, check=True, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)
    return float(time.monotonic_ns() - start)


def commands(build, java_home):
    bench = f"{build}/bench"
    jars = (f"{build}/simulator/dataImport.jar:{build}/simulator/KOVLibrary.jar:"
            f"{bench}/host/classes")
    before = [f"{build}/simulator/libmeter_x64.so", f"{build}/simulator/libchroma_x64.so",
              "libtinyxml2.so.9"]
    yield "first_env/library", printed_time, [f"{bench}/first_env", "library"]
    yield "first_env/raw", printed_time, [f"{bench}/first_env", "raw"]
    yield "load/library", printed_time, [f"{bench}/load_time", *before, f"{build}/lib/libl5kov.so"]
    yield "load/raw", printed_time, [f"{bench}/load_time", *before]
    if os.access(f"{build}/bin/kovctl", os.X_OK):
        yield "kovctl_list/library", whole_time, [f"{build}/bin/kovctl", "list"]
        yield "kovctl_list/raw", whole_time, [f"{java_home}/bin/java", "-cp", jars, "ListMonitors"]


def main(build, java_home, repetitions, output):
    with tempfile.TemporaryDirectory() as home:
        with open(f"{home}/simulator.properties", "w", encoding="utf-8") as settings:
            settings.write("search.ms = 0\nnoise = off\nstate = none\n")
        environment = dict(os.environ, KOV_SIM_HOME=home)
        every = list(commands(build, java_home))
        for _, measure, command in every:
            measure(command, environment)  # what comes from the disk comes now
        times = {name: [] for name, _, _ in every}
        for repetition in range(repetitions):
            # Each takes every place in turn, so that none is always measured after the same one.
            turn = repetition % len(every)
            for name, measure, command in every[turn:] + every[:turn]:
                times[name].append(measure(command, environment))
    with open(output, "w", encoding="utf-8") as file:
        json.dump(times, file)


main(sys.argv[1], sys.argv[2], int(sys.argv[3]), sys.argv[4])
