#!/usr/bin/env python3
"""Drives one real file manager beside the real window and checks what the window shows.

usage: window_test.py BIN_FOLDER MANAGER [--case NAME]...

Every case that could not run is named with its reason."""

import os
import time

import follow_test
from accessible import accessibilityBus
from beside import LONG_ENOUGH, runBeside
from cases import Cases, require
from session import waitFor
from window import Traffic

cases = Cases(follow_test.names)


@cases.add
def oneFile(beside):
    """The window shows the one selected picture, with its place; the check box is on from the beginning."""
    require(beside.shown.follows(), "the check box is not on at first")
    require(beside.shown.preference() is None, "the default was stored")
    for name in (b"c.jpg", "ü.jpg".encode()):
        beside.select(name)
        beside.expectShown(beside.picture(name))


@cases.add
def severalAndNone(beside):
    """An empty selection and several items leave the window unchanged."""
    beside.select(b"c.jpg")
    beside.desktop.keys("ctrl+a")
    beside.expectStill(beside.picture(b"c.jpg"))
    beside.click()
    beside.expectStill(beside.picture(b"c.jpg"))
    beside.select(b"a b.jpg")
    beside.expectShown(beside.picture(b"a b.jpg"))


@cases.add
def folder(beside):
    """The window shows a folder as it shows a file."""
    beside.select(b"c.jpg")
    beside.select(b"Andere/")
    for field, text in (("Name", "Andere"), ("Size", "n.a."), ("Coordinate", "")):
        require(waitFor(lambda: beside.shown.text(field) == text, 2),
                f"{field} is {beside.shown.text(field)!r}, not {text!r}")


@cases.add
def behindOurWindow(beside):
    """While our own window has the focus, the file manager's window that was active last counts."""
    second = beside.open(beside.other, beside.desktop.windowsOf(beside.process))
    try:
        beside.selectNamed(second, beside.other, b"c.jpg", 3)
        beside.select(b"a b.jpg")
        beside.desktop.activate(beside.shown.window)
        beside.expectStill(beside.picture(b"a b.jpg"))
        # The selection changes and the focus leaves at once; Qt programs also accept a key without focus.
        key = ["key", beside.step]
        if beside.manager.toolkit == "Qt":
            key = ["key", "--window", beside.window, beside.step]
        else:
            key = ["windowactivate", "--sync", beside.window, *key]
        beside.desktop.xdotool(*key, "windowactivate", "--sync", beside.shown.window)
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


@cases.add
def closedWindow(beside):
    """A closed window keeps following, so that it is current when it opens again."""
    beside.select(b"c.jpg")
    beside.desktop.activate(beside.shown.window)
    beside.desktop.keys("alt+F4")
    require(waitFor(lambda: not beside.desktop.windowsOf(beside.shown.process), 5),
            "the window did not close")
    require(beside.shown.process.poll() is None, "closing the window ended the program")
    beside.select(b"a b.jpg")
    require(beside.session.run([beside.shown.program]) is not None, "the second start failed")
    require(waitFor(lambda: beside.desktop.windowsOf(beside.shown.process), 10),
            "the window did not open again")
    beside.shown.window = beside.shown.find()
    beside.expectShown(beside.picture(b"a b.jpg"))


@cases.add
def switchedOff(beside):
    """Without its check mark the window makes no calls, and shows only pictures that are passed to it."""
    beside.select(b"c.jpg")
    buses = [Traffic(beside.session, address)
             for address in (beside.session.environment["DBUS_SESSION_BUS_ADDRESS"],
                             accessibilityBus(beside.session))]
    try:
        accessibility = buses[1]
        names = accessibility.namesOf(beside.shown.process)
        require(waitFor(lambda: accessibility.calls(names, 1) >= 5, 5),
                "with the check mark there are fewer than five queries a second")

        beside.shown.switchFollowing()
        require(waitFor(lambda: not beside.shown.follows(), 5), "the check box is still on")
        require(beside.shown.preference() == "0", f"stored is {beside.shown.preference()!r}")
        # Pending calls end, then there are no further ones.
        left = waitFor(lambda: names - accessibility.namesOf(beside.shown.process), 10)
        require(left, "the connection to the accessibility bus is still open")
        beside.click()
        beside.desktop.keys("Home", beside.step)
        names = [bus.namesOf(beside.shown.process) for bus in buses]
        for bus, itsNames in zip(buses, names):
            count = bus.calls(itsNames, 1.5)
            require(count == 0, f"without the check mark there are {count} calls on {bus.address}")
        beside.expectStill(beside.picture(b"c.jpg"))

        given = os.path.join(beside.other, b"e.jpg")
        require(beside.session.run([beside.shown.program, os.fsdecode(given)]) is not None,
                "the second start failed")
        beside.expectShown(given, 5)

        beside.shown.switchFollowing()
        require(waitFor(beside.shown.follows, 5), "the check box is still off")
        require(beside.shown.preference() == "1", f"stored is {beside.shown.preference()!r}")
        beside.select(b"a b.jpg")
        beside.expectShown(beside.picture(b"a b.jpg"))
    finally:
        for bus in buses:
            bus.close()


@cases.add
def survivesARestart(beside):
    """The check box keeps its state, off and on."""
    beside.shown.switchFollowing()
    require(waitFor(lambda: not beside.shown.follows(), 5), "the check box is still on")
    beside.shown.close()
    beside.shown.open()
    require(not beside.shown.follows(), "the check box is on again")
    beside.click()
    beside.desktop.keys("Home", beside.step)
    time.sleep(LONG_ENOUGH)
    require(beside.shown.paths() == [], f"it follows nevertheless: {beside.shown.paths()}")

    beside.shown.switchFollowing()
    require(waitFor(beside.shown.follows, 5), "the check box is still off")
    beside.shown.close()
    beside.shown.open()
    require(beside.shown.follows(), "the check box is off again")
    beside.select(b"c.jpg")
    beside.expectShown(beside.picture(b"c.jpg"))


@cases.add
def desktopIcons(beside):
    """Icons on the desktop."""
    beside.desktop.xdotool("windowmove", beside.shown.window, 0, 0)  # away from the mouse
    follow_test.desktopIcons(beside)


@cases.add
def quiet(beside):
    """The window has written nothing to the terminal."""
    require(not beside.shown.messages().strip(), beside.shown.messages())


if __name__ == "__main__":
    runBeside(cases)
