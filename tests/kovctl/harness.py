# SPDX-License-Identifier: MIT
"""Runs kovctl in an application-data folder of its own.

The environment names the build: KOVCTL, KOVCTL_SOURCE, KOVCTL_SIMULATOR_DIR, KOVCTL_JAVA_HOME,
KOVCTL_CMAKE, KOVCTL_HAS_SDL; KOVCTL_WINDOWS where kovctl is a program for Windows, under Wine, and
KOVCTL what starts it, KOVCTL_EXE.
"""
import json
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import unittest

KOVCTL = os.environ["KOVCTL"]
PROGRAM = pathlib.Path(os.environ.get("KOVCTL_EXE", KOVCTL))  # the file itself
SOURCE = pathlib.Path(os.environ["KOVCTL_SOURCE"])
SIMULATOR = os.environ["KOVCTL_SIMULATOR_DIR"]
JAVA_HOME = os.environ["KOVCTL_JAVA_HOME"]
CMAKE = os.environ["KOVCTL_CMAKE"]
KOVCTL_HAS_SDL = os.environ.get("KOVCTL_HAS_SDL") == "TRUE"
WINDOWS = os.environ.get("KOVCTL_WINDOWS") == "TRUE"
SCHEMAS = SOURCE / "tools/kovctl/schema"
RUNTIME = "bin/server/jvm.dll" if WINDOWS else "lib/server/libjvm.so"  # in the Java runtime
LIMIT = 300  # s: no run of kovctl may take longer

COLOUR = "OR-C321:30210045"
MONOCHROME = "OR-M215:21500012"
NO_LOCK = "OR-C240:24000777"
NO_HISTORY = "OR-C190:19000003"

# As fast as it goes, and without noise.
FAST = {"search.ms": "0", "noise": "off", "state": "state"}


class Result:
    def __init__(self, code, out, err):
        self.code = code
        self.out = out
        self.err = err

    @property
    def json(self):
        return json.loads(self.out)

    @property
    def lines(self):
        return [json.loads(line) for line in self.out.splitlines()]

    def __repr__(self):
        return f"exit {self.code}\n--- out\n{self.out}\n--- err\n{self.err}"


class KovctlTest(unittest.TestCase):
    """A test with a plug-in folder, settings, and a home of its own."""

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="kovctl-test-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.root = self.folder / "data"
        self.home = self.folder / "simulator"
        self.home.mkdir()
        self.settings()
        self.lay_out()
        self.environment = dict(os.environ)
        for name in ("JAVA_TOOL_OPTIONS", "NO_COLOR", "DISPLAY"):
            self.environment.pop(name, None)
        self.environment.update(
            L5KOV_COMMON_APPDATA=str(self.root), KOV_SIM_HOME=str(self.home),
            XDG_STATE_HOME=str(self.folder / "state"), HOME=str(self.folder), LC_ALL="C.UTF-8",
            TZ="UTC0", KOVCTL_TEST_PYTHON="1")

    def lay_out(self):
        subprocess.run(
            [CMAKE, f"-DROOT={self.root}", f"-DJAVA_HOME={JAVA_HOME}",
             f"-DSIMULATOR_DIR={SIMULATOR}", f"-DWINDOWS={WINDOWS}", "-DLINK=ON",
             "-P", str(SOURCE / "simulator/layout.cmake")],
            check=True)

    @property
    def plugins(self):
        return self.root / "ORVA/Lumora5/plugins"

    @property
    def jar(self):
        return self.plugins / "com.orva.lumora.common.monitorcom.kov/external/KOVLibrary.jar"

    def settings(self, **changes):
        values = dict(FAST)
        values.update({key.replace("__", "."): value for key, value in changes.items()})
        self.write("simulator.properties", values)

    def slow_patches(self):
        """So that a calibration lasts long enough to be interrupted, on a busy machine too."""
        self.settings(patch__delay__ms="200")

    def faults(self, *faults):
        """Each a dictionary: call, nth, action, class, message …"""
        values = {}
        for i, fault in enumerate(faults, 1):
            for key, value in fault.items():
                values[f"fault.{i}.{key}"] = str(value)
        self.write("faults.properties", values)

    def write(self, name, values):
        text = "".join(f"{key} = {value}\n" for key, value in values.items())
        (self.home / name).write_text(text, encoding="utf-8")

    def start(self, *arguments, **options):
        options.setdefault("stdin", subprocess.DEVNULL)
        options.setdefault("stdout", subprocess.PIPE)
        options.setdefault("stderr", subprocess.PIPE)
        options.setdefault("env", self.environment)
        # Unbuffered: what readline() would read ahead, communicate() would not find.
        options.setdefault("bufsize", 0)
        # A program that starts kovctl in its own way: no preexec_fn, since tests run in threads.
        by = options.pop("by", ())
        return subprocess.Popen([*by, KOVCTL, *map(str, arguments)], **options)

    def finish(self, process):
        try:
            out, err = process.communicate(timeout=LIMIT)
        except subprocess.TimeoutExpired:
            process.kill()
            out, err = process.communicate()
            self.fail(f"kovctl did not end\n{out}\n{err}")
        text = lambda data: (data or b"").decode("utf-8", "replace")
        return Result(process.returncode, text(out), text(err))

    def run_kovctl(self, *arguments, code=0, **options):
        result = self.finish(self.start(*arguments, **options))
        self.assertEqual(result.code, code, f"kovctl {arguments}: {result}")
        self.assertGreaterEqual(result.code, 0)
        return result

    def active_lut(self, monitor=COLOUR):
        return self.run_kovctl("show", "-m", monitor, "--json").json["activeLut"]

    def read_until(self, process, part):
        """Reads its output until that has come; gives what came."""
        seen = b""
        while part not in seen:
            line = process.stdout.readline()
            if not line:
                self.fail(f"kovctl ended before {part}: {seen} {process.stderr.read()}")
            seen += line
        return seen

    def interrupt_after(self, process, event, number=signal.SIGINT):
        """Sends the signal once a line of JSON with that event has come; gives the result."""
        seen = b""
        while True:
            line = process.stdout.readline()
            if not line:
                self.fail(f"kovctl ended before {event}: {seen} {process.stderr.read()}")
            seen += line
            if event(json.loads(line)):
                break
        process.send_signal(number)
        result = self.finish(process)
        result.out = seen.decode() + result.out
        return result


def not_under_wine(why):
    return unittest.skipIf(WINDOWS, why)


def is_patch(count):
    """The event of the count-th patch."""
    return lambda event: event.get("event") == "patch" and event["patch"] >= count
