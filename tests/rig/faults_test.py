#!/usr/bin/env python3
"""Makes one real file manager, or the bus to it, fail beside the real window: the window stays usable,
shows nothing wrong, resumes following by itself, and writes nothing to the terminal.

usage: faults_test.py BIN_FOLDER MANAGER [--case NAME]...

Every case that could not run is named with its reason."""

import contextlib
import http.server
import os
import shutil
import signal
import threading
import time

from accessible import accessibilityBus
from beside import LONG_ENOUGH, Beside, runBeside
from cases import Cases, Skip, Wrong, require
from catalogue import Catalogue
from session import waitFor
from window import Traffic

RECOVERY = 3  # seconds until a file manager that is back is followed again
SLACK = 3  # seconds for the keys, and for the test itself to see it on a busy machine
MAX_RESPONSE_TIME = 1.5  # seconds; 0.3 for the program, the rest for a busy machine
cases = Cases()


class Faulty(Beside):
    """A file manager with the window beside it, in an environment where something will fail."""

    def __init__(self, session, manager, program, desktop):
        super().__init__(session, manager, program, desktop)
        self.catalogue = Catalogue(session)

    def maxResponseTime(self, seconds):
        """The maximum response time of the window over many calls."""
        end = time.monotonic() + seconds
        longest = 0
        while time.monotonic() < end:
            start = time.monotonic()
            require(self.shown.text("Name") is not None, "the window does not respond")
            longest = max(longest, time.monotonic() - start)
        return longest

    def expectResponsive(self):
        """The window responds in time, at least once in three attempts: the machine may stall meanwhile."""
        for _ in range(3):
            longest = self.maxResponseTime(3.5)
            if longest < MAX_RESPONSE_TIME:
                return
        raise Wrong(f"the window took {longest:.2f} s to respond")

    def expectUsable(self):
        """The window responds in time and, with nothing selected, shows a picture that is passed to it."""
        self.expectResponsive()
        given = os.path.join(self.other, b"e.jpg")
        require(self.session.run([self.shown.program, os.fsdecode(given)]) is not None,
                "the second start failed")
        self.expectShown(given, SLACK)

    def selectFirstOfAll(self):
        """Selects the first item, a folder, however long the file manager takes."""
        self.desktop.activate(self.window)
        self.desktop.clickEmptySpace(self.window)
        self.desktop.keys("Home", self.step, "Home")

    def expectFollowing(self):
        self.selectFirstOfAll()
        self.expectPath(self.other + b"/", RECOVERY + SLACK)
        self.select(b"c.jpg")
        self.expectShown(self.picture(b"c.jpg"))

    def expectNothingOf(self, address, allowed=None):
        """Opens a folder that is not on a local file system and selects its items. The window still shows
        the previous picture, or one below the local folder `allowed`."""
        shown = self.picture("ü.jpg".encode())
        self.selectNamed(self.window, self.pictures, "ü.jpg".encode())
        self.desktop.keys(*self.manager.goTo)
        self.desktop.xdotool("type", "--delay", 20, address)
        self.desktop.keys("Return")
        left = waitFor(lambda: "Bilder" not in (self.desktop.xdotool("getwindowname", self.window) or ""),
                       10)
        require(left, f"the file manager does not go to {address}")
        self.settle()
        for _ in range(2):
            self.selectFirstOfAll()
            for _ in range(3):
                self.settle()
                path = self.probe.paths()[0]
                isAllowed = allowed and path.startswith(os.fsencode(allowed) + b"/")
                require(path == shown or isAllowed, f"for {address} it shows {path}")
                self.desktop.keys(self.step)

    def startAgain(self):
        self.process = None
        self.start()


@cases.add
def stopped(faulty):
    """A file manager that hangs gets hardly any calls, and is followed again when it continues."""
    faulty.select(b"c.jpg")
    bus = Traffic(faulty.session, accessibilityBus(faulty.session))
    try:
        manager = bus.namesOf(faulty.process)
        window = bus.namesOf(faulty.shown.process)
        os.kill(faulty.process.pid, signal.SIGSTOP)
        try:
            time.sleep(1)  # the call without a reply is made within this time
            count = bus.calls(window, 3, manager)
            require(count <= 2, f"a file manager that does not reply got {count} calls in 3 s")
            faulty.expectUsable()
        finally:
            os.kill(faulty.process.pid, signal.SIGCONT)
        faulty.expectFollowing()
    finally:
        bus.close()


@cases.add
def killed(faulty):
    """A file manager that is killed, and another one that starts."""
    faulty.select(b"c.jpg")
    faulty.kill()
    faulty.expectStill(faulty.picture(b"c.jpg"))
    faulty.expectUsable()
    faulty.startAgain()
    faulty.expectFollowing()


@cases.add
def startedLater(faulty):
    """The window opens before any file manager."""
    faulty.shown.close()
    faulty.kill()
    faulty.shown.open()
    faulty.expectResponsive()
    faulty.startAgain()
    faulty.expectFollowing()


@cases.add
def vanishing(faulty):
    """Pictures that are deleted before the window reads them."""
    names = [os.path.join(faulty.pictures, b"0 weg %d.jpg" % number) for number in range(6)]
    for name in names:
        faulty.write(name, 50.5, 50.5)
    try:
        faulty.select(b"0 weg 0.jpg")
        # Each is removed while it is selected, just before the next one is.
        for name in names:
            faulty.desktop.xdotool("key", faulty.step)
            os.remove(name)
        faulty.expectResponsive()
    finally:
        for name in names:
            with contextlib.suppress(FileNotFoundError):
                os.remove(name)
    faulty.desktop.settle(faulty.process)
    faulty.select(b"c.jpg")
    faulty.expectShown(faulty.picture(b"c.jpg"))


