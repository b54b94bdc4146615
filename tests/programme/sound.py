# SPDX-License-Identifier: GPL-3.0-or-later
"""What the real program makes to be heard."""
import math
import os
import struct
import subprocess
import tempfile
import time
import unittest
import wave

from hearing import RATE, Prompt, SoundTest, rms
from partie import Program, main, wait_for

STEP = 1024  # frames that the mixer makes at a time
VOIX = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tools", "voix.sh")


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
        # The end of the first may be silent for a step of the mixer before the second begins.
        self.assertAlmostEqual(wrong.share(rest, first, 0, cut - STEP / wrong.frames), 1,
                               delta=0.05)
        self.assertAlmostEqual(wrong.share(rest, first, cut, 1), 0, delta=0.05)

        # Without the voice a wrong letter is silent; with it again the next prompt sounds.
        self.flip("Parole")
        self.assertIn("Parole=0\n", self.settings())
        start = self.ear.listen(0.1)
        self.propose("X")
        self.await_state("X", "fausse")
        self.assertFalse(any(self.ear.heard(start, self.ear.listen(0.4))))
        self.flip("Parole")

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


class Remembered(SoundTest):
    def boxes(self):
        """What the sound options show, closed again by their second button."""
        self.program.press("Configuration du son")
        shown = [self.program.await_one("check box", name).checked for name in ("Musique", "Parole")]
        self.program.press("Annuler")
        return shown

    def start_again(self):
        self.agree_to_quit()
        self.assertEqual(self.program.await_end(7), 0)
        os.remove(self.ear.path)
        self.program = Program(self.screen, os.path.join(self.tree, "grimoval"))
        start = self.ear.listen(0.2)
        self.pass_splash()
        return start

    def test_switches_outlive_the_run(self):
        self.pass_splash()
        self.assertEqual(self.boxes(), [True, True])
        self.flip("Musique")
        # The voice alone: the greeting, and silence behind it.
        start = self.start_again()
        greeting = Prompt(self.sound("CALVENO.Wav"))
        heard = self.ear.heard(start, self.ear.listen(greeting.frames / RATE + 1.5))
        at, share = greeting.find(heard)
        self.assertAlmostEqual(share, 1, delta=0.05)
        behind = heard[at + greeting.frames + RATE // 10:]
        self.assertGreater(len(behind), RATE // 2)
        self.assertFalse(any(behind))
        self.assertEqual(self.boxes(), [False, True])
        self.flip("Musique", "Parole")
        # The tune alone, which is well under the voice.
        start = self.start_again()
        wait_for(lambda: any(self.ear.heard(self.ear.now() - RATE // 10)), "the tune")
        heard = self.ear.heard(start, self.ear.listen(1.5))
        self.assertLess(max(rms(heard[i:i + RATE // 4]) for i in range(0, len(heard), RATE // 4)),
                        rms(greeting.values) / 2)
        self.assertEqual(self.boxes(), [True, False])
        self.flip("Musique")
        # Neither.
        start = self.start_again()
        self.assertFalse(any(self.ear.heard(start, self.ear.listen(1.0))))
        self.assertEqual(self.boxes(), [False, False])
        for line in ("Music=0\n", "Parole=0\n", "WavPrésent=1\n", "MidiPrésent=1\n"):
            self.assertIn(line, self.settings())


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
        self.await_no_window()
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
        wait_for(lambda: self.ear.now() > RATE // 10
                 and any(self.ear.heard(self.ear.now() - RATE // 10)), "any sound")
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
        self.await_no_window()
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
