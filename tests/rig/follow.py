"""A real file manager over a folder of pictures with odd names, driven by keys and the mouse, and
somebody who listens to what is selected in it: the probe, or the window itself."""

import os
import time

from cases import Wrong
from desktop import Desktop
from pictures import writePicture
from probe import Probe

NAMES = [b"a b.jpg", b"c.jpg", b"d.nef", "ü.jpg".encode(), "u\u0308d.jpg".encode(),
         b"x%20y&.jpg", b"h#;.jpg", b"line\nfeed.jpg", b"inv\xe4lid.jpg"]
WIDE = (1380, 840)
PATIENCE = 6  # seconds; a question is put five times a second, but the machine may be busy


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
