#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Uses the application in the shell of a phone, upright and lying down, and with its keyboard on the screen.

    with_desktop with_phone phone.py REELSMITH DESKTOP_ENTRY [unittest options]

Leaves pictures of what it sees in the folder $PICTURES, if that is set.
"""
import os
import subprocess

from application import HOME, OUTPUTS, ApplicationTest, forget_everything, run, write_settings
from desktop import Atspi, find, gone, key, mouse, press, type_text, until

ADDRESS, NAME = ("Web address of a video", "text"), ("Name", "text")
UPRIGHT, LYING = (360, 720), (720, 360)
FILM = "gradients=s=640x360:c0=0xBFE0E6:c1=0x2B7389:x0=320:y0=0:x1=320:y1=360:speed=0.00001:seed=3:r=5:d=48"


def turn(size):
    subprocess.run(["wlr-randr", "--output", "X11-1", "--custom-mode", f"{size[0]}x{size[1]}"], check=True)


def has_keyboard():
    asked = subprocess.run(["gdbus", "call", "--session", "-d", "sm.puri.OSK0", "-o", "/sm/puri/OSK0", "-m",
                            "org.freedesktop.DBus.Properties.Get", "sm.puri.OSK0", "Visible"],
                           capture_output=True, text=True, check=True)
    return asked.stdout == "(<true>,)\n"


def box(name, role):
    """Left, upper, right and lower edge on the screen."""
    place = find(name, role).get_extents(Atspi.CoordType.SCREEN)
    return place.x, place.y, place.x + place.width, place.y + place.height


def window():
    return box("Reelsmith", "frame")


def still():
    """What is on the screen, once nothing moves on it."""
    size = LYING if window()[2] > UPRIGHT[0] else UPRIGHT
    seen = None

    def is_as_before():
        nonlocal seen
        before, seen = seen, subprocess.run(["import", "-window", "root", "-crop", f"{size[0]}x{size[1]}+0+0", "ppm:-"],
                                            capture_output=True, check=True).stdout
        return before == seen
    until(is_as_before, "the screen stands still")
    return seen


def tap(name, role):
    """What comes from below is named before it is there."""
    until(lambda: box(name, role)[3] <= window()[3], f'"{name}" is on the screen')
    still()
    press(name, role)


def picture(name):
    if "PICTURES" in os.environ:
        mouse("mousemove", 0, 0)
        subprocess.run(["convert", "ppm:-", "+dither", "-colors", "256", "-strip",
                        f"PNG8:{os.environ['PICTURES']}/{name}.png"], input=still(), check=True)


class Phone(ApplicationTest):
    def setUp(self):
        forget_everything()
        write_settings(DID_SHOW_ONBOARDING="true")
        self.make_film(HOME / "Videos/Summer by the sea.mov")
        turn(UPRIGHT)

    def make_film(self, path):
        path.parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(["ffmpeg", "-v", "error", "-y", "-f", "lavfi", "-i", FILM, "-pix_fmt", "yuv420p", path], check=True)

    def lie_down(self):
        turn(LYING)
        self.await_window(LYING)

    def await_window(self, size):
        """It has all of the screen: nothing goes to a title bar."""
        until(lambda: window() == (0, 0, *size), f"the window is {size}")

    def await_keyboard(self, screen, field):
        """It takes its part of the window, and both the field and the tabs are above it."""
        until(lambda: has_keyboard() and window()[3] < screen[1] - 100, "the keyboard is there")
        until(lambda: box(*field)[1] >= 8 and box(*field)[3] <= window()[3] - 8, "the field is seen")
        until(lambda: box("Screens", "page tab list")[3] == window()[3], "the tabs have made room")

    def await_no_keyboard(self, screen, field):
        gone(*field)
        self.await_window(screen)
        self.assertFalse(has_keyboard())

    def press_first_letter(self):
        """Of the keyboard on the screen, in its upper left corner."""
        mouse("mousemove", 18, window()[3] + 26, "click", 1)

    def use_address_field(self, screen):
        self.assertFalse(has_keyboard())
        tap("Web address", "push button")
        self.await_keyboard(screen, ADDRESS)

    def use_name_field(self, screen):
        tap("Photo library", "push button")
        tap("Summer by the sea.mov", "list item")
        find("Convert", "push button")
        self.assertFalse(has_keyboard())
        tap(*NAME)
        self.await_keyboard(screen, NAME)

    def test_the_keyboard_comes_and_goes_with_the_fields(self):
        self.start_window()
        self.await_window(UPRIGHT)
        picture("convert")
        self.use_address_field(UPRIGHT)
        picture("web-address")
        self.press_first_letter()
        until(lambda: Atspi.Text.get_text(find(*ADDRESS), 0, -1) == "q", "what is typed on the screen arrives")
        tap("Cancel", "push button")
        self.await_no_keyboard(UPRIGHT, ADDRESS)
        self.use_name_field(UPRIGHT)
        picture("name")
        key("ctrl+a")
        type_text("Summer")
        tap("Convert", "push button")
        find("Share", "dialog")
        self.await_no_keyboard(UPRIGHT, NAME)
        picture("share")

    def test_lying_down_it_stays_upright_with_the_field_in_sight(self):
        self.start_window()
        self.lie_down()
        left, _, right, lower = box("Screens", "page tab list")
        self.assertEqual((left, right, lower), (120, 600, 360))
        picture("lying-convert")
        self.use_address_field(LYING)
        picture("lying-web-address")
        key("Escape")
        self.await_no_keyboard(LYING, ADDRESS)
        self.use_name_field(LYING)
        picture("lying-name")
        key("Escape")
        self.await_no_keyboard(LYING, NAME)

    def test_the_player_alone_may_lie_down(self):
        self.make_film(OUTPUTS / "Summer by the sea.mp4")
        self.start_window()
        tap("Converted Videos", "page tab")
        tap("Summer by the sea.mp4", "list item")
        tap("Play", "push button")
        tap("Turn", "push button")
        until(lambda: box("Close", "push button")[0] > 300, "the picture is turned by hand")
        picture("player-turned")
        self.lie_down()
        until(lambda: box("Video", "push button") == (0, 0, *LYING), "the picture has all of the screen")
        picture("player-lying")
        key("Escape")
        gone("Position")
        left, _, right, _ = box("Screens", "page tab list")
        self.assertEqual((left, right), (120, 600))
        key("Escape")
        turn(UPRIGHT)
        self.await_window(UPRIGHT)
        picture("library")


if __name__ == "__main__":
    run()
