"""How a desktop test begins and ends. Its exit status is 0 when everything was right, 1 when something was
wrong or the surroundings failed on the way, and 77, with the reason printed, when nothing could be
tried."""

import os
import shutil
import signal
import sys

from session import PROGRAMS, RigError

WRONG, SKIPPED = 1, 77


def takeProgram():
    """The window's program in BIN_FOLDER, the first argument. That is taken away: what is left is for
    unittest."""
    if len(sys.argv) < 2:
        sys.exit(f"usage: {os.path.basename(sys.argv[0])} BIN_FOLDER")
    return programIn(sys.argv.pop(1))


def programIn(folder):
    return os.path.join(os.path.abspath(folder), "pinorama")


def skip(reason):
    """Ends a test that has tried nothing yet."""
    print("skipped:", reason)
    sys.exit(SKIPPED)


def need(*programs):
    """Skips the test unless there is what every session is made of, and these programs. Of those in a
    tuple one is enough."""
    missing = []
    for program in (*PROGRAMS, *programs):
        names = (program,) if isinstance(program, str) else program
        if not any(shutil.which(name) for name in names):
            missing.append(" or ".join(names))
    if missing:
        skip(f"{', '.join(missing)} not installed")


def run(test, seconds):
    """Ends with the exit status that `test` returns. Surroundings that cannot be made are no reason to
    skip: what they are made of is there. After that many seconds the test is wrong wherever it is."""
    def onAlarm(*_):
        sys.exit(f"not done after {seconds} seconds")
    signal.signal(signal.SIGALRM, onAlarm)
    signal.alarm(seconds)
    try:
        sys.exit(test())
    except RigError as error:
        sys.exit(f"the surroundings could not be made: {error}")
