# SPDX-License-Identifier: MIT
"""Patches on a real screen, read back from it pixel by pixel, and instruments that look at it."""
import signal
import subprocess
import sys
import time

import programs
import schemas
import side_by_side
import xserver
from harness import COLOUR, KOVCTL, KOVCTL_HAS_SDL, KovctlTest, SOURCE, is_patch

programs.require(xserver.available(), "Xvfb is needed (Debian: xvfb)")
programs.require(KOVCTL_HAS_SDL, "kovctl was built without SDL (Debian: libsdl2-dev)")


class Screen(KovctlTest):
    def setUp(self):
        super().setUp()
        self.server = xserver.XServer()
        self.addCleanup(self.server.stop)
        tools = self.folder / "bin"
        tools.mkdir()
        spotread = tools / "spotread"
        spotread.write_text(f"#!/bin/sh\nexec {sys.executable} -B "
                            f"{SOURCE}/tests/kovctl/fake_spotread.py \"$@\"\n")
        spotread.chmod(0o755)
        self.log = self.folder / "seen.txt"
        self.environment.update(DISPLAY=self.server.display, SDL_VIDEODRIVER="x11",
                                FAKE_SPOTREAD_LOG=str(self.log),
                                FAKE_SPOTREAD_SCREEN=str(self.server.screen),
                                PATH=f"{tools}:{self.environment['PATH']}")

    def seen(self):
        return [tuple(map(int, line.split())) for line in self.log.read_text().splitlines()]

    def argyll(self, command, *arguments, code, **options):
        return self.run_kovctl(command, "-m", COLOUR, "--instrument", "argyll", "--settle", "0.05",
                               *arguments, code=code, **options)


