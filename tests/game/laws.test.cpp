// SPDX-License-Identifier: GPL-3.0-or-later
// Laws that hold at every step of every game, each told on its own.
#include "support/rules.h"
#include "tools/script/program.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace grimoval::test::laws {

using Counters = std::vector<int>;

Counters counters(const ScoresPartie &s) {
    Counters all{s.NbMotsProposes};
    for (const std::size_t p : {1u, 2u}) {
        for (const auto *counter :
             {&s.Score, &s.MotsTrouves, &s.MauvaisesLettres, &s.BonnesLettres, &s.Abandons}) {
            all.push_back((*counter)[p]);
        }
    }
    return all;
}

std::vector<std::string> variables(Game &game) {
    std::vector<std::string> lines;
    script::printVariables(game.g, game.menu,
                           [&lines](const std::string &line) { lines.push_back(line); });
    return lines;
}

void holdAtOneStep(Game &game) {
    FMenu &menu = game.menu;
    const ScoresPartie &s = game.g.scores;
    const int mode = game.g.reglages.NombreJoueur;
    for (const std::size_t p : {1u, 2u}) {
        RC_ASSERT(s.Score[p] == s.BonnesLettres[p] + 5 * s.MotsTrouves[p]);
        RC_ASSERT(menu.ErreursMot[p] >= 0);
        RC_ASSERT(menu.ErreursMot[p] <= (mode == 2 ? 1 : int{game.g.reglages.NombreErreur}));
    }
    RC_ASSERT(menu.Shape1.Height.get() >= 1);
    RC_ASSERT(menu.Shape1.Height.get() <= 200);
    RC_ASSERT(mode != 2 || !menu.Shape1.Visible);
    for (const std::size_t slot : {1u, 2u}) {
        const Texte &word = menu.MotCherche[slot], &masked = menu.MotAffiche[slot];
        RC_ASSERT(word.size() == masked.size());
        if (word.empty()) {
            continue;
        }
        RC_ASSERT(static_cast<std::size_t>(menu.LongueurMot[slot]) == lengthInPlay(word));
        for (std::size_t i = 0; i < word.size(); ++i) {
            // In the base a '#' may stand for itself.
            const char16_t capital = upper(word[i]);
            const bool maskable = i < lengthInPlay(word) && capital >= u'A' && capital <= u'Z';
            RC_ASSERT(masked[i] == word[i] || (masked[i] == u'#' && maskable));
        }
    }
}

TEST(EveryStepOfEveryGame, KeepsScoresErrorsCurtainAndMaskedWordWithinTheirLaws) {
    checkGames(1000, anyGame(), [](const RandomGame &random) {
        Game game(false);
        game.random.numbers.assign(random.draws.begin(), random.draws.end());
        game.prepare(random.start);
        perform(game, {Action::begin});
        holdAtOneStep(game);
        for (const Action &action : random.actions) {
            perform(game, action);
            holdAtOneStep(game);
        }
    });
}

TEST(EveryStepOfEveryGame, LetsTheCountersOnlyGrowUntilTheScoreWindowClearsThem) {
    checkGames(500, anyGame(), [](const RandomGame &random) {
        Game game(false);
        game.random.numbers.assign(random.draws.begin(), random.draws.end());
        game.prepare(random.start);
        perform(game, {Action::begin});
        Counters before = counters(game.g.scores);
        std::array<Int16, 3> turns = game.g.scores.ChangementsTour;
        for (const Action &action : random.actions) {
            game.windows.take();
            perform(game, action);
            const Counters after = counters(game.g.scores);
            if (!only(game.windows.take(), "fenetre FScore2 dechargee").empty()) {
                RC_ASSERT(std::all_of(after.begin(), after.end(), [](int n) { return n <= 1; }));
            } else {
                RC_ASSERT(std::equal(before.begin(), before.end(), after.begin(),
                                     [](int b, int a) { return b <= a; }));
            }
            before = after;
            for (const std::size_t p : {1u, 2u}) { // these are never cleared
                RC_ASSERT(turns[p] <= game.g.scores.ChangementsTour[p]);
            }
            turns = game.g.scores.ChangementsTour;
        }
    });
}

TEST(EveryStepOfEveryGame, ChangesNothingAtAClosedDoor) {
    checkGames(500, anyGame(), [](const RandomGame &random) {
        Game game(false);
        game.random.numbers.assign(random.draws.begin(), random.draws.end());
        game.prepare(random.start);
        perform(game, {Action::begin});
        for (const Action &action : random.actions) {
            const bool hasDoor = action.kind == Action::click || action.kind == Action::newWord ||
                                 action.kind == Action::answer || action.kind == Action::giveUp ||
                                 action.kind == Action::stop || action.kind == Action::begin;
            const auto before = hasDoor ? variables(game) : std::vector<std::string>();
            game.windows.take();
            if (!perform(game, action)) {
                RC_ASSERT(hasDoor);
                RC_ASSERT(variables(game) == before);
                RC_ASSERT(game.windows.take().empty());
            }
        }
    });
}

// Words lost or given up, as the prompts of a step tell: a time-out loses the word unless a verdict
// on a word found follows at once.
int wordsLost(const Events &events) {
    const Events prompts = only(events, "parole ");
    int lost = 0;
    for (std::size_t i = 0; i < prompts.size(); ++i) {
        const bool timeOut =
            prompts[i].starts_with("parole TropTar") || prompts[i].starts_with("parole PaassRap");
        const bool found = i + 1 < prompts.size() && prompts[i + 1].starts_with("parole Ces");
        if (prompts[i].starts_with("parole FauFaEff") || (timeOut && !found)) {
            ++lost;
        }
    }
    return lost;
}

TEST(EveryStepOfEveryGame, DrawsNoWordTwiceUnlessItWasGivenBack) {
    checkGames(500, anyGameOfDistinctWords(), [](const RandomGame &random) {
        Game game(false);
        game.random.numbers.assign(random.draws.begin(), random.draws.end());
        game.prepare(random.start);
        const bool pairs = random.start.mode == 3;
        std::multiset<Texte> possible;
        int proposed = 0;
        const auto account = [&](const Action &action) {
            const Texte inPlay = game.menu.MotCherche[1];
            game.windows.take();
            perform(game, action);
            const Events events = game.windows.take();
            if (!only(events, "parole AttCaCOm").empty()) { // a new game
                possible = {random.start.words.begin(), random.start.words.end()};
                proposed = 0;
            }
            for (int i = wordsLost(events); pairs && i > 0; --i) {
                possible.insert(inPlay);
            }
            if (game.g.scores.NbMotsProposes > proposed) {
                for (int slot = 1; slot <= (pairs ? 2 : 1); ++slot) {
                    const Texte &word = game.menu.MotCherche[static_cast<std::size_t>(slot)];
                    RC_ASSERT(possible.contains(word));
                    possible.erase(possible.find(word));
                }
            }
            proposed = game.g.scores.NbMotsProposes;
        };
        account({Action::begin});
        for (const Action &action : random.actions) {
            account(action);
        }
    });
}

} // namespace grimoval::test::laws
