# SPDX-License-Identifier: GPL-3.0-or-later
"""What goes wrong around the real program: folders that are missing, closed or full, an end at any moment,
services that are not there. It says what is to be said in French, or plays on without."""
import contextlib
import glob
import os
import re
import shutil
import signal
import socket
import subprocess
import time
import unittest

from gi.repository import GLib

from partie import GameTest, Program, main, wait_for
from watch import DEATH, ORDINARY, as_ordinary_person

REPORT = r"L'ERREUR (\d+) est survenue\..*"


class FaultTest(GameTest):
    def begin(self):
        self.game = os.path.join(self.tree, "grimoval")

    def start(self, *before, **env):
        """The program, with some things around it changed; what is None is left out."""
        around = {name: value for name, value in env.items() if value is not None}
        left_out = [word for name in env if env[name] is None for word in ("-u", name)]
        words = [f"{name}={value}" for name, value in around.items()]
        # Python's env: what is to be loaded before the program is not loaded before env.
        self.program = Program(self.screen, "env", *left_out, *words, *before, self.game)
        return self.program

    def start_to_die(self, kind, number, below):
        """It dies, or has no room, at that call on files with such names, once there is a sign."""
        self.sign = os.path.join(self.screen.folder, "sign")
        self.start(LD_PRELOAD=DEATH, GRIM_MORT=kind, GRIM_MORT_A=number, GRIM_MORT_SOUS=below,
                   GRIM_MORT_SIGNE=self.sign,
                   ASAN_OPTIONS="verify_asan_link_order=0:detect_leaks=0")

    def give_sign(self):
        with open(self.sign, "w", encoding="ascii"):
            pass

    def end_game(self):
        """As fast as a game can end; the score window is up then."""
        self.program.press("Voir la réponse")
        self.program.press("Stopper la partie")
        self.program.await_one("push button", "Imprimer")

    def play(self):
        """A game, and the end."""
        self.start_game("1 Joueur", ("dupont", "marie"))
        self.end_game()
        self.leave_scores()
        self.quit()

    def await_report(self, number):
        """The failure report, and the end of the process."""
        box = self.program.await_one(name=re.compile(REPORT, re.S))
        self.assertEqual(re.match(REPORT, box.name, re.S)[1], str(number), box.name)
        self.program.press("OK")
        self.assertEqual(self.program.await_end(), 1)

    def splash_then_report(self, number):
        self.program.await_one("label", "Le Grimoval").press()
        self.await_report(number)

    def records(self, name="SCORGRIM.TXT"):
        """The records of the log, whole ones, and what stands behind them."""
        with open(self.data(name), encoding="cp1252", newline="") as file:
            text = file.read()
        whole = re.findall(r"-+\r\n {14}Le Grimoval v3\.0\r\n.*?Nombre de mots trouvés      : \d+\r\n\r\n",
                           text, re.S)
        return len(whole), text[sum(map(len, whole)):]


@unittest.skipIf(os.geteuid() == 0, ORDINARY)
class Folders(FaultTest):
    def closed(self, folder):
        os.makedirs(folder, exist_ok=True)
        os.chmod(folder, 0o555)
        self.addCleanup(os.chmod, folder, 0o755)
        return folder

    def test_a_persons_folder_that_cannot_be_made_or_written_is_told(self):
        place = self.screen.env["XDG_DATA_HOME"]
        self.closed(place)  # permission denied
        self.start()
        self.splash_then_report(70)
        os.chmod(place, 0o755)
        with open(os.path.join(place, "Calvenor"), "wb"):  # a file in its place
            pass
        self.start()
        self.splash_then_report(75)
        os.remove(os.path.join(place, "Calvenor"))
        self.closed(os.path.dirname(self.data("x")))  # the probe of the start
        self.start()
        self.splash_then_report(70)

    def test_without_a_home_the_settings_stand_beside_the_tree_that_nobody_may_write(self):
        self.addCleanup(subprocess.run, ["chmod", "-R", "u+w", self.tree], check=True)
        subprocess.run(["chmod", "-R", "a-w", self.tree], check=True)
        self.start(XDG_DATA_HOME=None, HOME=None)
        self.start_game("1 Joueur", ("dupont", "marie"))
        self.assertTrue(os.path.isfile(self.tree + "GRIMOVA.INI"))
        # But the log is to lie in it.
        self.end_game()
        self.program.press("Quitter")
        self.program.await_one(name="L'ERREUR 70 est survenue.")
        self.program.press("OK")
        self.program.await_one("push button", "Nouvelle partie")
        self.quit()
        # Neither can the place beside the tree be written.
        home = self.closed(os.path.join(self.screen.folder, "maison"))
        os.chmod(self.screen.folder, 0o555)
        try:
            self.start(XDG_DATA_HOME=None, HOME=home)
            self.splash_then_report(70)
        finally:
            os.chmod(self.screen.folder, 0o755)

    def test_a_folder_that_closes_goes_or_fills_during_play_costs_the_record_alone(self):
        folder = os.path.dirname(self.data("x"))
        self.start_to_die("plein", 1, folder)
        self.start_game("1 Joueur", ("dupont", "marie"))
        for number, (what, said) in enumerate((
                (lambda: os.chmod(folder, 0o555), "L'ERREUR 70 est survenue."),
                (lambda: os.rename(folder, folder + ".ailleurs"),
                 "ERREUR 76\u00a0: Ce chemin d'accès n'existe pas."),
                (self.give_sign, "Disque / est saturé."),
                (lambda: None, None))):
            if number:
                self.program.press("Nouvelle partie")
            self.word()
            self.end_game()
            what()
            self.program.press("Quitter")
            if said:
                self.program.await_one(name=said)
                self.program.press("OK")
            self.program.await_one("push button", "Nouvelle partie")
            if number == 0:
                os.chmod(folder, 0o755)
            elif number == 1:
                os.rename(folder + ".ailleurs", folder)
            elif number == 2:
                # Nor are the options kept, in silence; the settings are as they were.
                with open(self.data("GRIMOVA.INI"), "rb") as file:
                    before = file.read()
                self.program.press("Configuration du son")
                self.program.await_one("check box", "Musique").press()
                self.program.press("OK")
                self.program.await_one("push button", "Nouvelle partie")
                with open(self.data("GRIMOVA.INI"), "rb") as file:
                    self.assertEqual(file.read(), before)
                os.remove(self.sign)
        self.assertEqual(self.records(), (1, ""))
        self.quit()


