"""Ends sessions and their services around the program: session_life_test.py program services."""

import configparser
import json
import os
import pathlib
import shlex
import signal
import subprocess
import tempfile
import time
import urllib.request

from gi.repository import Gio, GLib

from program import (ADDRESS_FIELD, TOKEN_FIELD, WATCHED_ADDRESS, Program, Service, command_with,
                     output_of, running_services, wait_for)

BUS_WITHOUT_SERVICES = """<busconfig><type>session</type><listen>unix:path={}</listen>
  <policy context="default"><allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/><allow own="*"/></policy></busconfig>"""


def kept_token():
    return output_of("secret-tool", "lookup", "service", "com.quorvex.hashwick.pool")


def signals_end_it_and_lose_no_write(services):
    for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
        with Program(services) as program:
            program.save(TOKEN_FIELD, number.name)
            assert program.end(number) == 0, number
        assert kept_token() == number.name


def ask_bus(method, *names):
    return Gio.bus_get_sync(Gio.BusType.SESSION).call_sync(
        "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
        GLib.Variant(f"({'s' * len(names)})", names), None, Gio.DBusCallFlags.NONE, -1,
        None).unpack()


def is_owned(name):
    return ask_bus("NameHasOwner", name)[0]


def keyring_restarts(program):
    secrets = "org.freedesktop.secrets"
    os.kill(ask_bus("GetConnectionUnixProcessID", secrets)[0], signal.SIGKILL)
    wait_for("no keyring", lambda: not is_owned(secrets))
    program.save(TOKEN_FIELD, "kept nowhere")
    with subprocess.Popen(["gnome-keyring-daemon", "--foreground", "--unlock",
                           "--components=secrets"], stdin=subprocess.PIPE,
                          stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as daemon:
        try:
            daemon.stdin.write(b"password")
            daemon.stdin.close()
            wait_for("the keyring again", lambda: is_owned(secrets))
            program.save(TOKEN_FIELD, "kept again")
            wait_for("the token kept", lambda: kept_token() == "kept again")
        finally:
            daemon.terminate()


def tray_restarts(watcher):
    item = watcher.next_line()
    assert item
    watcher.process.kill()
    with Service("watcher") as successor:
        assert successor.next_line() == item


def pay(services):
    order = json.dumps({"sats": 1234}).encode()
    urllib.request.urlopen(f"http://127.0.0.1:{services['control']}/pay", order).close()


def notification_service_restarts(program, services):
    def pay_and_look():
        pay(services)
        program.press("Refresh", WATCHED_ADDRESS)

    program.save(ADDRESS_FIELD, services["address"])
    program.wait_for(r"[\d,]+ sats", WATCHED_ADDRESS)
    for _ in range(2):
        with Service("notifications") as service:
            pay_and_look()
            assert service.next_line()
            program.press("Close")
            wait_for("no window", lambda: not program.windows())
            service.process.send_signal(signal.SIGUSR1)  # a click on the notification
            wait_for("the window again", program.windows)
    pay_and_look()  # to nobody


def services_come_back_without_a_restart(services):
    with Service("watcher") as watcher, Program(services) as program:
        tray_restarts(watcher)
        with Service("watcher"):
            notification_service_restarts(program, services)
        keyring_restarts(program)
        assert program.end(signal.SIGTERM) == 0


def processor_seconds(process):
    with open(f"/proc/{process.pid}/stat", encoding="ascii") as stat:
        fields = stat.read().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def start_bus(path):
    with tempfile.NamedTemporaryFile("w") as configuration:
        configuration.write(BUS_WITHOUT_SERVICES.format(path))
        configuration.flush()
        bus = subprocess.Popen(["dbus-daemon", f"--config-file={configuration.name}", "--nofork",
                                "--print-address"], stdout=subprocess.PIPE, text=True)
        bus.stdout.readline()
    return bus


def everything_is_on_the_bus_again(services, bus):
    with Service("watcher", **bus) as watcher, Service("notifications", **bus) as notifications:
        assert watcher.next_line(), "no item"
        pay(services)
        refresh = ["gdbus", "call", "--session", "--dest", "com.quorvex.Orvane", "--object-path",
                   "/com/quorvex/Orvane", "--method", "org.freedesktop.Application.ActivateAction",
                   "refresh-now", "[]", "{}"]
        wait_for("the program by its name", lambda: subprocess.run(
            refresh, env=os.environ | bus, check=False, capture_output=True).returncode == 0)
        assert notifications.next_line(), "no notification"


def the_bus_goes_and_comes_back(services):
    with tempfile.TemporaryDirectory() as folder:
        environment = {"DBUS_SESSION_BUS_ADDRESS": f"unix:path={folder}/bus"}
        bus = start_bus(f"{folder}/bus")
        with Program(services, **environment) as program:
            wait_for("a window", program.windows)
            bus.kill()
            bus.wait()
            os.unlink(f"{folder}/bus")
            time.sleep(1)  # whatever the loss itself takes
            before = processor_seconds(program.process)
            time.sleep(2)
            assert program.process.poll() is None, "ended with the bus"
            assert processor_seconds(program.process) - before < 0.2, "spins"
            bus = start_bus(f"{folder}/bus")
            everything_is_on_the_bus_again(services, environment)
            assert program.end(signal.SIGTERM) == 0
        bus.kill()
        bus.wait()


def login_starts_it_into_the_tray(services):
    application = "com.quorvex.Orvane"
    entry = configparser.RawConfigParser()
    entry.read(pathlib.Path(__file__).parents[3] / "packaging/autostart" / f"{application}.desktop")
    command = shlex.join(["env", f"DISPLAY={os.environ['DISPLAY']}", *command_with(services)])
    services_of_bus = pathlib.Path(os.environ["XDG_DATA_HOME"], "dbus-1", "services")
    (services_of_bus / f"{application}.service").write_text(
        f"[D-BUS Service]\nName={application}\nExec=/usr/bin/{command}\n", encoding="ascii")
    ask_bus("ReloadConfig")
    windows = ["xdotool", "search", "--onlyvisible", "--name", "^Orvane$"]
    with Service("watcher") as watcher:
        subprocess.run(shlex.split(entry["Desktop Entry"]["Exec"]), timeout=20, check=True)
        assert watcher.next_line(), "no item"
        time.sleep(0.5)
        assert not output_of(*windows), "it shows itself"
        for action, is_done in ((["launch"], lambda: output_of(*windows)),
                                (["action", "quit"], lambda: not is_owned(application))):
            subprocess.run(["gapplication", action[0], application, *action[1:]], check=True)
            wait_for(action, is_done)


def main():
    with running_services() as services:
        for story in (signals_end_it_and_lose_no_write, services_come_back_without_a_restart,
                      login_starts_it_into_the_tray, the_bus_goes_and_comes_back):
            print(story.__name__, flush=True)
            story(services)


main()
