"""Reports the selection of this file manager to Pinorama, the moment it changes.

One file for Nautilus, Nemo, Caja and Thunar, which load it through their Python bindings
(python3-nautilus, nemo-python, python3-caja, thunarx-python). It adds nothing to their menus: a menu
provider is asked for its items whenever the selection changes, which is the only reason to be one.
Without Pinorama on the session bus it does nothing."""

import gi
from gi.repository import Gio, GLib, GObject

SERVICE = "org.pinorama.Pinorama.Selection"
OBJECT = "/org/pinorama/Selection"
MOST_URIS = 64  # Pinorama reads one; any further ones only show that there are several

with open("/proc/self/comm", encoding="ascii", errors="replace") as comm:
    HOST = comm.read().strip().lower()


def loadBinding():
    """The interface of the file manager that has loaded this file."""
    for program, namespace, version in (
        ("nautilus", "Nautilus", "4.1"),
        ("nautilus", "Nautilus", "4.0"),
        ("nautilus", "Nautilus", "3.0"),
        ("nemo", "Nemo", "3.0"),
        ("caja", "Caja", "2.0"),
        ("thunar", "Thunarx", "3.0"),
    ):
        if not HOST.startswith(program):
            continue
        try:
            gi.require_version(namespace, version)
        except ValueError:
            continue
        return getattr(__import__("gi.repository", fromlist=[namespace]), namespace)
    raise ImportError(f"Pinorama's extension does not know {HOST}")


Binding = loadBinding()


def uriOf(file):
    """The file URI if there is one: recent, starred and found files, and those on mounted network
    folders, are in the file system as well."""
    uri = file.get_uri()
    if not uri.startswith("file:"):
        path = file.get_location().get_path()
        if path:
            uri = Gio.File.new_for_path(path).get_uri()
    return uri


def titleOf(window):
    """The title of the window if it has the focus, else "": a selection that changes by itself, as
    when a file vanishes, must not be taken for the user's. Read as properties, because the toolkit's
    own binding may not be installed."""
    if window is None or not window.get_property("is-active"):
        return ""
    return window.get_property("title") or ""


class Pusher:
    """Sends the selection to Pinorama while Pinorama is on the bus. What was selected earlier is not
    sent: there is no way to know in which window that was."""

    def __init__(self):
        self.bus = None
        self.isHeard = False
        Gio.bus_get(Gio.BusType.SESSION, None, self._onBus)

    def _onBus(self, _source, result):
        try:
            self.bus = Gio.bus_get_finish(result)
        except GLib.Error:
            return  # no session bus, nobody to report to
        Gio.bus_watch_name_on_connection(self.bus, SERVICE, Gio.BusNameWatcherFlags.NONE,
                                         self._onHere, self._onGone)

    def _onHere(self, *_):
        self.isHeard = True

    def _onGone(self, *_):
        self.isHeard = False

    def push(self, files, title):
        """An empty title means that the selection is unknown."""
        if not self.isHeard:
            return
        uris = [uriOf(file) for file in files[:MOST_URIS]] if title else []
        # Without a callback no reply is requested, and an absent service is not started.
        self.bus.call(SERVICE, OBJECT, SERVICE, "Push", GLib.Variant("(ass)", (uris, title)), None,
                      Gio.DBusCallFlags.NO_AUTO_START, 1000, None, None)


PUSHER = Pusher()


class Change:
    """One change of the selection. A file manager asks for the menu items of the selected files; some
    ask for those of the folder as well, with every change or only when nothing is selected."""

    files = None  # of the current change

    @classmethod
    def begin(cls, files):
        cls.files = files
        GLib.idle_add(cls.end, priority=GLib.PRIORITY_HIGH)

    @classmethod
    def end(cls):
        cls.files = None
        return GLib.SOURCE_REMOVE


class Windows:
    """The windows of Nautilus 43 and later, which does not say which window asks. It is the active one
    if that shows the folder and no other window does."""

    references = []  # weak; every window is active when it is new

    @classmethod
    def titleFor(cls, folder):
        """None if another window asks, whose selection does not matter."""
        application = Gio.Application.get_default()
        window = application.get_property("active-window") if application else None
        if cls._folderOf(window) is None:
            return ""
        windows = [known for known in (reference() for reference in cls.references) if known]
        if window not in windows:
            windows.append(window)
            cls.references = [known.weak_ref() for known in windows]
        here = [known for known in windows if cls._shows(known, folder)]
        if window not in here:
            return None
        return titleOf(window) if len(here) == 1 else ""

    @staticmethod
    def _folderOf(window):
        if window is None or window.find_property("active-slot") is None:
            return None
        slot = window.get_property("active-slot")
        return slot.get_property("location") if slot else None

    @classmethod
    def _shows(cls, window, folder):
        shown = cls._folderOf(window)
        return shown is not None and shown.equal(folder)


def filesAsked(files, window=None):
    Change.begin(files)
    if window is None:
        return  # Nautilus 43 and later asks for the folder's items next
    title = titleOf(window)
    if HOST == "caja" and files:
        folder = files[0].get_location().get_parent()
        if folder is None or folder.get_basename() != title:
            title = ""  # may be the pane without the focus
    PUSHER.push(files, title)


def folderAsked(folder, window=None):
    files = Change.files
    Change.end()
    if window is None:
        title = Windows.titleFor(folder.get_location())
        if title is not None:
            PUSHER.push(files or [], title)
    elif files is None and not HOST.startswith("nemo"):  # Nemo asks for them at any time
        PUSHER.push([], titleOf(window))


def heard(tell, arguments):
    """`arguments` begin with the window, except in Nautilus 43 and later."""
    try:
        tell(arguments[-1], *arguments[:-1])
    except Exception as error:  # pylint: disable=broad-except
        # Whatever goes wrong here must not reach the file manager.
        PUSHER.push([], "")
        GLib.log_default_handler("Pinorama", GLib.LogLevelFlags.LEVEL_DEBUG, str(error), None)
    return []


class PinoramaSelection(GObject.GObject, Binding.MenuProvider):
    def get_file_items(self, *arguments):
        return heard(filesAsked, arguments)

    def get_background_items(self, *arguments):
        return heard(folderAsked, arguments)

    def get_file_menu_items(self, *arguments):
        return heard(filesAsked, arguments)

    def get_folder_menu_items(self, *arguments):
        return heard(folderAsked, arguments)
