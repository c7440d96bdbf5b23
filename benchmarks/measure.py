# SPDX-License-Identifier: GPL-3.0-or-later
"""What a command costs: it and every process it starts."""
import ctypes
import dataclasses
import os
import pathlib
import shutil
import subprocess
import threading
import time

PR_SET_CHILD_SUBREAPER = 36
SAMPLING_SECONDS = 0.05
NICENESS = 10  # the converter's worker gives way to others by this much; so does all it is compared with


@dataclasses.dataclass
class Cost:
    wall: float  # seconds
    cpu: float  # seconds, user and system, of the whole process tree
    memory: int  # bytes: the sum of each process's own peak, never less than the tree's
    output: str  # what it printed

    def share(self, count):
        """One of `count` equal parts of the time."""
        return Cost(self.wall / count, self.cpu / count, self.memory, self.output)


def adopt_orphans():
    """From here on, processes that outlive their parent are children of this one, so that their cost is not lost."""
    if ctypes.CDLL(None, use_errno=True).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0) != 0:
        raise OSError(ctypes.get_errno(), "prctl(PR_SET_CHILD_SUBREAPER)")


class PeakSampler(threading.Thread):
    """Follows a process tree and keeps the largest resident size that the kernel has noted for each of its processes."""

    def __init__(self, root):
        super().__init__(daemon=True)
        self._root = root
        self._ended = threading.Event()
        self._peaks = {}

    def run(self):
        while not self._ended.wait(SAMPLING_SECONDS):
            self._sample(self._root)

    def _sample(self, process):
        folder = pathlib.Path("/proc", str(process))
        try:
            for line in (folder / "status").read_text().splitlines():
                if line.startswith("VmHWM:"):
                    self._peaks[process] = int(line.split()[1]) * 1024
            children = [word for task in (folder / "task").iterdir() for word in (task / "children").read_text().split()]
        except (FileNotFoundError, ProcessLookupError):  # it has ended meanwhile
            return
        for child in children:
            self._sample(int(child))

    def peak(self):
        self._ended.set()
        self.join()
        return sum(self._peaks.values())


def run(command, environment=None):
    """Runs a command to its end; one that fails ends the benchmark with its words."""
    if not shutil.which(command[0]):
        raise SystemExit(f"not found: {command[0]}")
    os.sync()  # what the run before left to write is not this one's cost
    start = time.monotonic()
    process = subprocess.Popen([str(word) for word in command], env=environment, stdin=subprocess.DEVNULL,
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, preexec_fn=lambda: os.nice(NICENESS))
    sampler = PeakSampler(process.pid)
    sampler.start()
    complaints = []
    listener = threading.Thread(target=lambda: complaints.append(process.stderr.read()))
    listener.start()
    output = process.stdout.read()
    _, status, usage = os.wait4(process.pid, 0)
    wall = time.monotonic() - start
    process.returncode = os.waitstatus_to_exitcode(status)
    listener.join()
    usages = [usage, *reap_orphans()]
    if process.returncode != 0:
        raise SystemExit(f"failed with {process.returncode}: {' '.join(map(str, command))}\n{complaints[0]}")
    largest = max(each.ru_maxrss for each in usages) * 1024
    return Cost(wall, sum(each.ru_utime + each.ru_stime for each in usages), max(sampler.peak(), largest), output)


def reap_orphans():
    """Waits for processes that outlived the one that was waited for. What their parents had waited for is in the parents' numbers."""
    while True:
        try:
            yield os.wait4(-1, 0)[2]
        except ChildProcessError:
            return
