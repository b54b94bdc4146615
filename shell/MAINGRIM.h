// SPDX-License-Identifier: GPL-3.0-or-later
// The entry of the program: its start-up in exact order, then the life of FMenu, then the end. The
// one file of shell/ that looks up, as it brings all the windows together.
#pragma once

#include "bases/FCHoix.h"
#include "bases/FLstTitre.h"
#include "scores/FScore2.h"
#include "shell/FAbout.h"
#include "shell/FOption.h"
#include "shell/Fmsg1.h"
#include "shell/Fplein.h"
#include "shell/frmSplash.h"

namespace grimoval {

// Every window of the program, each with those that it opens.
struct FenetresDuJeu {
    explicit FenetresDuJeu(Globales &g);

    frmSplash splash;
    Fplein plein;
    FMenu menu;
    FLstTitre titres;
    Fnom nom;
    FCHoix choix;
    FScore2 score;
    Fmsg1 question;
    FOption option;
    FAbout about;
};

// Ends the process itself, by ProgramEnd.
[[noreturn]] void Main(Globales &g, FenetresDuJeu &fenetres);

} // namespace grimoval
