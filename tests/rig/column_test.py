#!/usr/bin/env python3
"""Loads Pinorama's extension with the column "Taken at" into one real file manager, beside the real program, and
reads the cells of its list view.

usage: column_test.py BIN_FOLDER COLUMN MANAGER [--own]

COLUMN is the extension as the build fills it in; the other one, which it needs, is taken from the sources. With
--own the column is one of this folder's columns, not of the usual ones."""

import os
import shutil
import sys

from accessible import Accessible, accessibilityBus
from cases import Cases, require
from desktop import Desktop
from extension_test import FOLDERS, needBinding
from managers import managerNamed
from pictures import writePicture
from running import need, programIn, run, skip
from session import DesktopSession, RigError, waitFor

HERE = os.path.dirname(os.path.abspath(__file__))
SOURCES = os.path.join(HERE, "..", "..")
SELECTION = os.path.join(SOURCES, "packaging", "extensions", "pinorama_selection.py")
TIME = 480  # seconds in all
PATIENCE = 40  # seconds until a place is there
COLUMN = "PinoramaColumn::taken_at"
SETTINGS = {
    "nautilus": "[org/gnome/nautilus/preferences]\ndefault-folder-viewer='list-view'\n"
                "[org/gnome/nautilus/list-view]\ndefault-visible-columns={}\n",
    "nemo": "[org/nemo/preferences]\ntreat-root-as-normal=true\ndefault-folder-viewer='list-view'\n"
            "[org/nemo/list-view]\ndefault-visible-columns={}\n",
    "caja": "[org/mate/caja/preferences]\ndefault-folder-viewer='list-view'\n"
            "[org/mate/caja/list-view]\ndefault-visible-columns={}\n",
}
USHUAIA, USHUAIA_WORDS = (-54.80, -68.30), "Near Ushuaia, Argentina"
NUUK, NUUK_WORDS = (64.18, -51.70), "Near Nuuk, Greenland"
IMAGES = {"image", "icon"}  # roles
SKIPPED = {"menu bar", "menu", "scroll bar", "tool bar", "button"}


def install(session, manager, column, shown=COLUMN):
    """Installs the extensions, without the column if that is None, and makes list views the usual ones, with this
    column besides name and size."""
    share = os.path.join(session.home, ".local", "share")
    extensions = os.path.join(share, FOLDERS[manager.name], "extensions")
    os.makedirs(extensions)
    for extension in filter(None, (SELECTION, column)):
        shutil.copy(extension, extensions)
    shutil.copytree(os.path.join(SOURCES, "resources", "icons", "hicolor"), os.path.join(share, "icons", "hicolor"))
    with open(os.path.join(session.home, ".config", "glib-2.0", "settings", "keyfile"), "a",
              encoding="utf-8") as settings:
        settings.write(SETTINGS[manager.name].format(["name", "size", *filter(None, [shown])]))


def isServed(session):
    """Whether the program replies to file managers."""
    reply = session.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.NameHasOwner",
                         "org.pinorama.Pinorama.Places")
    return reply is not None and "true" in reply


