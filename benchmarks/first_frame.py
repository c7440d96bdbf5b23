#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Times first frames on the display there is, which must be empty and black. See first_frame.

Of each program the whole process is timed, from its start to the moment when the middle of its window is not black any
more, drawn with OpenGL by the processor. The medians are of the runs after the first pair.
"""
import ctypes
import os
import pathlib
import statistics
import subprocess
import sys
import time

GOAL = 2.5
Z_PIXMAP, ALL_PLANES = 2, ctypes.c_ulong(-1)

x11 = ctypes.CDLL("libX11.so.6")
for function in ("XOpenDisplay", "XDefaultRootWindow", "XGetImage"):
    getattr(x11, function).restype = ctypes.c_void_p
x11.XGetPixel.restype = ctypes.c_ulong
x11.XGetPixel.argtypes = [ctypes.c_void_p, ctypes.c_int, ctypes.c_int]
display = ctypes.c_void_p(x11.XOpenDisplay(None))
root = ctypes.c_ulong(x11.XDefaultRootWindow(display))


def is_black():
    image = ctypes.c_void_p(x11.XGetImage(display, root, 195, 422, 1, 1, ALL_PLANES, Z_PIXMAP))
    pixel = x11.XGetPixel(image, 0, 0)
    x11.XDestroyImage(image)
    return pixel & 0xFFFFFF == 0


def wait_until(condition, what):
    deadline = time.monotonic() + 30
    while not condition():
        if time.monotonic() > deadline:
            sys.exit(what)
        time.sleep(0.001)


def first_frame_ms(program):
    wait_until(is_black, "The display is not empty.")
    start = time.monotonic()
    process = subprocess.Popen([program], stdout=subprocess.DEVNULL)
    wait_until(lambda: not is_black(), f"{program} shows nothing.")
    took = time.monotonic() - start
    process.terminate()
    process.wait()
    return 1000 * took


def skip_introduction():
    settings = pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "reelsmith/reelsmith.conf"
    settings.parent.mkdir()
    settings.write_text("[General]\nDID_SHOW_ONBOARDING=true\n")


def main():
    skip_introduction()
    build, pairs = pathlib.Path(sys.argv[1]) / "bin", int(sys.argv[2])
    programs = {"reelsmith": build / "reelsmith", "empty window": build / "bare_window"}
    times = {name: [] for name in programs}
    for _ in range(pairs + 1):
        for name, program in programs.items():
            times[name].append(first_frame_ms(program))
    medians = [statistics.median(taken[1:]) for taken in times.values()]
    for name, median, taken in zip(programs, medians, times.values()):
        print(f"{name:14} {median:6.0f} ms   ({min(taken[1:]):.0f}-{max(taken[1:]):.0f})")
    ratio = medians[0] / medians[1]
    print(f"{'ratio':14} {ratio:6.2f}      at most {GOAL}")
    sys.exit(ratio > GOAL)


if __name__ == "__main__":
    main()
