"""A desktop's place for status icons: run as a program, it owns org.kde.StatusNotifierWatcher."""

import sys

from gi.repository import Gio, GLib

NAME = "org.kde.StatusNotifierWatcher"
INTERFACE = """
<node><interface name='org.kde.StatusNotifierWatcher'>
  <method name='RegisterStatusNotifierItem'><arg type='s' direction='in'/></method>
  <method name='RegisterStatusNotifierHost'><arg type='s' direction='in'/></method>
  <property name='RegisteredStatusNotifierItems' type='as' access='read'/>
  <property name='IsStatusNotifierHostRegistered' type='b' access='read'/>
  <property name='ProtocolVersion' type='i' access='read'/>
  <signal name='StatusNotifierItemRegistered'><arg type='s'/></signal>
  <signal name='StatusNotifierHostRegistered'/>
</interface></node>
"""


class Watcher:
    def __init__(self, bus):
        self.items = []
        bus.register_object(
            "/StatusNotifierWatcher",
            Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0],
            self._called,
            self._read,
            None,
        )

    def _called(self, bus, sender, path, interface, method, arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            service = arguments.unpack()[0]
            item = sender + service if service.startswith("/") else service + "/StatusNotifierItem"
            self.items.append(item)
            signal = GLib.Variant("(s)", (item,))
            bus.emit_signal(None, path, interface, "StatusNotifierItemRegistered", signal)
        invocation.return_value(None)

    def _read(self, bus, sender, path, interface, name):
        return {
            "RegisteredStatusNotifierItems": GLib.Variant("as", self.items),
            "IsStatusNotifierHostRegistered": GLib.Variant("b", True),
            "ProtocolVersion": GLib.Variant("i", 0),
        }[name]


def main():
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    watcher = Watcher(bus)
    Gio.bus_own_name_on_connection(bus, NAME, Gio.BusNameOwnerFlags.NONE, None, None)
    GLib.MainLoop().run()
    return len(watcher.items)


if __name__ == "__main__":
    sys.exit(main())
