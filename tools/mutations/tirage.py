# SPDX-License-Identifier: GPL-3.0-or-later
"""Which of the mutants are tried: the same for the same seed, and each file by its share of them all."""
import glob
import hashlib
import os

from operateurs import Lecture

DOSSIERS = ("game", "bases", "scores", "shell")


def candidats(racine):
    mutants = []
    for dossier in DOSSIERS:
        for chemin in sorted(glob.glob(os.path.join(racine, dossier, "*.cpp"))
                             + glob.glob(os.path.join(racine, dossier, "*.h"))):
            with open(chemin, encoding="utf-8") as fichier:
                mutants += Lecture(os.path.relpath(chemin, racine), fichier.read()).mutants
    return mutants


class Tirage:
    """A mutant that does not compile is given back, and the next of its file stands in for it."""

    def __init__(self, mutants, nombre, graine):
        def rang(mutant):
            return hashlib.sha256(f"{graine} {mutant.nom}".encode()).digest()

        self.par_fichier = {}
        for mutant in sorted(mutants, key=rang):
            self.par_fichier.setdefault(mutant.fichier, []).append(mutant)
        self.retenus = {}
        for fichier, quota in self.quotas(len(mutants), min(nombre, len(mutants))).items():
            pile = self.par_fichier[fichier]
            self.retenus[fichier], self.par_fichier[fichier] = pile[:quota], pile[quota:]

    def quotas(self, total, nombre):
        parts = {f: len(m) * nombre / total for f, m in self.par_fichier.items()}
        quotas = {f: int(part) for f, part in parts.items()}
        manque = nombre - sum(quotas.values())
        for fichier in sorted(parts, key=lambda f: (quotas[f] - parts[f], f))[:manque]:
            quotas[fichier] += 1
        return quotas

    def remplacer(self, mutant):
        """Another one, of another file only when its own has no more; nothing when all are drawn."""
        pile = self.par_fichier[mutant.fichier] or next((p for p in self.par_fichier.values() if p), None)
        return pile.pop(0) if pile else None
