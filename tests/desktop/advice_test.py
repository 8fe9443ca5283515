#!/usr/bin/env python3
"""A file manager made with Qt that was started while accessibility was off: the real window says so,
switches it on when it is asked to, and follows the file manager once that was started again.

usage: advice_test.py BIN_FOLDER

Exit status 77 means that nothing could be tried; the reason is printed."""

import os
import shutil
import signal
import sys

from accessible import accessibilityBus, programNamed
from desktop import Desktop
from managers import managerNamed
from session import DesktopSession, RigError, waitFor
from window import CHECK_BOX

BIN = os.path.abspath(sys.argv[1]) if len(sys.argv) > 1 else ""
TIME = 240  # seconds in all
SKIPPED = 77
PROGRAMS = ("Xvfb", "openbox", "xdotool", "gdbus", "xprop", "dolphin", "pcmanfm-qt", "nautilus")


class Wrong(Exception):
    """The window was wrong."""


def isEnabled(session):
    return session.call("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties.Get",
                        "org.a11y.Status", "IsEnabled").strip() == "(<true>,)"


class Surroundings:
    """The real window and one file manager, with accessibility off."""

    def __init__(self, session, manager):
        self.session = session
        self.manager = manager
        self.desktop = Desktop(session)
        self.folder = os.path.join(session.home, "Bilder")
        self.picture = os.path.join(self.folder, "c.jpg")
        if not os.path.exists(self.folder):
            os.makedirs(self.folder)
            with open(self.picture, "wb") as file:
                file.write(b"x")
        # The file manager is started before the accessibility bus, as far as it can tell: Qt 5 finds
        # a bus that runs already by this mark of the display.
        self.mark = session.run(["xprop", "-root", "-notype", "AT_SPI_BUS"]).partition('"')[2]
        session.run(["xprop", "-root", "-remove", "AT_SPI_BUS"])
        self.startManager()
        session.run(["xprop", "-root", "-f", "AT_SPI_BUS", "8s", "-set", "AT_SPI_BUS",
                     self.mark.rstrip('"\n')])
        # The window itself is read over the same bus, whatever the desktop has set.
        self.program = session.start([os.path.join(BIN, "pinorama")],
                                     extra={"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
        if not waitFor(lambda: programNamed(session, "Pinorama"), 30):
            raise RigError("the program is not on the accessibility bus")

    def startManager(self):
        self.process = self.session.start([*self.manager.command, self.folder])
        self.window = self.desktop.newWindow([self.process])
        self.desktop.resize(self.window, 900, 600)
        self.desktop.activate(self.window)

    def end(self):
        for process in (self.process, self.program):
            self.session.end(process)

    def named(self, name):
        """The object of the window with this name, or one whose name begins with it."""
        root = programNamed(self.session, "Pinorama")
        return next((each for each in (root.everything() if root else [])
                     if (each.name or "").startswith(name)), None)

    def press(self, name):
        button = waitFor(lambda: self.named(name), 5)
        if not button:
            raise Wrong(f"there is no {name}")
        self.session.run(["gdbus", "call", "--address", button.bus, "--dest", button.owner,
                          "--object-path", button.path, "--method",
                          "org.a11y.atspi.Action.DoAction", "0"])

    def shows(self, path):
        return any(each.name == "Name" and each.role == "text" and each.description == path
                   for each in programNamed(self.session, "Pinorama").everything())

    def select(self):
        self.desktop.activate(self.window)
        self.desktop.clickEmptySpace(self.window)
        self.desktop.keys("Home", "Right", "Home")


def offersAndFollows(session):
    """The whole way of a user with Dolphin."""
    around = Surroundings(session, managerNamed("dolphin"))
    try:
        notice = waitFor(lambda: around.named("The selection in Dolphin"), 20)
        if not notice:
            raise Wrong("the window does not say why it cannot follow")
        if isEnabled(session):
            raise Wrong("accessibility was switched on without being asked for")
        around.press("Switch On")
        if not waitFor(lambda: isEnabled(session), 5):
            raise Wrong("accessibility is not on")
        if not waitFor(lambda: around.named("Accessibility is on. Restart Dolphin"), 5):
            raise Wrong("the window does not say what comes next")
        around.press("Dismiss")
        if not waitFor(lambda: not around.named("Accessibility is on"), 5):
            raise Wrong("the notice does not go")
        session.end(around.process)
        around.startManager()
        around.select()
        if not waitFor(lambda: around.shows(around.picture), 10):
            raise Wrong("Dolphin is not followed after its restart")
    finally:
        around.end()


def saysItOnce(session):
    """A notice that was dismissed does not come again, and the check box takes it away."""
    around = Surroundings(session, managerNamed("pcmanfm-qt"))
    try:
        if not waitFor(lambda: around.named("The selection in PCManFM-Qt"), 20):
            raise Wrong("the window does not say why it cannot follow")
        around.press("Dismiss")
        around.press(CHECK_BOX)
        around.press(CHECK_BOX)
        session.run(["xprop", "-root", "-remove", "AT_SPI_BUS"])
        second = session.start([*managerNamed("dolphin").command, around.folder])
        around.desktop.newWindow([second])
        if waitFor(lambda: around.named("The selection in"), 8):
            raise Wrong("the notice came again")
        session.end(second)
        if isEnabled(session):
            raise Wrong("accessibility was switched on without being asked for")
    finally:
        around.end()


def saysNothingWithoutNeed(session):
    """Nautilus needs nothing."""
    around = Surroundings(session, managerNamed("nautilus"))
    try:
        if waitFor(lambda: around.named("The selection in"), 8):
            raise Wrong("there is a notice")
        around.select()
        if not waitFor(lambda: around.shows(around.picture), 10):
            raise Wrong("Nautilus is not followed")
    finally:
        around.end()


def onAlarm(*_):
    raise RigError(f"not done after {TIME} seconds")


def run():
    missing = [program for program in PROGRAMS if shutil.which(program) is None]
    if missing:
        print(f"skipped: {', '.join(missing)} not installed")
        return SKIPPED
    failures = 0
    for check in (saysNothingWithoutNeed, saysItOnce, offersAndFollows):
        with DesktopSession(accessibility=False) as session:
            try:
                if not accessibilityBus(session):
                    raise RigError("there is no accessibility bus")
                check(session)
                outcome = "ok"
            except (Wrong, RigError) as error:
                failures += 1
                outcome = f"WRONG: {error}"
            print(f"{check.__name__}: {outcome}", flush=True)
    return 1 if failures else 0


if __name__ == "__main__":
    signal.signal(signal.SIGALRM, onAlarm)
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    signal.alarm(TIME)
    try:
        sys.exit(run())
    except RigError as error:
        print(f"the surroundings could not be made: {error}")
        sys.exit(1)
