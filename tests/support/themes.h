// SPDX-License-Identifier: GPL-3.0-or-later
// Themes read from texts, and what was said of them.
#pragma once

#include "tools/bases/theme.h"

#include <gtest/gtest.h>

namespace grimoval::test {

using Told = std::vector<std::string>;

struct ReadThemes : testing::Test {
    using Theme = outils::Theme;
    outils::Problemes problems;

    Theme read(const std::string &source, const Texte &name = u"ESSAI.txt") {
        problems.clear();
        return outils::lireTexte(source, name, problems);
    }
    // "FILE:LINE text", remarks with a mark of their own.
    Told told() const {
        Told lines;
        for (const outils::Probleme &problem : problems) {
            lines.push_back(toUtf8(problem.fichier) + ":" + std::to_string(problem.ligne) +
                            (problem.grave ? " " : " [] ") + toUtf8(problem.texte));
        }
        return lines;
    }
    static Told words(const Theme &theme) {
        Told texts;
        for (const Theme::Entree &entry : theme.entrees) {
            texts.push_back(toUtf8(entry.texte));
        }
        return texts;
    }
};

} // namespace grimoval::test
