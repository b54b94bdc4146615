# SPDX-License-Identifier: GPL-3.0-or-later
"""What the trials gave, for people; and the survivors whose reason is written down."""
import os

SURVIVANTS = "tools/mutations/survivants.txt"
TUES = ("tué", "temps")
SEUIL = 95  # in 100


def plat(texte):
    return " ".join(texte.split())


def cle(mutant):
    return mutant.fichier, mutant.code, f"{plat(mutant.avant)} -> {plat(mutant.apres)}"


def raisons(racine):
    """Blocks of lines: the file, the line of code, the change, and the reason on those that follow."""
    connues = {}
    chemin = os.path.join(racine, SURVIVANTS)
    if not os.path.exists(chemin):
        return connues
    with open(chemin, encoding="utf-8") as fichier:
        for bloc in fichier.read().split("\n\n"):
            lignes = [ligne.strip() for ligne in bloc.splitlines() if ligne.strip() and ligne[0] != "#"]
            if len(lignes) > 3:
                connues[tuple(lignes[:3])] = " ".join(lignes[3:])
    return connues


def tableau(titre, lignes):
    print(f"\n{titre:32}{'essayés':>10}{'tués':>8}{'de temps':>10}{'survivent':>11}{'tués sur 100':>14}")
    for nom, verdicts in sorted(lignes.items()):
        tues = sum(v in TUES for v in verdicts)
        print(f"{nom:32}{len(verdicts):>10}{tues:>8}{verdicts.count('temps'):>10}"
              f"{len(verdicts) - tues:>11}{100 * tues / len(verdicts):>14.1f}")


def grouper(essais, choisir):
    groupes = {}
    for mutant, verdict in essais:
        groupes.setdefault(choisir(mutant), []).append(verdict)
    return groupes


def dire(racine, essais, rejetes):
    """Prints all; true if enough mutants were killed and each survivor has its reason."""
    tableau("fichier", grouper(essais, lambda m: m.fichier))
    tableau("changement", grouper(essais, lambda m: m.operateur))
    tableau("", grouper(essais, lambda m: "en tout"))
    print(f"\nOnt été remplacés, parce qu'ils ne se compilent pas : {rejetes}")
    connues = raisons(racine)
    sans_raison = 0
    for mutant, verdict in sorted(essais, key=lambda e: (e[0].fichier, e[0].ligne)):
        if verdict not in TUES:
            raison = connues.get(cle(mutant))
            sans_raison += not raison
            print(f"\n{mutant.fichier}:{mutant.ligne} [{mutant.operateur}] survit"
                  f"\n    {mutant.code}\n    {plat(mutant.avant)} -> {plat(mutant.apres)}"
                  f"\n    {raison or 'SANS RAISON ÉCRITE'}")
    tues = sum(verdict in TUES for _, verdict in essais)
    assez = bool(essais) and 100 * tues >= SEUIL * len(essais)
    print(f"\n{tues} mutants tués sur {len(essais)} ; il en faut {SEUIL} sur 100.")
    if sans_raison:
        print(f"{sans_raison} survivants sans raison : il leur faut un test, ou une raison dans {SURVIVANTS}.")
    return assez and not sans_raison
