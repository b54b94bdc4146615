// SPDX-License-Identifier: GPL-3.0-or-later
// Word base files: the counting of their records and the loading of the chosen one. A base has no
// test of its own: whether it is good is settled before it is read.
#pragma once

#include "bases/TYPEGRIM.h"
#include "game/FMenu.h"

namespace grimoval {

// A routine's error rule: a step that fails is told to the handler by its number, and the next step
// runs.
template <class Etape, class Traitement>
void essayer(Etape etape, Traitement traitement) {
    try {
        etape();
    } catch (const Failure &erreur) {
        traitement(erreur.number);
    }
}

// Whole records of a base of DossierBases; failure 6 beyond 32,767. A missing file is created.
Int16 CompterMots(Globales &g, const Texte &fichier);

// Fills LstMot(0) from FichierBase, in file order, blanks at both ends removed, nothing filtered.
// Each step that fails is told to the handler and passed over: a record that cannot be read gives
// the word before it once more, the first one the last word of the base that was read before.
void ChargerMots(Globales &g, FMenu &menu, const std::function<void(int)> &traitement);

} // namespace grimoval
