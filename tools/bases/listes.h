// SPDX-License-Identifier: GPL-3.0-or-later
// Sources in folders: those that a game comes with, and those that were added to it, which outlive
// the bases made of them.
#pragma once

#include "tools/bases/lieu.h"
#include "tools/bases/theme.h"

namespace grimoval::outils {

// The sources of a folder, *.txt and *.csv, in order of their names; none of a missing folder.
std::vector<Texte> sourcesDe(Files &fichiers, const Texte &dossier);

// A source that was added, and what is to be said of it; of one that is no file, or cannot be read,
// that alone.
struct Gardee {
    Texte chemin;
    Theme theme;
    Problemes problemes;
};

// All that stands in the folder of the lists under the name of a source. One that is odd keeps none
// of the others away; a folder that cannot be read fails.
std::vector<Gardee> lireLesListes(Files &fichiers, const Texte &dossier);

// Adds a problem for each title that stands twice.
void exigerDesTitresUniques(const std::vector<Theme> &themes, Problemes &problemes);

// Keeps the source of a theme that is added, in the place of one with the same title.
void garder(Files &fichiers, const Lieu &lieu, const Theme &theme);

// Lets the sources with a title go.
void oublier(Files &fichiers, const Lieu &lieu, const Texte &titre);

// Clears what a process that died while it kept a source has left.
void effacerLesRestes(Files &fichiers, const Lieu &lieu);

} // namespace grimoval::outils
