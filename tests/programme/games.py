# SPDX-License-Identifier: GPL-3.0-or-later
"""One game in each mode on the real program, from the splash to "Stopper la partie"."""
import os
import re

from partie import COUNT, HIDDEN, SUBJECT, GameTest, count, letters, main, wait_for


class Games(GameTest):
    thinking_time = 120  # the machine may be busy

    def test_alone_by_mouse_until_the_base_is_used_up(self):
        program = self.program
        self.start_game("1 Joueur", ("dupont", "marie"))
        self.assertEqual(program.label(SUBJECT), "Sujet : Les bêtes")
        word = self.word()
        self.assertEqual(program.label(COUNT), str(count(word)))
        self.assertEqual(program.label("Joueur 1"), "MARIE D. A toi")
        thinking = program.await_one("progress bar", "Temps de réflexion")
        self.assertEqual(thinking.maximum, self.thinking_time)
        wait_for(lambda: thinking.value >= 1 and thinking.description == f"{thinking.value:g}",
                 "a second of thinking")

        self.propose("Z")
        self.await_state("Z", "fausse")
        # 200 units over 6 errors are steps of 33, from 1 on.
        program.await_one("image", "Image du thème", "voile 34/200")
        self.propose(letters(word)[0])
        self.await_state(letters(word)[0], "trouvée")
        for letter in letters(word)[1:]:
            self.propose(letter)
        program.await_label(HIDDEN, word)
        self.assertEqual({self.state_of(letter) for letter in "ZAE"}, {"au repos"})
        self.assertEqual(program.label("Score du joueur 1"), str(len(letters(word)) + 5))
        found = program.await_one("progress bar", "Mots trouvés")
        self.assertEqual((found.value, found.maximum, found.description),
                         (1, len(self.words), "1/1"))

        program.press("Nouveau mot")
        word = self.word()
        program.press("Voir la réponse")
        program.await_label(HIDDEN, word)
        program.press("Stopper la partie")
        self.leave_scores()

        # Another game at once, with the same names and theme, until no word is left.
        program.press("Nouvelle partie")
        seen = []
        for _ in self.words:
            seen.append(self.word())
            program.press("Voir la réponse")
            program.await_label(HIDDEN, seen[-1])
            program.press("Nouveau mot")
        self.assertEqual(sorted(seen), sorted(self.words))
        program.await_one(name=re.compile("Tous les mots ont été proposés.*", re.S))
        program.press("OK")
        self.leave_scores()
        self.quit()

        data = os.path.join(self.screen.env["XDG_DATA_HOME"], "Calvenor", "Le Grimoval")
        with open(os.path.join(data, "SCORGRIM.TXT"), encoding="cp1252") as scores:
            self.assertEqual(scores.read().count("1er joueur : DUPONT MARIE"), 2)
        with open(os.path.join(data, "GRIMOVA.INI"), encoding="cp1252") as settings:
            self.assertIn("NombreJoueur=1\n", settings.read())

    def test_two_on_one_word_by_keyboard_alone(self):
        program, key = self.program, self.screen.key
        program.await_one("label", "Le Grimoval")
        key("space")
        program.on_button("Nouvelle partie")
        program.on_button("2 Joueurs jouant sur le même mot")
        program.on_button("OK")
        for family, first in (("dupont", "marie"), ("martin", "paul")):
            program.await_one("label", "1er joueur" if family == "dupont" else "2ème joueur")
            self.screen.type(family)
            key("Return")
            self.screen.type(first)
            key("Return")
        # The first entry of the chooser is "Autres mots".
        program.await_one("list item", "Les bêtes")
        key("Down", "Return")
        word = self.word()
        self.assertEqual(program.label(SUBJECT), "Sujet : Les bêtes")
        self.assertEqual(program.label("Joueur 1"), "MARIE D. A toi")

        key("z")
        program.await_label("Joueur 2", "PAUL M. A toi")
        self.assertEqual(program.label("Joueur 1"), "MARIE D.")
        # A letter proposed already, a digit, Escape and the space bar cost nothing.
        key("z", "7", "Escape", "space")
        first, *others = letters(word)
        key(first.lower())
        program.await_label("Score du joueur 2", "1")
        key("y")
        program.await_label("Joueur 1", "MARIE D. A toi")
        for letter in others:
            key("shift+" + letter.lower())
        program.await_label(HIDDEN, word)
        program.await_label("Score du joueur 1", str(len(others) + 5))
        self.assertEqual(program.label("Score du joueur 2"), "1")

        key("Return")  # "Nouveau mot"
        self.word()
        program.on_button("Stopper la partie")
        program.await_one(name="Scores")
        key("Escape")
        program.await_label(HIDDEN, "Pour commencer : appuie sur le bouton vert")
        program.on_button("Quitter")
        program.await_one("label", "Veux-tu vraiment quitter ?")
        key("Return")
        self.assertEqual(program.await_end(), 0)

    def test_two_each_with_a_word_by_mouse_and_keyboard(self):
        program = self.program
        self.start_game("2 Joueurs chacun son mot", ("dupont", "marie"), ("martin", "paul"))
        one = self.word()
        self.find_word_of_first(one)
        self.assertEqual(program.label("Score du joueur 1"), str(len(letters(one)) + 5))
        two = self.word()
        self.assertNotEqual(one, two)
        program.await_label("Joueur 2", "PAUL M. A toi")
        self.screen.key("z")
        program.await_one("image", "Image du thème", "voile 34/200")
        program.press("Abandonner")
        program.press("Nouveau mot")
        one = self.word()
        self.find_word_of_first(one)
        two = self.word()
        self.find_word(two, lambda letter: self.screen.key(letter.lower()))
        self.assertEqual(program.label("Score du joueur 2"), str(len(letters(two)) + 5))
        program.press("Stopper la partie")
        self.leave_scores()
        self.quit()

    def find_word_of_first(self, word):
        """At its last letter the second player's word takes its place."""
        for letter in letters(word):
            self.propose(letter)
        self.program.await_label("Joueur 2", "PAUL M. A toi")


main()
