# SPDX-License-Identifier: GPL-3.0-or-later
"""How soon the splash and the main window stand on the screen, in turn with the empty program, and what each
holds in memory and asks of the disk."""
import time
from statistics import median

import processus
from salle import ARBRE, HAUTEUR, LARGEUR, VIDE, Salle
from tableau import Ligne
from temoin import Manque

PAIRES = 15
FROIDS = 5
ACCUEIL = (509, 199)  # the splash on this screen
SYSTEME = ("/usr/lib", "/lib", "/usr/share/fonts", "/usr/share/sounds", "/var/cache/fontconfig")


def lignes_de(largeur, hauteur, pas):
    """Lines of the screen, spread over a window in its middle."""
    gauche, haut = (LARGEUR - largeur) // 2, (HAUTEUR - hauteur) // 2
    return [(gauche, y, largeur) for y in range(haut + pas, haut + hauteur, pas)]


DE_ACCUEIL = lignes_de(480, 190, 38)
DE_MENU = lignes_de(900, 640, 53)


def vue_finale(salle, lignes, avant):
    """What stands there once all is still; it must not be what stood there before."""
    salle.temoin.calme(0.8)
    vue = salle.temoin.vue(lignes)
    if vue == avant:
        raise RuntimeError("rien n'est venu à l'écran")
    return vue


class Vues:
    """The pictures that a start ends in, seen once beforehand."""

    def __init__(self, salle):
        temoin = salle.temoin
        rien = temoin.vue(DE_ACCUEIL), temoin.vue(DE_MENU)
        jeu = salle.jeu()
        time.sleep(1)
        self.accueil = vue_finale(salle, DE_ACCUEIL, rien[0])
        temoin.touche("space")
        time.sleep(1)
        self.menu = vue_finale(salle, DE_MENU, rien[1])
        salle.fermer(jeu)
        vide = salle.vide(*ACCUEIL)
        time.sleep(1)
        self.vide = vue_finale(salle, DE_ACCUEIL, rien[0])
        salle.fermer(vide)


def demarrer(salle, lancer, vue):
    """A program, and how long until its first window stands."""
    salle.temoin.oublier()
    debut = time.monotonic()
    programme = lancer()
    return programme, salle.temoin.attendre_vue(DE_ACCUEIL, vue) - debut


def ouvrir_menu(salle, vues):
    """How long from the key until the main window stands and has answered another key."""
    temoin = salle.temoin
    temoin.calme(0.5)
    debut = temoin.touche("space")
    temoin.attendre_vue(DE_MENU, vues.menu)
    temoin.oublier()
    gauche, haut = salle.menu()(70, 510)
    for _ in range(100):
        temoin.touche("Tab")  # the ring goes on to the next button, once the window has the keyboard
        try:
            return temoin.attendre_dessin(gauche, haut, 0.1) - debut
        except Manque:
            pass
    raise Manque("la fenêtre principale ne répond pas")


def mesurer():
    with Salle() as salle:
        vues = Vues(salle)
        vide, accueil, menu, memoire_vide, memoire_jeu = [], [], [], [], []
        for _ in range(PAIRES):
            programme, temps = demarrer(salle, lambda: salle.vide(*ACCUEIL), vues.vide)
            vide.append(temps)
            salle.temoin.calme(0.5)
            memoire_vide.append(processus.memoire(programme.pid))
            salle.fermer(programme)
            programme, temps = demarrer(salle, salle.jeu, vues.accueil)
            accueil.append(temps)
            menu.append(ouvrir_menu(salle, vues))
            time.sleep(2)  # the tune has begun
            memoire_jeu.append(processus.memoire(programme.pid))
            salle.fermer(programme)
        froid_vide, froid_jeu, moyen = mesurer_froid(salle, vues)
    m = {nom: median(serie) for nom, serie in dict(
        vide=vide, accueil=accueil, menu=menu, memoire_vide=memoire_vide, memoire_jeu=memoire_jeu,
        froid_vide=froid_vide, froid_jeu=froid_jeu).items()}
    rapport = m["accueil"] / m["vide"], m["menu"] / m["vide"]
    part = m["memoire_jeu"] / m["memoire_vide"]
    disque = m["froid_jeu"] / max(m["froid_vide"], 1e-6)
    return [
        Ligne("lancement jusqu'à l'accueil à l'écran",
              f"{m['accueil'] * 1000:.0f} ms, {rapport[0]:.2f} fois les {m['vide'] * 1000:.0f} ms du "
              f"programme vide ({PAIRES} paires)", "1,3 fois ; 300 ms",
              rapport[0] <= 1.3 and m["accueil"] <= 0.3),
        Ligne("touche à l'accueil, jusqu'à la fenêtre principale prête",
              f"{m['menu'] * 1000:.0f} ms, {rapport[1]:.2f} fois", "0,5 fois", rapport[1] <= 0.5),
        Ligne("mémoire au repos (PSS)",
              f"{m['memoire_jeu']:.1f} Mio, {part:.2f} fois les {m['memoire_vide']:.1f} Mio du "
              "programme vide", "1,6 fois ; 90 Mio", part <= 1.6 and m["memoire_jeu"] <= 90),
        Ligne("lu sur le disque au démarrage à froid",
              f"{m['froid_jeu']:.1f} Mio, {disque:.2f} fois les {m['froid_vide']:.1f} Mio du "
              f"programme vide ({moyen})", "1,5 fois", disque <= 1.5),
    ]


def mesurer_froid(salle, vues):
    """Up to the main window."""
    vide, jeu, moyen = [], [], ""
    for _ in range(FROIDS):
        moyen = processus.vider_caches([*SYSTEME, ARBRE, VIDE])
        programme, _ = demarrer(salle, lambda: salle.vide(*ACCUEIL), vues.vide)
        vide.append(processus.lu(programme.pid))
        salle.fermer(programme)
        processus.vider_caches([*SYSTEME, ARBRE, VIDE])
        programme, _ = demarrer(salle, salle.jeu, vues.accueil)
        ouvrir_menu(salle, vues)
        jeu.append(processus.lu(programme.pid))
        salle.fermer(programme)
    return vide, jeu, moyen