@cases.add
def trash(faulty):
    """A folder that is not local, with names that a local folder has too."""
    command = faulty.manager.trash
    if not command:
        raise Skip("shows no Trash without a desktop's services")
    bin_ = os.path.join(faulty.session.home, ".local", "share", "Trash")
    for folder in ("files", "info"):
        os.makedirs(os.path.join(bin_, folder), exist_ok=True)
    for name in ("a b.jpg", "c.jpg"):
        shutil.copy(os.fsdecode(faulty.picture(name.encode())), os.path.join(bin_, "files", name))
        with open(os.path.join(bin_, "info", name + ".trashinfo"), "w", encoding="utf-8") as info:
            info.write("[Trash Info]\nPath=/nowhere/" + name.replace(" ", "%20") +
                       "\nDeletionDate=2026-01-02T03:04:05\n")
    faulty.kill()
    faulty.session.environment["GIO_USE_VFS"] = "gvfs"
    try:
        faulty.startAgain()
        faulty.expectNothingOf(command, bin_)
        faulty.kill()
    finally:
        faulty.session.environment["GIO_USE_VFS"] = "local"
    faulty.startAgain()
    faulty.expectFollowing()


class RemoteFolder(http.server.BaseHTTPRequestHandler):
    """A folder on a WebDAV server: c.jpg and e.jpg."""

    def do_PROPFIND(self):
        self.rfile.read(int(self.headers.get("Content-Length", 0)))
        names = ["c.jpg", "e.jpg"] if self.headers.get("Depth") != "0" else []
        entry = ("<D:response><D:href>/{}</D:href><D:propstat><D:prop>"
                 "<D:resourcetype>{}</D:resourcetype><D:getcontentlength>7</D:getcontentlength>"
                 "</D:prop><D:status>HTTP/1.1 200 OK</D:status></D:propstat></D:response>")
        body = ("<?xml version=\"1.0\"?><D:multistatus xmlns:D=\"DAV:\">" +
                entry.format("", "<D:collection/>") +
                "".join(entry.format(name, "") for name in names) + "</D:multistatus>").encode()
        self.send_response(207)
        self.send_header("Content-Type", "application/xml; charset=utf-8")
        self.send_header("Content-Length", str(len(body)))
        self.send_header("DAV", "1")
        self.end_headers()
        self.wfile.write(body)

    def do_OPTIONS(self):
        self.send_response(200)
        self.send_header("DAV", "1")
        self.send_header("Allow", "OPTIONS, PROPFIND, GET, HEAD")
        self.send_header("Content-Length", "0")
        self.end_headers()

    def do_GET(self):
        self.send_response(200)
        self.send_header("Content-Type", "image/jpeg")
        self.send_header("Content-Length", "7")
        self.end_headers()
        self.wfile.write(b"picture")

    do_HEAD = do_OPTIONS

    def log_message(self, *ignored):
        pass


@cases.add
def remoteFolder(faulty):
    """A folder on a server is not a local folder, although a local one may have the same names."""
    if not faulty.manager.remote:
        raise Skip("reaches no server without a desktop's services")
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), RemoteFolder)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    try:
        faulty.expectNothingOf(f"{faulty.manager.remote}://127.0.0.1:{server.server_address[1]}/")
    finally:
        server.shutdown()
        server.server_close()
    faulty.kill()
    faulty.startAgain()
    faulty.expectFollowing()


def followsBlindly(faulty):
    """Checks the shown place with the window's button, without a bus to read the window on."""
    faulty.startAgain()
    wanted = faulty.places[faulty.picture(b"c.jpg")]

    def isFollowed():
        faulty.desktop.activate(faulty.window)
        faulty.desktop.clickEmptySpace(faulty.window)
        faulty.desktop.keys("Home", faulty.step, "Home")
        for _ in range(4):
            faulty.settle()
            if faulty.catalogue.shownPlace(faulty.shown.window) == wanted:
                return True
            faulty.desktop.activate(faulty.window)
            faulty.desktop.keys(faulty.step)
        return False
    require(waitFor(isFollowed, 15, 0), f"the window never showed the picture at {wanted}")


@cases.add
def busStartedAgain(faulty):
    """The accessibility bus is killed, with and without its launcher, and starts again."""
    faulty.select(b"a b.jpg")
    for alsoTheLauncher in (False, True):
        faulty.kill()
        for pid in faulty.session.accessibilityBusProcesses(alsoTheLauncher):
            os.kill(pid, signal.SIGKILL)
        time.sleep(LONG_ENOUGH)
        given = os.path.join(faulty.other, b"e.jpg")
        require(faulty.session.run([faulty.shown.program, os.fsdecode(given)]) is not None,
                "the window does not accept a file")
        place = faulty.catalogue.shownPlace(faulty.shown.window)
        require(place == faulty.places[given], f"without the bus the window shows {place}")
        faulty.session.enableAccessibilityBus()
        followsBlindly(faulty)


@cases.add
def quiet(faulty):
    """The window has written nothing to the terminal, but for what Qt 6.11 says when the accessibility bus ends."""
    lines = faulty.shown.messages().splitlines(keepends=True)
    text = "".join(line for line in lines if not line.startswith("Accessibility encountered a DBus error: "))
    require(not text.strip(), f"{len(text)} characters: {text[:2000]}")


if __name__ == "__main__":
    runBeside(cases, Faulty)
