// SPDX-License-Identifier: GPL-3.0-or-later
// A game that has just ended, whose counters are known numbers.
#pragma once

#include "support/game.h"

namespace grimoval::test {

struct Scored : Game {
    explicit Scored(int mode, bool limited = true) {
        prepare({.mode = mode, .limited = limited, .seconds = 45});
        ScoresPartie &s = g.scores;
        s.NbMotsProposes = 7;
        s.NbMotsBase = 40;
        s.MotsTrouves = {0, 4, 3};
        s.MauvaisesLettres = {0, 12, 9};
        s.BonnesLettres = {0, 31, 22};
        s.Abandons = {0, 2, 1};
        s.Score = {0, 51, 37};
        s.TempsEcoule = 3725;
    }
};

} // namespace grimoval::test
