"""A desktop session of its own: X server, window manager, bus, folders, and the program in it."""

import contextlib
import ctypes
import json
import os
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from Xlib import X

from .accessibility import Accessibility
from .screen import Screen
from .status_item import StatusItem, watcher_runs
from .waiting import wait_until

ACCESSIBILITY_SERVICE = """[D-BUS Service]
Name=org.a11y.Bus
Exec=/usr/libexec/at-spi-bus-launcher
"""
BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={folder}/bus</listen>
  <servicedir>{folder}/services</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""
PR_SET_PDEATHSIG = 1
SYS_PIDFD_GETFD = 438
SHADOW = 26
CHORD_KEYS = ("space", "k")
CHORD_MODIFIERS = X.ControlMask | X.Mod1Mask
MENUS = ("_NET_WM_WINDOW_TYPE_TOOLTIP", "_NET_WM_WINDOW_TYPE_POPUP_MENU")


class Program:
    """A running Perchly."""

    def __init__(self, session, number):
        self._session = session
        self._errors = session.folder / f"stderr-{number}"
        with open(self._errors, "wb") as errors:
            self.process = subprocess.Popen(
                [session.executable],
                env=session.program_environment(),
                cwd=session.folder,
                stdin=subprocess.DEVNULL,
                stdout=errors,
                stderr=errors,
                preexec_fn=_die_with_parent,
            )

    @property
    def pid(self):
        return self.process.pid

    def running(self):
        return self.process.poll() is None

    def rests(self):
        """Whether the program waits for events: it sleeps, and uses no time, for a while."""
        seen = set()
        for _ in range(6):
            fields = Path(f"/proc/{self.pid}/stat").read_text().rpartition(")")[2].split()
            seen.add((fields[0], fields[11], fields[12]))
            time.sleep(0.02)
        return len(seen) == 1 and seen.pop()[0] == "S"

    def wake_ups(self):
        """How often any of the program's threads has gone to sleep so far."""
        tasks = Path(f"/proc/{self.pid}/task").glob("*/status")
        lines = (line for task in tasks for line in task.read_text().splitlines())
        return sum(int(line.split()[1]) for line in lines if line.startswith("voluntary"))

    def cut_connections(self):
        """Closes the program's lines to the X server under its hands, all but the toolkit's, which
        is the first that it made; returns how many."""
        found = []
        with contextlib.ExitStack() as stack:
            process = os.pidfd_open(self.pid)
            stack.callback(os.close, process)
            for link in Path(f"/proc/{self.pid}/fd").iterdir():
                if not os.readlink(link).startswith("socket:"):
                    continue
                copy = ctypes.CDLL(None).syscall(SYS_PIDFD_GETFD, process, int(link.name), 0)
                line = stack.enter_context(socket.socket(fileno=copy))
                if line.family == socket.AF_UNIX and b"X11-unix" in _peer_name(line):
                    found.append((int(link.name), line))
            for _, line in sorted(found, key=lambda each: each[0])[1:]:
                line.shutdown(socket.SHUT_RDWR)
        return len(found) - 1

    def errors(self):
        """What the program has written on its standard streams."""
        return self._errors.read_text(errors="replace")

    def windows(self):
        return self._session.screen.windows_of(self.pid)

    def window(self, title):
        """The mapped window with exactly this title, or None."""
        return next((w for w in self.windows() if w.title == title), None)

    def panel(self):
        """The shelf's window, or None."""
        for window in self.windows():
            if window.override_redirect and not set(window.types) & set(MENUS):
                return window
        return None

    def outline(self):
        """What of the shelf takes the pointer, as (x, y, width, height), or None."""
        panel = self.panel()
        return self._session.screen.input_frame(panel) if panel else None

    def frame(self):
        """The shelf's window without its shadow, as (x, y, width, height), or None."""
        panel = self.panel()
        if not panel or not self._session.screen.has_compositor():
            return panel.rect if panel else None
        # There is no shadow on the side that touches the edge of the display.
        x, y, width, height = panel.rect
        outline = self._session.screen.input_frame(panel)
        left = 0 if outline[0] == x else SHADOW
        top = 0 if outline[1] == y else SHADOW
        right = 0 if outline[0] + outline[2] == x + width else SHADOW
        return x + left, y + top, width - left - right, height - top - SHADOW

    def accessibility(self):
        return Accessibility(self._session.bus_address, self.pid)

    def stop(self):
        """Ends the program as a session manager does and returns its exit status."""
        if self.running():
            self.process.terminate()
            try:
                self.process.wait(10)
            except subprocess.TimeoutExpired:
                self.process.kill()
                raise AssertionError("the program did not end when asked to") from None
        return self.process.returncode

    def kill(self):
        """Ends the program at once, as a crash does, and waits until nothing of it is left."""
        self.process.kill()
        self.process.wait()
        wait_until(lambda: not self.windows(), "the windows of a killed program gone")
        for key in CHORD_KEYS:
            wait_until(
                lambda: not self._session.screen.is_held(key, CHORD_MODIFIERS),
                f"the chord with {key} free again",
            )


