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


def run(kind, count, growing, *arguments, at=()):
    """Twenty-one samples of a run, in which some figures grow by so much in all: evenly, or at some
    samples only."""
    lines = []
    for sample in range(21):
        part = sum(sample >= one for one in at) / len(at) if at else sample / 20
        figures = {name: value + round(growing.get(name, 0) * part)
                   for name, value in FLAT.items()}
        figures["resident"] += 4 * NOISE[sample % len(NOISE)]
        lines.append(",".join(map(str, [kind, count * sample // 20, *figures.values()])))
    with tempfile.NamedTemporaryFile("w", suffix=".csv") as file:
        file.write("\n".join(lines) + "\n")
        file.flush()
        return subprocess.run([sys.executable, SCRIPT, file.name, *arguments], text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)


class LongRunReport(unittest.TestCase):
    def passes(self, kind, count, growing, *arguments, at=()):
        done = run(kind, count, growing, "--check", *arguments, at=at)
        self.assertEqual((done.returncode, done.stderr), (0, ""), done.stdout)

    def fails(self, kind, count, growing, complaint, *arguments, at=()):
        done = run(kind, count, growing, "--check", *arguments, at=at)
        self.assertEqual((done.returncode, done.stderr), (1, ""), done.stdout)
        self.assertEqual(done.stdout.splitlines()[-1].split(": ")[1].split(" grows")[0], complaint)

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

    def test_what_comes_in_a_few_steps(self):
        self.passes("operations", 10_000_000, {"resident": 6500, "own": 6500}, at=[8])
        self.passes("operations", 10_000_000, {"resident": 13000}, at=[8, 15])
        self.fails("operations", 10_000_000, {"resident": 30000}, "resident", at=[8, 12, 16])

    def test_steps_do_not_hide_a_leak(self):
        done = run("operations", 10_000_000, {"resident": 3000}, "--check")
        self.assertIn("resident grows steadily", done.stdout)

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
            done = subprocess.run([sys.executable, SCRIPT, file.name, "--check"],
                                  stderr=subprocess.PIPE, check=False)
            self.assertEqual(done.returncode, 1)


if __name__ == "__main__":
    unittest.main()
