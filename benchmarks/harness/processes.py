"""Programs as processes, looked at from outside: what they take until they paint, and what they
hold, wake for and load while they run."""

import contextlib
import json
import os
import pathlib
import re
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import time

from setting import ROOT

TOKEN = "a-token-of-the-bench"
SECONDS_FROM_1970_TO_2001 = 978307200
DAY = 86400


def wait_for(what, condition, patience=60):
    deadline = time.monotonic() + patience
    while time.monotonic() < deadline:
        if value := condition():
            return value
        time.sleep(0.05)
    raise RuntimeError(f"not seen: {what}")


def output_of(*command, **environment):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                          check=False, env=os.environ | environment).stdout


class Process:
    """One run of a program, ended with the block."""

    def __init__(self, command, **environment):
        self.process = subprocess.Popen(command, env=os.environ | environment,
                                        stdout=subprocess.DEVNULL)
        self.folder = pathlib.Path("/proc", str(self.process.pid))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()

    def window(self):
        if self.process.poll() is not None:
            raise RuntimeError(f"{self.process.args[0]} ended with {self.process.returncode}")
        return output_of("xdotool", "search", "--all", "--onlyvisible", "--pid",
                         str(self.process.pid), "--name", ".").split()

    def shown(self):
        wait_for("a window", self.window)
        return self

    def hide(self):
        # The key goes to no window by name: xdotool lets go of one only where it finds it again.
        output_of("xdotool", "windowfocus", "--sync", self.window()[0],
                  "key", "--clearmodifiers", "Escape")
        wait_for("no window", lambda: not self.window())

    def memory(self, name):
        """This line of the kernel's account of its memory, in MB."""
        lines = (self.folder / "smaps_rollup").read_text()
        return int(re.search(rf"^{name}: +(\d+) kB", lines, re.M)[1]) / 1024

    def sleeps(self):
        """How often each of its threads has slept so far, each time until something woke it."""
        return {status.parent.name: int(re.search(r"^voluntary_ctxt_switches:\s+(\d+)",
                                                  status.read_text(), re.M)[1])
                for status in self.folder.glob("task/*/status")}

    def libraries(self):
        return {pathlib.Path(line.split(maxsplit=5)[-1])
                for line in (self.folder / "maps").read_text().splitlines()
                if re.search(r"/\S+\.so(\.[\d.]+)?$", line)}


class Tray(Process):
    """What a desktop with a tray has on the bus, so that the window may hide."""

    def __init__(self):
        super().__init__([sys.executable, ROOT / "tests/shell/app/session_service.py", "watcher"])
        wait_for("the tray", lambda: "true" in output_of(
            "dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
            "org.freedesktop.DBus.NameHasOwner", "string:org.kde.StatusNotifierWatcher"))


class Services:
    """The sources' stand-ins; they live as long as the block."""

    def __init__(self, tools):
        self.folder = tempfile.TemporaryDirectory()
        self.process = subprocess.Popen([tools / "orvane-services", "--directory", self.folder.name,
                                         "--token", TOKEN], stdout=subprocess.PIPE, text=True)
        self.ports = json.loads(self.process.stdout.readline())

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()
        self.folder.cleanup()

    def arguments(self):
        """For bench_orvane, to meet them."""
        hosts = [f"localhost:{self.ports[name]}"
                 for name in ("pool", "explorer", "price", "fallback")]
        return [*hosts, self.ports["ca"]]

    def asked_for_workers(self):
        """How often; they are the last that a cycle asks for."""
        return pathlib.Path(self.folder.name, "requests.log").read_text().count("/workers/")


class Home:
    """Folders of a user who has an address and a year of history in the settings."""

    def __init__(self, first_start, address):
        keep_token()
        self.folder = tempfile.mkdtemp(dir=os.environ["XDG_CONFIG_HOME"])
        with Process(first_start, XDG_CONFIG_HOME=self.folder) as program:
            program.shown()
        file = pathlib.Path(self.folder, "orvane/settings.sqlite")
        with contextlib.closing(sqlite3.connect(file)) as settings, settings:
            settings.executemany("INSERT OR REPLACE INTO settings VALUES (?, ?, ?)", (
                ("balance.watchedAddress", "text", address),
                ("balance.braiinsHistory", "data", history(365))))

    def environment(self):
        return {"XDG_CONFIG_HOME": self.folder}


@contextlib.contextmanager
def empty_home():
    folder = tempfile.mkdtemp(dir=os.environ["XDG_CONFIG_HOME"])
    yield {"XDG_CONFIG_HOME": folder}
    shutil.rmtree(folder)


def keep_token():
    subprocess.run(["secret-tool", "store", "--label=bench", "service", "com.quorvex.hashwick.pool",
                    "account", "braiins-api-token", "synchronizable", "true", "access-group",
                    "TEAM.com.quorvex.hashwick.shared"], input=TOKEN, text=True, check=True)


def history(days):
    today = int(time.time()) // DAY * DAY - SECONDS_FROM_1970_TO_2001
    return json.dumps([{"date": today - day * DAY, "averageHashRate": 9.1e13 + day,
                        "shares": 1900000000 + day, "rewardBTC": f"0.{4000 + day:08}"}
                       for day in range(days)]).encode()
