#!/usr/bin/env python3
"""Drives one real file manager and checks what the selection source returns.

usage: follow_test.py PROBE MANAGER [--locale de_DE.UTF-8] [--case NAME]...

PROBE is the program selection_probe. Every case that could not run is named with its reason."""

import argparse
import os
import shutil
import signal
import subprocess
import time

from cases import Cases, Skip, Wrong
from follow import MALFORMED, Follow
from managers import managerNamed
from probe import Probe
from running import need, run
from session import DesktopSession, RigError, waitFor

MANY = 400  # files; no view shows them all
TIME = 450  # seconds in all
cases = Cases()


@cases.add
def names(follow):
    """Every name, also the odd ones, as its exact bytes."""
    seen = follow.walk(len(follow.names) + 1)
    if set(seen) != follow.expectedItems():
        raise Wrong(f"missing {follow.expectedItems() - set(seen)}, too many "
                    f"{set(seen) - follow.expectedItems()}")


@cases.add
def malformedName(follow):
    """A name that the file manager hides because it is not UTF-8: no path, and never that of another file."""
    if MALFORMED in follow.names:
        raise Skip("one of the names")
    path = os.path.join(follow.pictures, MALFORMED)
    follow.write(path, 30.5, 30.5)
    time.sleep(1.5)
    try:
        follow.selectFirst()
        seen = [[follow.expectOne()]]
        for _ in range(len(follow.names) + 1):
            follow.desktop.keys(follow.step)
            paths = follow.probe.waitUntil(lambda paths: len(paths) == 1 and paths not in seen, 3)
            seen.append(paths or follow.probe.paths())
        if seen.count([]) != 1 or {paths[0] for paths in seen if paths} != follow.expectedItems():
            raise Wrong(f"expected every other item and nothing once, got {seen}")
    finally:
        os.remove(path)
        time.sleep(1.5)


@cases.add
def noneAndSeveral(follow):
    """Neither an empty selection nor several items give one path; several come in the view's order."""
    order = follow.walk(len(follow.names) + 1)
    follow.desktop.clickEmptySpace(follow.window)
    follow.expect(lambda paths: paths == [], "an empty selection")
    follow.selectFirst()
    follow.expectPath(order[0])
    follow.desktop.keys("shift+" + follow.step)
    follow.expectNotOne()
    if follow.manager.reportsSeveral:
        follow.expect(lambda paths: paths == order[:2], order[:2])
    follow.settle()
    follow.expectNotOne(0)
    follow.desktop.keys("ctrl+a")
    follow.expectNotOne()
    if follow.manager.reportsSeveral:
        follow.expect(lambda paths: paths == order, order)
    follow.settle()
    follow.expectNotOne(0)


@cases.add
def otherViews(follow):
    """List and compact views."""
    views = [view for view in follow.manager.views if view != follow.manager.firstView]
    if not views:
        raise Skip("no other views by keyboard")
    try:
        for view in views:
            follow.switchView(view)
            seen = follow.walk(len(follow.names) + 1)
            if set(seen) != follow.expectedItems():
                raise Wrong(f"{view}: missing {follow.expectedItems() - set(seen)}")
    finally:
        follow.switchView(follow.manager.firstView)


@cases.add
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


@cases.add
def ownWindowInFront(follow):
    """Another program's window in front, such as our own, changes nothing."""
    follow.selectNamed(follow.window, follow.pictures, b"c.jpg")
    message = follow.session.start(["xmessage", "-geometry", "300x100+900+600", "in front"])
    try:
        window = waitFor(lambda: follow.desktop.xdotool("search", "--name", "xmessage"), 20)
        follow.desktop.activate(int(window.split()[0]))
        time.sleep(1)
        follow.expectPath(os.path.join(follow.pictures, b"c.jpg"), 0.5)
    finally:
        follow.session.end(message)


@cases.add
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


@cases.add
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
        follow.desktop.keys(follow.manager.toTabs[0])
        follow.expectPath(os.path.join(follow.pictures, b"c.jpg"))
        follow.desktop.keys(follow.manager.toTabs[1])
        follow.expectPath(os.path.join(follow.other, b"c.jpg"))
    finally:
        follow.desktop.keys("ctrl+w")
        time.sleep(0.5)


