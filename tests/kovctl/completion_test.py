# SPDX-License-Identifier: MIT
"""The completion scripts, each asked by its own shell."""
import os
import pty
import select
import subprocess
import time
import unittest

import programs
import schemas
import side_by_side
from harness import KOVCTL, KovctlTest


class Completion(KovctlTest):
    def test_completion(self):
        for shell in ("bash", "zsh", "fish"):
            document = self.run_kovctl("completion", shell, "--json").json
            script = schemas.check(document)["script"]
            for word in ("calibrate", "--lut" if shell != "fish" else "-l lut", "acr-diagnostic"):
                self.assertIn(word, script)
            self.assertEqual(self.run_kovctl("completion", shell).out, script)

    def complete(self, *words):
        script = self.run_kovctl("completion", "bash").out
        text = script + (
            f"\nCOMP_WORDS=({' '.join(words)} '')\nCOMP_CWORD={len(words)}\n_kovctl\n"
            "printf '%s\\n' \"${COMPREPLY[@]}\"\n")
        return subprocess.run(["bash", "-c", text], stdout=subprocess.PIPE, check=True,
                              env=dict(os.environ, KOVCTL=KOVCTL)).stdout.decode().split()

    def test_bash_completes(self):
        self.assertIn("calibrate", self.complete("kovctl"))
        self.assertIn("on", self.complete("kovctl", "lock"))
        self.assertIn("--keep-mode", self.complete("kovctl", "-v", "calibrate"))
        self.assertNotIn("--keep-mode", self.complete("kovctl", "verify"))
        self.assertEqual(self.complete("kovctl", "verify", "--points"), ["52", "18"])

    @unittest.skipIf(programs.lacks("zsh"), "no zsh (Debian: zsh)")
    def test_zsh_completes(self):
        """At a terminal, since zsh completes nowhere else."""
        (self.folder / "_kovctl").write_text(self.run_kovctl("completion", "zsh").out)
        master, slave = pty.openpty()
        self.addCleanup(os.close, master)
        shell = subprocess.Popen(["setsid", "--ctty", "zsh", "-f", "-i"], stdin=slave, stdout=slave,
                                 stderr=slave,
                                 env=dict(self.environment, TERM="dumb", ZDOTDIR="/none"))
        os.close(slave)
        self.addCleanup(shell.wait)
        self.addCleanup(shell.kill)
        self.type(master, f"fpath=({self.folder} $fpath); autoload -U compinit; compinit -u -D; "
                  "unsetopt list_beep; print REA''DY\n", "READY")
        for typed, completed in (("calibr", "calibrate"), ("verify --poi", "--points"),
                                 ("completion fi", "fish"),
                                 ("calibrate --instrument ar", "argyll")):
            self.type(master, f"\x15kovctl {typed}\t", completed)

    def type(self, master, keys, wanted):
        os.write(master, keys.encode())
        text = b""
        end = time.monotonic() + 60
        while wanted.encode() not in text:
            if not select.select([master], [], [], max(0.0, end - time.monotonic()))[0]:
                self.fail(f"{wanted!r} did not come after {keys!r}: {text}")
            text += os.read(master, 65536)

    @unittest.skipIf(programs.lacks("fish"), "no fish (Debian: fish)")
    def test_fish_completes(self):
        def complete(line):
            text = self.run_kovctl("completion", "fish").out + f"complete -C '{line}'\n"
            done = subprocess.run(["fish", "--no-config", "-c", text], stdout=subprocess.PIPE,
                                  env=self.environment, timeout=120, check=True)
            return [found.split("\t")[0] for found in done.stdout.decode().splitlines()]

        self.assertIn("calibrate", complete("kovctl "))
        self.assertIn("on", complete("kovctl lock "))
        self.assertIn("--keep-mode", complete("kovctl calibrate --k"))
        self.assertEqual(complete("kovctl verify --keep"), [])
        self.assertEqual(complete("kovctl verify --points "), ["18", "52"])


if __name__ == "__main__":
    side_by_side.main()
