#!/usr/bin/env python3
"""Opens the real window in sessions that lack what it talks to: no accessibility bus, no session bus.
It shows what it is given, stays quick, and writes nothing to the terminal. Exit status 77 means that
nothing could be tried; the reason is printed.

usage: bus_test.py BIN_FOLDER"""

import os
import shutil
import sys
import time
import unittest

from desktop import ProcessorUse
from faults_test import Catalogue
from pictures import writePicture
from session import DesktopSession, RigError, waitFor

BIN = os.path.abspath(sys.argv.pop()) if len(sys.argv) > 1 else ""
SKIPPED = 77
LISTENING = 6  # seconds, 30 questions
MOST_TICKS = 0.1  # part of one processor


class BusTest(unittest.TestCase):
    def begin(self, **options):
        self.session = DesktopSession(**options)
        self.session.__enter__()
        self.addCleanup(self.session.close)
        self.catalogue = Catalogue(self.session)
        self.picture = os.path.join(self.session.home, "c.jpg")
        writePicture(self.picture, 10.5, 60.5)

    def openWindow(self):
        process = self.session.start([os.path.join(BIN, "pinorama"), self.picture])
        window = waitFor(lambda: (self.session.run(["xdotool", "search", "--onlyvisible", "--name",
                                                    "^Pinorama$"]) or "").split(), 30)
        self.assertTrue(window, "the window did not appear")
        return process, window[0]

    def expectToBeWell(self, process, window):
        self.assertTrue(waitFor(lambda: self.catalogue.shownPlace(window) == (10.5, 60.5), 10),
                        self.catalogue.addresses())
        before = ProcessorUse(process.pid).ticks
        time.sleep(LISTENING)
        used = (ProcessorUse(process.pid).ticks - before) / os.sysconf("SC_CLK_TCK") / LISTENING
        self.assertLess(used, MOST_TICKS, "part of a processor that is used for nothing")
        with open(os.path.join(self.session.root, "pinorama.log"), errors="replace") as log:
            self.assertEqual(log.read(), "")

    def testNoAccessibilityBus(self):
        self.begin(services=False)
        self.expectToBeWell(*self.openWindow())

    def testNoSessionBus(self):
        self.begin(services=False)
        self.session.environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=" + self.session.root + "/none"
        self.expectToBeWell(*self.openWindow())

    def testTheSessionBusEnds(self):
        self.begin(services=False)
        process, window = self.openWindow()
        self.session.bus.kill()
        self.session.bus.wait()
        self.expectToBeWell(process, window)


def whyNot():
    for program in ("Xvfb", "openbox", "xdotool", "dbus-daemon", "xprop"):
        if not shutil.which(program):
            return program + " is not installed"
    return None


if __name__ == "__main__":
    reason = whyNot()
    if reason:
        print("skipped:", reason)
        sys.exit(SKIPPED)
    try:
        unittest.main(verbosity=2)
    except RigError as error:
        print("skipped:", error)
        sys.exit(SKIPPED)
