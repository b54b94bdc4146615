# SPDX-License-Identifier: GPL-3.0-or-later
"""A copy of the tree in which one mutant at a time is built and tried by the tests of the core."""
import filecmp
import json
import os
import re
import resource
import shutil
import signal
import subprocess
import tempfile
import time

from tirage import DOSSIERS

IGNORES = re.compile(r"^(\.git|build|build-.*|__pycache__)$")
SUITE = re.compile(r"^(?:TEST|TEST_F|TEST_P|RC_GTEST_PROP|RC_GTEST_FIXTURE_PROP)\(\s*(\w+)", re.M)
ECHEC = re.compile(r"^\[  FAILED  \] ([\w/]+\.[\w/]+)", re.M)
EN_COURS = re.compile(r"^\[ RUN      \] ([\w/]+\.[\w/]+)", re.M)
DUREE = re.compile(r"^\[-+\] \d+ tests? from ([\w/]+).* \((\d+) ms total\)", re.M)
# The platform stands below the rules, and the tools are other programs: their tests can see no mutant.
AVEUGLES = ("platform", "tools")
LENTE = 0.05  # of the time of all: such a suite comes last
PROGRAMME = "mutant"
MEMOIRE = 4 << 30  # bytes: a loop without an end fills no machine
FICHIERS = 6 << 30  # bytes: the tests make one of five thousand million, with nothing in it
MOINS_DE_TEMPS = 30  # seconds
COURT = "/dev/shm"   # a folder in memory, where the system has one


class Panne(Exception):
    """The tree as it stands does not build, or its tests fail."""


def suites(racine, *dossiers):
    """The names of the suites in these folders of tests, or in all."""
    noms = set()
    for dossier, _, fichiers in os.walk(os.path.join(racine, "tests")):
        for nom in fichiers:
            if nom.endswith(".test.cpp") and (not dossiers or os.path.basename(dossier) in dossiers):
                with open(os.path.join(dossier, nom), encoding="utf-8") as fichier:
                    noms |= set(SUITE.findall(fichier.read()))
    return noms


def filtre(passer, sauter=()):
    """As the test program takes it; a suite with parameters has a name before its own."""
    def motifs(noms):
        return ":".join(m for nom in sorted(noms) for m in (f"{nom}.*", f"*/{nom}.*"))

    return f"--gtest_filter={motifs(passer) if passer else '*'}-{motifs(sauter)}"


def demonter(dossier):
    """A test that was killed leaves the small disk that it had mounted."""
    with open("/proc/mounts", encoding="utf-8") as montages:
        places = [ligne.split()[1] for ligne in montages]
    for place in places:
        if place.startswith(dossier + "/"):
            subprocess.run(["umount", "-l", place], check=False)


def limiter():
    resource.setrlimit(resource.RLIMIT_AS, (MEMOIRE, MEMOIRE))
    resource.setrlimit(resource.RLIMIT_FSIZE, (FICHIERS, FICHIERS))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


