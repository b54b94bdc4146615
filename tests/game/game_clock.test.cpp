// SPDX-License-Identifier: GPL-3.0-or-later
// The length of a game, measured by a timer of one second.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::game_clock {

struct GameClock : testing::Test {
    Game game;
    ScoresPartie &scores = game.g.scores;
};

TEST_F(GameClock, CountsFromTheEndOfNewGameToItsStop) {
    game.clock.set({2026, 3, 7, 14, 5, 9});
    game.start({.words = {u"AB"}});
    EXPECT_EQ(scores.HeureDebut, (14 * 60 + 5) * 60 + 9);
    advance(game, 75);
    EXPECT_EQ(scores.HeureCourante, (14 * 60 + 6) * 60 + 24);
    EXPECT_EQ(scores.TempsEcoule, 75);
    game.propose("AB");
    game.stop();
    advance(game, 100);
    EXPECT_EQ(scores.TempsEcoule, 75); // until the next game
}

TEST_F(GameClock, DoesNotCountBeforeTheFirstGame) {
    advance(game, 100);
    EXPECT_EQ(scores.TempsEcoule, 0);
    EXPECT_EQ(scores.HeureCourante, 0);
}

TEST_F(GameClock, GoesOnOverMidnight) {
    game.clock.set({2026, 12, 31, 23, 59, 50});
    game.start({.words = {u"AB"}});
    advance(game, 9);
    EXPECT_EQ(scores.TempsEcoule, 9);
    advance(game, 1);
    EXPECT_EQ(scores.HeureCourante, 0);
    EXPECT_EQ(scores.TempsEcoule, 10);
    advance(game, 3600);
    EXPECT_EQ(scores.TempsEcoule, 3610);
}

TEST_F(GameClock, IsTakenModulo24Hours) {
    game.start({.words = {u"AB"}});
    game.clock.elapsed += 24 * 3600 * 1000LL; // the machine slept for a day
    advance(game, 5);
    EXPECT_EQ(scores.TempsEcoule, 5);
}

TEST_F(GameClock, OfAGameStoppedInItsFirstSecondIsThatOfThePreviousOne) {
    game.start({.mode = 2, .words = {u"AB"}});
    advance(game, 42);
    game.stop();
    ASSERT_TRUE(game.menu.CmdTjr[2].userClick());
    int told = -1;
    game.windows.expectModal("FScore2", [&](Form &form) {
        told = scores.TempsEcoule;
        form.requestClose();
    });
    ASSERT_TRUE(game.menu.CmdTjr[0].userClick());
    EXPECT_EQ(told, 42);
}

TEST_F(GameClock, TicksEachSecondFromTheLoadingOfTheWindowOn) {
    EXPECT_EQ(game.menu.MinutHorloge.Interval.get(), 1000);
    EXPECT_TRUE(game.menu.MinutHorloge.Enabled);
}

} // namespace grimoval::test::game_clock
