#!/usr/bin/env python3
"""Opens the real window in sessions without an accessibility bus or without a session bus. It shows the
picture of its argument, stays responsive, and writes nothing to the terminal.

usage: bus_test.py BIN_FOLDER"""

import os
import time
import unittest

from catalogue import Catalogue
from desktop import Desktop, ProcessorUse
from pictures import writePicture
from running import need, runTestCases, takeProgram
from session import DesktopSession, waitFor

PROGRAM = takeProgram()
LISTENING = 6  # seconds, 30 queries
MAX_LOAD = 0.1  # part of one processor


class BusTest(unittest.TestCase):
    def begin(self, **options):
        self.session = DesktopSession(**options)
        self.session.__enter__()
        self.addCleanup(self.session.close)
        self.catalogue = Catalogue(self.session)
        self.picture = os.path.join(self.session.home, "c.jpg")
        writePicture(self.picture, 10.5, 60.5)

    def openWindow(self):
        process = self.session.start([PROGRAM, self.picture])
        return process, Desktop(self.session).windowNamed("^Pinorama$")

    def expectToBeWell(self, process, window):
        self.assertTrue(waitFor(lambda: self.catalogue.shownPlace(window) == (10.5, 60.5), 10),
                        self.catalogue.urls())
        before = ProcessorUse(process.pid).ticks
        time.sleep(LISTENING)
        used = (ProcessorUse(process.pid).ticks - before) / os.sysconf("SC_CLK_TCK") / LISTENING
        self.assertLess(used, MAX_LOAD, "the load of one processor without any work")
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


if __name__ == "__main__":
    need()
    runTestCases()
