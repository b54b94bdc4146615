# SPDX-License-Identifier: GPL-3.0-or-later
"""What the real program makes to be heard. The sound library writes into a file, at the pace of a
loudspeaker, and the prompts of the tree are looked for in it."""
import array
import cmath
import math
import operator
import os
import struct
import subprocess
import tempfile
import time
import unittest
import unittest.mock
import wave

import partie
from partie import HIDDEN, GameTest, Screen, main, wait_for

RATE = 44100   # frames a second in the file; a frame is two samples of 16 bits
COARSE = 8     # frames to one value, where a prompt is first looked for

VOIX = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tools", "voix.sh")


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

    def setUp(self):
        test = self

        class LoudScreen(Screen):
            def open(self):
                super().open()
                self.env.update(SDL_AUDIODRIVER=test.driver,
                                SDL_DISKAUDIOFILE=os.path.join(self.folder, "heard.raw"))

        with unittest.mock.patch.object(partie, "Screen", LoudScreen):
            super().setUp()
        self.ear = Ear(self.screen.env["SDL_DISKAUDIOFILE"])

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
        wait_for(lambda: "0x" not in self.screen.run("xprop", "-root", "_NET_CLIENT_LIST"),
                 "empty screen")


class Heard(SoundTest):
    size = "800x600"  # no backdrop: the main window is the only one

    def test_prompts_over_the_tune_and_their_cuts(self):
        # The splash waits in silence; then the tune from its start and, over it, the greeting.
        begin = self.ear.listen(0.1)
        self.pass_splash()
        wait_for(lambda: any(self.ear.heard(self.ear.now() - RATE // 10)), "any sound")
        heard = self.ear.heard(begin, self.ear.listen(3.0))
        greeting = Prompt(self.sound("CALVENO.Wav"))
        at, _ = greeting.find(heard)
        for quarter in range(4):
            share = greeting.share(heard, at, quarter / 4, (quarter + 1) / 4)
            self.assertAlmostEqual(share, 1, delta=0.1)
        tune = greeting.taken_from(heard, at)
        sounding = next(i for i, value in enumerate(tune) if value)
        self.assertGreater(sounding, RATE // 20)
        for quarter in range(sounding + RATE // 4, len(tune) - RATE // 4, RATE // 4):
            level = rms(tune[quarter:quarter + RATE // 4])
            self.assertGreater(level, 150)
            self.assertLess(level, rms(greeting.values) / 2)  # well under the voice

        # Music off is silence at once, and noted.
        self.flip("Musique")
        start = self.ear.listen(0.1)
        self.assertFalse(any(self.ear.heard(start, self.ear.listen(0.4))))
        self.assertIn("Music=0\n", self.settings())

        # A prompt takes the place of the one that still sounds.
        self.begin_game()
        start = self.ear.now()
        self.propose("Z")
        self.await_state("Z", "fausse")
        self.ear.listen(0.3)
        self.propose("Y")
        wrong = Prompt(self.sound("CesPBon.Wav"))
        heard = self.ear.heard(start, self.ear.listen(2.0))
        second, share = wrong.find(heard)
        self.assertAlmostEqual(share, 1, delta=0.05)
        rest = wrong.taken_from(heard, second)
        first, _ = wrong.find(rest)
        cut = (second - first) / wrong.frames
        self.assertTrue(0.1 < cut < 0.9, cut)
        self.assertAlmostEqual(wrong.share(rest, first, 0, cut), 1, delta=0.05)
        self.assertAlmostEqual(wrong.share(rest, first, cut, 1), 0, delta=0.05)

        # The leave-taking is heard to its end, after the window has gone.
        self.program.press("Voir la réponse")
        self.program.press("Stopper la partie")
        self.leave_scores()
        self.agree_to_quit()
        start = self.ear.now() - RATE // 2
        self.await_no_window()
        gone, since = self.ear.now(), time.monotonic()
        self.assertEqual(self.program.await_end(6), 0)
        self.assertLess(time.monotonic() - since, 5)
        heard = self.ear.heard(start)
        found = []
        for name in ("AlaProch.Wav", "Salut1.Wav"):
            prompt = Prompt(self.sound(name))
            at, share = prompt.find(heard + [0] * prompt.frames)
            found.append((share, at, prompt))
        share, at, prompt = max(found, key=lambda one: one[0])
        for eighth in range(8):
            self.assertAlmostEqual(prompt.share(heard, at, eighth / 8, (eighth + 1) / 8), 1,
                                   delta=0.05)
        self.assertGreaterEqual(len(heard), at + prompt.frames)
        self.assertGreater(start + at + prompt.frames - gone, RATE // 4)


class Mute(SoundTest):
    driver = "nosuchdriver"

    def test_without_a_device_the_game_is_the_same(self):
        self.pass_splash()
        settings = self.settings()
        self.assertIn("WavPrésent=0\n", settings)
        self.assertIn("MidiPrésent=0\n", settings)
        self.begin_game()
        self.propose("Z")
        self.await_state("Z", "fausse")
        self.screen.key("z")  # refused
        self.find_word(self.word())
        self.program.press("Stopper la partie")
        self.leave_scores()
        self.agree_to_quit()
        self.assertEqual(self.program.await_end(2), 0)


def tone(seconds):
    """A tune of an organ that holds one chord to the last tick: any gap is the loop's."""
    ticks = 96 * 2 * seconds  # two quarters a second, from the start
    quantity = bytes([0x80 | ticks >> 7, ticks & 0x7f])
    notes = (60, 64, 67)
    track = (b"\0\xff\x51\x03\x07\xa1\x20" b"\0\xc0\x10"
             + b"".join(bytes([0, 0x90, note, 80]) for note in notes)
             + b"".join((b"\0" if i else quantity) + bytes([0x80, note, 0])
                        for i, note in enumerate(notes))
             + b"\0\xff\x2f\0")
    return (b"MThd" + struct.pack(">IHHH", 6, 0, 1, 96) + b"MTrk" + struct.pack(">I", len(track))
            + track)


class Damaged(SoundTest):
    def test_bad_files_are_silent_and_the_tune_goes_on(self):
        os.remove(self.sound("CALVENO.Wav"))
        good = open(self.sound("ohoh.Wav"), "rb").read()
        for name, content in (("AttCaCOm.Wav", b""), ("CesPBon.Wav", bytes(range(256)) * 80),
                              ("FauFaEff.Wav", good[:44] + b"\0"), ("Score.Wav", good[:20]),
                              ("ohoh.Wav", good[:30]), ("AlaProch.Wav", b"RIFF" + b"\xff" * 4096),
                              ("Salut1.Wav", b"RIFF" + b"\xff" * 4096), ("CLVMID1.mid", tone(2))):
            with open(self.sound(name), "wb") as file:
                file.write(content)
        os.truncate(self.sound("Quitter.Wav"), 3 << 30)
        self.pass_splash()
        wait_for(lambda: any(self.ear.heard(self.ear.now() - RATE // 10)), "any sound")
        start = self.ear.now()
        self.begin_game()
        self.propose("Z")
        self.await_state("Z", "fausse")
        self.screen.key("z")  # refused
        self.program.press("Voir la réponse")
        self.program.press("Stopper la partie")
        self.leave_scores()
        self.ear.listen(4.3, start)
        tune = self.ear.heard(start)
        levels = [rms(tune[i:i + RATE // 100]) for i in range(0, len(tune), RATE // 100)][:-1]
        usual = sorted(levels)[len(levels) // 2]
        self.assertGreater(usual, 500)
        self.assertGreater(min(levels), usual / 3)   # the end and the start meet without a gap
        self.assertLess(max(levels), usual * 2)      # and nothing else is heard
        self.agree_to_quit()
        self.assertEqual(self.program.await_end(2), 0)


class Recordings(unittest.TestCase):
    """What is said of a folder of one's own prompts."""

    def record(self, name, seconds=1.0, level=0.3, rate=22050, width=2, channels=1, wait=0.0):
        highest = (1 << 8 * width - 1) - 1
        with wave.open(os.path.join(self.folder, name), "wb") as file:
            file.setparams((channels, width, rate, 0, "NONE", ""))
            file.writeframes(b"".join(
                int(max(-1, min(1, level * math.sin(0.1 * i) * (i > wait * rate))) * highest)
                .to_bytes(width, "little", signed=True) * channels
                for i in range(int(seconds * rate))))

    def verdicts(self):
        done = subprocess.run([VOIX, self.folder], stdin=subprocess.DEVNULL, capture_output=True,
                              encoding="utf-8", timeout=60)
        return done.returncode, dict(line.split(" : ", 1) for line in done.stdout.splitlines()
                                     if " : " in line)

    def setUp(self):
        self.folder = self.enterContext(tempfile.TemporaryDirectory())

    def test_good_recordings(self):
        self.record("Score.Wav")
        self.record("ohoh.Wav", 0.5, channels=2, rate=48000)
        self.record("Salut1.Wav", 2.9, rate=8000)
        status, said = self.verdicts()
        for name in ("Score.Wav", "ohoh.Wav", "Salut1.Wav"):
            self.assertEqual(said[name], "bon")
        self.assertEqual(status, 0)
        # What could be better is told, and is no fault.
        self.record("CesBien.Wav", 3.5)
        self.record("ohoh.Wav", 0.9)
        self.record("Cesmoy.Wav", level=0.05)
        self.record("Quitter.Wav", 1.5, wait=0.6)
        self.record("maman.wav")
        status, said = self.verdicts()
        for name, word in (("CesBien.Wav", "long"), ("ohoh.Wav", "long"), ("Cesmoy.Wav", "faible"),
                           ("Quitter.Wav", "silence"), ("maman.wav", "nom")):
            self.assertRegex(said[name], f"^passable : .*{word}")
        self.assertEqual(status, 0)

    def test_recordings_to_mend(self):
        bad = {"AlaProch.Wav": (dict(width=3), "16 bits"), "Salut1.Wav": (dict(level=4), "sature"),
               "CesBien.Wav": (dict(level=0.005), "faible"), "Score.Wav": (dict(level=0), "rien"),
               "Quitter.Wav": (dict(rate=96000), "96000 Hz"), "cesmoy.wav": ({}, "Cesmoy.Wav"),
               "TropTar.Wav": (dict(seconds=0.05), "court"),
               "PaassRap.Wav": (dict(seconds=11), "trop long")}
        for name, (how, _) in bad.items():
            self.record(name, **how)
        for name in ("CALVENO.Wav", "CesPBon.Wav"):
            with open(os.path.join(self.folder, name), "wb") as file:
                file.write(b"RIFF" if name == "CALVENO.Wav" else b"")
            bad[name] = ({}, "WAV")
        status, said = self.verdicts()
        for name, (_, word) in bad.items():
            self.assertRegex(said[name], f"^à refaire : .*{word}", name)
        self.assertEqual(status, 1)


main()
