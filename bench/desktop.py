"""A private desktop for benchmarks: a virtual screen, a window manager and a session bus, with their own
folders. It ends every process that it starts."""

import os
import select
import signal
import subprocess
import tempfile
import time

PATIENCE = 20  # seconds


class Missing(Exception):
    """A program that the desktop needs is not installed."""


class Desktop:
    def __enter__(self):
        self.folder = tempfile.TemporaryDirectory(prefix="pinorama-bench-")
        self.processes = []
        self.environment = {"PATH": os.environ["PATH"], "LANG": "C.UTF-8", "NO_AT_BRIDGE": "1",
                            "QT_QPA_PLATFORM": "xcb"}
        for name, key in (("home", "HOME"), ("run", "XDG_RUNTIME_DIR"), ("tmp", "TMPDIR")):
            path = os.path.join(self.folder.name, name)
            os.mkdir(path, 0o700)
            self.environment[key] = path
        try:
            self._startScreen()
            self._startBus()
            self.start(["openbox"])
            self._waitForManager()
            # Prints the list again whenever a window is added or removed.
            self.windows = self.start(["stdbuf", "-oL", "xprop", "-root", "-spy", "_NET_CLIENT_LIST"],
                                      stdout=subprocess.PIPE)
            os.set_blocking(self.windows.stdout.fileno(), False)
            self._line(PATIENCE)
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            end(process)
        self.folder.cleanup()

    def start(self, command, **options):
        options.setdefault("stdout", subprocess.DEVNULL)
        options.setdefault("stderr", subprocess.DEVNULL)
        try:
            process = subprocess.Popen(command, env=self.environment, stdin=subprocess.DEVNULL, **options)
        except FileNotFoundError as error:
            raise Missing(command[0]) from error
        self.processes.append(process)
        return process

    def stop(self, process):
        end(process)
        self.processes.remove(process)

    def openWindow(self, command):
        """Starts a program: its process and the seconds until its first window was managed."""
        self._drain()
        begin = time.monotonic()
        process = self.start(command)
        while time.monotonic() - begin < PATIENCE:
            if b"0x" in self._line(begin + PATIENCE - time.monotonic()):
                return process, time.monotonic() - begin
            if process.poll() is not None:
                break
        raise RuntimeError(f"{command[0]} shows no window")

    def closeWindow(self, process):
        """Ends a program that openWindow started, and waits until its window is gone."""
        self.stop(process)
        limit = time.monotonic() + PATIENCE
        while time.monotonic() < limit:
            line = self._line(limit - time.monotonic())
            if line and b"0x" not in line:
                return
        raise RuntimeError("the window does not go away")

    def _startScreen(self):
        reading, writing = os.pipe()
        self.start(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1600x1200x24", "-nolisten", "tcp"],
                   pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as reply:
            self.environment["DISPLAY"] = ":" + reply.readline().strip()

    def _startBus(self):
        self.bus = self.start(["dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address"],
                              stdout=subprocess.PIPE)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.bus.stdout.readline().decode().strip()

    def _waitForManager(self):
        """A window manager keeps a list once it has started; it is empty at first."""
        limit = time.monotonic() + PATIENCE
        while time.monotonic() < limit:
            try:
                reply = subprocess.run(["xprop", "-root", "_NET_CLIENT_LIST"], env=self.environment,
                                        capture_output=True, check=False).stdout
            except FileNotFoundError as error:
                raise Missing("xprop") from error
            if b"(WINDOW)" in reply:
                return
            time.sleep(0.05)
        raise Missing("openbox")

    def _line(self, seconds):
        """The list of windows after its next change; empty if it did not change in time."""
        if not select.select([self.windows.stdout], [], [], max(seconds, 0))[0]:
            return b""
        lines = (self.windows.stdout.read() or b"").splitlines()
        return lines[-1] if lines else b""

    def _drain(self):
        while self._line(0):
            pass


def end(process):
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            process.send_signal(signal.SIGKILL)
            process.wait()
    if process.stdout:
        process.stdout.close()


def memory(process, key="Pss"):
    """Bytes of memory of a process: its private memory and its share of shared memory."""
    with open(f"/proc/{process}/smaps_rollup", encoding="ascii") as file:
        for line in file:
            if line.startswith(key + ":"):
                return int(line.split()[1]) * 1024
    raise RuntimeError(key)


def family(process):
    """A process and its descendants."""
    found = [process]
    for child in children(process):
        found += family(child)
    return found


def children(process):
    with open(f"/proc/{process}/task/{process}/children", encoding="ascii") as file:
        return [int(number) for number in file.read().split()]


def processorTime(process):
    """Seconds of processor time that a process has used."""
    with open(f"/proc/{process}/stat", encoding="utf-8") as file:
        fields = file.read().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def wakeUps(process):
    """How many voluntary context switches the threads of a process have made."""
    count = 0
    for thread in os.listdir(f"/proc/{process}/task"):
        with open(f"/proc/{process}/task/{thread}/status", encoding="utf-8") as file:
            count += sum(int(line.split()[1]) for line in file if line.startswith("voluntary_ctxt"))
    return count
