"""Shared by the benchmarks: a session to measure in, and statistics of samples."""

import argparse
from contextlib import contextmanager
from pathlib import Path
import sys

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "Tests" / "Session"))

from painting import Painting  # noqa: E402
from perchly_session.session import Session  # noqa: E402

SIZE = WIDTH, HEIGHT = 1280, 800
AWAY = (200, 600)


def command_line(description, subject, rounds, seconds):
    """Parses SUBJECT [--rounds N] [--seconds N]."""
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument(subject)
    parser.add_argument("--rounds", type=int, default=rounds)
    parser.add_argument("--seconds", type=float, default=seconds)
    return parser.parse_args()


@contextmanager
def measured_session(program, **options):
    """A session with the pointer far from the shelf and accessibility off."""
    session = Session(program, size=SIZE, **options)
    try:
        session.environment.pop("QT_LINUX_ACCESSIBILITY_ALWAYS_ON")
        session.screen.move_to(*AWAY)
        yield session
    finally:
        session.stop()


def watch(session, rect):
    """Returns a Painting of this part of the screen; on sway, a WaylandProbe watches."""
    return session.probe.watch(rect) if session.is_wayland else Painting(session.screen, rect)


def install_applications(session, count):
    folder = session.data_folder("applications")
    for number in range(count):
        text = f"[Desktop Entry]\nType=Application\nName=Application {number}\nExec=true\n"
        (folder / f"application-{number}.desktop").write_text(text)


def high(values):
    """Returns the 99th percentile."""
    ordered = sorted(values)
    return ordered[min(len(ordered) - 1, int(len(ordered) * 0.99))]
