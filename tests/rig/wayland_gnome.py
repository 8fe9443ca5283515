"""GNOME Shell as the compositor of a test. Scripts that it evaluates itself read its windows and press keys; it
needs a system bus with a stand-in for logind."""

import ast
import json
import os
import re
import subprocess
import time

from session import BUS_WITHOUT_SERVICES, RigError, waitFor
from wayland import SCREEN, WaylandDesktop, WaylandSession
from wayland_input import CODES

# Without this GNOME Shell starts Nautilus itself, as one that provides results of searches.
SETTINGS = """
[org/gnome/desktop/search-providers]
disable-external=true

[org/gnome/desktop/interface]
enable-hot-corners=false

[org/gnome/shell]
welcome-dialog-last-shown-version='99'
"""
LIST = """global.get_window_actors().map(actor => actor.meta_window).filter(each =>
    [0, 1, 3].includes(each.get_window_type())).map(each => {
        const place = each.get_frame_rect();
        return {id: each.get_id(), pid: each.get_pid(), program: each.get_wm_class() || '',
                title: each.get_title() || '', x: place.x, y: place.y, width: place.width,
                height: place.height, focused: each.has_focus()};
    })"""
ONE = "global.get_window_actors().map(actor => actor.meta_window).filter(each => each.get_id() == {})" \
      ".forEach(each => {{ {} }}); 1"
DEVICES = """const Clutter = imports.gi.Clutter;
const seat = global.stage.context.get_backend().get_default_seat();
global.testKeyboard = seat.create_virtual_device(Clutter.InputDeviceType.KEYBOARD_DEVICE);
global.testMouse = seat.create_virtual_device(Clutter.InputDeviceType.POINTER_DEVICE);
1"""


class GnomeSession(WaylandSession):
    socket = "wayland-5"

    def _writeSettings(self):
        super()._writeSettings()
        path = os.path.join(self.home, ".config", "glib-2.0", "settings", "keyfile")
        with open(path, "a", encoding="utf-8") as settings:
            settings.write(SETTINGS)

    def startCompositor(self):
        self.environment["XDG_CURRENT_DESKTOP"] = "GNOME"
        configuration = os.path.join(self.root, "system.conf")
        with open(configuration, "w", encoding="utf-8") as file:
            file.write(BUS_WITHOUT_SERVICES.format(self.root))
        bus = self.start(["dbus-daemon", "--config-file=" + configuration, "--nofork", "--print-address=1"],
                         stdout=subprocess.PIPE)
        address = bus.stdout.readline().decode().strip()
        self.environment["DBUS_SYSTEM_BUS_ADDRESS"] = address
        self.start(["/usr/bin/python3", "-m", "dbusmock", "--system", "--template", "logind"])
        ping = ["gdbus", "call", "--address", address, "--dest", "org.freedesktop.login1", "--object-path",
                "/org/freedesktop/login1", "--method", "org.freedesktop.DBus.Peer.Ping"]
        if not waitFor(lambda: self.run(ping) is not None, 30):
            raise RigError("the stand-in for logind did not start")
        self.run(["dbus-update-activation-environment", "--all"])
        return self.start(["gnome-shell", "--headless", "--wayland", "--no-x11", "--unsafe-mode",
                           "--wayland-display", self.socket, "--virtual-monitor", f"{SCREEN[0]}x{SCREEN[1]}"])

    def isManaged(self):
        if self.evaluate("Main.layoutManager._startingUp") is not False:
            return False
        self.evaluate("Main.overview.hide(); 1")
        return self.evaluate("Main.overview.visible") is False

    def makeInput(self, path):
        if self.evaluate(DEVICES) != 1:
            raise OSError("no virtual devices")
        return GnomeInput(self)

    def evaluate(self, script):
        """The value of a script; None if it fails."""
        output = self.call("org.gnome.Shell", "/org/gnome/Shell", "org.gnome.Shell.Eval", script) or ""
        found = re.match(r"^\(true, (.*)\)\s*$", output, re.S)
        text = ast.literal_eval(found[1]) if found else ""
        return json.loads(text) if text else None


class GnomeInput:
    """Keys and the mouse, by virtual devices of GNOME Shell itself."""

    def __init__(self, session):
        self.session = session

    def run(self, steps):
        self.session.evaluate("const Clutter = imports.gi.Clutter; const keyboard = global.testKeyboard;"
                              "const mouse = global.testMouse;"
                              "const now = () => imports.gi.GLib.get_monotonic_time();" + steps + "1")

    def press(self, names):
        self.run("".join(f"keyboard.notify_key(now(), {CODES[name]}, Clutter.KeyState.PRESSED);"
                         for name in names) +
                 "".join(f"keyboard.notify_key(now(), {CODES[name]}, Clutter.KeyState.RELEASED);"
                         for name in reversed(names)))

    def move(self, x, y):
        """Whether the mouse is there. The first motion of GNOME Shell 50 is only sideways, along the upper edge."""
        self.run(f"mouse.notify_absolute_motion(now(), {x}, {y});")
        time.sleep(0.05)
        return (self.session.evaluate("global.get_pointer()") or [])[:2] == [x, y]

    def click(self, x, y):
        if not waitFor(lambda: self.move(int(x), int(y)), 3, 0.05):
            raise RigError(f"the mouse does not get to {int(x)}, {int(y)}")
        self.run("mouse.notify_button(now(), 1, Clutter.ButtonState.PRESSED);"
                 "mouse.notify_button(now(), 1, Clutter.ButtonState.RELEASED);")

    def close(self):
        pass


class GnomeDesktop(WaylandDesktop):
    def windows(self):
        return {facts["id"]: facts for facts in self.session.evaluate(LIST) or []}

    def windowsOf(self, process):
        """Those of the process, or of the same program: a start may pass its folder to one that the session
        bus has started before."""
        program = os.path.basename(process.args[0]).lower()
        return super().windowsOf(process) or [window for window, facts in self.windows().items()
                                              if facts["program"].lower().endswith(program)]

    def focus(self, window):
        self.session.evaluate(ONE.format(window, "each.activate(global.get_current_time());"))

    def place(self, window, x, y, width, height):
        # Below the bar at the top of the screen.
        self.session.evaluate(ONE.format(
            window, f"each.move_resize_frame(true, {x}, {y + 10}, {width}, {height});"))
