# SPDX-License-Identifier: GPL-3.0-or-later
"""Plays a short game on a virtual screen and leaves a picture of every window.

    demo.py PROGRAM FOLDER WIDTHxHEIGHT
"""
import os
import re
import sys
import time

from pilote import Program, Screen, on_private_bus, wait_for

HIDDEN = "Mot à trouver"


class Demo:
    def __init__(self, screen, program, folder):
        self.screen, self.program, self.folder = screen, program, folder
        self.number = 0

    def picture(self, name):
        time.sleep(0.25)  # what moves has come to rest
        self.number += 1
        file = os.path.join(self.folder, f"{self.number:02}-{name}.png")
        self.screen.picture(file)
        print("  " + file, flush=True)

    def name(self, family, first, picture=None):
        self.program.await_one("text", "Nom :")
        self.screen.type(family)
        self.screen.key("Tab")
        self.screen.type(first)
        if picture:
            self.picture(picture)
        self.program.press("OK")

    def press_and_picture(self, button, sign, picture, leave):
        self.program.press(button)
        self.program.await_one(name=sign)
        self.picture(picture)
        self.program.press(leave)
        self.program.await_one("push button", button)

    def play(self):
        program, key = self.program, self.screen.key
        program.await_one("label", "Le Grimoval")
        self.picture("frmSplash")
        key("space")
        program.await_one("push button", "Nouvelle partie")
        self.picture("FMenu-repos")
        self.press_and_picture("A propos", "ECRIRE AU SUPPORT TECHNIQUE", "FAbout", "OK")
        self.press_and_picture("Configuration du son", "Musique", "FOption", "Annuler")

        program.press("Nouvelle partie")
        program.await_one("push button", "1 Joueur")
        self.picture("FCHoix")
        program.press("OK")
        self.name("dupont", "marie", "Fnom")
        program.await_one("list item")
        key("Down", "Down")
        self.picture("FLstTitre")
        key("Return")
        wait_for(lambda: "#" in program.label(HIDDEN), "a hidden word")
        self.picture("FMenu-un-joueur")
        for letter in "eanstz":
            key(letter)
        self.picture("FMenu-lettres")
        if program.find("push button", "Voir la réponse")[0].sensitive:
            program.press("Voir la réponse")
        wait_for(lambda: "#" not in program.label(HIDDEN), "the answer")
        self.picture("FMenu-reponse")
        program.press("Stopper la partie")
        program.await_one(name="Scores")
        self.picture("FScore2-un-joueur")
        program.press("Quitter")
        program.await_one("push button", "Nouvelle partie")

        program.press("Configuration du jeu")
        program.press("2 Joueurs chacun son mot")
        self.picture("FCHoix-deux-joueurs")
        program.press("OK")
        self.name("", "")
        self.name("martin", "paul")
        program.press("Nouvelle partie")
        wait_for(lambda: "#" in program.label(HIDDEN), "a hidden word")
        self.picture("FMenu-deux-joueurs")
        for letter in "abcdefghijklmnopqrstuvwxyz":  # until the first player's word is over
            if program.find("push button", "Abandonner")[0].sensitive:
                break
            key(letter)
        for letter in "wkx":
            key(letter)
        self.picture("FMenu-voile")
        key("alt+F4")
        program.await_one("label", "Veux-tu vraiment quitter ?")
        self.picture("Fmsg1")
        program.press("OK")
        program.await_one(name="Scores")
        self.picture("FScore2-deux-joueurs")
        program.press("Quitter")
        return program.await_end()


def main():
    executable, folder, size = sys.argv[1:]
    executable, folder = os.path.abspath(executable), os.path.abspath(folder)
    if not re.fullmatch(r"\d+x\d+", size):
        sys.exit(f"demo : « {size} » n'est pas la taille d'un écran")
    on_private_bus()
    os.makedirs(folder, exist_ok=True)
    print(f"Une partie sur un écran virtuel de {size} :", flush=True)
    with Screen(size) as screen:
        status = Demo(screen, Program(screen, executable), folder).play()
    print(f"Les images sont dans {folder}")
    sys.exit(status)


main()
