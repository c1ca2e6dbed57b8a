#!/usr/bin/python3
"""Watches one processor: for each line on stdin it prints by how many milliseconds an idle real-time thread
woke too late there, at most, since the last line.

While this is longer than an audio cycle, sound breaks in every program. Usage: stalls.py PROCESSOR
"""

import os
import select
import sys
import time

PERIOD = 0.0005


def main():
    os.sched_setaffinity(0, {int(sys.argv[1])})
    # Above PipeWire's own threads.
    try:
        os.sched_setscheduler(0, os.SCHED_FIFO, os.sched_param(95))
    except PermissionError:
        sys.exit("stalls.py: needs the right to real-time scheduling, for example as root")
    longest = 0.0
    due = time.monotonic() + PERIOD
    while True:
        asked = select.select([sys.stdin], [], [], max(0.0, due - time.monotonic()))[0]
        now = time.monotonic()
        if now >= due:
            longest = max(longest, now - due)
            due = now + PERIOD
        if asked:
            if not sys.stdin.readline():
                return
            print(f"{longest * 1000:.3f}", flush=True)
            longest = 0.0


if __name__ == "__main__":
    main()
