# SPDX-License-Identifier: GPL-3.0-or-later
"""The installed package in a bare system, played from outside:

    essai.py ROOT UID TEST...

The game runs in ROOT by its menu entry, as an ordinary user, with nothing but what is installed there; the
screen, the accessibility bus and the one who plays are this system's."""
import array
import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

ICI = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(ICI, "..", "..", "tests", "programme"))
from partie import HIDDEN, GameTest, Program, Screen, letters, wait_for  # noqa: E402

ROOT, UID, TESTS = sys.argv[1], int(sys.argv[2]), sys.argv[3:]
HOME = "/home/enfant"
KEPT = ROOT + HOME + "/.local/share/Calvenor/Le Grimoval/"
PATH = "/usr/local/bin:/usr/bin:/bin:/usr/local/games:/usr/games"  # of a session


class Bus:
    """The accessibility bus of the ordinary user, where both systems see it."""

    def __enter__(self):
        self.folder = tempfile.mkdtemp(prefix="grimoval-essai-", dir="/run")
        os.chown(self.folder, UID, UID)
        seen = ROOT + self.folder
        os.makedirs(seen)
        subprocess.run(["mount", "--bind", self.folder, seen], check=True)
        self.session = f"unix:path={self.folder}/bus"
        self.daemon = self.start("dbus-daemon", "--session", "--nofork", "--nopidfile",
                                 "--address=" + self.session)
        wait_for(lambda: os.path.exists(self.folder + "/bus"), "session bus")
        told = self.start("dbus-send", "--print-reply=literal", "--dest=org.a11y.Bus",
                          "/org/a11y/bus", "org.a11y.Bus.GetAddress").communicate(timeout=20)[0]
        os.environ["AT_SPI_BUS_ADDRESS"] = told.strip()
        return self

    def start(self, *command):
        return subprocess.Popen(["setpriv", f"--reuid={UID}", f"--regid={UID}", "--clear-groups",
                                 "env", "-i", "PATH=" + PATH, "HOME=" + self.folder,
                                 "XDG_RUNTIME_DIR=" + self.folder,
                                 "DBUS_SESSION_BUS_ADDRESS=" + self.session, *command],
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.DEVNULL, text=True)

    def __exit__(self, *_):
        self.daemon.terminate()
        self.daemon.communicate()
        subprocess.run(["umount", "--lazy", ROOT + self.folder], check=True)
        os.rmdir(ROOT + self.folder)
        shutil.rmtree(self.folder, ignore_errors=True)


def entry(key):
    with open(ROOT + "/usr/share/applications/grimoval.desktop", encoding="utf-8") as file:
        return next(line.split("=", 1)[1].strip() for line in file if line.startswith(key + "="))


class Essai(GameTest):
    words = ["HIBOU", "PARAPLUIE", "CHAT"]
    bus = None

    def setUp(self):
        self.screen = Screen()
        self.enterContext(self.screen)
        self.sound = os.path.join(self.bus.folder, "son.raw")
        self.program = Program(
            self.screen, "chroot", f"--userspec={UID}:{UID}", ROOT, "env", "-i", "-C", HOME,
            "PATH=" + PATH, "HOME=" + HOME, "LANG=C.UTF-8", "DISPLAY=" + self.screen.env["DISPLAY"],
            "XDG_RUNTIME_DIR=" + self.bus.folder, "DBUS_SESSION_BUS_ADDRESS=" + self.bus.session,
            # As in a session under Wayland, where windows of X are shown as well.
            "XDG_SESSION_TYPE=wayland", "WAYLAND_DISPLAY=absent",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1", "SDL_AUDIODRIVER=disk",
            "SDL_DISKAUDIOFILE=" + self.sound, "sh", "-c", "exec " + entry("Exec"))

    def loudness(self):
        with open(self.sound, "rb") as file:
            heard = file.read()
        samples = array.array("h", heard[:len(heard) // 4 * 4])
        return (sum(s * s for s in samples[::16]) / max(1, len(samples[::16]))) ** 0.5

    def play(self, subject):
        self.program.press("Nouvelle partie")
        self.program.press("1 Joueur")
        self.program.press("OK")
        self.give_names(("dupont", "marie"))
        self.choose(subject)

    def stop(self):
        self.program.press("Stopper la partie")
        self.leave_scores()
        self.quit()

    def themes(self):
        self.program.press("Changer de thème")
        themes = self.program.await_one("list")
        names = wait_for(lambda: [item.name for item in themes.children()], "themes")
        self.program.press("Annuler")
        return names

    def test_a_game_is_heard_played_and_kept(self):
        program = self.program
        self.pass_splash()
        time.sleep(4)  # of greeting, and of the tune alone
        self.assertGreater(self.loudness(), 100)
        program.press("Aide")
        wait_for(lambda: self.screen.run("xdotool", "search", "--onlyvisible", "--name",
                                         "^Aide du Grimoval"), "window of the help")
        self.screen.run("xdotool", "search", "--name", "^Aide du Grimoval", "windowactivate")
        self.screen.key("Escape")
        wait_for(program.active, "the game again")
        subject = self.themes()[0]
        self.play(subject)
        wait_for(lambda: "#" in program.label(HIDDEN), "a masked word")
        program.await_one("image", "Image du thème")
        program.press("Voir la réponse")
        wait_for(lambda: "#" not in program.label(HIDDEN), "the word")
        self.stop()
        with open(KEPT + "SCORGRIM.TXT", encoding="cp1252") as scores:
            self.assertIn("DUPONT MARIE", scores.read())

    def test_the_class_list_is_played(self):
        self.pass_splash()
        self.play("1. Notre classe")  # the first, and so in view
        word = self.word()
        for letter in letters(word):
            self.propose(letter)
        self.program.await_label(HIDDEN, word)
        self.stop()


with Bus() as Essai.bus:
    result = unittest.main(argv=sys.argv[:1] + TESTS, verbosity=0, warnings="ignore",
                           exit=False).result
sys.exit(not result.wasSuccessful())
