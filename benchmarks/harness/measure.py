"""Measures and prints the table; see ./bench. Runs inside a session with a keyring."""

import argparse
import datetime
import json
import os
import pathlib
import re
import subprocess
import sys

from parts import growth, records, scaling, screen, single
from process_costs import BARE, memory, start
from setting import ROOT, Setting, tell
from sizes import size
from table import Figure, Sample, print_table

IDLE_SESSIONS = 3  # each in a display of its own; together they count as many minutes as we measure


class WakeUps:
    """Counts in sessions of their own: nothing else may happen there. The idle minutes pass while
    other things are measured."""

    def __init__(self, setting):
        tell("measuring wake-ups")
        command = [ROOT / "scripts/with_session", "--keyring", "--", sys.executable,
                   pathlib.Path(__file__).with_name("wake_ups.py"), setting.programs, setting.tools,
                   str(setting.times // IDLE_SESSIONS)]
        self.sessions = [subprocess.Popen(command, stdout=subprocess.PIPE, text=True)
                         for _ in range(IDLE_SESSIONS)]
        self.figures = [self.next("wake-ups a second, busy indicator turning", "15")]

    def next(self, name, aim):
        counted = [json.loads(session.stdout.readline()) for session in self.sessions]
        ours, bare = ([value for values in each for value in values]
                      for each in zip(*counted, strict=True))
        return Figure(name, Sample.of(ours), BARE, Sample.of(bare), aim)

    def wait(self):
        tell("waiting for the idle minutes")
        self.figures.append(self.next("wake-ups an idle minute, hidden, figures shown", "2"))
        for session in self.sessions:
            session.wait()
        return self.figures


SECTIONS = {"start": start, "memory": memory, "growth": growth, "wake-ups": None, "screen": screen,
            "records": records, "scaling": scaling, "size": size}


def measure(setting, sections):
    """The rows of these sections in the order of the table."""
    rows = {}
    # Before the sessions for wake-ups: a process of the same program shares its memory.
    if "memory" in sections:
        rows["memory"] = list(memory(setting))
    wake_ups = WakeUps(setting) if "wake-ups" in sections else None
    for name in sections:
        if name not in ("memory", "wake-ups"):
            rows[name] = list(SECTIONS[name](setting))
    if wake_ups:
        rows["wake-ups"] = wake_ups.wait()
    return [row for name in sections for row in rows[name]]


def machine():
    processor = re.search(r"^model name\s*: (.*)", pathlib.Path("/proc/cpuinfo").read_text(), re.M)
    system = re.search(r'^PRETTY_NAME="(.*)"', pathlib.Path("/etc/os-release").read_text(), re.M)
    versions = subprocess.run(
        ["dpkg-query", "-W", "-f", "${Package} ${Version}, ", "libqt6widgets6", "nlohmann-json3-dev",
         "libsimdjson-dev", "jq"], stdout=subprocess.PIPE, text=True, check=True).stdout
    commit = subprocess.run(["git", "-C", ROOT, "describe", "--always", "--dirty"],
                            stdout=subprocess.PIPE, text=True, check=False).stdout.strip()
    now = datetime.datetime.now(datetime.timezone.utc)
    return (f"{now:%Y-%m-%d %H:%M} UTC, commit {commit}; {os.cpu_count()} × {processor[1]}, load"
            f" {os.getloadavg()[1]:.1f} at the end; {system[1]}, Linux {os.uname().release};"
            f" {versions.rstrip(', ')}.")


def main():
    options = argparse.ArgumentParser()
    options.add_argument("programs", type=pathlib.Path)
    options.add_argument("pattern", nargs="?", default=".")
    options.add_argument("--before", type=pathlib.Path)
    options.add_argument("--neighbours", action="store_true")
    options.add_argument("--quick", action="store_true")
    given = options.parse_intermixed_args()
    tools = given.programs.resolve()
    now = Setting(tools, tools, 3 if given.quick else 9, given.neighbours)
    then = given.before and Setting(given.before.resolve(), tools, now.times)
    sections = [name for name in SECTIONS if re.search(given.pattern, name)]
    if not sections:
        print_table(list(single(now, given.pattern)), then and list(single(then, given.pattern)))
        return
    before = then and measure(then, sections)
    print_table(measure(now, sections), before)
    print(f"\n{machine()} Medians of {now.times}; ± is half of the interquartile range.")


main()
