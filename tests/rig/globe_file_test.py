#!/usr/bin/env python3
"""Shows places from the real window in a real program that opens KML files, on a desktop without Marble and
Google Earth, and reads where that program has gone.

usage: globe_file_test.py BIN_FOLDER viking|maps"""

import os
import re
import sys
import unittest

from desktop import Desktop
from pictures import writePicture
from running import need, runTestCases, takeProgram
from session import DesktopSession, waitFor

GLOBES = ("marble", "marble-qt", "google-earth-pro", "googleearth-pro", "googleearth")
SECONDS = 100  # until a program must have started and gone to a place
DECIMALS = 3  # of a degree


def roundedNumbers(text):
    return [round(float(number), DECIMALS) for number in re.findall(r"-?\d+\.\d+", text)]


class Viking:
    """A new window for each file. It copies the centre of its map."""
    needed = ("viking", "gpsbabel", "xclip")
    entry = "viking.desktop"

    def __init__(self, desktop):
        self.desktop = desktop
        # Without this folder the first start asks whether it may use the network.
        os.makedirs(os.path.join(desktop.session.home, ".config", "viking"))

    def centres(self):
        centres = []
        for window in (self.desktop.xdotool("search", "--onlyvisible", "--name", "Viking$") or "").split():
            self.desktop.activate(window)
            self.desktop.keys("ctrl+h")
            copied = self.desktop.session.run(["xclip", "-selection", "clipboard", "-o"])
            centres.append(roundedNumbers(copied or ""))
        return centres


class Maps:
    """One window for all files. It stores where it is in the desktop's settings."""
    needed = ("gnome-maps", "gapplication")
    entry = "org.gnome.Maps.desktop"

    def __init__(self, desktop):
        self.settings = os.path.join(desktop.session.home, ".config", "glib-2.0", "settings", "keyfile")

    def centres(self):
        with open(self.settings, encoding="utf-8") as settings:
            found = re.search(r"^last-viewed-location=(.*)$", settings.read(), re.M)
        return [roundedNumbers(found.group(1))] if found else []


KINDS = {"viking": Viking, "maps": Maps}


def pathWithoutGlobes(session):
    """A search path with every program of the session's but the globes that the window knows."""
    folder = os.path.join(session.root, "bin")
    os.makedirs(folder)
    for each in session.environment["PATH"].split(":"):
        for name in os.listdir(each) if os.path.isdir(each) else []:
            link = os.path.join(folder, name)
            if name not in GLOBES and not os.path.lexists(link):
                os.symlink(os.path.join(each, name), link)
    return folder


class GlobeFileTest(unittest.TestCase):
    def setUp(self):
        self.session = DesktopSession()
        self.session.__enter__()
        self.addCleanup(self.session.close)
        self.desktop = Desktop(self.session)
        self.globe = KIND(self.desktop)
        self.path = pathWithoutGlobes(self.session)
        with open(os.path.join(self.session.home, ".config", "mimeapps.list"), "w", encoding="utf-8") as list:
            list.write(f"[Default Applications]\napplication/vnd.google-earth.kml+xml={KIND.entry}\n")

    def showInGlobe(self, name, latitude, longitude):
        path = os.path.join(self.session.home, name)
        writePicture(path, latitude, longitude)
        self.session.start([PROGRAM, path], extra={"PATH": self.path})
        self.desktop.activate(self.desktop.windowNamed("^Pinorama$"))
        self.desktop.keys("alt+g")

    def testItGoesToOnePlaceAndThenToAnother(self):
        for name, latitude, longitude in (("south.jpg", -33.9, 18.4), ("west.jpg", 48.1, -11.5)):
            self.showInGlobe(name, latitude, longitude)
            self.assertTrue(waitFor(lambda: [latitude, longitude] in self.globe.centres(), SECONDS),
                            f"it is at {self.globe.centres()} and not at {latitude}, {longitude}")


if __name__ == "__main__":
    PROGRAM = takeProgram()
    KIND = KINDS.get(sys.argv.pop(1) if len(sys.argv) > 1 else "")
    if KIND is None:
        sys.exit("usage: globe_file_test.py BIN_FOLDER viking|maps")
    need("xdg-open", *KIND.needed)
    runTestCases()
