// SPDX-License-Identifier: GPL-3.0-or-later
// What all windows have in common: their placing, their modal opening, the pointer discipline.
#pragma once

#include "shell/Globales.h"

namespace grimoval {

namespace pointeur {
inline constexpr int fleche = 0, flecheHaute = 10, sablier = 11;
}

// "B": centred sideways, standing 500 twips above the bottom of the screen; any other text: in the
// centre of the screen. A window larger than the screen gets a negative place. Sets the hourglass,
// which the window's first paint ends.
void PlacerFenetre(Form &fenetre, const Texte &position);

// Shows a window as a modal one and unloads it when it has gone.
void AfficherModal(Globales &g, Form &fenetre);

// The pointer rules of every window but the splash and the backdrop: the arrow of the screen at
// each paint, an up arrow over a picture button, the arrow over the background.
class Fenetre : public Form {
protected:
    Fenetre(Globales &globales, const char *nom)
        : Form(globales.services.screen, nom), g(globales) {}

    void Form_Paint() override { screen().MousePointer = pointeur::fleche; }
    void Form_MouseMove() override {
        if (MousePointer != pointeur::fleche) {
            MousePointer = pointeur::fleche;
        }
    }
    void survolerBouton() {
        if (MousePointer != pointeur::flecheHaute) {
            MousePointer = pointeur::flecheHaute;
        }
    }
    // A picture button of the window: its place, its name for the eye and the ear, its click.
    void poserBouton(PictureButton &bouton, Place place, const Texte &nom,
                     std::function<void()> clic);

    Globales &g;
};

} // namespace grimoval
