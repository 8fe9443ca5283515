"""Programs as the accessibility bus shows them, asked one question at a time through gdbus."""

import ast
import re

# Bits of a state, as AT-SPI counts them.
CHECKED, ENABLED, FOCUSABLE, FOCUSED = 4, 8, 11, 12


class Accessible:
    """One object on the accessibility bus."""

    def __init__(self, session, bus, owner, path):
        self.session, self.bus, self.owner, self.path = session, bus, owner, path

    def call(self, method, *arguments):
        answer = self.session.run(["gdbus", "call", "--address", self.bus, "--dest", self.owner,
                                   "--object-path", self.path, "--method", method, *arguments])
        if answer is None:
            return None
        # Python reads what gdbus writes but for the names of types and the marks of a variant.
        answer = re.sub(r"(?<=[\[( ])(?:uint32|objectpath|@[a-z()]+) ", "", answer.strip())
        return ast.literal_eval(re.sub(r"^\(<(.*)>,\)$", r"(\1,)", answer, flags=re.S))

    def read(self, name, interface="Accessible"):
        answer = self.call("org.freedesktop.DBus.Properties.Get", "org.a11y.atspi." + interface, name)
        return answer[0] if answer else None

    @property
    def name(self):
        return self.read("Name")

    @property
    def description(self):
        return self.read("Description")

    @property
    def role(self):
        answer = self.call("org.a11y.atspi.Accessible.GetRoleName")
        return answer[0].removeprefix("push ") if answer else None

    def has(self, *states):
        answer = self.call("org.a11y.atspi.Accessible.GetState")
        bits = answer[0][0] if answer else 0
        return all(bits >> state & 1 for state in states)

    @property
    def text(self):
        answer = self.call("org.a11y.atspi.Text.GetText", "--", "0", "-1")
        return answer[0] if answer else None

    def place(self):
        """Left edge, top edge, width and height on the screen."""
        answer = self.call("org.a11y.atspi.Component.GetExtents", "0")
        return answer[0] if answer else None

    def at(self, reference):
        return Accessible(self.session, self.bus, *reference)

    def children(self):
        answer = self.call("org.a11y.atspi.Accessible.GetChildren")
        return [self.at(child) for child in answer[0]] if answer else []

    def labels(self):
        """The objects that name this one."""
        answer = self.call("org.a11y.atspi.Accessible.GetRelationSet")
        return [self.at(target) for kind, targets in answer[0] if kind == 2 for target in targets]

    def everything(self):
        yield self
        for child in self.children():
            yield from child.everything()


def accessibilityBus(session):
    """The address of the bus; empty when there is none."""
    answer = session.call("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus.GetAddress")
    return ast.literal_eval(answer)[0] if answer else ""


def programNamed(session, name):
    """The root object of a program that shows a window; None when there is none."""
    desktop = Accessible(session, accessibilityBus(session), "org.a11y.atspi.Registry",
                         "/org/a11y/atspi/accessible/root")
    for each in desktop.children():
        if each.name == name and each.children():
            return each
    return None
