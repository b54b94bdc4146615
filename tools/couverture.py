# SPDX-License-Identifier: GPL-3.0-or-later
"""couverture.py RESUME: the lines and branches of the core that its tests run through, from gcovr's summary."""
import json
import sys

AU_MOINS = {"line": 97, "branch": 90}  # in 100
NOMS = {"line": "lignes", "branch": "branches"}


def part(compte, genre):
    total = compte[f"{genre}_total"]
    return 100 * compte[f"{genre}_covered"] / total if total else 100


def dire(nom, compte):
    mesures = ", ".join(f"{part(compte, g):.1f} % des {compte[g + '_total']} {NOMS[g]}" for g in AU_MOINS)
    print(f"{nom} : {mesures}")


def sous(compte):
    return any(part(compte, genre) < seuil for genre, seuil in AU_MOINS.items())


def main():
    with open(sys.argv[1], encoding="utf-8") as fichier:
        resume = json.load(fichier)
    if not resume["files"]:
        sys.exit("couverture : rien n'a été mesuré")
    for compte in sorted(resume["files"], key=lambda c: part(c, "branch")):
        if sous(compte):
            dire(compte["filename"], compte)
    dire("en tout", resume)
    if sous(resume):
        sys.exit(f"couverture : il faut {AU_MOINS['line']} % des lignes et {AU_MOINS['branch']} % des branches")


main()
