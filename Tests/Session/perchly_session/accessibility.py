"""What a screen reader sees: the program's tree on the accessibility bus."""

from gi.repository import Gio, GLib

from .waiting import wait_until

ACCESSIBLE = "org.a11y.atspi.Accessible"
ROOT = "/org/a11y/atspi/accessible/root"
SHOWING = 25
FOCUSED = 12
CALL_MILLISECONDS = 3000


def connect(address):
    return Gio.DBusConnection.new_for_address_sync(
        address,
        Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
        | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
        None,
        None,
    )


def call(bus, name, path, interface, method, arguments=None):
    """A blocking call with a deadline; returns the reply's values."""
    return bus.call_sync(
        name, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, CALL_MILLISECONDS
    ).unpack()


class Node:
    """One element of the tree."""

    def __init__(self, bus, name, path):
        self._bus = bus
        self._name = name
        self._path = path

    def _call(self, interface, method, arguments=None):
        return call(self._bus, self._name, self._path, interface, method, arguments)

    @property
    def role(self):
        return self._call(ACCESSIBLE, "GetRoleName")[0]

    @property
    def name(self):
        arguments = GLib.Variant("(ss)", (ACCESSIBLE, "Name"))
        return self._call("org.freedesktop.DBus.Properties", "Get", arguments)[0]

    @property
    def description(self):
        arguments = GLib.Variant("(ss)", (ACCESSIBLE, "Description"))
        return self._call("org.freedesktop.DBus.Properties", "Get", arguments)[0]

    @property
    def children(self):
        return [Node(self._bus, *child) for child in self._call(ACCESSIBLE, "GetChildren")[0]]

    @property
    def showing(self):
        return self._has(SHOWING)

    @property
    def focused(self):
        return self._has(FOCUSED)

    def _has(self, state):
        low, _ = self._call(ACCESSIBLE, "GetState")[0]
        return bool(low & (1 << state))

    @property
    def extents(self):
        """(x, y, width, height) on the screen."""
        arguments = GLib.Variant("(u)", (0,))
        return self._call("org.a11y.atspi.Component", "GetExtents", arguments)[0]

    @property
    def centre(self):
        x, y, width, height = self.extents
        return x + width // 2, y + height // 2

    def press(self):
        """Performs the element's press action, as a screen reader's user does."""
        actions = self._call("org.a11y.atspi.Action", "GetActions")[0]
        names = [action[0] for action in actions]
        arguments = GLib.Variant("(i)", (names.index("Press"),))
        self._call("org.a11y.atspi.Action", "DoAction", arguments)

    def walk(self):
        """This element and all below it."""
        yield self
        for child in self.children:
            yield from child.walk()


def _arrow(here, there, role):
    if role not in ("push button", "check box"):
        return "Tab"  # it needs the arrows itself
    if here[0] != there[0]:
        return "Down" if here[0] < there[0] else "Up"
    return "Right" if here[1] < there[1] else "Left"


class Accessibility:
    """Finds elements of one process. Elements come and go with the shelf's states, so every search
    is repeated until the deadline."""

    def __init__(self, session_address, process):
        address = call(
            connect(session_address), "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress"
        )[0]
        self._bus = connect(address)
        self._process = process

    def application(self):
        """The program's root element, once it is on the bus."""
        return wait_until(self._application, "the program on the accessibility bus")

    def find(self, name, role=None):
        """The showing element with this name (and role)."""
        return wait_until(lambda: self.look_for(name, role), f"an element named {name!r}")

    def every(self, wanted):
        """What `wanted` returns of the showing elements, where that is true. Starts again when the
        tree changes under its eyes."""

        def walk():
            try:
                nodes = [node for node in self.application().walk() if node.showing]
                return [[found for found in map(wanted, nodes) if found]]
            except GLib.Error:
                return None

        return wait_until(walk, "a tree at rest")[0]

    def look_for(self, name, role=None):
        """As find, but only looks once; None if there is no such element now."""
        try:
            for node in self.application().walk():
                if node.name == name and (role is None or node.role == role) and node.showing:
                    return node
        except GLib.Error:
            pass  # the tree changed under our eyes
        return None

    def focused(self):
        """The innermost showing element with the keyboard, or None."""
        found = None
        try:
            for node in self.application().walk():
                if node.focused and node.showing and node.name:
                    found = node
        except GLib.Error:
            pass
        return found

    def key_towards(self, names, subject=None):
        """The key that brings the keyboard nearer to a control of one of those names (for that
        entry): an arrow where the list that has the keyboard holds it, else Tab."""
        try:
            for group in self.application().walk():
                if group.role == "list" and group.showing:
                    places = [
                        ((row, place), node)
                        for row, item in enumerate(group.children)
                        for place, node in enumerate(item.walk())
                    ]
                    here = [place for place, node in places if node.focused and node.name]
                    there = [
                        place
                        for place, node in places
                        if node.name in names and subject in (None, node.description)
                    ]
                    if here and there:
                        return _arrow(here[-1], there[0], dict(places)[here[-1]].role)
        except GLib.Error:
            pass
        return "Tab"

    def outline(self):
        """The tree as indented lines, for a failure's report."""
        lines = []

        def add(node, depth):
            try:
                lines.append("  " * depth + f"{node.role}: {node.name!r} {node.extents}")
                for child in node.children:
                    add(child, depth + 1)
            except GLib.Error as problem:
                lines.append("  " * depth + f"({problem.message})")

        add(self.application(), 0)
        return "\n".join(lines)

    def _application(self):
        registry = Node(self._bus, "org.a11y.atspi.Registry", ROOT)
        try:
            for child in registry.children:
                arguments = GLib.Variant("(s)", (child._name,))
                bus, path = "org.freedesktop.DBus", "/org/freedesktop/DBus"
                method = "GetConnectionUnixProcessID"
                process = call(self._bus, bus, path, bus, method, arguments)[0]
                if process == self._process:
                    return child
        except GLib.Error:
            pass
        return None
