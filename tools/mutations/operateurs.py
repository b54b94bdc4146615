# SPDX-License-Identifier: GPL-3.0-or-later
"""The small changes. Each is a mistake that somebody could make in a rule, and that a test should see."""
import hashlib
import re
from collections import Counter
from dataclasses import dataclass

from lexique import jetons

COMPARAISONS = {"==": ["!="], "!=": ["=="], "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="],
                ">=": [">", "<"]}
LOGIQUE = {"&&": "||", "||": "&&"}
CALCUL = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "&": "|", "|": "&"}
EN_PLACE = {"+=": "-=", "-=": "+="}
SUITES = {".", "->", "::"}
AFFECTATIONS = {"=", "+=", "-=", "*=", "/=", "|=", "&="}
# Where a window's design puts a control and with what letters: the drawing of it, looked at as a picture.
DESSIN = re.compile(r"^[^\n]*\b(\w+)::(?:\1|dessiner|brancher)\(.*?^}", re.S | re.M)
MISE_EN_PAGE = re.compile(r"(?:.*(?:\.|->))?(?:place|Width|Height|FontSize|bold|alignment|look|wraps) *=.*")
RIEN_A_RENDRE = {"{}", "0", "false", "nullptr", "*this", ""}


@dataclass
class Mutant:
    fichier: str
    ligne: int
    operateur: str
    debut: int
    fin: int
    avant: str
    apres: str
    code: str    # the line as it stands
    nom: str = ""

    def applique(self, texte):
        return texte[:self.debut] + self.apres + texte[self.fin:]


