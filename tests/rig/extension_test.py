#!/usr/bin/env python3
"""Loads Pinorama's extension into one real file manager and checks what it pushes.

usage: extension_test.py PROBE EXTENSION MANAGER"""

import glob
import os
import shutil
import sys
import time

from cases import Cases, Wrong, require
from follow import Follow
from follow_test import intoAFolderAndBack, names, noneAndSeveral, tabs, twoWindows
from managers import managerNamed
from probe import Probe
from running import WRONG, need, run, skip
from session import DesktopSession, waitFor

FOLDERS = {"nautilus": "nautilus-python", "nemo": "nemo-python", "caja": "caja-python",
           "thunar": "thunarx-python"}
TIME = 300  # seconds in all
BINDINGS = {"nautilus": "nautilus/extensions-*/libnautilus-python.so",
            "nemo": "nemo/extensions-*/libnemo-python.so",
            "caja": "caja/extensions-*/libcaja-python.so",
            "thunar": "thunarx-*/thunarx-python.so"}


def needBinding(manager):
    for library in ("/usr/lib", "/usr/lib/*-linux-gnu"):
        if glob.glob(os.path.join(library, BINDINGS[manager.name])):
            return
    skip(f"the Python binding of {manager.name} is not installed")


def everyChange(follow):
    """The extension pushes every name, several names and an empty selection."""
    seen = follow.walk(len(follow.names) + 1)
    if set(seen) != follow.expectedItems():
        raise Wrong(f"missing {follow.expectedItems() - set(seen)}")
    follow.desktop.keys("ctrl+a")
    follow.expect(lambda paths: paths and len(paths) == len(follow.names) + 1, "all of them")
    follow.desktop.clickEmptySpace(follow.window)
    follow.expect(lambda paths: paths == [], "an empty selection")


def secondWindow(follow):
    """Opens a second window and selects an item in it. A push that arrives before the window is known is
    ignored, so this changes the selection until one is accepted."""
    second = follow.open(follow.other, follow.desktop.windowsOf(follow.process))
    time.sleep(1.5)
    for trial in range(3):
        try:
            follow.selectNamed(second, follow.other, b"c.jpg", 3)
            break
        except Wrong:
            if trial == 2:
                raise
    return second


def closeSecond(follow, second):
    follow.desktop.activate(second)
    follow.desktop.keys("ctrl+w")
    waitFor(lambda: not follow.desktop.exists(second), 3)
    follow.desktop.activate(follow.window)


def onlyForItsWindow(follow):
    """A push is valid only for the window that it came from."""
    follow.selectNamed(follow.window, follow.pictures, b"c.jpg")
    second = secondWindow(follow)
    try:
        follow.desktop.activate(follow.window)
        follow.expect(lambda paths: paths != [os.path.join(follow.other, b"c.jpg")],
                      "not what is selected in the other window")
    finally:
        closeSecond(follow, second)


def whenTheMenuOpens(follow):
    """Nemo calls its extensions only then."""
    follow.desktop.clickEmptySpace(follow.window)
    follow.desktop.keys("Home", follow.step, "Home", follow.step)
    for _ in range(3):  # on a busy machine the selection may change after the menu has opened
        follow.settle()
        follow.desktop.keys("Menu")
        paths = follow.probe.waitUntil(lambda paths: len(paths) == 1, 3)
        follow.desktop.keys("Escape")
        if paths:
            return
    raise Wrong(f"got {follow.probe.paths()}")


def onlyFromItsWindow(follow):
    """A change in a background window does not count as a selection of the user."""
    gone = os.path.join(follow.pictures, b"weg.jpg")
    with open(gone, "wb") as file:
        file.write(b"x")
    time.sleep(1.5)
    follow.desktop.clickEmptySpace(follow.window)
    follow.desktop.keys("ctrl+a")
    follow.expectNotOne()
    second = secondWindow(follow)
    try:
        os.remove(gone)
        time.sleep(1.5)
        follow.expectPath(os.path.join(follow.other, b"c.jpg"), 0.5)
    finally:
        closeSecond(follow, second)


def onlyFromTheFileManager(follow):
    """A push of any other program changes nothing, whatever it contains."""
    follow.selectNamed(follow.window, follow.pictures, b"c.jpg")
    title = (follow.desktop.xdotool("getwindowname", follow.window) or "").strip()
    for uris in ("['file://" + os.fsdecode(follow.pictures) + "/d.nef']", "[]", "['file:///%00']",
                 "['" + 20000 * "x" + "']", "[" + ",".join(5000 * ["'file:///'"]) + "]"):
        follow.session.call("org.pinorama.Pinorama.Selection", "/org/pinorama/Selection",
                            "org.pinorama.Pinorama.Selection.Push", uris, title)
    time.sleep(0.5)
    follow.expectPath(os.path.join(follow.pictures, b"c.jpg"), 0.5)


def quietAlone(follow):
    """Without Pinorama the extension is quiet, and the file manager keeps running."""
    follow.desktop.keys("Home", follow.step)
    time.sleep(0.5)
    require(follow.process.poll() is None, "it ended")
    with open(os.path.join(follow.session.root, follow.manager.command[0] + ".log"),
              errors="replace", encoding="utf-8") as log:
        messages = log.read()
    require("pinorama_selection" not in messages and "Traceback" not in messages, f"it wrote {messages}")


# With the extension alone; Thunar's pushes the selection before the last change.
ALONE = {"nautilus": [everyChange, onlyForItsWindow], "caja": [everyChange, onlyForItsWindow],
         "nemo": [whenTheMenuOpens], "thunar": []}
# Together with the accessibility bus, as the window uses them.
TOGETHER = [names, noneAndSeveral, twoWindows, tabs, intoAFolderAndBack, onlyFromItsWindow,
            onlyFromTheFileManager]


def main():
    probeProgram, extension = (os.path.abspath(path) for path in sys.argv[1:3])
    manager = managerNamed(sys.argv[3])
    need(manager.command[0])
    needBinding(manager)
    with DesktopSession() as session:
        folder = os.path.join(session.home, ".local", "share", FOLDERS[manager.name], "extensions")
        os.makedirs(folder)
        shutil.copy(extension, folder)
        follow = Follow(session, manager, Probe(session, probeProgram, "--extension"))
        follow.start()
        statuses = [Cases(*ALONE[manager.name]).run(manager.name, follow)]
        follow.probe.close()
        follow.probe = Probe(session, probeProgram)
        statuses.append(Cases(*TOGETHER).run(manager.name, follow))
        follow.probe.close()
        statuses.append(Cases(quietAlone).run(manager.name, follow))
        return WRONG if WRONG in statuses else 0


if __name__ == "__main__":
    run(main, TIME)
