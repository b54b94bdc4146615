// SPDX-License-Identifier: GPL-3.0-or-later
// Two clocks run during a game: the gauge measures the thinking time, and its end is the time-out;
// a timer of one second measures how long the game has lasted. And the turn passes here.
#include "game/FMenu.h"

#include "shell/GLBPAROL.h"

namespace grimoval {

// Disarmed before it stops: stopping a gauge can never read as a time-out.
void FMenu::desarmerFlux() {
    FluxArme = false;
    FluReflec.Arreter();
}

void FMenu::ArreterFlux() {
    if (limite()) {
        desarmerFlux();
        FluxActif = false;
    }
}

void FMenu::RelancerFlux() {
    desarmerFlux();
    FluReflec.Valeur = 0;
    FluReflec.TexteFlux = u"0";
    FluxArme = true;
    FluxActif = true;
    FluReflec.Lancer();
}

void FMenu::FluReflec_Progression() { FluReflec.TexteFlux = decimal(FluReflec.Valeur); }

void FMenu::FluReflec_Fin() {
    if (g.FenetreModale || !FluxArme) {
        return;
    }
    MessageEchec = false;
    JouerParole(g, parole::tempsEcoule);
    if (parMot()) {
        ErreursMot[static_cast<std::size_t>(JoueurCourant)] = g.reglages.NombreErreur;
    }
    VerifierFinMot();
    MessageEchec = true;
}

void FMenu::MinutHorloge_Timer() {
    if (!PartieEnCours) {
        return;
    }
    constexpr int jour = 24 * 60 * 60;
    ScoresPartie &s = g.scores;
    s.HeureCourante = g.services.clock.now().secondOfDay();
    s.TempsEcoule = (s.HeureCourante - s.HeureDebut + jour) % jour;
}

void FMenu::Form_Activate() {
    FluReflec.Valeur = 0;
    FluReflec.TexteFlux = u"0";
    FluReflec.Visible = limite();
    montrerMode(); // it may come from the settings, or have changed without names
}

// The label of the player to move invites, the other shows the name alone.
void FMenu::inviterJoueur(int joueur) {
    const int autre = 3 - joueur;
    Rappel[autre].Caption = Bord[autre + 1].Tag;
    Rappel[joueur].Caption = Bord[joueur + 1].Tag.get() + u" " + Rappel[joueur].ToolTipText.get();
}

void FMenu::ChangerJoueur() {
    const auto joueur = static_cast<std::size_t>(JoueurCourant);
    g.scores.ChangementsTour[joueur] += 1;
    g.scores.MauvaisesLettres[joueur] += ErreursMot[joueur];
    ErreursMot[1] = 0;
    ErreursMot[2] = 0;
    JoueurCourant = JoueurCourant != 2 ? 2 : 1;
    inviterJoueur(JoueurCourant);
    if (g.reglages.NombreJoueur == 2) {
        if (limite() && FluxActif) {
            RelancerFlux();
        }
        return;
    }
    // Mode 3: player 1 has finished, and player 2's word begins.
    AffMot[0].Caption = MotAffiche[2];
    AffMot[1].Caption = decimal(NbLettres[2]);
    AffMot[0].ForeColor = colours::blue;
    if (limite()) {
        RelancerFlux();
    }
}

} // namespace grimoval
