# SPDX-License-Identifier: MIT
"""kovctl at a terminal: the progress line, colours, questions, Ctrl-C as a key."""
import fcntl
import os
import pty
import re
import select
import struct
import termios
import time

import side_by_side
from harness import COLOUR, KovctlTest


class Terminal(KovctlTest):
    def setUp(self):
        super().setUp()
        self.settings(patch__delay__ms="15")

    def open_own(self, *arguments, columns=100, out=None):
        """In a session of its own whose terminal this is; the caller closes it."""
        master, slave = pty.openpty()
        fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        process = self.start(*arguments, by=("setsid", "--ctty"), stdin=slave, stdout=out or slave,
                             stderr=slave)
        os.close(slave)
        return process, master

    def open(self, *arguments, **options):
        process, master = self.open_own(*arguments, **options)
        self.addCleanup(os.close, master)
        self.addCleanup(lambda: process.poll() is None and process.kill())
        return process, master

    def read(self, process, master, until=None, limit=120):
        text = b""
        end = time.monotonic() + limit
        while time.monotonic() < end:
            ready, _, _ = select.select([master], [], [], 0.2)
            if ready:
                try:
                    text += os.read(master, 65536)
                except OSError:
                    break
            elif process.poll() is not None:
                break
            if until and until in text:
                return text.decode()
        if until:
            self.fail(f"{until} did not come: {text}")
        process.wait(timeout=60)
        return text.decode()

    def test_progress_line(self):
        process, master = self.open("calibrate", "-m", COLOUR, "--points", "18", columns=90)
        text = self.read(process, master)
        self.assertEqual(process.returncode, 0, text)
        lines = [part for part in re.split(r"\r\x1b\[K", text)
                 if part.startswith(("Cal", "Che", "["))]
        self.assertGreater(len(lines), 100)
        for line in lines:
            self.assertNotIn("\n", line.rstrip("\r\n").split("\r\n")[0])
            self.assertLess(len(line.split("\r\n")[0]), 90)
        whole = "\n".join(lines)
        self.assertRegex(whole, r"\[[#.]+\] +\d+ %  patch \d+ of ~\d+  level +\d+  "
                                r"[\d.e-]+ cd/m²  ETA ")
        self.assertIn("patch 18 of 18", whole)
        fractions = [int(found) for found in re.findall(r"(\d+) %  patch \d+ of ~", whole)]
        self.assertEqual(fractions, sorted(fractions))
        # A luminance stands beside its own level only.
        last = 0
        for line in lines:
            found = re.search(r"patch (\d+)", line)
            number = int(found.group(1)) if found else last
            if number != last:
                self.assertNotIn("cd/m²", line)
            last = number
        # The line is gone before the result.
        self.assertRegex(text, r"\r\x1b\[KCriterion")

    def test_narrow_terminal(self):
        process, master = self.open("verify", "-m", COLOUR, "--points", "18", columns=30)
        text = self.read(process, master)
        for line in re.findall(r"\r\x1b\[K(\[[^\r]*)", text):
            self.assertLess(len(line), 30)

    def test_colours(self):
        process, master = self.open("doctor")
        self.assertIn("\x1b[32mok\x1b[0m", self.read(process, master))

    def test_no_colours(self):
        self.environment["NO_COLOR"] = "1"
        process, master = self.open("doctor")
        self.assertNotIn("\x1b[3", self.read(process, master))
        del self.environment["NO_COLOR"]
        process, master = self.open("--no-color", "doctor")
        self.assertNotIn("\x1b[3", self.read(process, master))

    def test_no_colours_into_a_file(self):
        path = self.folder / "out.txt"
        with open(path, "wb") as out:
            process, master = self.open("doctor", out=out)
            self.read(process, master)
        self.assertNotIn("\x1b", path.read_text(encoding="utf-8"))

    def test_quiet(self):
        process, master = self.open("verify", "-q", "-m", COLOUR, "--points", "18", "--limits",
                                    "none")
        text = self.read(process, master)
        self.assertTrue(text.startswith("Criterion"), text)
        self.assertIn("No limits were chosen; nothing is judged.\r\nwarning: ", text)
        # What was assumed is no note that -q may hide.
        self.assertTrue(text.endswith("where the command line says nothing else.\r\n"), text)
        self.assertNotIn("patch", text)
        self.assertEqual(process.returncode, 0)

    def test_asks_which_monitor(self):
        process, master = self.open("show")
        self.read(process, master, b"Which monitor (1 to 4)? ")
        os.write(master, b"3\n")
        self.assertIn("OR-C240", self.read(process, master))
        self.assertEqual(process.returncode, 0)

    def test_asks_nothing_without_a_person(self):
        process, master = self.open("show", "--json")
        self.assertIn("several monitors", self.read(process, master))
        self.assertEqual(process.returncode, 3)

    def test_control_c(self):
        """As a key, so that it goes to everything in the foreground."""
        self.slow_patches()
        process, master = self.open("calibrate", "-m", COLOUR, "--lut", "2")
        self.read(process, master, b"patch 10 of")
        os.write(master, b"\x03")
        text = self.read(process, master)
        self.assertEqual(process.returncode, 130, text)
        seconds = [int(found) for found in re.findall(r"the monitor settles: (\d+) s", text)]
        self.assertEqual(seconds[0], 10)
        self.assertEqual(seconds, sorted(seconds, reverse=True))
        self.assertIn("the calibration was canceled", text)
        self.assertIn("look-up table 0 is active, read back from the monitor", text)

    def test_terminal_that_is_closed(self):
        """The window of a remote session is closed: SIGHUP, and nobody reads any more."""
        self.slow_patches()
        record = self.folder / "run.json"
        process, master = self.open_own("calibrate", "-m", COLOUR, "--lut", "2", "--record", record)
        text = b""
        while b"patch 10 of" not in text:
            text += os.read(master, 65536)
        os.close(master)
        self.assertEqual(process.wait(timeout=120), 130)
        self.assertIn('"monitorState": "restored"', record.read_text(encoding="utf-8"))
        self.assertEqual(self.active_lut(), 0)


if __name__ == "__main__":
    side_by_side.main()
