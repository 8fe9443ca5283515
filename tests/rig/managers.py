"""The file managers that are followed: how each is started and which keys do what in it."""

import re
import subprocess
from dataclasses import dataclass, field


def versionOf(package):
    """The version of an installed package, as numbers."""
    done = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package], capture_output=True, check=True,
                          text=True)
    upstream = re.sub(r"^\d+:", "", done.stdout)
    return tuple(int(number) for number in re.findall(r"\d+", upstream.partition("-")[0]))


@dataclass
class Manager:
    name: str
    command: list                  # without the folder
    process: str
    toolkit: str = "GTK"
    views: dict = field(default_factory=dict)  # view -> (keys that switch to it, key to the next item)
    firstView: str = "icons"
    viewSettings: dict = field(default_factory=dict)  # view without keys -> its line in settingsFile
    settingsFile: str = ""         # below the home folder; read at the start
    split: str = ""                # key that opens and closes a second pane; "" for none
    splitViews: dict = field(default_factory=dict)  # of viewSettings -> the key to the next item in each of two
                                                    # panes; {} for the first view in both
    newTab: tuple = ("ctrl+t",)    # keys that open a tab and switch to it
    toTabs: tuple = ("ctrl+Prior", "ctrl+Next")  # keys that switch to the first and to the second tab
    extra: dict = field(default_factory=dict)  # environment
    expand: str = ""               # key that opens a folder within the list view; "" for none
    tellsFolders: bool = True      # whether the items of such a folder can be told from the others
    searches: bool = False         # whether Ctrl+F searches the open folder and those below it
    findsLocations: bool = None    # whether results of a search show their folders; None: not tested
    desktop: list = None           # command that draws desktop icons
    goTo: tuple = ("ctrl+l",)      # keys to press before typing a URL to go to
    trash: str = "trash:///"       # URL of the Trash; "" if it shows none
    remote: str = ""               # scheme of a folder on a WebDAV server
    reportsSeveral: bool = False   # whether it exposes the paths of several selected items
    hidesMalformed: tuple = ()     # the version from which on it hides names that are not UTF-8
    hidesUnseen: tuple = ()        # the version from which on it hides names that are scrolled out of view
    asksAgain: tuple = ()          # the version from which on it may ask its extensions for the others of a folder
                                   # again when a file is new

    def isSince(self, version):
        """Whether the installed one is of that version or a later one; False for ()."""
        return bool(version) and versionOf(self.name) >= version


ICONS = "Right"
LIST = "Down"


def spaceFMSession(*views):
    """The settings with which SpaceFM begins with these views in its two panels, of which the first has room for
    all that it shows."""
    lines = [f"panel{panel}_list_{each}-b={1 if each == view else 2}\n"
             for panel, view in enumerate(views, 1) for each in ("detailed", "icons", "compact")]
    return "[MOD]\npanel_sliders-x=700\n" + "".join(lines)


MANAGERS = [
    Manager("nautilus", ["nautilus", "--new-window"], "nautilus",
            views={"icons": (["ctrl+2"], ICONS), "list": (["ctrl+1"], LIST)}, reportsSeveral=True,
            searches=True, hidesUnseen=(48,)),
    Manager("nemo", ["nemo", "--no-desktop"], "nemo",
            views={"icons": (["ctrl+1"], ICONS), "list": (["ctrl+2"], LIST),
                   "compact": (["ctrl+3"], LIST)},
            split="F3", expand="Right", searches=True, findsLocations=True, desktop=["nemo-desktop"],
            reportsSeveral=True, asksAgain=(6, 6)),
    Manager("caja", ["caja", "--no-desktop", "--browser"], "caja",
            views={"icons": (["ctrl+1"], ICONS), "list": (["ctrl+2"], LIST),
                   "compact": (["ctrl+3"], LIST)},
            split="F3", expand="shift+Right", searches=True, findsLocations=False,
            desktop=["caja", "--force-desktop", "--no-default-window"],
            reportsSeveral=True),
    Manager("thunar", ["thunar"], "thunar",
            views={"icons": (["ctrl+1"], ICONS), "list": (["ctrl+2"], LIST),
                   "compact": (["ctrl+3"], LIST)},
            split="F3", searches=True, findsLocations=True, hidesMalformed=(4, 20)),
    Manager("pcmanfm", ["pcmanfm", "-n"], "pcmanfm",
            views={"icons": (["ctrl+1"], ICONS), "compact": (["ctrl+2"], LIST),
                   "list": (["ctrl+4"], LIST)},
            extra={"GTK_MODULES": "gail:atk-bridge"}),
    Manager("pcmanfm-qt", ["pcmanfm-qt", "-n"], "pcmanfm-qt", "Qt",
            views={"icons": ([], ICONS), "compact": ([], LIST), "list": ([], LIST)},
            viewSettings={"icons": "[FolderView]\nMode=icon\n",
                          "compact": "[FolderView]\nMode=compact\n",
                          "list": "[FolderView]\nMode=detailed\n"},
            settingsFile=".config/pcmanfm-qt/default/settings.conf", newTab=("ctrl+t", "ctrl+Next"),
            split="F6", desktop=["pcmanfm-qt", "--desktop"]),
    Manager("dolphin", ["dolphin", "--new-window"], "dolphin", "Qt",
            views={"icons": (["ctrl+1"], ICONS), "compact": (["ctrl+2"], LIST),
                   "list": (["ctrl+3"], LIST)},
            split="F3", expand="Right", searches=True, tellsFolders=False, trash="trash:/",
            remote="webdav"),
    Manager("spacefm", ["spacefm", "-n", "-w"], "spacefm",
            views={"icons": ([], ICONS), "compact": ([], LIST), "list": ([], LIST)},
            viewSettings={"icons": spaceFMSession("icons", "icons"),
                          "compact": spaceFMSession("compact", "compact"),
                          "list": spaceFMSession("detailed", "detailed"),
                          "icons and list": spaceFMSession("icons", "detailed")},
            settingsFile=".config/spacefm/session", split="ctrl+2",
            # The second panel shows the root or the home folder; only lists name the links in it.
            splitViews={"list": (LIST, LIST), "icons and list": (ICONS, LIST)},
            newTab=("ctrl+t", "Home", "Return"),  # a new tab shows the home folder
            toTabs=("alt+1", "alt+2"), hidesMalformed=(1,), extra={"GTK_MODULES": "gail:atk-bridge"}),
]


def managerNamed(name):
    return next(manager for manager in MANAGERS if manager.name == name)
