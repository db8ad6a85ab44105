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
        self.target("long", "trap 'exit 72' INT\n" + WORK + FIGURES + "while :; do :; done\n")
        with subprocess.Popen(self.command("--hours", "1"), stdout=subprocess.PIPE) as running:
            # Once the target speaks it has its trap, and the program that started it its handlers.
            log = self.folder / "long.round.log"
            while not (log.exists() and log.read_text()):
                self.assertIsNone(running.poll())
                time.sleep(0.02)
            running.send_signal(signal.SIGTERM)
            self.assertEqual(running.wait(20), 0)
        row, = self.rows()
        self.assertEqual(row["ended"], "ended")
        self.assertGreater(float(row["cpu_seconds"]), 0)

    def test_another_program_begins_anew(self):
        self.target("one", WORK)
        self.run_it()
        self.target("one", WORK + FIGURES)
        told = self.run_it("--table").stdout
        self.assertRegex(told, r"^one +0 CPU s +0 inputs; earlier programs +[0-9]+ CPU s +0 inputs$")
        self.run_it()
        self.assertEqual(len({row["program"] for row in self.rows()}), 2)
        self.assertRegex(self.run_it("--table").stdout, r" 7 inputs; earlier programs .* 0 inputs$")

    def test_a_log_of_another_form_is_refused_and_kept(self):
        self.target("one", FIGURES)
        log = self.folder / "accumulated.csv"
        header = "target,cpu_seconds,wall_seconds,inputs,ended\n"
        for text in [header, header + "one,5.000,5,9,time\n", "one,5.000,5,9,time,0123\n"]:
            log.write_text(text)
            done = self.run_it()
            self.assertEqual(done.returncode, 1)
            self.assertIn("other columns", done.stderr)
            self.assertEqual(log.read_text(), text)

    def test_an_empty_log_is_begun(self):
        self.target("one", WORK + FIGURES)
        (self.folder / "accumulated.csv").touch()
        self.assertEqual(self.run_it().returncode, 0)
        self.assertEqual(len(self.rows()), 1)

    def test_a_round_that_fails_without_a_crash_is_one_and_its_last(self):
        self.target("killed", "echo why; kill -9 $$\n")
        self.target("odd", "exit 23\n")
        self.target("strange", "")
        (self.folder / "strange").write_bytes(b"\x7fELF")
        self.target("unreadable", "")
        (self.kept.parent / "options").mkdir()
        (self.kept.parent / "options/unreadable").write_bytes(b"\xff")
        self.target("good", WORK)
        done = self.run_it()
        self.assertEqual((done.returncode, done.stderr), (1, ""))
        self.assertEqual(sorted((row["target"], row["ended"]) for row in self.rows()),
                         [("good", "time"), ("killed", "failed"), ("odd", "failed"),
                          ("strange", "failed"), ("unreadable", "failed")])
        for target, why in [("killed", "why"), ("strange", "Exec format"), ("unreadable", "Unicode")]:
            said, = self.folder.glob(f"{target}-failed-*.log")
            self.assertIn(why, said.read_text())
        self.assertEqual(self.run_it("--table").returncode, 1)
        for log in self.folder.glob("*-failed-*.log"):
            log.unlink()
        self.assertEqual(self.run_it("--table").returncode, 0)

    def test_only_what_is_asked_for_must_be_there(self):
        self.target("one", WORK + FIGURES)
        (self.kept / "two").mkdir()
        self.assertEqual(self.run_it("one", "one", "--beside", "2").returncode, 0)
        self.assertEqual(len(self.rows()), 1)
        done = self.run_it("three")
        self.assertEqual(done.returncode, 1)
        self.assertIn("has no three", done.stderr)

    def test_a_target_that_was_not_built(self):
        self.target("one", WORK)
        (self.kept / "two").mkdir()
        done = self.run_it()
        self.assertEqual(done.returncode, 1)
        self.assertIn("lacks two", done.stderr)


if __name__ == "__main__":
    unittest.main()
