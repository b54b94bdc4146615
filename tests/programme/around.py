# SPDX-License-Identifier: GPL-3.0-or-later
"""What happens around the real program while it plays: a hundred more of it, a clock that jumps, a pause, a
screen that changes. And what it asks of the system in a whole session: no network, no program of its own
choice."""
import glob
import os
import pathlib
import re
import shutil
import signal
import socket
import subprocess
import time
import unittest

from partie import TREE, GameTest, Program, main, wait_for

FAKETIME = "/usr/lib/x86_64-linux-gnu/faketime/libfaketime.so.1"
MANY = 'for i in {1..100}; do "$0" & all+=($!); done; for one in "${all[@]}"; do wait $one || exit; done'


def is_watched():
    """By sanitizers."""
    return b"libasan" in subprocess.run(["ldd", os.path.join(TREE, "grimoval")], check=True,
                                        capture_output=True).stdout


class ThinkingTest(GameTest):
    thinking_time = 120  # the machine may be busy

    def thinking(self):
        return int(self.program.await_one("progress bar", "Temps de réflexion").value)

    def await_a_second(self):
        """Thinking goes on, and by no more than has passed."""
        start, since = self.thinking(), time.monotonic()
        wait_for(lambda: self.thinking() > start, "more thinking")
        self.assertLessEqual(self.thinking() - start, time.monotonic() - since + 1)


class Time(ThinkingTest):
    def begin(self):
        pass  # with a clock of its own

    def begin_at(self, hour):
        self.clock = os.path.join(self.screen.folder, "clock")
        self.set_clock(hour)
        self.program = Program(self.screen, "env", "LD_PRELOAD=" + FAKETIME,
                               "FAKETIME_TIMESTAMP_FILE=" + self.clock, "FAKETIME_NO_CACHE=1",
                               "FAKETIME_DONT_FAKE_MONOTONIC=1",
                               os.path.join(self.tree, "grimoval"))

    def set_clock(self, hour):
        with open(self.clock + ".new", "w", encoding="ascii") as file:
            file.write(f"@2026-06-15 {hour:02}:00:00\n")
        os.rename(self.clock + ".new", self.clock)

    @unittest.skipUnless(os.path.exists(FAKETIME), "libfaketime is missing")
    @unittest.skipIf(is_watched(), "a clock of one's own and sanitizers do not go together")
    def test_a_clock_that_jumps_moves_no_thinking_time(self):
        self.begin_at(12)
        self.start_game("1 Joueur", ("dupont", "marie"))
        for hour in (15, 10):
            self.set_clock(hour)
            self.await_a_second()
        time.sleep(1.1)  # the length of the game is measured each second
        self.program.press("Voir la réponse")
        self.program.press("Stopper la partie")
        self.leave_scores()
        # By the clock, modulo a day: two hours back.
        with open(self.data("SCORGRIM.TXT"), encoding="cp1252") as log:
            self.assertRegex(log.read(), r"Lundi, 15 juin 2026 à 10:00:\d\d\n[^§]* : (21:59|22:00):\d\d\n")
        self.quit()


