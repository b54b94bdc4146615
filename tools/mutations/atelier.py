# SPDX-License-Identifier: GPL-3.0-or-later
"""A copy of the tree in which one mutant at a time is built and tried by the tests of the core."""
import filecmp
import os
import re
import resource
import shutil
import subprocess
import tempfile
import time

from tirage import DOSSIERS

IGNORES = re.compile(r"^(\.git|build|build-.*|__pycache__)$")
SUITE = re.compile(r"^(?:TEST|TEST_F|TEST_P|RC_GTEST_PROP|RC_GTEST_FIXTURE_PROP)\(\s*(\w+)", re.M)
ECHEC = re.compile(r"^\[  FAILED  \] ([\w/]+\.[\w/]+)", re.M)
EN_COURS = re.compile(r"^\[ RUN      \] ([\w/]+\.[\w/]+)", re.M)
# The platform stands below the rules, and grimbases is another program: neither can see a mutant.
AVEUGLES = ("platform",)
AUTRE_PROGRAMME = re.compile(r"\bGRIMBASES\b")
MEMOIRE = 4 << 30  # bytes: a loop without an end fills no machine
FICHIERS = 256 << 20
MOINS_DE_TEMPS = 30  # seconds
COURT = "/dev/shm"   # a folder in memory, where the system has one


class Panne(Exception):
    """The tree as it stands does not build, or its tests fail."""


def suites(racine, choisir):
    """The names of the suites in the test files that `choisir` takes, by folder and text."""
    noms = set()
    for dossier, _, fichiers in os.walk(os.path.join(racine, "tests")):
        for nom in fichiers:
            if nom.endswith(".test.cpp"):
                with open(os.path.join(dossier, nom), encoding="utf-8") as fichier:
                    texte = fichier.read()
                if choisir(os.path.basename(dossier), texte):
                    noms |= set(SUITE.findall(texte))
    return noms


def limiter():
    resource.setrlimit(resource.RLIMIT_AS, (MEMOIRE, MEMOIRE))
    resource.setrlimit(resource.RLIMIT_FSIZE, (FICHIERS, FICHIERS))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


class Atelier:
    def __init__(self, racine, dossier):
        self.racine, self.dossier = racine, dossier
        self.batiment = os.path.join(dossier, "build-mutants")
        self.delai = None
        exclues = suites(racine, lambda d, t: d in AVEUGLES or AUTRE_PROGRAMME.search(t))
        self.exclues = exclues - suites(
            racine, lambda d, t: d not in AVEUGLES and not AUTRE_PROGRAMME.search(t))
        self.proches = {d: suites(racine, lambda dossier, _, d=d: dossier == d) - self.exclues
                        for d in DOSSIERS}

    def copier(self):
        """Makes the copy like the tree; what is the same keeps its date, and is not built again."""
        gardes = set()
        for dossier, sous, noms in os.walk(self.racine):
            sous[:] = [s for s in sous if not IGNORES.match(s)]
            la = os.path.normpath(os.path.join(self.dossier, os.path.relpath(dossier, self.racine)))
            os.makedirs(la, exist_ok=True)
            for nom in noms:
                ici, copie = os.path.join(dossier, nom), os.path.join(la, nom)
                gardes.add(copie)
                if not os.path.exists(copie) or not filecmp.cmp(ici, copie, shallow=False):
                    shutil.copy(ici, copie)
        for dossier, sous, noms in os.walk(self.dossier):
            sous[:] = [s for s in sous if not IGNORES.match(s)]
            for nom in noms:
                if os.path.join(dossier, nom) not in gardes:
                    os.remove(os.path.join(dossier, nom))

    def preparer(self):
        reglages = {"CMAKE_BUILD_TYPE": "None", "CMAKE_CXX_FLAGS": "-O1 -w -D_GLIBCXX_ASSERTIONS",
                    "CMAKE_EXE_LINKER_FLAGS": "-fuse-ld=gold",
                    "CMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE": "PRE_TEST"}
        commande = ["cmake", "--preset", "core", "-B", self.batiment]
        commande += [f"-D{nom}={valeur}" for nom, valeur in reglages.items()]
        for etape in (commande, ["ninja", "-C", self.batiment, "tests-core"]):
            fin = subprocess.run(etape, cwd=self.dossier, capture_output=True, text=True, check=False)
            if fin.returncode:
                raise Panne(fin.stdout[-3000:] + fin.stderr[-3000:])

    def essayer_sain(self):
        """The tests on the tree as it stands: their time is the measure of the others'."""
        debut = time.monotonic()
        verdict, essai = self.passer(f"-{':'.join(s + '.*' for s in sorted(self.exclues))}", 600)
        if verdict != "survit":
            raise Panne(f"sans aucun mutant, {essai} échoue ({verdict})")
        duree = time.monotonic() - debut
        self.delai = max(MOINS_DE_TEMPS, 5 * duree)
        return duree

    def essayer(self, mutant):
        """(verdict, the test that killed it)"""
        chemin = os.path.join(self.dossier, mutant.fichier)
        with open(chemin, encoding="utf-8") as fichier:
            sain = fichier.read()
        with open(chemin, "w", encoding="utf-8") as fichier:
            fichier.write(mutant.applique(sain))
        try:
            construit = subprocess.run(["ninja", "-C", self.batiment, "tests-core"], check=False,
                                       capture_output=True, env=dict(os.environ, CCACHE_DISABLE="1"))
            if construit.returncode:
                return "ne compile pas", ""
            proches = sorted(s + ".*" for s in self.proches[mutant.fichier.split("/")[0]])
            autres = proches + sorted(s + ".*" for s in self.exclues)
            verdict, essai = self.passer(":".join(proches), self.delai)
            return (verdict, essai) if verdict != "survit" else self.passer("-" + ":".join(autres), self.delai)
        finally:
            with open(chemin, "w", encoding="utf-8") as fichier:
                fichier.write(sain)

    def passer(self, filtre, delai):
        # A seed of one's own, so that a result comes again; a failure is known without its shortest form.
        env = dict(os.environ, RC_PARAMS="seed=20011 noshrink=1")
        with tempfile.TemporaryDirectory(dir=COURT if os.path.isdir(COURT) else None) as temporaire:
            env["TMPDIR"] = temporaire
            with open(os.path.join(temporaire, "dit"), "w+b") as sortie:
                lance = subprocess.Popen(
                    [os.path.join(self.batiment, "tests", "tests-core"), f"--gtest_filter={filtre}",
                     "--gtest_fail_fast", "--gtest_color=no"], cwd=self.batiment, env=env, stdout=sortie,
                    stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL, preexec_fn=limiter)
                try:
                    statut = lance.wait(delai)
                except subprocess.TimeoutExpired:
                    lance.kill()
                    statut = lance.wait()
                    trop_long = True
                else:
                    trop_long = False
                sortie.seek(0)
                dit = sortie.read().decode("utf-8", "replace")
        en_cours = (EN_COURS.findall(dit) or ["?"])[-1]
        if trop_long:
            return "temps", en_cours
        if statut == 0:
            return "survit", ""
        return "tué", (ECHEC.findall(dit) or [en_cours])[0]
