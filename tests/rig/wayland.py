"""A private desktop as in session.py, on a Wayland compositor without a display: sway. No X server runs in it, so
that every program is a Wayland client."""

import json
import os
import re
import time

from desktop import PAUSE, Desktop
from session import DesktopSession, RigError, waitFor
from wayland_input import VirtualInput

SCREEN = (1400, 900)
SOCKET = "wayland-1"  # the first that sway takes in a new folder
CONFIGURATION = """xwayland disable
default_border none
default_floating_border none
focus_follows_mouse no
focus_on_window_activation focus
output HEADLESS-1 resolution {}x{}
for_window [app_id=".*"] floating enable
"""


class SwaySession(DesktopSession):
    """A context manager. `input` is its keyboard and its mouse."""

    input = None

    def _startDisplay(self):
        self.environment.update({
            "GDK_BACKEND": "wayland",
            "QT_QPA_PLATFORM": "wayland",
            "XDG_SESSION_TYPE": "wayland",
            "WAYLAND_DISPLAY": SOCKET,
            "SWAYSOCK": os.path.join(self.root, "sway.sock"),
        })

    def _startWindowManager(self):
        path = os.path.join(self.root, "sway.conf")
        with open(path, "w", encoding="utf-8") as configuration:
            configuration.write(CONFIGURATION.format(*SCREEN))
        self.windowManager = self.start(["sway", "-c", path], extra={
            "WLR_BACKENDS": "headless", "WLR_LIBINPUT_NO_DEVICES": "1", "WLR_RENDERER": "pixman"})
        if not waitFor(self.isManaged, 30):
            raise RigError("sway did not start")
        try:
            self.input = VirtualInput(os.path.join(self.environment["XDG_RUNTIME_DIR"], SOCKET), SCREEN)
        except OSError as error:
            raise RigError(f"no keys on sway: {error}") from error

    def isManaged(self):
        return self.run(["swaymsg", "-t", "get_version"]) is not None

    def close(self):
        if self.input:
            self.input.close()
        super().close()


class SwayDesktop(Desktop):
    """Windows, keys and the mouse; a window is known by sway's number for it."""

    def windows(self):
        """The windows by their numbers, as sway describes them."""
        found = {}

        def visit(node):
            if node.get("pid") and not node.get("nodes"):
                found[node["id"]] = node
            for child in node.get("nodes", []) + node.get("floating_nodes", []):
                visit(child)
        tree = self.session.run(["swaymsg", "-r", "-t", "get_tree"])
        if tree:
            visit(json.loads(tree))
        return found

    def command(self, window, what):
        self.session.run(["swaymsg", f"[con_id={window}] {what}"])

    def xdotool(self, *arguments):
        raise RigError(f"there is no X server for xdotool {arguments}")

    def windowsOf(self, process):
        return [window for window, node in self.windows().items() if node["pid"] == process.pid]

    def windowNamed(self, pattern, seconds=30):
        found = waitFor(lambda: [window for window, node in self.windows().items()
                                 if re.search(pattern, node.get("name") or "")], seconds)
        if not found:
            raise RigError(f"no window {pattern} appeared")
        return found[0]

    def exists(self, window):
        return window in self.windows()

    def sizeOf(self, window):
        place = self.windows().get(window, {}).get("rect", {})
        return place.get("width", 0), place.get("height", 0)

    def activate(self, window):
        self.command(window, "focus")
        waitFor(lambda: self.windows().get(window, {}).get("focused"), 3, 0.05)
        time.sleep(PAUSE)

    def resize(self, window, width, height):
        self.command(window, f"resize set {width} {height}")
        self.command(window, "move absolute position 4 24")
        time.sleep(0.4)

    def click(self, window, x, y, button=1):
        place = self.windows()[window]["rect"]
        self.session.input.click(place["x"] + x, place["y"] + y)
        time.sleep(PAUSE)

    def keys(self, *keys):
        for key in keys:
            self.session.input.press(key.split("+"))
            time.sleep(PAUSE)
