#!/usr/bin/env python3
"""Walks the real window over the accessibility bus, as a screen reader does: every control has a name,
a role and a place in the tab order, every value can be read with its caption, every button has a
description.

usage: accessibility_test.py BIN_FOLDER"""

import os
import shutil
import unittest

from accessible import ENABLED, FOCUSABLE, FOCUSED, programNamed
from desktop import Desktop
from pictures import SAMPLE
from running import need, runTestCases, takeProgram
from session import DesktopSession, waitFor

PROGRAM = takeProgram()

# The captions of the values from top to bottom, by which the window's report names them as well.
FIELDS = ["Name", "Taken", "Coordinate", "Altitude", "Direction", "City", "State", "Country", "Caption", "Size",
          "Modified", "Created"]
# Name, role and description of each control below them.
CONTROLS = [
    ("7 km SSW of Grainau, Germany", "button", "A click shows more of the surroundings, or less"),
    ("Map Services", "combo box", "Opens the location in a web map"),
    ("Show in Globe", "button", "Flies the globe program to the location"),
    ("Find in Skallion", "button", "Finds all catalogued pictures taken within 2000 m"),
    ("Export as KML…", "button", "Writes the location as a placemark file"),
    ("Follow the selection in the file manager", "check box",
     "Always shows the picture selected in the file manager"),
]


class AccessibilityTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.session = DesktopSession()
        cls.session.__enter__()
        cls.addClassCleanup(cls.session.close)
        picture = os.path.join(cls.session.home, "Mountains at noon.jpg")
        shutil.copy(SAMPLE, picture)
        report = cls.session.run([PROGRAM, "--print-and-save",
                                  os.path.join(cls.session.root, "window.png"), picture], 30)
        if report is None:
            raise AssertionError("the program does not print what it shows")
        cls.shown = dict(line.split(": ", 1) for line in report.replace("\n    ", " ").splitlines()
                         if ": " in line)
        cls.session.start([PROGRAM, picture])
        cls.desktop = Desktop(cls.session)
        cls.window = cls.desktop.windowNamed("^Pinorama$")
        root = waitFor(lambda: programNamed(cls.session, "Pinorama"), 20)
        if not root:
            raise AssertionError("the program is not on the accessibility bus")
        cls.objects = [(each, each.role, each.name) for each in root.everything()]

    def named(self, name, role):
        found = [each for each, itsRole, itsName in self.objects if (itsName, itsRole) == (name, role)]
        self.assertEqual(len(found), 1, f"objects with the name {name!r} and the role {role!r}")
        return found[0]

    def testEveryObjectHasARoleAndEveryControlAName(self):
        roles = {role for _, role, _ in self.objects}
        self.assertFalse(roles & {None, "", "invalid", "unknown"}, roles)
        controls = {"text", "button", "check box", "combo box", "graphic", "menu item",
                    "label"}
        self.assertTrue(controls <= roles, roles)
        for each, role, name in self.objects:
            if role in controls and not each.labels():
                self.assertTrue(name, f"{role} at {each.path}")

    def testEveryValueHasItsCaptionAsLabel(self):
        for caption in FIELDS:
            with self.subTest(caption):
                value = self.named(caption, "text")
                self.assertEqual([label.name for label in value.labels()], [caption + ":"])
                self.assertEqual(value.text, self.shown[caption])
                self.assertTrue(value.text)
        self.assertEqual(self.named("Coordinate", "text").text,
                         "N 47° 25' 15.5\"   E 10° 59' 7.0\"")

    def testEveryControlHasADescription(self):
        for name, role, description in CONTROLS:
            with self.subTest(name):
                control = self.named(name, role)
                self.assertEqual(control.description, description)
                self.assertTrue(control.has(ENABLED, FOCUSABLE))

    def testTheTabKeyReachesEveryControlInOrder(self):
        self.desktop.activate(self.window)
        order = [(caption, "text") for caption in FIELDS]
        order.insert(1, ("Place", "text"))
        order += [(name, role) for name, role, _ in CONTROLS]
        for name, role in order:
            self.desktop.keys("Tab")
            control = self.named(name, role)
            self.assertTrue(waitFor(lambda: control.has(FOCUSED), 5), f"{name} does not have the focus")

    def testTheWindowManagerPlacesTheWindow(self):
        hints = self.session.run(["xprop", "-id", str(self.window), "WM_NORMAL_HINTS", "_NET_WM_STATE"])
        self.assertIn("WM_NORMAL_HINTS", hints)
        self.assertNotIn("specified location", hints)
        self.assertNotIn("_NET_WM_STATE_ABOVE", hints)


if __name__ == "__main__":
    need()
    runTestCases()
