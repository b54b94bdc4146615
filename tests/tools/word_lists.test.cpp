// SPDX-License-Identifier: GPL-3.0-or-later
// The lists of words that the game comes with.
#include "support/game.h"
#include "tools/bases/listes.h"

#include <gtest/gtest.h>
#include <set>

namespace grimoval::test::word_lists {

const Texte assets = fromUtf8(GRIMOVAL_SOURCES "/assets/");

struct WordLists : testing::Test {
    Files files;
    std::vector<outils::Theme> themes;
    std::vector<outils::Probleme> problems;

    WordLists() {
        for (const Texte &path : outils::sourcesDe(files, assets + u"mots")) {
            themes.push_back(outils::lireTheme(files, path, problems));
        }
    }
};

TEST_F(WordLists, HaveNoProblem) {
    for (const outils::Probleme &problem : problems) {
        ADD_FAILURE() << toUtf8(problem.fichier) << ":" << problem.ligne << " "
                      << toUtf8(problem.texte);
    }
}

TEST_F(WordLists, AreAtLeast32ThemesOf60To120WordsAnd2100WordsInAll) {
    EXPECT_GE(themes.size(), 32u);
    std::size_t words = 0;
    for (const outils::Theme &theme : themes) {
        EXPECT_GE(theme.entrees.size(), 60u) << toUtf8(theme.titre);
        EXPECT_LE(theme.entrees.size(), 120u) << toUtf8(theme.titre);
        words += theme.entrees.size();
    }
    EXPECT_GE(words, 2100u);
}

TEST_F(WordLists, HoldNoEntryBeyond30CharactersAndNoneTwiceInATheme) {
    for (const outils::Theme &theme : themes) {
        std::set<Texte> seen;
        for (const outils::Theme::Entree &entry : theme.entrees) {
            EXPECT_LE(entry.texte.size(), 30u) << toUtf8(entry.texte);
            EXPECT_TRUE(seen.insert(entry.texte).second) << toUtf8(entry.texte);
        }
    }
}

TEST_F(WordLists, TellTheirLevelAndTheirOrigin) {
    for (const outils::Theme &theme : themes) {
        EXPECT_FALSE(theme.niveau.empty()) << toUtf8(theme.titre);
        EXPECT_FALSE(theme.origine.empty()) << toUtf8(theme.titre);
    }
}

TEST_F(WordLists, BearTitlesAndFilesOfTheirOwn) {
    std::set<Texte> titles, stems;
    for (const outils::Theme &theme : themes) {
        EXPECT_TRUE(titles.insert(theme.titre).second) << toUtf8(theme.titre);
        EXPECT_TRUE(stems.insert(theme.fichier).second) << toUtf8(theme.fichier);
    }
}

TEST_F(WordLists, HaveAPictureEachAndThereAreThreeDefaultOnesAtLeast) {
    for (const outils::Theme &theme : themes) {
        EXPECT_EQ(theme.image, theme.fichier) << toUtf8(theme.titre);
        EXPECT_TRUE(files.exists(assets + u"images/themes/" + theme.image + u".svg"))
            << toUtf8(theme.image);
    }
    EXPECT_GE(files.list(assets + u"images/defaut", u"IMG??.svg").size(), 3u);
}

TEST_F(WordLists, AreTakenWholeByTheGame) {
    Game game;
    outils::construireBases(game.files, themes, game.g.dossiers.DossierBases);
    EXPECT_TRUE(outils::verifierBases(game.files, game.g.dossiers.DossierBases).empty());
    game.titles.show();
    EXPECT_EQ(game.titles.LstTitre.ListCount(), static_cast<int>(themes.size()));
    EXPECT_TRUE(game.windows.messages.empty());
}

} // namespace grimoval::test::word_lists
