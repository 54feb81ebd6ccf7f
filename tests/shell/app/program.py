"""The program and the services it talks to, met as a user, a desktop and a screen reader do."""

import contextlib
import json
import os
import re
import select
import subprocess
import sys
import tempfile
import time
import urllib.request

import pyatspi
from gi.repository import GLib

PROGRAM, SERVICES = sys.argv[1:3]
POOL_BALANCE, WATCHED_ADDRESS = "Braiins Pool balance", "Watched address"
TOKEN_FIELD, ADDRESS_FIELD = "Braiins API token", "Bitcoin address to watch"


def wait_for(what, condition):
    """Returns the first true value of condition(); fails after a while, and says what() then."""
    deadline = time.monotonic() + 40
    while time.monotonic() < deadline:
        while GLib.MainContext.default().iteration(False):  # events of the tree
            pass
        with contextlib.suppress(Exception):  # the tree changes while it is read
            if value := condition():
                return value
        time.sleep(0.05)
    raise AssertionError(f"not seen: {what() if callable(what) else what}")


def output_of(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


def xdotool(*command):
    subprocess.run(["xdotool", *command], check=True)


@contextlib.contextmanager
def running_services(*options):
    with tempfile.TemporaryDirectory() as folder:
        server = subprocess.Popen([SERVICES, "--directory", folder, *options],
                                  stdout=subprocess.PIPE, text=True)
        try:
            yield json.loads(server.stdout.readline())
        finally:
            server.terminate()


def command_with(services):
    """The program's command line, to meet these services."""
    hosts = [f"localhost:{services[name]}" for name in ("pool", "explorer", "price", "fallback")]
    return [PROGRAM, *hosts, services["ca"]]


def set_fault(services, fault):
    """What the services do wrong from now on; None: nothing."""
    address = f"http://127.0.0.1:{services['control']}/"
    request = (urllib.request.Request(address + "fault", json.dumps(fault).encode()) if fault
               else urllib.request.Request(address + "faults", method="DELETE"))
    urllib.request.urlopen(request).close()


class Program:
    """One run of the program, and its windows as a screen reader reads and operates them."""

    def __init__(self, services, **environment):
        self.command = command_with(services)
        self.process = subprocess.Popen(self.command, env=os.environ | environment)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def start_again(self):
        """Another start, which hands over to this one."""
        return subprocess.run(self.command, timeout=20, check=False).returncode

    def end(self, number=None):
        if number is not None:
            self.process.send_signal(number)
        return self.process.wait(timeout=20)

    def windows(self):
        return output_of("xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid),
                         "--name", "Orvane").split()

    def nodes(self):
        """Everything that is on screen."""
        waiting = [application for application in pyatspi.Registry.getDesktop(0)
                   if application and application.get_process_id() == self.process.pid]
        while waiting:
            node = waiting.pop(0)
            if node is None or not (node.getRole() == pyatspi.ROLE_APPLICATION or
                                    node.getState().contains(pyatspi.STATE_VISIBLE)):
                continue
            yield node
            # The cells of a long table are read one by one.
            if node.getRole() not in (pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE_TABLE):
                waiting[:0] = list(node)

    @contextlib.contextmanager
    def announcements(self):
        """What a screen reader says of itself meanwhile."""
        heard = []

        def hear(event):
            if str(event.type) == "object:announcement":
                heard.append(event.any_data)
            elif event.source.getRole() == pyatspi.ROLE_NOTIFICATION and event.detail1:
                heard.append(event.source.name)

        names = "object:announcement", "object:state-changed:showing"
        pyatspi.Registry.registerEventListener(hear, *names)
        yield heard
        pyatspi.Registry.deregisterEventListener(hear, *names)

    def wait_for(self, name, description=None):
        """Whose whole name matches. A figure is described by what it is the figure of."""
        return wait_for(
            lambda: f"{name} {description} among {[node.name for node in self.nodes()]}",
            lambda: next(node for node in self.nodes() if re.fullmatch(name, node.name)
                         and description in (None, node.description)))

    def press(self, name, description=None):
        action = self.wait_for(name, description).queryAction()
        # The first action of a widget may be to take the focus.
        names = [action.getName(i).lower() for i in range(action.nActions)]
        action.doAction(names.index("press"))

    def save(self, field, text):
        self.wait_for(field).queryEditableText().setTextContents(text)
        self.press("Save", field)
        wait_for("saved", lambda: not self.wait_for("Save", field).getState().contains(
            pyatspi.STATE_SENSITIVE))


class Service:
    """A service of the desktop that a test can take away."""

    def __init__(self, kind, **environment):
        script = os.path.join(os.path.dirname(os.path.abspath(__file__)), "session_service.py")
        # Without a buffer: select sees only what no earlier read has taken along.
        self.process = subprocess.Popen([sys.executable, script, kind], stdout=subprocess.PIPE,
                                        bufsize=0, env=os.environ | environment)
        self.name = self.next_line()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def next_line(self):
        """What the service prints next: its name once it has it, then its calls."""
        assert select.select([self.process.stdout], [], [], 20)[0], "was not called"
        return self.process.stdout.readline().decode().strip()
