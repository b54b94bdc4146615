# SPDX-License-Identifier: GPL-3.0-or-later
"""How a test hears the real program: the sound library writes into a file, at the pace of a
loudspeaker, and the prompts of the tree are looked for in it."""
import array
import cmath
import copy
import operator
import os
import unittest.mock
import wave

import partie
from partie import GameTest, Screen, wait_for

RATE = 44100   # frames a second in the file; a frame is two samples of 16 bits
COARSE = 8     # frames to one value, where a prompt is first looked for


def fourier(values, sign):
    """Of a power of two of values; not divided by their number."""
    if len(values) == 1:
        return values
    even, odd = fourier(values[0::2], sign), fourier(values[1::2], sign)
    turn = sign * 2j * cmath.pi / len(values)
    odd = [cmath.exp(turn * i) * value for i, value in enumerate(odd)]
    return (list(map(operator.add, even, odd)) + list(map(operator.sub, even, odd)))


def product(one, other):
    return sum(map(operator.mul, one, other))


def rms(values):
    return (product(values, values) / max(1, len(values))) ** 0.5


def coarse(values, step):
    """The means of so many values each."""
    whole = len(values) // step * step
    return [sum(group) / step for group in zip(*(values[i:whole:step] for i in range(step)))]


class Prompt:
    """A wave file of the tree, as it comes out of the loudspeaker."""

    def __init__(self, path):
        with wave.open(path) as file:
            assert file.getparams()[:3] == (1, 2, RATE // 2), path
            self.half = array.array("h", file.readframes(file.getnframes()))
        between = [(a + b) / 2 for a, b in zip(self.half, self.half[1:])] + [0]
        self.values = [value for pair in zip(self.half, between) for value in pair]
        self.frames = len(self.values)

    def parts(self, count):
        """So many pieces of the same length, one after the other."""
        length = len(self.half) // count
        for first in range(0, length * count, length):
            part = copy.copy(self)
            part.half = self.half[first:first + length]
            part.values = self.values[2 * first:2 * (first + length)]
            part.frames = 2 * length
            yield part

    def share(self, heard, at, start=0.0, end=1.0):
        """How much of a part of the prompt is in what was heard: 1 if it is there as it was
        recorded, 0 if it is not. Music that lies over it adds little: it is not alike."""
        first, last = int(start * self.frames), int(end * self.frames)
        part = self.values[first:last]
        return product(part, heard[at + first:at + last]) / product(part, part)

    def find(self, heard):
        """Where in what was heard the prompt begins, and its share there."""
        sought, where = coarse(self.half, COARSE // 2), coarse(heard, COARSE)
        size = 1 << (len(sought) + len(where)).bit_length()
        sought, where = (fourier(v + [0.0] * (size - len(v)), -1) for v in (sought, where))
        alike = fourier([w * s.conjugate() for w, s in zip(where, sought)], 1)
        latest = max(1, (len(heard) - self.frames) // COARSE)
        about = COARSE * max(range(latest), key=lambda i: alike[i].real)
        at = max(range(max(0, about - 2 * COARSE), about + 2 * COARSE),
                 key=lambda i: self.share(heard, i, 0.1, 0.6))
        return at, self.share(heard, at)

    def taken_from(self, heard, at, until=None):
        """What else was heard."""
        rest = heard[:]
        for i in range(at, min(at + self.frames, until or len(rest))):
            rest[i] -= self.values[i - at]
        return rest


class Ear:
    """The file that the program's sound goes to."""

    def __init__(self, path):
        self.path = path

    def now(self):
        return os.path.getsize(self.path) // 4 if os.path.exists(self.path) else 0

    def heard(self, start, end=None):
        """The mean of left and right, from one frame on up to another."""
        with open(self.path, "rb") as file:
            file.seek(4 * start)
            both = array.array("h", file.read(4 * ((end or self.now()) - start)))
        return [(left + right) / 2 for left, right in zip(both[0::2], both[1::2])]

    def listen(self, seconds, since=None):
        """Until so much more was written."""
        end = (self.now() if since is None else since) + int(seconds * RATE)
        wait_for(lambda: self.now() >= end, "sound in the file", 30)
        return end


class SoundTest(GameTest):
    driver = "disk"
    thinking_time = 120  # the machine may be busy

    def setUp(self):
        test = self

        class LoudScreen(Screen):
            def open(self):
                super().open()
                self.env.update(SDL_AUDIODRIVER=test.driver)
                test.prepare(self)

        with unittest.mock.patch.object(partie, "Screen", LoudScreen):
            super().setUp()

    def prepare(self, screen):
        """What takes the sound, before the program starts."""
        screen.env["SDL_DISKAUDIOFILE"] = os.path.join(screen.folder, "heard.raw")
        self.ear = Ear(screen.env["SDL_DISKAUDIOFILE"])

    def sound(self, name):
        return os.path.join(self.tree, "SONS", name)

    def settings(self):
        with open(os.path.join(self.screen.env["XDG_DATA_HOME"], "Calvenor", "Le Grimoval",
                               "GRIMOVA.INI"), encoding="cp1252") as file:
            return file.read()

    def flip(self, *names):
        """Boxes of the sound options."""
        self.program.press("Configuration du son")
        for name in names:
            self.program.await_one("check box", name).press()
        self.program.press("OK")
        self.program.await_one("push button", "Nouvelle partie")

    def begin_game(self):
        self.program.press("Nouvelle partie")
        self.program.press("1 Joueur")
        self.program.press("OK")
        self.give_names(("dupont", "marie"))
        self.choose("Les bêtes")
        self.word()

    def agree_to_quit(self):
        self.program.press("Quitter")
        self.program.await_one("label", "Veux-tu vraiment quitter ?")
        self.program.press("OK")

    def await_no_window(self):
        wait_for(lambda: not self.screen.windows(), "empty screen")
