#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Walks through the whole application by the names, roles and actions of what is on the screen, without mouse and keys.

    with_desktop accessibility.py REELSMITH DESKTOP_ENTRY [unittest options]
"""
import re

from application import HANDED_OVER, HOME, OUTPUTS, SETTINGS, MeasuredTest, install_store, make_video, run, write_settings
from desktop import Atspi, act, actions, find, gone, look, set_text, shown, until
from x11 import Display

# What can be done with each role; with others there is nothing to do.
ACTIONS = {"push button": {"Press"}, "page tab": {"Press"}, "list item": {"Press"}, "menu item": {"Press"},
           "check box": {"Press", "Toggle"}, "radio button": {"Press", "Toggle"}, "slider": {"Increase", "Decrease"},
           "text": {"SetFocus"}, "list": {"SetFocus"}, "document frame": {"SetFocus"}, "panel": {"SetFocus"}}
SILENT = {"frame", "heading", "label", "dialog", "alert", "progress bar", "page tab list"}


class Accessibility(MeasuredTest):
    def setUp(self):
        super().setUp()
        make_video(HOME / "Videos/holiday.avi", seconds=25, rate=1)

    def arrive(self, name, role):
        """At a screen where this is shown: all on it is named and can be used."""
        find(name, role)
        for node in shown("reelsmith-window"):
            what = f'{node.get_role_name()} "{node.get_name()}"'
            self.assertTrue(node.get_name(), what)
            self.assertTrue(node.get_role_name() in SILENT | ACTIONS.keys(), what)
            self.assertLessEqual(ACTIONS.get(node.get_role_name(), set()), actions(node).keys(), what)

    def is_set(self, name, role, state):
        node = look(name, role)
        return node is not None and node.get_state_set().contains(state)

    def choose(self, video):
        act("Photo library", "push button")
        self.arrive(video, "list item")
        act(video, "list item")
        self.arrive("Name and quality", "dialog")

    def convert(self, name):
        self.choose("holiday.avi")
        set_text("Name", name)
        for quality, action in (("Medium", "Toggle"), ("High", "Press")):
            act(quality, "radio button", action)
            until(lambda: self.is_set(quality, "radio button", Atspi.StateType.CHECKED), f"{quality} is chosen")
        self.assertFalse(self.is_set("Medium", "radio button", Atspi.StateType.CHECKED))
        act("Convert", "push button")
        self.arrive("Share", "dialog")
        act("Close", "push button")
        gone("Share", "dialog")
        return self.check(OUTPUTS / f"{name}.mp4")

    def position(self):
        return max(node.get_name() for node in shown("reelsmith-window") if re.match(r"\d\d:\d\d$", node.get_name()))

    def play(self):
        act("Play", "push button")
        self.arrive("Position", "slider")
        act("Play", "push button")
        act("Pause", "push button")
        before = self.position()
        act("Position", "slider", "Increase")
        until(lambda: self.position() > before, "the position moves on")
        act("Close", "push button")
        gone("Position")

    def open_tab(self, name):
        act(name, "page tab")
        self.arrive(name, "heading")
        self.assertTrue(self.is_set(name, "page tab", Atspi.StateType.SELECTED))

    def test_a_new_user_converts_a_video_plays_it_and_deletes_it(self):
        self.start(**self.services)
        for title, button in (("Welcome to Reelsmith", "Continue"), ("Convert using your phone", "Continue"),
                              ("Multiple quality options", "Start")):
            self.arrive(title, "heading")
            act(button, "push button")
        self.arrive("Photo library", "push button")
        self.assertIn("DID_SHOW_ONBOARDING=true", SETTINGS.read_text())
        result = self.convert("by name")
        self.open_tab("Converted Videos")
        act(result.name, "list item")
        self.arrive(result.name, "dialog")
        self.play()
        act("Share", "push button")
        self.arrive("Copy file", "push button")
        act("Copy file", "push button")
        gone("Copy file")
        self.assertEqual(Display().clipboard("text/uri-list").strip(), result.as_uri())
        act("Delete", "push button")
        self.arrive("No videos yet", "heading")
        self.assertFalse(result.exists())
        until(lambda: "deleted_video" in self.measured, "the last event arrives")
        self.assertEqual(self.measured, ["started_tutorial", "converted_success", "shared_video", "played_video",
                                         "shared_video", "deleted_video"])
        self.open_tab("Settings")
        for action, becomes in (("Toggle", "false"), ("Press", "true")):
            act("Send usage data", "check box", action)
            until(lambda: f"SEND_USAGE_DATA={becomes}" in SETTINGS.read_text(), "the consent is stored")
        act("Licences", "push button")
        self.arrive("Back", "push button")
        act("Back", "push button")
        self.arrive("Settings", "heading")

    def test_other_sources_and_ways_out(self):
        write_settings(DID_SHOW_ONBOARDING="true")
        make_video(HOME / "Videos/long.avi", seconds=600)
        self.start_window()
        act("Web address", "push button")
        self.arrive("Web address of a video", "text")
        act("Files", "push button")  # which lies below and must not answer
        set_text("Web address of a video", "http://127.0.0.1:1/film.mp4")
        act("Download", "push button")
        self.arrive("Conversion Failed", "alert")
        self.assertIsNone(look("Choosing a file"))
        act("ok", "push button")
        gone("Conversion Failed")
        act("Files", "push button")
        self.arrive("Choosing a file", "dialog")
        act("Cancel", "push button", "click", "xdg-desktop-portal-gtk")
        gone("Choosing a file")
        self.choose("long.avi")
        act("Convert", "push button")
        self.arrive("Converting", "dialog")
        act("Cancel", "push button")
        gone("Converting", "dialog")
        self.arrive("Still converting", "progress bar")
        self.open_tab("Settings")
        act("Report a problem", "push button")
        until(HANDED_OVER.exists, "the mail program is asked")

    def test_the_grid_and_its_details_ask_before_they_delete(self):
        write_settings(DID_SHOW_ONBOARDING="true", RELEVANT_ACTION_COUNT_VAR3=1)
        self.flags.values["new_video_layout_test"] = "variant_a"
        video, other = (make_video(OUTPUTS / f"{name}.mp4", seconds=25, rate=1) for name in ("one", "other"))
        self.start_window(**self.services)
        self.await_printed("Swapped videos VC to variant_a")
        act("Converted Videos", "page tab")
        self.arrive("Do you like Reelsmith?", "alert")
        act("not now", "push button")
        gone("Do you like Reelsmith?")
        self.assertIn("RELEVANT_ACTION_COUNT_VAR3=2", SETTINGS.read_text())
        self.arrive("2 videos, newest first", "label")
        act(video.name, "list item")
        self.arrive("Video details", "heading")
        self.play()
        act("Share", "push button")
        self.arrive("Share", "dialog")
        act("Close", "push button")
        gone("Share", "dialog")
        for answer in ("cancel", "delete"):
            self.assertTrue(video.exists())
            act("Delete", "push button")
            self.arrive(answer, "push button")
            act(answer, "push button")
            gone(answer)
        self.arrive("1 video, newest first", "label")
        self.assertEqual(list(OUTPUTS.iterdir()), [other])


if __name__ == "__main__":
    install_store()
    run()
