// SPDX-License-Identifier: GPL-3.0-or-later
// What the targets ask of themes and of what is said about them.
#pragma once

#include "fuzz/targets.h"
#include "tools/bases/catalogue.h"

#include <algorithm>
#include <sstream>

namespace grimoval::fuzz {

inline std::vector<Texte> wordsOf(const outils::Theme &theme) {
    std::vector<Texte> words;
    for (const outils::Theme::Entree &entry : theme.entrees) {
        words.push_back(entry.texte);
    }
    return words;
}

// What comes to a terminal is text, never a command to it.
inline void printable(const std::string &text) {
    law(isUtf8(text), "what is said is UTF-8");
    const Texte said = fromUtf8(text);
    law(std::none_of(said.begin(), said.end(),
                     [](char16_t c) {
                         return (c < u' ' && c != u'\n') || (c >= 0x7F && c < 0xA0) ||
                                (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
                     }),
        "what is said commands no terminal");
}

inline void printable(const outils::Problemes &problems) {
    std::ostringstream said;
    outils::dire(problems, said);
    printable(said.str());
    law(said.str().size() < 20000, "what is said can be read");
}

} // namespace grimoval::fuzz
