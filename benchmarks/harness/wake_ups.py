"""How often the program wakes the machine: wake_ups.py PROGRAMS TOOLS MINUTES, in a session with a
keyring. Prints a line of JSON for the seconds in which the busy indicator turns and one for the
minutes in which the hidden window has nothing to do: what Orvane did, and what a bare window."""

import json
import pathlib
import sys
import time

from process_costs import Process, Subject, Tray
from processes import Services, wait_for
from setting import Setting

BUSY_SECONDS = 3
IDLE_SECONDS = 60


def counts(running, times, seconds):
    """How often each of them woke in so many seconds, so many times over."""
    counted = [[] for _ in running]
    for _ in range(times):
        before = [each.sleeps() for each in running]
        time.sleep(seconds)
        for values, each, then in zip(counted, running, before, strict=True):
            # A thread may have begun since then; one that has ended counts no longer.
            values.append(sum(count - then.get(thread, 0)
                              for thread, count in each.sleeps().items()))
    return counted


def main():
    programs, tools = map(pathlib.Path, sys.argv[1:3])
    times = int(sys.argv[3])
    with Services(tools) as services:
        subject = Subject(Setting(programs, tools), services)
        command = [programs / "bench_orvane", "1", *services.arguments()]
        with Tray(), Process(subject.bare) as bare, Process(command, **subject.home) as program:
            running = program.shown(), bare.shown()
            time.sleep(5)
            per_second = [[count / BUSY_SECONDS for count in values]
                          for values in counts(running, times, BUSY_SECONDS)]
            print(json.dumps(per_second), flush=True)
            wait_for("the workers", services.asked_for_workers, patience=120)
            time.sleep(5)
            program.hide()
            time.sleep(5)
            print(json.dumps(counts(running, times, IDLE_SECONDS)), flush=True)


main()
