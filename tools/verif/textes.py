# SPDX-License-Identifier: GPL-3.0-or-later
"""Every text of the tree in one form: UTF-8, whole accents, no stray blanks, a licence line, a size
that can be read at one sitting. What two editors write differently hides what a change is about."""
import os
import re
import unicodedata

from arbre import conclure

TEXTES = (".cpp", ".h", ".py", ".sh", ".cmake", ".md", ".txt", ".json", ".svg", ".yml", ".desktop",
          ".xml")
SOURCES = (".cpp", ".h", ".py", ".sh", ".cmake", "CMakeLists.txt")
SANS_FIN = ("grim", ".ci/run")  # scripts whose name tells no kind
LICENCE = "SPDX-License-Identifier: GPL-3.0-or-later"
PLUS_LONG = 400  # lines
RAISON = re.compile(r"^\s*(//|#) Long because .+", re.M)
LIEN = re.compile(r"\]\(([^)#]+)(?:#[^)]*)?\)")
ESSAI = re.compile(r"`([A-Z]\w+)\.([A-Z][a-z0-9]*[A-Z]\w{7,}|test_\w+)`")
DEFINITION = re.compile(r"\b(?:TEST|TEST_F|TEST_P|RC_GTEST_PROP|RC_GTEST_FIXTURE_PROP)"
                        r"\(\s*(\w+),\s*(\w+)")
CLASSE = re.compile(r"^class (\w+)|^    def (test_\w+)", re.M)
CHEMIN = re.compile(r"`((?:shell|game|bases|scores|platform|tools|tests|assets|docs|bench|packaging)"
                    r"/[\w./-]+)`")


def verifier_lignes(arbre, chemin, texte):
    for numero, ligne in enumerate(texte.split("\n"), 1):
        if ligne != ligne.rstrip():
            arbre.faute("blancs", chemin, "blancs en fin de ligne", numero)
        if "\t" in ligne and chemin.endswith((".cpp", ".h")):
            arbre.faute("tabulation", chemin, "tabulation", numero)
        if unicodedata.normalize("NFC", ligne) != ligne:
            arbre.faute("accents", chemin, "accent décomposé", numero)
    if texte and not texte.endswith("\n"):
        arbre.faute("fin", chemin, "la dernière ligne n'est pas finie")


def verifier_source(arbre, chemin, texte):
    if LICENCE not in "\n".join(texte.split("\n")[:4]):
        arbre.faute("licence", chemin, f"il manque « {LICENCE} » en tête")
    longueur = texte.count("\n")
    if longueur > PLUS_LONG and not RAISON.search(texte):
        arbre.faute("longueur", chemin,
                    f"{longueur} lignes, sans une ligne « Long because ... » qui dise pourquoi")


def essais(arbre):
    """Every test as its suite and its name: those of GoogleTest, and those of the programme in Python."""
    connus = {definition for chemin in arbre.fichiers(".test.cpp")
              for definition in DEFINITION.findall(arbre.texte(chemin))}
    for chemin in arbre.fichiers(".py"):
        if chemin.startswith("tests/programme/"):
            suite = ""
            for classe, essai in CLASSE.findall(arbre.texte(chemin)):
                suite = classe or suite
                connus.add((suite, essai))
    return connus


def verifier_document(arbre, chemin, texte, connus):
    dossier = os.path.dirname(chemin)
    for numero, ligne in enumerate(texte.split("\n"), 1):
        for lien in LIEN.findall(ligne):
            if "://" not in lien and not arbre.existe(os.path.join(dossier, lien)):
                arbre.faute("lien", chemin, f"{lien} n'existe pas", numero)
        for essai in ESSAI.findall(ligne):
            if essai not in connus:
                arbre.faute("essai", chemin, f"aucun test {'.'.join(essai)}", numero)
        for cite in CHEMIN.findall(ligne):
            if not arbre.existe(cite):
                arbre.faute("lien", chemin, f"{cite} n'existe pas", numero)


def verifier(arbre):
    connus = essais(arbre)
    for chemin in arbre.fichiers():
        if not chemin.endswith(TEXTES) and chemin not in SANS_FIN:
            continue
        try:
            texte = arbre.texte(chemin)
        except UnicodeDecodeError:
            arbre.faute("utf8", chemin, "ce texte n'est pas en UTF-8")
            continue
        verifier_lignes(arbre, chemin, texte)
        if chemin.endswith(SOURCES) or chemin in SANS_FIN:
            verifier_source(arbre, chemin, texte)
        if chemin.endswith(".md"):
            verifier_document(arbre, chemin, texte, connus)


conclure(verifier)
