# SPDX-License-Identifier: MIT
"""The measurements as lines of Markdown, for report.py."""

# What calibration_samples.py tells apart.
SAMPLED = {
    "Java": "compiled Java, the Java runtime for it, the simulated monitor",
    "host": "the host's functions and its instrument",
    "measurements": "the Java runtime's functions that make the arrays of measurements",
    "own code": "*the library's own code, the C++ runtime's included*",
    "entering Java": "*the Java runtime's functions by which the library calls Java methods*",
    "references and texts": "*those for references, texts, exceptions and frames*",
    "registering": "*those that find the class and register the library's functions*",
    "unknown": "not to be told",
}


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
        head = f"| {row['work']} | {row['beside']} "
        if row["ratio"] is None:
            yield f"{head}| | | | {row['limit'] or ''} | {row['verdict']} | | |"
            continue
        digits = 4 if row["ratio"] < 0.01 else 2
        yield (f"{head}| {number(row['ns'], 1 if row['ns'] < 100 else 0)} "
               f"| {row['ratio']:.{digits}f} "
               f"| {row['low']:.{digits}f}–{row['high']:.{digits}f} | {row['limit'] or ''} "
               f"| {row['verdict']} | {pair(row, 'allocations')} | {pair(row, 'bytes')} |")
    if share:
        yield from share_lines(share)


def percent(interval):
    return "{:.2%} ({:.2%}–{:.2%})".format(*interval)


def share_lines(share):
    yield (f"\nOf a calibration ({share['steps']:.0f} patches and measurements, "
           f"{share['calibration_ns'] / 1e6:.1f} ms) the library's own share is, by the clock at "
           f"its borders and without the entering of Java, {percent(share['by_clock'])}; at its "
           f"{share['borders']:.0f} borders the clock's answers have been taken off at "
           f"{share['clock_ns']:.0f} ns each.")
    if not share["samples"]:
        yield "By samples: **not measured**."
        return
    every = [sum(one.values()) for one in share["samples"]]
    yield (f"By samples, the entering of Java included: **{percent(share['own'])}; at most 1 %: "
           f"{share['verdict'].strip('*')}**. With the arrays of measurements, which "
           f"the functions of a host in Java make as well: {percent(share['with_arrays'])}.")
    yield f"\n| Where {sum(every):,} samples of {len(every)} processes were taken | of all |"
    yield "|---|---:|"
    for name, words in SAMPLED.items():
        yield f"| {words} | {sum(one.get(name, 0) for one in share['samples']) / sum(every):.2%} |"


def size_lines(sizes):
    yield "| Work | size | ns | ns per item | allocations | bytes | still held |"
    yield "|---|---:|---:|---:|---:|---:|---:|"
    for name, points in sizes.items():
        for size, point in points.items():
            yield (f"| {name.replace('_', ' ')} | {size:,} | {number(point['ns'])} "
                   f"| {number(point['ns'] / size, 1)} | {number(point['allocations'])} "
                   f"| {number(point['bytes'])} | {number(point['held'])} |")


def fact_lines(facts, loading_ns):
    yield "| The shared library | |"
    yield "|---|---:|"
    for name, value in facts.items():
        shown = ", ".join(value) if isinstance(value, list) else number(value)
        yield f"| {name.replace('_', ' ')} | {shown} |"
    if loading_ns is not None:
        yield f"| loading, its dependencies being there, µs | {loading_ns / 1000:.0f} |"


def machine_lines(conditions, comparisons):
    """What is said above the tables. The calibration's share is not among the rows."""
    judged = [row["verdict"] for row in comparisons if row["limit"] is not None]
    rank = "before all other processes" if conditions["before_all_others"] else "among others"
    yield (f"Commit {conditions['commit']}; {conditions['repetitions']} repetitions in "
           f"{conditions['rounds']} rounds, of whole processes "
           f"{conditions['process_repetitions']}. {conditions['cores']} cores "
           f"({conditions['processor']}), {conditions['system']}, {conditions['compiler']}, "
           f"OpenJDK {conditions['java']}. Load when the measurements began: "
           f"{conditions['load_before']:.1f}; they ran {rank}. Of {len(judged)} rows with a limit "
           f"{judged.count('met')} are met, {judged.count('**missed**')} missed, "
           f"{judged.count('not decided')} not decided"
           + (f", {judged.count('**not measured**')} not measured."
              if "**not measured**" in judged else "."))
