# SPDX-License-Identifier: MIT
"""Every exit code, reached as a user would reach it; mistakes of use (2) are usage_test.py's."""
import signal
import time

import schemas
import side_by_side
from asked import Asked
from harness import COLOUR, NO_HISTORY, is_patch, not_under_wine

SENDING = {"class": "java.io.IOException", "message": "port 3: Error sending data (timeout)"}


class ExitCodes(Asked):
    def test_0_ok(self):
        self.run_kovctl("calibrate", "-m", COLOUR, "--points", "18")

    def test_1_java(self):
        self.faults({"call": "Monitor.getColorType", "nth": 0,
                     "class": "java.lang.IllegalStateException", "message": "firmware too old"})
        document = self.error("show", "-m", COLOUR, code=1)
        self.assertEqual(document["message"], "java.lang.IllegalStateException: firmware too old")

    def test_1_java_during_a_calibration(self):
        self.faults({"call": "Calibration.load", "class": "java.lang.IllegalStateException",
                     "message": "no room for the table"})
        document = schemas.check(
            self.run_kovctl("calibrate", "-m", COLOUR, "--lut", "2", "--json", code=1).json)
        result = document["record"]["result"]
        self.assertEqual(result["error"]["name"], "OM_ERR_JAVA")
        self.assertEqual(result["error"]["text"], "no room for the table")
        self.assertEqual(result["monitorState"], "restored")
        self.assertEqual(document["verdict"]["outcome"] == "pass", False)
        self.assertEqual(self.active_lut(), 0)

    def test_1_with_the_state_unknown(self):
        """131 is for what was canceled or only measured; the record says what is known."""
        self.faults({"call": "Calibration.load", "class": "java.lang.IllegalStateException",
                     "message": "no room for the table"},
                    {"call": "LookUpTable.activate", "nth": 0, **SENDING})
        document = schemas.check(
            self.run_kovctl("calibrate", "-m", COLOUR, "--lut", "2", "--json", code=1).json)
        self.assertEqual(document["record"]["result"]["monitorState"], "unknown")
        self.faults()
        self.assertEqual(self.run_kovctl("show", "-m", COLOUR, "--json").json["pendingRestore"], 0)

    def test_1_monitor_without_history(self):
        document = self.error("calibrate", "-m", NO_HISTORY, code=1)
        self.assertIn("keeps no history of calibrations", document["message"])

    def test_3_monitor_not_found(self):
        document = self.error("show", "-m", "OR-X", code=3)
        self.assertIn("no monitor found", document["message"])
        self.assertEqual(len(document["details"]), 4)

    def test_3_monitor_ambiguous(self):
        document = self.error("show", "-m", "OR-C", code=3)
        self.assertIn("ambiguous", document["message"])
        self.assertEqual(len(document["details"]), 3)

    def test_3_no_choice_and_nobody_to_ask(self):
        document = self.error("calibrate", code=3)
        self.assertEqual(len(document["details"]), 4)

    def test_4_outside_limits(self):
        document = schemas.check(
            self.run_kovctl("verify", "-m", COLOUR, "--function", "dicom", "--json", code=4).json)
        self.assertEqual(document["verdict"]["outcome"], "fail")
        self.assertEqual(document["record"]["result"]["monitorState"], "unchanged")

    def test_4_where_there_is_too_little_contrast(self):
        """As asked for, and yet nothing can be diagnosed with it."""
        for profile in ((), ("--limits", "other")):
            result = self.run_kovctl("calibrate", "-m", COLOUR, "--lmax", "60", "--lmin", "10",
                                     "--points", "18", *profile, "--json", code=4)
            document = schemas.check(result.json)
            outcomes = {one["quantity"]: one["outcome"]
                        for one in document["verdict"]["criteria"]}
            self.assertEqual(outcomes["Contrast response, largest deviation"], "pass")
            self.assertEqual(outcomes["Luminance ratio"], "fail")

    def test_4_where_what_was_asked_for_is_missed(self):
        """This panel gets no darker than about a third of a candela."""
        document = schemas.check(self.run_kovctl(
            "calibrate", "-m", COLOUR, "--lmin", "0.05", "--points", "18", "--json", code=4).json)
        failed = [one["quantity"] for one in document["verdict"]["criteria"]
                  if one["outcome"] == "fail"]
        self.assertEqual(failed, ["Minimum luminance, deviation from target"])

    def test_4_where_the_gray_scale_is_not_judged(self):
        """Far off a function that no limit is about is no pass."""
        for function in ("gamma:1.0", "cie", "native"):
            document = schemas.check(self.run_kovctl(
                "verify", "-m", COLOUR, "--function", function, "--lmax", "250", "--points", "18",
                "--limits", "other", "--json", code=4).json)
            if document["verdict"]["outcome"] != "fail":
                self.assertIn("The gray scale is not judged", document["verdict"]["reason"])
        for room in ("5", "6"):
            result = self.run_kovctl("verify", "-m", COLOUR, "--points", "18", "--limits",
                                     f"din-6868-157-dental-rk{room}", code=4)
            self.assertIn("NO PASS (Informative, never a pass: ", result.out)
            self.assertIn(": The gray scale is not judged", result.out)

    def test_4_but_not_where_nothing_is_judged(self):
        self.run_kovctl("verify", "-m", COLOUR, "--function", "dicom", "--limits", "none")

    def test_5_no_plugins(self):
        self.environment["L5KOV_COMMON_APPDATA"] = str(self.folder / "none")
        self.assertIn("plug-in folder is missing", self.error("list", code=5)["message"])

    def test_5_no_runtime(self):
        (self.plugins / "com.orva.lumora.jre/jre").unlink()
        self.assertIn("Java runtime is missing", self.error("list", code=5)["message"])

    def test_5_no_jars(self):
        self.jar.unlink()
        self.error("list", code=5)

    def test_6_communication(self):
        self.faults({"call": "Monitor.getColorType", "nth": 0, **SENDING})
        self.error("show", "-m", COLOUR, code=6)

    def test_6_communication_during_a_calibration(self):
        self.faults({"call": "Calibration.measure", "nth": 20, **SENDING})
        document = schemas.check(
            self.run_kovctl("calibrate", "-m", COLOUR, "--json", code=6).json)
        self.assertEqual(document["record"]["result"]["error"]["name"], "OM_ERR_COMMUNICATION")
        self.assertEqual(document["record"]["result"]["monitorState"], "restored")

    def test_6_monitor_disappears(self):
        self.faults({"call": "Calibration.measure", "nth": 20, "action": "lose"})
        result = self.run_kovctl("calibrate", "-m", COLOUR, "--json", code=6)
        document = schemas.check(result.json)
        self.assertEqual(document["record"]["result"]["monitorState"], "unknown")
        self.assertIn("Monitor state: NOT KNOWN", result.err)
        # What was measured is not lost.
        self.assertEqual(len(document["record"]["patches"]), 19)

    @not_under_wine("ArgyllCMS is a program of Linux here")
    def test_7_instrument(self):
        document = self.error("verify", "-m", COLOUR, "--instrument", "icc:/none.icc", code=7)
        self.assertIn("icclu", document["message"])
        self.assertIn("/none.icc as an ICC profile", document["message"])

    def test_8_output(self):
        result = self.run_kovctl("calibrate", "-m", COLOUR, "--points", "18", "--report",
                                 "/dev/full", code=8)
        self.assertIn("nothing was written to /dev/full", result.err)
        self.assertIn("PASS", result.out)

    def test_8_before_anything_is_measured(self):
        missing = self.folder / "none/run.html"
        a_file = self.home / "simulator.properties"
        for option, path in (("--report", missing), ("--record", missing),
                             ("--report", self.folder), ("--report-dir", a_file)):
            for command in ("calibrate", "verify"):
                document = self.error(command, "-m", COLOUR, option, path, code=8)
                self.assertIn(f"nothing can be written to {path}: ", document["message"])
                self.assertEqual(document["schema"], "kovctl-error")
        history = self.run_kovctl("history", "-m", COLOUR, "--json").json["entries"]
        self.assertEqual(len(history), 5)
        folder = self.folder / "new/reports"
        self.run_kovctl("calibrate", "-m", COLOUR, "--points", "18", "--report-dir", folder)
        self.assertEqual(sorted(path.suffix for path in folder.iterdir()), [".html", ".json"])

    @not_under_wine("its starter there keeps the output in a file until kovctl ends")
    def test_8_lost_standard_output(self):
        with open("/dev/full", "wb") as full:
            result = self.run_kovctl("list", stdout=full, code=8)
        self.assertIn("could not be written", result.err)

    def canceled(self, number, code):
        # Quiet, which must not hide the state of the monitor.
        process = self.start("calibrate", "-q", "-m", COLOUR, "--lut", "2", "--json-lines")
        result = self.interrupt_after(process, is_patch(10), number)
        self.assertEqual(result.code, code, result)
        document = schemas.check(result.lines[-1])
        self.assertTrue(document["record"]["result"]["canceled"])
        return document, result

    @not_under_wine("signals do not reach it there, only a console's Ctrl-C")
    def test_130_canceled_and_restored(self):
        self.slow_patches()
        document, result = self.canceled(signal.SIGINT, 130)
        self.assertEqual(document["record"]["result"]["monitorState"], "restored")
        self.assertEqual(document["record"]["result"]["error"]["name"], "OM_ERR_CANCELED")
        waits = [event["secondsLeft"] for event in result.lines if event.get("event") == "wait"]
        self.assertEqual(waits[0], 10)
        self.assertEqual(waits, sorted(waits, reverse=True))
        # Second by second, though a busy machine may swallow one or two.
        self.assertGreaterEqual(len(waits), 7)
        self.assertIn("look-up table 0 is active, read back", result.err)
        self.assertEqual(self.active_lut(), 0)
        self.assertEqual(len(self.run_kovctl("history", "-m", COLOUR, "--json").json["entries"]), 5)

    @not_under_wine("signals do not reach it there, only a console's Ctrl-C")
    def test_130_before_anything_was_changed(self):
        """In the search, which blocks inside Java, and at the question."""
        self.settings(search__ms="60000")
        for command, number in (("calibrate", signal.SIGTERM), ("verify", signal.SIGINT),
                                ("restore", signal.SIGHUP)):
            process = self.start(command, "-v", "-m", COLOUR, "--json")
            while b"searching for monitors" not in process.stderr.readline():
                self.assertIsNone(process.poll())
            start = time.monotonic()
            process.send_signal(number)
            result = self.finish(process)
            self.assertEqual(result.code, 130, result)
            self.assertLess(time.monotonic() - start, 20.0)
            self.assertEqual(schemas.check(result.json)["message"],
                             "canceled before anything was changed")

    @not_under_wine("signals do not reach it there, only a console's Ctrl-C")
    def test_131_restore_failed(self):
        self.slow_patches()
        self.faults({"call": "LookUpTable.activate", "nth": 0, **SENDING})
        document, result = self.canceled(signal.SIGTERM, 131)
        self.assertEqual(document["record"]["result"]["monitorState"], "unknown")
        self.assertIn("Monitor state: NOT KNOWN: look-up table 0 could not be activated",
                      result.err)
        # The next one puts it back.
        self.faults()
        self.assertEqual(self.run_kovctl("show", "-m", COLOUR, "--json").json["pendingRestore"], 0)
        self.assertEqual(self.run_kovctl("restore", "-m", COLOUR, "--json").json["lut"], 0)
        shown = self.run_kovctl("show", "-m", COLOUR, "--json").json
        self.assertEqual((shown["activeLut"], shown["pendingRestore"]), (0, None))


if __name__ == "__main__":
    side_by_side.main()