class Atelier:
    def __init__(self, racine, dossier):
        self.racine, self.dossier, self.nom = racine, dossier, os.path.basename(dossier)
        self.batiment = os.path.join(dossier, "build-mutants")
        self.delai = None
        self.lentes = set()
        self.compilations, self.lus, self.liaison = [], {}, ""
        self.exclues = suites(racine, *AVEUGLES) - suites(racine, *DOSSIERS, "stories", "support")
        self.proches = {dossier: suites(racine, dossier) - self.exclues for dossier in DOSSIERS}

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
        self.lire_commandes()

    def essayer_sain(self):
        """The tests on the tree as it stands: their time is the measure of the others'."""
        debut = time.monotonic()
        verdict, essai, dit = self.passer(filtre((), self.exclues), 600, "tests/tests-core")
        if verdict != "survit":
            raise Panne(f"sans aucun mutant, {essai} échoue ({verdict})")
        durees = {nom: int(ms) for nom, ms in DUREE.findall(dit)}
        self.lentes = {nom.split("/")[-1] for nom, ms in durees.items() if ms > LENTE * sum(durees.values())}
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
            if not self.construire(mutant.fichier):
                return "ne compile pas", ""
            # Those that look at the changed folder, the others, and those that take long.
            proches = self.proches[mutant.fichier.split("/")[0]]
            tours = [filtre(proches - self.lentes), filtre((), proches | self.lentes | self.exclues)]
            for tour in tours + [filtre(self.lentes)] * bool(self.lentes):
                verdict, essai, _ = self.passer(tour, self.delai)
                if verdict != "survit":
                    break
            return verdict, essai
        finally:
            with open(chemin, "w", encoding="utf-8") as fichier:
                fichier.write(sain)

    def construire(self, fichier):
        """The test program with the changed file. The objects of what reads it stand before all others, which
        are as they were built: the linker takes the first that it meets."""
        commandes, objets = [], []
        for source, compiler, objet in self.compilations:
            if source == fichier or fichier in self.lus[objet]:
                objets.append(f"mutant{len(objets)}.o")
                commandes.append(re.sub(r" -o \S+ ", f" -o {objets[-1]} ", compiler))
        lier = self.liaison.replace(" -o tests/tests-core ", f" -o {PROGRAMME} ")
        lier = lier.replace(" tests/CMakeFiles/", f" {' '.join(objets)} tests/CMakeFiles/", 1)
        return objets and not subprocess.run(
            " && ".join(commandes + [lier]), shell=True, cwd=self.batiment, check=False, capture_output=True,
            start_new_session=True, env=dict(os.environ, CCACHE_DISABLE="1")).returncode

    def lire_commandes(self):
        """How the files of the rules are compiled, what each reads, and how the tests are linked."""
        def dit(*commande):
            return subprocess.run(commande, cwd=self.batiment, check=True, capture_output=True, text=True).stdout

        with open(os.path.join(self.batiment, "compile_commands.json"), encoding="utf-8") as connues:
            for connue in json.load(connues):
                source = os.path.relpath(connue["file"], self.dossier)
                if source.startswith(tuple(d + "/" for d in DOSSIERS)):
                    objet = re.search(r" -o (\S+) ", connue["command"])[1]
                    self.compilations.append((source, connue["command"], objet))
                    self.lus[objet] = {os.path.relpath(os.path.join(self.batiment, lu.strip()), self.dossier)
                                       for lu in dit("ninja", "-t", "deps", objet).splitlines()[1:]}
        self.liaison, = (ligne for ligne in dit("ninja", "-t", "commands", "tests-core").splitlines()
                         if " -o tests/tests-core " in ligne)

    def passer(self, tour, delai, programme=PROGRAMME):
        """(verdict, the test that failed, all that was said)"""
        # A seed of one's own, so that a result comes again; fewer rounds, and no search for a shortest failure.
        env = dict(os.environ, RC_PARAMS="seed=20011 noshrink=1 max_success=25")
        with tempfile.TemporaryDirectory(dir=COURT if os.path.isdir(COURT) else None) as temporaire:
            env["TMPDIR"] = temporaire
            os.chmod(temporaire, 0o755)  # some tests play another user
            with open(os.path.join(temporaire, "dit"), "w+b") as sortie:
                lance = subprocess.Popen(
                    [os.path.join(self.batiment, programme), tour, "--gtest_fail_fast",
                     "--gtest_color=no"], cwd=self.batiment, env=env, stdout=sortie, start_new_session=True,
                    stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL, preexec_fn=limiter)
                try:
                    statut = lance.wait(delai)
                except subprocess.TimeoutExpired:
                    os.killpg(lance.pid, signal.SIGKILL)
                    statut = lance.wait()
                    trop_long = True
                else:
                    trop_long = False
                demonter(temporaire)
                sortie.seek(0)
                dit = sortie.read().decode("utf-8", "replace")
        en_cours = (EN_COURS.findall(dit) or ["?"])[-1]
        if trop_long:
            return "temps", en_cours, dit
        if statut == 0:
            return "survit", "", dit
        return "tué", (ECHEC.findall(dit) or [en_cours])[0], dit
