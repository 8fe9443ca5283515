"""A real file manager with the real window beside it. The tests check what the window shows."""

import argparse
import os
import time

from cases import require
from desktop import Desktop
from follow import Follow
from managers import managerNamed
from running import need, programIn, run
from session import DesktopSession, waitFor
from window import Window

LONG_ENOUGH = 1.2  # seconds, six queries: a window that changes would have changed by then
TIME = 450  # seconds in all


def shownPlace(latitude, longitude):
    """Half degrees as the window shows them."""
    return f"N {int(latitude)}° 30' 0.0\"   E {int(longitude)}° 30' 0.0\""


class Beside(Follow):
    """A file manager with the window beside it."""

    def __init__(self, session, manager, program, desktop=None):
        super().__init__(session, manager, Window(session, program, desktop), desktop)
        self.shown = self.probe

    def expectShown(self, path, seconds=3):
        """The window shows the picture: its name, its whole path, its place."""
        self.expectPath(path, seconds)
        name = os.path.basename(path).decode(errors="replace")
        require(waitFor(lambda: self.shown.text("Name") == name, 2),
                f"the name is {self.shown.text('Name')!r}, not {name!r}")
        place = shownPlace(*self.places[path])
        require(waitFor(lambda: self.shown.text("Coordinate") == place, 2),
                f"the place is {self.shown.text('Coordinate')!r}, not {place!r}")

    def expectStill(self, path):
        """The window still shows the picture."""
        time.sleep(LONG_ENOUGH)
        self.expectShown(path, 0)

    def picture(self, name):
        return os.path.join(self.pictures, name)

    def select(self, name):
        self.desktop.activate(self.window)  # no other window may cover it
        self.selectNamed(self.window, self.pictures, name)

    def click(self):
        """Gives the file manager the focus and clears its selection."""
        self.desktop.activate(self.window)
        self.desktop.clickEmptySpace(self.window)


def runBeside(cases, kind=Beside, session=DesktopSession, desktop=Desktop, programs=()):
    """Runs the cases of a test with the arguments BIN_FOLDER MANAGER [--case NAME]..., all on one object of
    class `kind`, in a session of class `session` that `desktop` controls and that needs `programs`."""
    parser = argparse.ArgumentParser()
    parser.add_argument("bin")
    parser.add_argument("manager")
    parser.add_argument("--case", action="append", choices=cases.names())
    arguments = parser.parse_args()
    manager = managerNamed(arguments.manager)

    def test():
        need(manager.command[0], "dbus-monitor", *programs)
        with session() as started:
            beside = kind(started, manager, programIn(arguments.bin), desktop(started))
            beside.shown.open()
            beside.start()
            return cases.run(manager.name, beside, arguments.case)
    run(test, TIME)
