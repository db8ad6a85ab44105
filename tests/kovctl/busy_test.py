# SPDX-License-Identifier: MIT
"""Two runs on one monitor: the second is refused, and the first is not taken for one that died."""
import schemas
import side_by_side
from harness import COLOUR, KovctlTest, MONOCHROME

UNDER_WAY = f"warning: {COLOUR}: a run is under way"
CHANGING = (("calibrate", "--lut", "1"), ("verify", "--lut", "3", "--limits", "none"),
            ("restore", "--lut", "1"), ("lock", "on"))


class Busy(KovctlTest):
    def setUp(self):
        super().setUp()
        self.slow_patches()
        self.first = self.start("calibrate", "-m", COLOUR, "--lut", "2", "--json-lines")
        self.addCleanup(self.first.kill)
        self.seen = self.read_until(self.first, b'"patch":3')
        self.settings()

    def shown(self):
        shown = schemas.check(self.run_kovctl("show", "-m", COLOUR, "--json").json)
        return shown["runUnderWay"], shown["pendingRestore"]

    def test_what_changes_the_monitor_is_refused(self):
        for command in CHANGING:
            result = self.run_kovctl(*command, "-m", COLOUR, "--json", code=6)
            error = schemas.check(result.json)
            self.assertEqual(error["message"], f"{COLOUR} is in use by another run of kovctl")
            self.assertEqual(self.shown(), (True, None), command)
        # The note of the first one is still there.
        self.first.kill()
        self.finish(self.first)
        self.assertEqual(self.shown(), (False, 0))
        self.run_kovctl("restore", "-m", COLOUR)
        self.assertEqual(self.shown(), (False, None))
        self.assertEqual(self.active_lut(), 0)

    def test_what_looks_says_that_it_lives(self):
        result = self.run_kovctl("list", "--json")
        monitors = schemas.check(result.json)["monitors"]
        self.assertEqual([one["runUnderWay"] for one in monitors], [True, False, False, False])
        self.assertEqual({one["pendingRestore"] for one in monitors}, {None})
        self.assertIn(UNDER_WAY, result.err)
        self.assertIn(UNDER_WAY, self.run_kovctl("show", "-m", COLOUR).err)
        self.run_kovctl("history", "-m", COLOUR)
        doctor = schemas.check(self.run_kovctl("doctor", "--json").json)
        checks = {check["id"]: check for check in doctor["checks"]}
        self.assertEqual(checks["unfinished-runs"]["state"], "ok")
        self.assertIn(f"{COLOUR}: a run is under way", checks["unfinished-runs"]["found"])
        self.assertNotIn("killed", result.err)

    def test_another_monitor_is_free(self):
        self.run_kovctl("lock", "on", "-m", MONOCHROME)
        self.run_kovctl("verify", "-m", MONOCHROME, "--points", "18", "--limits", "none")

    def test_a_look_does_not_keep_a_run_away(self):
        self.first.kill()
        self.finish(self.first)
        lookers = [self.start("list") for _ in range(3)]
        self.run_kovctl("restore", "-m", COLOUR)
        for looker in lookers:
            self.assertEqual(self.finish(looker).code, 0)


if __name__ == "__main__":
    side_by_side.main()
