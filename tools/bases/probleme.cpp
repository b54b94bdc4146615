// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/probleme.h"

#include <algorithm>
#include <ostream>

namespace grimoval::outils {

namespace {
constexpr std::size_t leplusDeLignes = 40, leplusLong = 60;
} // namespace

bool graves(const Problemes &problemes) {
    return std::any_of(problemes.begin(), problemes.end(),
                       [](const Probleme &probleme) { return probleme.grave; });
}

Texte extrait(const Texte &texte) {
    Texte montre = texte.substr(0, leplusLong);
    std::replace_if(
        montre.begin(), montre.end(),
        [](char16_t c) { return c < u' ' || (c >= 0x7F && c < 0xA0) || c == 0x202E; }, u'?');
    return texte.size() > leplusLong ? montre + u"..." : montre;
}

bool dire(const Problemes &problemes, std::ostream &sortie) {
    std::size_t dits = 0;
    for (const Probleme &probleme : problemes) {
        if (dits++ == leplusDeLignes) {
            sortie << "... et " << problemes.size() - leplusDeLignes << " autres.\n";
            break;
        }
        sortie << toUtf8(probleme.fichier);
        if (probleme.ligne > 0) {
            sortie << ':' << probleme.ligne;
        }
        sortie << " : " << (probleme.grave ? "" : "remarque : ") << toUtf8(probleme.texte) << '\n';
    }
    return !graves(problemes);
}

} // namespace grimoval::outils
