// SPDX-License-Identifier: GPL-3.0-or-later
// Names that are made, and names that are looked for.
#pragma once

#include "platform/text.h"

#include <functional>

namespace grimoval::outils {

inline constexpr std::size_t largeurTitre = 30, largeurNom = 8;

// 1 to 8 of A to Z, 0 to 9, '_' and '-': the stem of a base or picture.
bool estUneRacine(const Texte &nom);

// Behind the last separator.
Texte nomSeul(const Texte &chemin);

// A title and a stem out of a person's file name: "mots_de la mer.txt" gives "Mots de la mer" and
// MOTS_DEL.
Texte titreDuNom(const Texte &chemin);
Texte racineDuNom(const Texte &chemin);

// The stem itself, or the first of NOM_2, NOM_3, ... (no longer than a stem) that is free.
Texte racineLibre(const Texte &racine, const std::function<bool(const Texte &)> &libre);

// Case and accents do not make two titles.
bool memeTitre(const Texte &un, const Texte &autre);

// The one of them that a misspelt word means; empty where none is near.
Texte leplusProche(const Texte &mot, const std::vector<Texte> &connus);

} // namespace grimoval::outils
