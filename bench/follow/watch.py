"""Presses keys and watches parts of the screen of a test's desktop, both through one connection to its
display: of each part a copy in shared memory is compared with the one before every two milliseconds."""

import ctypes
import time

STEP = 0.002  # seconds between two images
ALL_PLANES = ctypes.c_ulong(0xFFFFFFFF)
Z_PIXMAP = 2
PRIVATE, CREATE, REMOVE = 0, 0o1600, 0  # of shmget and shmctl


class Segment(ctypes.Structure):
    """XShmSegmentInfo."""
    _fields_ = [("segment", ctypes.c_ulong), ("id", ctypes.c_int), ("address", ctypes.c_void_p),
                ("readOnly", ctypes.c_int)]


class Image(ctypes.Structure):
    """The beginning of Xlib's XImage."""
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int),
                ("format", ctypes.c_int), ("data", ctypes.c_void_p), ("byteOrder", ctypes.c_int),
                ("unit", ctypes.c_int), ("bitOrder", ctypes.c_int), ("pad", ctypes.c_int),
                ("depth", ctypes.c_int), ("bytesPerLine", ctypes.c_int)]


def library(name, **results):
    loaded = ctypes.CDLL(name, use_errno=True)
    for function, kind in results.items():
        getattr(loaded, function).restype = kind
    return loaded


class Part:
    """A rectangle of the screen; `changes` are the times at which it was seen to differ."""

    def __init__(self, screen, left, top, width, height):
        self.screen, self.left, self.top = screen, left, top
        x, ext, c = screen.x, screen.ext, screen.c
        self.info = Segment()
        self.image = ext.XShmCreateImage(screen.display, screen.visual, screen.depth, Z_PIXMAP, None,
                                         ctypes.byref(self.info), width, height)
        self.size = self.image.contents.bytesPerLine * height
        self.info.id = c.shmget(PRIVATE, ctypes.c_size_t(self.size), CREATE)
        self.info.address = c.shmat(self.info.id, None, 0)
        self.image.contents.data = self.info.address
        self.info.readOnly = 0
        attached = ext.XShmAttach(screen.display, ctypes.byref(self.info))
        x.XSync(screen.display, 0)
        c.shmctl(self.info.id, REMOVE, None)  # as soon as nobody uses it any more
        if not attached:
            raise RuntimeError("the screen cannot be shared")
        self.seen = ctypes.create_string_buffer(self.size)
        self.changes = []
        self.look()
        self.changes.clear()

    def look(self):
        self.screen.ext.XShmGetImage(self.screen.display, self.screen.root, self.image, self.left,
                                     self.top, ALL_PLANES)
        if self.screen.c.memcmp(self.seen, ctypes.c_void_p(self.info.address),
                                ctypes.c_size_t(self.size)):
            self.changes.append(time.monotonic())
            ctypes.memmove(self.seen, self.info.address, self.size)


class Screen:
    """The screen with this name. It lives as long as this process."""

    def __init__(self, name):
        pointer, number = ctypes.c_void_p, ctypes.c_ulong
        self.x = library("libX11.so.6", XOpenDisplay=pointer, XDefaultRootWindow=number,
                         XDefaultVisual=pointer, XKeysymToKeycode=ctypes.c_ubyte,
                         XStringToKeysym=number)
        self.ext = library("libXext.so.6", XShmCreateImage=ctypes.POINTER(Image))
        self.test = library("libXtst.so.6")
        self.c = library("libc.so.6", shmat=pointer)
        self.display = pointer(self.x.XOpenDisplay(name.encode()))
        self.root = number(self.x.XDefaultRootWindow(self.display))
        self.visual = pointer(self.x.XDefaultVisual(self.display, 0))
        self.depth = ctypes.c_uint(self.x.XDefaultDepth(self.display, 0))
        self.parts = []

    def part(self, left, top, width, height):
        """A rectangle that is watched from now on, as far as it is on the screen."""
        right = min(left + width, self.x.XDisplayWidth(self.display, 0))
        bottom = min(top + height, self.x.XDisplayHeight(self.display, 0))
        left, top = max(left, 0), max(top, 0)
        part = Part(self, left, top, right - left, bottom - top)
        self.parts.append(part)
        return part

    def press(self, key):
        """Presses and releases a key; returns the time."""
        code = self.x.XKeysymToKeycode(self.display,
                                       ctypes.c_ulong(self.x.XStringToKeysym(key.encode())))
        now = time.monotonic()
        for isPressed in (1, 0):
            self.test.XTestFakeKeyEvent(self.display, ctypes.c_uint(code), isPressed, ctypes.c_ulong(0))
        self.x.XFlush(self.display)
        return now

    def forget(self):
        """Forgets the changes so far."""
        for part in self.parts:
            part.look()
            part.changes.clear()

    def watch(self, seconds):
        """Watches all parts for that time."""
        end = time.monotonic() + seconds
        while (now := time.monotonic()) < end:
            for part in self.parts:
                part.look()
            time.sleep(max(STEP - (time.monotonic() - now), 0))
