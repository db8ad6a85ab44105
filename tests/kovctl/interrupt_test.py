# SPDX-License-Identifier: MIT
"""Ctrl-C and its kin at any moment: the monitor's state is always known, and said."""
import os
import pathlib
import random
import signal
import time

import schemas
import side_by_side
from harness import COLOUR, KovctlTest, is_patch

SEED = 20261121


class Interrupt(KovctlTest):
    def setUp(self):
        super().setUp()
        self.settings(patch__delay__ms="10")

    def calibrate(self, *arguments):
        return self.start("calibrate", "-m", COLOUR, "--lut", "2", "--levels", "18", "--points",
                          "18", "--json-lines", *arguments)

    def known(self, result):
        """The statement, the exit code and the monitor itself agree."""
        document = schemas.check(result.lines[-1])
        self.assertEqual(document["exitCode"], result.code, result)
        state = document["record"]["result"]["monitorState"]
        self.assertIn("Monitor state: ", result.err)
        entries = self.run_kovctl("history", "-m", COLOUR, "--lut", "2", "--json").json["entries"]
        if result.code == 130:
            self.assertEqual((state, self.active_lut(), len(entries)), ("restored", 0, 1))
        else:
            self.assertIn(result.code, (0, 4), result)
            self.assertEqual((state, self.active_lut(), len(entries)), ("calibrated", 2, 2))
        return document

    def test_random_moments(self):
        random.seed(SEED)
        moments = sorted(random.uniform(0.0, 1.2) for _ in range(8))
        processes = []
        for moment in moments:
            # Each with a monitor of its own, since they are killed side by side.
            test = Interrupt("test_random_moments")
            test.setUp()
            self.addCleanup(test.doCleanups)
            process = test.calibrate()
            # From here on it catches interrupts.
            first = process.stdout.readline()
            processes.append((test, process, first, time.monotonic() + moment))
        for test, process, first, when in processes:
            time.sleep(max(0.0, when - time.monotonic()))
            process.send_signal(random.choice((signal.SIGINT, signal.SIGTERM, signal.SIGHUP)))
        for test, process, first, _ in processes:
            result = test.finish(process)
            result.out = first.decode() + result.out
            test.known(result)

    def test_at_the_very_start(self):
        """Before execute() has begun: the library forgets such a request, kovctl does not."""
        self.slow_patches()
        result = self.interrupt_after(self.calibrate(), lambda event: True)
        self.assertEqual(result.code, 130, result)
        self.known(result)

    def test_in_the_last_patch(self):
        """The calibration may end as canceled or as done; either is said."""
        total = self.run_kovctl("calibrate", "-m", COLOUR, "--lut", "3", "--levels", "18",
                                "--points", "0", "--json").json["record"]["patches"]
        process = self.calibrate("--limits", "none")
        self.known(self.interrupt_after(process, is_patch(len(total))))

    def test_as_it_ends(self):
        """The new table is in place when the signal comes: it stays, and that is said."""
        result = self.interrupt_after(
            self.calibrate("--limits", "none"),
            lambda event: event.get("event") == "progress" and event["fraction"] >= 1.0)
        document = self.known(result)
        self.assertEqual(result.code, 0, result)
        self.assertEqual(document["record"]["result"]["monitorState"], "calibrated")

    def test_in_the_check(self):
        """The calibration is done by then and stays."""
        process = self.calibrate()
        result = self.interrupt_after(
            process, lambda event: event.get("event") == "begin" and event["phase"] == "check")
        self.assertIn(result.code, (0, 4))
        self.known(result)

    def test_several_times(self):
        self.slow_patches()
        process = self.calibrate()
        seen = self.read_until(process, b'"patch":5')
        for _ in range(2):
            process.send_signal(signal.SIGINT)
            time.sleep(0.3)
        result = self.finish(process)
        result.out = seen.decode() + result.out
        self.assertEqual(result.code, 130, result)
        self.assertIn("one more interrupt ends kovctl at once", result.err)
        self.known(result)

    def third(self, process, number=signal.SIGTERM):
        for _ in range(3):
            process.send_signal(number)
            time.sleep(0.3)
        start = time.monotonic()
        result = self.finish(process)
        self.assertLess(time.monotonic() - start, 5.0)
        self.assertIn("ended by a third interrupt", result.err)
        return result

    def test_the_third_ends_a_run_that_settles(self):
        self.slow_patches()
        process = self.calibrate()
        self.read_until(process, b'"patch":5')
        result = self.third(process, signal.SIGINT)
        self.assertEqual(result.code, 131, result)
        error = schemas.check(result.lines[-1])
        self.assertIn("NOT KNOWN: look-up table 0 was active before", error["details"][0])
        self.assertEqual(self.run_kovctl("restore", "-m", COLOUR, "--json").json["lut"], 0)

    def test_the_third_ends_a_run_whose_monitor_hangs(self):
        self.faults({"call": "Monitor.getActiveLut", "nth": 2, "action": "delay",
                     "millis": 600000})
        process = self.start("verify", "-m", COLOUR, "--lut", "3")
        state = self.home / "state/OR-C321-30210045.properties"
        end = time.monotonic() + 60
        while not state.exists() or "activeTable=3" not in state.read_text(encoding="utf-8"):
            self.assertLess(time.monotonic(), end)
            time.sleep(0.05)
        result = self.third(process)
        self.assertEqual(result.code, 131, result)
        self.assertIn("kovctl restore -m " + COLOUR, result.err)

    def test_the_third_ends_a_run_that_nobody_reads(self):
        reader, writer = os.pipe()
        self.addCleanup(os.close, reader)
        os.set_blocking(writer, False)
        try:
            while True:
                os.write(writer, b"x" * 4096)
        except BlockingIOError:
            os.set_blocking(writer, True)
        process = self.start("calibrate", "-m", COLOUR, "--json-lines", stdout=writer)
        os.close(writer)
        end = time.monotonic() + 60
        while not (self.folder / "state/kovctl/OR-C321-30210045.mode").exists():
            self.assertLess(time.monotonic(), end)
            time.sleep(0.05)
        time.sleep(1.0)
        result = self.third(process)
        self.assertEqual(result.code, 131, result)
        self.assertIn("kovctl restore -m " + COLOUR, result.err)

    def test_while_java_starts(self):
        """Kept back until it runs, whatever its own handlers would do."""
        self.settings(search__ms="60000")
        for milliseconds in range(0, 240, 20):
            process = self.start("restore", "-m", COLOUR)
            maps = pathlib.Path(f"/proc/{process.pid}/maps")
            while "libjvm.so" not in maps.read_text():
                self.assertIsNone(process.poll())
            time.sleep(milliseconds / 1000)
            process.send_signal((signal.SIGINT, signal.SIGTERM, signal.SIGHUP)[milliseconds % 3])
            result = self.finish(process)
            self.assertEqual(result.code, 130, (milliseconds, result))
            self.assertIn("canceled before anything was changed", result.err)

    def test_settles_for_ten_seconds(self):
        self.slow_patches()
        process = self.calibrate()
        seen = self.read_until(process, b'"patch":5')
        start = time.monotonic()
        process.send_signal(signal.SIGTERM)
        result = self.finish(process)
        self.assertGreaterEqual(time.monotonic() - start, 10.0)
        self.assertEqual(result.code, 130, result)

    def test_verify(self):
        process = self.start("verify", "-m", COLOUR, "--lut", "3", "--json-lines")
        # Fast as it is, it may be through before the signal comes.
        result = self.interrupt_after(process, is_patch(1))
        document = schemas.check(result.lines[-1])
        self.assertIn(document["record"]["result"]["monitorState"], "restored")
        self.assertIn(result.code, (4, 130))
        self.assertEqual(self.active_lut(), 0)

    def test_killed_run_is_put_back_later(self):
        self.slow_patches()
        process = self.calibrate()
        seen = self.read_until(process, b'"patch":8')
        process.kill()
        self.finish(process)
        shown = self.run_kovctl("show", "-m", COLOUR)
        self.assertIn("a run was killed", shown.err)
        self.assertEqual(self.run_kovctl("restore", "-m", COLOUR, "--json").json["lut"], 0)
        self.assertNotIn("a run was killed", self.run_kovctl("show", "-m", COLOUR).err)

    def test_calibration_that_ends_before_its_abort_returns(self):
        """The library takes that for done; there is no new table all the same."""
        self.slow_patches()
        self.faults({"call": "Monitor.abortCalibration.return", "nth": 0, "action": "delay",
                     "millis": 1500})
        start = time.monotonic()
        result = self.interrupt_after(self.calibrate(), is_patch(5))
        self.assertGreaterEqual(time.monotonic() - start, 10.0)
        self.assertEqual(result.code, 130, result)
        self.assertEqual(self.known(result)["record"]["result"]["error"]["name"],
                         "OM_ERR_CANCELED")

    def test_an_abort_that_does_not_get_through(self):
        """Then the run is ended from inside, and the monitor put back all the same."""
        self.slow_patches()
        self.faults({"call": "Monitor.abortCalibration", "nth": 0, "class": "java.io.IOException",
                     "message": "Error sending data"})
        result = self.interrupt_after(self.calibrate(), is_patch(5))
        self.assertEqual(result.code, 130, result)
        self.known(result)


if __name__ == "__main__":
    side_by_side.main()
