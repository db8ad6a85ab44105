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

    def test_colours_that_light_cannot_have(self):
        record = self.folder / "run.json"
        self.environment["L5KOV_FAULTY_METER"] = "-1"
        for colour in ("2.0", "-0.5", "nan", "inf"):
            self.environment["L5KOV_FAULTY_COLOUR"] = colour
            document = self.json("verify", "-m", COLOUR, "--points", "18", "--limits", "none",
                                 "--record", record)
            patches = document["record"]["patches"]
            self.assertEqual([patch["level"] for patch in patches if "chromaticity" not in patch],
                             [0], colour)
            # What was written can be read.
            self.json("report", record, "-o", self.folder / "run.html")

    def test_black_below_zero(self):
        """It is judged, and not for a reason that is none."""
        self.environment.update(L5KOV_FAULTY_METER="-1", L5KOV_FAULTY_BLACK="-0.01")
        for arguments in ((), ("--ambient", "0.1")):
            document = self.json("verify", "-m", COLOUR, "--points", "18", *arguments, code=4)
            contrast = document["verdict"]["criteria"][0]
            self.assertEqual(contrast["outcome"], "fail")
            self.assertNotIn("Too little", document["verdict"]["reason"])
            self.assertEqual(document["record"]["patches"][0]["luminance"], -0.01)

    def test_numbers_of_the_monitor_that_are_none(self):
        """The run ends as it should, with its verdict and the state of the monitor."""
        del self.environment["LD_PRELOAD"]
        self.run_kovctl("calibrate", "-m", COLOUR, "--ambient", "0.1", "--points", "0")
        (state,) = (self.home / "state").glob("OR-C321*")
        text = state.read_text(encoding="latin-1")
        self.assertIn("current.0.target.ambientLight=0.1", text)
        state.write_text(text.replace("current.0.target.ambientLight=0.1",
                                      "current.0.target.ambientLight=Infinity"),
                         encoding="latin-1")
        result = self.run_kovctl("verify", "-m", COLOUR, "--points", "18", code=8)
        self.assertIn("Monitor state: unchanged", result.err)
        self.assertIn("cannot be written: target.ambient: the number is not finite", result.err)

    def test_computer_without_another_thread(self):
        state, active, text = self.fail_at(0, "calibrate", "--lut", "3", code=1)
        self.assertEqual((state, active), ("restored", 0))
        self.assertIn("Resource temporarily unavailable", text)


if __name__ == "__main__":
    side_by_side.main()
