#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs `reelsmith` with the real worker on small videos made here, as a user and as a hostile world would.

    command_line_test.py REELSMITH [unittest options]

Needs ffmpeg and ffprobe. The full-disk case needs root, for a small file system of its own, and is skipped otherwise.
"""
import contextlib
import json
import os
import pathlib
import pty
import queue
import re
import resource
import select
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time
import unittest
import urllib.parse

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../fakes"))
import collector  # noqa: E402
import web_server  # noqa: E402

PAUSE_SECONDS = 3
SMALL_MEMORY_BYTES = 400 << 20

PROGRAM = None
SOURCES = None  # made once, never written to
WEB = None  # a server


def ffmpeg(*arguments):
    subprocess.run(["ffmpeg", "-v", "error", "-y", *map(str, arguments)], check=True, stdin=subprocess.DEVNULL)


def make_sources(folder):
    picture = ["-f", "lavfi", "-i", "testsrc2=s=320x240:r=25:d=1"]
    video = ["-c:v", "libx264", "-preset", "ultrafast", "-pix_fmt", "yuv420p"]
    ffmpeg(*picture, "-f", "lavfi", "-i", "sine=d=1", *video, "-c:a", "aac", folder / "clip.mov")
    ffmpeg("-f", "lavfi", "-i", "testsrc2=s=1280x720:r=30:d=20", *video, folder / "long.mkv")
    (folder / "text.mp4").write_text("no video at all\n" * 100)
    os.mkfifo(folder / "fifo.mp4")
    socket.socket(socket.AF_UNIX).bind(os.fspath(folder / "socket.mp4"))


class CommandLine(unittest.TestCase):
    def setUp(self):
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="reelsmith-test-"))
        self.addCleanup(shutil.rmtree, self.home, ignore_errors=True)
        self.outputs = self.home / "Documents/Reelsmith/outputs"
        self.environment = {k: v for k, v in os.environ.items() if not k.startswith(("XDG_", "LC_", "LANG"))}
        self.environment.update(HOME=str(self.home), LC_ALL="en_US.UTF-8")
        self.confine = None  # called in each process before it is the program

    def start(self, *words):
        return subprocess.Popen([PROGRAM, *map(os.fspath, words)], env=self.environment, text=True,
                                umask=0o027, preexec_fn=self.confine, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)

    def run_to_end(self, *words):
        """(exit status, standard output, standard error), both as lines."""
        process = self.start(*words)
        out, error = process.communicate(timeout=120)
        return process.returncode, out.splitlines(), error.splitlines()

    def start_and_wait_for_progress(self, *words):
        """A conversion in its middle."""
        process = self.start("convert", "--json", "--quality", "high", *words)
        for line in process.stdout:
            event = json.loads(line)
            if event["event"] == "progress" and event["fraction"] > 0:
                self.assertEqual(len(self.temporaries()), 1)
                return process
        self.fail(f"ended before any progress: {process.communicate()}")

    def worker_of(self, process):
        children = pathlib.Path(f"/proc/{process.pid}/task").glob("*/children")
        numbers = [int(n) for children_of_thread in children for n in children_of_thread.read_text().split()]
        exporting = [n for n in numbers if b"export" in pathlib.Path(f"/proc/{n}/cmdline").read_bytes()]
        self.assertEqual(len(exporting), 1)
        return exporting[0]

    def temporaries(self):
        return [p for p in (self.home / "Documents").rglob(".*") if p.suffix == ".part"]

    def left(self):
        """The names of all files in the documents folder."""
        return sorted(p.name for p in (self.home / "Documents").rglob("*") if not p.is_dir())

    def assert_converted(self, path, seconds=1):
        probe = subprocess.run(["ffprobe", "-v", "error", "-of", "json", "-show_format", "-show_streams", str(path)],
                               capture_output=True, check=True)
        found = json.loads(probe.stdout)
        self.assertEqual([s["codec_name"] for s in found["streams"] if s["codec_type"] == "video"], ["h264"])
        self.assertAlmostEqual(float(found["format"]["duration"]), seconds, delta=0.2)

    # What is asked for

    def test_the_result_is_the_only_thing_on_standard_output(self):
        status, out, error = self.run_to_end("convert", SOURCES / "clip.mov")
        self.assertEqual((status, out, error), (0, [str(self.outputs / "clip.mp4")], []))
        self.assert_converted(out[-1])
        self.assertEqual(self.left(), ["clip.mp4"])
        self.assertEqual(os.stat(out[-1]).st_mode & 0o777, 0o640)

    def test_the_log_is_kept_and_shown_when_asked_for(self):
        shown = self.run_to_end("convert", "-v", SOURCES / "clip.mov")[2]
        self.assertEqual(shown, ["Compatible experiments: |3|", "Passthrough enabled: false", "Playable: true",
                                 "Exportable: true", "ENDED"])
        told = self.run_to_end("convert", SOURCES / "text.mp4")[2][1]
        name, cause = told.split(": ", 1)
        log = (self.home / ".local/state/reelsmith/reelsmith.log").read_text().splitlines()
        texts = [line.split(" ", 2)[2] for line in log]
        self.assertEqual((name, texts[:5], texts[-2:]), (str(SOURCES / "text.mp4"), shown, ["FAILED", cause]))

    def test_programs_are_told_by_events(self):
        status, out, _ = self.run_to_end("convert", "--json", "-n", "x", SOURCES / "clip.mov")
        events = [json.loads(line) for line in out]
        self.assertEqual(status, 0)
        self.assertEqual((events[0]["event"], events[-1]["event"]), ("start", "done"))
        self.assertGreater(events[0]["bytes"], 0)
        self.assertEqual(events[-1]["bytes"], (self.outputs / "x.mp4").stat().st_size)
        for event in events:
            self.assertEqual((event["source"], event["output"]),
                             (str(SOURCES / "clip.mov"), str(self.outputs / "x.mp4")))
        status, out, _ = self.run_to_end("convert", "--json", SOURCES / "text.mp4")
        self.assertEqual(status, 1)
        self.assertEqual([json.loads(line).get("reason") for line in out], [None, "Invalid file"])

    def test_a_terminal_shows_how_far_it_has_come(self):
        for source, expected in ((SOURCES / "long.mkv", r"\r\x1b\[K +\d+ %  \d+:\d\d left  long.mp4.*\r\x1b\[K$"),
                                 (self.address("body", 2000000), "100 %  .*downloading clip.mov"),
                                 (self.address("chunked", 2000000), r"2\.0 MB  downloading clip.mov")):
            ours, theirs = pty.openpty()
            subprocess.run([PROGRAM, "convert", source], env=self.environment, stderr=theirs, stdout=subprocess.DEVNULL)
            os.close(theirs)
            printed = b""
            with contextlib.suppress(OSError):  # as the end of a terminal is told
                while True:
                    printed += os.read(ours, 100000)
            os.close(ours)
            self.assertRegex(printed.decode(), re.compile(expected, re.DOTALL))

    def test_the_list_reads_as_the_system_writes_numbers(self):
        ffmpeg("-f", "lavfi", "-i", "color=s=1080x1920:d=1:r=5", self.home / "tall.mp4")
        self.run_to_end("convert", "-q", "high", self.home / "tall.mp4")
        self.assertEqual(self.run_to_end("list"), (0, ["tall.mp4\t00:00:01\t1,080x1,920"], []))
        self.environment["LC_ALL"] = "de_DE.UTF-8"
        status, out, _ = self.run_to_end("list", "--json")
        self.assertEqual(json.loads(out[0]), {"name": "tall.mp4", "duration": "00:00:01", "resolution": "1.080x1.920",
                                              "path": str(self.outputs / "tall.mp4")})

    def test_a_start_keeps_and_lists_what_it_finds(self):
        self.assertEqual(self.run_to_end("list"), (0, [], []))
        (self.outputs / "a b%é.txt").write_text("hello")
        (self.outputs / "folder").mkdir()
        (self.outputs / ".hidden").touch()
        (self.home / "Documents/Reelsmith/downloads/a.mov").touch()
        status, out, error = self.run_to_end("list")
        self.assertEqual((status, set(out), error), (0, {"a b%é.txt\t00:00:00\t", "folder\t00:00:00\t"}, []))
        self.assertEqual(self.left(), [".hidden", "a b%é.txt", "a.mov"])

    def test_wrong_usage_is_told_and_touches_nothing(self):
        for line in ("", "clip.mov", "--fast", "list a", "list -q low", "convert", "convert ", "convert -q best a", "convert a -q",
                     "convert a -n", "convert a --name=", "convert -n  a", "convert a b -n x", "convert a --fast",
                     "convert HTTPS://host/a.mp4 dir/a.mov", "convert dir/a.mov a.b.avi", "convert a ./x/../a"):
            status, out, error = self.run_to_end(*(line.split(" ") if line else []))
            self.assertEqual((status, out), (2, []), line)
            self.assertTrue(error, line)
        self.assertEqual(self.left(), [])
        for words, first in ((["--help"], "Reelsmith turns"), (["--version"], "reelsmith ")):
            status, out, error = self.run_to_end(*words)
            self.assertEqual((status, error), (0, []))
            self.assertTrue(out[0].startswith(first))

    # What comes from the web

    @staticmethod
    def address(behaviour, argument, name="clip.mov"):
        return f"http://127.0.0.1:{WEB.server_port}/{behaviour}/{urllib.parse.quote(str(argument), safe='')}/{name}"

    def test_a_video_is_downloaded_converted_and_only_the_result_stays(self):
        address = self.address("file", SOURCES / "clip.mov", "Holiday%20film.mov?size=large")
        status, out, error = self.run_to_end("convert", "--json", address)
        self.assertEqual((status, error), (0, []))
        events = [json.loads(line) for line in out]
        result = self.outputs / "Holiday film.mp4"
        both = {"source": address, "output": str(result)}
        size = (SOURCES / "clip.mov").stat().st_size
        self.assertEqual(events[:3], [
            both | {"event": "download"},
            both | {"event": "downloadProgress", "receivedBytes": size, "expectedBytes": size, "fraction": 1},
            both | {"event": "downloaded", "bytes": size}])
        self.assert_converted(result)
        self.assertEqual(self.left(), ["Holiday film.mp4"])

    def test_a_failed_source_is_told_and_the_next_one_is_taken(self):
        failed = "Reelsmith could not download the selected video."
        for source, told in ((self.address("cut", 1000, "x.mov"), failed), ("http://", failed),
                             ("https://no host/a.mov", failed), (self.address("status", 404, "x.mov"), "Invalid file")):
            status, out, error = self.run_to_end("convert", source, SOURCES / "clip.mov", "-q", "low")
            self.assertEqual((status, out, error[0]), (1, [str(self.outputs / "clip.mp4")], told))
            self.assertEqual(self.left(), ["clip.mp4"])

    def test_what_has_happened_reaches_the_operators_collector(self):
        """Before one is named all of it waits."""
        self.run_to_end("convert", SOURCES / "clip.mov", SOURCES / "text.mp4", self.address("cut", 1000, "x.mov"),
                        self.address("file", SOURCES / "clip.mov", "y.mov"))
        requests = queue.Queue()
        server = collector.Collector(requests.put)
        self.environment["OTEL_EXPORTER_OTLP_ENDPOINT"] = f"http://127.0.0.1:{server.server_port}/200"
        process = self.start_and_wait_for_progress(SOURCES / "long.mkv")
        records = list(collector.records(requests.get(timeout=60)))
        process.send_signal(signal.SIGINT)
        process.communicate(timeout=120)
        self.assertEqual([(record["eventName"], "reason" in attributes) for _, record, attributes in records],
                         [("converted_success", False), ("converted_failure", True), ("download_failure", False),
                          ("download_success", False), ("converted_success", False)])

    def test_an_interrupt_at_any_time_ends_with_130_and_leaves_nothing(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            self.interrupt(self.start_and_wait_for_progress(SOURCES / "long.mkv"), number)
        loading = self.start("convert", "--json", self.address("half", 1000, "waiting.mov"))
        next(line for line in loading.stdout if json.loads(line).get("fraction") == 0.5)
        self.interrupt(loading)
        self.interrupt(self.start_and_wait_for_progress(self.address("file", SOURCES / "long.mkv", "long.mkv")))

    def interrupt(self, process, number=signal.SIGINT):
        self.assertEqual(len(self.temporaries()), 1)
        process.send_signal(number)
        process.communicate(timeout=30)
        self.assertEqual(process.returncode, 130)
        self.assertEqual(self.left(), [])

    # What bad input gets

    def assert_invalid(self, *words, left=()):
        """The second line of what it says: the cause."""
        status, out, error = self.run_to_end("convert", *words)
        self.assertEqual((status, out, error[0]), (1, [], "Invalid file"))
        self.assertEqual(self.left(), list(left))
        return error[1]

    def test_what_is_no_video_is_an_invalid_file_and_leaves_nothing(self):
        for name in ("missing.mp4", "text.mp4", ".", "fifo.mp4", "socket.mp4", "/dev/zero"):
            with self.subTest(source=name):
                self.assertGreater(len(self.assert_invalid("-n", "x", SOURCES / name)), 10)

    def test_names_that_a_file_can_have_convert(self):
        source = os.fsencode(self.home) + b"/l\xe4tin.mov"
        shutil.copy(SOURCES / "clip.mov", source)
        for name in ("x" * 251, "é" * 125, "50% off? #1", "a\nb", " ", "-q", "firstPass/../y"):
            with self.subTest(name=name):
                status, _, error = self.run_to_end("convert", f"--name={name}", source)
                self.assertEqual((status, error), (0, []))
                self.assertTrue((self.outputs / f"{name.split('/')[-1]}.mp4").is_file())

    def test_a_library_file_may_be_its_own_source(self):
        self.run_to_end("convert", "-n", "x", SOURCES / "clip.mov")
        library_file = self.outputs / "x.mp4"
        link = self.home / "link.mp4"
        link.symlink_to(library_file)
        for source in (library_file, link):
            before = library_file.stat().st_ino
            self.assertEqual(self.run_to_end("convert", "-n", "x", source)[0], 0)
            self.assertNotEqual(library_file.stat().st_ino, before)
            self.assert_converted(library_file)
        library_file.write_text("no video")
        self.assert_invalid(library_file, left=["x.mp4"])
        self.assertEqual(library_file.read_text(), "no video")

    def test_the_outputs_may_be_a_link_to_another_place_while_that_is_there(self):
        self.run_to_end("list")
        self.outputs.rmdir()
        card = self.home / "card"
        self.outputs.symlink_to(card)
        self.assert_invalid(SOURCES / "clip.mov", left=["outputs"])
        status, out, error = self.run_to_end("list")
        self.assertEqual((status, out, len(error)), (1, [], 1))
        card.mkdir()
        (card / ".reelsmith-00000000.part").touch()
        self.assertEqual(self.run_to_end("convert", SOURCES / "clip.mov")[0], 0)
        self.assertEqual([p.name for p in card.iterdir()], ["clip.mp4"])

    # What happens on the way

    def test_what_a_killed_application_leaves_is_hidden_and_goes_at_the_next_start(self):
        process = self.start_and_wait_for_progress(SOURCES / "long.mkv")
        worker = os.pidfd_open(self.worker_of(process))
        process.kill()
        process.communicate()
        with os.fdopen(worker) as ended:
            self.assertTrue(select.select([ended], [], [], 30)[0], "the worker outlives the application")
        self.assertEqual([p.name.startswith(".reelsmith-") for p in self.outputs.iterdir()], [True])
        (self.outputs / ".reelsmith-kept").touch()
        self.run_to_end("list")
        self.assertEqual(self.left(), [".reelsmith-kept"])

    def test_a_second_start_spares_the_conversion_that_runs(self):
        process = self.start_and_wait_for_progress(SOURCES / "long.mkv")
        self.assertEqual(self.run_to_end("list"), (0, [], []))
        self.assertEqual(len(self.temporaries()), 1)
        self.assertEqual(self.run_to_end("convert", "-n", "long", SOURCES / "clip.mov")[0], 0)
        self.assert_converted(self.outputs / "long.mp4", seconds=1)
        self.assertEqual(len(self.temporaries()), 1)
        process.communicate(timeout=120)
        self.assertEqual(process.returncode, 0)
        self.assert_converted(self.outputs / "long.mp4", seconds=20)
        self.assertEqual(self.left(), ["long.mp4"])

    def test_after_a_pause_of_everything_a_conversion_goes_on(self):
        process = self.start_and_wait_for_progress(SOURCES / "long.mkv")
        both = (process.pid, self.worker_of(process))
        for number in both:
            os.kill(number, signal.SIGSTOP)
        time.sleep(PAUSE_SECONDS)
        for number in both:
            os.kill(number, signal.SIGCONT)
        events = [json.loads(line) for line in process.communicate(timeout=120)[0].splitlines()]
        fractions = [event["fraction"] for event in events if event["event"] == "progress"]
        self.assertEqual((process.returncode, events[-1]["event"]), (0, "done"))
        self.assertEqual(fractions, sorted(fractions))
        self.assertGreater(len(set(fractions)), 1)
        self.assert_converted(self.outputs / "long.mp4", seconds=20)

    def test_a_picture_that_does_not_fit_into_memory_fails_the_export_and_leaves_nothing(self):
        if b"__asan_init" in pathlib.Path(PROGRAM).read_bytes():
            self.skipTest("a sanitizer maps more than any limit")
        ffmpeg("-f", "lavfi", "-i", "color=s=3840x2160:r=25:d=0.2", self.home / "large.mp4")
        one_core = {min(os.sched_getaffinity(0))}

        def confine():
            os.sched_setaffinity(0, one_core)
            resource.setrlimit(resource.RLIMIT_AS, (SMALL_MEMORY_BYTES, SMALL_MEMORY_BYTES))

        self.confine = confine
        self.assert_invalid("-q", "high", self.home / "large.mp4")
        self.assertEqual(self.run_to_end("convert", SOURCES / "clip.mov")[0], 0)

    @unittest.skipUnless(os.geteuid() == 0, "a small file system to fill needs root")
    def test_a_full_disk_fails_the_export_and_leaves_nothing(self):
        self.run_to_end("list")
        if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=256k", "tmpfs", self.outputs], capture_output=True).returncode:
            self.skipTest("no small file system may be mounted here")
        self.addCleanup(subprocess.run, ["umount", self.outputs])
        self.assert_invalid("-q", "high", SOURCES / "long.mkv")


if __name__ == "__main__":
    PROGRAM = os.path.abspath(sys.argv.pop(1))
    with tempfile.TemporaryDirectory(prefix="reelsmith-sources-") as made:
        SOURCES = pathlib.Path(made)
        make_sources(SOURCES)
        WEB = web_server.start()
        unittest.main(verbosity=2)
