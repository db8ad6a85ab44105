# SPDX-License-Identifier: MIT
"""After a run that was killed: which table was active before it is neither lost nor guessed."""
import signal
import time

import schemas
import side_by_side
from harness import COLOUR, KovctlTest, MONOCHROME, is_patch

BEFORE = 2
LEFT = 3
NOTE = "a run was killed"


class Killed(KovctlTest):
    def setUp(self):
        super().setUp()
        self.run_kovctl("restore", "-m", COLOUR, "--lut", BEFORE)
        # It stays between activating the table and reading that back.
        self.faults({"call": "Monitor.getActiveLut", "nth": 2, "action": "delay",
                     "millis": 600000})
        process = self.start("verify", "-m", COLOUR, "--lut", LEFT)
        self.addCleanup(process.kill)
        state = self.home / "state/OR-C321-30210045.properties"
        end = time.monotonic() + 60
        while f"activeTable={LEFT}" not in state.read_text(encoding="utf-8"):
            self.assertLess(time.monotonic(), end)
            time.sleep(0.05)
        process.kill()
        self.finish(process)
        self.faults()
        self.assertEqual(self.pending(), (LEFT, BEFORE))

    def pending(self):
        shown = self.run_kovctl("show", "-m", COLOUR, "--json").json
        return shown["activeLut"], shown["pendingRestore"]

    def run_json(self, *arguments, code=0, **options):
        result = self.run_kovctl(*arguments, "--json", code=code, **options)
        return schemas.check(result.json), result

    def test_is_told_by_every_command_that_looks(self):
        document, result = self.run_json("list")
        self.assertEqual([monitor["pendingRestore"] for monitor in document["monitors"]],
                         [BEFORE, None, None, None])
        self.assertIn(f"warning: {COLOUR}: {NOTE}", result.err)
        self.assertIn(NOTE, self.run_kovctl("show", "-m", COLOUR).err)
        self.assertNotIn(NOTE, self.run_kovctl("show", "-m", MONOCHROME).err)
        checks = {check["id"]: check for check in self.run_json("doctor")[0]["checks"]}
        self.assertEqual(checks["unfinished-runs"]["state"], "warn")
        self.assertIn(f"{COLOUR}: look-up table {BEFORE}", checks["unfinished-runs"]["found"])
        self.assertEqual(checks["unfinished-runs"]["remedy"], f"kovctl restore -m {COLOUR}")

    def test_calibrate_takes_the_table_from_before(self):
        document, result = self.run_json("calibrate", "-m", COLOUR, "--points", "18")
        self.assertEqual(document["record"]["monitor"]["lutIndex"], BEFORE)
        self.assertIn(NOTE, result.err)
        self.assertIn(NOTE, str(document["record"]["timeline"]))
        self.assertEqual(document["record"]["warnings"], [])
        self.assertEqual(self.pending(), (BEFORE, None))
        self.assertNotIn(NOTE, self.run_kovctl("list").err)

    def test_calibrate_of_another_table_settles_nothing(self):
        document, result = self.run_json("calibrate", "-m", COLOUR, "--lut", "1", "--points", "18")
        self.assertIn(NOTE, " ".join(document["record"]["warnings"]))
        self.assertEqual(self.pending(), (1, BEFORE))
        self.assertEqual(self.run_json("restore", "-m", COLOUR)[0]["lut"], BEFORE)
        self.assertEqual(self.pending(), (BEFORE, None))

    def test_keep_mode_means_the_table_from_before(self):
        self.run_json("calibrate", "-m", COLOUR, "--lut", "1", "--points", "18", "--keep-mode")
        self.assertEqual(self.pending(), (BEFORE, None))

    def test_cancel_puts_back_the_table_from_before(self):
        self.slow_patches()
        process = self.start("calibrate", "-m", COLOUR, "--json-lines")
        result = self.interrupt_after(process, is_patch(3), signal.SIGTERM)
        self.assertEqual(result.code, 130, result)
        self.assertEqual(self.pending(), (BEFORE, None))

    def test_verify_puts_back_the_table_from_before(self):
        for arguments in (("--lut", str(LEFT)), ()):
            document, result = self.run_json("verify", "-m", COLOUR, "--limits", "none", *arguments)
            self.assertEqual(document["record"]["result"]["monitorState"],
                             "restored" if arguments else "unchanged")
            self.assertEqual(NOTE in result.err, bool(arguments))
            self.assertEqual(document["record"]["monitor"]["lutIndex"],
                             LEFT if arguments else BEFORE)
            self.assertEqual(self.pending(), (BEFORE, None))

    def test_a_table_that_a_user_names_settles_it(self):
        self.assertEqual(self.run_json("restore", "-m", COLOUR, "--lut", "1")[0]["lut"], 1)
        self.assertEqual(self.pending(), (1, None))

    def test_a_failed_return_keeps_the_note(self):
        self.faults({"call": "LookUpTable.activate", "nth": 0,
                     "message": "port 3: Error sending data (timeout)"})
        self.run_json("verify", "-m", COLOUR, "--limits", "none", code=131)
        self.faults()
        self.assertEqual(self.pending(), (LEFT, BEFORE))


if __name__ == "__main__":
    side_by_side.main()
