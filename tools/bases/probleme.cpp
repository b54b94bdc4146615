// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/probleme.h"

#include <algorithm>
#include <ostream>

namespace grimoval::outils {

namespace {
constexpr std::size_t leplusDeLignes = 40, leplusLong = 60;

// What turns the direction of the text behind it.
bool tourne(char16_t c) { return (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069); }

} // namespace

bool graves(const Problemes &problemes) {
    return std::any_of(problemes.begin(), problemes.end(),
                       [](const Probleme &probleme) { return probleme.grave; });
}

Texte montrable(Texte texte) {
    std::replace_if(
        texte.begin(), texte.end(), [](char16_t c) { return isControl(c) || tourne(c); }, u'?');
    return texte;
}

Texte extrait(const Texte &texte) {
    const Texte debut = montrable(texte.substr(0, leplusLong));
    return texte.size() > leplusLong ? debut + u"..." : debut;
}

bool dire(const Problemes &problemes, std::ostream &sortie) {
    std::size_t dits = 0;
    for (const Probleme &probleme : problemes) {
        if (dits++ == leplusDeLignes) {
            sortie << "... et " << problemes.size() - leplusDeLignes << " autres.\n";
            break;
        }
        sortie << toUtf8(montrable(probleme.fichier));
        if (probleme.ligne > 0) {
            sortie << ':' << probleme.ligne;
        }
        sortie << " : " << (probleme.grave ? "" : "remarque : ")
               << toUtf8(montrable(probleme.texte)) << '\n';
    }
    return !graves(problemes);
}

} // namespace grimoval::outils
