#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Converts small videos while something goes wrong, and looks whether all is whole afterwards.

    faults.py REELSMITH RUNS [SEED [FIRST]]

What goes wrong, when, and to which video is decided by SEED and the number of the run alone; FIRST and one run repeat one.
Needs ffmpeg. As root it has mounts of its own, for full disks, read-only folders and vanishing devices; else it does
without these.
"""
import collections
import ctypes
import fcntl
import json
import os
import pathlib
import random
import resource
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time

PR_SET_CHILD_SUBREAPER = 36
EXT4_IOC_SHUTDOWN = 0x8004587D
MINUTE = 60
HOME_BYTES = 24 << 20
MARK = "[General]\nfaults_mark=kept\n"
ANYWHERE = ["nothing", "worker killed", "application killed", "interrupted", "memory refused", "source truncated", "source replaced",
            "outputs removed"]
WITH_MOUNTS = ["disk full", "outputs read-only", "device gone"]
ENDED_FROM_OUTSIDE = ("application killed", "interrupted", "memory refused")


def run(*command, **options):
    return subprocess.run([str(word) for word in command], check=True, capture_output=True, **options).stdout


def make_sources(folder):
    for name, length, options in (("a.mkv", 1, "-c:v mpeg4 -c:a ac3"), ("b.mov", 2, "-c:v libx264 -preset ultrafast -c:a aac"),
                                  ("c.avi", 3, "-c:v mjpeg -c:a pcm_s16le"), ("d.webm", 1, "-c:v libvpx -c:a libopus")):
        run("ffmpeg", "-v", "error", "-f", "lavfi", "-i", f"testsrc2=s=320x240:d={length}", "-f", "lavfi", "-i", f"sine=d={length}",
            "-pix_fmt", "yuvj420p" if name == "c.avi" else "yuv420p", *options.split(), folder / name)


class Trial:
    """One conversion and what goes wrong with it."""

    def __init__(self, program, folder, seed, number, faults):
        self.program, self.folder, self.home = program, folder, folder / "home"
        self.outputs = self.home / "Documents/Reelsmith/outputs"
        self.settings = self.home / ".config/reelsmith/trial.ini"
        self.dice = random.Random(f"{seed} {number}")
        self.fault = self.dice.choice(faults)
        self.quality = self.dice.choice(["low", "medium", "high"])
        self.delay = self.dice.uniform(0, 0.5)
        self.environment = {"HOME": str(self.home), "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8"}
        self.mounted = []

    def prepare(self):
        for entry in self.home.iterdir():
            shutil.rmtree(entry)
        self.outputs.mkdir(parents=True)
        self.settings.parent.mkdir(parents=True)
        self.settings.write_text(MARK)
        shutil.copy(self.folder / "kept.mp4", self.outputs)
        original = self.dice.choice(sorted((self.folder / "sources").iterdir()))
        place = self.folder / "copy"
        shutil.rmtree(place, ignore_errors=True)
        place.mkdir()
        if self.fault == "device gone":
            self.mount("-o", "loop", self.folder / "image", place)
        self.source = pathlib.Path(shutil.copy(original, place))
        if self.fault == "disk full":
            room = self.dice.randrange(300_000)
            system = os.statvfs(self.home)
            free = system.f_bavail * system.f_frsize - room
            (self.home / "filler").write_bytes(bytes(max(0, free)))

    def mount(self, *words):
        run("mount", *words)
        self.mounted.append(words[-1])

    def spoil(self, process):
        if self.fault == "worker killed":
            for child in children(process.pid):
                os.kill(child, signal.SIGKILL)
        elif self.fault in ("application killed", "interrupted"):
            process.send_signal(signal.SIGKILL if self.fault == "application killed" else signal.SIGINT)
        elif self.fault == "source truncated":
            os.truncate(self.source, self.dice.randrange(self.source.stat().st_size))
        elif self.fault == "source replaced":
            self.source.write_bytes(self.dice.randbytes(50_000))
        elif self.fault == "outputs removed":
            shutil.rmtree(self.outputs, ignore_errors=True)
        elif self.fault == "outputs read-only":
            self.mount("--bind", self.outputs, self.outputs)
            # Refused where a file is just being opened for writing: then nothing goes wrong in this run.
            subprocess.run(["mount", "-o", "remount,bind,ro", self.outputs], capture_output=True)
        elif self.fault == "device gone":
            descriptor = os.open(self.source.parent, os.O_RDONLY)
            fcntl.ioctl(descriptor, EXT4_IOC_SHUTDOWN, struct.pack("I", 2))
            os.close(descriptor)

    def confine(self):
        if self.fault == "memory refused":
            limit = int(self.confinement)
            resource.setrlimit(resource.RLIMIT_AS, (limit, limit))

    def convert(self):
        self.confinement = self.dice.uniform(100, 1000) * (1 << 20)
        process = subprocess.Popen([self.program, "convert", "-q", self.quality, self.source], env=self.environment,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, preexec_fn=self.confine)
        try:
            process.wait(self.delay)
        except subprocess.TimeoutExpired:
            self.spoil(process)
        try:
            return process.wait(MINUTE)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
            return "hangs"

    def check(self, status):
        """All that is wrong."""
        if not ends_within(5, lambda: not orphans()):
            yield "a process is left"
        for place in reversed(self.mounted):
            run("umount", place)
        (self.home / "filler").unlink(missing_ok=True)
        listing = subprocess.run([self.program, "list", "--json"], env=self.environment, capture_output=True, timeout=MINUTE)
        if listing.returncode != 0:
            yield f"the next start fails: {listing.stderr}"
        visible = {path for path in self.outputs.parent.rglob("*") if path.is_file()}
        yield from (f"{path.name} is left" for path in visible if path.name.startswith("."))
        listed = {json.loads(line)["path"] for line in listing.stdout.splitlines()}
        if listed != {str(path) for path in visible}:
            yield f"listed are {listed}, there are {visible}"
        yield from (f"{path.name} is not whole" for path in visible if not is_whole(path))
        result = self.outputs / (self.source.stem + ".mp4")
        if status == "hangs" or status not in (0, 1) and self.fault not in ENDED_FROM_OUTSIDE:
            yield f"status {status}"
        if self.fault not in ENDED_FROM_OUTSIDE + ("outputs removed",) and (status == 0) != (result in visible):
            yield f"status {status}, but the result is {'there' if result in visible else 'missing'}"
        if self.fault == "nothing" and status != 0:
            yield "a sound conversion fails"
        if self.fault != "outputs removed" and self.outputs / "kept.mp4" not in visible:
            yield "the library has lost a video"
        if self.settings.read_text() != MARK:
            yield "the settings have changed"


def children(process):
    try:
        return [int(child) for task in pathlib.Path(f"/proc/{process}/task").iterdir()
                for child in (task / "children").read_text().split()]
    except OSError:
        return []


def orphans():
    """What has come to this process for want of a parent, and has not ended."""
    try:
        while os.waitpid(-1, os.WNOHANG) != (0, 0):
            pass
        return True
    except ChildProcessError:
        return False


def ends_within(seconds, condition):
    deadline = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > deadline:
            return False
        time.sleep(0.005)
    return True


def is_whole(path):
    return subprocess.run(["ffmpeg", "-v", "error", "-xerror", "-i", path, "-f", "null", "-"], capture_output=True).returncode == 0


def main():
    program, runs = os.path.abspath(sys.argv[1]), int(sys.argv[2])
    seed, first = sys.argv[3:5] + ["1", "0"][len(sys.argv[3:5]):]
    can_mount = "FAULTS_OWN_MOUNTS" in os.environ
    if not can_mount and subprocess.run(["unshare", "-m", "true"], stderr=subprocess.DEVNULL).returncode == 0:
        os.execvpe("unshare", ["unshare", "-m", *sys.argv], {**os.environ, "FAULTS_OWN_MOUNTS": "1"})
    ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)
    failures, counts = 0, collections.Counter()
    with tempfile.TemporaryDirectory(prefix="reelsmith-faults-") as name:
        folder = pathlib.Path(name)
        for each in ("home", "sources"):
            (folder / each).mkdir()
        make_sources(folder / "sources")
        run("ffmpeg", "-v", "error", "-f", "lavfi", "-i", "testsrc=s=64x48:d=0.2", "-pix_fmt", "yuv420p", folder / "kept.mp4")
        if can_mount:
            run("mount", "-t", "tmpfs", "-o", f"size={HOME_BYTES}", "tmpfs", folder / "home")
            run("truncate", "-s", "8M", folder / "image")
            run("mke2fs", "-q", "-t", "ext4", folder / "image")
        else:
            print(f"without: {', '.join(WITH_MOUNTS)}")
        for number in range(int(first), int(first) + runs):
            trial = Trial(program, folder, seed, number, ANYWHERE + (WITH_MOUNTS if can_mount else []))
            trial.prepare()
            status = trial.convert()
            counts[trial.fault, status] += 1
            for problem in trial.check(status):
                failures += 1
                print(f"run {number} of seed {seed}, {trial.fault} after {trial.delay:.3f} s: {problem}", flush=True)
        if can_mount:
            run("umount", folder / "home")
    for (fault, status), count in sorted(counts.items(), key=str):
        print(f"{count:5} {fault}, status {status}")
    print(f"{runs} runs, {failures} failures")
    sys.exit(failures > 0)


main()
