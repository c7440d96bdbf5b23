#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Follows a new user from the first start to the library, in both of its layouts, and counts what is measured.

    with_desktop library.py REELSMITH DESKTOP_ENTRY [unittest options]
"""
from application import (HOME, OUTPUTS, SETTINGS, ApplicationTest, forget_everything, install_store,
                         make_video, run, write_settings)
from collector import Collector, records
from desktop import find, gone, key, press, type_text, until
from flag_server import FlagServer
import web_server
from x11 import Display

PAGES = (("Welcome to Reelsmith", "Continue"), ("Convert using your phone", "Continue"),
         ("Multiple quality options", "Start"))


def open_tab(name):
    press(name, "page tab")
    find(name, "heading")


class Library(ApplicationTest):
    def setUp(self):
        forget_everything()
        self.flags = FlagServer(measurement_upload_interval_seconds=1)
        self.flags.may_answer.set()
        self.measured = []
        collector = Collector(self.take)
        self.services = {"OFREP_ENDPOINT": self.flags.address,
                         "OTEL_EXPORTER_OTLP_ENDPOINT": f"http://127.0.0.1:{collector.server_port}/200"}

    def take(self, request):
        self.measured += [record["eventName"] for _, record, _ in records(request)]

    def go_through_onboarding(self):
        for title, button in PAGES:
            find(title, "heading")
            press(button, "push button")
        find("Photo library", "push button")
        self.assertIn("DID_SHOW_ONBOARDING=true", SETTINGS.read_text())

    def convert_from_photos(self, name):
        make_video(HOME / "Videos/holiday.avi", seconds=25, rate=1)  # long enough to be paused
        open_tab("Convert to MP4")
        press("Photo library", "push button")
        press("holiday.avi", "list item")
        result = self.convert(name)
        key("Escape")
        gone("Copy file")
        open_tab("Converted Videos")
        return result

    def play(self):
        press("Play", "push button")
        find("Position", "slider")
        press("Play", "push button")
        press("Pause", "push button")
        press("Close", "push button")
        gone("Position")

    def share(self, result):
        press("Share", "push button")
        press("Copy file")
        gone("Copy file")
        self.assertEqual(Display().clipboard("text/uri-list").strip(), result.as_uri())

    def delete(self, result):
        press("Delete", "push button")
        gone(result.name)
        find("No videos yet")
        self.assertFalse(result.exists())

    def turn_consent(self, becomes):
        open_tab("Settings")
        press("Send usage data", "check box")
        until(lambda: f"SEND_USAGE_DATA={becomes}" in SETTINGS.read_text(), "the consent is stored")

    def test_a_new_user_gets_to_know_the_list(self):
        self.start(**self.services)
        self.go_through_onboarding()
        open_tab("Converted Videos")
        find("No videos yet")
        result = self.convert_from_photos("from the first run")
        press(result.name, "list item")
        self.play()
        self.share(result)
        self.delete(result)
        until(lambda: "deleted_video" in self.measured, "the last event arrives")
        self.assertEqual(self.measured, ["started_tutorial", "converted_success", "shared_video", "played_video",
                                         "shared_video", "deleted_video"])

    def test_the_grid_comes_with_the_flag_and_the_second_run_asks_for_a_rating(self):
        write_settings(DID_SHOW_ONBOARDING="true", RELEVANT_ACTION_COUNT_VAR3=1)
        self.flags.values["new_video_layout_test"] = "variant_a"
        self.start_window(**self.services)
        self.await_printed("Swapped videos VC to variant_a")
        older = make_video(OUTPUTS / "older.mp4")
        result = self.convert_from_photos("newer")
        press("not now", "push button")
        gone("Do you like Reelsmith?")
        find("2 videos, newest first")
        press(result.name, "list item")
        find("Video details", "heading")
        self.play()
        self.share(result)
        press("Delete", "push button")
        press("delete", "push button")
        gone("Video details")
        find("1 video, newest first")
        self.assertEqual(list(OUTPUTS.iterdir()), [older])
        self.assertIn("RELEVANT_ACTION_COUNT_VAR3=2", SETTINGS.read_text())

    def test_without_consent_nothing_is_measured_not_even_after_a_restart(self):
        write_settings(DID_SHOW_ONBOARDING="true")
        result = make_video(OUTPUTS / "film.mp4")
        self.start_window(**self.services)
        self.turn_consent(becomes="false")
        self.tearDown()
        self.start_window(**self.services)
        open_tab("Converted Videos")
        press(result.name, "list item")
        self.share(result)
        press("Close", "push button")
        gone(result.name, "dialog")
        self.turn_consent(becomes="true")
        open_tab("Converted Videos")
        press(result.name, "list item")
        self.delete(result)
        until(lambda: self.measured, "what is measured arrives")
        self.assertEqual(self.measured, ["deleted_video"])

    def download(self, address):
        press("Web address", "push button")
        press("Web address of a video", "text")
        type_text(address)
        press("Download", "push button")

    def dismiss_failure(self):
        find("Conversion Failed", "alert")
        press("ok", "push button")
        gone("Conversion Failed")

    def test_what_fails_is_measured_too(self):
        write_settings(DID_SHOW_ONBOARDING="true")
        server = web_server.start()
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        self.start_window(**self.services)
        self.download("http://127.0.0.1:1/nobody/listens.mp4")
        self.dismiss_failure()
        self.download(f"http://127.0.0.1:{server.server_port}/status/404/film.mp4")
        press("Convert", "push button")
        self.dismiss_failure()
        open_tab("Settings")
        press("More apps by the maker")
        until(lambda: "developer_tapped" in self.measured, "the last event arrives")
        self.assertEqual(self.measured,
                         ["download_failure", "download_success", "converted_failure", "developer_tapped"])


if __name__ == "__main__":
    install_store()
    run()
