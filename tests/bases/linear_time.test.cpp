// SPDX-License-Identifier: GPL-3.0-or-later
// Bases and catalogues are read in a time in proportion to their size.
#include "support/game.h"

#include <algorithm>
#include <ctime>
#include <gtest/gtest.h>

namespace grimoval::test::linear_time {

// Ten times the size may take so many times the time, with room for a loaded machine: a reading
// that were quadratic would take a hundred times.
constexpr double loose = 25;

double processorSeconds() {
    return static_cast<double>(std::clock()) / static_cast<double>(CLOCKS_PER_SEC);
}

// The least of some runs, so that what the machine does besides counts less.
double seconds(int runs, const std::function<void()> &action) {
    double least = 1e9;
    for (int i = 0; i < runs; ++i) {
        const double begin = processorSeconds();
        action();
        least = std::min(least, processorSeconds() - begin);
    }
    return least;
}

Texte name(int number) { return u"B" + decimal(1000000 + number).substr(1); }

struct LinearTime : testing::Test {
    Game game;

    void writeBase(int words) {
        std::vector<Texte> all;
        for (int i = 0; i < words; ++i) {
            all.push_back(u"MOT" + decimal(i));
        }
        game.write(u"MASK/GRAND.DBS", wordRecords(all));
    }
    double load(int words, int runs) {
        writeBase(words);
        game.g.base.FichierBase = u"GRAND.DBS";
        const double time =
            seconds(runs, [this] { ChargerMots(game.g, game.menu, [](int) { FAIL(); }); });
        EXPECT_EQ(game.menu.LstMot[0].ListCount(), words);
        EXPECT_EQ(toUtf8(game.menu.LstMot[0].item(words - 1)), "MOT" + std::to_string(words - 1));
        return time;
    }
    // The records stand in the order that a search through the list of names likes least.
    double open(int bases, int runs) {
        std::string list;
        for (int i = 1; i <= bases; ++i) {
            const int file = bases + 1 - i;
            list += baseRecord(i, 1, name(file), u"Titre " + decimal(file));
            game.write(u"MASK/" + name(file) + u".DBS", std::string(84, ' '));
        }
        game.write(u"MASK/GRIMV.LST", list);
        const double time = seconds(runs, [this] {
            game.titles.unload();
            game.titles.load();
        });
        EXPECT_EQ(game.titles.LstTitre.ListCount(), bases);
        EXPECT_EQ(game.windows.messages.size(), 0u);
        return time;
    }
};

TEST_F(LinearTime, OfABaseOf32767Words) {
    const double small = load(3277, 5);
    const double large = load(32767, 2);
    EXPECT_LT(large, small * loose) << small << " s and " << large << " s";
}

TEST_F(LinearTime, OfACatalogueOf2000Bases) {
    const double small = open(200, 3);
    const double large = open(2000, 2);
    EXPECT_LT(large, small * loose) << small << " s and " << large << " s";
}

TEST_F(LinearTime, OfTheListOfAGameOf32767Words) {
    const auto prepare = [this](int words, int runs) {
        game.menu.LstMot[0].Items = std::vector<Texte>(static_cast<std::size_t>(words), u"MOT");
        game.windows.take();
        const double time = seconds(runs, [this] { game.menu.PreparerListe(); });
        EXPECT_EQ(game.menu.LstMot[1].ListCount(), words);
        game.windows.take();
        return time;
    };
    const double small = prepare(3277, 5);
    const double large = prepare(32767, 2);
    EXPECT_LT(large, small * loose) << small << " s and " << large << " s";
}

} // namespace grimoval::test::linear_time
