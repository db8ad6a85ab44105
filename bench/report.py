#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Joins the measurements into one JSON and one table.

  report.py TARGETS.json FOLDER   reads work-*.json, processes.json, samples.json, facts.json and
                                  conditions.json there, writes results.json and table.md, and
                                  prints the table

Each ratio is the median of those of pairs: the i-th repetition of a work beside the i-th of what it
is compared with, of the same process, whose repetitions run in random order, or, of whole
processes, of the same turn. Its interval holds it with 95 %: rounds are drawn again, and of each
drawn round its pairs. A target of which a side is missing is not measured, and said to be so;
rounds of unequal length are refused. A limit is met or missed where the whole interval is on that
side of it, and not decided where it lies across. What runs on one thread is compared by that
thread's processor time, since a busy machine stretches the other (where a thread comes and goes, by
that thread's own); whole processes, and many threads at once, by the clock.
"""
import glob
import json
import os
import random
import re
import statistics
import sys

import tables

# "thread/" tells its thread's processor time as its own time.
BY_THE_CLOCK = ("thread/", "threads/", "kovctl_list/")


# Of what calibration_samples.py tells apart.
THE_LIBRARYS = ("own code", "entering Java", "references and texts", "registering")


def read(folder, name):
    path = os.path.join(folder, name)
    if not os.path.exists(path):
        return {}
    with open(path, encoding="utf-8") as file:
        return json.load(file)


def add_round(rows, document):
    """Adds one round's repetitions, in their order, to rows: name -> times in ns, a list a round,
    and what was counted."""
    runs = [run for run in document.get("benchmarks", [])
            if run.get("run_type") == "iteration" and not run.get("error_occurred")]
    begun = set()
    for run in sorted(runs, key=lambda run: run.get("repetition_index", 0)):
        name = re.sub(r"/(iterations:\d+|manual_time|real_time)\b", "", run["run_name"])
        row = rows.setdefault(name, {"cpu": [], "wall": []})
        if name not in begun:
            begun.add(name)
            row["cpu"].append([])
            row["wall"].append([])
        row["cpu"][-1].append(run["cpu_time"])
        row["wall"][-1].append(run["real_time"])
        for counter in ("allocations", "bytes", "held", "steps", "borders", "clock_ns"):
            if isinstance(run.get(counter), (int, float)):
                row[counter] = run[counter]


def times_of(row, name):
    return row["wall" if name.startswith(BY_THE_CLOCK) else "cpu"]


def median(rounds):
    return statistics.median(time for one in rounds for time in one)


def time_of(row, name):
    return median(times_of(row, name))


def ratio_and_interval(ours, theirs):
    """The ratio, and where it lies with 95 %: drawn again, a thousand times."""
    if [len(one) for one in ours] != [len(one) for one in theirs]:
        sys.exit("two works that are compared have not been measured equally often")
    rounds = [[a / b for a, b in zip(*both)] for both in zip(ours, theirs)]
    lot = random.Random(1)

    def drawn():
        return [lot.choices(one, k=len(one)) for one in lot.choices(rounds, k=len(rounds))]

    again = sorted(median(drawn()) for _ in range(1000))
    return median(rounds), again[25], again[974]


def verdict(low, high, limit):
    if limit is None:
        return ""
    return "met" if high <= limit else "**missed**" if low > limit else "not decided"


def compare(target, rows):
    for size in target.get("sizes", [None]):
        tail = "" if size is None else f"/{size}"
        own = f"{target['id']}/{target.get('own', 'library')}{tail}"
        other = f"{target['id']}/{target['baseline']}{tail}"
        row = {"work": target["work"] + ("" if size is None else f" ({size:,})"),
               "beside": target.get("beside", target["baseline"]), "limit": target.get("limit")}
        if own not in rows or other not in rows:
            yield row | {"ratio": None, "verdict": "**not measured**"}
            continue
        ours, theirs = rows[own], rows[other]
        ratio, low, high = ratio_and_interval(times_of(ours, own), times_of(theirs, other))
        yield row | {
            "ns": time_of(ours, own),
            "ratio": ratio,
            "low": low,
            "high": high,
            "verdict": verdict(low, high, target.get("limit")),
            "allocations": ours.get("allocations"),
            "baseline_allocations": theirs.get("allocations"),
            "bytes": ours.get("bytes"),
            "baseline_bytes": theirs.get("bytes"),
        }


def own_share(rows, samples):
    """The library's own share of a calibration: seen by samples and, without the entering of Java,
    by the clock, in the calibration that the benchmark's processor time is."""
    if "calibration_own/library" not in rows:
        return None
    own = rows["calibration_own/library"]
    share = {"steps": own["steps"], "calibration_ns": median(own["cpu"]),
             "borders": own["borders"], "clock_ns": own["clock_ns"], "samples": samples,
             "by_clock": ratio_and_interval(own["wall"], own["cpu"])}
    if samples:
        share["own"] = share_of_samples(samples, THE_LIBRARYS)
        share["verdict"] = verdict(*share["own"][1:], 0.01)
        share["with_arrays"] = share_of_samples(samples, THE_LIBRARYS + ("measurements",))
    return share


def share_of_samples(samples, names):
    """Of all of a process's samples; and where it lies with 95 %, processes being drawn again."""
    return ratio_and_interval([[sum(one.get(name, 0) for name in names)] for one in samples],
                              [[sum(one.values())] for one in samples])


def cost_over_size(rows):
    """name -> size -> time and memory, for everything that was measured at several sizes."""
    result = {}
    for name, row in rows.items():
        parts = name.split("/")
        if len(parts) == 3:
            result.setdefault("/".join(parts[:2]), {})[int(parts[2])] = {
                "ns": time_of(row, name), "allocations": row.get("allocations"),
                "bytes": row.get("bytes"), "held": row.get("held")}
    return {name: dict(sorted(sizes.items())) for name, sizes in sorted(result.items())
            if len(sizes) > 1}


def main(targets_path, folder):
    with open(targets_path, encoding="utf-8") as file:
        targets = json.load(file)
    rows = {}
    for path in sorted(glob.glob(os.path.join(folder, "work-*.json"))):
        add_round(rows, read(folder, os.path.basename(path)))
    rows.update({name: {"cpu": [times], "wall": [times]}
                 for name, times in read(folder, "processes.json").items()})
    comparisons = [row for target in targets for row in compare(target, rows)]
    share, facts = own_share(rows, read(folder, "samples.json") or []), read(folder, "facts.json")
    loading = time_of(rows["load/library"], "load/library") if "load/library" in rows else None
    parts = {"machine": tables.machine_lines(read(folder, "conditions.json"), comparisons),
             "targets": tables.target_lines(comparisons, share),
             "sizes": tables.size_lines(cost_over_size(rows)),
             "library": tables.fact_lines(facts, loading)}
    parts = {name: "\n".join(lines) for name, lines in parts.items()}
    with open(os.path.join(folder, "results.json"), "w", encoding="utf-8") as file:
        json.dump({"conditions": read(folder, "conditions.json"),
                   "comparisons": comparisons, "calibration": share, "library": facts,
                   "sizes": cost_over_size(rows), "tables": parts, "measurements": rows}, file,
                  indent=1)
    text = "\n\n".join(parts.values()) + "\n"
    with open(os.path.join(folder, "table.md"), "w", encoding="utf-8") as file:
        file.write(text)
    print(text)
    print(f"Everything: {folder}/results.json")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
