"""KWin as the compositor of a test. Its windows are read and moved by scripts that it loads from files; what a
script prints goes to KWin's log."""

import json
import os
import re

from session import waitFor
from wayland import SCREEN, WaylandDesktop, WaylandSession
from wayland_input import FakeInput

LIST = """workspace.windowList().forEach(function (each) {
    if (each.normalWindow || each.dialog)
        print(mark + JSON.stringify({
            id: String(each.internalId), pid: each.pid, title: each.caption,
            x: Math.round(each.frameGeometry.x), y: Math.round(each.frameGeometry.y),
            width: Math.round(each.frameGeometry.width), height: Math.round(each.frameGeometry.height),
            focused: each.active}));
});
print(mark + "end");
"""
ONE = """workspace.windowList().forEach(function (each) {{
    if (String(each.internalId) == "{}") {}
}});
"""


class KWinSession(WaylandSession):
    scripts = 0

    def startCompositor(self):
        return self.start(
            ["kwin_wayland", "--virtual", "--width", str(SCREEN[0]), "--height", str(SCREEN[1]),
             "--no-lockscreen", "--no-global-shortcuts", "--socket", self.socket],
            extra={"KWIN_WAYLAND_NO_PERMISSION_CHECKS": "1", "KWIN_COMPOSE": "Q", "QT_QPA_PLATFORM": "",
                   "WAYLAND_DISPLAY": "", "QT_LOGGING_RULES": "kwin_scripting.debug=true;js.debug=true",
                   "QT_FORCE_STDERR_LOGGING": "1"})

    def isManaged(self):
        return self.call("org.kde.KWin", "/Scripting", "org.freedesktop.DBus.Peer.Ping") is not None

    def makeInput(self, path):
        return FakeInput(path)

    def script(self, text):
        """Runs a script; returns the mark that it puts before the lines that it prints."""
        self.scripts += 1
        name = f"rig{self.scripts}"
        path = os.path.join(self.root, name + ".js")
        with open(path, "w", encoding="utf-8") as file:
            file.write(f'var mark = "{name}: ";\n{text}')
        scripting = "org.kde.kwin.Scripting."
        loaded = self.call("org.kde.KWin", "/Scripting", scripting + "loadScript", path, name)
        number = re.search(r"\d+", loaded or "")
        if number:
            self.call("org.kde.KWin", f"/Scripting/Script{number[0]}", "org.kde.kwin.Script.run")
            self.call("org.kde.KWin", "/Scripting", scripting + "unloadScript", name)
        return name + ": "

    def printed(self, mark):
        with open(os.path.join(self.root, "kwin_wayland.log"), encoding="utf-8", errors="replace") as log:
            return [line.partition(mark)[2] for line in log.read().splitlines() if mark in line]


class KWinDesktop(WaylandDesktop):
    def windows(self):
        mark = self.session.script(LIST)
        waitFor(lambda: "end" in self.session.printed(mark), 3, 0.05)
        each = [json.loads(line) for line in self.session.printed(mark) if line.startswith("{")]
        return {facts["id"]: facts for facts in each}

    def focus(self, window):
        self.session.script(ONE.format(window, "workspace.activeWindow = each;"))

    def place(self, window, x, y, width, height):
        self.session.script(ONE.format(
            window, f"each.frameGeometry = {{x: {x}, y: {y}, width: {width}, height: {height}}};"))
