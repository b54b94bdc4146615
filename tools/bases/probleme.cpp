// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/probleme.h"

#include <algorithm>
#include <ostream>

namespace grimoval::outils {

namespace {
constexpr std::size_t leplusDeLignes = 40, leplusLong = 60;

// Characters that are not seen: they turn the direction of a text, part its lines, or hide in it.
struct Plage {
    char16_t premier, dernier;
};
constexpr Plage invisibles[] = {{0x00AD, 0x00AD}, {0x0600, 0x0605}, {0x061C, 0x061C},
                                {0x06DD, 0x06DD}, {0x070F, 0x070F}, {0x180E, 0x180E},
                                {0x200B, 0x200F}, {0x2028, 0x202E}, {0x2060, 0x206F},
                                {0xFEFF, 0xFEFF}, {0xFFF0, 0xFFFB}, {0xFFFE, 0xFFFF}};

bool seMontre(char16_t c) {
    return !isControl(c) &&
           std::none_of(std::begin(invisibles), std::end(invisibles), [c](const Plage &plage) {
               return c >= plage.premier && c <= plage.dernier;
           });
}

bool premierDeDeux(char16_t c) { return c >= 0xD800 && c < 0xDC00; }
bool secondDeDeux(char16_t c) { return c >= 0xDC00 && c < 0xE000; }

} // namespace

bool graves(const Problemes &problemes) {
    return std::any_of(problemes.begin(), problemes.end(),
                       [](const Probleme &probleme) { return probleme.grave; });
}

Texte montrable(Texte texte) {
    constexpr char16_t desMarques = 0xDB40; // begins those that are not seen either
    for (std::size_t i = 0; i < texte.size(); ++i) {
        if (premierDeDeux(texte[i]) && texte[i] != desMarques && i + 1 < texte.size() &&
            secondDeDeux(texte[i + 1])) {
            ++i;
        } else if (!seMontre(texte[i]) || premierDeDeux(texte[i]) || secondDeDeux(texte[i])) {
            texte[i] = u'?';
        }
    }
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
