"""What processes of a test's desktop cost, with a resolution of nanoseconds."""

import os
import time


def tasks(pid):
    return [f"/proc/{pid}/task/{thread}" for thread in os.listdir(f"/proc/{pid}/task")]


def processorTime(pid):
    """Processor time of the threads of a process in seconds, with a resolution of nanoseconds."""
    total = 0
    for task in tasks(pid):
        with open(task + "/schedstat", encoding="ascii") as file:
            total += int(file.read().split()[0])
    return total / 1e9


def wakeUps(pid):
    """How many voluntary context switches the threads of a process have made."""
    count = 0
    for task in tasks(pid):
        with open(task + "/status", encoding="utf-8") as file:
            count += sum(int(line.split()[1]) for line in file if line.startswith("voluntary_ctxt"))
    return count


class Cost:
    """What groups of processes use from now on: per cent of one core, wake-ups per second."""

    def __init__(self, **groups):
        self.groups = groups
        self.before = {name: self._now(pids) for name, pids in groups.items()}
        self.begin = time.monotonic()

    @staticmethod
    def _now(pids):
        return (sum(processorTime(pid) for pid in pids), sum(wakeUps(pid) for pid in pids))

    def share(self, name):
        used = self._now(self.groups[name])[0] - self.before[name][0]
        return 100 * used / (time.monotonic() - self.begin)

    def wakes(self, name):
        count = self._now(self.groups[name])[1] - self.before[name][1]
        return count / (time.monotonic() - self.begin)


def shareOf(pid, seconds):
    cost = Cost(process=[pid])
    time.sleep(seconds)
    return cost.share("process")


def busProcesses(session):
    """The accessibility bus and its registry."""
    return [pid for name in (b"accessibility.conf", b"at-spi2-registryd")
            for pid in session.straysNamed(name)]


def family(pid):
    """A process and its descendants."""
    with open(f"/proc/{pid}/task/{pid}/children", encoding="ascii") as file:
        return [pid] + [each for child in file.read().split() for each in family(int(child))]
