# SPDX-License-Identifier: MIT
"""Texts of the name table and of Java exceptions reach the terminal as texts, and do nothing there.

A title that is set, a screen that is cleared, a line of colour (ESC and its one character, U+009B),
writing that runs backwards, a forged line of kovctl's own.
"""
import json
import subprocess

import side_by_side
from harness import COLOUR, LIMIT, KovctlTest

ATTACK = ("\x1b]0;owned\x07\x1b[2J\x08\x7f\u009b31m\u202etxt.exe\u2066\u200f"
          "\nwarning: forged\tgröße 亮度")
SHOWN = ("\ufffd]0;owned\ufffd\ufffd[2J\ufffd\ufffd\ufffd31m\ufffdtxt.exe\ufffd\ufffd"
         "\ufffdwarning: forged\ufffdgröße 亮度")
ESCAPED = ("\\u001b]0;owned\\u0007\\u001b[2J\\b\\u007f\\u009b31m\\u202etxt.exe\\u2066\\u200f"
           "\\nwarning: forged\\tgröße 亮度")
SILENT = "30210045"
EMOJI = b"\xf0\x9f\x98\x80"  # not in exceptions: JNI writes two surrogates for it


class HostileText(KovctlTest):
    def bytes_of(self, *arguments):
        out, err = self.start(*arguments).communicate(timeout=LIMIT)
        # Under Wine lines end otherwise.
        return out.replace(b"\r\n", b"\n"), err.replace(b"\r\n", b"\n")

    def name_package(self, name):
        path = self.root / "ORVA/Lumora5/Data/Profile/KovMonitorName.xml"
        path.write_bytes(path.read_bytes().replace(b"OrvaColor", name))

    def assert_plain(self, text):
        for byte in set(text) & {*range(0x20), 0x7F}:
            self.assertEqual(byte, 0x0A, text)
        for character in text.decode("utf-8"):
            self.assertNotIn(character, "\u009b\u202e\u2066\u200f")

    def test_package_in_the_table_of_monitors(self):
        self.name_package(ATTACK.encode())
        out, _ = self.bytes_of("list")
        self.assert_plain(out)
        lines = out.decode("utf-8").splitlines()
        self.assertEqual(len(lines), 5)
        self.assertIn("  " + SHOWN + "  ", lines[1])
        # The columns behind it stand where their titles do.
        self.assertEqual(len(lines[1].rstrip()), len(lines[0].rstrip()))

    def test_package_among_the_properties(self):
        self.name_package(ATTACK.encode())
        out, _ = self.bytes_of("show", "-m", COLOUR)
        self.assert_plain(out)
        self.assertIn(f"\n{'Package':<20}  {SHOWN}\n", out.decode("utf-8"))

    def test_bytes_that_are_no_text(self):
        self.name_package(EMOJI + b"a\xffb\xed\xa0\x80c\xc0\xafd")
        for arguments in (("list",), ("show", "-m", COLOUR), ("list", "--json")):
            out, _ = self.bytes_of(*arguments)
            self.assertRegex(out.decode("utf-8"), "😀a\ufffdb\ufffd+c\ufffd+d")

    def test_json_escapes_what_a_terminal_obeys(self):
        self.name_package(ATTACK.encode())
        for arguments in (("list", "--json"), ("list", "--json-lines")):
            out, _ = self.bytes_of(*arguments)
            self.assert_plain(out)
            self.assertIn(ESCAPED.encode(), out)
            document = json.loads(out.splitlines()[-1])
            self.assertEqual(document["monitors"][0]["package"], ATTACK)

    def exception(self, call):
        message = ATTACK.encode("utf-16-be")
        units = [message[i:i + 2].hex() for i in range(0, len(message), 2)]
        self.faults({"call": call, "serial": SILENT, "nth": 0, "class": "java.io.IOException",
                     "message": "".join("\\u" + unit for unit in units)})

    def test_exception_of_a_silent_monitor(self):
        self.exception("Monitor.getModel")
        out, err = self.bytes_of("list")
        self.assert_plain(out)
        self.assert_plain(err)
        self.assertIn("warning: monitor 1 does not answer: ", err.decode("utf-8"))
        self.assertIn(SHOWN + "\n", err.decode("utf-8"))
        self.assertNotIn("\nwarning: forged", err.decode("utf-8"))

    def test_exception_that_ends_a_command(self):
        self.exception("Monitor.getModel")
        process = self.start("show", "-m", "1", stderr=subprocess.STDOUT)
        out, _ = process.communicate(timeout=LIMIT)
        self.assertNotEqual(process.returncode, 0)
        self.assertIn(SHOWN, out.decode("utf-8"))
        self.assert_plain(out.replace(b"\r\n", b"\n"))


if __name__ == "__main__":
    side_by_side.main()
