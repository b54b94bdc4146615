# SPDX-License-Identifier: GPL-3.0-or-later
"""The words that the game comes with: how many, how long, in capitals, each with letters to guess, none
twice in a theme, each spelt as Debian's French dictionary spells it. A child learns from what it reads
here: a wrong accent would be learnt as well."""
import os
import re
import shutil
import subprocess
import sys

from arbre import conclure

DOSSIER = "assets/mots/"
EXCEPTIONS = DOSSIER + "exceptions.lst"
DICTIONNAIRE = "/usr/share/hunspell/fr_FR"  # hunspell-fr-classical
CLES = ("Titre", "Image", "Niveau", "Origine")
NIVEAUX = ("facile", "moyen", "difficile")
TITRE, ENTREE = 30, 30  # characters
THEMES, MOINS_DE_MOTS, PLUS_DE_MOTS, MOTS_EN_TOUT = 32, 60, 120, 2100
A_TROUVER = 3  # letters A to Z: all other characters stand from the start

# The themes of beginners and of those who know them all: letters of a word, at least, at most, and
# the mean at least, at most.
LONGUEURS = {
    "FACILE1": ("facile", 3, 6, 3.0, 5.0),
    "FACILE2": ("facile", 3, 6, 3.0, 5.0),
    "FACILE3": ("facile", 3, 6, 3.0, 5.0),
    "LONGS": ("difficile", 11, 30, 12.0, 30.0),
    "SCIENCES": ("difficile", 5, 30, 9.0, 30.0),
    "MONUMENT": ("difficile", 4, 30, 11.0, 30.0),
}

FORME = re.compile(r"([^()]*[^() ])(?: \(([^() ](?:[^()]*[^() ])?)\))?")
ELISION = re.compile(r"(?:[cdjlmnst]|qu)'(.+)", re.I)
JETON = re.compile(r"[^\W_]+(?:['-][^\W_]+)*")


class Theme:
    def __init__(self, arbre, chemin):
        self.chemin = chemin
        self.nom = os.path.basename(chemin)[:-len(".txt")]
        self.cles = {}
        self.entrees = []  # line, word, clue or None
        for numero, ligne in enumerate(arbre.texte(chemin).split("\n"), 1):
            ligne = ligne.strip()
            if not ligne or ligne.startswith("#"):
                continue
            if not self.entrees and re.match(r"\w+ :", ligne):
                self.ajouter_cle(arbre, numero, *ligne.split(" :", 1))
            else:
                self.ajouter_entree(arbre, numero, ligne)

    def ajouter_cle(self, arbre, numero, cle, valeur):
        if cle not in CLES or cle in self.cles:
            arbre.faute("entete", self.chemin, f"« {cle} » est inconnu ou double", numero)
        self.cles[cle] = valeur.strip()

    def ajouter_entree(self, arbre, numero, ligne):
        forme = FORME.fullmatch(ligne)
        if not forme or "  " in ligne:
            arbre.faute("forme", self.chemin, f"{ligne} : ni « MOT » ni « MOT (indice) »", numero)
            return
        if len(ligne) > ENTREE:
            arbre.faute("largeur", self.chemin, f"{ligne} : {len(ligne)} caractères", numero)
        self.entrees.append((numero, *forme.groups()))


def lettres(mot):
    return sum(caractere.isalpha() for caractere in mot)


def debuts(texte):
    """What two words of one family have in common."""
    return {mot[:4].lower() for mot in re.findall(r"\w+", texte) if len(mot) > 3}


def verifier_cles(arbre, theme, titres):
    for cle in CLES:
        if not theme.cles.get(cle):
            arbre.faute("entete", theme.chemin, f"il manque « {cle} : ... »")
    titre = theme.cles.get("Titre", "")
    if len(titre) > TITRE or titre in titres:
        arbre.faute("titre", theme.chemin, f"« {titre} » est trop long ou déjà pris")
    titres.add(titre)
    if theme.cles.get("Image") != theme.nom:
        arbre.faute("image", theme.chemin, f"l'image du thème doit s'appeler {theme.nom}")
    if theme.cles.get("Niveau") not in NIVEAUX:
        arbre.faute("niveau", theme.chemin, "le niveau est " + ", ".join(NIVEAUX))


def verifier_entrees(arbre, theme):
    vus = set()
    for numero, mot, indice in theme.entrees:
        def faute(regle, message):
            arbre.faute(regle, theme.chemin, f"{mot} : {message}", numero)
        if mot != mot.upper():
            faute("capitales", "le mot n'est pas en capitales")
        if sum("A" <= caractere <= "Z" for caractere in mot) < A_TROUVER:
            faute("lettres", f"moins de {A_TROUVER} lettres à trouver")
        if mot in vus:
            faute("double", "déjà dans ce thème")
        vus.add(mot)
        try:
            (mot + (indice or "")).encode("cp1252")
        except UnicodeEncodeError:
            faute("page", "un caractère n'existe pas dans les fichiers du jeu")
        if indice:
            if any(jeton[1:] != jeton[1:].lower() for jeton in re.split(r"[\W_]+", indice)):
                faute("indice", "l'indice n'est pas en petites lettres")
            if debuts(mot) & debuts(indice):
                faute("indice", "l'indice dit le mot")


