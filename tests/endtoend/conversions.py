#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Converts videos in the window as a user would, from every source, and shares the results by every way there is.

    with_desktop conversions.py REELSMITH DESKTOP_ENTRY [unittest options]
"""
import os
import pathlib
import subprocess
import unittest
import urllib.parse

from application import DATA, ENTRY, HANDED_OVER, HOME, NAME, OUTPUTS, PROGRAM, ApplicationTest, make_video, run, write_settings
from desktop import find, focus, gone, key, press, type_text, until
import web_server
from x11 import Display

PORTAL = "xdg-desktop-portal-gtk"


def install_player():
    """Another application for videos."""
    applications = DATA / "applications"
    taker = (applications / "taker.desktop").read_text()
    (applications / "player.desktop").write_text(taker.replace("Name=Taker", "Name=Player"))
    with open(pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "mimeapps.list", "a") as associations:
        associations.write("[Added Associations]\nvideo/mp4=player.desktop;\n")


def blocked():
    """What the login manager is kept from; None where there is none, which takes root."""
    asked = subprocess.run(["gdbus", "call", "--system", "-d", "org.freedesktop.login1", "-o", "/org/freedesktop/login1", "-m",
                            "org.freedesktop.DBus.Properties.Get", "org.freedesktop.login1.Manager", "BlockInhibited"],
                           capture_output=True, text=True)
    return asked.stdout.strip("(<'>,)\n") if asked.returncode == 0 else None


class Conversions(ApplicationTest):
    def setUp(self):
        HANDED_OVER.unlink(missing_ok=True)

    def handed_over(self):
        until(HANDED_OVER.exists, "something is handed over")
        return urllib.parse.unquote(HANDED_OVER.read_text()).removeprefix("file://").rstrip("/")

    def test_from_the_photo_library_to_another_application(self):
        make_video(HOME / "Videos/holiday.avi")
        self.start_window()
        press("Photo library", "push button")
        press("holiday.avi")
        result = self.convert("from photos")
        press("Open with another app")
        press("Player", program=PORTAL)
        press("Open", program=PORTAL)
        self.assertEqual(self.handed_over(), str(result))
        gone("Share")

    def test_from_files_to_a_mail(self):
        source = make_video(HOME / "Elsewhere/clip.mkv")
        self.start_window()
        press("Files", "push button")
        find("Choose a video", program=PORTAL)
        focus("Choose a video")
        key("ctrl+l")
        find(None, "text", PORTAL)
        type_text(source)
        press("Select", program=PORTAL)
        result = self.convert("from files")
        press("Send by mail")
        self.assertIn(str(result), self.handed_over())
        gone("Share")

    def test_from_the_web_to_a_copy_elsewhere(self):
        server = web_server.start()
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        source = make_video(HOME / "Elsewhere/web.mov")
        copy = HOME / "Copies/copy.mp4"
        copy.parent.mkdir()
        self.start_window()
        press("Web address", "push button")
        press("Web address of a video", "text")
        quoted = os.fspath(source).replace("/", "%2F")
        type_text(f"http://127.0.0.1:{server.server_port}/file/{quoted}/web.mov")
        press("Download", "push button")
        result = self.convert("from the web")
        press("Save a copy")
        find("Save a copy", program=PORTAL)
        focus("Save a copy")
        key("ctrl+a")
        type_text(copy)
        key("Return")
        gone("Share")
        self.assertEqual(self.check(copy).read_bytes(), result.read_bytes())

    def test_from_another_application_that_starts_this_one_to_its_folder(self):
        source = make_video(HOME / "Elsewhere/handed.mov")
        subprocess.run(["gapplication", "launch", NAME, source], check=True)
        self.convert("from elsewhere")
        press("Show in folder")
        self.assertEqual(self.handed_over(), str(OUTPUTS))

    def test_from_other_applications_while_this_one_runs_to_the_clipboard(self):
        source = make_video(HOME / "Elsewhere/handed.mov")
        first = self.start_window()
        downloaded = OUTPUTS.parent / "downloads/unfinished.mov"
        downloaded.touch()
        self.assertEqual(self.start(source).wait(), 0)
        find("Name and quality", "dialog")
        self.assertIsNone(first.poll())
        self.assertTrue(downloaded.exists(), "a second start has emptied the downloads")
        key("Escape")
        gone("Name and quality")
        subprocess.run(["gio", "launch", DATA / "applications" / ENTRY.name, source], check=True)
        result = self.convert("from a running one")
        press("Copy file")
        gone("Share")
        address = result.as_uri()
        self.assertEqual(Display().clipboard("x-special/gnome-copied-files"), f"copy\n{address}")
        self.assertEqual(Display().clipboard("text/uri-list").strip(), address)

    def test_closing_the_window_stops_a_conversion_and_leaves_nothing(self):
        source = make_video(HOME / "Elsewhere/long.mov", seconds=600)
        process = self.start(source)
        press("Name", "text")
        key("Return")
        find("Converting", "dialog")
        window = subprocess.run(["xdotool", "search", "--name", "^Reelsmith$"], capture_output=True, check=True)
        until(lambda: list(OUTPUTS.glob(".*")), "something is written")
        before = sorted(OUTPUTS.glob("*.mp4"))
        Display().close(int(window.stdout.split()[0]))
        press("stop", "push button")
        self.assertEqual(process.wait(), 0)
        self.assertEqual(sorted(OUTPUTS.iterdir()), before)

    @unittest.skipIf(blocked() is None, "no login manager")
    def test_the_device_stays_awake_from_the_start_of_a_conversion_until_after_its_end(self):
        self.start(make_video(HOME / "Elsewhere/tired.mov", seconds=60))
        press("Name", "text")
        self.assertEqual(blocked(), "")
        key("Return")
        find("Converting", "dialog")
        until(lambda: blocked() == "sleep", "the device is kept awake")
        find("Share", "dialog")
        self.assertEqual(blocked(), "sleep")
        self.tearDown()
        until(lambda: blocked() == "", "the device may sleep")

    def test_without_a_display_it_says_what_to_do(self):
        environment = {key: value for key, value in os.environ.items() if "DISPLAY" not in key}
        asked = subprocess.run([PROGRAM], env=environment, capture_output=True, text=True)
        self.assertEqual((asked.returncode, asked.stdout), (2, ""))
        self.assertIn("reelsmith convert FILE", asked.stderr)


if __name__ == "__main__":
    install_player()
    write_settings(DID_SHOW_ONBOARDING="true")
    run()
