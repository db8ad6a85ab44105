#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Measures what a process can do only once: whole programs, many times, in random order each time.

  processes.py BUILD JAVA_HOME REPETITIONS OUTPUT.json [SEED]
"""
import json
import os
import random
import re
import subprocess
import sys
import tempfile
import time


def printed_time(command, environment):
    """The nanoseconds that a program prints."""
    run = subprocess.run(command, env=environment, check=True, capture_output=True)
    return {"": float(run.stdout)}


def start_times(command, environment):
    """Those of a start of Java, as first_env prints them, and of its steps."""
    run = subprocess.run(command, env=environment, check=True, capture_output=True)
    whole, load, create = (float(part) for part in run.stdout.split())
    return {"": whole, "_load": load, "_create": create, "_rest": whole - load - create}


def whole_time(command, environment):
    """The nanoseconds from start to end of a program."""
    start = time.monotonic_ns()
    subprocess.run(command, env=environment, check=True, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)
    return {"": float(time.monotonic_ns() - start)}


# The maker's two, which lie elsewhere, and what every C++ program has loaded.
NOT_TO_LOAD = ("libmeter_", "libchroma_", "libstdc++.", "libgcc_s.", "libm.", "libc.", "ld-linux")


def other_needed(library):
    """What else the loader would load with the library."""
    entries = subprocess.run(["readelf", "-dW", library], check=True, capture_output=True,
                             text=True).stdout
    needed = re.findall(r"\(NEEDED\).*\[(.*)\]", entries)
    return [name for name in needed if not name.startswith(NOT_TO_LOAD)]


def commands(build, java_home):
    bench = f"{build}/bench"
    jars = (f"{build}/simulator/dataImport.jar:{build}/simulator/KOVLibrary.jar:"
            f"{bench}/host/classes")
    library = f"{build}/lib/libl5kov.so"
    before = [f"{build}/simulator/libmeter_x64.so", f"{build}/simulator/libchroma_x64.so",
              *other_needed(library)]
    yield "first_env", "library", start_times, [f"{bench}/first_env", "library"]
    yield "first_env", "raw", start_times, [f"{bench}/first_env", "raw"]
    load = [f"{bench}/load_time", *before]
    yield "load", "library", printed_time, [*load, library]
    yield "load", "raw", printed_time, load
    if os.access(f"{build}/bin/kovctl", os.X_OK):
        yield "kovctl_list", "library", whole_time, [f"{build}/bin/kovctl", "list"]
        java = [f"{java_home}/bin/java", "-cp", jars, "ListMonitors"]
        yield "kovctl_list", "raw", whole_time, java


def main(build, java_home, repetitions, output, seed=None):
    seed = random.SystemRandom().randrange(2 ** 32) if seed is None else int(seed)
    print(f"whole processes, in an order by the seed {seed}", flush=True)
    lot = random.Random(seed)
    with tempfile.TemporaryDirectory() as home:
        with open(f"{home}/simulator.properties", "w", encoding="utf-8") as settings:
            settings.write("search.ms = 0\nnoise = off\nstate = none\n")
        environment = dict(os.environ, KOV_SIM_HOME=home)
        every = list(commands(build, java_home))
        for _, _, measure, command in every:
            measure(command, environment)  # what comes from the disk comes now
        times = {}
        for _ in range(int(repetitions)):
            lot.shuffle(every)  # so that none always runs after the same one
            for work, side, measure, command in every:
                for step, taken in measure(command, environment).items():
                    times.setdefault(f"{work}{step}/{side}", []).append(taken)
    with open(output, "w", encoding="utf-8") as file:
        json.dump(times, file)


main(*sys.argv[1:])
