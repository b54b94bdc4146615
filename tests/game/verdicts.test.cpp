// SPDX-License-Identifier: GPL-3.0-or-later
// A word found: the points, and the prompt chosen by the number of errors.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::verdicts {

const std::string wrong = "BCDEFGHIJKLMNOPQRSTU";

// For each limit, the prompt after 0, 1, 2 ... errors: b "CesBien", t "Cestbien", m "Cesmoy".
struct Row {
    int limit;
    const char *prompts;
};

constexpr Row rows[] = {
    {1, "m"},
    {2, "mt"},
    {3, "ttm"},
    {4, "ttmt"},
    {5, "ttmtt"},
    {6, "tttbmt"},
    {7, "tttbmtt"},
    {8, "tttbmttt"},
    {9, "ttttbbmtt"},
    {12, "tttttbbbmttt"},
    {20, "tttttttbbbbbmttttttt"},
};

std::string fileOf(char verdict) {
    return verdict == 'b' ? "CesBien.Wav" : verdict == 't' ? "Cestbien.Wav" : "Cesmoy.Wav";
}

TEST(Verdict, OnAWordFoundGoesByItsErrorsAndAThirdOfTheLimitInModes1And3) {
    for (const Row &row : rows) {
        ASSERT_EQ(std::string(row.prompts).size(), static_cast<std::size_t>(row.limit));
        for (const int mode : {1, 3}) {
            for (int errors = 0; errors < row.limit; ++errors) {
                Game game(false);
                game.start({.mode = mode, .words = {u"A", u"V"}, .errors = row.limit});
                game.propose(wrong.substr(0, static_cast<std::size_t>(errors)));
                game.windows.take();
                game.propose("A");
                EXPECT_EQ(game.prompts(), Events{fileOf(row.prompts[errors])})
                    << "mode " << mode << ", limit " << row.limit << ", errors " << errors;
                EXPECT_EQ(game.g.scores.Score[1], 6);
            }
        }
    }
}

TEST(Verdict, OfPlayer2InMode3GoesByHisOwnErrors) {
    for (int errors = 0; errors < 6; ++errors) {
        Game game(false);
        game.start({.mode = 3, .words = {u"A", u"V"}});
        game.propose("BCDA");
        game.propose(wrong.substr(0, static_cast<std::size_t>(errors)));
        game.windows.take();
        game.propose("V");
        EXPECT_EQ(game.prompts(), Events{fileOf("tttbmt"[errors])}) << errors;
    }
}

TEST(Verdict, InMode2IsTheSameWhateverTheErrors) {
    for (std::size_t errors = 0; errors <= wrong.size(); ++errors) {
        Game game(false);
        game.start({.mode = 2, .words = {u"A"}});
        game.propose(wrong.substr(0, errors));
        game.windows.take();
        game.propose("A");
        EXPECT_EQ(game.prompts(), Events{"CesBien.Wav"}) << errors;
    }
}

TEST(WordFound, BringsFivePointsAndTurnsGreen) {
    for (const int mode : {1, 2, 3}) {
        Game game(false);
        game.start({.mode = mode, .words = {u"AB", u"CD"}});
        game.windows.take();
        game.propose("AB");
        EXPECT_EQ(game.g.scores.Score[1], 7) << mode;
        EXPECT_EQ(game.g.scores.MotsTrouves[1], 1) << mode;
        EXPECT_EQ(shown(game.menu.ImgScore[0].Caption), "7");
        // In mode 3 the word of player 2 follows at once, in blue.
        EXPECT_EQ(game.menu.AffMot[0].ForeColor.get(), mode == 3 ? colours::blue : colours::green);
        EXPECT_EQ(only(game.windows.take(), "FMenu.AffMot(0).ForeColor = #00FF00").size(), 1u);
    }
}

TEST(WordFound, AfterFiveErrorsOfSixStillBringsFivePointsAndVeryGood) {
    Game game;
    game.start({.words = {u"AB"}});
    game.propose("CDEFGA");
    game.windows.take();
    game.propose("B");
    EXPECT_EQ(game.g.scores.Score[1], 7);
    EXPECT_EQ(game.prompts(), Events{"Cestbien.Wav"});
    EXPECT_EQ(game.g.scores.MauvaisesLettres[1], 5);
}

TEST(WordFound, IsTestedBeforeTheErrorsSoAWordWithoutLettersIsFoundAtTheLimit) {
    for (const int mode : {1, 3}) {
        Game game(false);
        game.start({.mode = mode, .words = {u"1900", u"CD"}, .errors = 3});
        game.propose("AB");
        game.windows.take();
        game.propose("C");
        EXPECT_EQ(game.g.scores.MotsTrouves[1], 1) << mode;
        EXPECT_EQ(game.g.scores.Score[1], 5) << mode;
        EXPECT_EQ(game.g.scores.BonnesLettres[1], 0) << mode;
        EXPECT_EQ(game.prompts(), (Events{"CesPBon.Wav", "Cestbien.Wav"}));
    }
}

TEST(WordFound, WithoutLettersInMode2WithoutALimitIsLeftOnlyByStop) {
    Game game;
    game.start({.mode = 2, .words = {u"1900"}});
    game.propose("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    advance(game, 100);
    EXPECT_EQ(game.g.scores.MotsTrouves[1] + game.g.scores.MotsTrouves[2], 0);
    EXPECT_TRUE(game.menu.CmdJeux[0].Inactif);
    game.stop();
    EXPECT_FALSE(game.menu.CmdTjr[2].Inactif);
}

} // namespace grimoval::test::verdicts
