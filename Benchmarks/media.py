#!/usr/bin/python3
"""Measures the cost of following a media player, and that of playerctl.

Both read the same silent mpv in turn, on a separate bus; compare figures of one run only. Then the whole
program follows that player in its own X session.
Usage: media.py PROGRAM [--rounds N] [--seconds N], with the companion beside the program.
"""

import os
import statistics
import subprocess
import sys
import tempfile
import time
import wave
from pathlib import Path

from gi.repository import Gio, GLib

from measuring import command_line, high, measured_session
from processes import cpu_seconds

ROOT = Path(__file__).resolve().parent.parent
WRAPPER = ROOT / "Tests" / "Linux" / "with-session-bus.sh"
SCRIPTS = ROOT / "Sources" / "Perchly" / "MediaActivity" / "MediaScripts.cpp"
MPV_PLUGIN = "/usr/lib/mpv-mpris/mpris.so"
INSIDE = "PERCHLY_BENCHMARK_INSIDE"


def reading_script():
    """Returns the reading script from the program's source."""
    return SCRIPTS.read_text(encoding="utf-8").split('R"js(')[1].split(')js"')[0]


def command_script(number):
    texts = SCRIPTS.read_text(encoding="utf-8").split('R"js(')
    prefix, body, _, suffix = (text.split(')js"')[0] for text in texts[2:6])
    return prefix + body.replace("%1", str(number)) + suffix


def run(command):
    """Returns the wall and CPU milliseconds of one process; discards its output."""
    start = time.perf_counter()
    pid = os.posix_spawn(
        command[0], command, os.environ,
        file_actions=[(os.POSIX_SPAWN_OPEN, 1, "/dev/null", os.O_WRONLY, 0)],
    )
    _, status, usage = os.wait4(pid, 0)
    if status != 0:
        raise SystemExit(f"{command[0]} ended with {status}")
    wall = (time.perf_counter() - start) * 1e3
    return wall, (usage.ru_utime + usage.ru_stime) * 1e3


def peak_megabytes(companion, script):
    """Returns the peak memory of a reading that is kept running long enough to measure."""
    script += "\nrun(); $.NSRunLoop.currentRunLoop.runUntilDate(0.5);"
    process = subprocess.Popen(
        [companion, "-l", "JavaScript", "-e", script], stdout=subprocess.DEVNULL
    )
    time.sleep(0.3)
    status = Path(f"/proc/{process.pid}/status").read_text()
    process.wait()
    return int(status.split("VmHWM:")[1].split()[0]) / 1024


def start_player(folder, environment):
    path = Path(folder) / "silence.wav"
    with wave.open(str(path), "wb") as sound:
        sound.setnchannels(1)
        sound.setsampwidth(1)
        sound.setframerate(8000)
        sound.writeframes(b"\x80" * 8000 * 3600)
    player = subprocess.Popen(
        ["mpv", "--no-config", "--no-terminal", "--no-video", "--ao=null", f"--script={MPV_PLUGIN}", path],
        env=environment,
    )
    deadline = time.monotonic() + 10
    status = ["playerctl", "status"]
    while subprocess.run(status, capture_output=True, env=environment).stdout != b"Playing\n":
        if time.monotonic() > deadline:
            raise SystemExit("mpv did not appear on the bus")
        time.sleep(0.05)
    return player


def measure(companion, script, rounds):
    contestants = {
        "an empty process": ["/bin/true"],
        "playerctl metadata": ["/usr/bin/playerctl", "metadata"],
        "a reading": [companion, "-l", "JavaScript", "-e", script],
    }
    samples = {name: [] for name in contestants}
    for command in contestants.values():
        run(command)
    for _ in range(rounds):
        for name, command in contestants.items():
            samples[name].append(run(command))
    return samples


def applied(companion, reading, rounds):
    """Measures from a press until the player confirms the command: a fresh reading, then the command."""
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    heard = []
    bus.signal_subscribe(
        None, "org.freedesktop.DBus.Properties", "PropertiesChanged", "/org/mpris/MediaPlayer2", None,
        Gio.DBusSignalFlags.NONE, lambda *signal: heard.append("PlaybackStatus" in signal[5][1])
    )
    context = GLib.MainContext.default()
    samples = []
    for turn in range(rounds):
        heard.clear()
        start = time.perf_counter()
        run([companion, "-l", "JavaScript", "-e", reading])
        command = subprocess.Popen(
            [companion, "-l", "JavaScript", "-e", command_script(1 if turn % 2 == 0 else 0)],
            stdout=subprocess.DEVNULL,
        )
        while not any(heard):
            context.iteration(True)
        samples.append((time.perf_counter() - start) * 1e3)
        command.wait()
    return samples


def report(samples):
    print(f"\n{'milliseconds':<24}{'wall':>8}{'p99':>8}{'CPU':>8}{'p99':>8}{'runs':>6}")
    for name, rows in samples.items():
        wall, cpu = zip(*rows)
        print(
            f"{name:<24}{statistics.median(wall):>8.2f}{high(wall):>8.2f}"
            f"{statistics.median(cpu):>8.2f}{high(cpu):>8.2f}{len(rows):>6}"
        )


def children_seconds(pid):
    fields = Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[13]) + int(fields[14])) / os.sysconf("SC_CLK_TCK")


def measure_program(program, seconds):
    """Measures the program with its shelf closed, first without a player and then with one that plays."""
    with measured_session(program) as session:
        pid = session.run().pid
        time.sleep(5)
        player = None
        for name in ("no player", "one player"):
            if name == "one player":
                player = start_player(session.folder, session.environment)
                time.sleep(5)
            own, children = cpu_seconds(pid), children_seconds(pid)
            time.sleep(seconds)
            own, children = cpu_seconds(pid) - own, children_seconds(pid) - children
            minute = 60 / seconds
            print(
                f"the program, {name}: {own * minute:.3f} CPU s a minute,"
                f" its companions {children * minute:.3f}"
            )
        player.kill()
        player.wait()


def main():
    options = command_line(__doc__, "program", rounds=300, seconds=60)
    if INSIDE not in os.environ:
        os.environ[INSIDE] = "1"
        os.execv(WRAPPER, [str(WRAPPER), sys.executable, *sys.argv])
    program = Path(options.program).resolve()
    companion = str(program.with_name("perchly-scripthost"))
    script = reading_script()
    with tempfile.TemporaryDirectory() as folder:
        player = start_player(folder, dict(os.environ))
        try:
            report(measure(companion, script, options.rounds))
            presses = applied(companion, script, min(options.rounds, 40))
            print(
                f"press to the player's own announcement: {statistics.median(presses):.1f} ms,"
                f" at most {max(presses):.1f}"
            )
            print(f"peak memory of a reading: {peak_megabytes(companion, script):.1f} MB")
        finally:
            player.kill()
            player.wait()
    measure_program(program, options.seconds)


if __name__ == "__main__":
    main()
