# SPDX-License-Identifier: MIT
"""Closed streams, full disks, and readers that go away."""
import os
import subprocess

import schemas
import side_by_side
from asked import Asked
from harness import COLOUR, KOVCTL, WINDOWS, KovctlTest, not_under_wine

KEEPS = "its starter there keeps the output in files until kovctl ends"


class Streams(KovctlTest):
    def shell(self, command, code=0):
        process = subprocess.run(["bash", "-c", command], env=dict(self.environment, K=KOVCTL),
                                 stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.assertEqual(process.returncode, code, process)
        return process

    @not_under_wine(KEEPS)
    def test_closed_output(self):
        record = self.folder / "run.json"
        self.shell(f'"$K" calibrate -m {COLOUR} --points 18 --record {record} >&-')
        self.assertTrue(record.read_text(encoding="utf-8").endswith("}\n"))

    @not_under_wine(KEEPS)
    def test_closed_errors(self):
        process = self.shell(f'"$K" calibrate -m {COLOUR} --points 18 2>&-')
        self.assertIn(b"PASS", process.stdout)

    @not_under_wine(KEEPS)
    def test_everything_closed(self):
        record = self.folder / "run.json"
        report = self.folder / "run.html"
        self.shell(f'"$K" calibrate -m {COLOUR} --points 18 --record {record} --report {report} '
                   "<&- >&- 2>&-")
        # No output has strayed into a file that took a standard number.
        self.assertTrue(record.read_text(encoding="utf-8").startswith("{"))
        self.assertTrue(report.read_text(encoding="utf-8").startswith("<!DOCTYPE html>"))
        for path in self.home.rglob("*"):
            if path.is_file():
                self.assertNotIn(b"PASS", path.read_bytes(), path)

    @not_under_wine(KEEPS)
    def test_reader_that_goes_away(self):
        process = self.shell(
            f'set -o pipefail; "$K" calibrate -m {COLOUR} --points 18 --json-lines | head -n 1')
        self.assertEqual(process.stdout.count(b"\n"), 1)
        self.assertEqual(self.active_lut(), 0)
        self.assertEqual(len(self.run_kovctl("history", "-m", COLOUR, "--json").json["entries"]), 6)

    @not_under_wine(KEEPS)
    def test_errors_to_a_full_device(self):
        process = self.shell(f'"$K" calibrate -m {COLOUR} --points 18 2>/dev/full')
        self.assertIn(b"PASS", process.stdout)

    def test_odd_texts_come_through(self):
        name = "Jörg <b>\"x\"</b> 𝄞"
        document = schemas.check(self.run_kovctl(
            "calibrate", "-m", COLOUR, "--points", "0", "--json", "--operator", name).json)
        self.assertEqual(document["record"]["operator"], name)

    def test_unreadable_state_folder(self):
        self.environment["XDG_STATE_HOME"] = "/dev/null"
        folder = "Z:\\dev\\null" if WINDOWS else "/dev/null"
        result = self.run_kovctl("calibrate", "-m", COLOUR, "--points", "18", "--json")
        for text in (result.err, " ".join(schemas.check(result.json)["record"]["warnings"])):
            self.assertIn(f"No note of this run can be kept ({folder}", text)
            self.assertIn("look-up table 0 was active before", text)


class OtherVoices(KovctlTest):
    def test_what_java_prints_does_not_disturb_results(self):
        self.environment["JAVA_TOOL_OPTIONS"] = "-Xlog:startuptime -XX:+PrintFlagsFinal"
        result = self.run_kovctl("list", "--json")
        self.assertEqual(len(schemas.check(result.json)["monitors"]), 4)
        self.assertIn("MaxHeapSize", result.err)

    def test_one_monitor_that_does_not_answer_hides_no_other(self):
        self.faults({"call": "Monitor.getModel", "serial": "21500012", "nth": 0,
                     "class": "java.io.IOException", "message": "Error sending data"})
        result = self.run_kovctl("list", "--json", code=6)
        self.assertEqual(len(schemas.check(result.json)["monitors"]), 3)
        self.assertIn("warning: monitor 2 does not answer: java.io.IOException", result.err)
        self.run_kovctl("calibrate", "-m", COLOUR, "--points", "18")

    def silence(self, *serials):
        self.faults(*({"call": "Monitor.getModel", "serial": serial, "nth": 0,
                       "class": "java.io.IOException", "message": "Error sending data"}
                      for serial in serials))

    def test_no_other_is_taken_for_one_that_does_not_answer(self):
        self.silence("30210045", "21500012", "24000777")
        for command in (("verify",), ("calibrate",), ("restore",), ("lock", "on"), ("show",)):
            # Only one is left, and it is not what anybody may have meant.
            result = self.run_kovctl(*command, code=6)
            self.assertIn("3 monitors do not answer", result.err)
            self.assertIn("4  OR-C190:19000003", result.err)
            self.run_kovctl(*command, "-m", "OR-C", code=6)
        self.faults()
        self.assertEqual(len(self.run_kovctl("history", "-m", COLOUR, "--json").json["entries"]), 5)

    def test_numbers_stay(self):
        self.silence("30210045")
        self.assertEqual(self.run_kovctl("show", "-m", "2", "--json").json["model"], "OR-M215")
        self.assertEqual([monitor["number"] for monitor in
                          self.run_kovctl("list", "--json", code=6).json["monitors"]], [2, 3, 4])
        for wanted in ("1", COLOUR):
            result = self.run_kovctl("show", "-m", wanted, code=6)
            self.assertNotIn("attached are", result.err)

    def test_one_monitor_that_answers_in_part_hides_no_other(self):
        for fault, code in (({"message": "Error sending data"}, 6),
                            ({"class": "java.lang.IllegalStateException", "message": "too old"},
                             1)):
            self.faults({"call": "Monitor.getColorType", "serial": "21500012", "nth": 0, **fault})
            result = self.run_kovctl("list", "--json", code=code)
            monitors = schemas.check(result.json)["monitors"]
            self.assertEqual([monitor["number"] for monitor in monitors], [1, 3, 4])
            self.assertIn("warning: OR-M215:21500012 does not answer: ", result.err)
            self.assertEqual(self.run_kovctl("list", code=code).out.count("\n"), 4)


class Files(Asked):
    def test_a_report_does_not_replace_its_record(self):
        record = self.folder / "run.json"
        self.run_kovctl("verify", "-m", COLOUR, "--points", "18", "--limits", "none", "--record",
                        record)
        whole = record.read_bytes()
        os.link(record, self.folder / "hard.html")
        (self.folder / "soft.html").symlink_to("run.json")
        roundabout = f"../{self.folder.name}/run.json"
        for name in ("run.json", "hard.html", "soft.html", roundabout):
            document = self.error("report", record, "-o", f"{self.folder}/{name}", code=2)
            self.assertIn("is the record itself", document["message"])
            self.assertEqual(record.read_bytes(), whole)

    def test_one_file_does_not_serve_for_two(self):
        target = self.folder / "target.json"
        target.write_text('{"LmaxValue": 200}')
        new = self.folder / "new.x"
        other = f"{self.folder}/../{self.folder.name}/new.x"
        for options in (("--report", new, "--record", other),
                        ("--report", target, "--record", target),
                        ("--target", target, "--record", target),
                        ("--target", target, "--report", target)):
            for command in ("calibrate", "verify"):
                document = self.error(command, "-m", COLOUR, *options, code=2)
                self.assertIn("are the same file", document["message"])
        self.assertFalse(new.exists())
        self.assertEqual(target.read_text(), '{"LmaxValue": 200}')
        nowhere = "NUL" if WINDOWS else "/dev/null"
        self.run_kovctl("verify", "-m", COLOUR, "--points", "18", "--limits", "none",
                        "--report", nowhere, "--record", nowhere)

    def test_trying_touches_no_other_file(self):
        kept = self.folder / "keep.html.try"
        kept.write_text("mine")
        before = set(self.folder.iterdir())
        report = self.folder / "keep.html"
        self.run_kovctl("verify", "-m", COLOUR, "--points", "18", "--limits", "none",
                        "--report", report)
        self.assertEqual(kept.read_text(), "mine")
        self.assertEqual(set(self.folder.iterdir()) - before - {self.folder / "state"}, {report})

    def test_pipes_among_the_earlier_records_are_not_waited_for(self):
        folder = self.folder / "reports"
        folder.mkdir()
        os.mkfifo(folder / "earlier.json")
        self.run_kovctl("verify", "-m", COLOUR, "--points", "18", "--limits", "none",
                        "--report-dir", folder)
        (record,) = [path for path in folder.glob("*.json") if path.is_file()]
        self.run_kovctl("report", record, "-o", self.folder / "again.html", "--earlier", folder)

    def test_earlier_records_come_from_a_folder(self):
        record = self.folder / "run.json"
        self.run_kovctl("verify", "-m", COLOUR, "--points", "18", "--limits", "none", "--record",
                        record)
        for wrong in (self.folder / "none", record):
            document = self.error("report", record, "-o", self.folder / "r.html", "--earlier",
                                  wrong, code=2)
            self.assertIn("is no folder", document["message"])
        self.assertFalse((self.folder / "r.html").exists())


@not_under_wine("the limit ends Wine itself, and links are of Linux")
class SizeLimit(KovctlTest):
    def test_report_beyond_the_largest_file_size(self):
        """As on a full disk: the old report stays, whole."""
        record = self.folder / "run.json"
        self.run_kovctl("calibrate", "-m", COLOUR, "--points", "18", "--record", record)
        report = self.folder / "run.html"
        report.write_text("the old one")
        result = self.run_kovctl("report", record, "-o", report, code=8,
                                 by=("prlimit", "--fsize=8192"))
        self.assertIn("File too large", result.err)
        self.assertEqual(report.read_text(), "the old one")
        self.assertEqual(sorted(path.name for path in self.folder.glob("run.*")),
                         ["run.html", "run.json"])

    def test_report_through_a_link(self):
        record = self.folder / "run.json"
        self.run_kovctl("calibrate", "-m", COLOUR, "--points", "18", "--record", record)
        (self.folder / "real.html").write_text("")
        (self.folder / "link.html").symlink_to("real.html")
        self.run_kovctl("report", record, "-o", self.folder / "link.html")
        self.assertTrue((self.folder / "link.html").is_symlink())
        self.assertIn("<html", (self.folder / "real.html").read_text(encoding="utf-8"))


class FullDisk(KovctlTest):
    def setUp(self):
        super().setUp()
        self.disk = self.folder / "disk"
        self.disk.mkdir()
        mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64k", "tmpfs", self.disk],
                                 stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        if mounted.returncode != 0:
            self.skipTest("no file system can be mounted here")
        self.addCleanup(subprocess.run, ["umount", self.disk])

    def test_reports_are_written_whole_or_not_at_all(self):
        report = self.disk / "run.html"
        report.write_text("the old one")
        record = self.folder / "run.json"
        result = self.run_kovctl("calibrate", "-m", COLOUR, "--report", report, "--record", record,
                                 code=8)
        self.assertIn("nothing was written to " + str(report), result.err)
        self.assertIn("Disk full" if WINDOWS else "No space left on device", result.err)
        self.assertEqual(report.read_text(), "the old one")
        self.assertEqual([path.name for path in self.disk.iterdir()], ["run.html"])
        # The other file, the verdict and the monitor are not concerned.
        self.assertIn("PASS", result.out)
        self.assertTrue(record.exists())
        # With room again, nothing has to be measured anew.
        self.run_kovctl("report", record, "-o", self.folder / "again.html")
        self.run_kovctl("report", record, "-o", report, code=8)

    def test_state_on_a_full_disk(self):
        (self.disk / "fill").write_bytes(b"")
        with open(self.disk / "fill", "wb", buffering=0) as fill:
            try:
                while True:
                    fill.write(b"x" * 4096)
            except OSError:
                pass
        self.environment["XDG_STATE_HOME"] = str(self.disk)
        result = self.run_kovctl("calibrate", "-m", COLOUR, "--points", "18")
        self.assertIn("warning: No note of this run can be kept", result.err)
        self.assertIn("warn  Folder for notes of runs", self.run_kovctl("doctor").out)


@not_under_wine("the superuser's server below Wine opens the files")
class Permissions(KovctlTest):
    def test_folder_that_cannot_be_written(self):
        folder = self.folder / "locked"
        folder.mkdir(mode=0o500)
        # To the superuser everything is allowed, unless that right is given up.
        by = ("setpriv", "--bounding-set=-dac_override") if os.geteuid() == 0 else ()
        result = self.run_kovctl("calibrate", "-m", COLOUR, "--points", "18", "--report",
                                 folder / "r.html", code=8, by=by)
        self.assertIn("Permission denied", result.err)
        self.assertIn("Nothing was measured", result.err)
        self.assertEqual(list(folder.iterdir()), [])


if __name__ == "__main__":
    side_by_side.main()
