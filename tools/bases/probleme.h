// SPDX-License-Identifier: GPL-3.0-or-later
// What the program has to say about a file, as French sentences: where, what, and what to do.
#pragma once

#include "platform/text.h"

#include <iosfwd>

namespace grimoval::outils {

struct Probleme {
    Texte fichier;
    int ligne; // of a source, or the number of a record; 0: the file as a whole
    Texte texte;
    bool grave = true; // otherwise a remark, which stops nothing
};
using Problemes = std::vector<Probleme>;

bool graves(const Problemes &problemes);

// One a line, the first forty; true if none of them all is grave.
bool dire(const Problemes &problemes, std::ostream &sortie);

// A text of unknown origin as it can be shown: without what would command a terminal.
Texte montrable(Texte texte);
// And short.
Texte extrait(const Texte &texte);

} // namespace grimoval::outils
