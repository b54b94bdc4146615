# SPDX-License-Identifier: GPL-3.0-or-later
"""The tree as the checks see it, and the way in which they tell a mistake."""
import os
import re
import sys

# Made by a build or by a tool, never written by hand.
IGNORES = re.compile(r"^(\.git|build|build-.*|__pycache__)$")


class Arbre:
    def __init__(self, racine):
        self.racine = racine
        self.fautes = []

    def fichiers(self, *fins):
        """Paths inside the tree, in order; of all files if no ending is given."""
        for dossier, sous, noms in os.walk(self.racine):
            sous[:] = sorted(s for s in sous if not IGNORES.match(s))
            for nom in sorted(noms):
                if not fins or nom.endswith(fins):
                    yield os.path.relpath(os.path.join(dossier, nom), self.racine)

    def existe(self, chemin):
        return os.path.exists(os.path.join(self.racine, chemin))

    def octets(self, chemin):
        with open(os.path.join(self.racine, chemin), "rb") as fichier:
            return fichier.read()

    def texte(self, chemin):
        return self.octets(chemin).decode("utf-8")

    def faute(self, regle, chemin, message, ligne=0):
        place = f"{chemin}:{ligne}" if ligne else chemin
        self.fautes.append(f"{place}: [{regle}] {message}")


def sans_commentaires(texte):
    """C++ without its comments, every line in its place."""
    motif = r'"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'|//[^\n]*|/\*.*?\*/'

    def garder(trouve):
        morceau = trouve.group(0)
        return re.sub(r"[^\n]", " ", morceau) if morceau.startswith("/") else morceau

    return re.sub(motif, garder, texte, flags=re.S)


def conclure(verifier):
    """Runs a check on the folder given as first argument, or on this tree."""
    ici = os.path.dirname(os.path.abspath(__file__))
    racine = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.dirname(ici))
    arbre = Arbre(racine)
    verifier(arbre)
    for faute in arbre.fautes:
        print(faute)
    sys.exit(1 if arbre.fautes else 0)
