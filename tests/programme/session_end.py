# SPDX-License-Identifier: GPL-3.0-or-later
"""The session ends under the real program: a signal, a logout that a session manager tells, a display that
dies. Wherever it stands it ends at once, asks nothing, leaves the record of a game, and bars no next start."""
import os
import re
import shutil
import signal
import time
import unittest

from partie import GameTest, Program, main, wait_for
from session_manager import SessionManager

SOON = 3  # seconds, on a busy machine


class EndTest(GameTest):
    """Each end at each place; `end_session` and the status that it leads to are the subclass's."""

    status = 0

    def begin(self):
        self.start()

    def start(self):
        super().begin()

    def end_session(self):
        raise NotImplementedError

    def log(self):
        try:
            with open(self.data("SCORGRIM.TXT"), encoding="cp1252") as file:
                return file.read()
        except FileNotFoundError:
            return ""

    def record_of(self, proposed):
        """The one record of the log, whole."""
        log = self.log()
        self.assertEqual(log.count("Le Grimoval v3.0"), 1, log)
        self.assertRegex(log, re.compile(
            rf"1er joueur : DUPONT MARIE\nNombre de mots proposés     : {proposed}\n"
            r".*Nombre de mots trouvés      : 0\n\n\Z", re.S))

    def end(self):
        self.end_session()
        self.assertEqual(self.program.await_end(SOON), self.status)

    def play(self):
        self.start_game("1 Joueur", ("dupont", "marie"))

    def show_scores(self):
        self.program.press("Voir la réponse")
        self.program.press("Stopper la partie")
        self.program.await_one("push button", "Imprimer")


class Signals(EndTest):
    numbers = [signal.SIGTERM, signal.SIGHUP, signal.SIGINT]

    def end_session(self):
        self.program.process.send_signal(self.numbers[0])

    def again(self):
        """The next start, with the next signal; nothing of the last one bars it."""
        self.numbers = self.numbers[1:] + self.numbers[:1]
        self.start()

    def test_at_the_splash_and_at_rest_it_ends_and_writes_nothing(self):
        for _ in range(2):
            self.program.await_one("label", "Le Grimoval")
            self.end()
            self.again()
        self.pass_splash()
        self.end()
        self.assertEqual(self.log(), "")

    def test_before_the_first_window_it_ends_too(self):
        self.program.process.kill()
        for delay in (0, 20, 60, 120, 200, 300):
            self.program.process.wait()
            self.start()
            time.sleep(delay / 1000)
            self.end_session()
            self.program.await_end(SOON)

    def test_a_game_leaves_its_record_under_a_word_a_question_and_a_box(self):
        def in_play():
            pass

        def under_the_question():
            self.program.press("Quitter")
            self.program.await_one("label", "Veux-tu vraiment quitter ?")

        def under_a_modal_window():
            self.program.press("Configuration du son")
            self.program.await_one("check box", "Musique")

        def between_two_words():
            self.program.press("Voir la réponse")

        for place in (in_play, under_the_question, under_a_modal_window, between_two_words,
                      self.show_scores, self.under_a_box):
            with self.subTest(place.__name__):
                self.play()
                place()
                self.end()
                self.record_of(1)
                os.remove(self.data("SCORGRIM.TXT"))
                self.again()

    def under_a_box(self):
        self.show_scores()
        self.program.press("Imprimer")
        self.program.await_one(name="Problème d'imprimante !!")

    def test_a_record_that_has_failed_is_told_to_nobody_and_not_tried_again(self):
        self.play()
        self.show_scores()
        os.makedirs(self.data("SCORGRIM.TXT"))
        self.program.press("Quitter")
        self.program.await_one(name="L'ERREUR 75 est survenue.")
        os.rmdir(self.data("SCORGRIM.TXT"))
        self.end()
        self.assertEqual(self.log(), "")

    def test_several_signals_at_once_are_one(self):
        self.play()
        for number in self.numbers:
            self.program.process.send_signal(number)
        self.program.await_end(SOON)
        self.record_of(1)


class Logout(EndTest):
    @classmethod
    def setUpClass(cls):
        cls.manager = SessionManager()
        cls.addClassCleanup(cls.manager.close)

    def start(self):
        self.screen.env["SESSION_MANAGER"] = self.manager.address
        super().start()

    def end_session(self):
        self.manager.save(shutdown=True)
        self.manager.die()

    def test_at_the_splash_it_ends_and_the_next_start_opens(self):
        self.program.await_one("label", "Le Grimoval")
        self.end()
        self.start()
        self.pass_splash()

    def test_a_game_leaves_its_record_in_play_and_in_the_score_window(self):
        self.play()
        self.end()
        self.record_of(1)
        os.remove(self.data("SCORGRIM.TXT"))
        self.start()
        self.play()
        self.show_scores()
        self.end()
        self.record_of(1)

    def test_a_session_that_is_saved_or_stays_goes_on_without_a_question(self):
        self.play()
        self.manager.save(shutdown=False)
        self.manager.save(shutdown=True)
        self.manager.stay()
        self.assertEqual(self.log(), "")
        self.propose("Z")
        self.await_state("Z", "fausse")


class DisplayDies(EndTest):
    status = 1

    def end_session(self):
        server = self.screen.started[0]
        server.kill()
        server.wait()

    def test_at_the_splash(self):
        self.program.await_one("label", "Le Grimoval")
        self.end()

    def test_in_play_the_record_is_left(self):
        self.play()
        self.end()
        self.record_of(1)

    def test_in_the_score_window_the_record_is_left(self):
        self.play()
        self.show_scores()
        self.end()
        self.record_of(1)


@unittest.skipUnless(shutil.which("weston"), "weston is missing")
class CompositorDies(DisplayDies):
    def start(self):
        name = os.path.join(self.screen.env["XDG_RUNTIME_DIR"], "wayland-jeu")
        backends = self.screen.run("weston", "--help")
        backend = "x11-backend.so" if "x11-backend.so" in backends else "x11"
        self.weston = self.screen.start(
            ["weston", "--backend=" + backend, "--use-pixman", "--socket=" + os.path.basename(name),
             "--width=1300", "--height=700", "--idle-time=0"])
        wait_for(lambda: os.path.exists(name), "compositor")
        self.program = Program(self.screen, "env", "WAYLAND_DISPLAY=" + os.path.basename(name),
                               "QT_QPA_PLATFORM=wayland", os.path.join(self.tree, "grimoval"))

    def end_session(self):
        self.weston.kill()
        self.weston.wait()


main()
