#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""See silent_services. Each run begins with nothing stored, so that there is something to fetch and to send.

Commands are timed from their start to their end, the window to its first frame. The figure is the median of the ratios of
the pairs after the first.
"""
import os
import pathlib
import shutil
import socket
import statistics
import subprocess
import sys
import time

from first_frame import first_frame_ms, skip_introduction

GOAL = 1.1
HOME, DATA = pathlib.Path.home(), pathlib.Path(os.environ["XDG_DATA_HOME"])
FILM = HOME / "film.mov"


def silent_server():
    server = socket.create_server(("127.0.0.1", 0), backlog=1000)  # the kernel accepts for it
    return server, f"http://127.0.0.1:{server.getsockname()[1]}"


def command_ms(*command):
    start = time.monotonic()
    subprocess.run(command, check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
    return 1000 * (time.monotonic() - start)


def timed(measure, arguments, services):
    shutil.rmtree(DATA / "reelsmith", ignore_errors=True)
    os.environ.update(services)
    try:
        return measure(*arguments)
    finally:
        for name in services:
            del os.environ[name]


def main():
    skip_introduction()
    program, pairs = pathlib.Path(sys.argv[1]) / "bin/reelsmith", int(sys.argv[2])
    subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "testsrc2=s=320x240:r=25:d=1", FILM], check=True)
    server, address = silent_server()
    silent = {"OFREP_ENDPOINT": address, "OTEL_EXPORTER_OTLP_ENDPOINT": address}
    cases = {"convert": (command_ms, [program, "convert", FILM]), "list": (command_ms, [program, "list"]),
             "first frame": (first_frame_ms, [program])}
    worst = 0
    for name, case in cases.items():
        taken = [(timed(*case, silent), timed(*case, {})) for _ in range(pairs + 1)][1:]
        ratio = statistics.median(with_silent / without for with_silent, without in taken)
        medians = [statistics.median(side) for side in zip(*taken)]
        print(f"{name:12} {medians[0]:6.0f} ms silent {medians[1]:6.0f} ms without   ratio {ratio:.2f}")
        worst = max(worst, ratio)
    server.close()
    sys.exit(worst > GOAL)


if __name__ == "__main__":
    main()
