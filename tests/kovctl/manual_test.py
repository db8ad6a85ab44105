# SPDX-License-Identifier: MIT
"""The manual page names every command, option and exit code that the program has, and no other."""
import os
import pathlib
import re
import subprocess
import unittest

import programs

KOVCTL = os.environ["KOVCTL"]
SOURCE = pathlib.Path(os.environ["KOVCTL_SOURCE"])
PAGE = (SOURCE / "docs/kovctl.1").read_text(encoding="utf-8").replace("\\-", "-")
COMMANDS = ("list", "show", "calibrate", "verify", "history", "restore", "lock", "report", "doctor",
            "completion")


def help_of(*arguments):
    return subprocess.run([KOVCTL, *arguments, "--help"], stdout=subprocess.PIPE,
                          check=True).stdout.decode()


class Manual(unittest.TestCase):
    def options(self):
        text = help_of() + "".join(help_of(command) for command in COMMANDS)
        return set(re.findall(r"--[a-z][a-z-]+", text))

    def test_names_every_option(self):
        missing = {option for option in self.options() if option not in PAGE}
        self.assertEqual(missing, set())

    def test_names_no_other_option(self):
        self.assertEqual(set(re.findall(r"--[a-z][a-z-]+", PAGE)) - self.options(), set())

    def test_has_every_command(self):
        listed = set(re.findall(r"^\.SS (\w+)", PAGE, re.M))
        self.assertEqual(listed, set(COMMANDS))
        self.assertEqual(set(re.findall(r"^  ([a-z]+)  ", help_of(), re.M)), set(COMMANDS))

    def test_has_every_exit_code(self):
        header = (SOURCE / "tools/kovctl/exit_code.h").read_text(encoding="utf-8")
        codes = set(re.findall(r"k\w+ = (\d+)", header))
        section = PAGE[PAGE.index(".SH EXIT STATUS"):PAGE.index(".SH ENVIRONMENT")]
        self.assertEqual(set(re.findall(r"^\.B (\d+)$", section, re.M)), codes)
        for code in codes:
            self.assertRegex(help_of(), rf"\b{code} ")

    def test_every_help_tells_of_the_options_for_all(self):
        for command in COMMANDS:
            for option in ("--json", "--json-lines", "--quiet", "--verbose", "--no-color"):
                self.assertIn(option, help_of(command), command)

    @unittest.skipIf(programs.lacks("man"), "no man (Debian: man-db)")
    def test_formats_without_a_warning(self):
        result = subprocess.run(
            ["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", str(SOURCE / "docs/kovctl.1")],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=dict(os.environ, MANWIDTH="100"))
        self.assertEqual((result.returncode, result.stderr), (0, b""))


if __name__ == "__main__":
    unittest.main()
