// SPDX-License-Identifier: GPL-3.0-or-later
// Counters are 16-bit: one that would pass 32,767 is failure 6, never a wrap.
#include "support/failures.h"
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::counters {

struct Row {
    const char *name;
    std::function<Int16 &(Game &)> counter;
    int mode;
    std::function<void(Game &)> act; // what adds 1 to it
};

Int16 &of(std::array<Int16, 3> &counter) { return counter[1]; }

const std::vector<Row> &rows() {
    static const std::vector<Row> all = {
        {"BonnesLettres", [](Game &g) -> Int16 & { return of(g.g.scores.BonnesLettres); }, 1,
         [](Game &g) { g.click('A'); }},
        {"Score", [](Game &g) -> Int16 & { return of(g.g.scores.Score); }, 1,
         [](Game &g) { g.click('A'); }},
        {"MotsTrouves", [](Game &g) -> Int16 & { return of(g.g.scores.MotsTrouves); }, 2,
         [](Game &g) { g.click('A'), g.click('B'); }},
        {"ErreursMot", [](Game &g) -> Int16 & { return of(g.menu.ErreursMot); }, 1,
         [](Game &g) { g.click('Z'); }},
        {"MauvaisesLettres", [](Game &g) -> Int16 & { return of(g.g.scores.MauvaisesLettres); }, 2,
         [](Game &g) { g.click('Z'); }},
        {"ChangementsTour", [](Game &g) -> Int16 & { return of(g.g.scores.ChangementsTour); }, 2,
         [](Game &g) { g.click('Z'); }},
        {"Abandons", [](Game &g) -> Int16 & { return of(g.g.scores.Abandons); }, 1,
         [](Game &g) { g.menu.CmdJeux[1].userClick(); }},
        {"NbMotsProposes", [](Game &g) -> Int16 & { return g.g.scores.NbMotsProposes; }, 2,
         [](Game &g) { g.click('A'), g.click('B'), g.menu.CmdJeux[0].userClick(); }},
    };
    return all;
}

TEST(Counter, AtItsGreatestEndsInFailure6) {
    for (const Row &row : rows()) {
        Game game(false);
        game.start({.mode = row.mode, .words = {u"AB", u"CD"}});
        row.counter(game) = 32767;
        EXPECT_EQ(failureNumber([&] { row.act(game); }), 6) << row.name;
        EXPECT_EQ(row.counter(game), 32767) << row.name;
    }
}

TEST(Counter, OneBelowItsGreatestStillCounts) {
    for (const Row &row : rows()) {
        Game game(false);
        game.start({.mode = row.mode, .words = {u"AB", u"CD"}});
        row.counter(game) = 32766;
        EXPECT_EQ(failureNumber([&] { row.act(game); }), 0) << row.name;
        EXPECT_EQ(row.counter(game), 32767) << row.name;
    }
}

TEST(Counter, OfTheScoreFailsAtTheFivePointsToo) {
    Game game(false);
    game.start({.words = {u"A"}});
    game.g.scores.Score[1] = 32762;
    EXPECT_EQ(failureNumber([&] { game.click('A'); }), 6);
    EXPECT_EQ(game.g.scores.Score[1], 32763); // the good letter was booked
}

TEST(Counter, OfABaseBeyond32767WordsFailsWhenTheListIsPrepared) {
    Game game(false);
    game.prepare({.words = std::vector<Texte>(32768, u"A")});
    EXPECT_EQ(failureNumber([&] { game.menu.CmdTjr[2].userClick(); }), 6);
}

TEST(Counter, AloneIs16BitTheShareOfTheScoreGaugeIsReckonedWide) {
    Game game(false);
    game.start({.words = std::vector<Texte>(32767, u"A")});
    game.g.scores.MotsTrouves[1] = 32766;
    game.g.scores.Score[1] = 0;
    EXPECT_EQ(failureNumber([&] { game.click('A'); }), 0);
    EXPECT_EQ(game.menu.FluxScore.Valeur.get(), 32767);
    EXPECT_EQ(shown(game.menu.FluxScore.TexteFlux), "32767/1");
}

} // namespace grimoval::test::counters
