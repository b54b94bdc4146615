// SPDX-License-Identifier: GPL-3.0-or-later
// The curtain over the theme's picture, a gauge of the errors of the word in play: 200 units cover
// it, and a word's limit of errors divides them into steps.
#include "game/FMenu.h"

namespace grimoval {

void FMenu::reglerVoile() {
    Shape1.Height = 1;
    Shape1.Visible = false;
    Shape1.BackColor = VSDessin.backColour;
    Shape1.ForeColor = VSDessin.foreColour;
    if (g.reglages.NombreErreur == 0) {
        throw Failure(failure::divisionByZero);
    }
    VSDessin.Tag = decimal(200 / g.reglages.NombreErreur);
}

void FMenu::AvancerVoile() {
    if (!Shape1.Visible) {
        Shape1.Visible = true;
    }
    if (ErreursMot[static_cast<std::size_t>(JoueurCourant)] > g.reglages.NombreErreur) {
        return;
    }
    const double pas = numericValue(VSDessin.Tag.get()).value_or(0);
    Shape1.Height = Int16::rounded(pas + Shape1.Height);
}

} // namespace grimoval
