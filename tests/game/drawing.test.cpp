// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing of words: at random, each leaving the list, two at a time in mode 3.
#include "support/game.h"

#include <cmath>
#include <gtest/gtest.h>

namespace grimoval::test::drawing {

const std::vector<Texte> five = {u"AA", u"BB", u"CC", u"DD", u"EE"};

struct Draw : testing::Test {
    Game game;
    FMenu &menu = game.menu;
    ScoresPartie &scores = game.g.scores;

    std::string drawn(std::size_t slot = 1) const { return toUtf8(menu.MotCherche[slot]); }
    std::string left() const { return shownValue(menu.LstMot[1].Items.get()); }
    // Finds the word in play, of one letter.
    void find(std::size_t slot = 1) {
        game.propose(std::string(1, static_cast<char>(menu.MotCherche[slot].front())));
    }
};

TEST_F(Draw, TakesTheEntryAtTheWholePartOfTheNumberTimesTheCount) {
    const struct {
        float number;
        const char *word;
        int index;
    } rows[] = {{0.0f, "AA", 0}, {0.19f, "AA", 0}, {0.21f, "BB", 1},
                {0.5f, "CC", 2}, {0.79f, "DD", 3}, {std::nextafter(1.0f, 0.0f), "EE", 4}};
    for (const auto &row : rows) {
        Game other(false);
        other.random.numbers = {row.number};
        other.start({.words = five});
        EXPECT_EQ(toUtf8(other.menu.MotCherche[1]), row.word) << row.number;
        EXPECT_EQ(other.menu.IndiceTirage, row.index);
        EXPECT_EQ(other.menu.LstMot[1].ListCount(), 4);
        EXPECT_EQ(other.menu.LstMot[0].Items.get(), five);
    }
}

TEST_F(Draw, TakesTheWordOffTheWorkingListAlone) {
    game.random.numbers = {0.5f, 0.5f};
    game.start({.words = five});
    EXPECT_EQ(drawn(), "CC");
    EXPECT_EQ(left(), R"("AA" "BB" "DD" "EE")");
    find();
    game.enter();
    EXPECT_EQ(drawn(), "DD");
    EXPECT_EQ(left(), R"("AA" "BB" "EE")");
    EXPECT_EQ(menu.LstMot[0].Items.get(), five);
}

TEST_F(Draw, OfAPairTakesANumberForEachWordTheFirstBeingGoneBeforeTheSecond) {
    game.random.numbers = {0.9f, 0.9f};
    game.start({.mode = 3, .words = five});
    EXPECT_EQ(drawn(1), "EE");
    EXPECT_EQ(drawn(2), "DD");
    EXPECT_EQ(game.random.drawn, 2);
    EXPECT_EQ(scores.NbMotsProposes, 1);
}

TEST_F(Draw, SeedsTheGeneratorOnceEachTimeAlsoWhenNothingIsLeft) {
    game.start({.words = {u"AA", u"BB"}});
    EXPECT_EQ(game.random.seeds, 1);
    find();
    game.enter();
    EXPECT_EQ(game.random.seeds, 2);
    find();
    game.expectScore();
    game.enter();
    EXPECT_EQ(game.random.seeds, 3);
    EXPECT_EQ(game.random.drawn, 2);
}

TEST_F(Draw, FillsTheListAnewWithTrimmedEntriesForEachGame) {
    const std::vector<Texte> words = {u" AA ", u"BB", u"  "};
    game.start({.words = words});
    EXPECT_EQ(scores.NbMotsBase, 3);
    EXPECT_EQ(menu.FluxScore.Maximum.get(), 3);
    EXPECT_EQ(left(), R"("BB" "")");
    find();
    game.stop();
    EXPECT_EQ(scores.NbMotsBase, 0);
    ASSERT_TRUE(menu.CmdTjr[2].userClick());
    EXPECT_EQ(drawn(), "AA");
    EXPECT_EQ(left(), R"("BB" "")");
    EXPECT_EQ(menu.LstMot[0].Items.get(), words);
}

TEST_F(Draw, TakesEqualWordsAsTwoEntries) {
    game.start({.words = {u"AA", u"AA"}});
    find();
    game.enter();
    EXPECT_EQ(drawn(), "AA");
    EXPECT_EQ(scores.NbMotsProposes, 2);
    EXPECT_EQ(menu.LstMot[1].ListCount(), 0);
}

// Words given back can come again, at the end of the list.

TEST_F(Draw, GivesBackNothingInMode1WhateverBecomesOfTheWord) {
    game.start({.words = five, .errors = 1});
    game.propose("Z"); // lost
    game.enter();
    ASSERT_TRUE(menu.CmdJeux[1].userClick()); // given up
    game.enter();
    find();
    EXPECT_EQ(left(), R"("DD" "EE")");
}

TEST_F(Draw, GivesBackTheWordThatPlayer1LostInMode3) {
    game.start({.mode = 3, .words = five, .errors = 1});
    game.propose("Z");
    EXPECT_EQ(left(), R"("CC" "DD" "EE" "AA")");
}

TEST_F(Draw, GivesBackTheWordOfPlayer1WhenPlayer2LosesInMode3) {
    game.start({.mode = 3, .words = five, .errors = 1});
    find();
    game.propose("Z");
    EXPECT_EQ(left(), R"("CC" "DD" "EE" "AA")");
    EXPECT_EQ(drawn(2), "BB");
}

TEST_F(Draw, GivesBackTheWordOfPlayer1WhenPlayer2GivesUpInMode3) {
    game.start({.mode = 3, .words = five});
    find();
    ASSERT_TRUE(menu.CmdJeux[2].userClick());
    EXPECT_EQ(left(), R"("CC" "DD" "EE" "AA")");
}

TEST_F(Draw, GivesBackTheWordOfPlayer1TwiceWhenBothLose) {
    game.start({.mode = 3, .words = five, .errors = 1});
    game.propose("Z");
    game.propose("Z");
    EXPECT_EQ(left(), R"("CC" "DD" "EE" "AA" "AA")");
}

TEST_F(Draw, NeverGivesBackAWordFound) {
    game.start({.mode = 3, .words = five});
    find(1);
    find(2);
    EXPECT_EQ(left(), R"("CC" "DD" "EE")");
    Game two;
    two.start({.mode = 2, .words = {u"A", u"B"}});
    two.propose("ZA");
    EXPECT_EQ(shownValue(two.menu.LstMot[1].Items.get()), R"("B")");
}

} // namespace grimoval::test::drawing
