# SPDX-License-Identifier: MIT
"""A virtual X server, and the colour of a pixel of its screen."""
import os
import shutil
import struct
import subprocess
import sys

WIDTH, HEIGHT = 400, 300


def available():
    return shutil.which("Xvfb") and shutil.which("xwd")


class XServer:
    def __init__(self):
        read, write = os.pipe()
        self.process = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-nolisten",
             "tcp"], pass_fds=[write], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as line:
            self.display = ":" + line.readline().strip()

    def stop(self):
        self.process.terminate()
        self.process.wait(timeout=20)


def pixel(display, x, y):
    """R, G, B of a pixel of the root window, from a dump in the X11 format (XWDFile.h)."""
    # -screen: what is on the screen, and not xwd's own collage of the windows.
    dump = subprocess.run(["xwd", "-silent", "-root", "-screen", "-display", display], check=True,
                          stdout=subprocess.PIPE).stdout
    header = struct.unpack(">25I", dump[:100])
    header_size, width, line, colors = header[0], header[4], header[12], header[19]
    little_endian = header[7] == 0
    assert header[11] == 32 and line == 4 * width, header
    at = header_size + 12 * colors + y * line + 4 * x
    value = struct.unpack("<I" if little_endian else ">I", dump[at:at + 4])[0]
    return value >> 16 & 255, value >> 8 & 255, value & 255


if __name__ == "__main__":
    print(*pixel(sys.argv[1], int(sys.argv[2]), int(sys.argv[3])))
