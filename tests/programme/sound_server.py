# SPDX-License-Identifier: GPL-3.0-or-later
"""The real program while its sound server dies, hangs or comes back: silence, no message (the letters are
pressed in the window that has the keyboard), no delay, and sound again at the next prompt when there is a
server again. The server is one of the test's own."""
import os
import signal
import time

from hearing import RATE, Ear, Prompt, SoundTest, rms
from partie import main, wait_for
from watch import Stillness

STILL = 0.5  # seconds, which a child may notice


class ServerTest(SoundTest):
    driver = "pulseaudio"
    size = "800x600"

    def prepare(self, screen):
        self.socket = os.path.join(screen.folder, "sound")
        screen.env.update(PULSE_SERVER="unix:" + self.socket,
                          PULSE_COOKIE=os.path.join(screen.folder, "cookie"))
        self.file = os.path.join(screen.folder, "monitor.raw")
        self.begin_server(screen)

    def begin_server(self, screen):
        """A server without a loudspeaker, and a recorder of what one would give."""
        self.server = screen.start(
            ["pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
             "--disallow-exit", "--realtime=no", "--high-priority=no", "-L", "module-null-sink sink_name=mute rate=44100",
             "-L", f"module-native-protocol-unix auth-anonymous=1 socket={self.socket}"])
        wait_for(lambda: "mute" in screen.run("pactl", "list", "short", "sinks"), "sound server")
        self.recorder = screen.start(
            ["parec", "-d", "mute.monitor", "--rate=44100", "--format=s16le", "--channels=2",
             "--latency-msec=50", self.file])
        wait_for(lambda: os.path.exists(self.file) and os.path.getsize(self.file), "recorder")
        self.ear = Ear(self.file)

    def end_server(self):
        os.kill(self.server.pid, signal.SIGKILL)
        self.server.wait(5)
        self.recorder.wait(5)
        os.remove(self.file)

    def letter(self, letter, state):
        """Proposes it; how long the window stands still until it shows what it is."""
        with Stillness(self.program.process) as seen:
            self.propose(letter)
            self.await_state(letter, state)
        return seen.longest

    def wrong_letters(self):
        word = self.word()
        return [c for c in "ZYXWVUTSRQ" if c not in word]

    def quit_within(self, seconds):
        """In the middle of a word; how long after the last window has gone."""
        self.agree_to_quit()
        self.program.await_one(name="Scores")
        self.program.press("Quitter")
        self.await_no_window()
        since = time.monotonic()
        self.assertEqual(self.program.await_end(seconds), 0)
        return time.monotonic() - since


class Dies(ServerTest):
    def test_silence_then_sound_again(self):
        self.pass_splash()
        wait_for(lambda: any(self.ear.heard(self.ear.now() - RATE // 10)), "any sound")
        self.begin_game()
        wrong = self.wrong_letters()
        self.letter(wrong.pop(), "fausse")
        self.end_server()
        for _ in range(2):
            self.assertLess(self.letter(wrong.pop(), "fausse"), STILL)
        self.flip("Musique")  # off, and on again, with nobody to hear it
        self.flip("Musique")
        self.begin_server(self.screen)
        start = self.ear.now()
        self.assertLess(self.letter(wrong.pop(), "fausse"), STILL)
        heard = self.ear.heard(start, self.ear.listen(2.5))
        prompt = Prompt(self.sound("CesPBon.Wav"))
        # A server on a busy machine leaves gaps: what lies between them is looked for by itself.
        shares = [part.find(heard)[1] for part in prompt.parts(4)]
        self.assertGreaterEqual(sum(abs(share - 1) < 0.15 for share in shares), 2, shares)
        at, _ = prompt.find(heard)
        self.assertGreater(rms(prompt.taken_from(heard, at)[-RATE // 2:]), 100)  # the tune as well

    def test_the_program_ends_in_time_without_it(self):
        self.pass_splash()
        self.begin_game()
        self.end_server()
        self.assertLess(self.quit_within(6), 5.5)


class Late(ServerTest):
    def begin(self):
        os.kill(self.server.pid, signal.SIGSTOP)
        super().begin()

    def test_at_the_first_start_it_is_not_written_off_and_is_heard_when_it_comes(self):
        self.program.await_one("label", "Le Grimoval").press()
        since = time.monotonic()
        self.program.await_one("push button", "Nouvelle partie")
        self.assertLess(time.monotonic() - since, 1.5)
        for line in ("WavPrésent=1", "MidiPrésent=1", "Music=1", "Parole=1"):
            self.assertIn(line + "\n", self.settings())
        start = self.ear.now()
        os.kill(self.server.pid, signal.SIGCONT)
        wait_for(lambda: any(self.ear.heard(max(start, self.ear.now() - RATE // 10))), "any sound")


class Hangs(ServerTest):
    def test_nobody_waits_for_it(self):
        self.pass_splash()
        wait_for(lambda: any(self.ear.heard(self.ear.now() - RATE // 10)), "any sound")
        self.begin_game()
        wrong = self.wrong_letters()
        os.kill(self.server.pid, signal.SIGSTOP)
        self.addCleanup(os.kill, self.server.pid, signal.SIGCONT)
        for _ in range(3):
            self.assertLess(self.letter(wrong.pop(), "fausse"), STILL)
        self.flip("Musique")
        self.assertLess(self.quit_within(6), 5.5)


main()
