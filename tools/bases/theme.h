// SPDX-License-Identifier: GPL-3.0-or-later
// The source of a theme: a text in UTF-8. Headings stand at its top, each "Clé : valeur" (Titre,
// Image, Niveau, Origine, all of them optional), then one entry a line. Blank lines and lines that
// begin with '#' are left out. The stem of the file's name becomes that of the base file, and the
// title where none is given.
#pragma once

#include "bases/TYPEGRIM.h"
#include "platform/files.h"

namespace grimoval::outils {

struct Theme {
    Texte fichier; // stem, in capitals
    Texte titre;
    Texte image; // stem, in capitals; empty for none
    struct Entree {
        int ligne; // in the source, from 1
        Texte texte;
    };
    std::vector<Entree> entrees;
};

// What is wrong, as a French sentence; where the matter is a line of a source, with its number.
struct Probleme {
    Texte fichier;
    int ligne; // 0: the file as a whole
    Texte texte;
};

// Reads a source; adds all that is wrong with it to `problemes`.
Theme lireTheme(Files &fichiers, const Texte &dossier, const Texte &nom,
                std::vector<Probleme> &problemes);

// What the game would do badly with an entry; empty for a good one.
Texte defautDeLEntree(const Texte &entree);

} // namespace grimoval::outils
