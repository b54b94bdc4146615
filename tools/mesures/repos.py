# SPDX-License-Identifier: GPL-3.0-or-later
"""What the processor has to do in a minute in which nobody does anything, and how often the screen changes:
in the main window, and in play while the time runs. All at once: what counts is each process's own time."""
import time
from contextlib import ExitStack

import processus
from salle import MOTS, Salle
from tableau import Ligne

DUREE = 60
SANS_MUSIQUE = {"Music": 0, "TempsRéflexion": 120}
AVEC_MUSIQUE = {"TempsRéflexion": 120}


class Minute:
    """A program left to itself."""

    def __init__(self, salle):
        self.salle = salle
        self.jeu = salle.jeu()

    def commencer(self):
        self.salle.temoin.calme(0.3)
        self.salle.temoin.oublier()
        self.avant = processus.processeur(self.jeu.pid)

    def finir(self):
        self.temps = processus.processeur(self.jeu.pid) - self.avant
        self.dessins = sum(1 for _ in self.salle.temoin.dessins(time.monotonic()))
        if self.jeu.poll() is not None:
            raise RuntimeError("le jeu s'est arrêté")

    @property
    def part(self):
        return self.temps / DUREE * 100


def mesurer():
    with ExitStack() as pile:
        salles = [pile.enter_context(Salle(reglages, MOTS))
                  for reglages in (SANS_MUSIQUE, SANS_MUSIQUE, AVEC_MUSIQUE)]
        repos, partie, musique = minutes = [Minute(salle) for salle in salles]
        repos.salle.passer_accueil()
        partie.salle.commencer_partie()
        musique.salle.commencer_partie()
        time.sleep(20)  # what was said last has ended, and the device is closed
        for minute in minutes:
            minute.commencer()
        time.sleep(DUREE)
        for minute in minutes:
            minute.finir()
    if partie.dessins < DUREE / 2:
        raise RuntimeError("le temps de réflexion n'a pas couru")
    return [
        Ligne(f"processeur au repos, en {DUREE} s",
              f"{repos.temps * 1000:.0f} ms ({repos.part:.3f} %), dessins à l'écran : {repos.dessins}",
              "0,02 % ; aucun dessin", repos.part <= 0.02 and repos.dessins == 0),
        Ligne(f"processeur en partie, le temps court, en {DUREE} s",
              f"{partie.temps * 1000:.0f} ms ({partie.part:.3f} %), dessins à l'écran : {partie.dessins}",
              "0,2 % d'un cœur", partie.part < 0.2),
        Ligne("le même, avec la musique", f"{musique.temps * 1000:.0f} ms ({musique.part:.2f} %)", "", None),
    ]
