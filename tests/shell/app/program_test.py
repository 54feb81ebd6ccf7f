"""Uses the program from its first start to its second: program_test.py program services."""

import json
import os
import pathlib
import subprocess
import sys
import tempfile

import pyatspi

from screen_reader import ScreenReader, wait_for

PROGRAM, SERVICES = sys.argv[1:3]
TOKEN = "a-token-that-must-not-be-found"
POOL_BALANCE = "Braiins Pool balance"
REJECTION = "This is not a Bitcoin mainnet address. It starts with bc1, 1 or 3."
FIRST_TEXTS = [
    "Braiins Pool balance", "sats", "BTC", "No API token", "Today", "Hashrate 60 min",
    "Shares 24 h", "—",
    "Paste a read-only Braiins API token below to start.", "Settings", "Braiins API token",
    "Create a read-only token in Braiins Pool → Settings → Access Profiles. It is stored in your "
    "iCloud Keychain, shared with Hashwick on this Mac, and used only to load this account's "
    "balance, rewards, workers and history.", "Bitcoin address to watch", "Preferred currency",
    "for the value of the balance and rewards at the current Bitcoin price.", "Close"]


def output_of(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


class Program:
    """One run of the program."""

    def __init__(self, services):
        hosts = [f"localhost:{services[name]}" for name in ("pool", "explorer", "price", "fallback")]
        self.command = [PROGRAM, *hosts, services["ca"]]
        self.process = subprocess.Popen(self.command)
        self.reader = ScreenReader(self.process)

    def start_again(self):
        """Another start, which hands over to this one."""
        return subprocess.run(self.command, timeout=20, check=False).returncode

    def windows(self):
        found = output_of("xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid),
                          "--name", "Orvane")
        return found.split()

    def end(self):
        return self.process.wait(timeout=20)


def token_is_entered_and_kept(program):
    reader = program.reader
    for text in FIRST_TEXTS:
        reader.wait_for(text)
    reader.write("Braiins API token", f" {TOKEN} ")
    reader.press("Save", "Braiins API token")
    reader.wait_for_figure(POOL_BALANCE, r"[\d,]+ sats")
    search = ("secret-tool", "search", "--all", "service", "com.quorvex.hashwick.pool")
    # The figure does not wait for the keyring.
    items = wait_for("the token in the keyring", lambda: output_of(*search))
    assert items.count("[/") == 1, items
    assert f"secret = {TOKEN}\n" in items, "the token is not what was kept"
    kept = subprocess.run(search, capture_output=True, text=True, check=True)
    attributes = kept.stdout + kept.stderr
    for attribute in ("account = braiins-api-token",
                      "access-group = TEAM.com.quorvex.hashwick.shared"):
        assert attribute in attributes, attributes


def unit_is_switched(program):
    reader = program.reader
    reader.press("BTC")
    reader.wait_for_figure(POOL_BALANCE, r"\d+\.\d{8} BTC")
    reader.press("sats")
    reader.wait_for_figure(POOL_BALANCE, r"[\d,]+ sats")


def address_is_refused_and_accepted(program, address):
    reader = program.reader
    reader.write("Bitcoin address to watch", "bc1-not-an-address")
    reader.press("Save", "Bitcoin address to watch")
    reader.wait_for(REJECTION)
    assert reader.read("Bitcoin address to watch") == "bc1-not-an-address"
    reader.write("Bitcoin address to watch", f"  {address} ")
    reader.press("Save", "Bitcoin address to watch")
    reader.wait_for(address)
    reader.wait_for_figure("Watched address", r"[\d,]+ sats")
    assert reader.find(REJECTION) is None
    assert any(name.endswith(" of 100 confirmations") for name in reader.names()), reader.names()


def workers_and_history_arrive(program):
    reader = program.reader
    reader.wait_for_text(r"\d of 9 OK")
    reader.wait_for_text(r"\d+ days")
    table = reader.find("Daily history", role=pyatspi.ROLE_TABLE).queryTable()
    assert table.nRows > 300, table.nRows
    headers = [table.getColumnDescription(column) for column in range(table.nColumns)]
    assert headers == ["DATE", "AVG HASHRATE", "ACCEPTED SHARES", "CONFIRMED REWARD"], headers


def window_is_closed_and_brought_back(program):
    program.reader.press("Close")
    wait_for("no window", lambda: not program.windows())
    assert program.process.poll() is None
    assert program.start_again() == 0
    wait_for("the window again", program.windows)
    subprocess.run(["xdotool", "key", "--clearmodifiers", "Escape"], check=True)
    wait_for("no window after Escape", lambda: not program.windows())
    assert program.start_again() == 0
    wait_for("the window once more", program.windows)


def token_is_nowhere_in_clear():
    roots = [os.environ[name] for name in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME",
                                           "XDG_CACHE_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR")]
    files = [path for root in roots for path in pathlib.Path(root).rglob("*") if path.is_file()]
    assert any(path.name == "settings.sqlite" for path in files), files
    for path in files:
        assert TOKEN.encode() not in path.read_bytes(), path


def figures_come_back_by_themselves(program, address):
    reader = program.reader
    reader.wait_for_figure(POOL_BALANCE, r"[\d,]+ sats")
    reader.wait_for_text(r"\d+ days")
    reader.wait_for(address)
    # The field keeps silent; there is nothing to save as long as it holds what is kept.
    assert reader.read("Braiins API token") == ""
    save = reader.find("Save", "Braiins API token")
    assert not save.getState().contains(pyatspi.STATE_SENSITIVE)
    assert reader.find("Remove", "Braiins API token")


def close_by_window_manager(program):
    window = program.windows()[0]
    subprocess.run(["xdotool", "windowactivate", "--sync", window, "key", "alt+F4"], check=True)


def tell_the_story(services):
    program = Program(services)
    try:
        token_is_entered_and_kept(program)
        unit_is_switched(program)
        address_is_refused_and_accepted(program, services["address"])
        workers_and_history_arrive(program)
        window_is_closed_and_brought_back(program)
        subprocess.run(["xdotool", "key", "--clearmodifiers", "ctrl+q"], check=True)
        assert program.end() == 0
        token_is_nowhere_in_clear()
        program = Program(services)
        figures_come_back_by_themselves(program, services["address"])
        close_by_window_manager(program)
        assert program.end() == 0
        program = Program(services)
        wait_for("the window", program.windows)
        program.process.terminate()
        assert program.end() == 0
    finally:
        program.process.kill()


def main():
    with tempfile.TemporaryDirectory() as folder:
        mark = pathlib.Path(folder, "ready")
        manager = subprocess.Popen(["openbox", "--sm-disable", "--startup", f"touch {mark}"],
                                   stderr=subprocess.DEVNULL)
        server = subprocess.Popen([SERVICES, "--directory", folder, "--token", TOKEN],
                                  stdout=subprocess.PIPE, text=True)
        try:
            services = json.loads(server.stdout.readline())
            wait_for("openbox", mark.exists)
            tell_the_story(services)
        finally:
            server.terminate()
            manager.terminate()


main()
