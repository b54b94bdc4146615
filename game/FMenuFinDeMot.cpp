// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the word is found, lost or still open; the points, the verdict, the close of the word in
// the way of each mode; scores and players on view.
#include "game/FMenu.h"

#include "shell/GLBPAROL.h"

namespace grimoval {

namespace {

// The verdict on a word found. Settled: both a clean word and one found at the last moment are
// "très bien".
int verdict(int erreurs, int limiteErreurs) {
    const int tiers = limiteErreurs / 3;
    if (erreurs > tiers && erreurs < 2 * tiers) {
        return parole::bien;
    }
    return erreurs == 2 * tiers ? parole::moyen : parole::tresBien;
}

} // namespace

void FMenu::VerifierFinMot() {
    const std::size_t slot = slotDuJoueur();
    const auto joueur = static_cast<std::size_t>(JoueurCourant);
    if (trim(MotAffiche[slot]) == trim(MotCherche[slot])) {
        ArreterFlux();
        g.scores.Score[joueur] += 5;
        g.scores.MotsTrouves[joueur] += 1;
        JouerParole(g,
                    parMot() ? verdict(ErreursMot[joueur], g.reglages.NombreErreur) : parole::bien);
        AffMot[0].ForeColor = colours::green;
        FinDeMot();
        return;
    }
    if (parMot()) {
        if (ErreursMot[joueur] <= g.reglages.NombreErreur - 1) {
            return;
        }
        ArreterFlux();
        if (g.reglages.NombreJoueur == 1) {
            AffMot[0].ForeColor = colours::red;
            AffMot[0].Caption = MotCherche[1];
        } else {
            // Settled: slot 1 goes back whichever player lost, and no answer is shown.
            rendreMot();
        }
        if (MessageEchec) {
            JouerParole(g, parole::motPerdu);
        }
        // Settled: the picture is covered even when no letter was wrong.
        Shape1.Height = 200;
        Shape1.Visible = true;
        FinDeMot();
        return;
    }
    if (limite()) {
        if (FluxActif) {
            RelancerFlux();
        } else {
            ChangerJoueur();
        }
    }
}

void FMenu::FinDeMot() {
    const auto joueur = static_cast<std::size_t>(JoueurCourant);
    g.scores.MauvaisesLettres[joueur] += ErreursMot[joueur];
    AfficherScore();
    switch (g.reglages.NombreJoueur) {
    case 1:
        FluxScore.Valeur = g.scores.MotsTrouves[1];
        if (g.scores.NbMotsBase == 0) {
            throw Failure(failure::divisionByZero);
        }
        if (FluxScore.Valeur * 100 / g.scores.NbMotsBase >= 40) {
            FluxScore.CouleurTexte = colours::white;
        }
        FluxScore.TexteFlux =
            decimal(g.scores.MotsTrouves[1]) + u"/" + decimal(g.scores.NbMotsProposes);
        DesactiverLettres();
        CmdJeux[1].Inactif = true;
        CmdJeux[0].Inactif = false;
        CmdTjr[0].Inactif = false;
        break;
    case 2:
        DesactiverLettres();
        CmdJeux[1].Inactif = true;
        CmdTjr[0].Inactif = false;
        CmdJeux[0].Inactif = false;
        montrerNoms();
        break;
    default:
        if (JoueurCourant != 2) {
            ActiverLettres();
            // Settled: the errors of player 1 are booked here and once more at the change of turn.
            ChangerJoueur();
            CmdJeux[2].Inactif = false;
            Shape1.Height = 1;
        } else {
            DesactiverLettres();
            CmdTjr[0].Inactif = false;
            montrerNoms();
            CmdJeux[2].Inactif = true;
            CmdJeux[0].Inactif = false;
        }
    }
}

void FMenu::montrerNoms() {
    Rappel[1].Caption = Bord[2].Tag;
    Rappel[2].Caption = Bord[3].Tag;
}

void FMenu::AfficherScore() {
    ImgScore[JoueurCourant == 1 ? 0 : 1].Caption =
        decimal(g.scores.Score[static_cast<std::size_t>(JoueurCourant)]);
}

void FMenu::montrerMode() {
    const int mode = g.reglages.NombreJoueur;
    FluxScore.Visible = mode == 1;
    Bord[3].Visible = mode != 1;
    CmdJeux[1].Visible = mode == 1;
    if (mode == 3 && !CmdJeux[2].Visible) {
        CmdJeux[2].Inactif = true; // player 2's turn alone opens it
    }
    CmdJeux[2].Visible = mode == 3;
}

bool FMenu::AfficherJoueurs() {
    const auto &nom = g.joueurs.NomJoueur;
    // First name and the initial of the family name: Marie D.
    const auto nomCourt = [&](std::size_t famille, std::size_t prenom) {
        return trim(nom[prenom].text()) + u" " + nom[famille].text().front() + u".";
    };
    CmdJeux[1].Visible = false;
    CmdJeux[2].Visible = false;
    CmdJeux[1].Inactif = true;
    CmdJeux[2].Inactif = true;
    if (g.reglages.NombreJoueur >= 2) {
        if (trim(nom[1].text()).empty() && trim(nom[2].text()).empty()) {
            return false;
        }
        Bord[3].Tag = nomCourt(3, 4);
        Rappel[2].Caption = Bord[3].Tag;
    } else if (trim(nom[1].text()).empty()) {
        return false;
    }
    montrerMode();
    Bord[2].Tag = nomCourt(1, 2);
    Rappel[1].Caption = Bord[2].Tag;
    return true;
}

} // namespace grimoval
