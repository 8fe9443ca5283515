"""Runs selection_probe, which queries the real selection source five times a second, and collects its
output."""

import os
import subprocess
import threading
import time
import urllib.parse


class Probe:
    def __init__(self, session, program, *options):
        self.session = session
        self.program = program
        self.log = os.path.join(session.root, "selection_probe.log")
        self.process = session.start([program, *options], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.received = []  # (time, list of paths)
        self.statsLine = None
        self.changed = threading.Condition()
        self.reader = threading.Thread(target=self._read, daemon=True)
        self.reader.start()

    def _read(self):
        for line in self.process.stdout:
            words = line.decode("ascii").split()
            with self.changed:
                if words[0] == "paths":
                    paths = [urllib.parse.unquote_to_bytes(word) for word in words[1:]
                             if word != "-"]
                    self.received.append((time.monotonic(), paths))
                elif words[0] == "stats":
                    self.statsLine = [int(word) for word in words[1:]]
                self.changed.notify_all()

    def paths(self):
        with self.changed:
            return self.received[-1][1] if self.received else []

    def waitUntil(self, condition, seconds):
        """Waits until `condition` is true of the latest paths; returns these or None."""
        end = time.monotonic() + seconds
        with self.changed:
            while True:
                newest = self.received[-1][1] if self.received else []
                if condition(newest):
                    return newest
                left = end - time.monotonic()
                if left <= 0:
                    return None
                self.changed.wait(left)

    def send(self, command):
        self.process.stdin.write(command.encode() + b"\n")
        self.process.stdin.flush()

    def stats(self):
        """The number of queries since the last time, the median and the maximum of their durations in
        microseconds, the processor time per second in microseconds, and whether the last answer was known."""
        with self.changed:
            self.statsLine = None
        self.send("stats")
        with self.changed:
            self.changed.wait_for(lambda: self.statsLine is not None, 5)
            return self.statsLine

    def messages(self):
        """What the program has written to standard error."""
        with open(self.log, encoding="utf-8", errors="replace") as log:
            return log.read()

    def close(self):
        self.session.end(self.process)
        self.reader.join(2)
