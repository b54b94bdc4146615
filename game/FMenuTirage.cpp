// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing of words. No word comes twice in a game unless it was given back: a drawn word leaves
// the working list, and there is no other history.
#include "game/FMenu.h"

#include <algorithm>
#include <cmath>

namespace grimoval {

void FMenu::PreparerListe() {
    std::vector<Texte> mots = LstMot[0].Items;
    std::transform(mots.begin(), mots.end(), mots.begin(),
                   [](const Texte &mot) { return trim(mot); });
    LstMot[1].Clear();
    LstMot[1].Items = mots;
    g.scores.NbMotsBase = LstMot[0].ListCount();
    FluxScore.Maximum = LstMot[0].ListCount();
}

bool FMenu::TirerMot() {
    g.services.random.seed();
    const int reste = LstMot[1].ListCount();
    if (g.reglages.NombreJoueur < 3 && reste >= 1) {
        tirerDans(1);
        return true;
    }
    // A single word left over is no pair.
    if (g.reglages.NombreJoueur == 3 && reste > 1) {
        tirerDans(1);
        tirerDans(2);
        return true;
    }
    screen().message(u"Tous les mots ont été proposés." + g.SautLigne + g.SautLigne +
                         u"Pour recommencer avec le même sujet : cliquer sur la flêche verte." +
                         g.SautLigne + g.SautLigne +
                         u"Pour changer de sujet : cliquer sur \"Choisir sujet\"." + g.SautLigne,
                     MessageIcon::information, g.TitreAppli);
    afficherInvitation();
    CmdTjr_Click(0);
    return false;
}

void FMenu::tirerDans(std::size_t slot) {
    const float r = g.services.random.next();
    const int nombre = LstMot[1].ListCount();
    IndiceTirage =
        std::clamp(static_cast<int>(std::floor(static_cast<float>(nombre) * r)), 0, nombre);
    MotCherche[slot] = trim(LstMot[1].item(IndiceTirage));
    MotAffiche[slot] = MotCherche[slot];
    LstMot[1].RemoveItem(IndiceTirage);
}

void FMenu::rendreMot() { LstMot[1].AddItem(trim(MotCherche[1])); }

} // namespace grimoval
