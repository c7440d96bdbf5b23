#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Changes the application from afar, by a server of flags on the loopback.

    with_desktop remote_values.py REELSMITH DESKTOP_ENTRY [unittest options]
"""
import subprocess

from application import HOME, OUTPUTS, ApplicationTest, forget_everything, make_video, run, write_settings
from desktop import find, look, press
from flag_server import FlagServer

LIST, GRID = "1 video", "1 video, newest first"


class RemoteValues(ApplicationTest):
    def setUp(self):
        forget_everything()
        write_settings(DID_SHOW_ONBOARDING="true")

    def start_with(self, server):
        self.start_window(OFREP_ENDPOINT=server.address)
        self.addCleanup(server.may_answer.set)

    def answer(self, server, line):
        server.may_answer.set()
        self.await_printed(line)

    def open_videos(self, count):
        press("Converted Videos", "page tab")
        find(count)

    def test_another_layout_comes_while_the_videos_are_not_shown_and_stays(self):
        make_video(OUTPUTS / "film.mp4")
        server = FlagServer(new_video_layout_test="variant_a")
        self.start_with(server)
        self.answer(server, "Swapped videos VC to variant_a")
        self.open_videos(GRID)
        self.tearDown()
        self.start_with(FlagServer())
        self.open_videos(GRID)

    def test_the_layout_that_is_shown_is_not_replaced(self):
        make_video(OUTPUTS / "film.mp4")
        server = FlagServer(new_video_layout_test="variant_a")
        self.start_with(server)
        self.open_videos(LIST)
        self.answer(server, "Swapped videos VC to variant_a")
        press("Settings", "page tab")
        find("Settings", "heading")
        self.open_videos(LIST)
        self.assertIsNone(look(GRID))

    def test_with_passthrough_on_high_is_a_copy(self):
        source = make_video(HOME / "Videos/holiday.mov", codec="libx264")
        server = FlagServer(enable_passthrough_preset=True)
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
