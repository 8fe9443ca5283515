#!/usr/bin/env python3
"""Drives one real file manager and checks what the selection source makes of it.

usage: follow_test.py PROBE MANAGER [--locale de_DE.UTF-8] [--case NAME]...

PROBE is the program selection_probe. Ends with 0 when every case was right, 1 when one was wrong,
77 when nothing could be run here; every case that could not run is named with its reason."""

import argparse
import os
import shutil
import signal
import subprocess
import sys
import time

from desktop import Desktop
from managers import managerNamed
from pictures import writePicture
from probe import Probe
from session import DesktopSession, RigError, waitFor

NAMES = [b"a b.jpg", b"c.jpg", b"d.nef", "ü.jpg".encode(), "u\u0308d.jpg".encode(),
         b"x%20y&.jpg", b"h#;.jpg", b"line\nfeed.jpg", b"inv\xe4lid.jpg"]
WIDE = (1380, 840)
MANY = 400  # files; no view shows them all
PATIENCE = 6  # seconds; a question is put five times a second, but the machine may be busy
CASES = []


class Skip(Exception):
    """The case cannot run here; says why."""


class Wrong(Exception):
    """The selection source was wrong."""


def case(function):
    CASES.append(function)
    return function


class Follow:
    def __init__(self, session, manager, probe):
        self.session = session
        self.manager = manager
        self.probe = probe
        self.desktop = Desktop(session)
        self.pictures = os.path.join(session.home.encode(), b"Bilder")
        self.other = os.path.join(self.pictures, b"Andere")
        os.makedirs(self.other)
        self.places = {}  # path of a picture -> latitude and longitude
        for number, name in enumerate(NAMES):
            self.write(os.path.join(self.pictures, name), 10.5 + number, 60.5 + number)
        for number, name in enumerate((b"c.jpg", b"e.jpg")):
            self.write(os.path.join(self.other, name), 40.5 + number, 20.5 + number)
        self.process = None
        self.window = None
        self.settledView = manager.firstView  # where settings choose the view

    def write(self, path, latitude, longitude):
        writePicture(path, latitude, longitude)
        self.places[path] = (latitude, longitude)

    def open(self, folder=None, before=()):
        folder = folder or self.pictures
        process = self.session.start([*self.manager.command, os.fsdecode(folder)],
                                     extra=self.manager.extra)
        # In most file managers a second start hands the folder to the process that runs already.
        processes = [process]
        if self.process and self.process.poll() is None:
            processes.append(self.process)
        else:
            self.process = process
        window = self.desktop.newWindow(processes, before)
        self.desktop.resize(window, *WIDE)
        self.desktop.activate(window)
        return window

    def start(self):
        self.window = self.open()
        self.switchView(self.manager.firstView)

    def askAnew(self):
        """Puts a probe that knows nothing yet in the place of the one at work."""
        self.probe.close()
        self.probe = Probe(self.session, self.probe.program)

    def kill(self):
        self.process.kill()
        self.process.wait()

    def switchView(self, view):
        keys, self.step = self.manager.views[view]
        settings = self.manager.viewSettings.get(view)
        if settings and view != self.settledView:
            self.kill()
            path = os.path.join(self.session.home, self.manager.settingsFile)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "w", encoding="utf-8") as file:
                file.write(settings)
            self.settledView = view
            self.window = self.open()
        self.desktop.clickEmptySpace(self.window)
        self.desktop.keys(*keys)
        time.sleep(0.8)

    def selectFirst(self):
        self.desktop.clickEmptySpace(self.window)
        self.desktop.keys("Home", self.step, "Home")
        self.settle()

    def settle(self):
        """Waits for the file manager to be done, and for two questions after that, so that an answer
        is not one from on the way."""
        self.desktop.settle(self.process)
        time.sleep(0.4)

    def expect(self, condition, what, seconds=PATIENCE):
        answer = self.probe.waitUntil(condition, seconds)
        if answer is None:
            raise Wrong(f"expected {what}, heard {self.probe.paths()}")
        return answer

    def expectPath(self, path, seconds=PATIENCE):
        self.expect(lambda paths: paths == [path], path, seconds)

    def expectOne(self, seconds=PATIENCE):
        return self.expect(lambda paths: len(paths) == 1, "one path", seconds)[0]

    def expectNotOne(self, seconds=PATIENCE):
        self.expect(lambda paths: len(paths) != 1, "none or several", seconds)

    def walk(self, count):
        """Goes through the items with the keyboard and returns the paths in the view's order."""
        self.selectFirst()
        seen = []
        for _ in range(count):
            path = self.expect(lambda paths: len(paths) == 1 and paths[0] not in seen,
                               f"one more path than {seen}")[0]
            seen.append(path)
            self.desktop.keys(self.step)
        return seen

    def expectedItems(self):
        return {os.path.join(self.pictures, name) for name in NAMES} | {self.other + b"/"}

    def selectNamed(self, window, folder, name, steps=None):
        """Goes on with the keyboard until `name` of `folder` is selected."""
        wanted = os.path.join(folder, name)
        for _ in range(2):  # a busy machine may need a second round
            self.desktop.clickEmptySpace(window)
            self.desktop.keys("Home", self.step, "Home")
            self.settle()
            for _ in range((steps or len(NAMES) + 1) + 1):
                heard = self.probe.paths()
                if heard == [wanted]:
                    self.settle()  # a key that is on its way may still go on from it
                    if self.probe.paths() == [wanted]:
                        return
                    continue
                self.desktop.keys(self.step)
                self.probe.waitUntil(lambda paths: paths and paths != heard, 1.5)
        raise Wrong(f"never heard {wanted}, last {self.probe.paths()}")


