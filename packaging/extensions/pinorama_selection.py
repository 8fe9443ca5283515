"""Tells Pinorama what is selected in this file manager, at the moment in which it changes.

One file for Nautilus, Nemo, Caja and Thunar, which load it through their Python bindings
(python3-nautilus, nemo-python, python3-caja, thunarx-python). It adds nothing to their menus: a menu
provider is asked for its items whenever the selection changes, and that is all it is here for.
Without Pinorama on the session bus it does nothing."""

import gi
from gi.repository import Gio, GLib, GObject

SERVICE = "org.pinorama.Selection1"
OBJECT = "/org/pinorama/Selection"
MOST_URIS = 64  # Pinorama looks at one; further ones only tell that there are several


def loadBinding():
    """The interface of the file manager that has loaded this file."""
    with open("/proc/self/comm", encoding="ascii", errors="replace") as name:
        host = name.read().strip().lower()
    for program, namespace, version in (
        ("nautilus", "Nautilus", "4.1"),
        ("nautilus", "Nautilus", "4.0"),
        ("nautilus", "Nautilus", "3.0"),
        ("nemo", "Nemo", "3.0"),
        ("caja", "Caja", "2.0"),
        ("thunar", "Thunarx", "3.0"),
    ):
        if not host.startswith(program):
            continue
        try:
            gi.require_version(namespace, version)
        except ValueError:
            continue
        return getattr(__import__("gi.repository", fromlist=[namespace]), namespace)
    raise ImportError(f"Pinorama's extension does not know {host}")


Binding = loadBinding()
ASKS_WHEN_NOTHING_IS_SELECTED = "Nemo" not in Binding.__name__


def uriOf(file):
    """A file address where there is one: what is recent, starred or found, and what is mounted from
    elsewhere, lies in the file system as well."""
    uri = file.get_uri()
    if not uri.startswith("file:"):
        path = file.get_location().get_path()
        if path:
            uri = Gio.File.new_for_path(path).get_uri()
    return uri


def titleOf(window):
    """Asked for as properties, because the toolkit's own binding need not be installed."""
    if window is None:
        # Nautilus since 43 does not say which window asks; it is the one in front.
        application = Gio.Application.get_default()
        window = application.get_property("active-window") if application else None
    return (window.get_property("title") or "") if window else ""


class Pusher:
    """Sends the selection to Pinorama while that is on the bus."""

    def __init__(self):
        self.bus = None
        self.isHeard = False
        self.last = None
        Gio.bus_get(Gio.BusType.SESSION, None, self._onBus)

    def _onBus(self, _source, result):
        try:
            self.bus = Gio.bus_get_finish(result)
        except GLib.Error:
            return  # no session bus, nobody to tell
        Gio.bus_watch_name_on_connection(self.bus, SERVICE, Gio.BusNameWatcherFlags.NONE,
                                         self._onHere, self._onGone)

    def _onHere(self, *_):
        self.isHeard = True
        if self.last:
            self._send()

    def _onGone(self, *_):
        self.isHeard = False

    def push(self, uris, title):
        self.last = (uris, title)
        if self.isHeard:
            self._send()

    def _send(self):
        # Without a callback no answer is asked for, and a name that is not there starts nothing.
        self.bus.call(SERVICE, OBJECT, SERVICE, "Push", GLib.Variant("(ass)", self.last), None,
                      Gio.DBusCallFlags.NO_AUTO_START, 1000, None, None)


PUSHER = Pusher()
filesToldAt = 0  # microseconds


def tell(arguments, files):
    """`arguments` begin with the window, except in Nautilus since 43."""
    try:
        window = arguments[0] if len(arguments) > 1 else None
        PUSHER.push([uriOf(file) for file in files[:MOST_URIS]], titleOf(window))
    except Exception as error:  # pylint: disable=broad-except
        # Whatever goes wrong here must not reach the file manager.
        GLib.log_default_handler("Pinorama", GLib.LogLevelFlags.LEVEL_DEBUG, str(error), None)


def tellFiles(arguments):
    global filesToldAt
    filesToldAt = GLib.get_monotonic_time()
    tell(arguments, arguments[-1])
    return []


def tellFolder(arguments):
    """Nothing is selected, unless the same change has just told otherwise: Nautilus asks for the
    items of the folder after those of the files, every time. Nemo asks for them at any time."""
    if ASKS_WHEN_NOTHING_IS_SELECTED and GLib.get_monotonic_time() - filesToldAt > 100000:
        tell(arguments, [])
    return []


class PinoramaSelection(GObject.GObject, Binding.MenuProvider):
    def get_file_items(self, *arguments):
        return tellFiles(arguments)

    def get_background_items(self, *arguments):
        return tellFolder(arguments)

    def get_file_menu_items(self, *arguments):
        return tellFiles(arguments)

    def get_folder_menu_items(self, *arguments):
        return tellFolder(arguments)
