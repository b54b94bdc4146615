// SPDX-License-Identifier: GPL-3.0-or-later
// The clock is set, or the machine sleeps, while a game runs: the thinking time counts the seconds
// that really pass, the length of the game is the difference of two times of day, never negative.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::clock_changes {

struct Change {
    const char *name;
    DateTime start;
    int before;  // seconds played
    DateTime to; // then the clock is set
    int after;   // seconds played
    const char *length, *stamp;
};

// Nothing is set: the clock passes by itself.
constexpr DateTime noChange{};

const Change changes[] = {
    {"setBackFiveMinutes",
     {2026, 3, 7, 14, 5, 0},
     60,
     {2026, 3, 7, 14, 1, 0},
     10,
     "23:56:10",
     "Samedi, 07 mars 2026 à 14:01:10"},
    {"setForwardAnHour",
     {2026, 3, 7, 14, 5, 0},
     60,
     {2026, 3, 7, 15, 6, 0},
     10,
     "01:01:10",
     "Samedi, 07 mars 2026 à 15:06:10"},
    {"summerTimeBegins",
     {2026, 3, 29, 1, 59, 50},
     9,
     {2026, 3, 29, 2, 59, 59},
     2,
     "01:00:11",
     "Dimanche, 29 mars 2026 à 03:00:01"},
    {"summerTimeEnds",
     {2026, 10, 25, 2, 59, 50},
     9,
     {2026, 10, 25, 1, 59, 59},
     2,
     "23:00:11",
     "Dimanche, 25 octobre 2026 à 02:00:01"},
    {"aYearBack",
     {2026, 3, 7, 14, 5, 0},
     60,
     {2025, 3, 7, 14, 6, 0},
     10,
     "00:01:10",
     "Vendredi, 07 mars 2025 à 14:06:10"},
    {"toTheDayBeforeAllDays",
     {2026, 3, 7, 14, 5, 0},
     60,
     {1970, 1, 1, 0, 0, 0},
     10,
     "09:55:10",
     "Jeudi, 01 janvier 1970 à 00:00:10"},
    {"aSleepOfThreeHours",
     {2026, 3, 7, 14, 5, 0},
     5,
     {2026, 3, 7, 17, 5, 5},
     5,
     "03:00:10",
     "Samedi, 07 mars 2026 à 17:05:10"},
    {"aSleepOfAWeekAndAnHour",
     {2026, 3, 7, 14, 5, 0},
     5,
     {2026, 3, 14, 15, 5, 5},
     5,
     "01:00:10",
     "Samedi, 14 mars 2026 à 15:05:10"},
    {"midnight",
     {2026, 3, 7, 23, 59, 55},
     5,
     noChange,
     5,
     "00:00:10",
     "Dimanche, 08 mars 2026 à 00:00:05"},
    {"theEndOfAYear",
     {2026, 12, 31, 23, 59, 55},
     5,
     noChange,
     5,
     "00:00:10",
     "Vendredi, 01 janvier 2027 à 00:00:05"},
    {"intoALeapDay",
     {2028, 2, 28, 23, 59, 55},
     5,
     noChange,
     5,
     "00:00:10",
     "Mardi, 29 février 2028 à 00:00:05"},
    {"outOfALeapDay",
     {2028, 2, 29, 23, 59, 55},
     5,
     noChange,
     5,
     "00:00:10",
     "Mercredi, 01 mars 2028 à 00:00:05"},
    {"noLeapDayIn2100",
     {2100, 2, 28, 23, 59, 55},
     5,
     noChange,
     5,
     "00:00:10",
     "Lundi, 01 mars 2100 à 00:00:05"},
};

struct ClockChange : testing::TestWithParam<Change> {
    Game game;

    void play(int before, int after) {
        advance(game, before);
        if (!(GetParam().to == noChange)) {
            game.clock.set(GetParam().to);
        }
        advance(game, after);
    }
};

TEST_P(ClockChange, GivesALengthBelowADayInTheWindowsAndInTheLog) {
    const Change &change = GetParam();
    game.clock.set(change.start);
    game.start({.words = {u"AB"}});
    play(change.before, change.after);
    EXPECT_GE(game.g.scores.TempsEcoule, 0);
    EXPECT_LT(game.g.scores.TempsEcoule, 24 * 3600);
    game.propose("AB");
    game.windows.expectModal("FScore2",
                             [this](Form &) { EXPECT_TRUE(game.score.CmdScore[0].userClick()); });
    ASSERT_TRUE(game.menu.CmdTjr[0].userClick());
    EXPECT_TRUE(game.windows.messages.empty());
    const std::string record =
        toUtf8(fromAnsi(game.folder.read(u"donnees/Calvenor/Le Grimoval/SCORGRIM.TXT")));
    EXPECT_NE(record.find(std::string("Temps écoulé : ") + change.length + "\r\n"),
              std::string::npos)
        << record;
    EXPECT_NE(record.find(change.stamp), std::string::npos) << record;
}

// The gauge of 20 seconds does not look at the clock.
TEST_P(ClockChange, LeavesTheThinkingTimeWhatItIsAndStrikesOnce) {
    game.clock.set(GetParam().start);
    game.start({.words = {u"AB"}, .errors = 3, .limited = true, .seconds = 20});
    play(9, 10);
    EXPECT_EQ(game.menu.FluReflec.Valeur.get(), 19);
    EXPECT_EQ(shown(game.menu.FluReflec.TexteFlux), "19");
    EXPECT_EQ(game.menu.ErreursMot[1], 0);
    game.windows.take();
    advance(game, 1);
    EXPECT_EQ(game.prompts(), Events{"TropTar.Wav"});
    EXPECT_EQ(game.g.scores.MauvaisesLettres[1], 3);
    advance(game, 100);
    EXPECT_EQ(game.prompts(), Events{});
    EXPECT_EQ(game.g.scores.MauvaisesLettres[1], 3);
}

INSTANTIATE_TEST_SUITE_P(Of, ClockChange, testing::ValuesIn(changes),
                         [](const auto &change) { return change.param.name; });

// A second that some clocks insert at the end of a day.
TEST(LeapSecond, GivesALengthBelowADay) {
    Game game;
    game.start({.words = {u"AB"}});
    for (const int begun : {0, 86399, 86400}) {
        for (const DateTime &now : {DateTime{2026, 12, 31, 23, 59, 60}, {2027, 1, 1, 0, 0, 0}}) {
            game.g.scores.HeureDebut = begun;
            game.clock.start = now;
            game.clock.elapsed = 0;
            game.menu.MinutHorloge_Timer();
            EXPECT_GE(game.g.scores.TempsEcoule, 0);
            EXPECT_LT(game.g.scores.TempsEcoule, 24 * 3600);
        }
    }
}

} // namespace grimoval::test::clock_changes
