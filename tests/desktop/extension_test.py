#!/usr/bin/env python3
"""Loads Pinorama's extension into one real file manager and checks what it pushes.

usage: extension_test.py PROBE EXTENSION MANAGER

Exit status 77 means that nothing could be tried; the reason is printed."""

import glob
import os
import shutil
import sys
import time

from follow_test import (NAMES, Follow, Wrong, intoAFolderAndBack, names, noneAndSeveral, tabs,
                         twoWindows)
from managers import managerNamed
from probe import Probe
from session import DesktopSession, RigError

FOLDERS = {"nautilus": "nautilus-python", "nemo": "nemo-python", "caja": "caja-python",
           "thunar": "thunarx-python"}
BINDINGS = {"nautilus": "nautilus/extensions-*/libnautilus-python.so",
            "nemo": "nemo/extensions-*/libnemo-python.so",
            "caja": "caja/extensions-*/libcaja-python.so",
            "thunar": "thunarx-*/thunarx-python.so"}


def installed(manager):
    if shutil.which(manager.command[0]) is None:
        return f"{manager.command[0]} is not installed"
    for library in ("/usr/lib", "/usr/lib/*-linux-gnu"):
        if glob.glob(os.path.join(library, BINDINGS[manager.name])):
            return None
    return f"the Python binding of {manager.name} is not installed"


def everyChange(follow):
    """Every name, several and none, pushed the moment they are selected."""
    seen = follow.walk(len(NAMES) + 1)
    if set(seen) != follow.expectedItems():
        raise Wrong(f"missing {follow.expectedItems() - set(seen)}")
    follow.desktop.keys("ctrl+a")
    follow.expect(lambda paths: paths and len(paths) == len(NAMES) + 1, "all of them")
    follow.desktop.clickEmptySpace(follow.window)
    follow.expect(lambda paths: paths == [], "an empty selection")


def onlyForItsWindow(follow):
    """A push answers for the window that it came from and for no other."""
    follow.selectNamed(follow.window, follow.pictures, b"c.jpg")
    second = follow.open(follow.other, follow.desktop.windowsOf(follow.process))
    follow.selectNamed(second, follow.other, b"c.jpg", 3)
    follow.desktop.activate(follow.window)
    follow.expect(lambda paths: paths != [os.path.join(follow.other, b"c.jpg")],
                  "not what is selected in the other window")
    follow.desktop.activate(second)
    follow.desktop.keys("ctrl+w")
    time.sleep(0.5)
    follow.desktop.activate(follow.window)


def whenTheMenuOpens(follow):
    """Nemo asks its extensions only then."""
    follow.desktop.clickEmptySpace(follow.window)
    follow.desktop.keys("Home", follow.step, "Home", follow.step)
    time.sleep(0.5)
    follow.desktop.keys("Menu")
    follow.expectOne(3)
    follow.desktop.keys("Escape")


# What the extension tells on its own; Thunar's tells the selection of one change ago.
ALONE = {"nautilus": [everyChange, onlyForItsWindow], "caja": [everyChange, onlyForItsWindow],
         "nemo": [whenTheMenuOpens], "thunar": []}
# Together with the accessibility bus, as the window asks them.
TOGETHER = [names, noneAndSeveral, twoWindows, tabs, intoAFolderAndBack]


def runChecks(follow, checks):
    failures = 0
    for check in checks:
        try:
            check(follow)
            outcome = "ok"
        except (Wrong, RigError) as error:
            failures += 1
            outcome = f"WRONG: {error}"
        print(f"{follow.manager.name}: {check.__name__}: {outcome}", flush=True)
    return failures


def run(probeProgram, extension, manager):
    reason = installed(manager)
    if reason:
        print(f"skipped: {reason}")
        return 77
    with DesktopSession() as session:
        folder = os.path.join(session.home, ".local", "share", FOLDERS[manager.name], "extensions")
        os.makedirs(folder)
        shutil.copy(extension, folder)
        follow = Follow(session, manager, Probe(session, probeProgram, "--extension"))
        follow.start()
        failures = runChecks(follow, ALONE[manager.name])
        follow.probe.close()
        follow.probe = Probe(session, probeProgram)
        failures += runChecks(follow, TOGETHER)
        follow.probe.close()
        # Without Pinorama the extension is quiet and the file manager goes on.
        follow.desktop.keys("Home", follow.step)
        time.sleep(0.5)
        if follow.process.poll() is not None:
            failures += 1
            print(f"{manager.name}: WRONG: it ended")
        with open(os.path.join(session.root, manager.command[0] + ".log"),
                  errors="replace", encoding="utf-8") as log:
            messages = log.read()
        if "pinorama_selection" in messages or "Traceback" in messages:
            failures += 1
            print(f"{manager.name}: WRONG: it wrote {messages}")
    return 1 if failures else 0


if __name__ == "__main__":
    try:
        sys.exit(run(os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2]),
                     managerNamed(sys.argv[3])))
    except RigError as error:
        print(f"the surroundings could not be made: {error}")
        sys.exit(1)
