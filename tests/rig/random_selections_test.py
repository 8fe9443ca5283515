#!/usr/bin/env python3
"""Drives one real file manager at random through random folders whose pictures have equal names, in all of its
views and in the results of a search, and compares each path that the selection source returns with the one that
the file manager copies.

usage: random_selections_test.py PROBE MANAGER [--seed NUMBER]

PINORAMA_RANDOM_SELECTIONS is the number of selections, 24 if it is unset. A wrong path fails the test; the
selections that are not followed are counted and printed."""

import argparse
import collections
import os
import random
import subprocess
import time
import urllib.parse

from follow import Follow
from managers import managerNamed
from probe import Probe
from running import WRONG, need, run
from session import DesktopSession

SELECTIONS = int(os.environ.get("PINORAMA_RANDOM_SELECTIONS", "24"))
PICTURES = [b"IMG_%04d.jpg" % number for number in (1, 2, 3)]
FOLDERS = [b"100", b"101"]
DEPTH = 3
SEARCH = "search"
MARKER = "nothing was copied"
BACK = {"Right": "Left", "Down": "Up"}
TIME = 200 + 12 * SELECTIONS  # seconds in all


class Walk(Follow):
    """A file manager in a random tree."""

    def __init__(self, session, manager, probe, seed):
        super().__init__(session, manager, probe)
        self.random = random.Random(seed)
        self.tree = os.path.join(session.home.encode(), b"Karten")
        self.grow(self.tree, 0)
        self.depth = 0  # how often it went down into a folder
        self.results = collections.Counter()
        self.wrong = []

    def grow(self, folder, depth):
        os.makedirs(folder)
        for name in self.random.sample(PICTURES, self.random.randint(1, len(PICTURES))):
            self.write(os.path.join(folder, name), 10.5, 20.5)
        for name in FOLDERS if depth < DEPTH else []:
            if depth == 0 or self.random.random() < 0.7:
                self.grow(os.path.join(folder, name), depth + 1)

    def open(self, folder=None, before=()):
        return super().open(folder or self.tree, before)

    def copied(self):
        """The paths that the file manager copies: those that are selected."""
        subprocess.run(["xclip", "-selection", "clipboard", "-in"], input=MARKER.encode(), check=True,
                       env=self.session.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                       timeout=10)
        self.desktop.keys("ctrl+c")
        self.desktop.settle(self.process, 5)
        text = self.session.run(["xclip", "-selection", "clipboard", "-target", "text/uri-list", "-out"], 5)
        # PCManFM copies the final zero byte too.
        uris = [line for line in (text or "").rstrip("\0").split() if line.startswith("file://")]
        return [urllib.parse.unquote_to_bytes(uri[len("file://"):]).rstrip(b"/") for uri in uris]

    def press(self, view):
        """One random step; returns the keys."""
        step = self.step
        choices = [[step]] * 8 + [[BACK[step]]] * 4 + [["Home", step, "Home"], ["End"], ["shift+" + step]]
        if view != SEARCH:
            choices += [["Return", "Home", step, "Home"]] * 2 + [["alt+Up", "Home", step, "Home"]]
        if view == "list" and self.manager.expand:
            choices += [[self.manager.expand]] * 4
        keys = self.random.choice(choices)
        if keys[0] == "Return":
            selected = self.copied()
            if len(selected) != 1 or not os.path.isdir(selected[0]):
                keys = [step]
        if keys[0] == "alt+Up" and self.depth == 0:
            keys = [step]
        for key in keys:
            self.desktop.keys(key)
            if key in ("Return", "alt+Up"):
                time.sleep(1)
        self.depth += {"Return": 1, "alt+Up": -1}.get(keys[0], 0)
        return keys

    def judge(self):
        """What became of the selection, and what tells it from what was expected."""
        self.settle()
        selected = self.copied()
        if len(selected) == 1:
            wanted = selected[0] + (b"/" if os.path.isdir(selected[0]) else b"")
            paths = self.probe.waitUntil(lambda paths: paths == [wanted], 3) or self.probe.paths()
        else:
            paths = self.probe.waitUntil(lambda paths: len(paths) != 1, 3)
            paths = self.probe.paths() if paths is None else paths
        if len(selected) == 1 and paths == [wanted]:
            return "followed", ""
        if len(paths) == 1:
            return "wrong", f"{paths[0]} for {selected}"
        return {0: "nothing", 1: "unfollowed"}.get(len(selected), "several"), ""

    def check(self, view, keys):
        result, difference = self.judge()
        if result == "wrong":  # a busy file manager may not have copied in time
            time.sleep(1)
            result, difference = self.judge()
        self.results[result] += 1
        if difference:
            self.wrong.append(f"{view}, after {' '.join(keys)}: {difference}")

    def walkThrough(self, view, count):
        self.kill()
        self.window = self.open()
        self.switchView("list" if view == SEARCH else view)
        if view == SEARCH:
            self.search("IMG")
        self.depth = 0
        self.desktop.keys("Home", self.step, "Home")
        for _ in range(count):
            self.check(view, self.press(view))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("probe")
    parser.add_argument("manager")
    parser.add_argument("--seed", type=int, default=random.randrange(10**6))
    arguments = parser.parse_args()
    manager = managerNamed(arguments.manager)
    need(manager.command[0], "xclip")
    with DesktopSession() as session:
        walk = Walk(session, manager, Probe(session, os.path.abspath(arguments.probe)), arguments.seed)
        walk.start()
        views = [*manager.views, *([SEARCH] if manager.searches else [])]
        for view in views:
            walk.walkThrough(view, max(1, SELECTIONS // len(views)))
        walk.probe.close()
        count = walk.results
        print(f"{manager.name}, seed {arguments.seed}: {count['followed']} followed, {count['unfollowed']} not "
              f"followed, {count['several']} of several items, {count['nothing']} of none, {count['wrong']} wrong",
              flush=True)
        for each in walk.wrong:
            print("WRONG:", each)
        return WRONG if walk.wrong or count["followed"] == 0 else 0


if __name__ == "__main__":
    run(main, TIME)
