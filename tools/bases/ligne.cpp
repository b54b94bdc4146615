// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/ligne.h"

#include "tools/bases/probleme.h"

#include <algorithm>

namespace grimoval::outils {

namespace {

// Letters and what stands in the names of files; the shell takes none of it for its own.
bool simple(char16_t c) {
    constexpr std::u16string_view signes = u"_-./:,+@";
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9') ||
           (c >= u'À' && c <= u'ÿ') || signes.find(c) != std::u16string_view::npos;
}

Texte cite(const Texte &mot) {
    if (!mot.empty() && std::all_of(mot.begin(), mot.end(), simple)) {
        return mot;
    }
    Texte entre = u"'";
    for (const char16_t c : mot) {
        entre += c == u'\'' ? Texte(u"'\\''") : Texte(1, c);
    }
    return entre + u"'";
}

} // namespace

std::optional<Texte> ligneDe(const std::vector<std::string> &mots) {
    Texte ligne = u"grimbases";
    for (const std::string &octets : mots) {
        const Texte mot = fromPath(octets);
        if (montrable(mot) != mot) {
            return std::nullopt;
        }
        ligne += u" " + cite(mot);
    }
    return ligne;
}

} // namespace grimoval::outils
