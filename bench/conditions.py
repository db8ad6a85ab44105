#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What is measured, how often, on what, and how busy that was when it began.

  conditions.py OUTPUT.json JAVA_HOME PREFIX REPETITIONS ROUNDS PROCESS_REPETITIONS
"""
import json
import os
import re
import subprocess
import sys


def first_line(*command):
    run = subprocess.run(command, capture_output=True, text=True)
    return (run.stdout or run.stderr).splitlines()[0].strip()


def entry(path, pattern):
    with open(path, encoding="utf-8") as file:
        found = re.search(pattern, file.read(), re.MULTILINE)
    return found.group(1).strip() if found else "unknown"


def commit():
    """Its short name, with a "+" where the files differ from it."""
    try:
        name = subprocess.run(["git", "rev-parse", "--short=10", "HEAD"], check=True,
                              capture_output=True, text=True).stdout.strip()
    except (OSError, subprocess.CalledProcessError):
        return "unknown"
    changed = subprocess.run(["git", "diff", "--quiet", "HEAD"], check=False).returncode
    return name + ("+" if changed else "")


output, java_home, prefix, repetitions, rounds, process_repetitions = sys.argv[1:]
conditions = {
    "commit": commit(),
    "repetitions": int(repetitions),
    "rounds": int(rounds),
    "process_repetitions": int(process_repetitions),
    "cores": os.cpu_count(),
    "processor": entry("/proc/cpuinfo", r"^model name\s*:(.*)$"),
    "system": entry("/etc/os-release", r'^PRETTY_NAME="(.*)"$'),
    "compiler": first_line("c++", "--version"),
    "java": entry(os.path.join(java_home, "release"), r'^JAVA_VERSION="(.*)"$'),
    "load_before": os.getloadavg()[0],
    "before_all_others": bool(prefix),
}
with open(output, "w", encoding="utf-8") as file:
    json.dump(conditions, file)
