# SPDX-License-Identifier: MIT
"""Programs that a test needs and that are not part of this project."""
import os
import shutil
import sys


def wants_all():
    """Whether a test that cannot run is a failure: `./test --all` installs whatever one needs."""
    return bool(os.environ.get("L5KOV_TEST_ALL"))


def require(there, what):
    """Ends a test program that lacks what it needs: skipped, or failed where all are wanted."""
    if not there:
        print(what)
        sys.exit(1 if wants_all() else 77)


def lacks(program):
    """For unittest.skipIf; never where all are wanted, so that the test fails of what it lacks."""
    return not shutil.which(program) and not wants_all()
