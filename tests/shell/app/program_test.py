"""Uses the program from its first start to its second: program_test.py program services."""

import os
import pathlib
import re
import signal
import subprocess
import tempfile

import pyatspi

from program import (ADDRESS_FIELD, POOL_BALANCE, TOKEN_FIELD, WATCHED_ADDRESS, Program, Service,
                     output_of, running_services, wait_for, xdotool)

TOKEN = "a-token-that-must-not-be-found"
REJECTION = "This is not a Bitcoin mainnet address. It starts with bc1, 1 or 3."
SATS = r"\d{1,3}(,\d{3})+ sats"
FIRST_TEXTS = [
    POOL_BALANCE, "sats", "BTC", "No API token", "Today", "Hashrate 60 min", "Shares 24 h", "—",
    "Paste a read-only Braiins API token below to start.", "Settings", TOKEN_FIELD,
    "Create a read-only token in Braiins Pool → Settings → Access Profiles. It is stored in your "
    "iCloud Keychain, shared with Hashwick on this Mac, and used only to load this account's "
    "balance, rewards, workers and history.", ADDRESS_FIELD, "Preferred currency",
    "for the value of the balance and rewards at the current Bitcoin price.", "Close"]


def token_is_entered_and_kept(program):
    for text in FIRST_TEXTS:
        program.wait_for(re.escape(text))
    program.save(TOKEN_FIELD, f" {TOKEN} ")
    program.wait_for(SATS, POOL_BALANCE)
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
    program.press("BTC")
    program.wait_for(r"\d+\.\d{8} BTC", POOL_BALANCE)
    program.press("sats")
    program.wait_for(SATS, POOL_BALANCE)


def address_is_refused_and_accepted(program, address):
    program.save(ADDRESS_FIELD, "bc1-not-an-address")
    program.wait_for(re.escape(REJECTION))
    assert program.read(ADDRESS_FIELD) == "bc1-not-an-address"
    program.save(ADDRESS_FIELD, f"  {address} ")
    program.wait_for(address)
    program.wait_for(SATS, WATCHED_ADDRESS)
    assert program.find(re.escape(REJECTION)) is None
    assert program.find(r".* of 100 confirmations"), program.names()


def workers_and_history_arrive(program):
    program.wait_for(r"\d of 9 OK")
    program.wait_for(r"\d+ days")
    table = program.find("Daily history", role=pyatspi.ROLE_TABLE).queryTable()
    assert table.nRows > 300, table.nRows
    headers = [table.getColumnDescription(column) for column in range(table.nColumns)]
    assert headers == ["DATE", "AVG HASHRATE", "ACCEPTED SHARES", "CONFIRMED REWARD"], headers


def window_is_closed_and_brought_back(program):
    program.close_to_tray()
    assert program.process.poll() is None
    assert program.start_again() == 0
    wait_for("the window again", program.windows)
    xdotool("key", "--clearmodifiers", "Escape")
    wait_for("no window after Escape", lambda: not program.windows())
    assert program.start_again() == 0
    wait_for("the window once more", program.windows)


def token_is_nowhere_in_clear():
    assert pathlib.Path(os.environ["XDG_CONFIG_HOME"], "orvane", "settings.sqlite").is_file()
    roots = [os.environ[name] for name in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME",
                                           "XDG_CACHE_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR")]
    for path in (path for root in roots for path in pathlib.Path(root).rglob("*")):
        assert not path.is_file() or TOKEN.encode() not in path.read_bytes(), path


def figures_come_back_by_themselves(program, address):
    # This time the user's numbers are German ones.
    program.wait_for(r"\d{1,3}(\.\d{3})+ sats", POOL_BALANCE)
    program.wait_for(r"\d+ days")
    program.wait_for(address)
    # The field keeps silent; there is nothing to save as long as it holds what is kept.
    assert program.read(TOKEN_FIELD) == ""
    assert not program.is_enabled("Save", TOKEN_FIELD)
    assert program.find("Remove", TOKEN_FIELD)


def brightness(window):
    return float(output_of("convert", f"x:{window}", "-format", "%[fx:mean]", "info:"))


def tell_the_story(services):
    with Program(services) as program:
        token_is_entered_and_kept(program)
        unit_is_switched(program)
        address_is_refused_and_accepted(program, services["address"])
        workers_and_history_arrive(program)
        window_is_closed_and_brought_back(program)
        light = brightness(program.windows()[0])
        xdotool("key", "--clearmodifiers", "ctrl+q")
        assert program.end() == 0
        token_is_nowhere_in_clear()
    with Service("portal"), Program(services, LC_ALL="de_DE.UTF-8") as program:
        figures_come_back_by_themselves(program, services["address"])
        window = program.windows()[0]
        wait_for("a dark window", lambda: brightness(window) < light / 2)
        xdotool("windowactivate", "--sync", window, "key", "alt+F4")
        assert program.end() == 0
    with Program(services) as program:
        wait_for("the window", program.windows)
        assert program.end(signal.SIGTERM) == 0


def main():
    with tempfile.TemporaryDirectory() as folder, \
            running_services("--token", TOKEN) as services:
        mark = pathlib.Path(folder, "ready")
        manager = subprocess.Popen(["openbox", "--sm-disable", "--startup", f"touch {mark}"],
                                   stderr=subprocess.DEVNULL)
        try:
            wait_for("openbox", mark.exists)
            tell_the_story(services)
        finally:
            manager.terminate()


main()
