#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Size of the shared library and what the loader has to do for it.

  library_facts.py LIBRARY OUTPUT.json
"""
import json
import os
import re
import subprocess
import sys
import tempfile


def lines(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.splitlines()


def stripped_size(library):
    with tempfile.NamedTemporaryFile() as copy:
        subprocess.run(["strip", "-o", copy.name, library], check=True)
        return os.path.getsize(copy.name)


def facts(library):
    relocations = [line for line in lines("readelf", "-rW", library) if "R_X86_64_" in line]
    needed = [re.search(r"\[(.*)\]", line).group(1)
              for line in lines("readelf", "-dW", library) if "(NEEDED)" in line]
    sizes = lines("size", library)[1].split()
    return {
        "stripped_bytes": stripped_size(library),
        "text_bytes": int(sizes[0]),
        "data_bytes": int(sizes[1]),
        "bss_bytes": int(sizes[2]),
        "dependencies": needed,
        "relocations": len(relocations),
        "relative_relocations": sum("R_X86_64_RELATIVE" in line for line in relocations),
        "symbol_relocations": sum("R_X86_64_RELATIVE" not in line for line in relocations),
        "exported_symbols": len(lines("nm", "-D", "--defined-only", library)),
    }


with open(sys.argv[2], "w", encoding="utf-8") as file:
    json.dump(facts(sys.argv[1]), file)