@case
def names(follow):
    """Every name, also the odd ones, as its exact bytes."""
    seen = follow.walk(len(NAMES) + 1)
    if set(seen) != follow.expectedItems():
        raise Wrong(f"missing {follow.expectedItems() - set(seen)}, too many "
                    f"{set(seen) - follow.expectedItems()}")


@case
def noneAndSeveral(follow):
    """Nothing selected and all selected are not one path; the several come in the view's order."""
    order = follow.walk(len(NAMES) + 1)
    follow.desktop.clickEmptySpace(follow.window)
    follow.expect(lambda paths: paths == [], "an empty selection")
    follow.selectFirst()
    follow.expectPath(order[0])
    follow.desktop.keys("shift+" + follow.step)
    follow.expectNotOne()
    if follow.manager.tellsSeveral:
        follow.expect(lambda paths: paths == order[:2], order[:2])
    follow.desktop.keys("ctrl+a")
    follow.expectNotOne()
    if follow.manager.tellsSeveral:
        follow.expect(lambda paths: paths == order, order)


@case
def otherViews(follow):
    """List and compact views."""
    views = [view for view in follow.manager.views if view != follow.manager.firstView]
    if not views:
        raise Skip("no other views by keyboard")
    try:
        for view in views:
            follow.switchView(view)
            seen = follow.walk(len(NAMES) + 1)
            if set(seen) != follow.expectedItems():
                raise Wrong(f"{view}: missing {follow.expectedItems() - set(seen)}")
    finally:
        follow.switchView(follow.manager.firstView)


@case
def mouse(follow):
    """A click selects; moving the mouse over other items changes nothing."""
    follow.selectNamed(follow.window, follow.pictures, b"c.jpg")
    width, height = follow.desktop.sizeOf(follow.window)
    for share in (0.3, 0.4, 0.5):
        follow.desktop.xdotool("mousemove", "--window", follow.window, int(width * share),
                               int(height * 0.2))
        time.sleep(0.3)
    time.sleep(0.5)
    follow.expectPath(os.path.join(follow.pictures, b"c.jpg"), 0.5)


@case
def ownWindowInFront(follow):
    """Another program's window in front, such as our own, changes nothing."""
    follow.selectNamed(follow.window, follow.pictures, b"c.jpg")
    message = follow.session.start(["xmessage", "-geometry", "300x100+900+600", "in front"])
    try:
        window = waitFor(lambda: follow.desktop.xdotool("search", "--name", "xmessage"), 5)
        follow.desktop.activate(int(window.split()[0]))
        time.sleep(1)
        follow.expectPath(os.path.join(follow.pictures, b"c.jpg"), 0.5)
    finally:
        follow.session.end(message)


@case
def twoWindows(follow):
    """The same name in two windows: the window that was active last counts."""
    follow.selectNamed(follow.window, follow.pictures, b"c.jpg")
    before = follow.desktop.windowsOf(follow.process)
    second = follow.open(follow.other, before)
    try:
        follow.selectNamed(second, follow.other, b"c.jpg", 3)
        follow.desktop.activate(follow.window)
        follow.expectPath(os.path.join(follow.pictures, b"c.jpg"))
        follow.desktop.activate(second)
        follow.expectPath(os.path.join(follow.other, b"c.jpg"))
    finally:
        follow.desktop.activate(second)
        follow.desktop.keys("ctrl+w")
        waitFor(lambda: not follow.desktop.exists(second), 3)
        follow.desktop.activate(follow.window)


