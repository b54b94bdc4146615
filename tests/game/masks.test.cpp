// SPDX-License-Identifier: GPL-3.0-or-later
// What is hidden of a word: capitals and small letters A to Z, up to the first parenthesis.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::masks {

struct Row {
    const char16_t *word, *masked;
    int letters, length;
};

constexpr Row rows[] = {
    {u"AMI", u"###", 3, 3},
    {u"L'ÉTÉ (SAISON)", u"#'É#É (SAISON)", 2, 6},
    {u"PORTE-MANTEAU 2", u"#####-####### 2", 12, 15},
    {u"1900", u"1900", 0, 4},
    {u"ÀÂÇÉÈÊËÎÏÔŒÙÛÜŸÆ", u"ÀÂÇÉÈÊËÎÏÔŒÙÛÜŸÆ", 0, 16},
    {u"CŒUR", u"#Œ##", 3, 4},
    {u"GARÇON", u"###Ç##", 5, 6},
    {u"petit", u"#####", 5, 5},
    {u"été", u"é#é", 1, 3},
    {u"(SEUL)", u"(SEUL)", 0, 0},
    {u"A(B)C(D)", u"#(B)C(D)", 1, 1},
    {u"A)B", u"#)#", 2, 3},
    {u"A#B.C", u"###.#", 3, 5},
    {u"", u"", 0, 0},
    {u"POMME DE TERRE", u"##### ## #####", 12, 14},
};

TEST(MaskedWord, HidesEveryLetterFromAToZBeforeTheFirstParenthesisAndNothingElse) {
    for (const Row &row : rows) {
        Game game(false);
        game.start({.words = {row.word}});
        const std::string name = toUtf8(row.word);
        EXPECT_EQ(toUtf8(game.menu.MotCherche[1]), name);
        EXPECT_EQ(toUtf8(game.menu.MotAffiche[1]), toUtf8(row.masked)) << name;
        EXPECT_EQ(game.word(), toUtf8(row.masked)) << name;
        EXPECT_EQ(game.menu.NbLettres[1], row.letters) << name;
        EXPECT_EQ(shown(game.menu.AffMot[1].Caption), std::to_string(row.letters)) << name;
        EXPECT_EQ(game.menu.LongueurMot[1], row.length) << name;
    }
}

TEST(MaskedWord, IsMadeForBothPlayersInMode3AndTheFirstIsShown) {
    for (const Row &row : rows) {
        Game game(false);
        game.start({.mode = 3, .words = {u"BON", row.word}});
        const std::string name = toUtf8(row.word);
        EXPECT_EQ(toUtf8(game.menu.MotAffiche[1]), "###") << name;
        EXPECT_EQ(toUtf8(game.menu.MotAffiche[2]), toUtf8(row.masked)) << name;
        EXPECT_EQ(game.menu.NbLettres[2], row.letters) << name;
        EXPECT_EQ(game.menu.LongueurMot[2], row.length) << name;
        EXPECT_EQ(game.word(), "###") << name;
        EXPECT_EQ(shown(game.menu.AffMot[1].Caption), "3") << name;
    }
}

TEST(MaskedWord, LosesTheBlanksAroundItAndKeepsThoseInside) {
    Game game(false);
    game.start({.words = {u"  BON  JOUR  "}});
    EXPECT_EQ(toUtf8(game.menu.MotCherche[1]), "BON  JOUR");
    EXPECT_EQ(game.word(), "###  ####");
}

TEST(MaskedWord, KeepsItsCountOfLettersWhileTheyAreFound) {
    Game game(false);
    game.start({.words = {u"BANANE"}});
    game.propose("AN");
    EXPECT_EQ(game.word(), "#ANAN#");
    EXPECT_EQ(game.menu.NbLettres[1], 6);
    EXPECT_EQ(shown(game.menu.AffMot[1].Caption), "6");
}

TEST(MaskedWord, OfOnePlayersModesHasNoSecondSlot) {
    for (const int mode : {1, 2}) {
        Game game(false);
        game.start({.mode = mode, .words = {u"BON", u"JOUR"}});
        EXPECT_EQ(toUtf8(game.menu.MotCherche[2]), "");
        EXPECT_EQ(toUtf8(game.menu.MotAffiche[2]), "");
        EXPECT_EQ(game.menu.NbLettres[2], 0);
    }
}

} // namespace grimoval::test::masks
