"""What a screen reader finds in the window and what it is told, asked through the desktop's own
interface for that: no pixels and no keys."""

import subprocess
import time

import pyatspi

SECONDS = 20


def until(what, test):
    """The first thing that the test gives, waited for."""
    end = time.monotonic() + SECONDS
    while time.monotonic() < end:
        try:
            found = test()
        except Exception:  # An object may go away while it is looked at.
            found = None
        if found:
            return found
        pump()
    raise AssertionError("never came true: " + what)


def pump():
    """Lets events that have arrived reach the listeners."""
    from gi.repository import GLib

    context = GLib.MainContext.default()
    end = time.monotonic() + 0.1
    while time.monotonic() < end:
        if not context.iteration(False):
            time.sleep(0.01)


def below(node, depth=12):
    """The node and everything under it, but for the cells of tables and the entries of combos."""
    yield node
    if depth == 0 or node.getRole() in (pyatspi.ROLE_TABLE, pyatspi.ROLE_COMBO_BOX):
        return
    for index in range(node.childCount):
        child = node.getChildAtIndex(index)
        if child is not None:
            yield from below(child, depth - 1)


class Program:
    def __init__(self, *arguments):
        self.process = subprocess.Popen(arguments)
        self.events = []
        pyatspi.Registry.registerEventListener(
            self.events.append,
            "object:active-descendant-changed",
            "object:selection-changed",
            "object:state-changed:focused",
        )
        self.application = until("the program can be read", self._find)

    def _find(self):
        desktop = pyatspi.Registry.getDesktop(0)
        for index in range(desktop.childCount):
            application = desktop.getChildAtIndex(index)
            if application and application.get_process_id() == self.process.pid:
                return application if application.childCount else None
        return None

    def all(self, role, showing=True):
        return [
            node
            for node in below(self.application)
            if node.getRole() == role
            and (not showing or node.getState().contains(pyatspi.STATE_SHOWING))
        ]

    def one(self, role, name, showing=True):
        def look():
            return [node for node in self.all(role, showing) if node.name == name]

        return until("%s %r is there" % (role, name), look)[0]

    def menu_item(self, name):
        return self.one(pyatspi.ROLE_MENU_ITEM, name, showing=False)

    def choose(self, name):
        item = self.menu_item(name)
        until(name + " can be chosen", lambda: item.getState().contains(pyatspi.STATE_SENSITIVE))
        item.queryAction().doAction(0)

    def press_tool(self, name):
        tool = self.one(pyatspi.ROLE_PUSH_BUTTON, name)
        until(name + " can be pressed", lambda: tool.getState().contains(pyatspi.STATE_SENSITIVE))
        tool.queryAction().doAction(0)

    def box(self, words):
        """The message box that holds the words."""

        def look():
            for dialog in self.all(pyatspi.ROLE_ALERT):
                texts = [n.name for n in below(dialog) if n.getRole() == pyatspi.ROLE_LABEL]
                if any(words in text for text in texts + [dialog.name]):
                    return dialog
            return None

        return until("a box says " + words, look)

    def answer(self, dialog, button):
        found = [
            n for n in below(dialog) if n.getRole() == pyatspi.ROLE_PUSH_BUTTON and n.name == button
        ]
        assert found, "the box has no button " + button
        found[0].queryAction().doAction(0)

    def heard(self):
        """The texts of the row that was told last."""
        for event in reversed(self.events):
            if event.type.is_subtype(pyatspi.EventType("object:active-descendant-changed")):
                cell = event.any_data
                row, table = cell.queryTableCell().position[1], cell.parent.queryTable()
                return [table.getAccessibleAt(row, c).name for c in range(table.nColumns)]
        return []

    def end(self):
        self.process.kill()
        self.process.wait()
