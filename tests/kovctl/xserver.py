# SPDX-License-Identifier: MIT
"""A virtual X server, and the colour of a pixel of its screen, read from its frame buffer."""
import os
import pathlib
import shutil
import struct
import subprocess
import tempfile

WIDTH, HEIGHT = 400, 300


def available():
    return shutil.which("Xvfb")


class XServer:
    def __init__(self):
        self.folder = tempfile.TemporaryDirectory(prefix="kovctl-screen-")
        read, write = os.pipe()
        self.process = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-nolisten",
             "tcp", "-fbdir", self.folder.name], pass_fds=[write], stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as line:
            self.display = ":" + line.readline().strip()
        self.screen = pathlib.Path(self.folder.name) / "Xvfb_screen0"

    def pixel(self, x, y):
        return pixel(self.screen, x, y)

    def stop(self):
        self.process.terminate()
        self.process.wait(timeout=20)
        self.folder.cleanup()


def pixel(screen, x, y):
    """R, G, B of a pixel. The file has the form of an X window dump (X11's XWDFile.h)."""
    dump = pathlib.Path(screen).read_bytes()
    header = struct.unpack(">25I", dump[:100])
    header_size, byte_order, bits, line, colors = (header[i] for i in (0, 7, 11, 12, 19))
    assert bits == 32, header
    at = header_size + 12 * colors + y * line + 4 * x
    value = struct.unpack(">I" if byte_order else "<I", dump[at:at + 4])[0]
    return value >> 16 & 255, value >> 8 & 255, value & 255
