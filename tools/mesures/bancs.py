# SPDX-License-Identifier: GPL-3.0-or-later
"""What the core does without a screen, by its benchmarks; and the whole suite of tests."""
import json
import os
import subprocess
import time

from salle import BATI
from tableau import Ligne


def resultats():
    """Nanoseconds of each benchmark, the median of some runs; and the letters a second."""
    env = dict(os.environ)
    if os.path.isdir("/dev/shm"):
        env["TMPDIR"] = "/dev/shm"  # what the disk itself needs is not the game's
    sortie = subprocess.run(
        [os.path.join(BATI, "bench", "bench-core"), "--benchmark_format=json", "--benchmark_min_time=0.1",
         "--benchmark_repetitions=7", "--benchmark_enable_random_interleaving=true",
         "--benchmark_report_aggregates_only=true",
         "--benchmark_filter=WordBase/32767|Catalogue/(200|2000)$|Letters"],
        env=env, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True)
    bancs = {banc["run_name"]: banc for banc in json.loads(sortie.stdout)["benchmarks"]
             if banc.get("aggregate_name") == "median"}
    return {nom: banc["cpu_time"] for nom, banc in bancs.items()}, \
        bancs["proposingLetters"]["items_per_second"]


def mesurer():
    temps, lettres = resultats()
    choix, petit = temps["openingACatalogue/2000"], temps["openingACatalogue/200"]
    base, octets = temps["loadingAWordBase/32767"], temps["readingTheBytesOfAWordBase/32767"]
    fichiers = temps["listingAndSizingACatalogue/2000"]
    return [
        Ligne("choix du thème ouvert sur 2 000 bases",
              f"{choix / 1e6:.1f} ms, {choix / fichiers:.1f} fois le parcours des mêmes fichiers ; "
              f"{choix / petit:.1f} fois 200 bases", "2 fois ; 12 fois",
              choix <= 2 * fichiers and choix <= 12 * petit),
        Ligne("base de 32 767 mots",
              f"{base / 1e6:.1f} ms, {base / octets:.0f} fois la lecture de ses octets", "20 fois ; 10 ms",
              base <= 20 * octets and base < 10e6),
        Ligne("partie sans écran", f"{lettres / 1e6:.2f} millions de lettres par seconde", "1 million",
              lettres > 1e6),
    ]


def suite():
    debut = time.monotonic()
    statut = subprocess.run(["ctest", "--test-dir", BATI, "--no-tests=error", "-j", "3"],
                            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL).returncode
    if statut != 0:
        raise RuntimeError("des tests n'ont pas réussi : ./grim tester les montre")
    duree = time.monotonic() - debut
    return [Ligne("tous les tests", f"{duree:.0f} s", "90 s sur deux cœurs", duree < 90)]
