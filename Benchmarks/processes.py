"""A process's CPU time and memory, from the kernel's counters."""

import os
import time


def cpu_seconds(pid):
    """Time that the process' threads have spent on a core."""
    total = 0
    for task in os.listdir(f"/proc/{pid}/task"):
        with open(f"/proc/{pid}/task/{task}/schedstat") as counters:
            total += int(counters.read().split()[0])
    return total / 1e9


def wake_ups(pid):
    """How often one of the process' threads has gone to sleep, and so how often it was woken."""
    total = 0
    for task in os.listdir(f"/proc/{pid}/task"):
        with open(f"/proc/{pid}/task/{task}/status") as status:
            for line in status:
                if line.startswith("voluntary_ctxt_switches"):
                    total += int(line.split()[1])
    return total


def proportional_megabytes(pid):
    """Memory with shared pages divided among those who share them."""
    with open(f"/proc/{pid}/smaps_rollup") as rollup:
        for line in rollup:
            if line.startswith("Pss:"):
                return int(line.split()[1]) / 1024
    raise AssertionError(f"process {pid} tells no proportional size")


def cost_of_a_minute(pid, seconds, meanwhile=None):
    """CPU seconds a minute and wake-ups a second, while `meanwhile`, or nothing, happens."""
    cpu, woken, start = cpu_seconds(pid), wake_ups(pid), time.monotonic()
    while time.monotonic() - start < seconds:
        if meanwhile:
            meanwhile()
        else:
            time.sleep(seconds - (time.monotonic() - start))
    span = time.monotonic() - start
    # A thread that ends takes its counts with it.
    cpu, woken = max(0, cpu_seconds(pid) - cpu), max(0, wake_ups(pid) - woken)
    return cpu * 60 / span, woken / span
