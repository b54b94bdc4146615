# SPDX-License-Identifier: GPL-3.0-or-later
"""The real program on a screen of its own, driven from outside as a person drives it: the keyboard by
xdotool, the controls by the accessibility bus. Nothing here knows the program's inside."""
import os
import re
import signal
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from screen import PRIVATE_FOLDERS, Failed, wait_for  # noqa: E402

# The roles of controls, by the words of these tests. The bus has names for them as well, which change
# from one of its versions to the next: what it calls "push button" today is a "button" tomorrow.
ROLES = {
    "check box": Atspi.Role.CHECK_BOX,
    "image": Atspi.Role.IMAGE,
    "label": Atspi.Role.LABEL,
    "list": Atspi.Role.LIST,
    "list item": Atspi.Role.LIST_ITEM,
    "notification": Atspi.Role.NOTIFICATION,
    "progress bar": Atspi.Role.PROGRESS_BAR,
    "push button": Atspi.Role.PUSH_BUTTON,
    "scroll bar": Atspi.Role.SCROLL_BAR,
    "table": Atspi.Role.TABLE,
    "table cell": Atspi.Role.TABLE_CELL,
    "text": Atspi.Role.TEXT,
}
WORDS_OF_ROLES = {role: word for word, role in ROLES.items()}


def role_of(node):
    """The word of these tests for its role, or the role itself where they have none."""
    role = node.get_role()
    return WORDS_OF_ROLES.get(role, role)


class Control:
    """One thing on the accessibility bus."""

    def __init__(self, node):
        self.node = node

    @property
    def name(self):
        return self.node.get_name()

    @property
    def description(self):
        return self.node.get_description()

    @property
    def role(self):
        return role_of(self.node)

    def has(self, state):
        return self.node.get_state_set().contains(state)

    @property
    def sensitive(self):
        return self.has(Atspi.StateType.SENSITIVE) and self.has(Atspi.StateType.ENABLED)

    @property
    def showing(self):
        return self.has(Atspi.StateType.SHOWING)

    @property
    def value(self):
        return self.node.get_current_value()

    @property
    def maximum(self):
        return self.node.get_maximum_value()

    @property
    def checked(self):
        return self.has(Atspi.StateType.CHECKED)

    @property
    def text(self):
        return Atspi.Text.get_text(self.node, 0, Atspi.Text.get_character_count(self.node))

    def actions(self):
        return [self.node.get_action_name(i) for i in range(self.node.get_n_actions())]

    def press(self):
        names = self.actions()
        for wanted in ("Press", "Toggle"):
            if wanted in names:
                self.node.do_action(names.index(wanted))
                return
        raise Failed(f"{self} takes no press: {names}")

    def select(self, index):
        self.node.select_child(index)

    def set_value(self, value):
        self.node.set_current_value(value)

    def children(self):
        for index in range(self.node.get_child_count()):
            node = self.node.get_child_at_index(index)
            if node is not None:
                yield Control(node)

    def below(self):
        for child in self.children():
            yield child
            yield from child.below()

    def __repr__(self):
        return f"{self.role} '{self.name}' ({self.description})"


class Hearing:
    """What a screen reader is told to say of its own accord: notifications that come into view."""

    def __init__(self):
        self.said = []
        self.listener = Atspi.EventListener.new(self.note)

    def note(self, event):
        if event.detail1 and event.source and role_of(event.source) == "notification":
            self.said.append(event.source.get_name())

    def __enter__(self):
        self.listener.register("object:state-changed:showing")
        return self

    def __exit__(self, *_):
        self.listener.deregister("object:state-changed:showing")

    def await_one(self, pattern):
        """The next thing said that fits; what was said before it is forgotten."""
        def fits():
            while GLib.MainContext.default().iteration(False):
                pass
            for place, text in enumerate(self.said):
                if re.fullmatch(pattern, text):
                    del self.said[:place + 1]
                    return text
            return None

        return wait_for(fits, f"« {pattern} » to be said; said was {self.said}")