class Window(Screen):
    def shows(self, choice, points):
        """The patch window draws the very components that it is given."""
        window = subprocess.Popen([KOVCTL, "patch-window", choice, "0"], env=self.environment,
                                  stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.assertEqual(window.stdout.readline(), b"open\n")
        for color in ((255, 0, 0), (0, 128, 255), (1, 2, 3), (254, 255, 253), (77, 77, 77)):
            window.stdin.write(b"%d %d %d\n" % color)
            window.stdin.flush()
            self.assertEqual(window.stdout.readline(), b"shown %d %d %d\n" % color)
            time.sleep(0.2)
            for x, y in points:
                self.assertEqual(self.server.pixel(x, y), color, (x, y))
        window.stdin.close()
        self.assertEqual(window.wait(timeout=30), 0)
        window.stdout.close()

    def test_closed_by_its_user(self):
        window = subprocess.Popen([KOVCTL, "patch-window", "100x80", "0"], env=self.environment,
                                  stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                  stderr=subprocess.DEVNULL)
        self.assertEqual(window.stdout.readline(), b"open\n")
        window.send_signal(signal.SIGTERM)  # what SDL makes of it is the window's end
        self.assertEqual(window.stdout.read(), b"closed\n")
        self.assertEqual(window.wait(timeout=30), 0)
        window.stdin.close()
        window.stdout.close()

    def test_full_screen(self):
        self.shows("fullscreen", [(0, 0), (xserver.WIDTH - 1, xserver.HEIGHT - 1),
                                  (xserver.WIDTH // 2, xserver.HEIGHT // 2)])

    def test_window(self):
        middle = (xserver.WIDTH // 2, xserver.HEIGHT // 2)
        self.shows("100x80", [middle, (middle[0] - 49, middle[1] - 39)])

    def test_no_display(self):
        self.environment["DISPLAY"] = ":999"
        result = self.argyll("verify", "--display", "fullscreen", code=7)
        self.assertIn("kovctl: no display to draw patches on", result.err)

    def test_wrong_choices(self):
        self.assertIn("fullscreen or WIDTHxHEIGHT",
                      self.argyll("verify", "--display", "wall", code=2).err)
        self.assertIn("kovctl: cannot open the patch window: there is no display 7",
                      self.argyll("verify", "--display", "fullscreen", "--display-number", "7",
                                  code=7).err)


class Argyll(Screen):
    def test_measures_what_is_on_the_screen(self):
        document = schemas.check(
            self.argyll("verify", "--display", "fullscreen", "--points", "18", "--json",
                        "--function", "gamma:2.2", "--lmax", "300", "--limits", "none",
                        code=0).json)
        contrast = document["verdict"]["criteria"][0]
        self.assertLess(contrast["value"], 1e-6)
        levels = [15 * i for i in range(18)]
        self.assertEqual(self.seen(), [(level,) * 3 for level in levels])
        patches = document["record"]["patches"]
        for patch, level in zip(patches, levels):
            self.assertEqual(patch["level"], level)
            self.assertAlmostEqual(patch["luminance"], 0.3 + 299.7 * (level / 255) ** 2.2, 4)
        self.assertEqual(document["record"]["instrument"]["kind"], "argyll")

    def test_draws_what_the_library_asks_for(self):
        # The panel does not follow the simulated firmware: done, but outside all limits.
        document = schemas.check(
            self.argyll("calibrate", "--display", "fullscreen", "--levels", "18", "--points", "18",
                        "--json", code=4).json)
        asked = [(patch["r"], patch["g"], patch["b"]) for patch in document["record"]["patches"]]
        self.assertEqual(self.seen(), asked)
        self.assertTrue({(255, 0, 0), (0, 255, 0), (0, 0, 255)} <= set(asked))

    def test_no_instrument(self):
        self.environment["FAKE_SPOTREAD"] = "none"
        result = self.argyll("verify", "--display", "fullscreen", code=7)
        self.assertIn("No instrument at port 1", result.err)

    def test_an_instrument_that_wants_a_person(self):
        self.environment["FAKE_SPOTREAD"] = "calibrate"
        self.argyll("verify", "--display", "fullscreen", code=7)

    def test_a_silent_program(self):
        self.environment["FAKE_SPOTREAD"] = "silent"
        start = time.monotonic()
        result = self.argyll("verify", "--display", "fullscreen", "--timeout", "2", code=7)
        self.assertIn("spotread gave no instrument within 2 s", result.err)
        self.assertLess(time.monotonic() - start, 60)

    def fails_in_the_middle(self, how, text, timeout=60):
        self.environment["FAKE_SPOTREAD"] = how
        result = self.argyll("calibrate", "--lut", "2", "--display", "fullscreen", "--timeout",
                             timeout, "--json", code=7)
        document = schemas.check(result.json)
        self.assertIn(text, document["record"]["result"]["error"]["text"])
        self.assertEqual(document["record"]["result"]["monitorState"], "restored")
        self.assertIn("Monitor state: as before the calibration", result.err)
        self.assertEqual(self.active_lut(), 0)

    def test_instrument_gone(self):
        self.fails_in_the_middle("die:9", "spotread ended instead of giving its reading")

    def test_instrument_hangs(self):
        # Long enough for the opening, on a busy machine too.
        self.fails_in_the_middle("hang:9", "spotread gave no reading within 10 s", timeout=10)

    def test_misreading(self):
        self.fails_in_the_middle("misread:9", "spotread: ")

    def test_display_ends_during_a_calibration(self):
        process = self.start("calibrate", "-m", COLOUR, "--lut", "2", "--instrument", "argyll",
                             "--display", "fullscreen", "--settle", "0.05", "--json-lines")
        result = self.interrupt_display(process)
        self.assertEqual(result.code, 7, result)
        document = schemas.check(result.lines[-1])
        self.assertEqual(document["record"]["result"]["monitorState"], "restored")
        self.assertEqual(self.active_lut(), 0)

    def interrupt_display(self, process):
        real = process.send_signal
        process.send_signal = lambda number: self.server.stop()
        try:
            return self.interrupt_after(process, is_patch(6))
        finally:
            process.send_signal = real

    def test_interrupt_while_a_reading_hangs(self):
        self.environment["FAKE_SPOTREAD"] = "hang:9"
        process = self.start("calibrate", "-m", COLOUR, "--instrument", "argyll", "--display",
                             "fullscreen", "--settle", "0.05", "--json-lines")
        result = self.interrupt_after(process, is_patch(8), signal.SIGTERM)
        self.assertEqual(result.code, 130, result)
        schemas.check(result.lines[-1])


if __name__ == "__main__":
    side_by_side.main()
