#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Counts what is measured of what a user does with the library, and of what fails, and that nothing is without consent.

    with_desktop library.py REELSMITH DESKTOP_ENTRY [unittest options]
"""
from application import OUTPUTS, SETTINGS, MeasuredTest, install_store, make_video, run, write_settings
from desktop import find, gone, press, type_text, until
import web_server
from x11 import Display

def open_tab(name):
    press(name, "page tab")
    find(name, "heading")


class Library(MeasuredTest):
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
