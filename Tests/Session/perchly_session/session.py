"""A desktop session: X server, window manager, bus, folders, and the program in it."""

import contextlib
import json
import os
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

from Xlib import X

from . import sway, xwayland
from .accessibility import Accessibility
from .screen import Screen
from .status_item import StatusWatcher
from .waiting import wait_until

BUS_CONFIGURATION = Path(__file__).parents[1] / "bus" / "session.conf"
WINDOW_MANAGERS = {
    "openbox": ("openbox", "--sm-disable"),
    "xfwm4": ("xfwm4", "--compositor=off"),
    "xfwm4 compositor": ("xfwm4", "--compositor=on"),
}
XWAYLANDS = ("mutter", "kwin_wayland")  # compositors that run the shelf on their X server
KEPT_VARIABLES = ("PATH", "LD_LIBRARY_PATH", "QT_QUICK_BACKEND")
# Qt's animation timer when one QML Timer stops before another has started
QT_NOISE = "perchly: QUnifiedTimer::stopAnimationDriver: driver is not running\n"
FOLDERS = {"HOME": "home", "XDG_RUNTIME_DIR": "runtime", "TMPDIR": "tmp"}


class Program:
    """A running Perchly."""

    def __init__(self, session):
        self._session = session
        self._log = session.folder / f"stderr-{len(session.programs)}"
        self.process = session.spawn(session.executable, log=self._log)
        self.pid = self.process.pid

    def running(self):
        return self.process.poll() is None

    def rests(self):
        """Whether the program is idle: for a while it sleeps and uses no CPU time."""
        seen = set()
        for _ in range(6):
            fields = Path(f"/proc/{self.pid}/stat").read_text().rpartition(")")[2].split()
            seen.add((fields[0], fields[11], fields[12]))
            time.sleep(0.02)
        return len(seen) == 1 and seen.pop()[0] == "S"

    def wake_ups(self):
        """How often the program's threads have gone to sleep so far."""
        tasks = Path(f"/proc/{self.pid}/task").glob("*/status")
        lines = (line for task in tasks for line in task.read_text().splitlines())
        return sum(int(line.split()[1]) for line in lines if line.startswith("voluntary"))

    def errors(self):
        """The program's output on stdout and stderr, without QT_NOISE."""
        return self._log.read_text(errors="replace").replace(QT_NOISE, "")

    def windows(self):
        return self._session.screen.windows_of(self.pid)

    def window(self, title):
        """The mapped window with exactly this title, or None."""
        return next((w for w in self.windows() if w.title == title), None)

    def panel(self):
        """The shelf's window, or None."""
        return self._session.screen.panel(self.pid)

    def frame(self):
        """The shelf's frame (x, y, width, height) without its shadow, or None."""
        return self._session.screen.frame(self.pid)

    def has_keyboard(self):
        """Whether the shelf has the keyboard."""
        if isinstance(self._session.screen, sway.Screen):
            return self.accessibility().is_active("Perchly")
        return self._session.screen.focus() == self.panel().id

    def accessibility(self):
        screen = self._session.screen
        return Accessibility(self._session.bus_address, self.pid, screen.origin_of)

    def stop(self):
        """Ends the program as a session manager does and returns its exit status."""
        self.process.terminate()
        return self.process.wait(10)

    def kill(self):
        """Kills the program, as in a crash, and waits until the X server has noticed."""
        self.process.kill()
        self.process.wait()
        wait_until(lambda: not self.windows(), "the windows of a killed program gone")


