"""The program as assistive tools see it, and a user who has nothing but a keyboard."""

import os
import subprocess

import pyatspi
from gi.repository import Atspi, GLib

from private_desktop import PATIENCE, wait_for, wait_until



def has(node, state):
    return node.getState().contains(state)


def role_of(node):
    """The role's name; until at-spi 2.56 a button was a "push button"."""
    return node.getRoleName().removeprefix("push ")


def walk(node, closed=()):
    """node and all below it; nothing below nodes whose role is in closed."""
    yield node
    if role_of(node) not in closed:
        for child in node:
            yield from walk(child, closed)


def find(node, role, name):
    """The one control of that role and name below node, or None."""
    found = [each for each in walk(node, closed=("table",))
             if role_of(each) == role and each.name == name]
    assert len(found) < 2, f"{len(found)} of {role} {name!r}"
    return found[0] if found else None


def text_of(node):
    return node.queryText().getText(0, -1)


def line_at(text, offset):
    """The displayed line that holds offset: its text, its start, and the start of the next."""
    return text.getTextAtOffset(offset, pyatspi.TEXT_BOUNDARY_LINE_START)


class Program:
    def __init__(self, binary, start=subprocess.Popen):
        Atspi.set_timeout(PATIENCE * 1000, PATIENCE * 1000)
        self.said = []
        self.reached = []
        self.listener = Atspi.EventListener.new(self._hear)
        for kind in ("object:announcement", "object:state-changed:showing",
                     "object:state-changed:focused"):
            self.listener.register(kind)
        self.process = start([binary], cwd=os.environ["HOME"])
        self.main = self.window("Peakwright")
        self.results = find(self.main, "text", "Results")

    def kill(self):
        self.process.kill()
        self.process.wait()

    def _hear(self, event):
        try:
            if event.type == "object:announcement":
                self.said.append(event.any_data)
            elif event.detail1 and event.type == "object:state-changed:focused":
                self.reached.append(event.source.name)
            elif event.detail1 and event.source.getRoleName() == "notification":
                self.said.append(event.source.name)
        except GLib.Error:  # Of a window that has gone again.
            pass

    def last_said(self):
        """The last words that the program had spoken."""
        self._listen()
        return self.said[-1] if self.said else None

    def last_reached(self, count):
        """The names of the last controls and menu items that had the focus."""
        self._listen()
        return self.reached[-count:]

    @staticmethod
    def _listen():
        while GLib.MainContext.default().iteration(False):
            pass

    def _application(self):
        for each in pyatspi.Registry.getDesktop(0):
            if each is not None and each.get_process_id() == self.process.pid:
                return each
        return None

    def active(self):
        """The window that has the keyboard, or None."""
        for frame in self._application() or []:
            if frame is not None and has(frame, pyatspi.STATE_ACTIVE):
                return frame
        return None

    def window(self, title):
        """The window of that title, once the keyboard is in it."""
        def reached():
            try:
                frame = self.active()
                return frame if frame and frame.name == title and self.focused() else None
            except GLib.Error:  # A window that is just coming or going.
                return None
        return wait_until(reached, f"window {title!r} has the keyboard")

    def focused(self):
        """The control that has the focus, as (role, name)."""
        frame = self.active()
        for node in walk(frame, ("table", "combo box", "menu bar")) if frame else []:
            if has(node, pyatspi.STATE_FOCUSED):
                return role_of(node), node.name
        return None

    @staticmethod
    def press(*keys):
        if "WAYLAND_DISPLAY" not in os.environ:
            subprocess.run(["xdotool", "key", "--delay", "4", *keys], check=True)
            return
        for key in keys:
            *held, key = key.split("+")
            subprocess.run(["wtype", *[word for name in held for word in ("-M", name)], "-k", key],
                           check=True)

    @staticmethod
    def type(text):
        tool = ["xdotool", "type", "--delay", "4"]
        subprocess.run([*(["wtype"] if "WAYLAND_DISPLAY" in os.environ else tool), text],
                       check=True)

    def tab_to(self, role, name):
        """Presses Tab until the control has the focus."""
        passed = []
        while self.focused() != (role, name):
            before = self.focused()
            assert before not in passed, f"Tab doesn't reach {role} {name!r}: {passed}"
            passed.append(before)
            self.press("Tab")
            wait_until(lambda: self.focused() not in (None, before), "Tab moves the focus")

    def choose(self, role, name, key="space"):
        self.tab_to(role, name)
        self.press(key)

    def fill(self, name, text):
        """Types text into a field, in the place of what is there."""
        self.tab_to("text", name)
        self.press("ctrl+a")
        self.type(text)
        field = find(self.active(), "text", name)
        wait_for(text, lambda: text_of(field))

    def list_anew(self, mass):
        """The listing of a mass, which then stands alone in the results, with the focus in it."""
        self.press("Escape")
        self.fill("Mass:", mass)
        self.press("Return")
        wait_until(lambda: text_of(self.results).endswith("\n\n\n"), f"mass {mass} is listed")
        self.tab_to("text", "Results")
        return text_of(self.results)

    def printed(self):
        """Prints the results as the dialogs offer it, into a PDF; its words."""
        self.press("ctrl+p")
        for dialog in ("Page Setup", "Print"):
            self.window(dialog)
            self.press("Return")
        self.window("Peakwright")
        pdf = os.environ["HOME"] + "/Peakwright.pdf"
        return subprocess.run(["pdftotext", "-layout", pdf, "-"], capture_output=True, text=True,
                              check=True).stdout.split()
