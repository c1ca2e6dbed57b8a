"""The program's item among the desktop's status icons, as the desktop's panel sees it."""

from gi.repository import GLib

from .accessibility import call, connect
from .status_watcher import NAME
from .waiting import wait_until

PROPERTIES = "org.freedesktop.DBus.Properties"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"


class StatusItem:
    """The first registered item."""

    def __init__(self, session_address):
        self._bus = connect(session_address)
        registered = wait_until(self._registered, "an item with the status watcher")
        self._service, _, path = registered[0].partition("/")
        self._path = "/" + path
        self._menu_path = self.property("Menu")

    def property(self, name):
        return self._get(self._service, self._path, ITEM, name)

    def menu(self):
        """The entries as (id, title, shortcut), in order, separators left out; a title has no
        mnemonic marks."""
        arguments = GLib.Variant("(iias)", (0, -1, []))
        _, (_, _, children) = self._call("GetLayout", arguments)
        return [
            (number, values["label"].replace("_", ""), values.get("shortcut"))
            for number, values, _ in children
            if values.get("type") != "separator"
        ]

    def choose(self, title):
        """Chooses the entry with this title."""
        number = next(number for number, label, _ in self.menu() if label == title)
        event = GLib.Variant("(isvu)", (number, "clicked", GLib.Variant("s", ""), 0))
        self._call("Event", event)

    def _call(self, method, arguments):
        return call(self._bus, self._service, self._menu_path, MENU, method, arguments)

    def _get(self, service, path, interface, name):
        arguments = GLib.Variant("(ss)", (interface, name))
        return call(self._bus, service, path, PROPERTIES, "Get", arguments)[0]

    def _registered(self):
        try:
            return self._get(NAME, "/StatusNotifierWatcher", NAME, "RegisteredStatusNotifierItems")
        except GLib.Error:
            return None


def watcher_runs(session_address):
    """Whether the desktop has a place for status items now."""
    arguments = GLib.Variant("(s)", (NAME,))
    bus = "org.freedesktop.DBus"
    return call(connect(session_address), bus, "/", bus, "NameHasOwner", arguments)[0]
