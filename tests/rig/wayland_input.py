"""Keys and the mouse on a Wayland compositor, in plain Python: the few messages of the protocols
zwp_virtual_keyboard_v1 and zwlr_virtual_pointer_v1, which the compositors with wlroots have."""

import os
import socket
import struct
import threading
import time

DISPLAY = 1  # the object that every connection begins with
SYNC, GET_REGISTRY, BIND = 0, 1, 0
LEFT_BUTTON = 0x110

KEYMAP = b"""xkb_keymap {
xkb_keycodes { include "evdev+aliases(qwerty)" };
xkb_types { include "complete" };
xkb_compat { include "complete" };
xkb_symbols { include "pc+us+inet(evdev)" };
};
\0"""
# Key codes of the kernel.
CODES = {"Right": 106, "Down": 108, "Up": 103, "Left": 105, "Home": 102, "End": 107, "Return": 28,
         "Prior": 104, "Next": 109, "Escape": 1, "ctrl": 29, "shift": 42, "alt": 56}
for _row, _first in (("1234567890", 2), ("qwertyuiop", 16), ("asdfghjkl", 30), ("zxcvbnm", 44)):
    CODES.update({letter: _first + place for place, letter in enumerate(_row)})
MODIFIERS = {"shift": 1, "ctrl": 4, "alt": 8}


def _words(*numbers):
    return struct.pack(f"<{len(numbers)}I", *numbers)


def _text(text):
    data = text.encode() + b"\0"
    return _words(len(data)) + data.ljust((len(data) + 3) // 4 * 4, b"\0")


def _now():
    return int(time.monotonic() * 1000) & 0xffffffff


class Connection:
    """A Wayland client that reads nothing but the globals, errors, and the answers to its sync requests."""

    def __init__(self, path):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(path)
        self.lastObject = DISPLAY
        self.globals = {}  # interface -> (name, version)
        self.waiting = {}  # object -> an event that ends the wait for it
        self.errors = []
        self.registry = self.newObject()
        self.send(DISPLAY, GET_REGISTRY, _words(self.registry))
        threading.Thread(target=self._read, daemon=True).start()
        self.sync()

    def close(self):
        self.socket.close()

    def newObject(self):
        self.lastObject += 1
        return self.lastObject

    def send(self, item, request, arguments=b"", descriptors=()):
        message = _words(item, (len(arguments) + 8) << 16 | request) + arguments
        socket.send_fds(self.socket, [message], list(descriptors))

    def sync(self):
        """Waits until the compositor has handled all requests."""
        item = self.newObject()
        self.waiting[item] = threading.Event()
        self.send(DISPLAY, SYNC, _words(item))
        if not self.waiting[item].wait(5) or self.errors:
            raise OSError(f"the compositor does not respond: {self.errors}")

    def bind(self, interface, version):
        """A new object of a global interface."""
        if interface not in self.globals:
            raise OSError(f"the compositor has no {interface}")
        name, highest = self.globals[interface]
        item = self.newObject()
        self.send(self.registry, BIND,
                  _words(name) + _text(interface) + _words(min(version, highest), item))
        return item

    def _read(self):
        data = b""
        while True:
            try:
                more = self.socket.recv(65536)
            except OSError:
                return
            if not more:
                return
            data += more
            while len(data) >= 8:
                item, word = struct.unpack_from("<II", data)
                size = word >> 16
                if len(data) < size:
                    break
                self._take(item, word & 0xffff, data[8:size])
                data = data[size:]

    def _take(self, item, event, arguments):
        if item == DISPLAY and event == 0:
            self.errors.append(arguments[12:].rstrip(b"\0").decode(errors="replace"))
        elif item == self.registry and event == 0:
            name, length = struct.unpack_from("<II", arguments)
            interface = arguments[8:8 + length - 1].decode()
            version = struct.unpack_from("<I", arguments, 8 + (length + 3) // 4 * 4)[0]
            self.globals[interface] = (name, version)
        elif item in self.waiting:
            self.waiting[item].set()


class VirtualInput:
    """A keyboard and a mouse. `screen` is the width and height of the output."""

    def __init__(self, path, screen):
        self.connection = Connection(path)
        self.screen = screen
        seat = self.connection.bind("wl_seat", 5)
        keyboards = self.connection.bind("zwp_virtual_keyboard_manager_v1", 1)
        self.keyboard = self.connection.newObject()
        self.connection.send(keyboards, 0, _words(seat, self.keyboard))
        keymap = os.memfd_create("keymap")
        os.write(keymap, KEYMAP)
        self.connection.send(self.keyboard, 0, _words(1, len(KEYMAP)), [keymap])
        os.close(keymap)
        pointers = self.connection.bind("zwlr_virtual_pointer_manager_v1", 1)
        self.pointer = self.connection.newObject()
        self.connection.send(pointers, 0, _words(seat, self.pointer))
        self.connection.sync()

    def press(self, names):
        """Presses keys together, such as ["ctrl", "a"]."""
        for isPressed in (1, 0):
            for name in names if isPressed else reversed(names):
                self.connection.send(self.keyboard, 1, _words(_now(), CODES[name], isPressed))
                if name in MODIFIERS:
                    held = sum(MODIFIERS.get(each, 0) for each in names) if isPressed else 0
                    self.connection.send(self.keyboard, 2, _words(held, 0, 0, 0))
        self.connection.sync()

    def click(self, x, y):
        """Clicks at a place on the screen, in pixels."""
        self.connection.send(self.pointer, 1, _words(_now(), int(x), int(y), *self.screen))
        self.connection.send(self.pointer, 4)
        for isPressed in (1, 0):
            self.connection.send(self.pointer, 2, _words(_now(), LEFT_BUTTON, isPressed))
            self.connection.send(self.pointer, 4)
        self.connection.sync()

    def close(self):
        self.connection.close()


class FakeInput:
    """The same by org_kde_kwin_fake_input, which KWin has."""

    def __init__(self, path):
        self.connection = Connection(path)
        self.fake = self.connection.bind("org_kde_kwin_fake_input", 4)
        self.connection.send(self.fake, 0, _text("tests") + _text("tests"))
        self.connection.sync()

    def press(self, names):
        for isPressed in (1, 0):
            for name in names if isPressed else reversed(names):
                self.connection.send(self.fake, 10, _words(CODES[name], isPressed))
        self.connection.sync()

    def click(self, x, y):
        self.connection.send(self.fake, 9, struct.pack("<ii", int(x) * 256, int(y) * 256))
        for isPressed in (1, 0):
            self.connection.send(self.fake, 2, _words(LEFT_BUTTON, isPressed))
        self.connection.sync()

    def close(self):
        self.connection.close()
