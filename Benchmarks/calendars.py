#!/usr/bin/python3
"""Measures the companion that finds and reads calendars, in its own home folder.

Usage: calendars.py COMPANION [--rounds N]
"""

import argparse
import random
import resource
import statistics
import subprocess
import tempfile
import time
from pathlib import Path

from measuring import high

NOW = 1_790_000_000
WEEK = 604_800
RULES = ("DAILY;INTERVAL=3", "WEEKLY;BYDAY=MO,WE", "MONTHLY;BYDAY=2TU", "YEARLY",
         "WEEKLY;COUNT=52", "WEEKLY;BYDAY=TU;COUNT=30")


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("companion")
    arguments.add_argument("--rounds", type=int, default=40)
    options = arguments.parse_args()
    companion = Path(options.companion).resolve()
    events = make_events(10_000)
    past = make_events(2)[1]
    homes = {
        "20 events in a file": {"all.ics": calendar(events[:20])},
        "10,000 events in a file, 1,000 of which recur": {"all.ics": calendar(events)},
        "the same, a file each": {
            f"{number}.ics": calendar([event]) for number, event in enumerate(events)
        },
        "20 MB of past events": {"all.ics": calendar([past] * (20_000_000 // len(past)))},
    }
    print(f"{'milliseconds':<50}{'median':>9}{'p99':>9}{'CPU':>9}")
    show("a process that does nothing (noise)", [["/bin/true"]], {}, options.rounds)
    for name, files in homes.items():
        with tempfile.TemporaryDirectory() as home:
            folder = Path(home, ".calendars", "all")
            folder.mkdir(parents=True)
            for file, text in files.items():
                (folder / file).write_text(text, newline="")
            commands = reading(str(companion), str(folder))
            show(name, commands, {"HOME": home, "TZ": "Europe/Berlin"}, options.rounds)


def reading(companion, source):
    """Returns the command by which Perchly reads one calendar."""
    return [companion, "list"], [companion, "events", str(NOW), str(NOW + WEEK), source]


def show(name, commands, environment, rounds):
    times, costs = [], []
    for _ in range(rounds):
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        start = time.perf_counter()
        for command in commands:
            subprocess.run(command, env=environment, stdout=subprocess.PIPE, check=True)
        times.append((time.perf_counter() - start) * 1000)
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        costs.append(
            (after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime) * 1000
        )
    cost = statistics.median(costs)
    print(f"{name:<50}{statistics.median(times):>9.1f}{high(times):>9.1f}{cost:>9.1f}")


def make_events(count):
    """Returns events of ten years; every tenth recurs."""
    chosen = random.Random(1)
    events = []
    for number in range(count):
        day = f"{chosen.randint(2017, 2026)}{chosen.randint(1, 12):02}{chosen.randint(1, 28):02}"
        hour = chosen.randint(0, 22)
        lines = [
            "BEGIN:VEVENT",
            f"UID:{number}@example.org",
            "DTSTAMP:20170101T000000Z",
            f"SUMMARY:Event {number}",
            f"DTSTART;TZID=Europe/Berlin:{day}T{hour:02}0000",
            f"DTEND;TZID=Europe/Berlin:{day}T{hour + 1:02}0000",
            "LOCATION:Room 5",
            "DESCRIPTION:Agenda\\n1. Last week\\n2. Next week\\nhttps://zoom.us/j/123456789",
        ]
        if number % 10 == 0:
            lines.append(f"RRULE:FREQ={chosen.choice(RULES)}")
        events.append("\r\n".join(lines + ["END:VEVENT", ""]))
    return events


def calendar(events):
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n" + "".join(events) + "END:VCALENDAR\r\n"


if __name__ == "__main__":
    main()
