"""Reads and operates a program's windows through the accessibility bus, as a screen reader does."""

import re
import time

import pyatspi


def wait_for(what, condition, seconds=40):
    """Returns the first true value of condition(); fails after a while."""
    deadline = time.monotonic() + seconds
    while True:
        try:
            value = condition()
        except Exception:  # the tree changes while it is read
            value = None
        if value:
            return value
        if time.monotonic() > deadline:
            raise AssertionError(f"not seen in {seconds} s: {what}")
        time.sleep(0.05)


class ScreenReader:
    def __init__(self, process):
        self._process = process

    def _application(self):
        for application in pyatspi.Registry.getDesktop(0):
            if application and application.get_process_id() == self._process.pid:
                return application
        return None

    def nodes(self):
        """Everything that is on screen."""
        application = self._application()
        waiting = list(application) if application else []
        while waiting:
            node = waiting.pop(0)
            if node is None or not node.getState().contains(pyatspi.STATE_VISIBLE):
                continue
            yield node
            # The cells of a long table are read one by one.
            if node.getRole() not in (pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE_TABLE):
                waiting[:0] = list(node)

    def names(self):
        return [node.name for node in self.nodes() if node.name]

    def find(self, name, description=None, role=None):
        for node in self.nodes():
            if node.name == name and description in (None, node.description) and \
                    role in (None, node.getRole()):
                return node
        return None

    def wait_for(self, name, description=None):
        return self._wait(repr(name), lambda: self.find(name, description))

    def wait_for_text(self, pattern):
        return self._wait(pattern,
                          lambda: next(n for n in self.names() if re.fullmatch(pattern, n)))

    def wait_for_figure(self, description, pattern):
        """A figure is described by what it is the figure of."""
        return self._wait(f"{description}: {pattern}", lambda: next(
            node for node in self.nodes()
            if node.description == description and re.fullmatch(pattern, node.name)))

    def _wait(self, what, condition):
        try:
            return wait_for(what, condition)
        except AssertionError as missing:
            raise AssertionError(f"{missing}; there are {self.names()}") from None

    def press(self, name, description=None):
        action = self.wait_for(name, description).queryAction()
        # The first action of a widget may be to take the focus.
        names = [action.getName(i).lower() for i in range(action.nActions)]
        action.doAction(next(i for i, each in enumerate(names) if each in ("press", "toggle")))

    def write(self, name, text):
        self.wait_for(name).queryEditableText().setTextContents(text)

    def read(self, name):
        text = self.wait_for(name).queryText()
        return text.getText(0, text.characterCount)
