# SPDX-License-Identifier: GPL-3.0-or-later
"""Names are spelt one way, the glossary's, and a file bears the name of the window in it.
A reader who knows the name of a thing must find it by that name, in the code and in the folder."""
import os
import re
import unicodedata

from arbre import conclure, sans_commentaires

GLOSSAIRE = "docs/glossary.md"
# | `Nom`, `Autre` | sense | `home` |
RANGEE = re.compile(r"^\|([^|]*`[^|]*)\|[^|]*\|([^|]*)\|\s*$")
FENETRE = re.compile(r"\bclass\s+(\w+)\s*(?:final\s*)?:\s*(?:public\s+)?(?:Form|Fenetre)\b")


def entre_accents_graves(texte):
    return re.findall(r"`([^`]+)`", texte)


def verifier_glossaire(arbre):
    if not arbre.existe(GLOSSAIRE):
        arbre.faute("glossaire", GLOSSAIRE, "le glossaire manque")
        return
    mots_de = {}

    def mots(chemin):
        if chemin not in mots_de:
            code = sans_commentaires(arbre.texte(chemin))
            mots_de[chemin] = set(re.findall(r"\w+", code))
        return mots_de[chemin]

    vus = {}
    for numero, ligne in enumerate(arbre.texte(GLOSSAIRE).split("\n"), 1):
        rangee = RANGEE.match(ligne)
        if not rangee:
            continue
        maisons = entre_accents_graves(rangee[2])
        if not maisons:
            arbre.faute("glossaire", GLOSSAIRE, "une rangée ne dit pas où le nom habite", numero)
        for maison in maisons:
            if not arbre.existe(maison):
                arbre.faute("maison", GLOSSAIRE, f"{maison} n'existe pas", numero)
        maisons = [m for m in maisons if arbre.existe(m)]
        for nom in entre_accents_graves(rangee[1]):
            if nom in vus:
                arbre.faute("double", GLOSSAIRE, f"{nom} est déjà ligne {vus[nom]}", numero)
            vus[nom] = numero
            absent = [m for m in maisons if nom not in mots(m)]
            if absent:
                arbre.faute("orthographe", GLOSSAIRE,
                            f"{nom} n'est pas écrit ainsi dans {', '.join(absent)}", numero)
    if not vus:
        arbre.faute("glossaire", GLOSSAIRE, "aucun nom dans le glossaire")


def verifier_fenetres(arbre):
    nombre = 0
    for chemin in arbre.fichiers(".h", ".cpp"):
        if not chemin.startswith(("shell/", "game/", "bases/", "scores/")):
            continue
        code = sans_commentaires(arbre.texte(chemin))
        racine, fin = os.path.splitext(os.path.basename(chemin))
        for fenetre in FENETRE.findall(code):
            if fenetre == "Fenetre":  # what all windows have in common
                continue
            nombre += 1
            if fin != ".h" or racine != fenetre:
                arbre.faute("fenetre", chemin, f"la fenêtre {fenetre} doit être dans {fenetre}.h")
            a_cote = os.path.splitext(chemin)[0] + ".cpp"
            if arbre.existe(a_cote):
                code += sans_commentaires(arbre.texte(a_cote))
            if f'"{fenetre}"' not in code:
                arbre.faute("fenetre", chemin, f'la fenêtre {fenetre} ne se nomme pas "{fenetre}"')
    if nombre == 0:
        arbre.faute("fenetre", "shell", "aucune fenêtre trouvée")


def verifier_fichiers(arbre):
    for chemin in arbre.fichiers():
        if not chemin.isascii():
            propre = unicodedata.normalize("NFC", chemin)
            arbre.faute("ascii", propre, "le nom d'un fichier n'a ni accent ni signe rare")


def verifier(arbre):
    verifier_glossaire(arbre)
    verifier_fenetres(arbre)
    verifier_fichiers(arbre)


conclure(verifier)
