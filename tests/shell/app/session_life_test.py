"""Ends sessions and their services around the program: session_life_test.py program services."""

import json
import os
import select
import signal
import subprocess
import sys
import tempfile
import time
import urllib.request

import pyatspi
from gi.repository import Gio, GLib

from screen_reader import ScreenReader, wait_for
from session_manager import SessionManager

PROGRAM, SERVICES = sys.argv[1:3]
TOKEN, ADDRESS = "Braiins API token", "Bitcoin address to watch"
BUS_WITHOUT_SERVICES = """<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen>
  <policy context="default"><allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/><allow own="*"/></policy></busconfig>"""
HERE = os.path.dirname(os.path.abspath(__file__))


class Program:
    def __init__(self, services, **environment):
        hosts = [f"localhost:{services[name]}" for name in ("pool", "explorer", "price", "fallback")]
        self.process = subprocess.Popen([PROGRAM, *hosts, services["ca"]],
                                        env=os.environ | environment)
        self.reader = ScreenReader(self.process)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def save(self, field, text):
        self.reader.write(field, text)
        self.reader.press("Save", field)
        wait_for("saved", lambda: not self.reader.find("Save", field).getState().contains(
            pyatspi.STATE_SENSITIVE))

    def end_by(self, number):
        self.process.send_signal(number)
        return self.process.wait(timeout=20)

    def processor_seconds(self):
        with open(f"/proc/{self.process.pid}/stat", encoding="ascii") as stat:
            fields = stat.read().rpartition(")")[2].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


class Service:
    """A service of the desktop that a test can take away."""

    def __init__(self, kind):
        self.process = subprocess.Popen(["/usr/bin/python3", f"{HERE}/session_service.py", kind],
                                        stdout=subprocess.PIPE, text=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def next_call(self):
        assert select.select([self.process.stdout], [], [], 20)[0], "was not called"
        return self.process.stdout.readline().strip()


def kept_token():
    return subprocess.run(["secret-tool", "lookup", "service", "com.quorvex.hashwick.pool"],
                          capture_output=True, text=True, check=False).stdout


def signals_end_it_and_lose_no_write(services):
    for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
        with Program(services) as program:
            program.save(TOKEN, number.name)
            assert program.end_by(number) == 0, number
        assert kept_token() == number.name


def logging_out_ends_it_and_loses_no_write(services):
    manager = SessionManager()
    with Program(services, SESSION_MANAGER=manager.address) as program:
        manager.serve_until(lambda: manager.saves == 1)
        program.save(TOKEN, "at the last moment")
        manager.log_out()
        manager.serve_until(lambda: program.process.poll() is not None)
        assert program.process.returncode == 0
    assert kept_token() == "at the last moment"


def keyring_restarts(program):
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)

    def ask_bus(method, name):
        return bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus",
                             "org.freedesktop.DBus", method, GLib.Variant("(s)", (name,)), None,
                             Gio.DBusCallFlags.NONE, -1, None).unpack()[0]

    secrets = "org.freedesktop.secrets"
    os.kill(ask_bus("GetConnectionUnixProcessID", secrets), signal.SIGKILL)
    wait_for("no keyring", lambda: not ask_bus("NameHasOwner", secrets))
    program.save(TOKEN, "kept nowhere")
    with subprocess.Popen(["gnome-keyring-daemon", "--foreground", "--unlock",
                           "--components=secrets"], stdin=subprocess.PIPE,
                          stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as daemon:
        try:
            daemon.stdin.write(b"password")
            daemon.stdin.close()
            wait_for("the keyring again", lambda: ask_bus("NameHasOwner", secrets))
            program.save(TOKEN, "kept again")
            wait_for("the token kept", lambda: kept_token() == "kept again")
        finally:
            daemon.terminate()


def tray_restarts(watcher):
    item = watcher.next_call()
    assert item
    watcher.process.kill()
    with Service("watcher") as successor:
        assert successor.next_call() == item


def notification_service_restarts(program, services):
    def pay():
        order = json.dumps({"sats": 1234}).encode()
        urllib.request.urlopen(f"http://127.0.0.1:{services['control']}/pay", order).close()
        program.reader.press("Refresh", "Watched address")

    program.save(ADDRESS, services["address"])
    program.reader.wait_for_figure("Watched address", r"[\d,]+ sats")
    for _ in range(2):
        with Service("notifications") as service:
            subprocess.run(["gdbus", "wait", "--session", "--timeout", "20",
                            "org.freedesktop.Notifications"], check=True)
            pay()
            assert service.next_call()
    pay()  # to nobody


def services_come_back_without_a_restart(services):
    with Service("watcher") as watcher, Program(services) as program:
        tray_restarts(watcher)
        notification_service_restarts(program, services)
        keyring_restarts(program)
        assert program.end_by(signal.SIGTERM) == 0


def the_bus_goes_and_nothing_spins(services):
    with tempfile.NamedTemporaryFile("w") as configuration:
        configuration.write(BUS_WITHOUT_SERVICES)
        configuration.flush()
        bus = subprocess.Popen(["dbus-daemon", f"--config-file={configuration.name}", "--nofork",
                                "--print-address"], stdout=subprocess.PIPE, text=True)
        address = bus.stdout.readline().strip()
    with Program(services, DBUS_SESSION_BUS_ADDRESS=address) as program:
        windows = ["xdotool", "search", "--onlyvisible", "--pid", str(program.process.pid)]
        wait_for("a window",
                 lambda: subprocess.run(windows, capture_output=True, check=False).stdout)
        bus.kill()
        bus.wait()
        time.sleep(1)  # whatever the loss itself takes
        before = program.processor_seconds()
        time.sleep(2)
        assert program.process.poll() is None, "ended with the bus"
        assert program.processor_seconds() - before < 0.2, "spins"
        assert program.end_by(signal.SIGTERM) == 0


def main():
    with tempfile.TemporaryDirectory() as folder:
        server = subprocess.Popen([SERVICES, "--directory", folder], stdout=subprocess.PIPE,
                                  text=True)
        try:
            services = json.loads(server.stdout.readline())
            for story in (signals_end_it_and_lose_no_write,
                          logging_out_ends_it_and_loses_no_write,
                          services_come_back_without_a_restart, the_bus_goes_and_nothing_spins):
                print(story.__name__, flush=True)
                story(services)
        finally:
            server.terminate()


main()
