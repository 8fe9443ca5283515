"""The cases of a test that share their surroundings, which take longer to make than a case takes."""

import time

from running import SKIPPED, WRONG
from session import RigError


class Skip(Exception):
    """The case cannot run here; says why."""


class Wrong(Exception):
    """What the case is about was wrong; says how."""


def require(condition, what):
    if not condition:
        raise Wrong(what)


class Cases:
    """Functions of the surroundings, in the order in which they run; they raise what they have to say."""

    def __init__(self, *cases):
        self.cases = list(cases)

    def add(self, case):
        """A decorator."""
        self.cases.append(case)
        return case

    def names(self):
        return [case.__name__ for case in self.cases]

    def run(self, title, surroundings, wanted=None):
        """Runs the cases, or only those with the wanted names, and tells of each. Surroundings that fail
        in a case make it wrong. Returns the exit status: skipped only when no case could run."""
        outcomes = []
        for case in self.cases:
            if wanted and case.__name__ not in wanted:
                continue
            start = time.monotonic()
            try:
                case(surroundings)
                outcome = "ok"
            except Skip as reason:
                outcome = f"skipped: {reason}"
            except (Wrong, RigError) as error:
                outcome = f"WRONG: {error}"
            outcomes.append(outcome.partition(":")[0])
            print(f"{title}: {case.__name__}: {outcome} ({time.monotonic() - start:.1f} s)", flush=True)
        if "WRONG" in outcomes:
            return WRONG
        return 0 if "ok" in outcomes else SKIPPED
