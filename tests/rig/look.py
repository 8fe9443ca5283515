#!/usr/bin/env python3
"""Prints the objects of a real file manager's window as the accessibility bus exposes them: what you need to
know to follow a new one.

usage: look.py MANAGER [--view VIEW] [KEY]...

Starts the file manager on a folder of pictures, selects the first item, presses the keys, and prints every
object: role, name, description, states, interfaces, place in the window, and the number of its children. Of
more than 12 children it shows the first 12."""

import argparse
import time

from gi.repository import Gio, GLib

from accessible import accessibilityBus
from follow import Follow
from managers import managerNamed
from running import need, run
from session import DesktopSession

STATES = {1: "active", 4: "checked", 12: "focused", 20: "pressed", 23: "selected", 25: "showing", 30: "visible"}
SKIPPED = {"menu bar", "menu", "scroll bar"}
MOST = 12  # children of one object
TIME = 300  # seconds in all


class NoProbe:
    """Follow wants somebody who observes the selection."""

    def paths(self):
        return []


class Tree:
    def __init__(self, session):
        flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT |
                 Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        self.bus = Gio.DBusConnection.new_for_address_sync(accessibilityBus(session), flags, None, None)

    def call(self, item, interface, method, arguments=None):
        try:
            reply = self.bus.call_sync(*item, interface, method, arguments, None, Gio.DBusCallFlags.NONE, 3000,
                                       None)
        except GLib.Error:
            return None
        return reply.unpack()[0]

    def ask(self, item, method, arguments=None, interface="Accessible"):
        return self.call(item, "org.a11y.atspi." + interface, method, arguments)

    def read(self, item, name):
        return self.call(item, "org.freedesktop.DBus.Properties", "Get",
                         GLib.Variant("(ss)", ("org.a11y.atspi.Accessible", name)))

    def children(self, item):
        return self.ask(item, "GetChildren") or []

    def show(self, item, depth=0):
        role = self.ask(item, "GetRoleName")
        children = self.children(item)
        bits = (self.ask(item, "GetState") or [0])[0]
        interfaces = [each.rpartition(".")[2] for each in self.ask(item, "GetInterfaces") or []]
        print("  " * depth + f"{role} {self.read(item, 'Name')!r}",
              f"({self.read(item, 'Description')!r})",
              " ".join(name for bit, name in STATES.items() if bits >> bit & 1),
              "/".join(interfaces),
              self.ask(item, "GetExtents", GLib.Variant("(u)", (1,)), "Component"),
              f"{len(children)} children" if children else "")
        if role in SKIPPED:
            return
        for child in children[:MOST]:
            if not child[1].endswith("/null"):
                self.show(child, depth + 1)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("manager")
    parser.add_argument("--view")
    parser.add_argument("keys", nargs="*")
    arguments = parser.parse_args()
    manager = managerNamed(arguments.manager)
    need(manager.command[0])
    with DesktopSession() as session:
        follow = Follow(session, manager, NoProbe())
        follow.start()
        if arguments.view:
            follow.switchView(arguments.view)
        follow.selectFirst()
        follow.desktop.keys(*arguments.keys)
        time.sleep(1)
        tree = Tree(session)
        registry = ("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
        for program in tree.children(registry):
            tree.show(program)
    return 0


if __name__ == "__main__":
    run(main, TIME)