@case
def tabs(follow):
    """Two tabs of one window with the same name in each."""
    follow.selectNamed(follow.window, follow.pictures, b"c.jpg")
    follow.desktop.keys(*follow.manager.newTab)
    time.sleep(1)
    try:
        follow.selectNamed(follow.window, follow.pictures + b"/Andere", b"")
        follow.desktop.keys("Return")
        time.sleep(1)
        follow.selectNamed(follow.window, follow.other, b"c.jpg", 3)
        follow.desktop.keys("ctrl+Prior")
        follow.expectPath(os.path.join(follow.pictures, b"c.jpg"))
        follow.desktop.keys("ctrl+Next")
        follow.expectPath(os.path.join(follow.other, b"c.jpg"))
    finally:
        follow.desktop.keys("ctrl+w")
        time.sleep(0.5)


@case
def panes(follow):
    """A split window: the pane with the focus counts."""
    if not follow.manager.split:
        raise Skip("no split windows")
    follow.selectNamed(follow.window, follow.pictures, b"c.jpg")
    width, _ = follow.desktop.sizeOf(follow.window)
    follow.desktop.keys(follow.manager.split)
    time.sleep(1.5)
    try:
        follow.desktop.clickEmptySpace(follow.window, 0.97)
        follow.step = "Down" if follow.step == "Down" else "Right"
        follow.desktop.keys("Home", follow.step, "Home")
        time.sleep(0.6)
        right = follow.expectOne()
        follow.desktop.keys(follow.step)
        follow.expect(lambda paths: len(paths) == 1 and paths[0] != right, "the next item")
        moved = follow.probe.paths()[0]
        follow.desktop.clickEmptySpace(follow.window, 0.48)
        follow.desktop.keys("Home", follow.step, "Home", follow.step, follow.step)
        follow.expect(lambda paths: len(paths) == 1 and paths[0] not in (right, moved),
                      "an item of the left pane")
    finally:
        follow.desktop.keys(follow.manager.split)
        time.sleep(0.8)


@case
def intoAFolderAndBack(follow):
    """Going down into a folder and up again."""
    follow.selectNamed(follow.window, follow.pictures + b"/Andere", b"")
    follow.desktop.keys("Return")
    time.sleep(1)
    follow.selectNamed(follow.window, follow.other, b"c.jpg", 3)
    follow.desktop.keys("alt+Up")
    time.sleep(1)
    follow.selectNamed(follow.window, follow.pictures, b"d.nef")


@case
def scrolledOutOfView(follow):
    """What is selected stays selected when the view is scrolled away from it, also for a program
    that asks for the first time."""
    many = os.path.join(follow.pictures, b"Viele")
    os.makedirs(many)
    for number in range(MANY):
        with open(os.path.join(many, b"%03d.jpg" % number), "wb") as file:
            file.write(b"x")
    follow.settle()
    try:
        follow.selectNamed(follow.window, many, b"", len(NAMES) + 2)
        follow.desktop.keys("Return")
        time.sleep(1)
        follow.settle()
        follow.desktop.keys("Home", follow.step, "Home", follow.step)
        follow.settle()
        path = follow.expectOne()
        width, height = follow.desktop.sizeOf(follow.window)
        follow.desktop.xdotool("mousemove", "--window", follow.window, width // 2, height // 2,
                               "click", "--repeat", 60, "--delay", 15, 5)
        follow.settle()
        time.sleep(1)
        follow.expectPath(path, 0)
        follow.askAnew()
        follow.expectPath(path)
    finally:
        follow.kill()
        shutil.rmtree(many)
        follow.start()


@case
def vanishing(follow):
    """A file that goes away between its selection and the next question."""
    name = os.path.join(follow.pictures, b"weg.jpg")
    with open(name, "wb") as file:
        file.write(b"x")
    time.sleep(1.5)
    follow.selectNamed(follow.window, follow.pictures, b"weg.jpg", len(NAMES) + 2)
    os.remove(name)
    follow.expect(lambda paths: paths != [name], "anything but the file that is gone", 2)


@case
def stopped(follow):
    """A file manager that hangs holds nobody up for long, and is followed again when it is back."""
    follow.selectNamed(follow.window, follow.pictures, b"c.jpg")
    follow.probe.stats()
    os.kill(follow.process.pid, signal.SIGSTOP)
    try:
        time.sleep(4)
        stats = follow.probe.stats()
    finally:
        os.kill(follow.process.pid, signal.SIGCONT)
    if stats is None or stats[2] > 400000:
        raise Wrong(f"a question took {stats and stats[2]} microseconds")
    if stats[1] > 20000:
        raise Wrong(f"half of the questions took more than {stats[1]} microseconds")
    follow.expectPath(os.path.join(follow.pictures, b"c.jpg"), 3.5)


