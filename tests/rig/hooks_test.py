"""The hooks for file managers in a terminal: each real program runs in a pseudo-terminal and is driven by keys.
A stand-in for the program writes down which files it is to show.

usage: hooks_test.py HOOKS_FOLDER MANAGER"""

import contextlib
import fcntl
import os
import pty
import select
import shutil
import signal
import struct
import sys
import tempfile
import termios
import time

from running import run, skip

NAMES = [b"a b.jpg", b"c'd.jpg", b"e%20$f.jpg", b"g&h;i.jpg", "ü.jpg".encode(), b"z.JPG"]
ROWS, COLUMNS = 40, 160
PATIENCE = 20  # seconds; the machine may be busy
STEP = 0.05    # seconds
REPEAT = 0.03  # seconds, as a key that is held down repeats
TIME = 150     # seconds in all
DOWN, HOME, F3 = "\x1bOB", "\x1bOH", "\x1bOR"
STAND_IN = """#!/bin/sh
[ "$1" = --show ] && printf '%s\\n' "$2" >>"$HOOK_LOG"
exit 0
"""


def ranger(hooks, home):
    plugins = os.path.join(home, ".config", "ranger", "plugins")
    os.makedirs(plugins)
    os.symlink(os.path.join(hooks, "pinorama_ranger.py"), os.path.join(plugins, "pinorama_ranger.py"))
    return ["ranger"], ""


def nnn(hooks, _home):
    return [os.path.join(hooks, "pinorama-nnn")], ""


def lf(hooks, home):
    settings = os.path.join(home, ".config", "lf")
    os.makedirs(settings)
    with open(os.path.join(settings, "lfrc"), "w", encoding="utf-8") as file:
        file.write(f"source {hooks}/pinorama.lf\n")
    return ["lf", "-single"], ""  # starts no server that would outlive it


def vifm(hooks, home):
    settings = os.path.join(home, ".config", "vifm")
    os.makedirs(settings)
    with open(os.path.join(settings, "vifmrc"), "w", encoding="utf-8") as file:
        file.write(f"source {hooks}/pinorama.vifm\n")
    return ["vifm"], ""


def mc(hooks, home):
    settings = os.path.join(home, ".config", "mc")
    os.makedirs(settings)
    with open(os.path.join(settings, "mc.ext.ini"), "wb") as file:
        for part in (os.path.join(hooks, "mc.ext.ini"), "/etc/mc/mc.ext.ini"):
            with open(part, "rb") as rules:
                shutil.copyfileobj(rules, file)
    return ["mc", "--nosubshell"], DOWN + F3


# Program, what prepares it, keys to the next file and to the first one.
MANAGERS = {
    "ranger": (ranger, "j", ["g", "g"]),
    "nnn": (nnn, "j", ["g"]),
    "lf": (lf, "j", ["g", "g"]),
    "vifm": (vifm, "j", ["g", "g"]),
    "mc": (mc, "q" + DOWN + F3, ["q", HOME, DOWN, F3]),  # only the viewer shows, and q leaves it
}


class Terminal:
    """A program in a pseudo-terminal of its own."""

    def __init__(self, command, environment, folder):
        self.pid, self.end = pty.fork()
        if self.pid == 0:
            fcntl.ioctl(0, termios.TIOCSWINSZ, struct.pack("HHHH", ROWS, COLUMNS, 0, 0))
            os.chdir(folder)
            os.execvpe(command[0], command, environment)
        self.output = b""

    def go(self, seconds):
        """Lets it run, and takes what it prints."""
        end = time.monotonic() + seconds
        while (left := end - time.monotonic()) > 0:
            if select.select([self.end], [], [], left)[0]:
                with contextlib.suppress(OSError):
                    self.output += os.read(self.end, 65536)

    def press(self, keys):
        os.write(self.end, keys.encode())

    def close(self):
        with contextlib.suppress(ProcessLookupError):
            os.kill(self.pid, signal.SIGTERM)
            self.go(0.3)
            os.kill(self.pid, signal.SIGKILL)
        os.close(self.end)
        os.waitpid(self.pid, 0)


def install(source, folder):
    """Does what the build does with the hooks: writes where they are into them."""
    os.mkdir(folder)
    for name in os.listdir(source):
        path = os.path.join(source, name)
        if not os.path.isfile(path):
            continue
        with open(path, encoding="utf-8") as file:
            text = file.read().replace("@PINORAMA_HOOKS@", folder)
        copy = os.path.join(folder, name.removesuffix(".in"))
        with open(copy, "w", encoding="utf-8") as file:
            file.write(text)
        os.chmod(copy, 0o755)


