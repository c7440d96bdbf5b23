# SPDX-License-Identifier: GPL-3.0-or-later
"""The application as packages install it, in the home of a user of the desktop, and what every user does with it.

A script of tests is run as: with_desktop SCRIPT REELSMITH DESKTOP_ENTRY [unittest options]
"""
import os
import pathlib
import shutil
import subprocess
import sys
import unittest

from desktop import find, key, press, type_text, until

# Servers for what the scripts import after this.
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../fakes"))
from collector import Collector, records  # noqa: E402
from flag_server import FlagServer  # noqa: E402

PROGRAM, ENTRY = map(pathlib.Path, sys.argv[1:3])
NAME = "io.reelsmith.Reelsmith"
HOME = pathlib.Path.home()
DATA = pathlib.Path(os.environ["XDG_DATA_HOME"])
SETTINGS = pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "reelsmith/reelsmith.conf"
OUTPUTS = HOME / "Documents/Reelsmith/outputs"
HANDED_OVER = pathlib.Path(os.environ["HANDED_OVER"])
PRINTED = HOME / "printed"


def make_video(path, seconds=1, codec="mpeg4", rate=25):
    path.parent.mkdir(parents=True, exist_ok=True)
    subprocess.run(["ffmpeg", "-v", "error", "-y", "-f", "lavfi", "-i", f"testsrc2=s=320x240:r={rate}:d={seconds}",
                    "-c:v", codec, os.fspath(path)], check=True, stdin=subprocess.DEVNULL)
    return path


def call_bus(method, *arguments):
    return subprocess.run(["gdbus", "call", "--session", "-d", "org.freedesktop.DBus", "-o", "/", "-m",
                           f"org.freedesktop.DBus.{method}", *arguments], capture_output=True, text=True)


def install():
    applications, services = DATA / "applications", DATA / "dbus-1/services"
    services.mkdir(parents=True)
    (applications / ENTRY.name).write_text(ENTRY.read_text().replace("Exec=reelsmith", f"Exec={PROGRAM}"))
    (services / f"{NAME}.service").write_text(f"[D-BUS Service]\nName={NAME}\nExec={PROGRAM}\n")
    call_bus("ReloadConfig").check_returncode()


def install_store():
    with open(pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "mimeapps.list", "a") as associations:
        associations.write("x-scheme-handler/appstream=taker.desktop;\n")


def forget_everything():
    """As if the application had never been started."""
    for folder in (SETTINGS.parent, DATA / "reelsmith", OUTPUTS.parent):
        shutil.rmtree(folder, ignore_errors=True)


def write_settings(**settings):
    """What earlier runs have left."""
    SETTINGS.parent.mkdir(parents=True, exist_ok=True)
    SETTINGS.write_text("\n".join(["[General]", *(f"{name}={value}" for name, value in settings.items())]))


def owner():
    """The process that has the application's name on the bus; 0 for none."""
    asked = call_bus("GetConnectionUnixProcessID", NAME)
    return int(asked.stdout.split()[1].rstrip(",)")) if asked.returncode == 0 else 0


class ApplicationTest(unittest.TestCase):
    def tearDown(self):
        if owner():
            os.kill(owner(), 15)
        until(lambda: not owner(), "the application has ended")

    def start(self, *arguments, **environment):
        with open(PRINTED, "w") as printed:
            process = subprocess.Popen([PROGRAM, *arguments], stdout=printed, env=os.environ | environment)
        self.addCleanup(process.wait)
        return process

    def start_window(self, **environment):
        process = self.start(**environment)
        find("Photo library", "push button")
        return process

    def await_printed(self, line):
        until(lambda: line in PRINTED.read_text().splitlines(), f'"{line}" is printed')

    def convert(self, name):
        """From the sheet that asks for a name to the one that offers to share."""
        press("Name", "text")
        key("ctrl+a")
        type_text(name)
        press("Convert", "push button")
        find("Share", "dialog")
        return self.check(OUTPUTS / f"{name}.mp4")

    def check(self, path):
        asked = subprocess.run(["ffprobe", "-v", "error", "-show_entries", "stream=codec_name", "-of", "csv=p=0",
                                "-count_packets", "-show_entries", "stream=nb_read_packets", path],
                               capture_output=True, text=True, check=True)
        self.assertEqual(asked.stdout.strip(), "h264,25")
        return path


class MeasuredTest(ApplicationTest):
    """By a collector, on a first start, with what `flags` say."""

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


def run():
    install()
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
