# SPDX-License-Identifier: GPL-3.0-or-later
"""mutations.py [NOMBRE] [GRAINE]: how many small mistakes in the rules the tests of the core would see.
Interrupted, it goes on where it stopped: build-mutations/resultats.tsv holds what is known."""
import hashlib
import json
import os
import sys
import threading
import time

import bilan
from atelier import IGNORES, Atelier, Panne, suites
from tirage import Tirage, candidats

RACINE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
TRAVAIL = os.path.join(RACINE, "build-mutations")
RESULTATS = os.path.join(TRAVAIL, "resultats.tsv")
ATELIERS = 2
CHAMPS = ("nom", "fichier", "ligne", "operateur", "avant", "apres", "verdict", "secondes", "essai",
          "regle", "arbre")


def empreinte(*chemins):
    somme = hashlib.sha256()
    for chemin in chemins:
        with open(chemin, "rb") as fichier:
            somme.update(fichier.read())
    return somme.hexdigest()[:12]


def sources():
    for dossier, sous, noms in os.walk(RACINE):
        sous[:] = sorted(s for s in sous if not IGNORES.match(s))
        for nom in sorted(noms):
            if nom.endswith((".cpp", ".h", ".script", ".transcript", "CMakeLists.txt")):
                yield os.path.join(dossier, nom)


class Connus:
    """What was tried before. A kill stays one as long as its file and the suite that killed it stand; a
    survivor is tried again as soon as anything has changed."""

    def __init__(self):
        self.arbre = empreinte(*sources())
        self.suites = suites(RACINE)
        self.regles = {}
        self.rangees = {}
        if os.path.exists(RESULTATS):
            with open(RESULTATS, encoding="utf-8") as fichier:
                for ligne in fichier:
                    rangee = dict(zip(CHAMPS, ligne.rstrip("\n").split("\t")))
                    if len(rangee) == len(CHAMPS):
                        self.rangees[rangee["nom"]] = rangee

    def regle(self, mutant):
        if mutant.fichier not in self.regles:
            self.regles[mutant.fichier] = empreinte(os.path.join(RACINE, mutant.fichier))
        return self.regles[mutant.fichier]

    def verdict(self, mutant):
        rangee = self.rangees.get(mutant.nom)
        if not rangee or rangee["regle"] != self.regle(mutant):
            return None
        if rangee["verdict"] in bilan.TUES:
            garde = rangee["essai"].split(".")[0].split("/")[-1] in self.suites
        else:
            garde = rangee["arbre"] == self.arbre
        return rangee["verdict"] if garde else None

    def retenir(self, mutant, verdict, essai, secondes):
        valeurs = (mutant.nom, mutant.fichier, mutant.ligne, mutant.operateur, json.dumps(mutant.avant),
                   json.dumps(mutant.apres), verdict, f"{secondes:.1f}", essai, self.regle(mutant), self.arbre)
        with open(RESULTATS, "a", encoding="utf-8") as fichier:
            fichier.write("\t".join(map(str, valeurs)) + "\n")


class Chantier:
    """The mutants still to try, handed out so that a workshop stays with a file: that builds less."""

    def __init__(self, tirage):
        self.tirage, self.connus = tirage, Connus()
        self.verrou = threading.Lock()
        self.essais, self.rejetes, self.reste, self.panne = [], 0, {}, None
        for mutants in tirage.retenus.values():
            for mutant in mutants:
                self.recevoir(mutant)
        self.total = len(self.essais) + sum(map(len, self.reste.values()))

    def recevoir(self, mutant):
        """Counts what is known of a mutant, or puts it among those to try."""
        while mutant:
            verdict = self.connus.verdict(mutant)
            if verdict is None:
                self.reste.setdefault(mutant.fichier, []).append(mutant)
                return
            if verdict != "ne compile pas":
                self.essais.append((mutant, verdict))
                return
            self.rejetes += 1
            mutant = self.tirage.remplacer(mutant)

    def prendre(self, fichier):
        with self.verrou:
            if not self.reste.get(fichier):
                fichier = max(self.reste, key=lambda f: len(self.reste[f]), default=None)
            return self.reste[fichier].pop() if fichier and self.reste[fichier] else None

    def rendre(self, mutant, verdict, essai, secondes):
        with self.verrou:
            self.connus.retenir(mutant, verdict, essai, secondes)
            if verdict == "ne compile pas":
                self.rejetes += 1
                self.recevoir(self.tirage.remplacer(mutant))
            else:
                self.essais.append((mutant, verdict))
            print(f"{len(self.essais):4}/{self.total} {mutant.fichier}:{mutant.ligne} {mutant.operateur} : "
                  f"{verdict}{' par ' + essai if essai else ''} ({secondes:.0f} s)", flush=True)

    def travailler(self, atelier):
        fichier = None
        try:
            atelier.preparer()
            print(f"{atelier.nom} : sans mutant les tests passent, en {atelier.essayer_sain():.0f} s.", flush=True)
            while not self.panne and (mutant := self.prendre(fichier)):
                fichier, debut = mutant.fichier, time.monotonic()
                verdict, essai = atelier.essayer(mutant)
                self.rendre(mutant, verdict, essai, time.monotonic() - debut)
        except Exception as erreur:  # told by the main thread
            self.panne = erreur

    def mener(self):
        if not self.reste:
            return
        ateliers = [Atelier(RACINE, os.path.join(TRAVAIL, f"atelier{i + 1}")) for i in range(ATELIERS)]
        for atelier in ateliers:  # all before the first begins: the tree may go on
            atelier.copier()
        fils = [threading.Thread(target=self.travailler, args=(a,), daemon=True) for a in ateliers]
        for fil in fils:
            fil.start()
        for fil in fils:
            fil.join()
        if self.panne:
            raise self.panne


def main():
    nombre, graine = (int(a) for a in (sys.argv[1:] + ["300", "1"][len(sys.argv) - 1:])[:2])
    os.makedirs(TRAVAIL, exist_ok=True)
    mutants = candidats(RACINE)
    print(f"{len(mutants)} mutants possibles ; {nombre} sont tirés, de graine {graine}.", flush=True)
    chantier = Chantier(Tirage(mutants, nombre, graine))
    try:
        chantier.mener()
    except Panne as panne:
        print(panne)
        return 2
    return 0 if bilan.dire(RACINE, chantier.essais, chantier.rejetes) else 1


sys.exit(main())