class Session:
    """Everything runs from start() to stop(); nothing of the person's own is touched.

    window_manager is "openbox", "xfwm4" or None; compositor is "xfwm4", "picom" or None. monitors
    is a list of (x, y, width, height) that the screen is divided into. Without bus the program has
    none; window managers do not work without.
    """

    def __init__(
        self,
        executable,
        window_manager="openbox",
        compositor=None,
        bus=True,
        status_watcher=False,
        size=(1280, 800),
        monitors=(),
        scale=None,
    ):
        self.executable = str(executable)
        self.window_manager = window_manager
        self.compositor = compositor
        self.programs = []
        self.screen = None
        self._bus = bus
        self._status_watcher = status_watcher
        self._size = size
        self._monitors = list(monitors)
        self._services = []
        self.folder = Path(tempfile.mkdtemp(prefix="perchly-session-"))
        self.bus_address = f"unix:path={self.folder}/bus"
        self.environment = self._make_environment(scale)

    # Life

    def start(self):
        self.environment["DISPLAY"] = self._start_server()
        self.screen = Screen(self.environment["DISPLAY"])
        for number, monitor in enumerate(self._monitors):
            self.add_monitor(number, monitor)
        self._start_bus()
        if self._status_watcher:
            self.start_status_watcher()
        if self.window_manager:
            self._start_window_manager()
        if self.compositor:
            self.start_compositor()
        return self

    def stop(self):
        for program in self.programs:
            if program.running():
                program.process.kill()
                program.process.wait()
        if self.screen:
            self.screen.close()
        for service in reversed(self._services):
            _end(service)
        shutil.rmtree(self.folder, ignore_errors=True)

    def run(self, wait=True):
        """Starts the program and waits for its shelf, and until it rests."""
        program = Program(self, len(self.programs))
        self.programs.append(program)
        if wait:
            wait_until(
                lambda: program.panel() or not program.running(), "the shelf on the screen"
            )
            if not program.running():
                status = program.process.returncode
                raise AssertionError(f"it ended at once, status {status}: {program.errors()}")
            wait_until(program.rests, "the program done with its start", interval=0)
        return program

    def program_environment(self):
        environment = dict(self.environment)
        if not self._bus:
            environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={self.folder}/no-bus"
        return environment

    # Preferences

    @property
    def preferences_file(self):
        return Path(self.environment["XDG_CONFIG_HOME"]) / "perchly" / "preferences.json"

    def preferences(self):
        """What is stored now; empty if nothing is."""
        stored = {}
        for file in self.preferences_file.parent.glob("*.json"):
            stored |= json.loads(file.read_text())
        return stored

    def store(self, **values):
        """Stores preferences before the program starts, beside those that are there."""
        self.preferences_file.parent.mkdir(parents=True, exist_ok=True, mode=0o700)
        self.preferences_file.write_text(json.dumps(self.preferences() | values))

    # What surrounds the program

    def add_monitor(self, number, rect):
        """Makes a part of the screen a display of its own."""
        x, y, width, height = rect
        geometry = f"{width}/300x{height}/200+{x}+{y}"
        output = "screen" if number == 0 else "none"
        self._call("xrandr", "--setmonitor", f"monitor{number}", geometry, output)

    def remove_monitor(self, number):
        self._call("xrandr", "--delmonitor", f"monitor{number}")

    def start_compositor(self):
        if self.compositor == "picom":
            self.spawn("picom", "--backend", "xrender", "--no-use-damage", "--config", "/dev/null")
        wait_until(self.screen.has_compositor, "a compositor")

    def start_status_watcher(self):
        script = Path(__file__).with_name("status_watcher.py")
        watcher = self.spawn(sys.executable, "-B", str(script))
        wait_until(lambda: watcher_runs(self.bus_address), "the status watcher")
        return watcher

    def status_item(self):
        return StatusItem(self.bus_address)

    # Parts

    def _make_environment(self, scale):
        environment = {
            name: value
            for name, value in os.environ.items()
            if name in ("PATH", "LD_LIBRARY_PATH", "QT_QUICK_BACKEND")
            or name.endswith("SAN_OPTIONS")
        }
        environment |= {
            "LANG": "C.UTF-8",
            "TZ": "UTC",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            "DBUS_SESSION_BUS_ADDRESS": self.bus_address,
            "GIO_USE_VFS": "local",
            "GSETTINGS_BACKEND": "memory",
        }
        if scale:
            environment["QT_SCALE_FACTOR"] = str(scale)
        folders = {
            "HOME": "home",
            "XDG_CONFIG_HOME": "home/.config",
            "XDG_DATA_HOME": "home/.local/share",
            "XDG_STATE_HOME": "home/.local/state",
            "XDG_CACHE_HOME": "home/.cache",
            "XDG_RUNTIME_DIR": "runtime",
            "TMPDIR": "tmp",
        }
        for name, folder in folders.items():
            (self.folder / folder).mkdir(parents=True, exist_ok=True, mode=0o700)
            environment[name] = str(self.folder / folder)
        return environment

    def _start_server(self):
        width, height = self._size
        options = f"-displayfd {{ready}} -nolisten tcp -noreset -screen 0 {width}x{height}x24"
        return ":" + self._spawn_and_hear("Xvfb", *options.split())

    def _start_bus(self):
        services = self.folder / "services"
        services.mkdir()
        (services / "org.a11y.Bus.service").write_text(ACCESSIBILITY_SERVICE)
        configuration = self.folder / "bus.conf"
        configuration.write_text(BUS_CONFIGURATION.format(folder=self.folder))
        options = ("--nofork", f"--config-file={configuration}", "--print-address={ready}")
        self._spawn_and_hear("dbus-daemon", *options)

    def _start_window_manager(self):
        if self.window_manager == "xfwm4":
            compositor = "on" if self.compositor == "xfwm4" else "off"
            self.spawn("xfwm4", f"--compositor={compositor}")
        else:
            self.spawn("openbox", "--sm-disable")
        wait_until(self.screen.has_window_manager, f"{self.window_manager} running")
        wait_until(self.screen.manages_windows, f"{self.window_manager} at work")

    def spawn(self, *command, pass_fds=(), stdout=None):
        """Starts another program, which ends with the session."""
        with open(self.folder / "services.log", "ab") as log:
            service = subprocess.Popen(
                command,
                env=self.environment,
                cwd=self.folder,
                stdin=subprocess.DEVNULL,
                stdout=stdout or log,
                stderr=log,
                pass_fds=pass_fds,
                start_new_session=True,
                preexec_fn=_die_with_parent,
            )
        self._services.append(service)
        return service

    def _spawn_and_hear(self, *command):
        """Starts another program and returns the line that it writes to {ready} when it is ready."""
        read, write = os.pipe()
        self.spawn(*(part.format(ready=write) for part in command), pass_fds=(write,))
        os.close(write)
        with os.fdopen(read) as pipe:
            line = pipe.readline().strip()
        if not line:
            raise AssertionError(f"{command[0]} did not start: {self._log()}")
        return line

    def _call(self, *command):
        quiet = {"stdin": subprocess.DEVNULL, "capture_output": True}
        subprocess.run(command, env=self.environment, check=True, timeout=20, **quiet)

    def _log(self):
        return (self.folder / "services.log").read_text(errors="replace")


def _die_with_parent():
    """A test that is killed leaves nothing running."""
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGKILL)


def _peer_name(line):
    try:
        return os.fsencode(line.getpeername())
    except OSError:
        return b""


def _end(service):
    """Ends a service and what it started."""
    try:
        os.killpg(service.pid, signal.SIGTERM)
    except ProcessLookupError:
        pass
    try:
        service.wait(3)
    except subprocess.TimeoutExpired:
        os.killpg(service.pid, signal.SIGKILL)
        service.wait()
