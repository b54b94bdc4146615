# SPDX-License-Identifier: GPL-3.0-or-later
"""What the tests of the real program have in common: a copy of the runnable tree with a small word
base of known words, the program on a screen of its own, and the steps of a game."""
import os
import re
import shutil
import subprocess
import sys
import unittest

from pilote import Atspi, Program, on_private_bus
from screen import Failed, Screen, wait_for  # noqa: F401

TREE = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else "build/grimoval")
GRIMBASES = os.path.join(os.path.dirname(TREE), "grimbases")

# Each has a number of letters to find of its own, so that the mask tells the word.
WORDS = ["BOA", "CHAT", "LAPIN", "CHÈVRE (FEMELLE)", "ÉLÉPHANT"]
HIDDEN, COUNT, SUBJECT = "Mot à trouver", "Nombre de lettres", "Sujet"


def letters(word):
    return [c for c in dict.fromkeys(word.split("(")[0]) if "A" <= c <= "Z"]


def count(word):
    return sum("A" <= c <= "Z" for c in word.split("(")[0])


def masked(word):
    start = word.split("(")[0]
    return re.sub("[A-Z]", "#", start) + word[len(start):]


class GameTest(unittest.TestCase):
    words = WORDS
    headings = []
    thinking_time = None  # seconds, if not as the game comes; no more than 120
    size = "1366x768"

    def setUp(self):
        self.screen = Screen(self.size)
        self.enterContext(self.screen)
        self.tree = os.path.join(self.screen.folder, "Le Grimoval")
        shutil.copytree(TREE, self.tree)
        shutil.rmtree(os.path.join(self.tree, "MASK"))
        os.mkdir(os.path.join(self.tree, "MASK"))
        sources = os.path.join(self.screen.folder, "sources")
        os.mkdir(sources)
        for stem, title in (("BETES", "Les bêtes"), ("AUTRES", "Autres mots")):
            with open(os.path.join(sources, stem + ".txt"), "w", encoding="utf-8") as file:
                file.write("\n".join(["Titre : " + title, *self.headings, *self.words]) + "\n")
        subprocess.run([GRIMBASES, "construire", sources, os.path.join(self.tree, "MASK")],
                       check=True)
        if self.thinking_time:
            os.makedirs(os.path.dirname(self.data("GRIMOVA.INI")))
            with open(self.data("GRIMOVA.INI"), "w", encoding="cp1252") as settings:
                settings.write(f"[Le Grimoval]\nTempsRéflexion={self.thinking_time}\n")
        self.begin()

    def begin(self):
        self.program = Program(self.screen, os.path.join(self.tree, "grimoval"))

    # Steps by mouse.

    def pass_splash(self):
        self.program.await_one("label", "Le Grimoval").press()
        self.program.await_one("push button", "Nouvelle partie")

    def choose(self, title):
        """Selects a theme, and takes it."""
        self.program.await_one("list item", title).press()
        wait_for(lambda: self.program.await_one("list item", title).has(
            Atspi.StateType.SELECTED), f"{title} selected")
        self.program.press("OK")

    def give_names(self, *names):
        for family, first in names:
            self.program.await_one("text", "Nom :")
            self.screen.type(family)
            self.screen.key("Return")
            self.screen.type(first)
            self.program.press("OK")

    def start_game(self, mode, *names):
        self.pass_splash()
        self.program.press("Nouvelle partie")
        self.program.press(mode)
        self.program.press("OK")
        self.give_names(*names)
        self.choose("Les bêtes")
        self.word()

    # The word in play, told by its mask.
    def word(self):
        def known():
            mask = self.program.label(HIDDEN)
            return next((w for w in self.words if masked(w) == mask), None)

        return wait_for(known, "a masked word")

    def propose(self, letter):
        self.program.press(letter)

    def state_of(self, letter):
        return self.program.await_one("push button", letter).description

    def await_state(self, letter, state):
        wait_for(lambda: self.state_of(letter) == state, f"{letter} {state}")

    def find_word(self, word, by=None):
        for letter in letters(word):
            (by or self.propose)(letter)
        self.program.await_label(HIDDEN, word)

    def data(self, name):
        """A file of the person's own folder."""
        return os.path.join(self.screen.env["XDG_DATA_HOME"], "Calvenor", "Le Grimoval", name)

    def leave_scores(self):
        self.program.await_one(name="Scores")
        self.program.press("Quitter")
        self.program.await_label(HIDDEN, "Pour commencer : appuie sur le bouton vert")

    def quit(self):
        self.program.press("Quitter")
        self.program.await_one("label", "Veux-tu vraiment quitter ?")
        self.program.press("OK")
        self.assertEqual(self.program.await_end(), 0)


def main():
    on_private_bus()
    unittest.main(argv=sys.argv[:1] + sys.argv[2:], verbosity=2, warnings="ignore")
