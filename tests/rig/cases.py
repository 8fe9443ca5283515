"""The cases of a test. They share one environment, because setting it up takes longer than a case."""

import time

from running import SKIPPED, WRONG
from session import RigError


class Skip(Exception):
    """The case cannot run here, for this reason."""


class Wrong(Exception):
    """The case has failed, in this way."""


def require(condition, what):
    if not condition:
        raise Wrong(what)


def afterFailure(environment):
    """What the environment says of its state, if it says anything; starts it anew for the cases that follow."""
    if not hasattr(environment, "state"):
        return ""
    state = f"; {environment.state()}"
    try:
        environment.startAgain()
    except RigError as error:
        state += f"; not started again: {error}"
    return state


class Cases:
    """Functions of the environment, in the order in which they run; they raise Skip or Wrong."""

    def __init__(self, *cases):
        self.cases = list(cases)

    def add(self, case):
        """A decorator."""
        self.cases.append(case)
        return case

    def names(self):
        return [case.__name__ for case in self.cases]

    def run(self, title, environment, wanted=None):
        """Runs the cases, or only those with the wanted names, and prints the outcome of each. If the
        environment fails in a case, the case fails. Returns the exit status: skipped only if no case
        could run."""
        outcomes = []
        for case in self.cases:
            if wanted and case.__name__ not in wanted:
                continue
            start = time.monotonic()
            try:
                case(environment)
                outcome = "ok"
            except Skip as reason:
                outcome = f"skipped: {reason}"
            except (Wrong, RigError) as error:
                outcome = f"WRONG: {error}{afterFailure(environment)}"
            outcomes.append(outcome.partition(":")[0])
            print(f"{title}: {case.__name__}: {outcome} ({time.monotonic() - start:.1f} s)", flush=True)
        if "WRONG" in outcomes:
            return WRONG
        return 0 if "ok" in outcomes else SKIPPED
