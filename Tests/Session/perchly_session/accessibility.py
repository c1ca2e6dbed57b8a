"""The program's tree on the accessibility bus, as a screen reader sees it."""

from gi.repository import Gio, GLib

from .waiting import wait_until

ACCESSIBLE = "org.a11y.atspi.Accessible"
BUS = "org.freedesktop.DBus"
ACTIVE = 1
ENABLED = 8
FOCUSED = 12
SELECTED = 23
SHOWING = 25
TIMEOUT_MILLISECONDS = 3000


def connect(address):
    flags = Gio.DBusConnectionFlags
    flags = flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION
    return Gio.DBusConnection.new_for_address_sync(address, flags, None, None)


def call(bus, name, path, method, signature="()", *arguments):
    """Calls a method by its full name and returns the values of the reply."""
    interface, _, member = method.rpartition(".")
    values = GLib.Variant(signature, arguments)
    flags = Gio.DBusCallFlags.NONE
    reply = bus.call_sync(
        name, path, interface, member, values, None, flags, TIMEOUT_MILLISECONDS
    )
    return reply.unpack()


def get(bus, name, path, interface, member):
    return call(bus, name, path, f"{BUS}.Properties.Get", "(ss)", interface, member)[0]


class Node:
    """One element of the tree. On Wayland, place(window title) says where its window is."""

    def __init__(self, bus, name, path, place=None, window=None):
        self.address = bus, name, path
        self._place, self._window = place, window

    def _call(self, method, *arguments):
        return call(*self.address, f"org.a11y.atspi.{method}", *arguments)[0]

    @property
    def role(self):
        return self._call("Accessible.GetRoleName")

    @property
    def name(self):
        return get(*self.address, ACCESSIBLE, "Name")

    @property
    def description(self):
        return get(*self.address, ACCESSIBLE, "Description")

    def has(self, state):
        return bool(self._call("Accessible.GetState")[0] & (1 << state))

    @property
    def extents(self):
        """(x, y, width, height) on the screen, in pixels."""
        x, y, *size = self._call("Component.GetExtents", "(u)", 0)
        real = self._place and self._window and self._place(self._window.name)
        if real:
            told = self._window._call("Component.GetExtents", "(u)", 0)
            x, y = x - told[0] + real[0], y - told[1] + real[1]
        return x, y, *size

    @property
    def centre(self):
        x, y, width, height = self.extents
        return x + width // 2, y + height // 2

    def press(self):
        names = [action[0] for action in self._call("Action.GetActions")]
        self._call("Action.DoAction", "(i)", names.index("Press"))

    def walk(self):
        """This element and all its descendants."""
        yield self
        for address in self._call("Accessible.GetChildren"):
            child = Node(self.address[0], *address, self._place)
            # The application's children are windows.
            child._window = self._window or (child if self.role == "application" else None)
            yield from child.walk()


class Accessibility:
    """Finds the visible elements of a process. A search restarts if the tree changes meanwhile."""

    def __init__(self, session_address, process, place=None):
        service = connect(session_address), "org.a11y.Bus", "/org/a11y/bus"
        self._bus = connect(call(*service, "org.a11y.Bus.GetAddress")[0])
        self._process = process
        self._place = place
        self._root = None

    def every(self, wanted):
        """The true results of wanted(node) for all visible elements."""

        def read():
            try:
                self._root = self._root or self._application()
                found = [(wanted(node), node) for node in self._root.walk()]
                return [[value for value, node in found if value and node.has(SHOWING)]]
            except (GLib.Error, LookupError):
                return None

        return wait_until(read, "the tree at rest")[0]

    def look_for(self, name, role=None, subject=None):
        """The element with this name, role and description (None: any), or None."""

        def matches(node):
            same = node.name == name and role in (None, node.role)
            return same and subject in (None, node.description) and node

        return next(iter(self.every(matches)), None)

    def find(self, *wanted):
        """Waits for an element, see look_for."""
        return wait_until(lambda: self.look_for(*wanted), f"an element {wanted}")

    def expect_gone(self, *wanted):
        wait_until(lambda: not self.look_for(*wanted), f"no element {wanted}")

    def is_active(self, title):
        """Whether the window with this title has the keyboard."""
        windows = Node(*self._application().address)._call("Accessible.GetChildren")
        nodes = (Node(self._bus, *address) for address in windows)
        return any(node.name == title and node.has(ACTIVE) for node in nodes)

    def rows(self):
        return self.every(lambda node: node.role == "list item" and node.name)

    def _application(self):
        registry = Node(self._bus, "org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
        for name, path in registry._call("Accessible.GetChildren"):
            method = f"{BUS}.GetConnectionUnixProcessID"
            if call(self._bus, BUS, "/", method, "(s)", name)[0] == self._process:
                return Node(self._bus, name, path, self._place)
        raise LookupError("the program is not on the accessibility bus")
