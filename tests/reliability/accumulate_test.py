# SPDX-License-Identifier: MIT
"""What fuzz/accumulate.py counts and keeps, with shell scripts in place of fuzzers."""
import csv
import pathlib
import signal
import subprocess
import sys
import tempfile
import time
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "fuzz/accumulate.py"
WORK = "i=0; while [ $i -lt 30000 ]; do i=$((i + 1)); done\n"
FIGURES = "echo 'stat::number_of_executed_units: 7'\n"


class Accumulate(unittest.TestCase):
    def setUp(self):
        self.place = tempfile.TemporaryDirectory()
        self.folder = pathlib.Path(self.place.name) / "built"
        self.kept = pathlib.Path(self.place.name) / "corpus"
        self.folder.mkdir()

    def tearDown(self):
        self.place.cleanup()

    def target(self, name, script):
        (self.kept / name).mkdir(parents=True, exist_ok=True)
        program = self.folder / name
        program.write_text("#!/bin/sh\n" + script)
        program.chmod(0o755)

    def command(self, *arguments):
        return [sys.executable, SCRIPT, self.folder, "--kept", self.kept, *arguments]

    def run_it(self, *arguments):
        return subprocess.run(self.command("--hours", "0.0000001", *arguments), text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)

    def rows(self):
        with (self.folder / "accumulated.csv").open() as file:
            return list(csv.DictReader(file))

    def test_counts_each_targets_time_and_inputs(self):
        self.target("first", WORK + FIGURES)
        self.target("second", WORK + FIGURES)
        done = self.run_it()
        self.assertEqual((done.returncode, done.stderr), (0, ""), done.stdout)
        self.assertEqual(sorted(row["target"] for row in self.rows()), ["first", "second"])
        for row in self.rows():
            self.assertGreater(float(row["cpu_seconds"]), 0)
            self.assertEqual((row["inputs"], row["ended"]), ("7", "time"))

    def test_a_crash_bars_its_target_alone_while_its_input_lies_there(self):
        self.target("bad", WORK + f"touch {self.folder}/bad-crash-1; exit 77\n")
        self.target("good", WORK + FIGURES)
        done = self.run_it()
        self.assertEqual(done.returncode, 1)
        self.assertIn("CRASHED", done.stdout)
        self.assertEqual({row["target"]: row["ended"] for row in self.rows()},
                         {"bad": "crash", "good": "time"})
        self.assertEqual(self.run_it("--table").returncode, 1)
        (self.folder / "bad-crash-1").unlink()
        self.assertEqual(self.run_it("--table").returncode, 0)

    def test_a_crash_that_nobody_waited_for_is_seen(self):
        self.target("bad", "exit 0\n")
        (self.folder / "bad-timeout-1").touch()
        self.assertEqual(self.run_it("--table").returncode, 1)

    def test_what_is_ended_from_outside_counts_and_is_no_crash(self):
        self.target("long", "trap 'exit 72' INT\n" + FIGURES + "while :; do :; done\n")
        with subprocess.Popen(self.command("--hours", "1"), stdout=subprocess.PIPE) as running:
            time.sleep(1)
            running.send_signal(signal.SIGTERM)
            self.assertEqual(running.wait(20), 0)
        row, = self.rows()
        self.assertEqual(row["ended"], "ended")
        self.assertGreater(float(row["cpu_seconds"]), 0)

    def test_another_program_begins_anew(self):
        self.target("one", WORK)
        self.run_it()
        self.target("one", WORK + FIGURES)
        self.assertIn("one                     0 CPU s", self.run_it("--table").stdout)
        self.run_it()
        self.assertEqual(len({row["program"] for row in self.rows()}), 2)

    def test_a_target_that_was_not_built(self):
        self.target("one", WORK)
        (self.kept / "two").mkdir()
        done = self.run_it()
        self.assertEqual(done.returncode, 1)
        self.assertIn("lacks two", done.stderr)


if __name__ == "__main__":
    unittest.main()
