#!/usr/bin/env python3
"""Drags the preview out of the real window into a folder of a real file manager, with the mouse.

usage: drag_test.py BIN_FOLDER"""

import filecmp
import os
import shutil
import time
import unittest

from desktop import Desktop
from pictures import SAMPLE
from running import need, runTestCases, takeProgram
from session import DesktopSession, waitFor

PROGRAM = takeProgram()
STEP = 0.2  # seconds between two movements of the mouse
PAUSE = 2  # seconds until windows are where they were moved


class DragTest(unittest.TestCase):
    def setUp(self):
        self.session = DesktopSession()
        self.session.__enter__()
        self.addCleanup(self.session.close)
        self.desktop = Desktop(self.session)

    def mouse(self, *arguments):
        self.desktop.xdotool(*arguments)
        time.sleep(STEP)

    def testThePreviewDraggedIntoAFolderCopiesTheFile(self):
        picture = os.path.join(self.session.home, "Mountains at noon.jpg")
        shutil.copy(SAMPLE, picture)
        folder = os.path.join(self.session.home, "target")
        os.mkdir(folder)
        self.session.start([PROGRAM, picture])
        window = self.desktop.windowNamed("^Pinorama$")
        self.session.start(["pcmanfm", folder])
        manager = self.desktop.windowNamed("^target$")
        self.mouse("windowmove", window, 0, 0)
        self.mouse("windowsize", manager, 500, 400)
        self.mouse("windowmove", manager, 800, 300)
        self.mouse("windowactivate", "--sync", window)
        time.sleep(PAUSE)

        self.mouse("mousemove", "--window", window, 80, 80)
        self.mouse("mousedown", 1)
        for x in (90, 110, 140):
            self.mouse("mousemove", "--window", window, x, 100)
        for x in (200, 250, 300):
            self.mouse("mousemove", "--window", manager, x, 200)
        # The folder requests the formats first, and accepts the drag only at a further movement.
        for x in (310, 320, 330):
            time.sleep(PAUSE / 2)
            self.mouse("mousemove", "--window", manager, x, 200)
        time.sleep(PAUSE / 2)
        self.mouse("mouseup", 1)

        copy = os.path.join(folder, "Mountains at noon.jpg")
        self.assertTrue(waitFor(lambda: os.path.exists(copy) and
                                os.path.getsize(copy) == os.path.getsize(SAMPLE), 15),
                        os.listdir(folder))
        self.assertTrue(filecmp.cmp(copy, SAMPLE, shallow=False))
        self.assertTrue(os.path.exists(picture), "a drag copies, it never moves")


if __name__ == "__main__":
    need("pcmanfm")
    runTestCases()
