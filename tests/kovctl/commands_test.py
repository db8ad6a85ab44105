# SPDX-License-Identifier: MIT
"""Every command: what it prints, and its JSON against the schemas."""
import json

import jsonschema

import schemas
import side_by_side
from asked import Asked
from harness import COLOUR, MONOCHROME, NO_LOCK


class Commands(Asked):
    def test_list(self):
        document = self.json("list")
        self.assertEqual([monitor["name"] for monitor in document["monitors"]],
                         [COLOUR, MONOCHROME, NO_LOCK, "OR-C190:19000003"])
        self.assertEqual([monitor["number"] for monitor in document["monitors"]], [1, 2, 3, 4])
        self.assertEqual(document["monitors"][1]["colorType"], "monochrome")
        self.assertEqual(document["monitors"][3]["package"], "noPackage")
        text = self.run_kovctl("list").out.splitlines()
        self.assertEqual(len(text), 5)
        self.assertEqual(text[1].split(), ["1", "OR-C321", "30210045", "color", "USB",
                                           "OrvaColor", "1234", "0"])

    def test_list_as_lines(self):
        lines = self.run_kovctl("list", "--json-lines").lines
        for event in lines[:-1]:
            schemas.check_event(event)
        self.assertEqual([event["event"] for event in lines[:-1]], ["monitor"] * 4)
        self.assertEqual(len(schemas.check(lines[-1])["monitors"]), 4)

    def test_nothing_attached(self):
        models = ("OR-C321", "OR-M215", "OR-C240", "OR-C190")
        self.settings(**{f"monitor__{model}__connected": "off" for model in models})
        self.assertEqual(self.json("list")["monitors"], [])
        self.assertEqual(self.json("show", code=3)["message"], "no monitor is attached")

    def test_show(self):
        document = self.json("show", "-m", NO_LOCK)
        self.assertEqual(document["edid"], {"model": "OR-C240", "serial": "00001234", "year": 2024})
        self.assertEqual(document["keys"], "not lockable")
        self.assertEqual(document["target"]["displayFunction"], 5)
        self.assertIn("Serial number", self.run_kovctl("show", "-m", "2").out)

    def test_the_only_monitor_needs_no_choice(self):
        self.settings(**{f"monitor__{model}__connected": "off"
                         for model in ("OR-M215", "OR-C240", "OR-C190")})
        self.assertEqual(self.json("show")["model"], "OR-C321")

    def test_lock(self):
        self.assertEqual(self.json("lock", "on", "-m", COLOUR)["keys"], "locked")
        self.assertEqual(self.json("show", "-m", COLOUR)["keys"], "locked")
        self.assertEqual(self.json("lock", "off", "-m", COLOUR)["keys"], "unlocked")
        self.assertEqual(self.json("show", "-m", COLOUR)["keys"], "unlocked")
        self.assertIn("cannot be locked", self.json("lock", "on", "-m", NO_LOCK, code=2)["message"])

    def test_restore_activates_and_reads_back(self):
        document = self.json("restore", "-m", COLOUR, "--lut", "2")
        self.assertEqual((document["lutBefore"], document["lut"]), (0, 2))
        self.assertEqual(self.active_lut(), 2)
        self.assertEqual(self.json("restore", "-m", COLOUR)["lut"], 2)

    def test_calibrate_verify_history(self):
        record = self.folder / "run.json"
        report = self.folder / "run.html"
        document = self.json("calibrate", "-m", COLOUR, "--lut", "1", "--ambient", "0.1",
                             "--operator", "Zoë", "--record", record, "--report", report)
        self.assertEqual(document["verdict"]["outcome"], "pass")
        self.assertEqual(document["files"], [str(record), str(report)])
        run = document["record"]
        self.assertTrue(run["simulated"])
        self.assertEqual(run["result"]["monitorState"], "calibrated")
        self.assertEqual(len(run["versions"]["jars"]), 2)
        self.assertEqual(json.loads(record.read_text(encoding="utf-8")), run)
        self.assertIn("<html", report.read_text(encoding="utf-8"))
        self.assertEqual(self.active_lut(), 1)

        verified = self.json("verify", "-m", COLOUR)
        self.assertEqual(verified["verdict"]["outcome"], "pass")
        self.assertEqual(verified["record"]["kind"], "verify")
        self.assertEqual(verified["record"]["target"]["lmax"], 250.0)
        self.assertEqual(len(verified["record"]["patches"]), 52)

        history = self.json("history", "-m", COLOUR, "--lut", "1")
        self.assertEqual(history["entries"][0]["performer"], "Zoë")
        self.assertEqual(history["entries"][0]["lmax"], 250.0)
        self.assertEqual(len(history["entries"]), 2)
        self.assertEqual({entry["lut"] for entry in history["entries"]}, {1})

    def test_report_drawn_again(self):
        record = self.folder / "run.json"
        report = self.folder / "run.html"
        document = self.json("calibrate", "-m", COLOUR, "--record", record, "--report", report)
        again = self.folder / "again.html"
        drawn = self.json("report", record, "-o", again)
        self.assertEqual(drawn["verdict"], document["verdict"])
        self.assertEqual(again.read_bytes(), report.read_bytes())
        other = self.json("report", record, "-o", again, "--limits", "din-6868-157-dental-rk6",
                          code=4)
        self.assertNotEqual(other["verdict"], document["verdict"])
        none = self.json("report", record, "-o", again, "--limits", "none")
        self.assertEqual(none["verdict"]["outcome"], "not-applicable")

        # Beside its data by default, but never over a report that is there.
        before = report.read_bytes()
        self.assertIn("is there already", self.json("report", record, code=2)["message"])
        self.assertEqual(report.read_bytes(), before)
        report.unlink()
        self.assertEqual(self.json("report", record)["file"], str(report))
        self.assertEqual(report.read_bytes(), before)

    def test_only_the_independent_check_decides(self):
        record = self.folder / "run.json"
        document = self.json("calibrate", "-m", COLOUR, "--record", record)
        self.assertEqual(document["verdict"]["outcome"], "pass")
        run = document["record"]
        roles = [patch["role"] for patch in run["patches"]]
        self.assertEqual((roles.count("library-verify"), roles.count("verify")), (18, 52))
        self.assertEqual(run["checkPoints"], 52)
        for patch in run["patches"]:
            if patch["role"] == "verify":
                patch["luminance"] *= 1.15
        record.write_text(json.dumps(run), encoding="utf-8")
        drawn = self.json("report", record, code=4)["verdict"]
        self.assertEqual(drawn["outcome"], "fail")
        (white,) = [one for one in drawn["criteria"]
                    if one["quantity"] == "Maximum luminance, deviation from target"]
        self.assertGreater(white["value"], 0.13)

    def test_without_a_check_the_librarys_own_verification_decides_and_is_named(self):
        document = self.json("calibrate", "-m", COLOUR, "--points", "0")
        self.assertEqual(document["verdict"]["outcome"], "pass")
        self.assertIn("the library's own verification", document["verdict"]["reason"])

    def test_trend(self):
        for _ in range(2):
            self.run_kovctl("calibrate", "-m", COLOUR, "--points", "0", "-q")
        trends = self.json("history", "-m", COLOUR)["backlightTrends"]
        self.assertEqual([(trend["lut"], trend["points"]) for trend in trends], [(0, 2)])
        self.assertIn("backlight sensor", self.run_kovctl("history", "-m", COLOUR).out)

    def test_report_folder_keeps_the_trend(self):
        folder = self.folder / "reports"
        for seconds in range(2):
            document = self.json("calibrate", "-m", COLOUR, "--points", "18", "--report-dir",
                                 folder)
            if seconds == 0:
                for path in folder.iterdir():  # another second, so another name
                    text = path.read_text(encoding="utf-8")
                    start = document["record"]["startTime"]
                    path.write_text(text.replace(start, "2026-01-02T03:04:05Z"), encoding="utf-8")
                    path.rename(folder / ("OR-C321-30210045-20260102T030405Z" + path.suffix))
        self.assertEqual(len(list(folder.glob("*.json"))), 2)
        newest = max(folder.glob("*.html"), key=lambda path: path.name)
        self.assertIn("2026-01-02T03:04:05Z", newest.read_text(encoding="utf-8"))

    def test_events_of_a_run(self):
        lines = self.run_kovctl("calibrate", "-m", COLOUR, "--json-lines").lines
        for event in lines[:-1]:
            schemas.check_event(event)
        result = schemas.check(lines[-1])
        patches = [event for event in lines if event.get("event") == "patch"]
        self.assertEqual(len(patches), len(result["record"]["patches"]))
        check = [event for event in patches if event["phase"] == "check"]
        self.assertEqual([event["patch"] for event in check], list(range(1, 53)))
        self.assertEqual({event["patches"] for event in check}, {52})

    def test_verify_leaves_the_active_table(self):
        document = self.json("verify", "-m", COLOUR, "--lut", "3", "--points", "18",
                             "--limits", "none")
        self.assertEqual(document["record"]["result"]["monitorState"], "restored")
        self.assertEqual(document["record"]["monitor"]["lutIndex"], 3)
        self.assertEqual(self.active_lut(), 0)

    def test_keep_mode(self):
        document = self.json("calibrate", "-m", COLOUR, "--lut", "2", "--points", "0",
                             "--keep-mode")
        self.assertEqual(document["exitCode"], 0)
        self.assertEqual(self.active_lut(), 0)

    def test_monochrome(self):
        document = self.json("calibrate", "-m", MONOCHROME, "--lmax", "600")
        self.assertEqual(document["exitCode"], 0)

    def test_help_of_every_command(self):
        commands = ("list", "show", "calibrate", "verify", "history", "restore", "lock", "report",
                    "doctor", "completion")
        main = self.run_kovctl("--help").out
        for command in commands:
            self.assertIn("\n  " + command, main)
            self.assertIn("--help", self.run_kovctl(command, "--help").out)
        self.assertRegex(self.run_kovctl("--version").out, r"^kovctl \d+\.\d+\.\d+\n$")

    def test_schemas_refuse_what_is_wrong(self):
        document = self.json("lock", "on", "-m", COLOUR)
        document["keys"] = "ajar"
        with self.assertRaises(jsonschema.ValidationError):
            schemas.check(document)


if __name__ == "__main__":
    side_by_side.main()
