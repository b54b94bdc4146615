# SPDX-License-Identifier: GPL-3.0-or-later
"""A game ends as it should: the table of the score window cell by cell on the accessibility bus, the
record in the log, the quit question by its buttons and by the window manager."""
import os
import re

from partie import Failed, GameTest, letters, main, wait_for


class Scores(GameTest):
    def log(self):
        name = os.path.join(self.screen.env["XDG_DATA_HOME"], "Calvenor", "Le Grimoval",
                            "SCORGRIM.TXT")
        with open(name, "rb") as file:
            return file.read().decode("cp1252")

    def cells(self):
        table = self.program.await_one("table", "Scores")
        return [cell.name for cell in table.below() if cell.role == "table cell"]

    def test_the_table_the_record_and_the_question(self):
        program = self.program
        os.environ["CUPS_SERVER"] = "127.0.0.1:9"  # no printer: the separator has 68 dashes
        self.start_game("1 Joueur", ("dupont", "marie"))
        word = self.word()
        self.propose("Z")
        self.find_word(word)
        program.press("Nouveau mot")
        self.word()
        program.press("Voir la réponse")
        program.press("Stopper la partie")
        program.await_one("push button", "Imprimer")
        good = len(letters(word))
        self.assertEqual(self.cells(), [
            "Nom et prénom :", "DUPONT MARIE", "Mots proposés :", "2", "Abandon :", "1",
            "Mots non trouvés :", "1", "Mauvaises lettres :", "1", "Bonnes lettres :", str(good),
            "Mots trouvés :", "1", "Score :", str(good + 5)])
        self.screen.key("Escape")
        program.await_one("push button", "Nouvelle partie")
        log = wait_for(self.log, "a record")
        self.assertRegex(log, re.compile(
            r"\A-+\r\n {14}Le Grimoval v3\.0\r\n {14}[A-Z][a-z]+, \d\d [^ ]+ \d{4} à \d\d:\d\d:\d\d"
            r"\r\n\r\nFichier        : BETES\.DBS\r\nSujet          : Les bêtes\r\n"
            r"Nombre de mots : 5\r\n\r\nTemps de réflexion limitée à 20 secondes\r\n"
            r"Nombre d'erreurs limité à  : 6\r\n\r\n {28}Temps écoulé : 00:00:\d\d\r\n"
            r" {14}Niveau :  un seul joueur\r\n\r\n {14}1er joueur : DUPONT MARIE\r\n"
            r"Nombre de mots proposés     : 2\r\nNombre d'abandons           : 1\r\n"
            r"Nombre de mots non trouvés  : 1\r\nNombre de mauvaises lettres : 1\r\n"
            rf"Nombre de bonnes lettres    : {good}\r\nNombre de mots trouvés      : 1\r\n\r\n\Z"))

        # No, then yes: the window manager's close request takes the same road as the button.
        program.press("Quitter")
        program.await_one("label", "Veux-tu vraiment quitter ?")
        program.press("Annuler")
        program.await_one("push button", "Nouvelle partie")
        self.screen.key("alt+F4")
        program.await_one("label", "Veux-tu vraiment quitter ?")
        self.screen.key("Return")
        self.assertEqual(program.await_end(), 0)
        self.assertEqual(self.log(), log)

    def test_escape_at_the_question_ends_in_the_failure_report(self):
        program = self.program
        self.pass_splash()
        program.press("Quitter")
        program.await_one("label", "Veux-tu vraiment quitter ?")
        self.screen.key("Escape")
        program.await_one(name=re.compile(r"L'ERREUR 340 est survenue\..*", re.S))
        self.screen.key("Return")
        self.assertEqual(program.await_end(), 1)


main()
