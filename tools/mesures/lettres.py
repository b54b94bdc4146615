# SPDX-License-Identifier: GPL-3.0-or-later
"""How long from the pressing of a key until its letter has changed on the screen."""
import random
import time

from salle import ALPHABET, MOTS, Salle
from tableau import Ligne

IMAGE = 1000 / 60  # milliseconds
COTE = (875 / 15, 855 / 15)  # from one letter to the next


def place(lettre, menu):
    """A point in the middle of the letter's button."""
    rang = ALPHABET.index(lettre)
    return menu(345 / 15 + (rang % 13) * COTE[0] + 27, 5115 / 15 + (rang // 13) * COTE[1] + 26)


def mesurer():
    hasard = random.Random(1)  # a key comes at any moment of what still moves
    temps = []
    with Salle(mots=MOTS) as salle:
        temoin = salle.temoin
        salle.jeu()
        salle.commencer_partie()
        menu = salle.menu()
        for numero in range(len(MOTS)):
            lettres = list(ALPHABET)
            hasard.shuffle(lettres)
            for lettre in lettres:
                temoin.oublier()
                debut = temoin.touche(lettre.lower())
                temps.append((temoin.attendre_dessin(*place(lettre, menu)) - debut) * 1000)
                time.sleep(hasard.uniform(0.04, 0.12))
            temoin.calme()
            if numero + 1 < len(MOTS):
                salle.touches("Return")
    temps.sort()
    p99, milieu = temps[int(len(temps) * 0.99) - 1], temps[len(temps) // 2]
    return [Ligne("touche, jusqu'à la lettre à l'écran",
                  f"{p99:.1f} ms pour 99 % de {len(temps)} lettres, {milieu:.1f} ms pour la moitié",
                  "une image, 16,7 ms", p99 <= IMAGE)]