class Program:
    """The program under test, in its own process."""

    def __init__(self, screen, *command):
        self.screen = screen
        self.command = list(command)
        self.process = screen.start(self.command)

    def second(self):
        """Another instance, at the same time."""
        return self.screen.start(self.command)

    def windows(self, fresh=False):
        """Those on view; `fresh`: whatever was heard of them before."""
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(index)
            try:
                found = application is not None and application.get_process_id() == self.process.pid
            except GLib.GError:  # one that has gone
                continue
            for window in Control(application).children() if found else ():
                if fresh:
                    window.node.clear_cache()
                if window.showing:
                    yield window

    def active(self):
        """The window that has the keyboard, if the program has it."""
        for fresh in (False, True):  # a program tells of a change only once it knows that somebody listens
            for window in self.windows(fresh):
                if window.has(Atspi.StateType.ACTIVE):
                    return window
        return None

    def focused(self):
        window = self.active()
        return next((c for c in window.below() if c.has(Atspi.StateType.FOCUSED)),
                    None) if window else None

    def find(self, role=None, name=None, description=None):
        """What is on view in the active window and fits: a word of ROLES, a text or a pattern for the rest."""
        assert role is None or role in ROLES, role

        def fits(wanted, control, part):
            if wanted is None:
                return True  # what is not asked for is not asked over the bus
            text = getattr(control, part) or ""
            return (wanted.fullmatch(text) is not None if isinstance(wanted, re.Pattern)
                    else wanted == text)

        window = self.active()
        return [c for c in (window.below() if window else [])
                if fits(name, c, "name") and fits(role, c, "role")
                and fits(description, c, "description") and c.showing]

    def await_one(self, role=None, name=None, description=None, seconds=15.0):
        return wait_for(lambda: (self.find(role, name, description) or [None])[0],
                        lambda: f"{role or 'control'} {name or ''} {description or ''}; there is: "
                                f"{self.shown_names}, and the status is {self.process.poll()}",
                        seconds)

    @property
    def shown_names(self):
        return [repr(w) for w in self.windows()]

    def press(self, name):
        """Presses a button once it takes clicks."""
        def ready():
            return next((b for b in self.find("push button", name) if b.sensitive), None)

        wait_for(ready, f"button {name} to press").press()

    def label(self, description):
        """The text of a label, by what it is for."""
        return self.await_one("label", description=description).name

    def await_label(self, description, text, seconds=15.0):
        wait_for(lambda: self.label(description) == text, f"{description} that says {text}",
                 seconds)

    def tab_to(self, name):
        """Goes to a control by the Tab key."""
        for _ in range(60):
            before = self.focused()
            if before and before.name == name:
                return
            self.screen.key("Tab")
            time.sleep(0.02)
        raise Failed(f"Tab does not reach {name}")

    def on_button(self, name):
        """Presses a button by the keyboard alone."""
        wait_for(lambda: any(b.sensitive for b in self.find("push button", name)), name)
        self.tab_to(name)
        self.screen.key("space")

    def await_end(self, seconds=10.0):
        """The status of a process that ends by itself."""
        try:
            return self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise Failed("the program did not end") from None


def on_private_bus():
    """Starts this script again on a session bus of its own, which ends with it, and with folders of
    its own: the accessibility bus lies at a fixed name in them. What the bus says is not heard."""
    streams = os.environ.pop("GRIMOVAL_PRIVATE_BUS", None)  # not for what is started from here
    if streams:
        for stream, kept in enumerate(map(int, streams.split()), 1):
            os.dup2(kept, stream)
            os.close(kept)
        return
    kept = [os.dup(1), os.dup(2)]
    with tempfile.TemporaryDirectory(prefix="grimoval-bus-") as folder:
        env = dict(os.environ, GRIMOVAL_PRIVATE_BUS=" ".join(map(str, kept)))
        for name in PRIVATE_FOLDERS:
            env[name] = folder
        env.pop("DISPLAY", None)
        bus = subprocess.Popen(["dbus-run-session", "--", sys.executable, *sys.argv], env=env,
                               pass_fds=kept, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
        signal.signal(signal.SIGTERM, lambda *_: bus.terminate())
        status = bus.wait()
    sys.exit(status)
