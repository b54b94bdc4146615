# SPDX-License-Identifier: GPL-3.0-or-later
"""What a test watches of a running program: its memory, its descriptors, and whether its window stands
still; and how a test is run as a person without the administrator's rights."""
import contextlib
import os
import subprocess
import sys
import threading
import time

from partie import TREE

NOBODY = 65534
ORDINARY = "a person's rights are needed, and the tree must be readable to everybody"
WAITS = {7, 271}  # poll and ppoll: for what happens next
DEATH = os.path.join(os.path.dirname(TREE), "tests", "libtests-death.so")


def as_ordinary_person():
    """The administrator may do what no permission allows."""
    if os.geteuid() != 0:
        return
    readable = subprocess.run(["test", "-r", os.path.abspath(sys.argv[0]), "-a", "-x",
                               os.path.join(TREE, "grimoval")], user=NOBODY, group=NOBODY,
                              extra_groups=[], check=False).returncode == 0
    if readable:
        os.setgroups([])
        os.setgid(NOBODY)
        os.setuid(NOBODY)


def megabytes(process):
    """Of memory, that which is shared by parts."""
    with open(f"/proc/{process.pid}/smaps_rollup", encoding="ascii") as file:
        return next(int(line.split()[1]) for line in file if line.startswith("Pss:")) / 1024


def descriptors(process):
    return len(os.listdir(f"/proc/{process.pid}/fd"))


def is_watched(process):
    """By sanitizers, which take memory and time of their own."""
    with open(f"/proc/{process.pid}/maps", encoding="utf-8") as file:
        return "libasan" in file.read()


class Stillness(contextlib.AbstractContextManager):
    """The longest time, in seconds, for which the thread of the windows did not come back to waiting,
    and the largest memory meanwhile. The time in which others had the machine is left out."""

    def __init__(self, process):
        self.process = process
        self.longest, self.memory = 0.0, 0.0
        self.thread = threading.Thread(target=self.look, daemon=True)
        self.ended = threading.Event()

    def __enter__(self):
        self.thread.start()
        return self

    def __exit__(self, *_):
        self.ended.set()
        self.thread.join()

    def state(self):
        """Whether it waits, how often it was put aside, and how long it waited for the machine."""
        task = f"/proc/{self.process.pid}/task/{self.process.pid}/"
        with open(task + "syscall", encoding="ascii") as file:
            call = file.read().split()[0]
        with open(task + "status", encoding="ascii") as file:
            switches = sum(int(line.split()[1]) for line in file if "voluntary_ctxt" in line)
        with open(task + "schedstat", encoding="ascii") as file:
            delay = int(file.read().split()[1]) / 1e9
        return call.isdigit() and int(call) in WAITS, switches, delay

    def look(self):
        since = None
        count = 0
        try:
            while not self.ended.wait(0.01):
                waits, switches, delay = self.state()
                now = time.monotonic() - delay
                if waits or since is None or switches != since[1]:
                    since = now, switches
                self.longest = max(self.longest, now - since[0])
                count += 1
                if count % 5 == 0:
                    self.memory = max(self.memory, megabytes(self.process))
        except OSError:  # it ended
            pass