@case
def killedAndStartedAgain(follow):
    """A file manager that dies, and one that is started again."""
    follow.selectNamed(follow.window, follow.pictures, b"c.jpg")
    follow.kill()
    follow.expect(lambda paths: paths == [], "nothing", 3)
    time.sleep(0.5)
    follow.start()
    follow.selectNamed(follow.window, follow.pictures, b"d.nef")


@case
def accessibilityBusStartedAgain(follow):
    """The accessibility bus dies; a file manager that is started after that is followed."""
    bus = [pid for pid in follow.session.strays()
           if b"accessibility.conf" in open(f"/proc/{pid}/cmdline", "rb").read()]
    launcher = [pid for pid in follow.session.strays()
                if b"at-spi-bus-launcher" in open(f"/proc/{pid}/cmdline", "rb").read()]
    if not bus or not launcher:
        raise Skip("the accessibility bus of the session was not found")
    for pid in bus + launcher:
        os.kill(pid, signal.SIGKILL)
    follow.kill()
    time.sleep(1.5)
    follow.session.enableAccessibilityBus()
    follow.start()
    follow.selectNamed(follow.window, follow.pictures, b"d.nef")


@case
def desktopIcons(follow):
    """Icons on the desktop."""
    if not follow.manager.desktop:
        raise Skip("draws no desktop icons, or not in a way that is followed")
    folder = os.path.join(follow.session.home.encode(), b"Desktop")
    for name in (b"auf dem Tisch.jpg", b"c.jpg"):
        with open(os.path.join(folder, name), "wb") as file:
            file.write(b"x")
    follow.kill()
    process = follow.session.start(follow.manager.desktop, extra=follow.manager.extra)
    try:
        follow.process = process
        window = follow.desktop.newWindow([process])
        time.sleep(2)
        follow.desktop.click(window, 1000, 700)
        for key in ["Home"] + ["Down"] * 6 + ["Up"] * 6:
            follow.desktop.keys(key)
            if follow.probe.waitUntil(
                    lambda paths: paths == [os.path.join(folder, b"auf dem Tisch.jpg")], 0.6):
                return
        raise Wrong(f"the icon was never heard of, last {follow.probe.paths()}")
    finally:
        follow.session.end(process)


@case
def quiet(follow):
    """Nothing was written to the terminal all the while."""
    if follow.probe.messages().strip():
        raise Wrong(follow.probe.messages())


def makeLocale(root, name):
    """Makes a locale in a folder of the test's own; needs nothing to be generated on the system."""
    folder = os.path.join(root, "locale")
    os.makedirs(folder, exist_ok=True)
    language, _, charset = name.partition(".")
    done = subprocess.run(["localedef", "-i", language, "-f", charset,
                           os.path.join(folder, name)], capture_output=True, check=False)
    if done.returncode > 1:
        raise RigError(f"the locale {name} cannot be made: {done.stderr.decode().strip()}")
    return folder


def run(arguments):
    manager = managerNamed(arguments.manager)
    needed = [manager.command[0], "Xvfb", "openbox", "xdotool", "dbus-daemon", "gdbus"]
    missing = [program for program in needed if shutil.which(program) is None]
    if missing:
        print(f"skipped: {', '.join(missing)} not installed")
        return 77
    with DesktopSession(locale=arguments.locale, prepare=makeLocale) as session:
        follow = Follow(session, manager, Probe(session, arguments.probe))
        follow.start()
        return runCases(follow, CASES, arguments.case)


def runCases(follow, cases, wanted=None):
    """Runs the cases, or only the named ones; tells of each. Returns the exit status."""
    failures = 0
    for check in cases:
        if wanted and check.__name__ not in wanted:
            continue
        start = time.monotonic()
        try:
            check(follow)
            outcome = "ok"
        except Skip as reason:
            outcome = f"skipped: {reason}"
        except (Wrong, RigError) as error:
            failures += 1
            outcome = f"WRONG: {error}"
        print(f"{follow.manager.name}: {check.__name__}: {outcome} "
              f"({time.monotonic() - start:.1f} s)", flush=True)
    follow.probe.close()
    return 1 if failures else 0


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("probe")
    parser.add_argument("manager")
    parser.add_argument("--locale", default="C.UTF-8")
    parser.add_argument("--case", action="append")
    arguments = parser.parse_args()
    arguments.probe = os.path.abspath(arguments.probe)
    try:
        return run(arguments)
    except RigError as error:
        print(f"the surroundings could not be made: {error}")
        return 1


if __name__ == "__main__":
    sys.exit(main())
