"""A private desktop for tests: a virtual display, a window manager, a session bus, the accessibility
bus and an empty home folder. Every process that was started is ended, by its own id, even if a test
fails or the run is interrupted."""

import contextlib
import ctypes
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

PR_SET_PDEATHSIG = 1
PR_SET_CHILD_SUBREAPER = 36
SCREEN = "1400x900x24"
# The programs that a session consists of, and those that tests control it with.
PROGRAMS = ("Xvfb", "openbox", "xdotool", "xprop", "dbus-daemon",
            "dbus-update-activation-environment", "gdbus")
MAX_STEP = 3  # seconds that one check of a condition counts for at most
BUS_WITHOUT_SERVICES = """<busconfig>
  <type>session</type>
  <listen>unix:tmpdir={}</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


class RigError(Exception):
    """The environment of a test could not be set up, so that the test has no result."""


def waitFor(condition, seconds, step=0.1):
    """Evaluates `condition` until it is true or the time is up, and returns its last value. If the machine
    stalls meanwhile, that uses up little of the time."""
    left = seconds
    while True:
        isLast = left <= 0
        start = time.monotonic()
        value = condition()
        if value or isLast:
            return value
        time.sleep(step)
        left -= min(time.monotonic() - start, MAX_STEP)


def endWithTheTest():
    """Runs in a process that the rig starts: makes it end even if the test is killed before it cleans up."""
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGTERM)


def descendants():
    """The processes that this one started, directly or not. Ended children are reaped and left out."""
    children = {}
    for entry in filter(str.isdigit, os.listdir("/proc")):
        with contextlib.suppress(OSError), open(f"/proc/{entry}/stat", "rb") as stat:
            state, parent = stat.read().rpartition(b")")[2].split()[:2]
            children.setdefault(int(parent), []).append((int(entry), state))
    found, left = set(), [os.getpid()]
    while left:
        parent = left.pop()
        for pid, state in children.get(parent, ()):
            if state != b"Z":
                found.add(pid)
                left.append(pid)
            elif parent == os.getpid():
                with contextlib.suppress(ChildProcessError):
                    os.waitpid(pid, os.WNOHANG)
    return found


def endProcess(process, seconds=3):
    """Ends one process that the rig started: terminates it, waits, then kills it."""
    if process.poll() is None:
        process.send_signal(signal.SIGCONT)
        process.terminate()
        try:
            process.wait(seconds)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()


class DesktopSession:
    """A context manager. `environment` is the environment of every program of the session."""

    def __init__(self, locale="C.UTF-8", accessibility=True, prepare=None,
                 services=True):
        self.root = tempfile.mkdtemp(prefix="pinorama-desktop-")
        self.home = os.path.join(self.root, "Nutzer")
        self.processes = []
        self.locale = locale
        self.prepare = prepare  # generates the locale in a folder and returns that folder
        self.accessibility = accessibility
        self.services = services  # whether the session bus starts programs, such as the other bus
        self.environment = None
        self.windowManager = None
        self.olderProcesses = set()

    def __enter__(self):
        signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
        # A process whose parent ends becomes a child of the test, so that none gets lost.
        ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1)
        self.olderProcesses = descendants()
        try:
            self._start()
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *error):
        self.close()

    def _start(self):
        runtime = os.path.join(self.root, "runtime")
        for folder in (self.home, runtime, os.path.join(self.home, "Desktop")):
            os.makedirs(folder, mode=0o700)
        keep = ("LD_LIBRARY_PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS")
        self.environment = {name: os.environ[name] for name in keep if name in os.environ}
        self.environment.update({
            # The system's own programs: the file managers' extensions run in the system's Python.
            "PATH": "/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin:/usr/games",
            "HOME": self.home,
            "XDG_RUNTIME_DIR": runtime,
            "TMPDIR": self.root,
            "LANG": self.locale,
            "LC_ALL": self.locale,
            "TZ": "UTC",
            "GDK_BACKEND": "x11",
            "QT_QPA_PLATFORM": "xcb",
            "LIBGL_ALWAYS_SOFTWARE": "1",
            "GSK_RENDERER": "cairo",
            "NO_AT_BRIDGE": "0",
            "GIO_USE_VFS": "local",
            "GSETTINGS_BACKEND": "keyfile",
            "XDG_CURRENT_DESKTOP": "Pinorama-Test",
        })
        if self.prepare and self.locale != "C.UTF-8":
            self.environment["LOCPATH"] = self.prepare(self.root, self.locale)
            self.environment["LANGUAGE"] = self.locale.partition("_")[0]
        self._writeSettings()
        self._startDisplay()
        self._startBus()
        self._startWindowManager()
        if self.services:
            self.enableAccessibilityBus()

    def _startWindowManager(self):
        self.windowManager = self.start(["openbox", "--sm-disable"])
        if not waitFor(self.isManaged, 30):
            raise RigError("openbox did not start")

    def isManaged(self):
        """Whether the window manager has started: windows that open earlier stay hidden."""
        output = self.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK", "_NET_CLIENT_LIST"])
        return output is not None and "window id" in output and "not found" not in output

    def _writeSettings(self):
        """Makes Nemo treat the root user, as whom tests may run, like any other, and open folders within its list,
        which 6.6 does only on request."""
        folder = os.path.join(self.home, ".config", "glib-2.0", "settings")
        os.makedirs(folder)
        with open(os.path.join(folder, "keyfile"), "w", encoding="utf-8") as settings:
            settings.write("[org/nemo/preferences]\ntreat-root-as-normal=true\n"
                           "[org/nemo/list-view]\nenable-folder-expansion=true\n")

    def _startDisplay(self):
        reader, writer = os.pipe()
        self.start(["Xvfb", "-displayfd", str(writer), "-screen", "0", SCREEN, "-noreset", "-nolisten",
                    "tcp"],
                   pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader) as output:
            number = output.readline().strip()
        if not number:
            raise RigError("Xvfb did not start")
        self.environment["DISPLAY"] = ":" + number

    def _startBus(self):
        kind = "--session"
        if not self.services:
            config = os.path.join(self.root, "bus.conf")
            with open(config, "w", encoding="utf-8") as file:
                file.write(BUS_WITHOUT_SERVICES.format(self.root))
            kind = "--config-file=" + config
        self.bus = self.start(["dbus-daemon", kind, "--nofork", "--print-address=1"],
                              stdout=subprocess.PIPE)
        address = self.bus.stdout.readline().decode().strip()
        if not address:
            raise RigError("dbus-daemon did not start")
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        # Services that the bus starts on demand need the same environment.
        self.run(["dbus-update-activation-environment", "--all"])

    def enableAccessibilityBus(self):
        """Starts the accessibility bus, and sets whether Qt programs connect to it."""
        value = "true" if self.accessibility else "false"
        properties = "org.freedesktop.DBus.Properties."

        def isSet():
            bus = ("org.a11y.Bus", "/org/a11y/bus")
            self.call(*bus, "org.a11y.Bus.GetAddress")
            self.call(*bus, properties + "Set", "org.a11y.Status", "IsEnabled", f"<{value}>")
            reply = self.call(*bus, properties + "Get", "org.a11y.Status", "IsEnabled") or ""
            return value in reply
        if not waitFor(isSet, 40):
            raise RigError("the accessibility bus did not start")

    def start(self, command, **options):
        """Starts a program in the session; its messages go to a file of the session."""
        log = open(os.path.join(self.root, os.path.basename(command[0]) + ".log"), "ab")
        options.setdefault("stdout", log)
        options.setdefault("stderr", log)
        environment = {**self.environment, **options.pop("extra", {})}
        process = subprocess.Popen(command, env=environment, cwd=self.home,
                                   preexec_fn=endWithTheTest,
                                   stdin=options.pop("stdin", subprocess.DEVNULL), **options)
        log.close()
        self.processes.append(process)
        return process

    def end(self, process):
        endProcess(process)
        self.processes.remove(process)

    def run(self, command, seconds=10):
        """Runs a short command and returns its output; None if it fails."""
        try:
            done = subprocess.run(command, env=self.environment, cwd=self.home, timeout=seconds,
                                  stdin=subprocess.DEVNULL, capture_output=True, check=False)
        except subprocess.TimeoutExpired:
            return None
        return done.stdout.decode(errors="surrogateescape") if done.returncode == 0 else None

    def call(self, service, path, method, *arguments):
        """A D-Bus call on the session bus, arguments as gdbus writes them."""
        return self.run(["gdbus", "call", "--session", "--dest", service, "--object-path", path,
                         "--method", method, *arguments])

    def strays(self):
        """The processes that a bus started on demand: this session's home folder is in their environment."""
        home = ("HOME=" + self.home).encode()
        for entry in os.listdir("/proc"):
            if not entry.isdigit() or int(entry) == os.getpid():
                continue
            try:
                with open(f"/proc/{entry}/environ", "rb") as environment:
                    if home in environment.read().split(b"\0"):
                        yield int(entry)
            except OSError:
                continue

    def straysNamed(self, name):
        """Those of them that have `name` in their command line."""
        found = []
        for pid in self.strays():
            with contextlib.suppress(OSError), open(f"/proc/{pid}/cmdline", "rb") as line:
                if name in line.read():
                    found.append(pid)
        return found

    def accessibilityBusProcesses(self, alsoTheLauncher=True):
        """The processes of the accessibility bus and, on request, of its launcher."""
        names = [b"accessibility.conf", *([b"at-spi-bus-launcher"] if alsoTheLauncher else [])]
        found = [self.straysNamed(name) for name in names]
        if not all(found):
            raise RigError("the accessibility bus of the session was not found")
        return [pid for pids in found for pid in pids]

    def close(self):
        for process in reversed(self.processes):
            endProcess(process)
            for stream in (process.stdin, process.stdout):
                if stream is not None:
                    stream.close()
        self.processes = []
        # A browser overwrites the environment by which `strays` finds it.
        def remaining():
            return {*self.strays(), *descendants()} - self.olderProcesses
        for sign in (signal.SIGTERM, signal.SIGKILL):
            for stray in remaining():
                try:
                    os.kill(stray, sign)
                except ProcessLookupError:
                    pass
            if waitFor(lambda: not remaining(), 2):
                break
        shutil.rmtree(self.root, ignore_errors=True)