class Installed(FaultTest):
    def without(self, folder):
        place = os.path.join(self.tree, folder)
        os.rename(place, place + ".absent")
        return place

    def test_without_sounds_it_is_silent_without_bases_or_pictures_it_says_so(self):
        shutil.rmtree(os.path.join(self.tree, "SONS"))
        bases = self.without("MASK")
        self.start()
        self.splash_then_report(76)
        os.mkdir(bases)
        self.start()
        self.splash_then_report(53)
        shutil.copy(bases + ".absent/GRIMV.LST", bases)
        self.start()
        self.pass_splash()
        self.program.press("Changer de thème")
        self.program.await_one(name=re.compile(
            "Aucun fichier de bases .DBS n'est trouvé dans le répertoire .*"))
        self.program.press("OK")
        wait_for(lambda: [b for b in self.program.find("push button", "OK") if not b.sensitive],
                 "chooser without a theme")
        self.program.press("Annuler")
        self.program.await_one("push button", "Nouvelle partie")
        # They are back, but the theme has no picture now.
        shutil.rmtree(bases)
        os.rename(bases + ".absent", bases)
        os.mkdir(self.without("IMAGES"))
        self.program.press("Changer de thème")
        self.choose("Les bêtes")
        self.program.await_one(name="Le Grimoval va être arrêté.\n\nLa base \"Les bêtes\" n'a pas d'image\n"
                               "et les images par défaut du programme sont introuvables.\n\n"
                               "Veuillez réinstaller le Grimoval.")
        self.program.press("OK")
        self.assertEqual(self.program.await_end(), 0)


class Killed(FaultTest):
    """At a moment that nobody chose; the next start finds all as it was, or as it was to be."""

    def settings(self):
        with open(self.data("GRIMOVA.INI"), encoding="cp1252", newline="") as file:
            return file.read()

    def press_to_die(self, name):
        """The program may be gone before it answers."""
        with contextlib.suppress(GLib.GError):
            self.program.press(name)
        self.program.process.wait(10)
        self.assertEqual(self.program.process.returncode, -signal.SIGKILL)

    def test_it_dies_while_it_plays_and_while_it_writes(self):
        # In the middle of the options' file, and before it takes the other's name.
        for call in (2, 4):
            self.start_to_die("mort", call, self.data("GRIMOVA.INI"))
            if call == 2:
                self.start_game("1 Joueur", ("dupont", "marie"))
            else:
                self.pass_splash()
            settings = self.settings()
            self.program.press("Configuration du son")
            self.program.await_one("check box", "Musique").press()
            self.give_sign()
            self.press_to_die("OK")
            os.remove(self.sign)
            self.assertEqual(self.settings(), settings)
            # What it has left goes at the next start, as soon as it is an hour old.
            rests = glob.glob(glob.escape(self.data("GRIMOVA.INI")) + "~*")
            self.assertEqual(len(rests), 1)
            os.utime(rests[0], (0, 0))

        # In the middle of a record: those before it are whole, and the next one follows.
        self.start_to_die("mort", 4, self.data("SCORGRIM"))
        self.start_game("1 Joueur", ("dupont", "marie"))
        self.end_game()
        self.leave_scores()
        self.assertEqual(self.records(), (1, ""))
        self.program.press("Nouvelle partie")
        self.word()
        self.end_game()
        self.give_sign()
        self.press_to_die("Quitter")
        whole, rest = self.records()
        self.assertEqual(whole, 1)
        self.assertTrue(rest)
        self.start()
        self.start_game("1 Joueur", ("dupont", "marie"))
        self.program.press("Configuration du son")
        self.program.await_one("check box", "Musique").press()
        self.program.press("OK")
        self.end_game()
        self.leave_scores()
        self.quit()
        with open(self.data("SCORGRIM.TXT"), encoding="cp1252", newline="") as file:
            self.assertEqual(file.read().count("Nombre de mots trouvés      : 0\r\n\r\n"), 2)
        self.assertEqual(sorted(os.listdir(os.path.dirname(self.data("x")))),
                         ["GRIMOVA.INI", "SCORGRIM.BAK", "SCORGRIM.TXT"])


