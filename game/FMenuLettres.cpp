// SPDX-License-Identifier: GPL-3.0-or-later
// What the player sees of a word, and what a letter does to it.
#include "game/FMenu.h"

#include "shell/GLBPAROL.h"

namespace grimoval {

void FMenu::MasquerMot() {
    NbLettres[1] = 0;
    NbLettres[2] = 0;
    masquer(1);
    if (g.reglages.NombreJoueur == 3) {
        masquer(2);
    }
    AffMot[0].Caption = MotAffiche[1];
    AffMot[1].Caption = decimal(NbLettres[1]);
}

// Letters A to Z are masked up to the first "(": a comment in parentheses is shown from the start
// and takes no part. Everything else stays on view, accented letters among it: nobody hunts for
// accents.
void FMenu::masquer(std::size_t slot) {
    Texte &affiche = MotAffiche[slot];
    std::size_t position = 0;
    for (; position < affiche.size() && affiche[position] != u'('; ++position) {
        const char16_t capitale = upper(affiche[position]);
        if (capitale >= u'A' && capitale <= u'Z') {
            affiche[position] = u'#';
            NbLettres[slot] += 1;
        }
    }
    LongueurMot[slot] = static_cast<int>(position);
}

void FMenu::ActiverLettres() {
    for (LetterButton &bouton : VsAlpha) {
        bouton.DisabledPicture = VsAlphabis[bouton.index()].Picture;
        bouton.Enabled = true;
    }
}

void FMenu::DesactiverLettres() {
    for (LetterButton &bouton : VsAlpha) {
        bouton.DisabledPicture = VsAlphabis[bouton.index()].DisabledPicture;
        bouton.Enabled = false;
    }
}

void FMenu::VsAlpha_Click(int index) {
    IndiceLettre = index;
    ProposerLettre(VsAlpha[index].caption.front());
}

void FMenu::IndiceDeLettre(char16_t lettre) {
    const char16_t capitale = upper(lettre);
    if (capitale >= u'A' && capitale <= u'Z') {
        IndiceLettre = capitale - u'A';
    } else {
        JouerErreur(g);
    }
}

std::size_t FMenu::slotDuJoueur() const {
    return g.reglages.NombreJoueur == 3 && JoueurCourant == 2 ? 2 : 1;
}

void FMenu::ProposerLettre(char16_t lettre) {
    BonneLettre = false;
    const std::size_t slot = slotDuJoueur();
    LetterButton &bouton = VsAlpha[IndiceLettre];
    // A word is searched with exact capitals: a small letter in a base can never be found.
    for (std::size_t i = 0; i < static_cast<std::size_t>(LongueurMot[slot]); ++i) {
        if (MotCherche[slot][i] == lettre) {
            MotAffiche[slot][i] = lettre;
            AffMot[0].Caption = MotAffiche[slot];
            BonneLettre = true;
        }
    }
    const auto joueur = static_cast<std::size_t>(JoueurCourant);
    if (!BonneLettre) {
        ErreursMot[joueur] += 1;
        JouerParole(g, parole::mauvaiseLettre);
        bouton.Enabled = false;
        if (!parMot()) {
            ChangerJoueur();
        } else if (ErreursMot[joueur] > g.reglages.NombreErreur - 1) {
            VerifierFinMot();
        } else {
            AvancerVoile();
        }
        return;
    }
    bouton.DisabledPicture = bouton.DownPicture;
    bouton.Enabled = false;
    g.scores.BonnesLettres[joueur] += 1;
    g.scores.Score[joueur] += 1;
    AfficherScore();
    VerifierFinMot();
}

} // namespace grimoval
