"""A watcher for status icons, and the program's item."""

import threading

from gi.repository import Gio, GLib

from .accessibility import BUS, call, connect, get
from .waiting import wait_until

NAME = "org.kde.StatusNotifierWatcher"
INTERFACE = f"""<node><interface name='{NAME}'>
  <method name='RegisterStatusNotifierItem'><arg type='s' direction='in'/></method>
  <property name='IsStatusNotifierHostRegistered' type='b' access='read'/>
</interface></node>"""
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"


class StatusWatcher:
    """Owns the bus name of the desktop's status icons until close()."""

    def __init__(self, address):
        self._bus = connect(address)
        self._item = None
        interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        has_host = GLib.Variant("b", True)
        self._bus.register_object(
            "/StatusNotifierWatcher", interface, self._register, lambda *_: has_host, None
        )
        self._loop = GLib.MainLoop()
        self._thread = threading.Thread(target=self._loop.run, daemon=True)
        self._thread.start()
        call(self._bus, BUS, "/", f"{BUS}.RequestName", "(su)", NAME, 0)

    def close(self):
        self._loop.quit()
        self._thread.join()
        if not self._bus.is_closed():
            self._bus.close_sync()

    def _register(self, _bus, sender, _path, _interface, _method, arguments, invocation):
        named = arguments.unpack()[0]
        self._item = (sender, named) if named.startswith("/") else (named, "/StatusNotifierItem")
        invocation.return_value(None)

    def property(self, name):
        """A property of the last registered item."""

        def read():
            try:
                return self._item and [get(self._bus, *self._item, ITEM, name)]
            except GLib.Error:
                return None  # its program has ended

        return wait_until(read, "a status item")[0]

    def click(self, method):
        call(self._bus, *self._item, f"{ITEM}.{method}", "(ii)", 0, 0)

    def menu(self):
        """The entries as (id, title, shortcut), without separators and mnemonic marks."""
        method = f"{MENU}.GetLayout"
        _, (_, _, children) = self._call_menu(method, "(iias)", 0, -1, [])
        return [
            (number, values["label"].replace("_", ""), values.get("shortcut"))
            for number, values, _ in children
            if values.get("type") != "separator"
        ]

    def choose(self, title):
        number = next(number for number, label, _ in self.menu() if label == title)
        self._call_menu(f"{MENU}.Event", "(isvu)", number, "clicked", GLib.Variant("s", ""), 0)

    def _call_menu(self, *call_arguments):
        path = self.property("Menu")
        return call(self._bus, self._item[0], path, *call_arguments)
