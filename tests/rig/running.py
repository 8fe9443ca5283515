"""How a desktop test begins and ends. Its exit status is 0 if it passed, 1 if something was wrong or the
environment failed during the test, and 77, with the reason printed, if it could not run at all."""

import os
import shutil
import signal
import sys
import unittest

from session import PROGRAMS, RigError

WRONG, SKIPPED = 1, 77


def takeProgram():
    """Returns the window's program in BIN_FOLDER, the first argument, and removes that argument: the rest
    is for unittest."""
    if len(sys.argv) < 2:
        sys.exit(f"usage: {os.path.basename(sys.argv[0])} BIN_FOLDER")
    return programIn(sys.argv.pop(1))


def programIn(folder):
    return os.path.join(os.path.abspath(folder), "pinorama")


def skip(reason):
    """Ends a test that has not begun yet."""
    print("skipped:", reason)
    sys.exit(SKIPPED)


def need(*programs):
    """Skips the test unless the programs of every session and these are installed. Of those in a tuple, one
    is enough."""
    missing = []
    for program in (*PROGRAMS, *programs):
        names = (program,) if isinstance(program, str) else program
        if not any(shutil.which(name) for name in names):
            missing.append(" or ".join(names))
    if missing:
        skip(f"{', '.join(missing)} not installed")


def run(test, seconds):
    """Exits with the status that `test` returns. An environment that cannot be set up is no reason to skip,
    since all of its programs are installed. After that many seconds the test fails wherever it is."""
    def onAlarm(*_):
        sys.exit(f"not finished after {seconds} seconds")
    signal.signal(signal.SIGALRM, onAlarm)
    signal.alarm(seconds)
    try:
        sys.exit(test())
    except RigError as error:
        sys.exit(f"the environment could not be set up: {error}")


def runTestCases():
    """Runs the test cases of the main module and exits; the test was skipped only if no case could run."""
    result = unittest.main(verbosity=2, exit=False).result
    for case, reason in result.skipped:
        print(f"{case}: skipped: {reason}")
    if not result.wasSuccessful():
        sys.exit(WRONG)
    # A class that is skipped counts as no test at all, a method as one.
    sys.exit(SKIPPED if result.skipped and result.testsRun <= len(result.skipped) else 0)