class Session:
    """An isolated session that runs until stop() and leaves the user's desktop alone.

    window_manager is "openbox", "xfwm4" (without its compositor), "xfwm4 compositor", None, or
    a Wayland compositor: "sway", "mutter" or "kwin_wayland". bus says whether Perchly may reach the
    session bus; the window manager always can. Outputs of sway can be removed if removable_outputs.
    """

    def __init__(
        self, executable, window_manager="openbox", bus=True, size=(1280, 800), scale=1,
        removable_outputs=False,
    ):
        self.executable = str(executable)
        self.window_manager = window_manager
        self.programs = []
        self.folder = Path(tempfile.mkdtemp(prefix="perchly-session-"))
        self.bus_address = f"unix:path={self.folder}/bus"
        self._stack = contextlib.ExitStack()
        self._stack.callback(shutil.rmtree, self.folder, ignore_errors=True)
        self.environment = {
            name: value
            for name, value in os.environ.items()
            if name in KEPT_VARIABLES or name.endswith("SAN_OPTIONS")
        } | {
            "LANG": "C.UTF-8",
            "TZ": "UTC",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            "DBUS_SESSION_BUS_ADDRESS": self.bus_address,
            "GIO_USE_VFS": "local",
            "GSETTINGS_BACKEND": "memory",
        }
        for name, folder in FOLDERS.items():
            (self.folder / folder).mkdir(mode=0o700)
            self.environment[name] = str(self.folder / folder)
        self.home = self.folder / FOLDERS["HOME"]
        self.preferences_file = self.home / ".config" / "perchly" / "preferences.json"
        self.start_bus()
        if self.is_wayland:
            self.screen = sway.Screen(self, size, scale, removable_outputs)
        elif self.window_manager in XWAYLANDS:
            self.screen = xwayland.Screen(self, size)
        else:
            self._start_x_server(size, scale)
        if self.window_manager in WINDOW_MANAGERS:
            self.start_window_manager()
        if not bus:
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={self.folder}/no-bus"

    @property
    def is_wayland(self):
        return self.window_manager == "sway"

    def _start_x_server(self, size, scale):
        self.environment["QT_SCALE_FACTOR"] = str(scale)
        server = "Xvfb -displayfd 1 -nolisten tcp -noreset -screen 0 {}x{}x24".format(*size)
        self.server, number = self._spawn_and_hear(*server.split())
        self.environment["DISPLAY"] = f":{number}"
        self.screen = Screen(self.environment["DISPLAY"])
        self._stack.callback(self.screen.display.close)

    def stop(self):
        self._stack.close()

    def start_bus(self):
        options = (f"--config-file={BUS_CONFIGURATION}", f"--address={self.bus_address}")
        self.bus, _ = self._spawn_and_hear("dbus-daemon", "--nofork", "--print-address", *options)

    def restart_bus(self):
        end(self.bus)
        self.start_bus()

    def start_window_manager(self):
        self.manager = self.spawn(*WINDOW_MANAGERS[self.window_manager])
        wait_until(self.screen.manages_windows, f"{self.window_manager} at work", interval=0)

    def run(self, wait=True):
        """Starts the program and waits until its shelf is shown and it is idle."""
        program = Program(self)
        self.programs.append(program)
        if wait:
            wait_until(lambda: program.panel() or not program.running(), "the shelf")
            assert program.running(), f"{program.process.returncode}: {program.errors()}"
            wait_until(program.rests, "the program done with its start", interval=0)
        return program

    # Preferences

    def preferences(self):
        """The stored preferences; empty if there are none."""
        stored = {}
        for file in self.preferences_file.parent.glob("*.json"):
            stored |= json.loads(file.read_text())
        return stored

    def store(self, **values):
        self.preferences_file.parent.mkdir(parents=True, exist_ok=True, mode=0o700)
        self.preferences_file.write_text(json.dumps(self.preferences() | values))

    # Other programs

    def data_folder(self, name):
        folder = self.home / ".local" / "share" / name
        folder.mkdir(parents=True, exist_ok=True)
        return folder

    def install(self, name, command):
        """Installs an application; returns its desktop entry."""
        entry = self.data_folder("applications") / f"{name}.desktop"
        entry.write_text(f"[Desktop Entry]\nType=Application\nName={name}\nExec={command}\n")
        return entry

    def add_monitor(self, number, rect):
        if self.is_wayland:
            self.screen.add_output(number, rect)
            return
        x, y, width, height = rect
        geometry = f"{width}/300x{height}/200+{x}+{y}"
        output = "screen" if number == 0 else "none"
        self.call("xrandr", "--setmonitor", f"monitor{number}", geometry, output)

    def start_compositor(self):
        if self.is_wayland:
            return
        self.spawn("picom", "--backend", "xrender", "--no-use-damage", "--config", "/dev/null")
        selection = self.screen.atom("_NET_WM_CM_S0")
        owner = lambda: self.screen.display.get_selection_owner(selection)
        wait_until(lambda: owner() != X.NONE, "a compositor")

    def start_status_watcher(self):
        """Starts a watcher for status icons."""
        watcher = StatusWatcher(self.bus_address)
        self._stack.callback(watcher.close)
        return watcher

    def call(self, *command, **options):
        options = {"capture_output": True, "timeout": 20, "check": True} | options
        return subprocess.run(command, env=self.environment, **options).stdout

    def spawn(self, *command, log=None, stdout=None, stdin=subprocess.DEVNULL):
        """Starts another program, which ends with the session."""
        with open(log or self.folder / "services.log", "ab") as file:
            service = subprocess.Popen(
                # Kills it with a killed test.
                ("setpriv", "--pdeathsig", "KILL", *command),
                env=self.environment,
                cwd=self.folder,
                stdin=stdin,
                stdout=stdout or file,
                stderr=file,
                start_new_session=True,
            )
        self._stack.callback(end, service)
        return service

    def _spawn_and_hear(self, *command):
        """Starts another program; returns it and the line that it prints when ready."""
        service = self.spawn(*command, stdout=subprocess.PIPE)
        line = service.stdout.readline().decode().strip()
        assert line, (self.folder / "services.log").read_text(errors="replace")
        return service, line


def entries(*paths):
    """Applications as the shelf stores its entries, named after their files."""
    shown = {"visible": True, "favorite": False}
    items = [shown | {"id": str(p), "path": str(p), "name": Path(p).stem} for p in paths]
    return {"data": json.dumps(items), "encoding": "utf-8"}


def end(service):
    """Ends a service and its children."""
    for number in (signal.SIGTERM, signal.SIGKILL):
        with contextlib.suppress(ProcessLookupError, subprocess.TimeoutExpired):
            os.killpg(service.pid, number)
            service.wait(3)
    for pipe in (service.stdin, service.stdout):
        if pipe:
            pipe.close()