def usePanes(follow, leftStep, rightStep):
    """Selects in the left pane, opens the right one, selects there, and then in the left one again."""
    follow.step = leftStep
    follow.selectNamed(follow.window, follow.pictures, b"c.jpg")
    follow.desktop.keys(follow.manager.split)
    time.sleep(1.5)
    try:
        follow.desktop.clickEmptySpace(follow.window, 0.97)
        follow.desktop.keys("Home", rightStep, "Home")
        time.sleep(0.6)
        right = follow.expectOne()
        follow.desktop.keys(rightStep)
        follow.expect(lambda paths: len(paths) == 1 and paths[0] != right, "the next item")
        moved = follow.probe.paths()[0]
        follow.desktop.clickEmptySpace(follow.window, 0.48)
        follow.desktop.keys("Home", leftStep, "Home", leftStep, leftStep)
        follow.expect(lambda paths: len(paths) == 1 and paths[0] not in (right, moved) and
                      paths[0].startswith(follow.pictures + b"/"), "an item of the left pane")
    finally:
        follow.desktop.keys(follow.manager.split)
        time.sleep(0.8)


@cases.add
def panes(follow):
    """A split window: the pane with the focus counts."""
    if not follow.manager.split:
        raise Skip("no split windows")
    try:
        for view, (leftStep, rightStep) in follow.manager.splitViews.items():
            follow.startWithView(view)
            usePanes(follow, leftStep, rightStep)
        if not follow.manager.splitViews:
            usePanes(follow, follow.step, follow.step)
    finally:
        follow.switchView(follow.manager.firstView)


@cases.add
def intoAFolderAndBack(follow):
    """Going down into a folder and up again."""
    follow.selectNamed(follow.window, follow.pictures + b"/Andere", b"")
    follow.desktop.keys("Return")
    time.sleep(1)
    follow.selectNamed(follow.window, follow.other, b"c.jpg", 3)
    follow.desktop.keys("alt+Up")
    time.sleep(1)
    follow.selectNamed(follow.window, follow.pictures, b"d.nef")


@cases.add
def expandedFolder(follow):
    """Two pictures of one name, one of them in a folder that is open within the list."""
    if not follow.manager.expand:
        raise Skip("no folder can be opened within a list")
    follow.switchView("list")
    try:
        order = follow.walk(len(follow.names) + 1)
        if order[0] != follow.other + b"/":
            raise Wrong(f"the folder is not the first item: {order[0]}")
        follow.selectFirst()
        follow.desktop.keys(follow.manager.expand)
        time.sleep(1)
        inside = [os.path.join(follow.other, name) for name in (b"c.jpg", b"e.jpg")]
        expected = [[path] for path in [order[0], *inside, *order[1:]]]
        if not follow.manager.tellsFolders:
            upper = os.path.join(follow.pictures, b"c.jpg")
            expected = [[] if path[0] in (upper, *inside) else path for path in expected]
        for paths in expected:
            follow.settle()
            follow.expect(lambda now, paths=paths: now == paths, paths)
            follow.desktop.keys("Down")
    finally:
        follow.kill()
        follow.start()


@cases.add
def resultsOfASearch(follow):
    """Two pictures of one name in different folders, found by a search."""
    if follow.manager.findsLocations is None:
        raise Skip("not searched")
    follow.switchView("list")
    follow.selectNamed(follow.window, follow.pictures, b"d.nef")
    try:
        follow.search("c.jpg")
        follow.desktop.keys("Home")
        seen = []
        for _ in range(3):  # the first key may only select the first of the two
            follow.settle()
            time.sleep(1.5)
            seen += follow.probe.paths()
            follow.desktop.keys("Down")
        both = {os.path.join(folder, b"c.jpg") for folder in (follow.pictures, follow.other)}
        if follow.manager.findsLocations and set(seen) != both:
            raise Wrong(f"expected {both}, got {seen}")
        if not follow.manager.findsLocations and seen:
            raise Wrong(f"expected nothing, got {seen}")
    finally:
        follow.kill()
        follow.start()


