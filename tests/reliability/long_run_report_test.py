# SPDX-License-Identifier: MIT
"""What tools/reliability/long_run_report.py lets pass and what not, over made-up runs."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "tools/reliability/long_run_report.py"
FLAT = {"resident": 90000, "java": 4300, "native": 3000, "descriptors": 11, "handles": 8, "weak": 0,
        "own": 65000, "compilers": 2000}
NOISE = [0, 3, -2, 1, -3, 2, 0, -1]
# What the Java runtime's compilers had beside their usual in a run of 5,000 calibrations.
COMPILING = [0, 45000, 2600, 9000, 1300, 9200, 1500, 2200, 2900, 600, 120, 2400, 500, 1000, 200, 840,
             200, 140, 360, 140, 0]


def run(kind, count, growing, *arguments, at=(), compiling=False):
    """Twenty-one samples of a run, in which some figures grow by so much in all: evenly, or at some
    samples only; and with the compilers at work, whose memory was asked for at another moment once.
    """
    lines = []
    for sample in range(21):
        part = sum(sample >= one for one in at) / len(at) if at else sample / 20
        figures = {name: value + round(growing.get(name, 0) * part)
                   for name, value in FLAT.items()}
        figures["resident"] += 4 * NOISE[sample % len(NOISE)]
        if compiling:
            for name in ["native", "own", "compilers"]:
                figures[name] += COMPILING[sample] if sample != 12 or name == "own" else 0
        lines.append(",".join(map(str, [kind, count * sample // 20, *figures.values()])))
    with tempfile.NamedTemporaryFile("w", suffix=".csv") as file:
        file.write("\n".join(lines) + "\n")
        file.flush()
        return subprocess.run([sys.executable, SCRIPT, file.name, *arguments], text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)


class LongRunReport(unittest.TestCase):
    def passes(self, kind, count, growing, *arguments, **how):
        done = run(kind, count, growing, "--check", kind, *arguments, **how)
        self.assertEqual((done.returncode, done.stderr), (0, ""), done.stdout)

    def fails(self, kind, count, growing, complaint, *arguments, **how):
        done = run(kind, count, growing, "--check", kind, *arguments, **how)
        self.assertEqual((done.returncode, done.stderr), (1, ""), done.stdout)
        self.assertEqual(done.stdout.splitlines()[-1].split(": ")[1].split(" grows")[0], complaint)
        return done

    def test_flat(self):
        for kind in ["operations", "threads", "calibrations"]:
            self.passes(kind, 20000, {})

    def test_counts_must_not_grow_at_all(self):
        self.fails("operations", 10_000_000, {"handles": 3}, "global handles")
        self.fails("threads", 20000, {"weak": 3}, "weak handles")
        self.fails("calibrations", 1000, {"descriptors": 3}, "descriptors")

    def test_java_heap(self):
        self.passes("operations", 10_000_000, {"java": 60})
        self.fails("operations", 10_000_000, {"java": 70}, "Java heap")

    def test_sixteen_bytes_at_every_hundredth_operation(self):
        leak = 10_000_000 * 16 // 100 // 1024
        self.fails("operations", 10_000_000, {"native": leak}, "native heap")
        self.fails("operations", 10_000_000, {"resident": 5 * leak // 4}, "resident")
        self.passes("operations", 10_000_000, {"resident": leak // 2, "native": leak // 2})

    def test_what_resident_size_keeps_of_the_compilers(self):
        self.passes("operations", 10_000_000, {"resident": 6500}, at=[8])
        self.passes("operations", 10_000_000, {"resident": 13000}, at=[8, 15])
        self.fails("operations", 10_000_000, {"resident": 30000}, "resident", at=[8, 12, 16])

    def test_no_lumps_beside_the_compilers(self):
        self.fails("operations", 10_000_000, {"native": 9000}, "native heap", at=[7, 11, 15, 19])

    def test_the_compilers_hide_no_leak(self):
        few = ["--calibration-bytes", "64"]
        self.passes("calibrations", 5000, {}, *few, compiling=True)
        for figure, name in [("native", "native heap"), ("own", "Java's own")]:
            self.fails("calibrations", 5000, {figure: 256 * 5000 // 1024}, name, *few,
                       compiling=True)

    def test_a_lump_wherever_it_comes(self):
        for figure, name in [("resident", "resident"), ("native", "native heap"),
                             ("own", "Java's own")]:
            for sample in range(6, 21):
                self.passes("operations", 10_000_000, {figure: 10000}, at=[sample])
                self.fails("operations", 10_000_000, {figure: 60000}, name, at=[sample])
            self.fails("operations", 10_000_000, {figure: 60000}, name, at=[12], compiling=True)

    def test_one_handle_whenever_it_comes(self):
        for sample in range(6, 21):
            self.fails("threads", 20000, {"handles": 1}, "global handles", at=[sample])
        self.passes("threads", 20000, {"handles": 1}, at=[5])

    def test_says_what_it_would_have_noticed(self):
        rows = [line.split(" | ") for line in run("threads", 20000, {}).stdout.splitlines()]
        told = {row[1]: int(row[-1].split()[0]) for row in rows if "bytes each" in row[-1]}
        self.assertEqual(sorted(told), ["Java's own", "native heap", "resident"])
        self.assertEqual([row[-1] for row in rows if "descriptors" in row], ["1 |"])
        for figure, name in [("resident", "resident"), ("native", "native heap")]:
            leak = told[name] * 20000 // 1024
            self.fails("threads", 20000, {figure: leak + 60}, name)
            self.passes("threads", 20000, {figure: leak - 60})

    def test_threads(self):
        self.passes("threads", 20000, {"resident": 800})
        self.fails("threads", 20000, {"own": 850}, "Java's own")

    def test_calibrations(self):
        self.passes("calibrations", 1000, {"resident": 1325})
        self.fails("calibrations", 1000, {"resident": 2000}, "resident")
        self.fails("calibrations", 5000, {"resident": 1400}, "resident",
                   "--calibration-bytes", "64")

    def test_shrinking_passes(self):
        self.passes("operations", 10_000_000, {"resident": -5000, "own": -9000, "native": -900})

    def test_without_check_nothing_fails(self):
        self.assertEqual(run("threads", 20000, {"resident": 9000}).returncode, 0)

    def test_says_which_intervals_exclude_zero(self):
        lines = run("threads", 20000, {"resident": 900}).stdout.splitlines()
        marked = [line.split(" | ")[1] for line in lines if "excludes 0" in line]
        self.assertEqual(marked, ["resident"])

    def test_too_few_samples(self):
        with tempfile.NamedTemporaryFile("w") as file:
            file.write("operations,0,1,1,1,1,1,1,1,1\n")
            file.flush()
            done = subprocess.run([sys.executable, SCRIPT, file.name, "--check", "operations"],
                                  stderr=subprocess.PIPE, check=False)
            self.assertEqual(done.returncode, 1)

    def test_a_phase_that_is_missing(self):
        done = run("threads", 20000, {}, "--check", "threads", "operations")
        self.assertEqual(done.returncode, 1)
        self.assertIn("too few samples of operations", done.stderr)

    def test_a_line_that_is_no_sample(self):
        with tempfile.NamedTemporaryFile("w") as file:
            file.write("operations,0,1\n")
            file.flush()
            done = subprocess.run([sys.executable, SCRIPT, file.name], stderr=subprocess.PIPE,
                                  text=True, check=False)
            self.assertIn("no sample", done.stderr)


if __name__ == "__main__":
    unittest.main()
