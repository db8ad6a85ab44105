#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Where a calibration's processor time goes, by samples: no clock is asked on the way.

  calibration_samples.py BUILD_FOLDER OUTPUT.json [PROCESSES [SECONDS]]

Runs whole calibrations through the library under perf (Debian: linux-perf), which notes where the
program is outside the system's kernel, and through whom it came there, some thousand times a
second. Each sample of the calling thread belongs to whom it meets first on the way up from the
innermost function: compiled Java or the simulated monitor, the host, or the library. Allocations
belong to whom they are for. What belongs to the library is told apart by the function of the Java
runtime that it had called, if any. The first seconds of each process, in which Java compiles, are
left out. Writes a list of counts, one for each process; an empty one where perf may not or cannot
run.
"""
import collections
import json
import os
import re
import subprocess
import sys
import tempfile

FRAME = re.compile(r"\s+[0-9a-f]+ (.*) \((.*)\)$")
OF_THE_HOST = ("libmeter", "bench_java")
ARRAYS = ("jni_NewDoubleArray", "jni_SetDoubleArrayRegion")
# The benchmark counts allocations: these are its own, in place of the C library's.
ALLOCATION = ("malloc", "calloc", "realloc", "free")
REGISTRATION = ("jni_RegisterNatives", "jni_FindClass")
ENTERING = ("jni_Call", "jni_NewObject")


def stacks(lines):
    """Lists of (function, binary), innermost first."""
    frames = []
    for line in lines:
        found = FRAME.match(line.rstrip("\n"))
        if found:
            frames.append((found[1], os.path.basename(found[2])))
        elif frames and not line.strip():
            yield frames
            frames = []
    if frames:
        yield frames


def of_the_library(inner):
    """inner: the frames below the library's, innermost first."""
    if any(function.startswith(("dlopen", "_dl_")) for function, _ in inner):
        return "host"  # the simulated instrument, which a tail call has put in the host's place
    if not inner or "libjvm" not in inner[-1][1]:
        return "own code"
    function = inner[-1][0]
    if function in ARRAYS:
        return "measurements"
    if function in REGISTRATION:
        return "registering"
    return "entering Java" if function.startswith(ENTERING) else "references and texts"


def owner(frames):
    for at, (function, binary) in enumerate(frames):
        if function in ALLOCATION:
            continue
        if binary.startswith("libl5kov"):
            return of_the_library(frames[:at])
        if binary.startswith(OF_THE_HOST):
            return "host"
        if "JIT" in binary or binary.startswith(("perf-", "libkovpanel")):
            return "Java"
    return "unknown"


def sampled(build, seconds):
    """One process's counts, or None."""
    environment = dict(os.environ, L5KOV_COMMON_APPDATA=f"{build}/application-data")
    with tempfile.TemporaryDirectory(dir=build) as folder:
        record = subprocess.run(
            ["perf", "record", "-q", "-N", "-D", "4000", "-e", "cpu-clock:u", "-F", "2500",
             "--call-graph", "dwarf,4096", "-o", f"{folder}/samples", f"{build}/bench/bench_java",
             "--benchmark_filter=^calibration/library", f"--benchmark_min_time={seconds}"],
            env=environment, capture_output=True, text=True, check=False)
        if record.returncode != 0:
            sys.stderr.write(f"no samples: {record.stderr.strip()[-200:]}\n")
            return None
        with subprocess.Popen(
                ["perf", "script", "-i", f"{folder}/samples", "--comm", "bench_java", "--no-inline",
                 "-F", "ip,sym,dso"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                text=True, errors="replace") as script:
            return dict(collections.Counter(map(owner, stacks(script.stdout))))


def main(build, output, processes="10", seconds="6"):
    counts = []
    try:
        while len(counts) < int(processes):
            one = sampled(build, seconds)
            if not one:
                break
            counts.append(one)
    except FileNotFoundError:
        sys.stderr.write("no samples: perf is not installed\n")
    with open(output, "w", encoding="utf-8") as file:
        json.dump(counts if len(counts) == int(processes) else [], file)


if __name__ == "__main__":
    main(*sys.argv[1:])