class Meanwhile(ThinkingTest):
    def test_one_game_goes_on_through_all_of_it(self):
        self.start_game("1 Joueur", ("dupont", "marie"))
        self.a_pause_of_the_process_is_one_beat()
        self.a_hundred_more_at_once_end_at_once()
        self.windows_come_back_into_a_screen_that_has_changed()
        self.find_word(self.word())
        # It dies: nothing that it leaves bars the next.
        self.program.process.kill()
        self.program.process.wait()
        self.begin()
        self.pass_splash()

    def a_pause_of_the_process_is_one_beat(self):
        since = time.monotonic()
        before = self.thinking()
        self.program.process.send_signal(signal.SIGSTOP)
        time.sleep(3.2)
        self.program.process.send_signal(signal.SIGCONT)
        after = self.thinking()
        self.assertLessEqual(after - before, time.monotonic() - since - 3.2 + 2)
        self.await_a_second()

    def a_hundred_more_at_once_end_at_once(self):
        wait_for(lambda: self.screen.is_in_front(2), "main window over its backdrop")
        since = time.monotonic()
        crowd = self.screen.start(["bash", "-c", MANY, os.path.join(self.tree, "grimoval")])
        self.propose("Z")
        self.await_state("Z", "fausse")
        self.assertEqual(crowd.wait(60), 0)
        print(f"{time.monotonic() - since:.1f} s", end=" ", flush=True)
        self.assertEqual(len(self.screen.windows()), 2)

    def windows_come_back_into_a_screen_that_has_changed(self):
        self.screen.run(*"xrandr --newmode 800x600 40 800 840 968 1056 600 601 605 628".split())
        self.screen.run(*"xrandr --addmode screen 800x600".split())
        self.program.press("A propos")
        self.program.await_one("push button", "Site internet")
        for mode in ("800x600", "1366x768", "800x600"):
            self.resize(mode)
        self.program.press("OK")
        wait_for(lambda: self.screen.is_in_front(2), "main window over its backdrop")
        wait_for(lambda: self.inside(800, 600), "main window inside 800x600")
        self.propose("Y")
        self.await_state("Y", "fausse")
        self.resize("1366x768")

    def resize(self, mode):
        self.screen.run("xrandr", "--output", "screen", "--mode", mode)
        width, height = map(int, mode.split("x"))
        wait_for(lambda: self.inside(width, height), "windows inside " + mode)

    def inside(self, width, height):
        """Every window but the backdrop, whole, with its title. One that is remade meanwhile is a failure."""
        places = []
        for window in map(str, self.screen.windows()):
            frame = [int(n) for n in re.findall(r"\d+", self.screen.run(
                "xprop", "-id", window, "_NET_FRAME_EXTENTS").partition("=")[2])] or [0] * 4
            shape = self.screen.run("xdotool", "getwindowgeometry", "--shell", window)
            x, y, w, h = (int(re.search(rf"^{name}=(-?\d+)", shape, re.M)[1])
                          for name in ("X", "Y", "WIDTH", "HEIGHT"))
            places.append((x >= frame[0] and y >= frame[2] and x + w + frame[1] <= width
                           and y + h + frame[3] <= height, (w, h) == (width, height)))
        return all(within or fills for within, fills in places) and any(
            within for within, _ in places)


class Asked(GameTest):
    thinking_time = 120

    def begin(self):
        pass  # when there is what it asks for

    @unittest.skipUnless(shutil.which("strace"), "strace is missing")
    def test_a_session_opens_no_network_and_starts_what_it_must(self):
        folder = self.screen.folder
        opener = os.path.join(folder, "programs", "xdg-open")
        os.mkdir(os.path.dirname(opener))
        with open(opener, "w", encoding="ascii") as script:
            script.write("#!/bin/sh\n")
        os.chmod(opener, 0o755)
        sound, printer, trace = (os.path.join(folder, name) for name in ("sound", "cups", "trace"))
        server = self.screen.start(
            ["pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
             "-L", "module-null-sink", "-L",
             "module-native-protocol-unix auth-anonymous=1 socket=" + sound])
        wait_for(lambda: os.path.exists(sound), "sound server")
        with socket.socket(socket.AF_UNIX) as silent:
            silent.bind(printer)
            silent.listen()
            game = os.path.join(self.tree, "grimoval")
            self.program = Program(
                self.screen, "env", "PATH=" + os.path.dirname(opener) + ":" + os.environ["PATH"],
                "SDL_AUDIODRIVER=pulseaudio", "PULSE_SERVER=unix:" + sound,
                "CUPS_SERVER=" + printer, "ASAN_OPTIONS=detect_leaks=0",
                "strace", "-D", "-ff", "-qq", "-o", trace, "-e", "trace=socket,connect,execve", game)
            self.start_game("1 Joueur", ("dupont", "marie"))
            self.propose("Z")
            self.program.press("A propos")
            self.program.press("Site internet")
            self.program.press("ECRIRE AU SUPPORT TECHNIQUE")
            self.program.press("OK")
            self.program.press("Voir la réponse")
            self.program.press("Stopper la partie")
            self.program.press("Imprimer")
            self.program.await_one(name="Problème d'imprimante !!")
            self.program.press("OK")
            self.leave_scores()
            self.program.press("Catalogue des thèmes")
            self.program.press("Aide")
            self.screen.bring_to_front("^Aide du Grimoval")
            self.screen.key("Escape")
            wait_for(self.program.active, "game again")
            self.quit()
        server.terminate()
        calls = "".join(pathlib.Path(one).read_text(encoding="utf-8", errors="replace")
                        for one in glob.glob(trace + ".*"))  # one for each process
        families = set(re.findall(r"socket\((\w+)", calls)) | set(
            re.findall(r"sa_family=(\w+)", calls))
        self.assertEqual(families, {"AF_UNIX"})
        for path in (sound, printer):  # it was asked, so the trace is that of the session
            self.assertIn(f'sun_path="{path}"', calls)
        started = re.findall(r'execve\("([^"]+)".* = 0', calls)
        self.assertEqual(set(started), {game, opener, os.path.join(self.tree, "grimoval-aide")})


main()
