# SPDX-License-Identifier: GPL-3.0-or-later
"""mesurer.py FICHIER [sans-tests]: measures all, prints the table and writes it to a file. The status is not
zero if something could not be measured; an aim that is missed is printed."""
import os
import platform
import sys
import traceback

import bancs
import demarrage
import lettres
import repos
import tableau
from salle import RACINE  # noqa: F401  (its folder has the pilot)
from pilote import on_private_bus


def machine():
    with open("/proc/cpuinfo", encoding="utf-8") as fichier:
        modele = next((ligne.split(":")[1].strip() for ligne in fichier
                       if ligne.startswith("model name")), platform.machine())
    return f"{modele}, {os.cpu_count()} cœurs, Linux {platform.release()}"


def main():
    on_private_bus()
    fichier, *options = sys.argv[1:]
    mesures = [demarrage.mesurer, repos.mesurer, lettres.mesurer, bancs.mesurer]
    if "sans-tests" not in options:
        mesures.append(bancs.suite)
    lignes, statut = [], 0
    for mesure in mesures:
        try:
            lignes += mesure()
        except Exception:  # one that fails does not keep the others from being taken
            traceback.print_exc()
            lignes.append(tableau.Ligne(mesure.__module__, "n'a pas pu être mesuré", "", False))
            statut = 1
    print(machine())
    print(tableau.ecran(lignes), end="")
    with open(fichier, "w", encoding="utf-8") as sortie:
        sortie.write(machine() + "\n\n" + tableau.markdown(lignes))
    sys.exit(statut)


main()
