"""Windows, keys and the mouse of a test's desktop, all through xdotool."""

import time

from session import RigError, waitFor

PAUSE = 0.12  # seconds between two keys


class Desktop:
    def __init__(self, session):
        self.session = session

    def xdotool(self, *arguments):
        return self.session.run(["xdotool", *[str(argument) for argument in arguments]])

    def windowsOf(self, process):
        found = self.xdotool("search", "--onlyvisible", "--pid", process.pid) or ""
        return [int(line) for line in found.split()]

    def newWindow(self, processes, before=(), seconds=20):
        """Waits for a window of one of the processes that was not there before."""
        def find():
            windows = [window for process in processes for window in self.windowsOf(process)
                       if window not in before]
            sizes = [(self.sizeOf(window), window) for window in windows]
            sizes = [(width * height, window) for (width, height), window in sizes
                     if width > 200 and height > 200]
            return max(sizes)[1] if sizes else None
        window = waitFor(find, seconds, 0.2)
        if window is None:
            raise RigError(f"{processes[0].args[0]} showed no window")
        return window

    def exists(self, window):
        return self.xdotool("getwindowname", window) is not None

    def sizeOf(self, window):
        text = self.xdotool("getwindowgeometry", "--shell", window) or ""
        values = dict(line.split("=") for line in text.split() if "=" in line)
        return int(values.get("WIDTH", 0)), int(values.get("HEIGHT", 0))

    def activate(self, window):
        self.xdotool("windowactivate", "--sync", window)
        time.sleep(PAUSE)

    def resize(self, window, width, height):
        self.xdotool("windowmove", window, 4, 24)
        self.xdotool("windowsize", window, width, height)
        time.sleep(0.4)

    def click(self, window, x, y, button=1):
        self.xdotool("mousemove", "--window", window, x, y)
        time.sleep(0.05)
        self.xdotool("click", button)
        time.sleep(PAUSE)

    def clickEmptySpace(self, window, share=0.97):
        """Clicks below the items of the view, at `share` of the window's width."""
        width, height = self.sizeOf(window)
        self.click(window, int(width * share), height - 90)

    def keys(self, *keys):
        for key in keys:
            self.xdotool("key", "--clearmodifiers", key)
            time.sleep(PAUSE)
