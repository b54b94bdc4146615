// SPDX-License-Identifier: GPL-3.0-or-later
// A theme as a person writes it. Headings stand at its top, each "Clé : valeur" (Titre, Image,
// Niveau, Origine, all of them optional), then one entry a line, or the two columns of a table:
// the word and its clue. Blank lines and lines that begin with '#' are left out.
#pragma once

#include "platform/files.h"
#include "tools/bases/probleme.h"

namespace grimoval::outils {

struct Theme {
    Texte fichier; // the stem that the base should have
    Texte titre;
    Texte image; // stem, in capitals; empty for none
    struct Entree {
        int ligne; // in the source, from 1
        Texte texte;
    };
    std::vector<Entree> entrees;
    Texte niveau = {}, origine = {};
    Texte source = {}; // the file's name
};

// Reads a source and adds all that is to be said of it. Words are put in capitals.
Theme lireTheme(Files &fichiers, const Texte &chemin, Problemes &problemes);

// The same from a text that has been read, under the name of a file.
Theme lireTexte(const std::string &octets, const Texte &nom, Problemes &problemes);

// A source that gives the same theme.
std::string ecrireTheme(const Theme &theme);

// What the game would do badly with an entry; empty for a good one.
Texte defautDeLEntree(const Texte &entree);

} // namespace grimoval::outils