class Lecture:
    """One file, and what can be changed in it."""

    def __init__(self, fichier, texte):
        self.fichier, self.texte, self.jetons = fichier, texte, jetons(texte)
        self.mutants = []
        self.dessins = [trouve.span() for trouve in DESSIN.finditer(texte)]
        for i, jeton in enumerate(self.jetons):
            if not jeton.gabarit and not self.mise_en_page(i):
                self.visiter(i, jeton)
        self.nommer()

    def visiter(self, i, jeton):
        avant = self.jetons[i - 1] if i else jeton
        apres = self.jetons[i + 1] if i + 1 < len(self.jetons) else jeton
        entoure = jeton.blanc_avant and jeton.blanc_apres
        if jeton.genre == "op" and entoure and self.dans_du_code(i):
            for autre in COMPARAISONS.get(jeton.texte, ()):
                self.changer("comparaison", jeton, autre)
            if jeton.texte in LOGIQUE:
                self.changer("logique", jeton, LOGIQUE[jeton.texte])
            if jeton.texte in EN_PLACE:
                self.changer("calcul", jeton, EN_PLACE[jeton.texte])
            if jeton.texte in CALCUL and avant.texte != "operator" and not self.compose_un_texte(i):
                self.changer("calcul", jeton, CALCUL[jeton.texte])
        elif jeton.texte == "!" and not jeton.blanc_apres:
            self.changer("condition", jeton, "")
        elif jeton.genre == "nombre":
            self.constante(jeton)
        elif jeton.genre == "texte" and jeton.texte.startswith('u"') and jeton.texte != 'u""':
            self.changer("texte", jeton, 'u""')
        elif jeton.texte in ("true", "false"):
            self.changer("constante", jeton, "false" if jeton.texte == "true" else "true")
        elif jeton.texte in ("if", "while") and apres.texte == "(":
            self.nier(i + 1)
        elif jeton.texte == "return":
            self.retour(i)
        elif jeton.texte == "else":
            self.sinon(i)
        if jeton.genre == "mot" or jeton.texte in ("++", "--"):
            self.instruction(i)

    def changer(self, operateur, jeton, autre, fin=None):
        fin = jeton.fin if fin is None else fin
        debut_ligne = self.texte.rfind("\n", 0, jeton.debut) + 1
        code = self.texte[debut_ligne:self.texte.find("\n", jeton.debut)].strip()
        self.mutants.append(Mutant(self.fichier, self.texte.count("\n", 0, jeton.debut) + 1, operateur,
                                   jeton.debut, fin, self.texte[jeton.debut:fin], autre, code))

    def nommer(self):
        """A name that stays when lines are added elsewhere in the file."""
        vus = Counter()
        for mutant in self.mutants:
            cle = "\0".join((mutant.fichier, mutant.operateur, mutant.code, mutant.avant, mutant.apres))
            vus[cle] += 1
            mutant.nom = hashlib.sha256(f"{cle}\0{vus[cle]}".encode()).hexdigest()[:12]

    def dans_du_code(self, i):
        """False for the `&` and `*` of a declaration between types."""
        return self.jetons[i].texte not in "&*" or self.jetons[i - 1].texte not in (",", "(", "const")

    def instruction_autour(self, i):
        """The tokens of the statement that holds one, on its own bracket level."""
        dans = self.jetons[i].dans
        debut = i
        while debut and not (self.jetons[debut - 1].dans == dans
                             and self.jetons[debut - 1].texte in (";", "}")) and debut - 1 != dans:
            debut -= 1
        fin = i
        while fin + 1 < len(self.jetons) and not (self.jetons[fin].dans == dans
                                                  and self.jetons[fin].texte in (";", ",")):
            fin += 1
            if dans >= 0 and fin == self.jetons[dans].couple:
                break
        return self.jetons[debut:fin]

    def compose_un_texte(self, i):
        """`+` between texts joins them: there is nothing to subtract."""
        return self.jetons[i].texte == "+" and any(
            j.genre == "texte" or j.texte in ("decimal", "SautLigne", "Texte", "text", "separation")
            for j in self.instruction_autour(i))

    def mise_en_page(self, i):
        jeton = self.jetons[i]
        if not any(debut <= jeton.debut < fin for debut, fin in self.dessins):
            return False
        dans = jeton.dans
        dedans = self.jetons[dans + 1:self.jetons[dans].couple]
        if len(dedans) == 7 and all(j.genre == "nombre" for j in dedans[::2]):
            return True  # a place among other things
        debut = self.texte.rfind("\n", 0, jeton.debut) + 1
        return bool(MISE_EN_PAGE.match(self.texte[debut:jeton.fin + 40].split("\n")[0].strip()))

    def constante(self, jeton):
        trouve = re.fullmatch(r"(\d[\d']*)(\.\d*)?(u|U|z|f)?", jeton.texte)
        if not trouve:
            return
        entier, reste, suffixe = int(trouve[1].replace("'", "")), trouve[2] or "", trouve[3] or ""
        for autre in (entier + 1, entier - 1):
            if autre >= 0:
                self.changer("constante", jeton, f"{autre}{reste}{suffixe}")

    def nier(self, ouvrante):
        jeton = self.jetons[ouvrante]
        dedans = self.jetons[ouvrante + 1:jeton.couple]
        declare = any(j.texte in (";", "=") and j.dans == ouvrante for j in dedans)
        simple = dedans and not any(j.texte in LOGIQUE for j in dedans) and (
            dedans[0].texte == "!" or any(j.texte in COMPARAISONS and j.dans == ouvrante for j in dedans))
        if dedans and not declare and not simple:  # a simple one is turned round by another operator
            fin = self.jetons[jeton.couple].debut
            self.changer("condition", dedans[0], f"!({self.texte[dedans[0].debut:fin]})", fin)

    def retour(self, i):
        fin = self.fin_d_instruction(i)
        valeur = self.texte[self.jetons[i].fin:self.jetons[fin].debut].strip()
        if valeur in ("true", "false"):
            return
        if valeur not in RIEN_A_RENDRE:
            self.changer("retour", self.jetons[i + 1], "{}", self.jetons[fin].debut)
        elif not valeur:
            self.changer("instruction", self.jetons[i], "", self.jetons[fin].fin)

    def fin_d_instruction(self, i):
        dans = self.jetons[i].dans
        while not (self.jetons[i].texte == ";" and self.jetons[i].dans == dans):
            i += 1
        return i

    def sinon(self, i):
        fin = i + 1
        while self.jetons[fin].texte == "if":
            fin = self.jetons[self.jetons[fin + 1].couple + 1].couple + 1
            if self.jetons[fin].texte != "else":
                fin -= 1
                break
            fin += 1
        if self.jetons[fin].texte == "{":
            fin = self.jetons[fin].couple
        self.changer("sinon", self.jetons[i], "", self.jetons[fin].fin)

    def dans_une_fonction(self, i):
        dans = self.jetons[i].dans
        if dans < 1 or self.jetons[dans].texte != "{":
            return False
        avant = self.jetons[dans - 1].texte
        return avant in (")", "]", "const", "override", "else", "try", "mutable", ":", ";", "{", "}")

    def instruction(self, i):
        """A call, an assignment or a jump, alone; never a declaration."""
        if not i or not self.dans_une_fonction(i):
            return None
        avant = self.jetons[i - 1]
        if avant.texte not in ("{", "}", ";", ":") or avant.dans != self.jetons[i].dans and (
                avant.texte != "{"):
            return None
        if avant.texte == ":" and not self.etiquette(i - 1):
            return None
        texte = self.jetons[i].texte
        if texte in ("break", "continue", "throw"):
            return self.oter(i)
        if texte in ("return", "case", "default", "if", "for", "while", "switch", "using", "else"):
            return None
        j = i + (texte in ("++", "--"))
        if self.jetons[j].genre != "mot":
            return None
        j += 1
        while True:
            jeton = self.jetons[j]
            if jeton.texte in ("(", "["):
                j = jeton.couple + 1
            elif jeton.texte in SUITES:
                j += 2
            elif jeton.texte == "<" and jeton.gabarit:
                while self.jetons[j].gabarit:
                    j += 1
                j += 1
            else:
                break
        if self.jetons[j].texte in AFFECTATIONS or self.jetons[j].texte in (";", "++", "--"):
            return self.oter(i)
        return None

    def etiquette(self, i):
        """Whether a colon ends a `case`."""
        while self.jetons[i - 1].texte not in (";", "{", "}"):
            i -= 1
        return self.jetons[i].texte in ("case", "default")

    def oter(self, i):
        fin = self.fin_d_instruction(i)
        return self.changer("instruction", self.jetons[i], ";", self.jetons[fin].fin)
