# SPDX-License-Identifier: GPL-3.0-or-later
"""C++ as a row of tokens: enough to change it in one place, the tree being written by clang-format."""
import re
from dataclasses import dataclass

MOTIF = re.compile(r"""
    (?P<blanc>   \s+ | //[^\n]* | /\*.*?\*/ | ^[ \t]*\#(?:\\\n|[^\n])* )
  | (?P<texte>   (?:u8|u|U|L)?"(?:\\.|[^"\\\n])*" )
  | (?P<signe>   (?:u8|u|U|L)?'(?:\\.|[^'\\\n])*' )
  | (?P<nombre>  (?:0[xX][0-9a-fA-F']+|\d[\d']*(?:\.\d*)?(?:[eE][+-]?\d+)?)\w* )
  | (?P<mot>     \w+ )
  | (?P<op>      <=>|<<=|>>=|->\*|\.\.\.|::|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|. )
""", re.X | re.S | re.M)
COUPLES = {"(": ")", "[": "]", "{": "}"}


@dataclass
class Jeton:
    genre: str
    texte: str
    debut: int
    fin: int
    blanc_avant: bool = False
    blanc_apres: bool = False
    couple: int = -1        # of a bracket: the other one
    dans: int = -1          # the innermost bracket around it
    gabarit: bool = False   # between the angle brackets of a template


def jetons(code):
    """The tokens without comments and directives; those of a static_assert are left out, too."""
    liste = []
    blanc = False
    for trouve in MOTIF.finditer(code):
        if trouve.lastgroup == "blanc":
            blanc = True
            if liste:
                liste[-1].blanc_apres = True
            continue
        liste.append(Jeton(trouve.lastgroup, trouve[0], trouve.start(), trouve.end(), blanc))
        blanc = False
    liste = sans_assertions(liste)
    apparier(liste)
    marquer_gabarits(liste)
    return liste


def sans_assertions(liste):
    garde, saute = [], False
    for jeton in liste:
        saute = saute or jeton.texte == "static_assert"
        if not saute:
            garde.append(jeton)
        saute = saute and jeton.texte != ";"
    return garde


def apparier(liste):
    ouverts = []
    for i, jeton in enumerate(liste):
        if jeton.texte in COUPLES.values() and jeton.genre == "op":
            autre = ouverts.pop()
            liste[autre].couple, jeton.couple = i, autre
        jeton.dans = ouverts[-1] if ouverts else -1
        if jeton.texte in COUPLES and jeton.genre == "op":
            ouverts.append(i)


def marquer_gabarits(liste):
    """`nom<`, without a blank before it, opens the arguments of a template."""
    profondeur = 0
    for i, jeton in enumerate(liste):
        if profondeur and jeton.texte in (">", ">>") and not jeton.blanc_avant:
            profondeur -= len(jeton.texte)
        jeton.gabarit = profondeur > 0
        if jeton.texte == "<" and i and liste[i - 1].genre == "mot" and (
                not jeton.blanc_avant or liste[i - 1].texte == "template"):
            profondeur += 1
            jeton.gabarit = True
