// SPDX-License-Identifier: GPL-3.0-or-later
// A folder of word bases: GRIMV.LST and the .DBS files that it names.
#pragma once

#include "bases/TYPEGRIM.h"
#include "tools/bases/theme.h"

#include <set>

namespace grimoval::outils {

inline constexpr std::size_t leplusDeBases = 32767;
inline constexpr std::int64_t leplusDeMots = 32767; // of a base

// One theme of a folder. Where `mots` is set they are its words, as records, and its file is to be
// written under a stem that is found for it; otherwise it stays what it is in the folder.
struct Fiche {
    TypeBase base;
    std::optional<std::string> mots = {};
};

std::vector<Fiche> fichesPour(const std::vector<Theme> &themes);

// The records of the list, without those that are dead; none where there is no list.
std::vector<Fiche> fichesDe(Files &fichiers, const Texte &dossier);

struct Menage {
    // The file that remembers what was made of sources, beside the folder of the bases; or none.
    Texte registre = {};
    // Stems of files that stay although the new set has no place for them.
    std::set<Texte> laisser = {};
};

// Puts a new set in the place of the one in a folder, so that what stands there can be played at
// any instant, also where the process dies: what is new is written beside the old files, then the
// list is switched, then the files go that the old list alone named. A theme whose words are the
// same keeps its file. A file that no list names stays, unless this program wrote it. Fills in the
// stems and counts.
void installer(Files &fichiers, const Texte &dossier, std::vector<Fiche> &fiches,
               const Menage &menage = {});

// Clears what a process that died while it changed a folder has left. `installer` begins with it.
void effacerLesRestesDesBases(Files &fichiers, const Texte &dossier, const Texte &registre);

// The themes as the set of a folder.
void construireBases(Files &fichiers, const std::vector<Theme> &themes, const Texte &dossier);

// All that the game would refuse in a folder, and why.
Problemes verifierBases(Files &fichiers, const Texte &dossier);

// Records as they stand; failures of the file layer go through.
std::vector<TypeBase> lireCatalogue(Files &fichiers, const Texte &dossier);
std::vector<TypeMot> lireMots(Files &fichiers, const Texte &dossier, const TypeBase &base);

Texte cheminListe(const Texte &dossier);
Texte racineDe(const TypeBase &base);    // in capitals, without blanks
Texte titreDe(const TypeBase &base);     // without blanks around
Texte fichierDe(const TypeBase &base);   // with its ending
Texte racineDuFichier(const Texte &nom); // of "NOM.dbs", in capitals

} // namespace grimoval::outils
