# SPDX-License-Identifier: MIT
"""Exit code 2: mistakes are said in the words that the user has used."""
import schemas
import side_by_side
from asked import Asked
from harness import COLOUR


class Usage(Asked):
    def test_usage(self):
        for arguments in ((), ("calibrat",), ("calibrate", "--lut", "-1"), ("list", "--frob"),
                          ("lock",), ("lock", "ajar"), ("list", "-q", "-v"),
                          ("verify", "--points", "17"), ("show", "-m", ""),
                          ("verify", "--points", "0"), ("list", "--json", "--json-lines")):
            result = self.run_kovctl(*arguments, code=2)
            self.assertTrue(result.err.startswith("kovctl: "), arguments)
            if "--json" not in arguments:
                self.assertEqual(result.out, "", arguments)
            self.error(*arguments, code=2)

    def test_says_which_word_is_wrong(self):
        message = self.error("calibrat", code=2)["message"]
        self.assertEqual(message, 'there is no command "calibrat"')
        self.assertIn("--frob", self.error("list", "--frob", code=2)["message"])
        self.assertIn("kovctl lock --help", self.error("lock", code=2)["details"][0])
        self.assertEqual(self.error(code=2)["message"], "a command is needed")
        message = self.error("list", "-m", "1", code=2)["message"]
        self.assertEqual(message, "not expected: -m 1")
        message = self.error("verify", "--white", "K6500x", code=2)["message"]
        self.assertIn("--white K6500x: ", message)

    def test_no_such_look_up_table(self):
        document = self.error("restore", "-m", COLOUR, "--lut", "9", code=2)
        self.assertEqual(document["message"], "the monitor has no look-up table 9")
        run = schemas.check(
            self.run_kovctl("verify", "-m", COLOUR, "--lut", "9", "--json", code=2).json)
        self.assertEqual(run["record"]["result"]["monitorState"], "restored")
        self.assertEqual(self.active_lut(), 0)

    def test_calibrating_no_such_look_up_table(self):
        document = self.error("calibrate", "-m", COLOUR, "--lut", "9", code=2)
        self.assertIn("has no look-up table 9 ", document["message"])
        self.assertIn("It has calibrated 0, 1, 2, 3, 4.", document["details"])
        # With a history so long that the library finds something at that place.
        for _ in range(5):
            self.run_kovctl("calibrate", "-m", COLOUR, "--levels", "3", "--points", "0",
                            "--limits", "none")
        run = schemas.check(
            self.run_kovctl("calibrate", "-m", COLOUR, "--lut", "9", "--json", code=2).json)
        self.assertEqual(run["record"]["result"]["error"]["text"],
                         "the monitor has no look-up table 9")
        self.assertEqual(run["record"]["result"]["monitorState"], "restored")
        self.assertEqual(self.active_lut(), 0)

    def test_too_few_gray_levels(self):
        target = self.folder / "target.json"
        for count in (1, 2):
            target.write_text(f'{{"numberOfGraylevels": {count}}}')
            for arguments in (("--levels", str(count)), ("--target", target)):
                document = self.error("calibrate", "-m", COLOUR, *arguments, code=2)
                self.assertIn("0 or a whole number from 3 to 256", document["message"])

    def test_values_that_make_no_sense(self):
        missing = self.folder / "none.json"
        for arguments in (("--lmax", "bright"), ("--lmin", "300"), ("--white", "6500"),
                          ("--function", "gamma"), ("--limits", "mine"), ("--target", missing),
                          ("--instrument", "eye"), ("--ambient", "-1")):
            self.error("calibrate", "-m", COLOUR, *arguments, code=2)
        self.error("report", missing, code=2)
        missing.write_text("{}")
        self.error("report", missing, code=2)

    def test_mistakes_that_need_no_monitor_are_found_without_one(self):
        self.jar.unlink()
        for command in ("verify", "calibrate"):
            for arguments in (("--instrument", "eye"), ("--instrument", "argyll"),
                              ("--display", "wide")):
                self.error(command, "-m", COLOUR, *arguments, code=2)

    def test_argyll_without_a_screen(self):
        document = self.error("verify", "-m", COLOUR, "--instrument", "argyll", code=2)
        self.assertIn("--display", document["message"])


if __name__ == "__main__":
    side_by_side.main()
