// SPDX-License-Identifier: GPL-3.0-or-later
// What the commands that make or change bases share.
#pragma once

#include "tools/bases/catalogue.h"
#include "tools/bases/commandes.h"

namespace grimoval::outils {

// Sources; one that cannot be read ends the command.
Theme lire(Appel &appel, const Texte &chemin, Problemes &problemes);
std::vector<Theme> lireDossier(Appel &appel, const Texte &dossier, Problemes &problemes);

// Each gets a stem of its own, and they stand in the order of those.
void donnerLesRacines(std::vector<Theme> &themes);

// Another writer that does not come to an end ends the command.
Verrou verrouiller(Appel &appel, const Texte &dossier);

// The new set of a folder; the stems are of files that stay without a place in it.
void mettre(Appel &appel, const Lieu &lieu, std::vector<Fiche> &fiches,
            const std::set<Texte> &laisser = {});

} // namespace grimoval::outils