class Alone(FaultTest):
    def test_without_a_single_font_device_or_printer(self):
        fonts = os.path.join(self.screen.folder, "fonts.conf")
        with open(fonts, "w", encoding="utf-8") as file:
            file.write("<fontconfig></fontconfig>")
        with socket.socket(socket.AF_UNIX) as silent:
            printer = os.path.join(self.screen.folder, "cups.sock")
            silent.bind(printer)
            silent.listen()
            self.start(FONTCONFIG_FILE=fonts, SDL_AUDIODRIVER="nosuchdriver", CUPS_SERVER=printer)
            self.start_game("1 Joueur", ("dupont", "marie"))
            self.end_game()
            # Who never answers is a printer that is not there, in the end.
            self.program.press("Imprimer")
            self.program.await_one(name="Problème d'imprimante !!", seconds=20)
            self.program.press("OK")
            self.program.press("Quitter")
            self.program.await_one("push button", "Nouvelle partie")
            self.quit()
        self.assertEqual(self.records(), (1, ""))

    def test_without_a_thread_to_spare_it_plays_prints_not_and_keeps_the_record(self):
        self.start(LD_PRELOAD=DEATH, GRIM_MORT="fil",
                   ASAN_OPTIONS="verify_asan_link_order=0:detect_leaks=0")
        self.start_game("1 Joueur", ("dupont", "marie"))
        self.end_game()
        self.program.press("Imprimer")
        self.program.await_one(name="Problème d'imprimante !!")
        self.program.press("OK")
        self.leave_scores()
        self.quit()
        self.assertEqual(self.records(), (1, ""))

    def test_on_a_screen_of_a_palette_it_ends_with_a_word(self):
        read, write = os.pipe()
        self.screen.start(["Xvfb", "-displayfd", str(write), "-screen", "0", "800x600x8",
                           "-nolisten", "tcp"], pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as answer:
            display = ":" + answer.readline().strip()
        ended = subprocess.run([self.game], env=dict(self.screen.env, DISPLAY=display), timeout=20,
                               stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
        self.assertEqual(ended.returncode, 1)
        self.assertIn("cet écran n'a pas assez de couleurs", ended.stderr)

    def test_pipes_for_a_desktops_settings_keep_no_window_away(self):
        folder = self.screen.env["XDG_CONFIG_HOME"]
        for name in ("kdeglobals", "gtk-3.0/settings.ini", "gtk-4.0/settings.ini"):
            os.makedirs(os.path.dirname(os.path.join(folder, name)), exist_ok=True)
            os.mkfifo(os.path.join(folder, name))
        for desktop in ("KDE", "GNOME", "XFCE"):
            with self.subTest(desktop):
                self.start(XDG_CURRENT_DESKTOP=desktop, KDE_SESSION_VERSION="5")
                self.addCleanup(self.program.process.kill)
                self.pass_splash()
                self.quit()

    def test_a_session_bus_that_never_answers_keeps_the_window_away_for_a_moment_alone(self):
        path = os.path.join(self.screen.folder, "bus")
        with socket.socket(socket.AF_UNIX) as silent:
            silent.bind(path)
            silent.listen()
            since = time.monotonic()
            self.start(DBUS_SESSION_BUS_ADDRESS="unix:path=" + path)
            wait_for(lambda: self.screen.is_in_front(1), "splash", 5)
            print(f"{time.monotonic() - since:.1f} s", end=" ", flush=True)
            self.assertLess(time.monotonic() - since, 2.5)  # of which the machine takes its share
            self.screen.key("space")
            wait_for(lambda: self.screen.is_in_front(2), "main window over its backdrop")

    def test_without_a_bus_it_opens_asks_and_ends(self):
        nowhere = "unix:path=" + os.path.join(self.screen.folder, "nowhere")
        self.start(DBUS_SESSION_BUS_ADDRESS=nowhere, DBUS_SYSTEM_BUS_ADDRESS=nowhere,
                   AT_SPI_BUS_ADDRESS=nowhere, XDG_RUNTIME_DIR=None)
        wait_for(lambda: self.screen.is_in_front(1), "splash")
        self.screen.key("space")
        wait_for(lambda: self.screen.is_in_front(2), "main window over its backdrop")
        self.screen.key("alt+F4")
        wait_for(lambda: self.screen.is_in_front(3), "question")
        self.screen.key("Return")
        self.assertEqual(self.program.await_end(), 0)


as_ordinary_person()
main()
