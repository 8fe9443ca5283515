#!/usr/bin/env python3
"""A Qt file manager that was started while accessibility was off: the real window says so, switches
accessibility on at the user's request, and follows the file manager after its restart.

usage: advice_test.py BIN_FOLDER"""

import contextlib
import os

from accessible import accessibilityBus, programNamed
from cases import Cases, require
from desktop import Desktop
from managers import managerNamed
from running import need, run, takeProgram
from session import DesktopSession, RigError, waitFor
from window import CHECK_BOX

PROGRAM = takeProgram()
TIME = 240  # seconds in all
cases = Cases()


def isEnabled(session):
    return session.call("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties.Get",
                        "org.a11y.Status", "IsEnabled").strip() == "(<true>,)"


class Environment:
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
        # The file manager must not find the accessibility bus, which runs already: Qt 5 looks for its
        # address in this property of the display.
        self.address = session.run(["xprop", "-root", "-notype", "AT_SPI_BUS"]).partition('"')[2]
        session.run(["xprop", "-root", "-remove", "AT_SPI_BUS"])
        self.startManager()
        session.run(["xprop", "-root", "-f", "AT_SPI_BUS", "8s", "-set", "AT_SPI_BUS",
                     self.address.rstrip('"\n')])
        # The test reads the window over the same bus, whatever the desktop's setting.
        session.start([PROGRAM], extra={"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
        if not waitFor(lambda: programNamed(session, "Pinorama"), 30):
            raise RigError("the program is not on the accessibility bus")

    def startManager(self):
        self.process = self.session.start([*self.manager.command, self.folder])
        self.window = self.desktop.newWindow([self.process])
        self.desktop.resize(self.window, 900, 600)
        self.desktop.activate(self.window)

    def named(self, name):
        """The object of the window with this name, or one whose name begins with it."""
        root = programNamed(self.session, "Pinorama")
        return next((each for each in (root.everything() if root else [])
                     if (each.name or "").startswith(name)), None)

    def press(self, name):
        button = waitFor(lambda: self.named(name), 20)
        require(button, f"there is no {name}")
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


@contextlib.contextmanager
def beside(name):
    """The window beside the file manager of that name, in a new session."""
    with DesktopSession(accessibility=False) as session:
        if not accessibilityBus(session):
            raise RigError("there is no accessibility bus")
        yield Environment(session, managerNamed(name))


@cases.add
def showsNoNoticeWithoutNeed(beside):
    """Nautilus needs no setting."""
    with beside("nautilus") as around:
        require(not waitFor(lambda: around.named("Pinorama can follow"), 8), "there is a notice")
        around.select()
        require(waitFor(lambda: around.shows(around.picture), 20), "Nautilus is not followed")


@cases.add
def showsTheNoticeOnce(beside):
    """A notice that was dismissed does not appear again, and the check box removes it."""
    with beside("pcmanfm-qt") as around:
        require(waitFor(lambda: around.named("Pinorama can follow the selection in PCManFM-Qt"), 20),
                "the window does not say why it cannot follow")
        around.press("Dismiss")
        around.press(CHECK_BOX)
        around.press(CHECK_BOX)
        around.session.run(["xprop", "-root", "-remove", "AT_SPI_BUS"])
        second = around.session.start([*managerNamed("dolphin").command, around.folder])
        around.desktop.newWindow([second])
        require(not waitFor(lambda: around.named("Pinorama can follow"), 8), "the notice appeared again")
        around.session.end(second)
        require(not isEnabled(around.session),
                "accessibility was switched on without a request")


@cases.add
def offersAndFollows(beside):
    """All steps of a user of Dolphin."""
    with beside("dolphin") as around:
        require(waitFor(lambda: around.named("Pinorama can follow the selection in Dolphin"), 20),
                "the window does not say why it cannot follow")
        require(not isEnabled(around.session),
                "accessibility was switched on without a request")
        around.press("Switch On")
        require(waitFor(lambda: isEnabled(around.session), 20), "accessibility is not on")
        require(waitFor(lambda: around.named("Accessibility is on. Restart Dolphin"), 20),
                "the window does not say what comes next")
        around.press("Dismiss")
        require(waitFor(lambda: not around.named("Accessibility is on"), 20), "the notice does not disappear")
        around.session.end(around.process)
        around.startManager()
        around.select()
        require(waitFor(lambda: around.shows(around.picture), 20),
                "Dolphin is not followed after its restart")


def main():
    need("dolphin", "pcmanfm-qt", "nautilus")
    return cases.run("the window", beside)


if __name__ == "__main__":
    run(main, TIME)
