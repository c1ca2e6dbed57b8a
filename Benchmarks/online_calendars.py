#!/usr/bin/python3
"""Measures the companion that finds and reads calendars with Evolution Data Server (package
evolution-data-server) and a web calendar, which another program has open as on a usual desktop.

Usage: Tests/Linux/with-session-bus.sh Benchmarks/online_calendars.py COMPANION [--rounds N]
"""

import argparse
import os
import subprocess
import threading
import time
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from pathlib import Path

from gi.repository import Gio, GLib

from calendars import calendar, make_events, reading, show

PREFIX = "org.gnome.evolution.dataserver"
SOURCE = """[Data Source]
DisplayName=Web
Parent=webcal-stub

[WebDAV Backend]
ResourcePath=/web.ics

[Authentication]
Host=127.0.0.1
Port={port}
Method=none

[Security]
Method=none

[Calendar]
BackendName=webcal
"""


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("companion")
    arguments.add_argument("--rounds", type=int, default=40)
    options = arguments.parse_args()
    companion = str(Path(options.companion).resolve())
    count = 10_000
    server = serve(calendar(make_events(count)).encode())
    folder = Path(os.environ["XDG_CONFIG_HOME"], "evolution", "sources")
    folder.mkdir(parents=True)
    (folder / "web.source").write_text(SOURCE.format(port=server.server_port))
    environment = dict(os.environ, GIO_USE_VFS="local", GSETTINGS_BACKEND="memory")
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    services = []
    try:
        for program, name in (("source-registry", "Sources5"), ("calendar-factory", "Calendar8")):
            path = f"/usr/libexec/evolution-{program}"
            services.append(subprocess.Popen([path], env=environment))
            await_true(lambda name=name: has_owner(bus, f"{PREFIX}.{name}"))
        open_calendar(bus, "web", count)
        print(f"{'milliseconds':<50}{'median':>9}{'p99':>9}{'CPU':>9}")
        show("a process that does nothing (noise)", [["/bin/true"]], {}, options.rounds)
        commands = reading(companion, "service:web")
        environment["TZ"] = "Europe/Berlin"
        show("10,000 events online, 1,000 of which recur", commands, environment, options.rounds)
    finally:
        for service in services:
            service.kill()
            service.wait()


def serve(content):
    class Handler(BaseHTTPRequestHandler):
        def do_GET(self):
            self.send_response(200)
            self.send_header("Content-Type", "text/calendar")
            self.send_header("Content-Length", str(len(content)))
            self.end_headers()
            self.wfile.write(content)

        def log_message(self, *_):
            pass

    server = ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return server


def open_calendar(bus, uid, count):
    """Returns when the service has loaded the calendar, which stays open as long as this process runs."""

    def call(service, path, interface, method, *texts):
        argument = GLib.Variant(f"({'s' * len(texts)})", texts)
        flags, limit = Gio.DBusCallFlags.NONE, 30_000
        return bus.call_sync(
            service, path, f"{PREFIX}.{interface}", method, argument, None, flags, limit
        ).unpack()

    path, service = call(
        f"{PREFIX}.Calendar8", "/org/gnome/evolution/dataserver/CalendarFactory",
        "CalendarFactory", "OpenCalendar", uid
    )
    call(service, path, "Calendar", "Open")
    await_true(lambda: len(call(service, path, "Calendar", "GetObjectList", "#t")[0]) == count)
    time.sleep(1)


def has_owner(bus, name):
    return bus.call_sync(
        "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner",
        GLib.Variant("(s)", (name,)), None, Gio.DBusCallFlags.NONE, 5_000
    ).unpack()[0]


def await_true(condition):
    end = time.monotonic() + 60
    while not condition():
        if time.monotonic() > end:
            raise TimeoutError("the service does not get ready")
        time.sleep(0.2)


if __name__ == "__main__":
    main()
