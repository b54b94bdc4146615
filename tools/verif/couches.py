# SPDX-License-Identifier: GPL-3.0-or-later
"""Includes point down and never round: a folder's name is no wall, so this is one.
The rules play without a toolkit only as long as nothing of them can see it."""
import os
import re

from arbre import conclure, sans_commentaires

# Each floor and the floors that it may see, itself left out. The longest name that fits counts.
ETAGES = {
    "main.cpp": {"shell/MAINGRIM", "platform/qt", "scores", "bases", "game", "shell", "platform"},
    "shell/MAINGRIM": {"scores", "bases", "game", "shell", "platform"},
    "platform/qt": {"platform"},
    "scores": {"game", "shell", "platform"},
    "bases": {"game", "shell", "platform"},
    "game": {"shell", "platform"},
    "shell": {"platform"},
    "platform": set(),
    "platform/scripted": {"platform"},
    "tools": {"platform/scripted", "platform/qt", "shell/MAINGRIM", "scores", "bases", "game",
              "shell", "platform"},
    "bench": {"tests", "tools", "platform/scripted", "platform/qt", "shell/MAINGRIM", "scores", "bases", "game", "shell",
              "platform"},
    "tests": {"tools", "platform/scripted", "platform/qt", "shell/MAINGRIM", "scores", "bases",
              "game", "shell", "platform"},
}
# The viewer of the help and the makers of pictures are programs of their own, on the toolkit.
VOIENT_LA_BOITE_A_OUTILS = ("main.cpp", "platform/qt/", "tests/qt/", "tests/fuzz/qt/", "tools/aide/", "tools/scene/",
                            "tools/vues/", "bench/window.bench.cpp", "bench/empty.cpp")
BOITE_A_OUTILS = re.compile(r"^(Q[A-Z]\w*(/.*)?|Qt\w*(/.*)?|q\w+\.h|SDL.*)$")
INCLUSION = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)', re.M)


def etage(chemin):
    convient = [e for e in ETAGES
                if chemin == e or chemin.startswith(e + "/") or os.path.splitext(chemin)[0] == e]
    return max(convient, key=len) if convient else None


def trouver(arbre, depuis, nom):
    """The file that an include in quotes means."""
    for dossier in ("", "tests", os.path.dirname(depuis)):
        chemin = os.path.normpath(os.path.join(dossier, nom))
        if arbre.existe(chemin):
            return chemin
    return None


def boucle(graphe):
    """A loop of files as a list, or nothing."""
    etat = {}

    def descendre(chemin, route):
        etat[chemin] = "ouvert"
        for suivant in graphe.get(chemin, []):
            if etat.get(suivant) == "ouvert":
                return route[route.index(suivant):] + [suivant] if suivant in route else [suivant]
            if suivant not in etat:
                trouvee = descendre(suivant, route + [suivant])
                if trouvee:
                    return trouvee
        etat[chemin] = "clos"
        return None

    for chemin in graphe:
        if chemin not in etat:
            trouvee = descendre(chemin, [chemin])
            if trouvee:
                return trouvee
    return None


def verifier(arbre):
    graphe = {}
    for chemin in arbre.fichiers(".cpp", ".h"):
        ici = etage(chemin)
        if ici is None:
            arbre.faute("etage", chemin, "ce fichier n'est dans aucun étage")
            continue
        texte = sans_commentaires(arbre.texte(chemin))
        graphe[chemin] = []
        for inclusion in INCLUSION.finditer(texte):
            ligne = texte.count("\n", 0, inclusion.start(1 if inclusion[1] else 2)) + 1
            if inclusion[2]:
                if (BOITE_A_OUTILS.match(inclusion[2])
                        and not chemin.startswith(VOIENT_LA_BOITE_A_OUTILS)):
                    arbre.faute("boite", chemin, f"<{inclusion[2]}> hors de platform/qt", ligne)
                continue
            if inclusion[1] == os.path.basename(chemin).removesuffix(".cpp") + ".moc":
                continue  # made by the build from this very file
            vise = trouver(arbre, chemin, inclusion[1])
            if vise is None:
                arbre.faute("introuvable", chemin, f'"{inclusion[1]}" n\'existe pas', ligne)
                continue
            graphe[chemin].append(vise)
            la = etage(vise)
            if la != ici and la not in ETAGES[ici]:
                arbre.faute("etage", chemin, f"{ici} ne voit pas {la} ({vise})", ligne)
    ronde = boucle(graphe)
    if ronde:
        arbre.faute("boucle", ronde[0], " > ".join(ronde))


conclure(verifier)
