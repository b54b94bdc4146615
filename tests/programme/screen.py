# SPDX-License-Identifier: GPL-3.0-or-later
"""A virtual screen of a test's own, with a window manager and a keyboard, and how a test waits."""
import ctypes
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time

from gi.repository import GLib

PRIVATE_FOLDERS = ("HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR")


class Failed(Exception):
    """What was expected did not come in time."""


def wait_for(question, what, seconds=15.0):
    """Asks until the answer counts as true, and returns it."""
    end = time.monotonic() + seconds
    while True:
        try:
            answer = question()
        except (GLib.GError, subprocess.CalledProcessError):  # it went while it was being asked
            answer = None
        if answer:
            return answer
        if time.monotonic() > end:
            raise Failed(f"after {seconds:g} s there was still no: {what() if callable(what) else what}")
        # What the bus tells meanwhile is taken at once: it may be of a thing that soon goes.
        while GLib.MainContext.default().iteration(False):
            pass
        time.sleep(0.03)


class ClientMessage(ctypes.Structure):
    """An event of X, with room for any other."""
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("kind", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 24)]


class Screen:
    """A virtual screen with a window manager, one size, gone at the end of the block."""

    def __init__(self, size="1366x768"):
        self.size = size
        self.started = []
        self.folder = tempfile.mkdtemp(prefix="grimoval-")
        self.env = dict(os.environ)

    def __enter__(self):
        try:
            self.open()
        except BaseException:
            self.__exit__()
            raise
        return self

    def open(self):
        # Nothing of the person's own is read or written.
        for name in (*PRIVATE_FOLDERS, "TMPDIR"):
            self.env[name] = os.path.join(self.folder, name.lower())
            os.mkdir(self.env[name], 0o700)
        for name in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_SCALE_FACTOR", "QT_STYLE_OVERRIDE",
                     "XMODIFIERS", "QT_IM_MODULE", "LC_ALL"):
            self.env.pop(name, None)
        self.env.update(LANG="fr_FR.UTF-8", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                        SDL_AUDIODRIVER="dummy")
        read, write = os.pipe()
        self.start(["Xvfb", "-displayfd", str(write), "-screen", "0", self.size + "x24",
                    "-nolisten", "tcp", "-noreset"], pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as answer:
            number = answer.readline().strip()
        if not number:
            raise Failed("Xvfb did not start")
        self.env["DISPLAY"] = ":" + number
        os.environ["DISPLAY"] = self.env["DISPLAY"]
        self.run("setxkbmap", "us")
        # What comes while it begins gets no keyboard, and its sign on the screen comes before that.
        begun = os.path.join(self.folder, "openbox")
        self.start(["openbox", "--startup", "touch " + begun])
        wait_for(lambda: os.path.exists(begun), "window manager")

    def __exit__(self, *_):
        for process in reversed(self.started):
            stop(process)
        shutil.rmtree(self.folder, ignore_errors=True)

    def start(self, command, **more):
        process = subprocess.Popen(command, env=self.env, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   start_new_session=True, preexec_fn=die_with_parent, **more)
        self.started.append(process)
        return process

    def run(self, *command):
        return subprocess.run(command, env=self.env, stdin=subprocess.DEVNULL, capture_output=True,
                              text=True, timeout=20, check=True).stdout

    # The windows that are up, by the numbers of the window manager. It changes them in its own time, and a
    # window that is remade has another number: what needs one asks for it afresh, within wait_for.

    def windows(self):
        """The topmost last."""
        told = self.run("xprop", "-root", "_NET_CLIENT_LIST_STACKING")
        return [int(number, 16) for number in re.findall(r"0x[0-9a-f]+", told)]

    def active_window(self):
        """The one that has the keyboard; 0 if none."""
        told = re.search(r"0x[0-9a-f]+", self.run("xprop", "-root", "_NET_ACTIVE_WINDOW"))
        return int(told[0], 16) if told else 0

    def is_in_front(self, count):
        """So many windows are up, and the topmost has the keyboard."""
        windows = self.windows()
        return len(windows) == count and self.active_window() == windows[-1]

    def bring_to_front(self, title):
        """Gives the keyboard to a window by its title, a pattern."""
        def in_front():
            found = self.run("xdotool", "search", "--onlyvisible", "--name", title).split()
            if str(self.active_window()) in found:
                return True
            self.run("xdotool", "windowactivate", found[-1])
            return False

        wait_for(in_front, f"window {title} in front")

    def close(self, window):
        """What the cross of its title bar, or a panel, asks of the window manager."""
        x = ctypes.CDLL("libX11.so.6")
        x.XOpenDisplay.restype = ctypes.c_void_p
        x.XInternAtom.restype = x.XDefaultRootWindow.restype = ctypes.c_ulong
        display = ctypes.c_void_p(x.XOpenDisplay(self.env["DISPLAY"].encode()))
        message = ClientMessage(type=33, window=window, format=32,
                                kind=x.XInternAtom(display, b"_NET_CLOSE_WINDOW", 0))
        message.data[1] = 2  # a person's wish
        x.XSendEvent(display, ctypes.c_ulong(x.XDefaultRootWindow(display)), 0,
                     ctypes.c_long(1 << 19 | 1 << 20), ctypes.byref(message))
        x.XCloseDisplay(display)

    def keyboard(self, layout):
        self.run("setxkbmap", layout)

    def key(self, *keys):
        """Keys by their X names, one after the other."""
        self.run("xdotool", "key", "--delay", "15", *keys)

    def type(self, text):
        self.run("xdotool", "type", "--delay", "15", text)


def die_with_parent():
    ctypes.CDLL(None).prctl(1, signal.SIGKILL)  # PR_SET_PDEATHSIG


def stop(process):
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(1)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