@cases.add
def scrolledOutOfView(follow):
    """The selected item is still found after the view has been scrolled away from it, also by a probe that
    queries for the first time."""
    many = os.path.join(follow.pictures, b"Viele")
    os.makedirs(many)
    for number in range(MANY):
        with open(os.path.join(many, b"%03d.jpg" % number), "wb") as file:
            file.write(b"x")
    follow.settle()
    try:
        follow.selectNamed(follow.window, many, b"", len(follow.names) + 2)
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
        follow.restartProbe()
        if follow.manager.isSince(follow.manager.hidesUnseen):
            time.sleep(2)
            follow.expect(lambda paths: paths == [], "nothing", 0)
            follow.desktop.keys("shift+" + follow.step, "shift+Left" if follow.step == "Right" else "shift+Up")
        follow.expectPath(path)
    finally:
        follow.kill()
        shutil.rmtree(many)
        follow.start()


@cases.add
def vanishing(follow):
    """A file that is deleted between its selection and the next query."""
    name = os.path.join(follow.pictures, b"weg.jpg")
    with open(name, "wb") as file:
        file.write(b"x")
    time.sleep(1.5)
    follow.selectNamed(follow.window, follow.pictures, b"weg.jpg", len(follow.names) + 2)
    os.remove(name)
    follow.expect(lambda paths: paths != [name], "anything but the file that is gone", 2)


@cases.add
def stopped(follow):
    """A file manager that hangs does not block the query for long, and is followed again when it is back."""
    follow.selectNamed(follow.window, follow.pictures, b"c.jpg")
    follow.probe.stats()
    os.kill(follow.process.pid, signal.SIGSTOP)
    try:
        time.sleep(4)
        stats = follow.probe.stats()
    finally:
        os.kill(follow.process.pid, signal.SIGCONT)
    if stats is None or stats[2] > 400000:
        raise Wrong(f"a query took {stats and stats[2]} microseconds")
    if stats[1] > 20000:
        raise Wrong(f"half of the queries took more than {stats[1]} microseconds")
    follow.expectPath(os.path.join(follow.pictures, b"c.jpg"), 3.5)


@cases.add
def killedAndStartedAgain(follow):
    """A file manager that is killed and started again."""
    follow.selectNamed(follow.window, follow.pictures, b"c.jpg")
    follow.kill()
    follow.expect(lambda paths: paths == [], "nothing", 3)
    time.sleep(0.5)
    follow.start()
    follow.selectNamed(follow.window, follow.pictures, b"d.nef")


@cases.add
def accessibilityBusStartedAgain(follow):
    """After the accessibility bus was killed, a file manager that starts later is followed."""
    bus = follow.session.accessibilityBusProcesses()
    for pid in bus:
        os.kill(pid, signal.SIGKILL)
    follow.kill()
    time.sleep(1.5)
    follow.session.enableAccessibilityBus()
    follow.start()
    follow.selectNamed(follow.window, follow.pictures, b"d.nef")


@cases.add
def desktopIcons(follow):
    """Icons on the desktop."""
    if not follow.manager.desktop:
        raise Skip("draws no desktop icons, or none that can be followed")
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
        raise Wrong(f"the icon was never selected, last {follow.probe.paths()}")
    finally:
        follow.session.end(process)


@cases.add
def quiet(follow):
    """The probe has written nothing to standard error."""
    if follow.probe.messages().strip():
        raise Wrong(follow.probe.messages())


def makeLocale(root, name):
    """Generates a locale in a folder of the test; the system needs no generated locales."""
    folder = os.path.join(root, "locale")
    os.makedirs(folder, exist_ok=True)
    language, _, charset = name.partition(".")
    done = subprocess.run(["localedef", "-i", language, "-f", charset,
                           os.path.join(folder, name)], capture_output=True, check=False)
    if done.returncode > 1:
        raise RigError(f"the locale {name} cannot be generated: {done.stderr.decode().strip()}")
    return folder


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("probe")
    parser.add_argument("manager")
    parser.add_argument("--locale", default="C.UTF-8")
    parser.add_argument("--case", action="append", choices=cases.names())
    arguments = parser.parse_args()
    manager = managerNamed(arguments.manager)
    need(manager.command[0], "xmessage")
    with DesktopSession(locale=arguments.locale, prepare=makeLocale) as session:
        follow = Follow(session, manager, Probe(session, os.path.abspath(arguments.probe)))
        follow.start()
        status = cases.run(manager.name, follow, arguments.case)
        follow.probe.close()
        return status


if __name__ == "__main__":
    run(main, TIME)
