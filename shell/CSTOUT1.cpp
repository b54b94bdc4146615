// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/CSTOUT1.h"

namespace grimoval {

void PlacerFenetre(Form &fenetre, const Texte &position) {
    Screen &ecran = fenetre.screen();
    ecran.MousePointer = pointeur::sablier;
    if (upper(position) != u"B") {
        fenetre.Top = (ecran.Height() - fenetre.Height) / 2;
        fenetre.Left = (ecran.Width() - fenetre.Width) / 2;
    } else {
        fenetre.Left = (ecran.Width() - fenetre.Width) / 2;
        fenetre.Top = ecran.Height() - fenetre.Height - 500;
    }
}

void AfficherModal(Globales &g, Form &fenetre) {
    g.FenetreModale = true;
    fenetre.showModal();
    fenetre.unload();
    g.FenetreModale = false;
}

void Fenetre::poserBouton(PictureButton &bouton, Place place, const Texte &nom,
                          std::function<void()> clic) {
    bouton.place = place;
    bouton.accessibleName = nom;
    bouton.Click = std::move(clic);
    bouton.MouseMove = [this] { survolerBouton(); };
}

} // namespace grimoval
