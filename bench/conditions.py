#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What the measurements ran on, and how busy that was when they began.

  conditions.py OUTPUT.json JAVA_HOME PREFIX
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


conditions = {
    "cores": os.cpu_count(),
    "processor": entry("/proc/cpuinfo", r"^model name\s*:(.*)$"),
    "system": entry("/etc/os-release", r'^PRETTY_NAME="(.*)"$'),
    "compiler": first_line("c++", "--version"),
    "java": entry(os.path.join(sys.argv[2], "release"), r'^JAVA_VERSION="(.*)"$'),
    "load_before": os.getloadavg()[0],
    "before_all_others": bool(sys.argv[3]),
}
with open(sys.argv[1], "w", encoding="utf-8") as file:
    json.dump(conditions, file)
