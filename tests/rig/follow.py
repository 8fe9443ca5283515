"""A real file manager that shows a folder of pictures with odd names, driven by keys and the mouse, and an
observer of what is selected in it: the probe, or the window itself."""

import os
import time

from cases import Wrong
from desktop import Desktop, ProcessorUse
from pictures import writePicture
from probe import Probe

NAMES = [b"a b.jpg", b"c.jpg", b"d.nef", "ü.jpg".encode(), "u\u0308d.jpg".encode(),
         b"x%20y&.jpg", b"h#;.jpg", b"line\nfeed.jpg"]
MALFORMED = b"inv\xe4lid.jpg"
WIDE = (1380, 840)
PATIENCE = 6  # seconds; a query runs five times a second, but the machine may be busy


class Follow:
    def __init__(self, session, manager, probe, desktop=None):
        self.session = session
        self.manager = manager
        self.probe = probe
        self.desktop = desktop or Desktop(session)
        self.pictures = os.path.join(session.home.encode(), b"Bilder")
        self.other = os.path.join(self.pictures, b"Andere")
        os.makedirs(self.other, exist_ok=True)
        self.places = {}  # path of a picture -> latitude and longitude
        self.names = [*NAMES, *([] if manager.isSince(manager.hidesMalformed) else [MALFORMED])]
        for number, name in enumerate(self.names):
            self.write(os.path.join(self.pictures, name), 10.5 + number, 60.5 + number)
        for number, name in enumerate((b"c.jpg", b"e.jpg")):
            self.write(os.path.join(self.other, name), 40.5 + number, 20.5 + number)
        self.process = None
        self.window = None
        self.settledView = None  # where settings choose the view
        self.settleView(manager.firstView)

    def write(self, path, latitude, longitude):
        writePicture(path, latitude, longitude)
        self.places[path] = (latitude, longitude)

    def open(self, folder=None, before=()):
        folder = folder or self.pictures
        process = self.session.start([*self.manager.command, os.fsdecode(folder)],
                                     extra=self.manager.extra)
        # In most file managers a second start passes the folder to the running process.
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

    def restartProbe(self):
        """Replaces the probe by one that knows nothing yet."""
        self.probe.close()
        self.probe = Probe(self.session, self.probe.program)

    def kill(self):
        self.process.kill()
        self.process.wait()

    def settleView(self, view):
        """Where settings choose the view, writes them for the next start."""
        settings = self.manager.viewSettings.get(view)
        if not settings:
            return
        path = os.path.join(self.session.home, self.manager.settingsFile)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(settings)
        self.settledView = view

    def switchView(self, view):
        keys, self.step = self.manager.views[view]
        self.startWithView(view)
        self.desktop.clickEmptySpace(self.window)
        self.desktop.keys(*keys)
        time.sleep(0.8)

    def startWithView(self, view):
        """Where settings choose the view, starts the file manager anew if it shows another one."""
        if view in self.manager.viewSettings and view != self.settledView:
            self.kill()
            self.settleView(view)
            self.window = self.open()

    def search(self, text):
        """Shows what a search below the open folder finds."""
        self.desktop.keys("ctrl+f")
        time.sleep(1)
        self.desktop.xdotool("type", "--delay", 60, text)
        self.desktop.keys("Return")
        time.sleep(2)
        self.desktop.clickEmptySpace(self.window, 0.6)

    def state(self):
        """What helps to understand a failure: whether the file manager runs, its windows with their titles, which
        window has the focus, and how the probe's queries go."""
        titles = {window: self.desktop.titleOf(window) for window in self.desktop.windowsOf(self.process)}
        front = self.desktop.inFront()
        use = ProcessorUse(self.process.pid)
        stats = self.probe.stats() if isinstance(self.probe, Probe) and self.probe.process.poll() is None else None
        return (f"ended with {self.process.poll()}, waits {use.waits}, windows {titles}, in front {front}, "
                f"queries {stats}")

    def startAgain(self):
        self.kill()
        self.start()

    def selectFirst(self):
        self.desktop.clickEmptySpace(self.window)
        self.desktop.keys("Home", self.step, "Home")
        self.settle()

    def settle(self):
        """Waits until the file manager is idle, and for two queries after that, so that the result is not
        an intermediate one."""
        self.desktop.settle(self.process)
        time.sleep(0.4)

    def expect(self, condition, what, seconds=PATIENCE):
        paths = self.probe.waitUntil(condition, seconds)
        if paths is None:
            raise Wrong(f"expected {what}, got {self.probe.paths()}")
        return paths

    def expectPath(self, path, seconds=PATIENCE):
        self.expect(lambda paths: paths == [path], path, seconds)

    def expectOne(self, seconds=PATIENCE):
        return self.expect(lambda paths: len(paths) == 1, "one path", seconds)[0]

    def expectNotOne(self, seconds=PATIENCE):
        self.expect(lambda paths: len(paths) != 1, "none or several", seconds)

    def walk(self, count):
        """Selects one item after the other with the keyboard; returns the paths in the view's order."""
        self.selectFirst()
        seen = []
        for _ in range(count):
            path = self.expect(lambda paths: len(paths) == 1 and paths[0] not in seen,
                               f"one more path than {seen}")[0]
            seen.append(path)
            self.desktop.keys(self.step)
        return seen

    def expectedItems(self):
        return {os.path.join(self.pictures, name) for name in self.names} | {self.other + b"/"}

    def selectNamed(self, window, folder, name, steps=None):
        """Moves the selection with the keyboard until `name` of `folder` is selected."""
        wanted = os.path.join(folder, name)
        for _ in range(2):  # a busy machine may need a second round
            self.desktop.clickEmptySpace(window)
            self.desktop.keys("Home", self.step, "Home")
            self.settle()
            for _ in range((steps or len(self.names) + 1) + 1):
                current = self.probe.paths()
                if current == [wanted]:
                    self.settle()  # an earlier key may still move the selection
                    if self.probe.paths() == [wanted]:
                        return
                    continue
                self.desktop.keys(self.step)
                self.probe.waitUntil(lambda paths: paths and paths != current, 1.5)
        raise Wrong(f"{wanted} was never selected, last {self.probe.paths()}")
