# SPDX-License-Identifier: GPL-3.0-or-later
"""Where the programs are measured: a screen and a sound server of their own, without a loudspeaker, and the
steps of a person by the keyboard alone. Accessibility is off, as it is for most."""
import os
import shutil
import subprocess
import sys
import time

RACINE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(RACINE, "tests", "programme"))

from screen import Screen, stop, wait_for  # noqa: E402
from temoin import Manque, Temoin  # noqa: E402

BATI = os.path.join(RACINE, "build")
ARBRE = os.path.join(BATI, "grimoval")
VIDE = os.path.join(BATI, "bench", "empty")
LARGEUR, HAUTEUR = 1366, 768
GRAIN = 0.02

# Ten words of all letters: each key is a letter found, until the last one ends the word.
ALPHABET = "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
MOTS = [ALPHABET[i:] + ALPHABET[:i] for i in range(10)]


class Salle:
    """`reglages`: the settings that differ from those of a first start. `mots`: the words of the only
    theme; those of the game if there are none."""

    def __init__(self, reglages=None, mots=None):
        self.reglages = reglages or {}
        self.mots = mots
        self.ecran = Screen(f"{LARGEUR}x{HAUTEUR}")

    def __enter__(self):
        self.ecran.__enter__()
        try:
            self.preparer()
        except BaseException:
            self.ecran.__exit__()
            raise
        return self

    def __exit__(self, *_):
        self.temoin.fermer()
        self.ecran.__exit__()

    def preparer(self):
        env = self.ecran.env
        del env["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"], env["SDL_AUDIODRIVER"]
        prise = os.path.join(self.ecran.folder, "son")
        env.update(PULSE_SERVER="unix:" + prise, PULSE_COOKIE=os.path.join(self.ecran.folder, "cle"))
        # It would want to be the only one of the session.
        self.ecran.start(["env", "DBUS_SESSION_BUS_ADDRESS=disabled:", "pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no",
                          "--exit-idle-time=-1", "--disallow-exit", "--realtime=no",
                          "--high-priority=no", "-L", "module-null-sink sink_name=muet rate=44100",
                          "-L", f"module-native-protocol-unix auth-anonymous=1 socket={prise}"])
        wait_for(lambda: "muet" in self.ecran.run("pactl", "list", "short", "sinks"), "sound server")
        self.arbre = ARBRE if self.mots is None else self.arbre_de(self.mots)
        self.regler()
        self.temoin = Temoin(env["DISPLAY"])

    def arbre_de(self, mots):
        arbre = os.path.join(self.ecran.folder, "jeu")
        shutil.copytree(ARBRE, arbre, ignore=lambda _, noms: {"MASK", "mots"} & set(noms))
        sources = os.path.join(self.ecran.folder, "sources")
        os.makedirs(os.path.join(arbre, "MASK"))
        os.mkdir(sources)
        with open(os.path.join(sources, "ESSAI.txt"), "w", encoding="utf-8") as fichier:
            fichier.write("\n".join(["Titre : Essai", *mots]) + "\n")
        subprocess.run([os.path.join(BATI, "grimbases"), "construire", sources,
                        os.path.join(arbre, "MASK")], check=True, stdout=subprocess.DEVNULL)
        return arbre

    def regler(self):
        """A first start has been: what it writes is there."""
        dossier = os.path.join(self.ecran.env["XDG_DATA_HOME"], "Calvenor", "Le Grimoval")
        os.makedirs(dossier)
        reglages = {"Music": 1, "Parole": 1, "NombreJoueur": 1, "RéflexionLimite": 1,
                    "TempsRéflexion": 20, "NombreErreur": 6, **self.reglages}
        lignes = ["[ConfigPC]", "ConfDep=-1", "WavPrésent=1", "MidiPrésent=1", "[Le Grimoval]",
                  *(f"{cle}={valeur}" for cle, valeur in reglages.items())]
        with open(os.path.join(dossier, "GRIMOVA.INI"), "wb") as fichier:
            fichier.write("".join(ligne + "\r\n" for ligne in lignes).encode("cp1252"))

    # The programs.

    def jeu(self):
        return self.ecran.start([os.path.join(self.arbre, "grimoval")])

    def vide(self, *taille):
        return self.ecran.start([VIDE, *map(str, taille)])

    def fermer(self, processus):
        stop(processus)
        self.temoin.calme(0.2)

    # Where things lie on the screen. The game's units are those of its design, 800 to the width.

    def menu(self):
        x, y, largeur, _ = self.temoin.fenetre("Le Grimoval ")
        return lambda gauche, haut: (x + round(gauche * largeur / 800), y + round(haut * largeur / 800))

    # The steps of a person.

    def passer_accueil(self):
        time.sleep(0.3)
        self.temoin.calme()
        self.temoin.touche("space")
        self.attendre_menu()

    def attendre_menu(self):
        fin = time.monotonic() + 15
        while True:
            try:
                self.temoin.fenetre("Le Grimoval ")
                break
            except Manque:
                if time.monotonic() > fin:
                    raise
                time.sleep(GRAIN)
        self.temoin.calme()

    def touches(self, *noms):
        for nom in noms:
            self.temoin.touche(nom)
            self.temoin.calme(0.25)

    def commencer_partie(self):
        """Alone, with the first theme: what each window asks is answered, then the first word stands."""
        self.passer_accueil()
        self.touches("space")  # Nouvelle partie
        self.touches(*["Tab"] * 7, "space")  # OK
        self.touches("a", "Return", "b", "Return")  # the names
        self.touches("Return")  # the theme
        self.temoin.calme(0.5)
