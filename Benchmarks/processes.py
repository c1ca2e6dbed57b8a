"""Reads a process's CPU time and memory from the kernel."""

import os
import time


def cpu_seconds(pid):
    """Returns the CPU time of the process's threads."""
    total = 0
    for task in os.listdir(f"/proc/{pid}/task"):
        with open(f"/proc/{pid}/task/{task}/schedstat") as counters:
            total += int(counters.read().split()[0])
    return total / 1e9


def wake_ups(pid):
    """Returns how often the process's threads went to sleep, and so how often they woke up."""
    total = 0
    for task in os.listdir(f"/proc/{pid}/task"):
        with open(f"/proc/{pid}/task/{task}/status") as status:
            for line in status:
                if line.startswith("voluntary_ctxt_switches"):
                    total += int(line.split()[1])
    return total


def proportional_megabytes(pid, kind="Pss:"):
    """Returns the proportional memory (PSS): shared pages divided among their processes. The
    resident memory ("Rss:") does not depend on other processes."""
    with open(f"/proc/{pid}/smaps_rollup") as rollup:
        for line in rollup:
            if line.startswith(kind):
                return int(line.split()[1]) / 1024
    raise AssertionError(f"process {pid} has no {kind}")


def cost_of_a_minute(pid, seconds, meanwhile=None):
    """Returns CPU seconds per minute and wake-ups per second while `meanwhile`, if given, runs."""
    cpu, woken, start = cpu_seconds(pid), wake_ups(pid), time.monotonic()
    while time.monotonic() - start < seconds:
        if meanwhile:
            meanwhile()
        else:
            time.sleep(seconds - (time.monotonic() - start))
    span = time.monotonic() - start
    # The counts of a thread disappear when it ends.
    cpu, woken = max(0, cpu_seconds(pid) - cpu), max(0, wake_ups(pid) - woken)
    return cpu * 60 / span, woken / span
