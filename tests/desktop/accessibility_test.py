#!/usr/bin/env python3
"""Walks the real window over the accessibility bus, as a screen reader does: every control has a name,
a role and a place in the order of the Tab key, every value can be read with its caption, every button
says what it does. Exit status 77 means that nothing could be tried; the reason is printed.

usage: accessibility_test.py BIN_FOLDER"""

import os
import shutil
import sys
import unittest

from accessible import ENABLED, FOCUSABLE, FOCUSED, programNamed
from session import DesktopSession, RigError, waitFor

BIN = os.path.abspath(sys.argv.pop()) if len(sys.argv) > 1 else ""
SAMPLE = os.path.join(os.path.dirname(os.path.abspath(__file__)),
                      "../../resources/samples/Mountains at noon.jpg")
SKIPPED = 77

# Caption of each value and the field's name in the window's report, from top to bottom.
FIELDS = [
    ("Name", "fileNameField"),
    ("Size", "fileSizeField"),
    ("Modified", "fileModificationDateField"),
    ("Created", "fileCreationDateField"),
    ("Coordinate", "gpsCoordinateField"),
    ("Altitude", "gpsAltitudeField"),
    ("Direction", "gpsDirectionField"),
    ("City", "iptcCityField"),
    ("State", "iptcStateField"),
    ("Country", "iptcCountryField"),
    ("Caption", "iptcDescriptionField"),
]
# Name, role and description of each control below them.
CONTROLS = [
    ("Map Services", "combo box", "Opens the location in a web map"),
    ("Show in Globe", "button", "Flies the globe program to the location"),
    ("Find in Skallion", "button", "Finds all catalogued pictures taken within 2000 m"),
    ("Export as KML…", "button", "Writes the location as a placemark file"),
    ("Follow the selection in the file manager", "check box",
     "Shows the picture that is selected in the file manager, always"),
]


class AccessibilityTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.session = DesktopSession()
        cls.session.__enter__()
        cls.addClassCleanup(cls.session.close)
        program = os.path.join(BIN, "pinorama")
        picture = os.path.join(cls.session.home, "Mountains at noon.jpg")
        shutil.copy(SAMPLE, picture)
        report = cls.session.run([program, "--print-and-save",
                                  os.path.join(cls.session.root, "window.png"), picture], 30)
        if report is None:
            raise AssertionError("the program does not report what it shows")
        cls.shown = dict(line.split(": ", 1) for line in report.replace("\n    ", " ").splitlines()
                         if ": " in line)
        cls.session.start([program, picture])
        found = waitFor(lambda: (cls.session.run(["xdotool", "search", "--onlyvisible", "--name",
                                                  "^Pinorama$"]) or "").split(), 30)
        if not found:
            raise AssertionError("the window did not appear")
        cls.window = found[0]
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

    def testEveryValueIsReadWithItsCaption(self):
        for caption, field in FIELDS:
            with self.subTest(caption):
                value = self.named(caption, "text")
                self.assertEqual([label.name for label in value.labels()], [caption + ":"])
                self.assertEqual(value.text, self.shown[field])
                self.assertTrue(value.text)
        self.assertEqual(self.named("Coordinate", "text").text,
                         "N 47° 25' 15.5\"   E 10° 59' 7.0\"")

    def testEveryControlSaysWhatItDoes(self):
        for name, role, description in CONTROLS:
            with self.subTest(name):
                control = self.named(name, role)
                self.assertEqual(control.description, description)
                self.assertTrue(control.has(ENABLED, FOCUSABLE))

    def testTheTabKeyReachesEveryControlInItsOrder(self):
        self.session.run(["xdotool", "windowactivate", "--sync", self.window])
        order = [(caption, "text") for caption, _ in FIELDS]
        order += [(name, role) for name, role, _ in CONTROLS]
        for name, role in order:
            self.session.run(["xdotool", "key", "--clearmodifiers", "Tab"])
            control = self.named(name, role)
            self.assertTrue(waitFor(lambda: control.has(FOCUSED), 5), f"{name} has not the focus")

    def testTheWindowManagerPlacesTheWindow(self):
        hints = self.session.run(["xprop", "-id", self.window, "WM_NORMAL_HINTS", "_NET_WM_STATE"])
        self.assertIn("WM_NORMAL_HINTS", hints)
        self.assertNotIn("specified location", hints)
        self.assertNotIn("_NET_WM_STATE_ABOVE", hints)


def whyNot():
    for program in ("Xvfb", "openbox", "xdotool", "gdbus", "xprop"):
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
