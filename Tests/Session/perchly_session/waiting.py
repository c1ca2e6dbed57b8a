"""Waiting for a state instead of for a time."""

import time

DEADLINE = 10.0


class TimedOut(AssertionError):
    """What was waited for did not come to be."""


def wait_until(predicate, what, timeout=DEADLINE, interval=0.01):
    """Polls until predicate() is true and returns its value; raises TimedOut after the timeout."""
    end = time.monotonic() + timeout
    while True:
        value = predicate()
        if value:
            return value
        if time.monotonic() > end:
            raise TimedOut(f"{what}: not within {timeout} s")
        time.sleep(interval)


def wait_while(predicate, what, seconds, interval=0.02):
    """Polls for the given time and raises as soon as predicate() is false: shows that something
    does not happen."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        if not predicate():
            raise AssertionError(f"{what}: no longer true {end - time.monotonic():.2f} s early")
        time.sleep(interval)
