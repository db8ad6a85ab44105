# SPDX-License-Identifier: MIT
"""Failures that no part of kovctl expects: the monitor is put back all the same."""
import os

import side_by_side
from asked import Asked
from harness import COLOUR


class Faulty(Asked):
    def setUp(self):
        super().setUp()
        self.environment["LD_PRELOAD"] = os.environ["KOVCTL_FAULTY_METER"]

    def fail_at(self, measurement, *arguments, code):
        self.environment["L5KOV_FAULTY_METER"] = str(measurement)
        document = self.json(*arguments, "-m", COLOUR, code=code)
        del self.environment["LD_PRELOAD"]
        shown = self.run_kovctl("show", "-m", COLOUR, "--json").json
        self.assertIsNone(shown["pendingRestore"])
        result = document["record"]["result"]
        return result["monitorState"], shown["activeLut"], result["error"]["text"]

    def test_instrument_that_throws_while_verifying(self):
        self.assertEqual(self.fail_at(5, "verify", "--lut", "3", code=7),
                         ("restored", 0, "the instrument: its driver has crashed"))

    def test_instrument_that_throws_while_calibrating(self):
        self.assertEqual(self.fail_at(40, "calibrate", "--lut", "3", code=7),
                         ("restored", 0, "the instrument: its driver has crashed"))

    def test_instrument_that_throws_in_the_check(self):
        options = ("calibrate", "--lut", "3", "--levels", "18", "--points", "18", "--keep-mode")
        self.environment["L5KOV_FAULTY_METER"] = "-1"
        run = self.run_kovctl(*options, "-m", COLOUR, "--limits", "none", "--json").json["record"]
        self.assertEqual(self.fail_at(len(run["patches"]) - 3, *options, code=7),
                         ("calibrated", 0, "the instrument: its driver has crashed"))

    def test_computer_without_another_thread(self):
        state, active, text = self.fail_at(0, "calibrate", "--lut", "3", code=1)
        self.assertEqual((state, active), ("restored", 0))
        self.assertIn("Resource temporarily unavailable", text)


if __name__ == "__main__":
    side_by_side.main()
