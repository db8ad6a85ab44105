# SPDX-License-Identifier: MIT
"""The same calibration over the physics of an ICC profile out of a Debian package, by icclu."""
import json
import pathlib
import shutil
import subprocess
import time

import programs
import schemas
import side_by_side
from harness import COLOUR, KovctlTest

PROFILES = pathlib.Path("/usr/share/color/argyll/ref")

programs.require(shutil.which("icclu") and shutil.which("spotread") and PROFILES.is_dir(),
                 "ArgyllCMS is needed (Debian: argyll)")


class Icc(KovctlTest):
    def calibrate(self, profile, *arguments, code=0):
        return schemas.check(self.run_kovctl(
            "calibrate", "-m", COLOUR, "--instrument", f"icc:{PROFILES / profile}", "--json",
            *arguments, code=code).json)

    def test_calibration_closes_the_loop(self):
        for profile in ("sRGB.icm", "ClayRGB1998.icm"):
            document = self.calibrate(profile)
            self.assertEqual(document["verdict"]["outcome"], "pass")
            record = document["record"]
            self.assertEqual(record["instrument"]["kind"], "icc")
            self.assertTrue(record["simulated"])
            verify = [patch for patch in record["patches"] if patch["role"] == "verify"]
            self.assertAlmostEqual(max(patch["luminance"] for patch in verify), 250.0, delta=2.5)

    def test_the_physics_are_the_profiles(self):
        document = self.calibrate("sRGB.icm", "--icc-white", "400", "--icc-black", "0.4")
        native = {patch["level"]: patch for patch in document["record"]["patches"]
                  if patch["role"] == "gray"}
        self.assertAlmostEqual(native[0]["luminance"], 0.4, 6)
        self.assertAlmostEqual(native[255]["luminance"], 400.0, 3)
        level = 128 if 128 in native else 130
        c = level / 255
        srgb = ((c + 0.055) / 1.055) ** 2.4  # IEC 61966-2-1
        self.assertAlmostEqual(native[level]["luminance"] / (0.4 + 399.6 * srgb), 1.0, 2)
        # D65, the profile's white
        self.assertAlmostEqual(native[255]["chromaticity"]["x"], 0.3127, 3)
        self.assertAlmostEqual(native[255]["chromaticity"]["y"], 0.3290, 3)

    def test_uncalibrated_it_is_outside(self):
        profile = PROFILES / "sRGB.icm"
        self.run_kovctl("verify", "-m", COLOUR, "--instrument", f"icc:{profile}", code=4)

    def test_program_that_ends_in_the_middle(self):
        """The instrument is gone: the run ends, and the monitor is put back."""
        self.slow_patches()
        process = self.start("calibrate", "-m", COLOUR, "--lut", "2", "--instrument",
                             f"icc:{PROFILES / 'sRGB.icm'}", "--json-lines")
        seen = self.read_until(process, b'"patch":8')
        subprocess.run(["pkill", "-KILL", "-P", str(process.pid), "-x", "icclu"], check=True)
        result = self.finish(process)
        self.assertEqual(result.code, 7, result)
        document = schemas.check(json.loads((seen.decode() + result.out).splitlines()[-1]))
        self.assertEqual(document["record"]["result"]["monitorState"], "restored")
        self.assertIn("icclu", document["record"]["result"]["error"]["text"])
        self.assertEqual(self.active_lut(), 0)

    def test_no_profile(self):
        broken = self.folder / "broken.icc"
        broken.write_bytes(b"no profile")
        for path in (self.folder / "none.icc", broken):
            result = self.run_kovctl("calibrate", "-m", COLOUR, "--instrument", f"icc:{path}",
                                     code=7)
            self.assertIn("icclu", result.err)

    def test_program_missing(self):
        self.environment["PATH"] = str(self.folder)
        result = self.run_kovctl("calibrate", "-m", COLOUR, "--instrument", "icc:x.icc", code=7)
        self.assertIn("Debian package argyll", result.err)


class Spotread(KovctlTest):
    def test_without_an_instrument_it_ends_in_time(self):
        """The real spotread, which hangs here or takes twenty seconds to say so."""
        start = time.monotonic()
        result = self.run_kovctl("verify", "-m", COLOUR, "--instrument", "argyll", "--display",
                                 "100x100", "--timeout", "3", code=7)
        self.assertIn("spotread", result.err)
        self.assertLess(time.monotonic() - start, 60)


if __name__ == "__main__":
    side_by_side.main()
