# SPDX-License-Identifier: GPL-3.0-or-later
"""What the accessibility bus tells of each control: role, name, description, and whether it takes
clicks now."""
import string

from partie import HIDDEN, GameTest, letters, main
from pilote import Hearing

ALWAYS_THERE = ["Nouvelle partie", "Nouveau mot", "Stopper la partie", "Changer de thème",
                "Configuration du jeu", "Configuration du son", "Aide", "A propos", "Quitter"]
AT_REST = {"Nouvelle partie", "Changer de thème", "Configuration du jeu", "Configuration du son",
           "Aide", "A propos", "Quitter"}


class Bus(GameTest):
    def buttons(self):
        return {b.name: b for b in self.program.find("push button")}

    def assert_open(self, expected):
        """Sensitive, and with the action Press, exactly where a click is taken."""
        buttons = self.buttons()
        self.assertEqual({n for n in ALWAYS_THERE if buttons[n].sensitive}, expected)
        self.assertEqual({n for n in ALWAYS_THERE if "Press" in buttons[n].actions()}, expected)

    def test_main_window_at_rest_and_in_play(self):
        self.pass_splash()
        program = self.program
        self.assertLessEqual(set(ALWAYS_THERE), set(self.buttons()))
        self.assert_open(AT_REST)
        for letter in string.ascii_uppercase:
            button = self.buttons()[letter]
            self.assertEqual((button.description, button.sensitive), ("au repos", False), letter)
        program.await_one("label", "Pour commencer : appuie sur le bouton vert", "Mot à trouver")
        for description in ("Nombre de lettres", "Sujet", "Joueur 1", "Score du joueur 1"):
            self.assertEqual(program.label(description), "", description)
        self.assertEqual(program.find("label", description="Joueur 2"), [])
        self.assertEqual(program.find("image", "Image du thème"), [])
        self.assertEqual(program.await_one("progress bar", "Temps de réflexion").value, 0)

        program.press("Nouvelle partie")
        program.press("2 Joueurs chacun son mot")
        program.press("OK")
        self.give_names(("dupont", "marie"), ("martin", "paul"))
        program.await_one("list item", "Les bêtes")
        program.press("OK")
        self.word()
        self.assert_open({"Configuration du son", "Aide", "A propos", "Quitter"})
        self.assertFalse(self.buttons()["Abandonner"].sensitive)
        for letter in string.ascii_uppercase:
            button = self.buttons()[letter]
            self.assertEqual((button.description, button.sensitive), ("disponible", True), letter)
        program.await_one("image", "Image du thème", "sans voile")
        program.await_one("label", "PAUL M.", "Joueur 2")
        program.await_one("label", description="Score du joueur 2")
        self.assertEqual(program.find("progress bar", "Mots trouvés"), [])

    def test_other_windows(self):
        self.pass_splash()
        program = self.program
        program.press("Configuration du jeu")
        box = program.await_one("check box", "Temps de réflexion limité")
        self.assertTrue(box.checked)
        self.assertEqual([b.value for b in program.find("scroll bar")], [20, 6])
        box.press()
        program.press("Annuler")
        program.await_one("push button", "Nouvelle partie")

        program.press("Changer de thème")
        program.await_one("list item", "Les bêtes")  # the title alone, without file and picture
        self.assertEqual([i.name for i in program.find("list item")],
                         ["Autres mots", "Les bêtes"])
        program.press("Annuler")
        program.await_one("push button", "Nouvelle partie")

        program.press("Configuration du jeu")
        program.press("OK")
        for name in ("Nom :", "Prénom :"):
            self.assertEqual(program.await_one("text", name).text, "")
        self.assertFalse(self.buttons()["OK"].sensitive)  # as long as a name is missing
        program.press("Annuler")  # the names, then the configuration
        program.await_one("push button", "1 Joueur")
        program.press("Annuler")
        program.await_one("push button", "Nouvelle partie")

        program.press("Configuration du son")
        program.await_one("check box", "Musique")
        self.assertEqual({c.name for c in program.find("check box")}, {"Musique", "Parole"})
        program.press("Annuler")
        program.await_one("push button", "Nouvelle partie")
        program.press("A propos")
        program.await_one("push button", "ECRIRE AU SUPPORT TECHNIQUE")
        program.press("OK")
        program.await_one("push button", "Nouvelle partie")

    def test_a_screen_reader_hears_the_word_each_letter_and_the_end(self):
        with Hearing() as heard:
            self.start_game("2 Joueurs jouant sur le même mot", ("dupont", "marie"), ("martin", "paul"))
            word = self.word()
            heard.await_one(r".*cachées?.*\. MARIE D\. A toi")
            self.screen.key("z")
            heard.await_one(r"Z fausse\. PAUL M\. A toi")
            first, *others = letters(word)
            self.screen.key(first.lower())
            heard.await_one(rf"{first} trouvée\. .*{first}.*")
            for letter in others:
                self.screen.key(letter.lower())
            heard.await_one(rf".*Mot trouvé : {word.split(' ')[0]}.*")
            self.assertNotIn("", heard.said)
            self.program.await_label(HIDDEN, word)

    def test_nothing_under_a_modal_window_takes_clicks(self):
        self.pass_splash()
        menu = self.program.active()
        self.program.press("A propos")
        self.program.await_one("push button", "Site internet")
        self.assertEqual([b.name for b in menu.below()
                          if b.role == "push button" and b.showing and b.sensitive], [])


main()
