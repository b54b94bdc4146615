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


def couper(chemin, lignes):
    """Leaves the first lines of each file that the path, of a file or a folder, stands for."""
    def planter(racine):
        cible = os.path.join(racine, chemin)
        noms = [os.path.join(cible, n) for n in os.listdir(cible)] if os.path.isdir(cible) else [cible]
        for nom in noms:
            with open(nom, encoding="utf-8") as fichier:
                debut = fichier.readlines()[:lignes]
            with open(nom, "w", encoding="utf-8") as fichier:
                fichier.writelines(debut)
    return chemin, planter


def retirer(chemin):
    return chemin, lambda racine: os.remove(os.path.join(racine, chemin))


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
    ("lancements", "lancement", ajouter("bases/GLBBASE2.cpp", 'void f() { std::system("ls"); }\n')),
    ("lancements", "lancement", ajouter("tools/bases/main.cpp", "auto f = ::popen(nom, mode);\n")),
    ("lancements", "lancement", ajouter("shell/FAbout.cpp", "void f() { execvp(a[0], a); }\n")),
    ("lancements", "lancement", ajouter("platform/files.cpp", "#include <spawn.h>\n")),
    ("lancements", "lancement",
     remplacer("platform/qt/qtservices.cpp", 'QStringLiteral("xdg-open"), {mail}', "mail")),
    ("lancements", "perime", remplacer("platform/qt/qtservices.cpp", "::execv(words[0], words);", "")),
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
    ("textes", "essai", ajouter("docs/behaviour.md", "`Killed.test_it_never_dies`\n")),
    ("textes", "lien", ajouter("docs/behaviour.md", "`tests/game/rien.test.cpp`\n")),
    ("mots", "entete", remplacer("assets/mots/MER.txt", "Origine :", "# Origine :")),
    ("mots", "entete", remplacer("assets/mots/MER.txt", "Niveau :", "Nivau :")),
    ("mots", "entete", remplacer("assets/mots/MER.txt", "Niveau :", "Titre : Les mers\nNiveau :")),
    ("mots", "titre", remplacer("assets/mots/MER.txt", "Animaux de la mer", "Animaux de la forêt")),
    ("mots", "titre",
     remplacer("assets/mots/MER.txt", "de la mer", "qui vivent tous dans la mer")),
    ("mots", "image", remplacer("assets/mots/MER.txt", "Image : MER", "Image : FORET")),
    ("mots", "niveau", remplacer("assets/mots/MER.txt", "moyen", "normal")),
    ("mots", "niveau", remplacer("assets/mots/LONGS.txt", "Niveau : difficile", "Niveau : facile")),
    ("mots", "forme", ajouter("assets/mots/MER.txt", "RAIE (poisson\n")),
    ("mots", "forme", ajouter("assets/mots/MER.txt", "RAIE(poisson)\n")),
    ("mots", "forme", ajouter("assets/mots/MER.txt", "RAIE  MANTA\n")),
    ("mots", "largeur", ajouter("assets/mots/MER.txt", "RAIE (ce poisson est plat et rond)\n")),
    ("mots", "capitales", ajouter("assets/mots/MER.txt", "Raie\n")),
    ("mots", "lettres", ajouter("assets/mots/MER.txt", "ÎLE (petite terre)\n")),
    ("mots", "double", ajouter("assets/mots/MER.txt", "PHOQUE (animal)\n")),
    ("mots", "page", ajouter("assets/mots/MER.txt", "RAIE (plate → ronde)\n")),
    ("mots", "indice", ajouter("assets/mots/MER.txt", "RAIE (POISSON)\n")),
    ("mots", "indice", ajouter("assets/mots/MER.txt", "COQUILLE (coquillage)\n")),
    ("mots", "longueurs", ajouter("assets/mots/FACILE1.txt", "MAISONS\n")),
    ("mots", "longueurs", ajouter("assets/mots/LONGS.txt", "DROMADAIRE\n")),
    ("mots", "moyenne", ajouter("assets/mots/FACILE2.txt", "MAISON\n" * 40)),
    ("mots", "moyenne", ajouter("assets/mots/SCIENCES.txt", "ATOME\n" * 40)),
    ("mots", "nombre", couper("assets/mots/MER.txt", 40)),
    ("mots", "nombre", ajouter("assets/mots/MER.txt", "RAIE\n" * 60)),
    ("mots", "total", couper("assets/mots", 40)),
    ("mots", "themes", retirer("assets/mots/MER.txt")),
    ("mots", "absent", retirer("assets/mots/FACILE1.txt")),
    ("mots", "orthographe", ajouter("assets/mots/MER.txt", "MÉROUT\n")),
    ("mots", "orthographe", ajouter("assets/mots/MER.txt", "ELEPHANT DE MER\n")),
    ("mots", "orthographe", ajouter("assets/mots/MER.txt", "COEUR DE MER\n")),
    ("mots", "orthographe", ajouter("assets/mots/MER.txt", "POISSON-VOLANT\n")),
    ("mots", "orthographe", ajouter("assets/mots/MER.txt", "RAIE (poisson d'égypte)\n")),
    ("mots", "orthographe", remplacer("assets/mots/MER.txt", "Animaux", "Animeaux")),
    ("mots", "exception", ajouter("assets/mots/exceptions.lst", "mérout : un poisson\n")),
    ("mots", "exception", remplacer("assets/mots/exceptions.lst", " : dune d'Aquitaine", "")),
]


def lancer(verification, racine):
    commande = [sys.executable, "-B", os.path.join(ICI, verification + ".py"), racine]
    fin = subprocess.run(commande, capture_output=True, text=True, check=False)
    return fin.returncode, fin.stdout + fin.stderr


def copier(cible, ailleurs):
    (shutil.copytree if os.path.isdir(cible) else shutil.copy)(cible, ailleurs)


def oter(cible):
    if os.path.isdir(cible):
        shutil.rmtree(cible)
    elif os.path.exists(cible):
        os.remove(cible)


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
            ancien = os.path.join(travail, "ancien")
            la = os.path.exists(cible)
            if la:
                copier(cible, ancien)
            planter(copie)
            statut, sortie = lancer(verification, copie)
            nouveau = set(sortie.splitlines()) - set(avant[verification].splitlines())
            if statut != 1 or not any(f"[{regle}]" in ligne for ligne in nouveau):
                print(f"{verification}.py ne voit pas la faute [{regle}] plantée dans {chemin} :")
                print(sortie)
                rates += 1
            oter(cible)
            if la:
                os.replace(ancien, cible)
    print(f"{len(FAUTES) - rates} fautes vues sur {len(FAUTES)} plantées")
    return 1 if rates else 0


sys.exit(main())
