"""What the program costs as a process, beside a bare window of the same toolkit, in turn and in the
same run. For a session with a keyring."""

import collections
import contextlib
import pathlib
import re
import tempfile
import time

from processes import Home, Process, Services, Tray, empty_home, output_of, wait_for
from setting import tell
from table import Figure, Sample

BARE = "a bare window"
FAST = "20"  # as fast as its clock runs where only its state matters
NOBODY = [*4 * ["localhost:9"], ""]  # nothing of the network is in the figure


class Subject:
    """The program, a user's home for it, and what it is measured beside."""

    def __init__(self, setting, services):
        self.setting, self.services = setting, services
        self.alone = [setting.programs / "bench_orvane", "1", *NOBODY]
        self.fast = [setting.programs / "bench_orvane", FAST, *services.arguments()]
        self.bare = [setting.tools / "bare_window"]
        home = Home(self.alone, services.ports["address"])
        self.home = home.environment()

    def first_paint(self, title, command, environment, *watched_by):
        """Milliseconds from exec to the first painted window of that title."""
        return float(output_of(*watched_by, self.setting.tools / "first_paint", title, *command,
                               **environment))

    def start_up_calls(self, title, command, environment):
        """The system calls until then, in all threads, by their names."""
        with tempfile.NamedTemporaryFile() as trace:
            self.first_paint(title, command, environment, "strace", "-f", "-qq", "-o", trace.name)
            lines = pathlib.Path(trace.name).read_text(errors="replace").splitlines()
        watcher = lines[0].split()[0]
        return collections.Counter(match[1] for line in lines if not line.startswith(watcher)
                                   and (match := re.match(r"\d+ +(\w+)\(", line)))


@contextlib.contextmanager
def subject(setting):
    with Services(setting.tools) as services:
        yield Subject(setting, services)


def start(setting):
    """The last is a text for below the table."""
    tell("measuring start")
    times = collections.defaultdict(list)
    with subject(setting) as program:
        for _ in range(setting.times):
            times["bare"].append(program.first_paint("Bare", program.bare, {}))
            times["ours"].append(program.first_paint("Orvane", program.alone, program.home))
            with empty_home() as home:
                for name in ("first", "second"):
                    times[name].append(program.first_paint("Orvane", program.alone, home))
        calls = program.start_up_calls("Orvane", program.alone, program.home)
        bare_calls = program.start_up_calls("Bare", program.bare, {})
        with empty_home() as home:
            empty_calls = program.start_up_calls("Orvane", program.alone, home)
    took = {name: Sample.of(values, "ms") for name, values in times.items()}
    yield Figure("exec to first painted main window", took["ours"], BARE, took["bare"], "1.6")
    yield Figure("first start, on an empty home", took["first"], "the next start there",
                 took["second"], "1")
    waits = empty_calls["fsync"] + empty_calls["fdatasync"]
    yield Figure("waits for the disk before the first paint there", Sample(waits), aim="0")
    yield Figure("system calls until the first paint", Sample(calls.total()), BARE,
                 Sample(bare_calls.total()))
    more = ", ".join(f"{name} {count}" for name, count in (calls - bare_calls).most_common(10))
    yield f"System calls beyond those of {BARE}: {more}."


@contextlib.contextmanager
def with_figures(program):
    """A run of it, shown, once all its figures are there."""
    seen = program.services.asked_for_workers()
    with Tray(), Process(program.fast, **program.home) as running:
        running.shown()
        wait_for("the workers", lambda: program.services.asked_for_workers() > seen)
        time.sleep(2)
        yield running


def memory(setting):
    tell("measuring memory")
    sizes = collections.defaultdict(list)
    with subject(setting) as program:
        for _ in range(setting.times):
            with Process(program.bare) as bare:
                bare.shown()
                time.sleep(1)
                sizes["bare"].append(bare.memory("Private_Dirty"))
                sizes["bare, all"].append(bare.memory("Pss"))
            with empty_home() as home, Process(program.alone, **home) as ours:
                ours.shown()
                time.sleep(2)
                sizes["nothing set"].append(ours.memory("Private_Dirty"))
            with with_figures(program) as ours:
                sizes["figures shown"].append(ours.memory("Private_Dirty"))
                ours.hide()
                time.sleep(2)
                sizes["hidden, all"].append(ours.memory("Pss"))
    held = {name: Sample.of(values, "MB") for name, values in sizes.items()}
    yield Figure("private dirty memory, figures shown", held["figures shown"], BARE, held["bare"],
                 "7 MB")
    yield Figure("private dirty memory, nothing set", held["nothing set"], BARE, held["bare"])
    hidden = "PSS, figures shown, window hidden"
    yield Figure(hidden, held["hidden, all"], BARE, held["bare, all"], "1.4")
    for name in ("CopyQ", "KeePassXC") if setting.neighbours else ():
        yield Figure(hidden, held["hidden, all"], name,
                     Sample.of(neighbour(name.lower(), setting.times), "MB"))


def neighbour(command, times):
    """The PSS of a program that lives in the tray, started without a window of its own."""
    tell("measuring", command)
    sizes = []
    for _ in range(times):
        with empty_home() as home:
            settings = pathlib.Path(home["XDG_CONFIG_HOME"], "keepassxc/keepassxc.ini")
            settings.parent.mkdir()
            settings.write_text("[GUI]\nShowTrayIcon=true\nMinimizeToTray=true\n"
                                "MinimizeOnStartup=true\n")
            with Tray(), Process([command], **home) as program:
                time.sleep(4)
                if program.window():
                    raise RuntimeError(f"{command} has a window")
                sizes.append(program.memory("Pss"))
    return sizes