class Hook:
    def __init__(self, name, hooks, root):
        prepare, self.next, self.first = MANAGERS[name]
        home = os.path.join(root, "home")
        bin_ = os.path.join(root, "bin")
        self.folder = os.path.join(root, "Bilder & mehr")
        self.log = os.path.join(root, "log")
        runtime = os.path.join(root, "run")
        for folder in (home, bin_, self.folder, runtime):
            os.mkdir(folder, 0o700)
        os.mkdir(home + "/.config")  # nnn does not start without it
        for each in NAMES:
            with open(os.path.join(self.folder.encode(), each), "wb") as file:
                file.write(b"x")
        for program in ("pinorama", "pinorama-info"):
            path = os.path.join(bin_, program)
            with open(path, "w", encoding="ascii") as file:
                file.write(STAND_IN)
            os.chmod(path, 0o755)
        open(self.log, "wb").close()
        installed = os.path.join(root, "hooks")
        install(hooks, installed)
        command, self.start = prepare(installed, home)
        self.terminal = Terminal(
            [*command, self.folder],
            {"PATH": bin_ + ":/usr/local/bin:/usr/bin:/bin", "HOME": home, "XDG_RUNTIME_DIR": runtime, "TMPDIR": root,
             "XDG_CONFIG_HOME": home + "/.config", "XDG_DATA_HOME": home + "/.local/share",
             "TERM": "xterm-256color", "LANG": "C.UTF-8", "LC_ALL": "C.UTF-8", "SHELL": "/bin/sh", "HOOK_LOG": self.log},
            self.folder)

    def shown(self):
        """The names of the files that were to be shown, in order; a name may be relative to the folder."""
        with open(self.log, "rb") as log:
            lines = log.read().splitlines()
        return [os.path.relpath(os.path.join(self.folder.encode(), line), self.folder.encode()) for line in lines]

    def waitFor(self, condition):
        end = time.monotonic() + PATIENCE
        while not condition() and time.monotonic() < end:
            self.terminal.go(STEP)
        return condition()

    def last(self):
        shown = self.shown()
        return shown[-1] if shown else None

    def walk(self):
        """Presses one key after the other until nothing new is shown; returns the files in the view's order."""
        seen = []
        for _ in range(len(NAMES) + 3):
            before = self.last()
            if before in NAMES and before not in seen:
                seen.append(before)
            if len(seen) == len(NAMES):
                break
            self.terminal.press(self.next)
            self.waitFor(lambda before=before: self.last() != before)
            self.terminal.go(0.2)
        return seen


def test(hooks, name):
    with tempfile.TemporaryDirectory(prefix="pinorama-hook-") as root:
        hook = Hook(name, hooks, root)
        try:
            hook.terminal.go(2)
            hook.terminal.press(hook.start)
            hook.terminal.go(1)
            order = hook.walk()
            if sorted(order) != sorted(NAMES):
                print(f"{name}: not all files were shown: {order}, {hook.shown()}\n{hook.terminal.output[-600:]!r}")
                return 1
            for key in hook.first:
                hook.terminal.press(key)
                hook.terminal.go(0.3)
            if not hook.waitFor(lambda: hook.last() != order[-1]):
                print(f"{name}: the first file was not shown again")
                return 1
            last = order[-1]
            presses = 2 * len(NAMES)  # ranger drops keys while it is busy
            if name == "nnn":  # its cursor goes on at the top
                presses = len(NAMES) - 1
                last = order[order.index(hook.last()) - 1]
            for _ in range(presses):
                hook.terminal.press(hook.next)
                hook.terminal.go(REPEAT)
            if not hook.waitFor(lambda: hook.last() == last):
                print(f"{name}: after a held key the last file was {hook.last()}, not {last}")
                return 1
            hook.terminal.go(1)
            if hook.last() != last:
                print(f"{name}: {hook.last()} was shown later than {last}")
                return 1
        finally:
            hook.terminal.close()
    print(f"{name}: passed")
    return 0


def main():
    if len(sys.argv) != 3 or sys.argv[2] not in MANAGERS:
        sys.exit(__doc__)
    if shutil.which(sys.argv[2]) is None:
        skip(f"{sys.argv[2]} not installed")
    run(lambda: test(os.path.abspath(sys.argv[1]), sys.argv[2]), TIME)


if __name__ == "__main__":
    main()