def verifier_longueurs(arbre, theme):
    niveau, moins, plus, moyenne_basse, moyenne_haute = LONGUEURS[theme.nom]
    if theme.cles.get("Niveau") != niveau:
        arbre.faute("niveau", theme.chemin, f"ce thème est {niveau}")
    tailles = []
    for numero, mot, _indice in theme.entrees:
        tailles.append(lettres(mot))
        if not moins <= tailles[-1] <= plus:
            arbre.faute("longueurs", theme.chemin,
                        f"{mot} : {tailles[-1]} lettres, il en faut de {moins} à {plus}", numero)
    moyenne = sum(tailles) / max(1, len(tailles))
    if not moyenne_basse <= moyenne <= moyenne_haute:
        arbre.faute("moyenne", theme.chemin, f"les mots ont {moyenne:.1f} lettres en moyenne, "
                    f"il en faut de {moyenne_basse} à {moyenne_haute}")


def ecritures(jeton):
    """A word in capitals hides where its capitals belong: saint-malo, Saint-malo, Saint-Malo."""
    petit = jeton.lower()
    return {petit, petit.capitalize(), re.sub(r"[^\W\d_]+", lambda m: m[0].capitalize(), petit)}


def sans_elision(jeton):
    trouve = ELISION.fullmatch(jeton)
    return trouve[1] if trouve else jeton


def avec_trait():
    """What is written with a hyphen. Of its own accord hunspell takes any two good words with a hyphen
    between for a good word."""
    with open(DICTIONNAIRE + ".dic", encoding="utf-8") as fichier:
        return {ligne.split("/")[0].strip() for ligne in fichier if "-" in ligne.split("/")[0]}


def inconnues(formes):
    """Those of the forms that the dictionary does not hold."""
    fin = subprocess.run(["hunspell", "-d", DICTIONNAIRE, "-i", "utf-8", "-l"], encoding="utf-8",
                         input="\n".join(sorted(formes)) + "\n", stdout=subprocess.PIPE, check=True)
    composes = avec_trait()
    return set(fin.stdout.split("\n")) | {f for f in formes if "-" in f and f not in composes}


def lire_exceptions(arbre):
    exceptions = {}
    for numero, ligne in enumerate(arbre.texte(EXCEPTIONS).split("\n"), 1):
        if ligne.strip() and not ligne.startswith("#"):
            mot, _signe, raison = (morceau.strip() for morceau in ligne.lower().partition(":"))
            if not raison or mot in exceptions:
                arbre.faute("exception", EXCEPTIONS, f"{mot} : sans raison ou double", numero)
            exceptions[mot] = numero
    return exceptions


def verifier_orthographe(arbre, themes):
    exceptions = lire_exceptions(arbre)
    jetons = []  # theme, line, word as it stands, the spellings of which one must be good
    for theme in themes:
        jetons += [(theme, 0, jeton, {jeton, sans_elision(jeton)})
                   for jeton in JETON.findall(theme.cles.get("Titre", ""))]
        for numero, mot, indice in theme.entrees:
            jetons += [(theme, numero, jeton, ecritures(jeton) | ecritures(sans_elision(jeton)))
                       for jeton in JETON.findall(mot)]
            jetons += [(theme, numero, jeton, {jeton, sans_elision(jeton)})
                       for jeton in JETON.findall(indice or "")]
    mauvaises = inconnues({forme for *_, formes in jetons for forme in formes})
    servies = set()
    for theme, numero, jeton, formes in jetons:
        if formes <= mauvaises:
            permises = {forme.lower() for forme in formes} & exceptions.keys()
            servies |= permises
            if not permises:
                arbre.faute("orthographe", theme.chemin, f"{jeton} : le dictionnaire l'ignore", numero)
    for mot in exceptions.keys() - servies:
        arbre.faute("exception", EXCEPTIONS, f"{mot} : ne sert à rien", exceptions[mot])


def verifier(arbre):
    if not os.path.exists(DICTIONNAIRE + ".dic") or not shutil.which("hunspell"):
        sys.exit("mots : il faut les paquets hunspell et hunspell-fr-classical")
    themes = [Theme(arbre, chemin) for chemin in arbre.fichiers(".txt") if chemin.startswith(DOSSIER)]
    titres = set()
    for theme in themes:
        verifier_cles(arbre, theme, titres)
        verifier_entrees(arbre, theme)
        if not MOINS_DE_MOTS <= len(theme.entrees) <= PLUS_DE_MOTS:
            arbre.faute("nombre", theme.chemin, f"{len(theme.entrees)} mots, il en faut de "
                        f"{MOINS_DE_MOTS} à {PLUS_DE_MOTS}")
        if theme.nom in LONGUEURS:
            verifier_longueurs(arbre, theme)
    total = sum(len(theme.entrees) for theme in themes)
    if total < MOTS_EN_TOUT:
        arbre.faute("total", DOSSIER, f"{total} mots en tout, il en faut {MOTS_EN_TOUT}")
    if len(themes) < THEMES:
        arbre.faute("themes", DOSSIER, f"{len(themes)} thèmes, il en faut {THEMES}")
    for nom in LONGUEURS.keys() - {theme.nom for theme in themes}:
        arbre.faute("absent", DOSSIER, f"il manque le thème {nom}")
    verifier_orthographe(arbre, themes)


conclure(verifier)
