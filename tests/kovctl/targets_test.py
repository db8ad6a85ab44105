# SPDX-License-Identifier: MIT
"""Targets, from the command line to the monitor, and plans of what would be measured."""
import json

import side_by_side
from asked import Asked
from harness import COLOUR


class Targets(Asked):
    def test_verify_without_any_target(self):
        """Nobody has asked for a luminance, so none is missed; the contrast is judged."""
        document = self.json("verify", "-m", COLOUR, "--report", self.folder / "run.html", code=4)
        self.assertEqual(document["record"]["target"]["lmax"], 0.0)
        outcomes = {one["quantity"]: one for one in document["verdict"]["criteria"]}
        self.assertEqual(outcomes["Contrast response, largest deviation"]["outcome"], "fail")
        level = outcomes["Maximum luminance, deviation from target"]
        self.assertEqual((level["outcome"], level["note"]),
                         ("not-applicable", "the target has no maximum luminance"))
        html = (self.folder / "run.html").read_text(encoding="utf-8")
        self.assertIn('<td class="num">as measured</td>', html)
        self.assertIn('data-series="target"', html)

    def test_dry_run_needs_no_plugins(self):
        self.environment["L5KOV_COMMON_APPDATA"] = str(self.folder / "none")
        document = self.json("calibrate", "--dry-run", "--lmin", "0.5", "--levels", "18")
        levels = {patches["role"]: patches["levels"] for patches in document["patches"]}
        self.assertEqual(levels["gray"], list(range(0, 256, 15)))
        self.assertEqual(len(levels["verify"]), 52)
        self.assertIs(document["monitorChecked"], False)
        self.assertAlmostEqual(document["curve"][0]["luminance"], 0.5, 6)
        self.assertAlmostEqual(document["curve"][-1]["luminance"], 250.0, 6)
        text = self.run_kovctl("calibrate", "--dry-run").out
        self.assertIn("Target: DICOM, 250 cd/m²", text)
        self.assertIn("No monitor was looked at", text)

    def test_dry_run_lists_every_patch(self):
        for more in ((), ("--backlight-response", "--levels", "0")):
            options = ("calibrate", "-m", COLOUR, "--levels", "18", *more)
            if more:
                options = ("calibrate", "-m", COLOUR, *more)
            plan = self.json(*options, "--dry-run")
            run = self.json(*options, "--limits", "none")["record"]
            planned = {patches["role"]: patches["count"] for patches in plan["patches"]}
            measured = [patch["role"] for patch in run["patches"]]
            self.assertEqual(planned, {role: measured.count(role) for role in set(measured)})
            self.assertEqual(plan["total"], len(measured))
        plan = self.json("calibrate", "--dry-run", "--points", "0")
        self.assertNotIn("verify", [patches["role"] for patches in plan["patches"]])

    def test_dry_run_refuses_what_a_run_refuses(self):
        for wrong in (("--instrument", "eye"), ("--instrument", "argyll"), ("--display", "big"),
                      ("--levels", "1"), ("--limits", "mine"), ("--white", "K6500x")):
            self.json("calibrate", "--dry-run", *wrong, code=2)

    def test_flags_go_over_what_the_table_was_calibrated_for(self):
        self.run_kovctl("calibrate", "-m", COLOUR, "--lmax", "180", "--points", "18")
        for flags in ((), ("--ambient", "0.1"), ("--lmin", "measured")):
            verified = self.json("verify", "-m", COLOUR, "--points", "18", *flags)
            self.assertEqual(verified["record"]["target"]["lmax"], 180.0, flags)
            self.assertEqual(verified["verdict"]["outcome"], "pass", flags)
        # Its own flag goes over it, and a file takes the place of all.
        other = self.json("verify", "-m", COLOUR, "--points", "18", "--lmax", "250", code=4)
        self.assertEqual(other["record"]["target"]["lmax"], 250.0)
        # Without anything to go by, no luminance can be missed.
        own = self.json("verify", "-m", COLOUR, "--lut", "4", "--points", "18", "--ambient", "0.1",
                        "--limits", "none")
        self.assertEqual(own["record"]["target"]["lmax"], 0.0)

    def test_verify_after_functions_without_a_curve_of_their_own(self):
        """The monitor does not keep the curve: no other takes its place without a word."""
        curve = self.folder / "curve.json"
        curve.write_text(json.dumps({"DisplayFunctionType": "USER_DEFINE", "LmaxValue": 250,
                                     "curve": [i * i for i in range(11)]}))
        for lut, options, function, reason in (
                ("1", ("--target", curve), "USER_DEFINE", "the user-defined curve is not known"),
                ("2", ("--function", "native"), "NATIVE", "the native function has no target")):
            self.run_kovctl("calibrate", "-m", COLOUR, "--lut", lut, *options, "--points", "0",
                            "--limits", "none")
            shown = self.run_kovctl("show", "-m", COLOUR).out
            self.assertIn(function.lower()[:4] + ("-" if function[0] == "U" else ""), shown)
            self.assertNotIn("nothing that the monitor remembers", shown)
            run = self.json("verify", "-q", "-m", COLOUR, "--points", "18", "--limits", "other",
                            "--record", self.folder / "run.json", code=4)
            self.assertEqual(run["record"]["target"]["function"], function)
            self.assertEqual(run["verdict"]["criteria"][0]["outcome"], "not-applicable")
            self.assertIn(reason, run["verdict"]["criteria"][0]["note"])
            self.assertEqual(any("user-defined curve" in one for one in run["record"]["warnings"]),
                             function == "USER_DEFINE")
            self.json("report", self.folder / "run.json", "-o", self.folder / "run.html", code=4)
        with_curve = self.json("verify", "-m", COLOUR, "--lut", "1", "--target", curve, "--points",
                               "18", "--limits", "none")
        self.assertIn("value", with_curve["verdict"]["criteria"][0])

    def test_an_assumed_target_is_in_the_record(self):
        run = self.json("verify", "-q", "-m", COLOUR, "--lut", "4", "--points", "18", "--limits",
                        "none")
        (warning,) = run["record"]["warnings"]
        self.assertIn("The monitor keeps no target for this table", warning)

    def test_a_maximum_of_0_is_the_panels_own(self):
        target = self.folder / "target.json"
        target.write_text(json.dumps({"LmaxValue": 0}))
        for options in (("--target", target), ("--lmax", "0")):
            plan = self.json("calibrate", "--dry-run", *options)
            self.assertTrue(plan["assumedWhite"])
            self.assertGreater(plan["curve"][-1]["luminance"], 100.0)
            run = self.json("calibrate", "-m", COLOUR, "--lut", "3", "--points", "18", *options)
            self.assertEqual(run["verdict"]["outcome"], "pass")
            self.assertGreater(run["record"]["patches"][-1]["luminance"], 290.0)

    def test_target_file(self):
        target = self.folder / "target.json"
        target.write_text(json.dumps({"LmaxValue": 180, "DisplayFunctionType": "CIE"}))
        document = self.json("calibrate", "-m", COLOUR, "--target", target, "--limits", "none",
                             "--points", "0")
        self.assertEqual(document["record"]["target"]["function"], "CIE")
        entry = self.json("history", "-m", COLOUR)["entries"][0]
        self.assertEqual((entry["function"], entry["lmax"]), ("CIE L*", 180.0))

    def test_white_point(self):
        document = self.json("calibrate", "-m", COLOUR, "--white", "K6500", "--points", "18")
        white = document["record"]["target"]["white"]
        self.assertAlmostEqual(white["x"], 0.312779, 5)
        self.assertAlmostEqual(white["y"], 0.329183, 5)
        entry = self.json("history", "-m", COLOUR)["entries"][0]
        self.assertEqual(entry["white"], "CUSTOM")
        self.assertAlmostEqual(entry["whiteX"], 0.312779, 5)


if __name__ == "__main__":
    side_by_side.main()
