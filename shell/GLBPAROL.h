// SPDX-License-Identifier: GPL-3.0-or-later
// Voice prompts and music. Sound is a decoration: nothing waits for it or depends on its success.
#pragma once

#include "shell/Globales.h"

namespace grimoval {

// The numbers of the prompts that events play.
namespace parole {
inline constexpr int bienvenue = 1, quitter = 3, tempsEcoule = 6, score = 8, auRevoir = 12,
                     debutPartie = 14, mauvaiseLettre = 15, bien = 16, tresBien = 17, moyen = 18,
                     motPerdu = 19;
}

// Plays the prompt of a number, unless the machine has no wave output or the child wants none.
void JouerParole(Globales &g, const Int16 &numero);
// The short sound of refusal.
void JouerErreur(Globales &g);
// Starts the music, or stops it if it is off or the machine has none.
void JouerMusique(Globales &g);

} // namespace grimoval
