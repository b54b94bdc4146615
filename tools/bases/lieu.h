// SPDX-License-Identifier: GPL-3.0-or-later
// Where the bases of a game are, and what stands beside them.
#pragma once

#include "platform/files.h"

namespace grimoval::outils {

struct Lieu {
    Texte masque;   // the folder of the bases
    Texte images;   // of the game that it belongs to
    Texte modeles;  // sources of the themes that the game comes with
    Texte listes;   // sources of the themes that were added: beside the folder of the bases itself,
                    // also where the game holds but a link to it
    Texte registre; // beside them: the bases that were made of sources

    // Whether the bases can be made anew from their sources. Otherwise they are all there is.
    bool refaisable = false;
};

// Of the folder of the bases, or of a game's folder, which holds it as MASK.
Lieu lieuDe(Files &fichiers, const Texte &dossier);

// The game that this program belongs to: in its own folder, beside it as `grimoval`, or in
// ../share/games/grimoval. Empty if there is none.
Texte jeuInstalle();

} // namespace grimoval::outils
