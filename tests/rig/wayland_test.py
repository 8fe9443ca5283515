#!/usr/bin/env python3
"""Drives one real file manager and the real window beside it on a Wayland compositor, both as Wayland clients.

usage: wayland_test.py COMPOSITOR BIN_FOLDER MANAGER [--case NAME]...

COMPOSITOR is sway, kwin or gnome.

Every case that could not run is named with its reason."""

import os
import sys

import window_test
from beside import runBeside
from cases import Cases
from managers import versionOf
from running import need, skip
from session import waitFor
from wayland import SwayDesktop, SwaySession
from wayland_gnome import GnomeDesktop, GnomeSession
from wayland_kwin import KWinDesktop, KWinSession

COMPOSITORS = {"sway": (SwaySession, SwayDesktop, ["sway", "swaymsg"]),
               "kwin": (KWinSession, KWinDesktop, ["kwin_wayland"]),
               "gnome": (GnomeSession, GnomeDesktop, ["gnome-shell"])}
cases = Cases(window_test.oneFile, window_test.severalAndNone, window_test.folder)


@cases.add
def windowInFront(beside):
    """Our own window in front changes nothing."""
    beside.select(b"c.jpg")
    beside.desktop.activate(beside.shown.window)
    beside.expectStill(beside.picture(b"c.jpg"))


@cases.add
def twoWindows(beside):
    """Of two windows with pictures of equal names, the one that was active last counts."""
    beside.select(b"c.jpg")
    second = beside.open(beside.other, beside.desktop.windowsOf(beside.process))
    try:
        beside.selectNamed(second, beside.other, b"c.jpg", 3)
        beside.desktop.activate(beside.window)
        beside.expectShown(beside.picture(b"c.jpg"))
        beside.desktop.activate(second)
        beside.expectShown(os.path.join(beside.other, b"c.jpg"))
        beside.desktop.activate(beside.shown.window)
        beside.expectStill(os.path.join(beside.other, b"c.jpg"))
    finally:
        beside.desktop.activate(second)
        beside.desktop.keys("ctrl+w")
        waitFor(lambda: not beside.desktop.exists(second), 3)
        beside.desktop.activate(beside.window)


cases.add(window_test.quiet)

if __name__ == "__main__":
    compositor = sys.argv.pop(1)
    sessionClass, desktopClass, programs = COMPOSITORS[compositor]
    need(*programs)
    if compositor == "sway" and os.geteuid() == 0:
        skip("sway does not start for root")
    if compositor == "kwin" and versionOf("kwin-wayland") < (6,):
        skip("KWin 5 has other scripts for its windows")
    if compositor == "gnome" and versionOf("gnome-shell") < (48,):
        skip("no version of GNOME Shell before 48 has been tried")
    runBeside(cases, session=sessionClass, desktop=desktopClass, programs=programs)
