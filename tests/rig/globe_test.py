#!/usr/bin/env python3
"""Shows places in the real Marble from the real window, first started and then running, and reads its
position over the session bus.

usage: globe_test.py BIN_FOLDER"""

import os
import re
import shutil
import time
import unittest

from desktop import Desktop
from pictures import writePicture
from running import need, runTestCases, takeProgram
from session import DesktopSession, waitFor

PROGRAM = takeProgram()


class GlobeTest(unittest.TestCase):
    def setUp(self):
        self.session = DesktopSession()
        self.session.__enter__()
        self.addCleanup(self.session.close)
        self.desktop = Desktop(self.session)

    def showPicture(self, name, latitude, longitude, **more):
        path = os.path.join(self.session.home, name)
        writePicture(path, latitude, longitude, **more)
        # As root, Marble's web view does not start in its sandbox.
        extra = {"QTWEBENGINE_DISABLE_SANDBOX": "1"} if os.geteuid() == 0 else {}
        self.session.start([PROGRAM, path], extra=extra)
        self.window = self.desktop.windowNamed("^Pinorama$")

    def pressGlobeButton(self):
        self.desktop.activate(self.window)
        self.desktop.keys("alt+g")

    def marble(self, name):
        return self.session.call("org.kde.marble", "/Marble", "org.freedesktop.DBus.Properties.Get",
                                 "org.kde.marble", name) or ""

    def marbleCentre(self):
        numbers = re.findall(r"-?\d+\.\d+|-?\d+", self.marble("center"))
        return [round(float(number), 3) for number in numbers[:2]]

    def testMarbleStartsAtThePlaceAndARunningOneMovesThere(self):
        self.showPicture("south.jpg", -33.9, 18.4)
        self.pressGlobeButton()
        self.assertTrue(waitFor(lambda: self.marbleCentre() == [18.4, -33.9], 20),
                        f"a started Marble is at {self.marbleCentre()}")

        # A second start passes its picture to the running window.
        self.showPicture("west.jpg", 48.1, -11.5, distance=100)
        self.pressGlobeButton()
        self.assertTrue(waitFor(lambda: self.marbleCentre() == [-11.5, 48.1], 10),
                        f"the running Marble is at {self.marbleCentre()}")
        # Every map theme allows 100 km, so the zoom is the requested one.
        self.assertTrue(waitFor(lambda: "1958" in self.marble("zoom"), 5), self.marble("zoom"))

    def complainsAbout(self, document, seconds):
        """Whether a Marble that opens `document` reports within that time that it cannot read it."""
        extra = {"QTWEBENGINE_DISABLE_SANDBOX": "1"} if os.geteuid() == 0 else {}
        name = shutil.which("marble") or shutil.which("marble-qt")
        log = os.path.join(self.session.root, os.path.basename(name) + ".log")

        def complaint():
            with open(log, errors="replace") as file:
                return f'Failed to parse "{document}"' in file.read()

        marble = self.session.start([name, document], extra=extra)
        self.assertTrue(waitFor(self.marbleCentre, 30), "Marble did not start")
        found = waitFor(complaint, seconds)
        self.assertIsNone(marble.poll(), "Marble ended by itself")
        self.session.end(marble)
        return found

    def testMarbleReadsAnExportedDocument(self):
        golden = os.path.join(os.path.dirname(__file__), "../golden/tour_eiffel.kml")
        with open(golden) as file:
            text = file.read()
        document = os.path.join(self.session.home, "export.kml")
        with open(document, "w") as file:
            file.write(text)
        damaged = os.path.join(self.session.home, "damaged.kml")
        with open(damaged, "w") as file:
            file.write(text.replace("Tour", "To&ur"))
        # The damaged one shows how long Marble takes to report that.
        start = time.monotonic()
        self.assertTrue(self.complainsAbout(damaged, 30),
                        "this Marble does not report that it cannot read a document")
        self.assertFalse(self.complainsAbout(document, 3 + 2 * (time.monotonic() - start)))


if __name__ == "__main__":
    need(("marble", "marble-qt"))
    runTestCases()
