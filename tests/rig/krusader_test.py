#!/usr/bin/env python3
"""Drives Krusader, whose item at the cursor counts as the selected one, and checks what the selection source
returns.

usage: krusader_test.py PROBE"""

import os
import sys
import time

from cases import Cases, Wrong
from follow import WIDE, Follow
from managers import LIST, Manager
from probe import Probe
from running import need, run
from session import DesktopSession, waitFor

SETTINGS = "First Time=false\n[Private]\nVersion=2.8.0\n"
WARNING = "Missing Plugin"  # title of a window that it shows first if there is no editor
TIME = 300  # seconds in all
MANAGER = Manager("krusader", ["krusader"], "krusader", "Qt", views={"list": ([], LIST)}, firstView="list")
cases = Cases()


class Panels(Follow):
    """Krusader with the same names in both of its panels, of which the right one is in use."""

    def __init__(self, session, probe):
        super().__init__(session, MANAGER, probe)
        with open(os.path.join(session.home, ".config", "krusaderrc"), "w", encoding="utf-8") as settings:
            settings.write(SETTINGS)

    def open(self, *_):
        self.process = self.session.start(["krusader", "--left", os.fsdecode(self.other), "--right",
                                           os.fsdecode(self.pictures)])
        waitFor(self.mainWindow, 40, 0.5)
        window = self.desktop.newWindow([self.process])
        self.desktop.resize(window, *WIDE)
        self.desktop.activate(window)
        return window

    def mainWindow(self):
        """Closes the warning until the window is there."""
        if (self.desktop.xdotool("search", "--onlyvisible", "--name", WARNING) or "").strip():
            self.desktop.keys("Return")
        return any(self.desktop.sizeOf(window)[1] > 400 for window in self.desktop.windowsOf(self.process))

    def start(self):
        self.window = self.open()
        self.step = LIST
        self.desktop.clickEmptySpace(self.window, 0.97)

    def find(self, path, steps):
        """Moves the cursor from the first item on until it is at that path."""
        self.desktop.keys("Home")
        for _ in range(steps):
            self.desktop.keys("Down")
            self.settle()
            if self.probe.paths() == [path]:
                return
        raise Wrong(f"{path} was never followed, last {self.probe.paths()}")


@cases.add
def names(panels):
    """Every name, also the odd ones, as its exact bytes, though each panel has a c.jpg; nothing at the item that
    leads to the folder above."""
    panels.desktop.keys("Home")
    panels.expect(lambda paths: paths == [], "nothing")
    seen = []
    for _ in panels.expectedItems():
        panels.desktop.keys("Down")
        seen += panels.expect(lambda paths: len(paths) == 1 and paths[0] not in seen, f"one more path than {seen}")
    if set(seen) != panels.expectedItems():
        raise Wrong(f"missing {panels.expectedItems() - set(seen)}, too many {set(seen) - panels.expectedItems()}")


@cases.add
def links(panels):
    """A link has its own path, not that of its target."""
    link = os.path.join(panels.pictures, b"b link.jpg")
    os.symlink(b"c.jpg", link)
    try:
        time.sleep(1.5)
        panels.find(link, len(panels.names) + 2)
    finally:
        os.remove(link)
        time.sleep(1.5)


@cases.add
def panelInUse(panels):
    """The same name at the cursor of both panels."""
    right, left = (os.path.join(folder, b"c.jpg") for folder in (panels.pictures, panels.other))
    panels.find(right, len(panels.names) + 1)
    panels.desktop.keys("Tab")
    panels.find(left, 3)
    for path in (right, left, right):
        panels.desktop.keys("Tab")
        panels.expectPath(path)


@cases.add
def intoAFolderAndBack(panels):
    """Going down into a folder and up again."""
    panels.find(panels.other + b"/", len(panels.names) + 1)
    panels.desktop.keys("Return")
    time.sleep(1)
    panels.find(os.path.join(panels.other, b"e.jpg"), 3)
    panels.desktop.keys("BackSpace")
    time.sleep(1)
    panels.find(os.path.join(panels.pictures, b"d.nef"), len(panels.names) + 1)


@cases.add
def tabs(panels):
    """Two tabs of one panel."""
    panels.find(os.path.join(panels.pictures, b"c.jpg"), len(panels.names) + 1)
    panels.desktop.keys("ctrl+t")
    time.sleep(1)
    panels.find(panels.other + b"/", len(panels.names) + 1)
    panels.desktop.keys("Return")
    time.sleep(1)
    panels.find(os.path.join(panels.other, b"e.jpg"), 3)
    panels.desktop.keys("ctrl+w")
    time.sleep(1)
    panels.find(os.path.join(panels.pictures, b"d.nef"), len(panels.names) + 1)


@cases.add
def quiet(panels):
    """The probe has written nothing to standard error."""
    if panels.probe.messages().strip():
        raise Wrong(panels.probe.messages())


def main():
    need("krusader")
    with DesktopSession() as session:
        panels = Panels(session, Probe(session, os.path.abspath(sys.argv[1])))
        panels.start()
        status = cases.run("krusader", panels, sys.argv[2:])
        panels.probe.close()
        return status


if __name__ == "__main__":
    run(main, TIME)
