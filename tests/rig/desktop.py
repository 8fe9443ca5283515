"""Windows, keys and the mouse of a test's desktop, all through xdotool."""

import time

from session import RigError, waitFor

PAUSE = 0.12  # seconds between two keys
SAMPLES, SAMPLE_STEP = 6, 0.05  # of a process that should be idle; seconds between two


class ProcessorUse:
    """What the kernel reports about a process right now: whether it waits, and the ticks that it used."""

    def __init__(self, pid):
        try:
            with open(f"/proc/{pid}/stat", encoding="utf-8", errors="replace") as stat:
                words = stat.read().rpartition(")")[2].split()
        except OSError:
            words = ["X", *["0"] * 20]
        self.waits = words[0] in "SXZ"
        self.ticks = int(words[11]) + int(words[12])


class Desktop:
    def __init__(self, session):
        self.session = session

    def xdotool(self, *arguments):
        return self.session.run(["xdotool", *[str(argument) for argument in arguments]])

    def windowsOf(self, process):
        found = self.xdotool("search", "--onlyvisible", "--pid", process.pid) or ""
        return [int(line) for line in found.split()]

    def newWindow(self, processes, before=(), seconds=40):
        """Waits for a new window, not among `before`, of one of the processes."""
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

    def windowNamed(self, pattern, seconds=30):
        """Waits for a window whose title matches the regular expression."""
        found = waitFor(lambda: (self.xdotool("search", "--onlyvisible", "--name", pattern) or "").split(),
                        seconds)
        if not found:
            raise RigError(f"no window {pattern} appeared")
        return int(found[0])

    def titleOf(self, window):
        return (self.xdotool("getwindowname", window) or "").strip()

    def inFront(self):
        """The window with the focus."""
        return (self.xdotool("getactivewindow") or "").strip()

    def exists(self, window):
        return self.xdotool("getwindowname", window) is not None

    def sizeOf(self, window):
        text = self.xdotool("getwindowgeometry", "--shell", window) or ""
        values = dict(line.split("=") for line in text.split() if "=" in line)
        return int(values.get("WIDTH", 0)), int(values.get("HEIGHT", 0))

    def activate(self, window):
        self.xdotool("windowactivate", "--sync", window)
        time.sleep(PAUSE)

    def settle(self, process, seconds=10):
        """Waits until the process has handled the keys and clicks that were sent to it. The queries that
        it gets five times a second do not count."""
        def isAtRest():
            uses = []
            for _ in range(SAMPLES):
                uses.append(ProcessorUse(process.pid))
                time.sleep(SAMPLE_STEP)
            return sum(use.waits for use in uses) >= SAMPLES - 1 and uses[-1].ticks - uses[0].ticks <= 2
        return waitFor(isAtRest, seconds, 0)

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
