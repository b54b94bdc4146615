// SPDX-License-Identifier: GPL-3.0-or-later
// Making, checking and printing a folder of word bases: GRIMV.LST and the .DBS files that it names.
#pragma once

#include "tools/bases/theme.h"

#include <iosfwd>

namespace grimoval::outils {

// Makes a base of each theme, then the list: base files first, each replaced whole, the list last,
// so that what stands in the folder can be played at any instant.
void construireBases(Files &fichiers, const std::vector<Theme> &themes, const Texte &dossier);

// All that the game would refuse in a folder, and why.
std::vector<Probleme> verifierBases(Files &fichiers, const Texte &dossier);

// Themes and their words, as text.
void listerBases(Files &fichiers, const Texte &dossier, std::ostream &sortie);

// The records of the list; failures of the file layer go through.
std::vector<TypeBase> lireCatalogue(Files &fichiers, const Texte &dossier);

} // namespace grimoval::outils
