# SPDX-License-Identifier: GPL-3.0-or-later
"""Each check must fail on a mistake: mistakes are planted in a copy of the tree, one after the other.
A check that nothing can make fail guards nothing, and nobody would notice."""
import os
import shutil
import subprocess
import sys
import tempfile

from arbre import IGNORES

ICI = os.path.dirname(os.path.abspath(__file__))
RACINE = os.path.dirname(os.path.dirname(ICI))
TETE = "// SPDX-License-Identifier: GPL-3.0-or-later\n"


def ajouter(chemin, texte):
    def planter(racine):
        cible = os.path.join(racine, chemin)
        os.makedirs(os.path.dirname(cible), exist_ok=True)
        with open(cible, "a", encoding="utf-8") as fichier:
            fichier.write(texte)
    return chemin, planter


def remplacer(chemin, ancien, nouveau):
    def planter(racine):
        cible = os.path.join(racine, chemin)
        with open(cible, encoding="utf-8") as fichier:
            texte = fichier.read()
        if ancien not in texte:
            sys.exit(f"epreuve : {chemin} ne contient pas « {ancien} »")
        with open(cible, "w", encoding="utf-8") as fichier:
            fichier.write(texte.replace(ancien, nouveau, 1))
    return chemin, planter


# What checks it, the rule that must speak, the mistake.
FAUTES = [
    ("couches", "etage", ajouter("platform/text.h", '#include "shell/Globales.h"\n')),
    ("couches", "etage", ajouter("shell/CSTOUT1.cpp", '#include "game/FMenu.h"\n')),
    ("couches", "etage", ajouter("game/FMenu.cpp", '#include "platform/scripted/time.h"\n')),
    ("couches", "etage", ajouter("bases/Fnom.cpp", '#include "scores/FScore2.h"\n')),
    ("couches", "etage", ajouter("platform/form.cpp", '#include "platform/qt/mirror.h"\n')),
    ("couches", "etage", ajouter("ailleurs/seul.cpp", TETE)),
    ("couches", "boite", ajouter("game/FMenu.cpp", "#include <QString>\n")),
    ("couches", "boite", ajouter("shell/GLBPAROL.cpp", "#include <SDL_mixer.h>\n")),
    ("couches", "introuvable", ajouter("game/FMenu.cpp", '#include "game/Rien.h"\n')),
    ("couches", "boucle", ajouter("platform/failure.h", '#include "platform/int16.h"\n')),
    ("noms", "orthographe", remplacer("docs/glossary.md", "`ProposerLettre`", "`ProposerLetre`")),
    ("noms", "orthographe",
     remplacer("docs/glossary.md", "`TempsRéflexion`", "`TempsReflexion`")),
    ("noms", "maison", remplacer("docs/glossary.md", "`game/FMenu.h`", "`game/FMenuu.h`")),
    ("noms", "double", ajouter("docs/glossary.md", "| `FMenu` | again | `game/FMenu.h` |\n")),
    ("noms", "fenetre", remplacer("shell/FAbout.cpp", '"FAbout"', '"FApropos"')),
    ("noms", "fenetre",
     ajouter("bases/Fnom.h", "class FAutre : public Fenetre {};\n")),
    ("noms", "ascii", ajouter("game/Été.cpp", TETE)),
    ("textes", "licence", ajouter("game/Nouveau.cpp", "int nouveau;\n")),
    ("textes", "longueur", ajouter("game/FMenu.cpp", "//\n" * 400)),
    ("textes", "accents", ajouter("game/FMenu.cpp", "// e\u0301\n")),
    ("textes", "blancs", ajouter("README.md", "deux blancs  \n")),
    ("textes", "blancs", ajouter("assets/mots/MER.txt", "RAIE\r\n")),
    ("textes", "tabulation", ajouter("game/FMenu.cpp", "//\tici\n")),
    ("textes", "fin", ajouter("README.md", "sans fin")),
    ("textes", "lien", ajouter("README.md", "[ici](docs/rien.md)\n")),
    ("textes", "essai", ajouter("docs/behaviour.md", "`Letter.CostsNothingAtAllEver`\n")),
    ("textes", "lien", ajouter("docs/behaviour.md", "`tests/game/rien.test.cpp`\n")),
]


def lancer(verification, racine):
    commande = [sys.executable, "-B", os.path.join(ICI, verification + ".py"), racine]
    fin = subprocess.run(commande, capture_output=True, text=True, check=False)
    return fin.returncode, fin.stdout + fin.stderr


def main():
    rates = 0
    with tempfile.TemporaryDirectory() as travail:
        copie = os.path.join(travail, "arbre")
        shutil.copytree(RACINE, copie, symlinks=True, ignore=lambda _dossier, noms: [
            nom for nom in noms if IGNORES.match(nom) or nom.endswith(".png")])
        # What the checks say of the tree as it stands; the planted mistake must add to it.
        avant = {v: lancer(v, copie)[1] for v in {faute[0] for faute in FAUTES}}
        for verification, regle, (chemin, planter) in FAUTES:
            cible = os.path.join(copie, chemin)
            ancien = None
            if os.path.exists(cible):
                with open(cible, "rb") as fichier:
                    ancien = fichier.read()
            planter(copie)
            statut, sortie = lancer(verification, copie)
            nouveau = set(sortie.splitlines()) - set(avant[verification].splitlines())
            if statut != 1 or not any(f"[{regle}]" in ligne for ligne in nouveau):
                print(f"{verification}.py ne voit pas la faute [{regle}] plantée dans {chemin} :")
                print(sortie)
                rates += 1
            if ancien is None:
                os.remove(cible)
            else:
                with open(cible, "wb") as fichier:
                    fichier.write(ancien)
    print(f"{len(FAUTES) - rates} fautes vues sur {len(FAUTES)} plantées")
    return 1 if rates else 0


sys.exit(main())