class Beside:
    """The file manager with the extension, on a folder of pictures, and the program."""

    def __init__(self, session, manager, binFolder, column, isOwn):
        self.session, self.manager = session, manager
        self.desktop = Desktop(session)
        self.program = programIn(binFolder)
        self.folder = os.path.join(session.home, "Bilder")
        os.makedirs(self.folder)
        self.write("a.jpg", USHUAIA)
        self.write("b.NEF", USHUAIA)
        self.write("other.txt", USHUAIA)
        shutil.copy(SELECTION, self.path("none.jpg"))  # a picture by its name only
        install(session, manager, column, None if isOwn else COLUMN)
        if isOwn:
            self.setOwnColumns()

    def setOwnColumns(self):
        """As the file manager does for one folder; only with GVfs it can."""
        del self.session.environment["GIO_USE_VFS"]
        key = f"metadata::{self.manager.name}-list-view-visible-columns"
        command = ["gio", "set", "-t", "stringv", self.folder, key, "name", "size", COLUMN]
        if self.session.run(command) is None:
            raise RigError("gio cannot set the columns of a folder")

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, place):
        writePicture(self.path(name), *place)

    def open(self):
        self.startProgram()
        self.process = self.session.start([*self.manager.command, self.folder], extra=self.manager.extra)
        self.window = self.desktop.newWindow([self.process])
        self.desktop.resize(self.window, 1300, 800)
        self.root = waitFor(self.findRoot, 40)
        if not self.root:
            raise RigError("the file manager is not on the accessibility bus")
        if not waitFor(self.findView, 60):
            raise RigError("the file manager shows no list")

    def findRoot(self):
        """The file manager on the accessibility bus, where it has its own or its application's name."""
        everything = Accessible(self.session, accessibilityBus(self.session), "org.a11y.atspi.Registry",
                                "/org/a11y/atspi/accessible/root")
        return next((each for each in everything.children()
                     if self.manager.name in (each.name or "").lower() and each.children()), None)

    def startProgram(self):
        self.pinorama = self.session.start([self.program])
        if not waitFor(lambda: isServed(self.session), 60):
            raise RigError("the program is not on the session bus")

    def findView(self):
        """The object around all rows, without asking for those of menus. Each question takes a moment."""
        def around(item, above):
            if item.role in SKIPPED:
                return None
            if item.name == "a.jpg":
                return next((each for each in reversed(above) if self.names(each).count("other.txt")), None)
            return next((found for found in (around(each, [*above, item]) for each in item.children()) if found),
                        None)
        self.view = around(self.root, [])
        return self.view is not None

    @staticmethod
    def names(item):
        """The names of the objects in it, in their order: those of a row are next to each other."""
        return [name for name in (each.name for each in item.everything()) if name]

    def rows(self):
        """By the name of each file that is shown what stands behind it. One look, because each takes seconds."""
        files = set(os.listdir(self.folder))
        rows, row = {}, []
        for text in self.names(self.view):
            if text in files and text not in rows:
                row = rows.setdefault(text, [])
            elif text not in files:
                row.append(text)
        return rows

    def images(self):
        """By the name of each file how many images are drawn in its row."""
        files = set(os.listdir(self.folder))
        images, file = {}, None
        for each in self.view.everything():
            name = each.name
            if name in files and name not in images:
                file = name
                images[file] = 0
            if file and each.role in IMAGES:
                images[file] += 1
        return images

    def expect(self, **places):
        """Waits until the rows of these files, without their endings, have these places; None for none."""
        seen = {}

        def holds():
            seen.update({name.partition(".")[0]: row for name, row in self.rows().items()})
            return all(name in seen and self.hasPlace(seen[name], place) for name, place in places.items())
        require(waitFor(holds, PATIENCE), f"expected {places}, got {seen}")
        return seen

    @staticmethod
    def hasPlace(row, place):
        if place is not None:
            return place in row
        return not any(text.startswith("Near ") or text == "unknown" for text in row)

    def messages(self):
        with open(os.path.join(self.session.root, self.manager.command[0] + ".log"), errors="replace",
                  encoding="utf-8") as log:
            return log.read()


cases = Cases()


@cases.add
def words(beside):
    """The column says where the pictures were taken, and nothing for other files. Pictures that have a position
    are marked; only Nautilus says which images it draws."""
    beside.expect(a=USHUAIA_WORDS, b=USHUAIA_WORDS, none=None, other=None)
    if beside.manager.name == "nautilus":
        images = beside.images()
        require(images["a.jpg"] == images["b.NEF"] == images["none.jpg"] + 1 == images["other.txt"] + 1,
                f"images: {images}")


@cases.add
def otherPlaces(beside):
    """A picture whose position changes gets its new place, and one that loses it has none, when the folder is
    loaded again."""
    beside.write("a.jpg", NUUK)
    shutil.copy(SELECTION, beside.path("b.NEF"))
    beside.desktop.activate(beside.window)
    beside.desktop.keys("F5")
    beside.expect(a=NUUK_WORDS, b=None, none=None, other=None)
    beside.write("b.NEF", USHUAIA)
    beside.desktop.keys("F5")
    beside.expect(a=NUUK_WORDS, b=USHUAIA_WORDS)


@cases.add
def aNewPicture(beside):
    """What is added to the folder gets its place."""
    beside.write("c.jpg", USHUAIA)
    beside.expect(c=USHUAIA_WORDS)


@cases.add
def withoutPinorama(beside):
    """When Pinorama ends, the file manager keeps running, and new pictures have no place; when it is back,
    they have."""
    beside.session.end(beside.pinorama)
    beside.write("d.jpg", USHUAIA)
    beside.expect(d=None)
    beside.startProgram()

    # The extension hears of it a moment later, and in most file managers is asked for each file once only.
    def isPlaced(name):
        beside.write(name, USHUAIA)
        return waitFor(lambda: beside.hasPlace(beside.rows().get(name, []), USHUAIA_WORDS), 5)
    require(any(isPlaced(f"e{number}.jpg") for number in range(PATIENCE // 5)), "new pictures get no place")
    if not beside.manager.isSince(beside.manager.asksAgain):
        beside.expect(d=None)
    require(beside.process.poll() is None, "the file manager ended")


@cases.add
def quiet(beside):
    """The extension writes no messages."""
    messages = beside.messages()
    require("pinorama" not in messages.lower().replace("pinorama-desktop", "") and "Traceback" not in messages,
            f"it wrote {messages[-2000:]}")


def main():
    binFolder, column = (os.path.abspath(path) for path in sys.argv[1:3])
    manager = managerNamed(sys.argv[3])
    isOwn = "--own" in sys.argv[4:]
    need(manager.command[0])
    needBinding(manager)
    if isOwn and not os.path.exists("/usr/libexec/gvfsd-metadata"):
        skip("GVfs, which remembers the columns of a folder, is not installed")
    with DesktopSession() as session:
        beside = Beside(session, manager, binFolder, column, isOwn)
        beside.open()
        return cases.run(manager.name, beside)


if __name__ == "__main__":
    run(main, TIME)
