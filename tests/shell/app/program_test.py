"""Uses the program from its first start to its second: program_test.py program services."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

from program import (ADDRESS_FIELD, POOL_BALANCE, TOKEN_FIELD, WATCHED_ADDRESS, Program, Service,
                     output_of, running_services, set_fault, wait_for, xdotool)

TOKEN = "a-token-that-must-not-be-found"
SATS = r"\d{1,3}(,\d{3})+ sats"


def token_is_entered_and_kept(program):
    program.wait_for("Paste a read-only Braiins API token below to start.")
    assert next(program.nodes()).name == "Orvane", "what the program is called"
    program.save(TOKEN_FIELD, f" {TOKEN} ")
    program.wait_for(SATS, POOL_BALANCE)
    program.wait_for(r"\d of 9 OK")
    program.wait_for(r"\d+ days")
    search = ["secret-tool", "search", "--all", "service", "com.quorvex.hashwick.pool"]
    kept = subprocess.run(search, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          check=True).stdout
    assert kept.count("[/") == 1, kept
    for line in (f"secret = {TOKEN}\n", "account = braiins-api-token\n",
                 "access-group = TEAM.com.quorvex.hashwick.shared\n"):
        assert line in kept, kept


def copies_in_memory(program, text):
    """How often a text stands in what the program may write to, in either form that it has there."""
    process = pathlib.Path("/proc", str(program.process.pid))
    copies = 0
    with open(process / "mem", "rb", 0) as memory:
        for line in (process / "maps").read_text().splitlines():
            begin, end = (int(bound, 16) for bound in line.split()[0].split("-"))
            if line.split()[1].startswith("rw"):
                memory.seek(begin)
                content = memory.read(end - begin)
                copies += sum(content.count(text.encode(code)) for code in ("utf-8", "utf-16-le"))
    return copies


def has_own_allocator():
    """A sanitizer keeps what is freed."""
    return b"__asan_init" in pathlib.Path(sys.argv[1]).read_bytes()


def removed_token_leaves_the_memory(program, services):
    if has_own_allocator():
        return
    set_fault(services, {"service": "pool", "kind": "silence"})
    for _ in range(3):
        program.save(TOKEN_FIELD, TOKEN)
        wait_for("a request", lambda: copies_in_memory(program, f"Pool-Auth-Token: {TOKEN}"))
        program.press("Remove", TOKEN_FIELD)
        program.wait_for("Paste a read-only Braiins API token below to start.")
        # Its beginning may be gone where the allocator keeps its lists.
        wait_for("no copy", lambda: copies_in_memory(program, TOKEN[-12:]) == 0)
    set_fault(services, None)


def address_is_entered_and_read(program, address):
    program.save(ADDRESS_FIELD, f"  {address} ")
    program.wait_for(address)
    program.wait_for(SATS, WATCHED_ADDRESS)
    program.wait_for(r".* of 100 confirmations")


def failure_and_its_end_are_announced_once(program, services):
    def refresh(text):
        program.press("Refresh", WATCHED_ADDRESS)
        wait_for("not busy", lambda: program.wait_for("Refresh", WATCHED_ADDRESS))
        return program.wait_for(text).name

    with program.announcements() as heard:
        set_fault(services, {"service": "explorer", "kind": "status", "status": 500})
        failure = refresh("Chainpeek could not be reached.*")
        assert refresh(re.escape(failure)) == failure
        set_fault(services, None)
        end = refresh("Updated .* Chainpeek .*")
        wait_for(lambda: heard, lambda: heard == [failure, end])


def window_is_closed_and_brought_back(program):
    for close in (lambda: program.press("Close"),
                  lambda: xdotool("key", "--clearmodifiers", "Escape")):
        close()
        wait_for("no window", lambda: not program.windows())
        assert program.start_again() == 0
        wait_for("the window again", program.windows)


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
    token = program.wait_for(TOKEN_FIELD).queryText()
    assert token.getText(0, token.characterCount) == "", "it is read out"


def no_core_dump_would_hold_the_token(program):
    process = pathlib.Path("/proc", str(program.process.pid))
    assert re.search(r"^Max core file size +(1|0 +0) ", (process / "limits").read_text(), re.M)
    assert int((process / "coredump_filter").read_text(), 16) == 0


def brightness(window):
    return float(output_of("convert", f"x:{window}", "-format", "%[fx:mean]", "info:"))


def tell_the_story(services):
    with Service("watcher"), Program(services) as program:
        removed_token_leaves_the_memory(program, services)
        token_is_entered_and_kept(program)
        no_core_dump_would_hold_the_token(program)
        address_is_entered_and_read(program, services["address"])
        failure_and_its_end_are_announced_once(program, services)
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
