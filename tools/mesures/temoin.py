# SPDX-License-Identifier: GPL-3.0-or-later
"""A witness of the screen: it knows nothing of the program, sees each drawing when the screen does, and
presses keys as a keyboard does."""
import select
import time

from Xlib import X, XK, display
from Xlib.error import XError
from Xlib.ext import damage, xtest


class Manque(Exception):
    """What was to be seen did not come."""


class Temoin:
    def __init__(self, ecran):
        self.x = display.Display(ecran)
        self.racine = self.x.screen().root
        self.x.damage_query_version()
        self.racine.damage_create(damage.DamageReportRawRectangles)
        xtest.fake_input(self.x, X.MotionNotify, x=0, y=0)  # nothing lies under the mouse
        self.x.sync()

    def fermer(self):
        self.x.close()

    def dessins(self, fin):
        """The rectangles drawn, as (moment, x, y, width, height), one after the other; ends at `fin`."""
        while True:
            while self.x.pending_events():
                evenement = self.x.next_event()
                if evenement.type == self.x.extension_event.DamageNotify:
                    place = evenement.area
                    yield time.monotonic(), place.x, place.y, place.width, place.height
            reste = fin - time.monotonic()
            if reste <= 0:
                return
            select.select([self.x], [], [], reste)

    def oublier(self):
        """What has been drawn so far."""
        self.x.sync()
        while self.x.pending_events():
            self.x.next_event()

    def calme(self, duree=0.4, patience=15):
        """Waits until nothing has been drawn for so long."""
        fin = time.monotonic() + patience
        while any(True for _ in self.dessins(time.monotonic() + duree)):
            if time.monotonic() > fin:
                raise Manque(f"l'écran ne s'arrête pas en {patience} s")

    def vue(self, lignes):
        """What stands on these lines of the screen, each (x, y, width), byte by byte."""
        return b"".join(self.racine.get_image(x, y, largeur, 1, X.ZPixmap, 0xffffffff).data
                        for x, y, largeur in lignes)

    def attendre_vue(self, lignes, vue, patience=15):
        """The moment from which on this stands there."""
        fin = time.monotonic() + patience
        if self.vue(lignes) == vue:
            return time.monotonic()
        for _ in self.dessins(fin):
            # All that has come meanwhile is in the picture.
            while self.x.pending_events():
                self.x.next_event()
            if self.vue(lignes) == vue:
                return time.monotonic()
        raise Manque("la vue attendue n'est pas venue")

    def attendre_dessin(self, x, y, patience=5):
        """The moment of the next drawing over this point."""
        for moment, gauche, haut, largeur, hauteur in self.dessins(time.monotonic() + patience):
            if gauche <= x < gauche + largeur and haut <= y < haut + hauteur:
                return moment
        raise Manque(f"rien n'a été dessiné en {x}, {y}")

    def touche(self, nom):
        """Presses and lets go; the moment of the pressing."""
        code = self.x.keysym_to_keycode(XK.string_to_keysym(nom))
        moment = time.monotonic()
        xtest.fake_input(self.x, X.KeyPress, code)
        xtest.fake_input(self.x, X.KeyRelease, code)
        self.x.flush()
        return moment

    def fenetre(self, titre):
        """Where the window with this title lies: x, y, width, height."""
        a_voir = [self.racine]
        while a_voir:
            fenetre = a_voir.pop()
            try:
                if fenetre.get_wm_name() == titre and fenetre.get_attributes().map_state == X.IsViewable:
                    taille, place = fenetre.get_geometry(), fenetre.translate_coords(self.racine, 0, 0)
                    return -place.x, -place.y, taille.width, taille.height
                a_voir.extend(fenetre.query_tree().children)
            except XError:
                pass  # it went while it was being asked
        raise Manque(f"il n'y a pas de fenêtre « {titre} »")
