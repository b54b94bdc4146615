// SPDX-License-Identifier: GPL-3.0-or-later
// What the program asks of the utility control: the help file, and the settings file GRIMOVA.INI in
// the per-user folder. A value that is missing or unusable is
// repaired on the spot, in memory and in the file; one that does not fit 16 bits is an untrapped
// failure 6.
#pragma once

#include "shell/Globales.h"

namespace grimoval {

// Fills the sound switches and the devices' flags.
void LireConfigSon(Globales &g);
// Fills the game settings.
void LireConfigJeu(Globales &g);
// Writes Parole (1) or Music (2); another number writes once more what was written last.
void EcrireConfigSon(Globales &g, const Int16 &quoi);

// Points the utility control at the section of the game's settings.
void OuvrirReglages(Globales &g);
// Writes one key of the section that the utility control points at.
void EcrireCle(Globales &g, const Texte &cle, int valeur);

// Points the utility control at the help file of the application.
void PreparerAide(Globales &g);

} // namespace grimoval
