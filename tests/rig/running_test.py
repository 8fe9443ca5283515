#!/usr/bin/env python3
"""The exit status of a desktop test, tested with small tests that need no desktop."""

import os
import subprocess
import sys
import unittest

BEGINNING = """
import time
import unittest
import running
from cases import Cases, Skip, Wrong, require
from running import need, run, runTestCases
from session import RigError
running.PROGRAMS = ()
cases = Cases()
"""
CASES = """
@cases.add
def right(_):
    pass

@cases.add
def notHere(_):
    raise Skip("a reason")

@cases.add
def wrong(_):
    require(1 == 2, "numbers differ")

@cases.add
def fails(_):
    raise RigError("something ended")

@cases.add
def broken(_):
    None.nothing

@cases.add
def hangs(_):
    time.sleep(60)
"""


class DesktopTest(unittest.TestCase):
    def expect(self, status, printed, test):
        """The small test exits with this status and has printed this."""
        done = subprocess.run([sys.executable, "-B", "-c", BEGINNING + test], text=True, timeout=50,
                              cwd=os.path.dirname(os.path.abspath(__file__)), check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.assertIn(printed, done.stdout)
        self.assertEqual(done.returncode, status, done.stdout)
        return done.stdout

    def expectOfCases(self, status, printed, *wanted):
        return self.expect(status, printed, CASES + f"run(lambda: cases.run('it', None, {wanted}), 3)")

    def testIsSkippedWithTheReasonIfAProgramIsMissing(self):
        self.expect(77, "skipped: no-such-program, neither or nor not installed\n",
                    "need('sh', 'no-such-program', ('sh', 'neither'), ('neither', 'nor'))")
        self.expect(0, "it goes on", "need('sh', ('neither', 'sh')); print('it goes on')")

    def testNeedsTheProgramsOfEverySession(self):
        self.expect(77, "skipped: no-such-program not installed\n",
                    "running.PROGRAMS = ('no-such-program',); need()")

    def testPassesIfEveryCaseThatCouldRunPasses(self):
        self.expectOfCases(0, "it: right: ok (", "right")
        self.expectOfCases(0, "it: notHere: skipped: a reason (", "right", "notHere")

    def testIsSkippedIfNoCaseCouldRun(self):
        self.expectOfCases(77, "it: notHere: skipped: a reason (", "notHere")

    def testFailsIfOneCaseFails(self):
        self.expectOfCases(1, "it: wrong: WRONG: numbers differ (", "right", "notHere", "wrong")

    def testPrintsTheStateAfterAFailureAndStartsTheEnvironmentAgain(self):
        environment = ("class Environment:\n    starts = 0\n    def state(self):\n        return 'two windows'\n"
                       "    def startAgain(self):\n        self.starts += 1\n"
                       "        if self.starts > 1:\n            raise RigError('gone')\n")
        output = self.expect(1, "it: wrong: WRONG: numbers differ; two windows (",
                             CASES + environment +
                             "run(lambda: cases.run('it', Environment(), ('right', 'wrong', 'fails')), 3)")
        self.assertIn("WRONG: something ended; two windows; not started again: gone (", output)
        self.assertIn("right: ok (", output)

    def testFailsIfTheEnvironmentFails(self):
        self.expectOfCases(1, "it: fails: WRONG: something ended (", "right", "fails")
        self.expect(1, "the environment could not be set up: no display",
                    "def test():\n    raise RigError('no display')\nrun(test, 3)")
        for begin in ("setUp", "testIt", "tearDown"):
            self.expect(1, "RigError: something ended",
                        f"class Test(unittest.TestCase):\n    def testIt(self):\n        pass\n"
                        f"    def {begin}(self):\n        raise RigError('something ended')\n"
                        "need()\nrunTestCases()")

    def testIsSkippedIfNoTestCaseCouldRun(self):
        skipped = "raise unittest.SkipTest('a reason')"
        for method in ("setUpClass(cls)", "setUp(self)"):
            decorator = "    @classmethod\n" if "cls" in method else ""
            self.expect(77, ": skipped: a reason\n",
                        f"class Test(unittest.TestCase):\n    def testIt(self):\n        pass\n"
                        f"{decorator}    def {method}:\n        {skipped}\nrunTestCases()")
        self.expect(0, ": skipped: a reason\n",
                    f"class Test(unittest.TestCase):\n    def testIt(self):\n        pass\n"
                    f"    def testOther(self):\n        {skipped}\nrunTestCases()")

    def testFailsIfACaseRaisesAnythingElse(self):
        self.expectOfCases(1, "AttributeError", "right", "broken")

    def testFailsIfItsTimeIsUp(self):
        self.expectOfCases(1, "not finished after 3 seconds", "right", "hangs")


if __name__ == "__main__":
    unittest.main(verbosity=2)
