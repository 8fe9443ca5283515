"""The URL that the window's button for the catalogue opens. It contains the shown place, also for tests
that cannot read the window."""

import os

from session import waitFor


class Catalogue:
    """Replaces the program that opens URLs and records them. So a test knows which place the window shows
    even without an accessibility bus to read it on."""

    def __init__(self, session):
        self.session = session
        self.log = os.path.join(session.root, "opened-urls")
        folder = os.path.join(session.root, "programs")
        os.makedirs(folder)
        opener = os.path.join(folder, "xdg-open")
        with open(opener, "w", encoding="utf-8") as script:
            script.write(f"#!/bin/sh\nprintf '%s\\n' \"$1\" >> '{self.log}'\n")
        os.chmod(opener, 0o755)
        self.register()
        session.environment["PATH"] = folder + ":" + session.environment["PATH"]

    def register(self):
        """Without a program that takes its addresses the button opens a window of its own."""
        applications = os.path.join(self.session.home, ".local/share/applications")
        os.makedirs(applications, exist_ok=True)
        with open(os.path.join(applications, "catalogue.desktop"), "w", encoding="utf-8") as entry:
            entry.write("[Desktop Entry]\nType=Application\nName=Catalogue\nExec=xdg-open %u\n")
        with open(os.path.join(applications, "mimeapps.list"), "w", encoding="utf-8") as associations:
            associations.write("[Default Applications]\nx-scheme-handler/skallion=catalogue.desktop\n")

    def urls(self):
        try:
            with open(self.log, encoding="utf-8") as log:
                return log.read().splitlines()
        except FileNotFoundError:
            return []

    def shownPlace(self, window):
        """Latitude and longitude of the shown picture; None if the button is disabled."""
        before = len(self.urls())
        self.session.run(["xdotool", "windowactivate", "--sync", str(window), "key",
                          "--clearmodifiers", "alt+f"])
        opened = waitFor(lambda: self.urls()[before:], 2)
        if not opened:
            return None
        words = dict(part.split("=") for part in opened[0].split("&") if "=" in part)
        return float(words["lat"]), float(words["long"])
