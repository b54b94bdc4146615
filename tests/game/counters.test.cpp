// SPDX-License-Identifier: GPL-3.0-or-later
// Counters are 16-bit: one that would pass 32,767 is failure 6, never a wrap.
#include "support/failures.h"
#include "support/game.h"
#include "support/startup.h"

#include <gtest/gtest.h>

namespace grimoval::test::counters {

struct Row {
    const char *name;
    std::function<Int16 &(Game &)> counter;
    int mode;
    std::function<void(Game &)> act;         // what adds 1 to it
    std::function<void(Game &)> before = {}; // what makes it the counter's turn
    int errors = 6;                          // that lose a word
    bool limited = false;                    // to 5 seconds
};

Int16 &of(std::array<Int16, 3> &counter, std::size_t player = 1) { return counter[player]; }

// In mode 3 the second player's half begins when the first player's word is found.
void secondHalf(Game &g) {
    for (const char letter : toUtf8(g.menu.MotCherche[1])) {
        g.click(letter);
    }
}
char secondWord(Game &g) { return toUtf8(g.menu.MotCherche[2]).front(); }

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
        // The other players, and the other ways to the same counter.
        {"BonnesLettres of player 2 in mode 2",
         [](Game &g) -> Int16 & { return of(g.g.scores.BonnesLettres, 2); }, 2,
         [](Game &g) { g.click('A'); }, [](Game &g) { g.click('Z'); }},
        {"ChangementsTour of player 2 in mode 2",
         [](Game &g) -> Int16 & { return of(g.g.scores.ChangementsTour, 2); }, 2,
         [](Game &g) { g.click('Y'); }, [](Game &g) { g.click('Z'); }},
        {"ChangementsTour of player 1 in mode 3",
         [](Game &g) -> Int16 & { return of(g.g.scores.ChangementsTour); }, 3, secondHalf},
        {"Score of player 2 in mode 3", [](Game &g) -> Int16 & { return of(g.g.scores.Score, 2); },
         3, [](Game &g) { g.click(secondWord(g)); }, secondHalf},
        {"ErreursMot of player 2 in mode 3",
         [](Game &g) -> Int16 & { return of(g.menu.ErreursMot, 2); }, 3,
         [](Game &g) { g.click('Z'); }, secondHalf},
        {"Abandons of player 2 in mode 3",
         [](Game &g) -> Int16 & { return of(g.g.scores.Abandons, 2); }, 3,
         [](Game &g) { g.menu.CmdJeux[2].userClick(); }, secondHalf},
        {"MauvaisesLettres at the end of a word",
         [](Game &g) -> Int16 & { return of(g.g.scores.MauvaisesLettres); },
         1,
         [](Game &g) { g.click('Z'); },
         {},
         1},
        {"MauvaisesLettres at a time-out",
         [](Game &g) -> Int16 & { return of(g.g.scores.MauvaisesLettres); },
         1,
         [](Game &g) { advance(g, 6); },
         {},
         1,
         true},
        {"MauvaisesLettres of player 2 at a time-out in mode 3",
         [](Game &g) -> Int16 & { return of(g.g.scores.MauvaisesLettres, 2); }, 3,
         [](Game &g) { advance(g, 6); }, secondHalf, 1, true},
    };
    return all;
}

// Up to the moment before it counts.
void begin(Game &game, const Row &row) {
    game.start({.mode = row.mode,
                .words = {u"AB", u"CD"},
                .errors = row.errors,
                .limited = row.limited,
                .seconds = 5});
    if (row.before) {
        row.before(game);
    }
}

TEST(Counter, AtItsGreatestEndsInFailure6) {
    for (const Row &row : rows()) {
        Game game(false);
        begin(game, row);
        row.counter(game) = 32767;
        EXPECT_EQ(failureNumber([&] { row.act(game); }), 6) << row.name;
        EXPECT_EQ(row.counter(game), 32767) << row.name;
    }
}

TEST(Counter, OneBelowItsGreatestStillCounts) {
    for (const Row &row : rows()) {
        Game game(false);
        begin(game, row);
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

// None of the windows on the way takes the failure for its own: it ends the program.
TEST(Counter, AtItsGreatestEndsTheWholeProgram) {
    Startup start;
    start.atMenu = [&] {
        FMenu &menu = start.all.menu;
        menu.LstMot[0].Items = {u"AB"};
        start.g.base.BaseChargee = true;
        start.g.joueurs.NomJoueur[1] = Texte(u"DURAND");
        menu.AfficherJoueurs();
        ASSERT_TRUE(menu.CmdTjr[2].userClick());
        start.g.scores.Score[1] = 32767;
        menu.VsAlpha[0].userClick();
        ADD_FAILURE() << "the game went on";
    };
    EXPECT_EQ(failureNumber([&] { start.run(); }), 6);
    EXPECT_TRUE(start.windows.messages.empty());
}

// The words not found, reckoned for the window, the record and the report, too.
TEST(Counter, ThatIsADifferenceEndsInFailure6WhereTheWindowShowsIt) {
    for (const int mode : {1, 3}) {
        Game game;
        game.prepare({.mode = mode});
        game.g.scores.NbMotsProposes = 32767;
        game.g.scores.MotsTrouves[mode == 1 ? 1 : 2] = -1;
        EXPECT_EQ(failureNumber([&] { game.score.show(); }), 6) << mode;
    }
}

} // namespace grimoval::test::counters
