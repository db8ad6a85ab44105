# SPDX-License-Identifier: MIT
"""Speaks like spotread -e: asks for a key, answers with a reading.

It looks at the middle of the X screen whose frame buffer is FAKE_SPOTREAD_SCREEN and measures a
panel of gamma 2.2 between 0.3 and 300 cd/m². Each colour seen is added to the file
FAKE_SPOTREAD_LOG. FAKE_SPOTREAD says how it fails: "none" (no instrument), "silent" (says nothing
at all), "calibrate" (wants a calibration), "die:N" (ends at the N-th reading), "hang:N" (does not
answer the N-th), "misread:N".
"""
import os
import sys
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import xserver

PROMPT = """
Place instrument on spot to be measured,
and hit [A-Z] to read white and setup FWA compensation (keyed to letter)
[a-z] to read and make FWA compensated reading from keyed reference
'r' to set reference, 's' to save spectrum,
'h' to toggle high res., 'k' to do a calibration
Hit ESC or Q to exit, instrument switch or any other key to take a reading:"""


def say(text):
    print(text, end="", flush=True)


def main():
    assert sys.argv[1] == "-e" and os.environ["ARGYLL_NOT_INTERACTIVE"] == "1"
    kind, _, number = os.environ.get("FAKE_SPOTREAD", "").partition(":")
    if kind == "silent":
        time.sleep(600)
    if kind == "none":
        say("spotread: Error - No instrument at port 1\n")
        sys.exit(1)
    if kind == "calibrate":
        say("Spot read needs a calibration before continuing\nPlace cap on instrument\n")
        time.sleep(600)
    say(PROMPT)
    reading = 0
    while True:
        key = sys.stdin.read(1)
        if key in ("", "q", "Q"):
            return
        if key == "\n":
            continue
        reading += 1
        if number and reading == int(number):
            if kind == "die":
                sys.exit(3)
            if kind == "hang":
                time.sleep(600)
            say("\n\nSpot read failed due to misread\nHit any key to retry\n")
            continue
        color = xserver.pixel(os.environ["FAKE_SPOTREAD_SCREEN"], xserver.WIDTH // 2,
                              xserver.HEIGHT // 2)
        with open(os.environ["FAKE_SPOTREAD_LOG"], "a", encoding="ascii") as log:
            log.write("%d %d %d\n" % color)
        y = 0.3 + 299.7 * sum(w * (c / 255) ** 2.2 for w, c in zip((0.2, 0.7, 0.1), color))
        say("\n\n Result is XYZ: %f %f %f, D50 Lab: 0.0 0.0 0.0\n" % (0.95 * y, y, 1.09 * y))
        say(PROMPT)


main()
