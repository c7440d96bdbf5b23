#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Changes the application from afar, by a server of flags on the loopback.

    with_desktop remote_values.py REELSMITH DESKTOP_ENTRY [unittest options]
"""
import http.server
import json
import os
import shutil
import subprocess
import threading

from application import DATA, HOME, OUTPUTS, PROGRAM, ApplicationTest, make_video, run, write_settings
from desktop import find, look, press, until

PRINTED = HOME / "printed"
LIST, GRID = "1 video", "1 video, newest first"


class Flags(http.server.ThreadingHTTPServer):
    """Answers once it may."""

    def __init__(self, **values):
        super().__init__(("127.0.0.1", 0), Evaluation)
        self.values = values
        self.may_answer = threading.Event()
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def handle_error(self, *_):
        pass  # an application that has ended


class Evaluation(http.server.BaseHTTPRequestHandler):
    def log_message(self, *_):
        pass

    def do_POST(self):
        asked = json.loads(self.rfile.read(int(self.headers["Content-Length"])))
        self.server.may_answer.wait()
        known = self.path == "/ofrep/v1/evaluate/flags" and asked["context"]["targetingKey"]
        flags = [{"key": key, "value": value, "reason": "STATIC"} for key, value in self.server.values.items()]
        body = json.dumps({"flags": flags}).encode()
        self.send_response(200 if known else 404)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)


class RemoteValues(ApplicationTest):
    def setUp(self):
        write_settings(DID_SHOW_ONBOARDING="true")
        shutil.rmtree(DATA / "reelsmith", ignore_errors=True)
        shutil.rmtree(OUTPUTS, ignore_errors=True)

    def start_with(self, server):
        with open(PRINTED, "w") as printed:
            process = subprocess.Popen([PROGRAM], stdout=printed, env=os.environ | {
                "OFREP_ENDPOINT": f"http://127.0.0.1:{server.server_port}"})
        self.addCleanup(process.wait)
        self.addCleanup(server.may_answer.set)
        find("Photo library", "push button")

    def answer(self, server, line):
        server.may_answer.set()
        until(lambda: line in PRINTED.read_text().splitlines(), f'"{line}" is printed')

    def open_videos(self, count):
        press("Converted Videos", "page tab")
        find(count)

    def test_another_layout_comes_while_the_videos_are_not_shown_and_stays(self):
        make_video(OUTPUTS / "film.mp4")
        server = Flags(new_video_layout_test="variant_a")
        self.start_with(server)
        self.answer(server, "Swapped videos VC to variant_a")
        self.open_videos(GRID)
        self.tearDown()
        self.start_with(Flags())
        self.open_videos(GRID)

    def test_the_layout_that_is_shown_is_not_replaced(self):
        make_video(OUTPUTS / "film.mp4")
        server = Flags(new_video_layout_test="variant_a")
        self.start_with(server)
        self.open_videos(LIST)
        self.answer(server, "Swapped videos VC to variant_a")
        press("Settings", "page tab")
        find("Settings", "heading")
        self.open_videos(LIST)
        self.assertIsNone(look(GRID))

    def test_with_passthrough_on_high_is_a_copy(self):
        source = make_video(HOME / "Videos/holiday.mov", codec="libx264")
        server = Flags(enable_passthrough_preset=True)
        self.start_with(server)
        self.answer(server, "    enable_passthrough_preset: true")
        press("Photo library", "push button")
        press("holiday.mov", "list item")
        press("High")
        self.assertEqual(self.frames(self.convert("copied")), self.frames(source))

    @staticmethod
    def frames(path):
        return subprocess.run(["ffmpeg", "-v", "error", "-i", path, "-map", "0:v", "-f", "framemd5", "-"],
                              capture_output=True, check=True).stdout


if __name__ == "__main__":
    run()
