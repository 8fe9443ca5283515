#!/usr/bin/env python3
"""Opens places from the real window in a real browser and in a handler of the catalogue's URLs, and
compares the received URLs byte for byte. The browser connects to a server on this machine only.

usage: maps_test.py BIN_FOLDER"""

import http.server
import os
import threading
import unittest

from desktop import Desktop
from pictures import writePicture
from running import need, runTestCases, takeProgram
from session import DesktopSession, descendants, waitFor

PROGRAM = takeProgram()


class RequestLog(http.server.BaseHTTPRequestHandler):
    paths = []

    def do_GET(self):
        if not self.path.startswith("/favicon"):
            RequestLog.paths.append(self.path)
        self.send_response(200)
        self.end_headers()

    def log_message(self, *ignored):
        pass


class MapsTest(unittest.TestCase):
    def setUp(self):
        RequestLog.paths.clear()
        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), RequestLog)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        self.addCleanup(self.server.server_close)
        self.addCleanup(self.server.shutdown)
        self.session = DesktopSession()
        self.session.__enter__()
        # The browser, which hides its environment, must end with the session as well.
        self.addCleanup(lambda: self.assertEqual(descendants(), set()))
        self.addCleanup(self.session.close)
        self.desktop = Desktop(self.session)
        self.catalogueLog = os.path.join(self.session.root, "catalogue")
        self.install("browser", "x-scheme-handler/http;text/html",
                     "exec chromium --headless=new --no-sandbox --disable-gpu --disable-sync "
                     "--disable-background-networking --disable-component-update --no-first-run "
                     f"--user-data-dir='{self.session.root}/browser' --virtual-time-budget=3000 "
                     "--dump-dom \"$1\"")
        self.install("catalogue", "x-scheme-handler/skallion",
                     f"printf '%s\\n' \"$1\" >> '{self.catalogueLog}'")
        self.session.run(["update-desktop-database", self.applications()])

    def applications(self):
        return os.path.join(self.session.home, ".local/share/applications")

    def install(self, name, types, script):
        """Installs a program that the desktop uses for URLs of the given types."""
        program = os.path.join(self.session.root, name + "-handler")
        with open(program, "w") as file:
            file.write("#!/bin/sh\n" + script + "\n")
        os.chmod(program, 0o755)
        os.makedirs(self.applications(), exist_ok=True)
        with open(os.path.join(self.applications(), name + ".desktop"), "w") as file:
            file.write(f"[Desktop Entry]\nType=Application\nName={name}\nExec={program} %u\n"
                       f"MimeType={types};\n")
        config = os.path.join(self.session.home, ".config")
        os.makedirs(config, exist_ok=True)
        associations = os.path.join(config, "mimeapps.list")
        isNew = not os.path.exists(associations)
        with open(associations, "a") as file:
            if isNew:
                file.write("[Default Applications]\n")
            for kind in types.split(";"):
                file.write(f"{kind}={name}.desktop\n")

    def useService(self, template):
        folder = os.path.join(self.session.home, ".config/pinorama")
        os.makedirs(folder)
        url = f"http://127.0.0.1:{self.server.server_address[1]}{template}"
        with open(os.path.join(folder, "GPS.strings"), "w") as table:
            table.write(f'"a1" = "Test map";\n"b1" = "{url}";\n"a2" = "a2";\n')

    def showPicture(self, name, latitude, longitude):
        path = os.path.join(self.session.home, name)
        writePicture(path, latitude, longitude)
        self.session.start([PROGRAM, path])
        self.desktop.activate(self.desktop.windowNamed("^Pinorama$"))

    def openTestMap(self):
        self.desktop.keys("alt+p", "m", "Down", "Return")

    def requests(self):
        waitFor(lambda: RequestLog.paths, 30)
        return list(RequestLog.paths)

    def testTheBrowserGetsSignedNumbers(self):
        self.useService("/map?q=%f,%f")
        self.showPicture("south west.jpg", -45.5, -3.25)
        self.openTestMap()
        self.assertEqual(self.requests(), ["/map?q=-45.500000,-3.250000"])

    def testTheBrowserGetsTheNameEscaped(self):
        self.useService("/map?ll=%f,%f&label=%@")
        self.showPicture("Zürich 100%& #1.jpg", 47.5, 8.5)
        self.openTestMap()
        self.assertEqual(self.requests(),
                         ["/map?ll=47.500000,8.500000&label=Z%C3%BCrich%20100%25%26%20%231.jpg"])

    def testTheCatalogueGetsItsUrl(self):
        self.showPicture("north west.jpg", 48.1, -11.5)
        self.desktop.keys("alt+f")
        waitFor(lambda: os.path.exists(self.catalogueLog), 20)
        with open(self.catalogueLog) as log:
            self.assertEqual(log.read(),
                             "skallion://find/gps/&lat=48.100000&long=-11.500000&distance=2000m\n")


if __name__ == "__main__":
    need("chromium", "xdg-open", "update-desktop-database")
    runTestCases()
