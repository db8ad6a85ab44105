#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Joins the measurements into one JSON and one table.

  report.py TARGETS.json FOLDER   reads work-*.json, processes.json, facts.json and
                                  conditions.json there, writes results.json and table.md, and
                                  prints the table

Each ratio is the median of those of neighbours: the i-th repetition of a work beside the i-th of
what it is compared with, which ran about when it did, in the same process or, of whole processes,
in the same turn. Its interval holds it with 95 %: rounds are drawn again, and of each drawn round
its pairs. A limit is met or missed where the whole interval is on that side of it, and not decided
where it lies across. What runs on one thread is compared by that thread's processor time, since a
busy machine stretches the other (where a thread comes and goes, by that thread's own); whole
processes, and many threads at once, by the clock.
"""
import glob
import json
import math
import os
import random
import re
import statistics
import sys

# "thread/" tells its thread's processor time as its own time.
BY_THE_CLOCK = ("thread/", "threads/", "kovctl_list/")


# What calibration_samples.py tells apart.
SAMPLED = {
    "Java": "compiled Java, the Java runtime for it, the simulated monitor",
    "host": "the host's functions and its instrument",
    "measurements": "the Java runtime's functions that make the arrays of measurements, which the "
                    "functions of a host in Java call, too",
    "own code": "*the library's own code, the C++ runtime's included*",
    "entering Java": "*the Java runtime's functions by which the library calls Java methods*",
    "references and texts": "*those for references, texts, exceptions and frames*",
    "registering": "*those that find the class and register the library's functions*",
    "unknown": "not to be told",
}
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
        if "registering_ns" in run:
            row.setdefault("registering", []).append(run["registering_ns"])
        for counter in ("allocations", "bytes", "held", "steps"):
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
        if own not in rows or other not in rows:
            continue
        ours, theirs = rows[own], rows[other]
        ratio, low, high = ratio_and_interval(times_of(ours, own), times_of(theirs, other))
        yield {
            "work": target["work"] + ("" if size is None else f" ({size:,})"),
            "beside": target.get("beside", target["baseline"]),
            "ns": time_of(ours, own),
            "ratio": ratio,
            "low": low,
            "high": high,
            "limit": target.get("limit"),
            "verdict": verdict(low, high, target.get("limit")),
            "allocations": ours.get("allocations"),
            "baseline_allocations": theirs.get("allocations"),
            "bytes": ours.get("bytes"),
            "baseline_bytes": theirs.get("bytes"),
        }


def own_share(rows, samples):
    """The library's own share of a calibration: measured in that calibration itself, which is what
    the benchmark's time and processor time are, and seen by samples of others."""
    if "calibration_own/library" not in rows:
        return None
    own, whole = rows["calibration_own/library"], rows.get("calibration/library", {})
    bound = ratio_and_interval(own["wall"], own["cpu"])
    registering = statistics.median(own["registering"]) / median(own["cpu"])
    share, low, high = share_of_samples(samples) if samples else bound
    return {"steps": whole.get("steps", 0), "calibration_ns": median(own["cpu"]),
            "bound": bound, "registering": registering, "samples": samples,
            "share": share, "low": low, "high": high, "verdict": verdict(low, high, 0.01)}


def share_of_samples(samples):
    """What a host in Java does without, of all, and where it lies with 95 %."""
    every = sum(samples.values())
    share = sum(samples.get(name, 0) for name in THE_LIBRARYS) / every
    width = 1.96 * math.sqrt(share * (1 - share) / every)
    return share, share - width, share + width


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


def number(value, digits=0):
    return "" if value is None else f"{value:,.{digits}f}"


def pair(row, name):
    """Ours and the other's."""
    ours, theirs = row[name], row["baseline_" + name]
    return "" if ours is None or theirs is None else f"{number(ours)} : {number(theirs)}"


def target_lines(comparisons, share):
    yield "| Work | beside | ours, ns | ratio | 95 % | at most | | allocations | bytes |"
    yield "|---|---|---:|---:|---:|---:|---|---:|---:|"
    for row in comparisons:
        digits = 4 if row["ratio"] < 0.01 else 2
        yield (f"| {row['work']} | {row['beside']} "
               f"| {number(row['ns'], 1 if row['ns'] < 100 else 0)} | {row['ratio']:.{digits}f} "
               f"| {row['low']:.{digits}f}–{row['high']:.{digits}f} | {row['limit'] or ''} "
               f"| {row['verdict']} | {pair(row, 'allocations')} | {pair(row, 'bytes')} |")
    if share:
        yield (f"\nOf a calibration ({share['steps']:.0f} patches and measurements, "
               f"{share['calibration_ns'] / 1e6:.1f} ms) the library's own share is "
               f"{share['share']:.2%} ({share['low']:.2%}–{share['high']:.2%}); at most 1 %: "
               f"{share['verdict']}. By the clock at the library's borders, an upper bound: "
               "{:.2%} ({:.2%}–{:.2%}), of which the ".format(*share["bound"]) +
               f"registration of its functions is {share['registering']:.2%}.")
        yield from sample_lines(share["samples"])


def sample_lines(samples):
    every = sum(samples.values())
    if not every:
        return
    yield f"\n| Where {every:,} samples of calibrations were taken | samples | of all |"
    yield "|---|---:|---:|"
    for name, words in SAMPLED.items():
        count = samples.get(name, 0)
        yield f"| {words} | {count:,} | {count / every:.2%} |"


def size_lines(sizes):
    yield "| Work | size | ns | ns per item | allocations | bytes | still held |"
    yield "|---|---:|---:|---:|---:|---:|---:|"
    for name, points in sizes.items():
        for size, point in points.items():
            yield (f"| {name.replace('_', ' ')} | {size:,} | {number(point['ns'])} "
                   f"| {number(point['ns'] / size, 1)} | {number(point['allocations'])} "
                   f"| {number(point['bytes'])} | {number(point['held'])} |")


def fact_lines(facts, rows):
    yield "| The shared library | |"
    yield "|---|---:|"
    for name, value in facts.items():
        shown = ", ".join(value) if isinstance(value, list) else number(value)
        yield f"| {name.replace('_', ' ')} | {shown} |"
    if "load/library" in rows:
        own = time_of(rows["load/library"], "load/library") / 1000
        yield f"| loading, its dependencies being there, µs | {own:.0f} |"


def machine_lines(conditions, comparisons):
    judged = [row["verdict"] for row in comparisons if row["limit"] is not None]
    rank = "before all other processes" if conditions["before_all_others"] else "among others"
    yield (f"Commit {conditions['commit']}; {conditions['repetitions']} repetitions in "
           f"{conditions['rounds']} rounds, of whole processes "
           f"{conditions['process_repetitions']}. {conditions['cores']} cores "
           f"({conditions['processor']}), {conditions['system']}, {conditions['compiler']}, OpenJDK "
           f"{conditions['java']}. Load when the measurements began: "
           f"{conditions['load_before']:.1f}; they ran {rank}. Of {len(judged)} rows with a limit "
           f"{judged.count('met')} are met, {judged.count('**missed**')} missed, "
           f"{judged.count('not decided')} not decided.")


def main(targets_path, folder):
    with open(targets_path, encoding="utf-8") as file:
        targets = json.load(file)
    rows = {}
    for path in sorted(glob.glob(os.path.join(folder, "work-*.json"))):
        add_round(rows, read(folder, os.path.basename(path)))
    rows.update({name: {"cpu": [times], "wall": [times]}
                 for name, times in read(folder, "processes.json").items()})
    comparisons = [row for target in targets for row in compare(target, rows)]
    share, facts = own_share(rows, read(folder, "samples.json")), read(folder, "facts.json")
    parts = {"machine": machine_lines(read(folder, "conditions.json"), comparisons),
             "targets": target_lines(comparisons, share),
             "sizes": size_lines(cost_over_size(rows)), "library": fact_lines(facts, rows)}
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
