# SPDX-License-Identifier: GPL-3.0-or-later
"""The table: one line for each thing measured."""
from dataclasses import dataclass


@dataclass
class Ligne:
    quoi: str
    mesure: str
    but: str
    tenu: bool | None  # nothing if no aim is set

    @property
    def verdict(self):
        return {True: "tenu", False: "manqué", None: ""}[self.tenu]


def francais(texte):
    """A point between two digits is a comma."""
    morceaux = list(texte)
    for i in range(1, len(morceaux) - 1):
        if morceaux[i] == "." and morceaux[i - 1].isdigit() and morceaux[i + 1].isdigit():
            morceaux[i] = ","
    return "".join(morceaux)


def markdown(lignes):
    rangs = [("ce qui est mesuré", "mesure", "but", ""), ("---",) * 4,
             *((l.quoi, francais(l.mesure), l.but, l.verdict) for l in lignes)]
    return "".join("| " + " | ".join(rang) + " |\n" for rang in rangs)


def ecran(lignes):
    """The same for a terminal, each column as wide as it must be."""
    rangs = [("ce qui est mesuré", "mesure", "but", ""),
             *((l.quoi, francais(l.mesure), l.but, l.verdict) for l in lignes)]
    largeurs = [max(map(len, colonne)) for colonne in zip(*rangs)]
    return "".join("  ".join(texte.ljust(largeur) for texte, largeur in zip(rang, largeurs)).rstrip() + "\n"
                   for rang in rangs)
