"""The program itself beside a file manager, and what its window shows, read over the accessibility bus as
by a screen reader. It has the methods of the probe, so that the cases of a file manager can run with
either."""

import json
import os
import time

from accessible import CHECKED, programNamed
from desktop import Desktop
from session import RigError, waitFor

STEP = 0.05  # seconds between two checks
CHECK_BOX = "Follow the selection in the file manager"
FIELDS = ("Name", "Size", "Coordinate")


class Window:
    def __init__(self, session, program, desktop=None):
        self.session = session
        self.program = program
        self.desktop = desktop or Desktop(session)
        self.log = os.path.join(session.root, "pinorama.log")
        self.process = None

    def open(self, *pictures):
        """Starts the program and finds the parts of its window."""
        self.process = self.session.start([self.program, *pictures])
        self.findParts()

    def findParts(self):
        """Finds the parts of the window of a program that was started."""
        self.window = self.find()
        root = waitFor(lambda: programNamed(self.session, "Pinorama"), 30, STEP)
        if not root:
            raise RigError("the program is not on the accessibility bus: " + self.messages())
        self.bus = root.bus
        self.parts = {}
        for each in root.everything():
            name = each.name
            if name in (*FIELDS, CHECK_BOX) and each.role in ("text", "check box"):
                self.parts[name] = each
        if len(self.parts) != len(FIELDS) + 1:
            raise RigError(f"the window has only these parts: {list(self.parts)}")

    def find(self):
        """The window on the screen."""
        try:
            return self.desktop.windowNamed("^Pinorama$")
        except RigError as error:
            raise RigError(f"{error}: {self.messages()}") from error

    def close(self):
        """Ends the program, as the end of a session does."""
        if self.process in self.session.processes:
            self.session.end(self.process)

    def text(self, field):
        return self.parts[field].text

    def shownPath(self):
        """The absolute path of the shown file, from the window's description; empty if there is none."""
        description = self.parts["Name"].description or ""
        return description if description.startswith("/") else ""  # before the first file it is a hint

    def follows(self):
        return self.parts[CHECK_BOX].has(CHECKED)

    def switchFollowing(self):
        """Clicks on the check box."""
        left, top, _, height = self.parts[CHECK_BOX].place()
        self.session.run(["xdotool", "windowactivate", "--sync", str(self.window), "mousemove",
                          str(left + height // 2), str(top + height // 2), "click", "1"])

    def preference(self):
        """The stored value of "finderSync"; None if nothing is stored."""
        path = os.path.join(self.session.home, ".config", "org.pinorama.Pinorama",
                            "preferences.json")
        try:
            with open(path, encoding="utf-8") as file:
                return json.load(file).get("finderSync")
        except FileNotFoundError:
            return None

    def paths(self):
        """The shown file in a list, as its exact bytes: those of the one file with this display name."""
        shown = self.shownPath()
        if not shown:
            return []
        if not hasattr(self, "byDisplay") or shown not in self.byDisplay:
            self.byDisplay = self.everythingByDisplay()
        return [self.byDisplay.get(shown, shown.encode())]

    def everythingByDisplay(self):
        byDisplay = {}
        for folder, folders, files in os.walk(self.session.home.encode()):
            folders[:] = [name for name in folders if not name.startswith(b".")]
            for name in [*files, *(name + b"/" for name in folders)]:
                path = os.path.join(folder, name)
                byDisplay[path.decode(errors="replace")] = path
        return byDisplay

    def waitUntil(self, condition, seconds):
        """Waits until `condition` is true of the shown paths; returns these or None."""
        paths = None

        def holds():
            nonlocal paths
            paths = self.paths()
            return condition(paths)
        return paths if waitFor(holds, seconds, STEP) else None

    def messages(self):
        """What the program has written to standard error."""
        with open(self.log, encoding="utf-8", errors="replace") as log:
            return log.read()


class Traffic:
    """Counts the calls of a process on a bus, until it is closed."""

    def __init__(self, session, address):
        self.session = session
        self.address = address
        self.log = os.path.join(session.root, f"traffic-{time.monotonic_ns()}")
        with open(self.log, "wb") as output:
            self.monitor = session.start(["dbus-monitor", "--profile", "--address", address],
                                         stdout=output)

    def namesOf(self, process):
        """The names of the process's connections to the bus."""
        names = self.callBus("ListNames") or ""
        unique = [word.strip("'[](),") for word in names.split()]
        return {name for name in unique if name.startswith(":") and
                self.callBus("GetConnectionUnixProcessID", name) == f"(uint32 {process.pid},)"}

    def callBus(self, method, *arguments):
        reply = self.session.run(["gdbus", "call", "--address", self.address, "--dest",
                                  "org.freedesktop.DBus", "--object-path", "/org/freedesktop/DBus",
                                  "--method", "org.freedesktop.DBus." + method, *arguments])
        return reply and reply.strip()

    def calls(self, names, seconds, to=None):
        """How many method calls the connections make within that time from now. With `to`, only the calls
        to these connections count."""
        start = os.path.getsize(self.log)
        time.sleep(seconds)
        with open(self.log, "rb") as log:
            log.seek(start)
            lines = log.read().decode(errors="replace").splitlines()
        words = [line.split("\t") for line in lines]
        return sum(1 for each in words if len(each) > 4 and each[0] == "mc" and each[3] in names and
                   (to is None or each[4] in to))

    def close(self):
        if self.monitor in self.session.processes:
            self.session.end(self.monitor)
