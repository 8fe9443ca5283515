"""Programs on the accessibility bus, read with one call of gdbus at a time."""

import ast
import re

# Bits of a state, as AT-SPI counts them.
CHECKED, ENABLED, FOCUSABLE, FOCUSED = 4, 8, 11, 12


class Accessible:
    """One object on the accessibility bus."""

    def __init__(self, session, bus, owner, path):
        self.session, self.bus, self.owner, self.path = session, bus, owner, path

    def call(self, method, *arguments):
        reply = self.session.run(["gdbus", "call", "--address", self.bus, "--dest", self.owner,
                                  "--object-path", self.path, "--method", method, *arguments])
        if reply is None:
            return None
        # Without the names of types and the brackets of a variant, the output of gdbus is valid Python.
        reply = re.sub(r"(?<=[\[( ])(?:uint32|objectpath|@[a-z()]+) ", "", reply.strip())
        return ast.literal_eval(re.sub(r"^\(<(.*)>,\)$", r"(\1,)", reply, flags=re.S))

    def read(self, name, interface="Accessible"):
        reply = self.call("org.freedesktop.DBus.Properties.Get", "org.a11y.atspi." + interface, name)
        return reply[0] if reply else None

    @property
    def name(self):
        return self.read("Name")

    @property
    def description(self):
        return self.read("Description")

    @property
    def role(self):
        reply = self.call("org.a11y.atspi.Accessible.GetRoleName")
        return reply[0].removeprefix("push ") if reply else None

    def has(self, *states):
        reply = self.call("org.a11y.atspi.Accessible.GetState")
        bits = reply[0][0] if reply else 0
        return all(bits >> state & 1 for state in states)

    @property
    def text(self):
        reply = self.call("org.a11y.atspi.Text.GetText", "--", "0", "-1")
        return reply[0] if reply else None

    def place(self):
        """Left edge, top edge, width and height on the screen."""
        reply = self.call("org.a11y.atspi.Component.GetExtents", "0")
        return reply[0] if reply else None

    def at(self, reference):
        return Accessible(self.session, self.bus, *reference)

    def children(self):
        reply = self.call("org.a11y.atspi.Accessible.GetChildren")
        return [self.at(child) for child in reply[0]] if reply else []

    def labels(self):
        """The objects that label this one."""
        reply = self.call("org.a11y.atspi.Accessible.GetRelationSet")
        return [self.at(target) for kind, targets in reply[0] if kind == 2 for target in targets]

    def everything(self):
        yield self
        for child in self.children():
            yield from child.everything()


def accessibilityBus(session):
    """The address of the bus; empty if there is none."""
    reply = session.call("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus.GetAddress")
    return ast.literal_eval(reply)[0] if reply else ""


def programNamed(session, name):
    """The root object of a program that shows a window; None if there is none."""
    desktop = Accessible(session, accessibilityBus(session), "org.a11y.atspi.Registry",
                         "/org/a11y/atspi/accessible/root")
    for each in desktop.children():
        if each.name == name and each.children():
            return each
    return None
