#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Follows a new user from the first start to the library, in both of its layouts.

    with_desktop library.py REELSMITH DESKTOP_ENTRY [unittest options]
"""
from application import HOME, OUTPUTS, SETTINGS, ApplicationTest, make_video, run, write_settings
from desktop import find, gone, key, press
from x11 import Display

PAGES = (("Welcome to Reelsmith", "Continue"), ("Convert using your phone", "Continue"),
         ("Multiple quality options", "Start"))


def open_tab(name):
    press(name, "page tab")
    find(name, "heading")


class Library(ApplicationTest):
    def setUp(self):
        SETTINGS.unlink(missing_ok=True)

    def go_through_onboarding(self):
        for title, button in PAGES:
            find(title, "heading")
            press(button, "push button")
        find("Photo library", "push button")
        self.assertIn("DID_SHOW_ONBOARDING=true", SETTINGS.read_text())

    def convert_from_photos(self, name):
        make_video(HOME / "Videos/holiday.avi")
        press("Photo library", "push button")
        press("holiday.avi", "list item")
        result = self.convert(name)
        key("Escape")
        gone("Share")
        return result

    def copy_shared(self, result):
        press("Share", "push button")
        press("Copy file")
        gone("Copy file")
        self.assertEqual(Display().clipboard("text/uri-list").strip(), result.as_uri())

    def test_a_new_user_converts_a_video_and_finds_it_in_the_list(self):
        self.start()
        self.go_through_onboarding()
        open_tab("Converted Videos")
        find("No videos yet")
        open_tab("Convert to MP4")
        result = self.convert_from_photos("from the first run")

        open_tab("Converted Videos")
        press(result.name, "list item")
        find(result.name, "dialog")
        self.copy_shared(result)
        press("Delete", "push button")
        gone(result.name)
        find("No videos yet")
        self.assertEqual(list(OUTPUTS.iterdir()), [])


if __name__ == "__main__":
    run()
