"""Watches the screen of a benchmark's desktop until it stops changing."""

import ctypes
import time

STRIP = (780, 380, 24, 430)  # through the middle of a centred window
INTERVAL = 0.002  # seconds between two images
ALL_PLANES = ctypes.c_ulong(0xFFFFFFFF)
Z_PIXMAP = 2


class Image(ctypes.Structure):
    """The beginning of Xlib's XImage."""
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int),
                ("format", ctypes.c_int), ("data", ctypes.c_void_p), ("byteOrder", ctypes.c_int),
                ("unit", ctypes.c_int), ("bitOrder", ctypes.c_int), ("pad", ctypes.c_int),
                ("depth", ctypes.c_int), ("bytesPerLine", ctypes.c_int)]


class Screen:
    def __init__(self, name):
        self.x = ctypes.CDLL("libX11.so.6")
        self.x.XOpenDisplay.restype = ctypes.c_void_p
        self.x.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x.XGetImage.restype = ctypes.POINTER(Image)
        self.display = ctypes.c_void_p(self.x.XOpenDisplay(name.encode()))
        self.root = ctypes.c_ulong(self.x.XDefaultRootWindow(self.display))

    def lastChange(self, seconds):
        """Watches the middle of the screen for a while; returns the seconds until its last change."""
        begin = time.monotonic()
        last = begin
        seen = self._strip()
        while time.monotonic() - begin < seconds:
            time.sleep(INTERVAL)
            now = self._strip()
            if now != seen:
                seen, last = now, time.monotonic()
        return last - begin

    def close(self):
        self.x.XCloseDisplay(self.display)

    def _strip(self):
        image = self.x.XGetImage(self.display, self.root, *STRIP, ALL_PLANES, Z_PIXMAP)
        pixels = ctypes.string_at(image.contents.data,
                                  image.contents.bytesPerLine * image.contents.height)
        self.x.XFree(ctypes.c_void_p(image.contents.data))
        self.x.XFree(image)
        return pixels
