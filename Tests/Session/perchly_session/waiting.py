"""Waits for conditions instead of fixed times."""

import time


def wait_until(predicate, what, timeout=10.0, interval=0.01):
    """Polls until predicate() is true and returns its value; fails after the timeout."""
    end = time.monotonic() + timeout
    while not (value := predicate()):
        if time.monotonic() > end:
            raise AssertionError(f"{what}: not within {timeout} s")
        time.sleep(interval)
    return value


def wait_while(predicate, what, seconds, interval=0.02):
    """Fails as soon as predicate() is false within the given time."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        if not predicate():
            raise AssertionError(f"{what}: no longer true {end - time.monotonic():.2f} s early")
        time.sleep(interval)
