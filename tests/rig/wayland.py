"""A private desktop as in session.py, on a Wayland compositor without a display. No X server runs in it, so that
every program is a Wayland client."""

import json
import os
import re
import time

from desktop import PAUSE, Desktop
from session import DesktopSession, RigError, waitFor
from wayland_input import VirtualInput

SCREEN = (1400, 900)


class WaylandSession(DesktopSession):
    """A context manager. `input` is its keyboard and its mouse."""

    socket = "wayland-1"  # in XDG_RUNTIME_DIR
    input = None

    def _startDisplay(self):
        self.environment.update({
            "GDK_BACKEND": "wayland",
            "QT_QPA_PLATFORM": "wayland",
            "XDG_SESSION_TYPE": "wayland",
            "WAYLAND_DISPLAY": self.socket,
        })

    def _startWindowManager(self):
        self.windowManager = self.startCompositor()
        if not waitFor(self.isManaged, 40):
            raise RigError(f"{self.windowManager.args[0]} did not start")
        try:
            self.input = self.makeInput(os.path.join(self.environment["XDG_RUNTIME_DIR"], self.socket))
        except OSError as error:
            raise RigError(f"no keys on {self.windowManager.args[0]}: {error}") from error

    def close(self):
        if self.input:
            self.input.close()
        super().close()


class WaylandDesktop(Desktop):
    """Windows, keys and the mouse. A window is known by the compositor's name for it; windows() returns a
    dictionary of "pid", "title", "x", "y", "width", "height" and "focused" for each of these names."""

    def xdotool(self, *arguments):
        raise RigError(f"there is no X server for xdotool {arguments}")

    def windowsOf(self, process):
        return [window for window, facts in self.windows().items() if facts["pid"] == process.pid]

    def windowNamed(self, pattern, seconds=30):
        found = waitFor(lambda: [window for window, facts in self.windows().items()
                                 if re.search(pattern, facts["title"])], seconds)
        if not found:
            raise RigError(f"no window {pattern} appeared")
        return found[0]

    def titleOf(self, window):
        return self.windows().get(window, {}).get("title", "")

    def inFront(self):
        return next((window for window, facts in self.windows().items() if facts["focused"]), None)

    def exists(self, window):
        return window in self.windows()

    def sizeOf(self, window):
        facts = self.windows().get(window)
        return (facts["width"], facts["height"]) if facts else (0, 0)

    def activate(self, window):
        self.focus(window)
        waitFor(lambda: self.windows().get(window, {}).get("focused"), 3, 0.05)
        time.sleep(PAUSE)

    def resize(self, window, width, height):
        self.place(window, 4, 24, width, height)
        time.sleep(0.4)

    def click(self, window, x, y, button=1):
        facts = self.windows()[window]
        self.session.input.click(facts["x"] + x, facts["y"] + y)
        time.sleep(PAUSE)

    def keys(self, *keys):
        for key in keys:
            self.session.input.press(key.split("+"))
            time.sleep(PAUSE)


SWAY_CONFIGURATION = """xwayland disable
default_border none
default_floating_border none
focus_follows_mouse no
focus_on_window_activation focus
output HEADLESS-1 resolution {}x{}
for_window [app_id=".*"] floating enable
"""


class SwaySession(WaylandSession):
    """sway refuses to run for root."""

    def startCompositor(self):
        self.environment["SWAYSOCK"] = os.path.join(self.root, "sway.sock")
        path = os.path.join(self.root, "sway.conf")
        with open(path, "w", encoding="utf-8") as configuration:
            configuration.write(SWAY_CONFIGURATION.format(*SCREEN))
        return self.start(["sway", "-c", path], extra={
            "WLR_BACKENDS": "headless", "WLR_LIBINPUT_NO_DEVICES": "1", "WLR_RENDERER": "pixman"})

    def isManaged(self):
        return self.run(["swaymsg", "-t", "get_version"]) is not None

    def makeInput(self, path):
        return VirtualInput(path, SCREEN)


class SwayDesktop(WaylandDesktop):
    def windows(self):
        found = {}

        def visit(node):
            if node.get("pid") and not node.get("nodes"):
                found[node["id"]] = {**node["rect"], "pid": node["pid"], "title": node.get("name") or "",
                                     "focused": node["focused"]}
            for child in node.get("nodes", []) + node.get("floating_nodes", []):
                visit(child)
        tree = self.session.run(["swaymsg", "-r", "-t", "get_tree"])
        if tree:
            visit(json.loads(tree))
        return found

    def focus(self, window):
        self.session.run(["swaymsg", f"[con_id={window}] focus"])

    def place(self, window, x, y, width, height):
        self.session.run(["swaymsg", f"[con_id={window}] resize set {width} {height}"])
        self.session.run(["swaymsg", f"[con_id={window}] move absolute position {x} {y}"])
