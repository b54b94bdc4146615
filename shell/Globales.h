// SPDX-License-Identifier: GPL-3.0-or-later
// The application-wide state, for the length of a run: public variables under their own names,
// grouped by owner. main() or a test makes one and passes it by reference. What belongs to the word
// in play is public in FMenu.
#pragma once

#include "shell/Clvutil.h"

#include <array>

namespace grimoval {

// Every string but DossierUtilisateur without a per-user place ends in the separator.
struct Dossiers {
    Texte DossierAppli;                                  // installed data
    Texte DossierBases, DossierSons, DossierImages;      // in it
    Texte DossierUtilisateur, DossierTemp, DossierScore; // three names of the per-user folder
};

// Read from the settings file, edited by FCHoix, only read by play.
struct Reglages {
    Int16 NombreJoueur = 1;    // the mode, 1 to 3
    Int16 RéflexionLimite = 1; // non-zero: thinking time is limited
    Int16 TempsRéflexion = 20; // seconds
    Int16 NombreErreur = 6;    // errors that lose a word, modes 1 and 3
};

// Each 0 or 1. A device's flag is not folded into the switch: both are tested at each play.
struct ReglagesSon {
    Int16 ParoleActive, MusiqueActive; // what the child wants
    Int16 WavPresent, MidiPresent;     // what the machine has
    Int16 ConfDep = -1;                // kept in the settings file, without effect
};

// 1 and 2 are family and first name of player 1, 3 and 4 of player 2; 0 is not used.
struct Joueurs {
    std::array<FixedText<15>, 5> NomJoueur;
};

// Indexed by player, 1 and 2; index 0 is not used.
struct ScoresPartie {
    std::array<Int16, 3> Score, MotsTrouves, MauvaisesLettres, BonnesLettres, Abandons;
    std::array<Int16, 3> ChangementsTour;  // written only, never reset
    Int16 NbMotsProposes;                  // drawn in this game; a pair counts as one
    Int16 NbMotsBase;                      // of the current base; 0 outside a game
    int HeureDebut = 0, HeureCourante = 0; // seconds of the day
    int TempsEcoule = 0;                   // seconds

    // A game that leaves the program is to show its score.
    bool aMontrer() const { return NbMotsProposes >= 1 && NbMotsBase >= 1; }
};

struct BaseCourante {
    bool BaseChargee = false;
    Texte TitreBase, FichierBase, ImageBase;
    FixedText<30> MotLu; // of the record that was read last, of whatever base
};

struct Globales {
    explicit Globales(Services &services_) : services(services_), VBTINI(services_) {}
    Globales(const Globales &) = delete;
    Globales &operator=(const Globales &) = delete;

    Services &services;
    Clvutil VBTINI; // sits on FMenu

    Dossiers dossiers;
    Reglages reglages;
    ReglagesSon son;
    Joueurs joueurs;
    ScoresPartie scores;
    BaseCourante base;

    Texte TitreAppli;              // captions and titles of messages; one blank at its end
    Texte SautLigne;               // the line break of all multi-line texts
    Texte TexteMessage;            // scratch, shared for building messages
    Int16 IndiceBoucle;            // a loop counter shared by many procedures
    Int16 ReponseFenetre;          // left by the last modal window
    bool FenetreModale = false;    // a modal window is up: the game's timers look at it
    bool BoutonSite = false;       // FAbout shows the button of the web site
    bool ListeObligatoire = false; // an empty base list ends the program at its start
};

} // namespace grimoval
