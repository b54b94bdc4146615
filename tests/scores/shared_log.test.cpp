// SPDX-License-Identifier: GPL-3.0-or-later
// Several games on one account write one log.
#include "support/game.h"

#include <ctime>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace grimoval::test::shared_log {

const Texte journal = u"donnees/Calvenor/Le Grimoval/SCORGRIM.TXT",
            previous = u"donnees/Calvenor/Le Grimoval/SCORGRIM.BAK";

struct SharedLog : testing::TestWithParam<bool> {
    // Files bear the time of the system, set with the writing: one that is set after it would for
    // an instant be that of another month.
    SharedLog() {
        game.prepare({});
        const std::time_t now = std::time(nullptr);
        std::tm local{};
        ::localtime_r(&now, &local);
        game.clock.set({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, 12, 0, 0});
        game.files.writeTime = nullptr;
    }

    void record() {
        game.score.show();
        game.score.CmdScore[0].userClick();
    }
    // All of one length.
    static Texte family(int number) { return u"JOUEUR" + decimal(100 + number); }

    // Each in a process of its own, all let loose at one moment.
    void recordAtOnce(int players) {
        int gate[2];
        ASSERT_EQ(::pipe(gate), 0);
        std::vector<pid_t> writers;
        for (int player = 0; player < players; ++player) {
            const pid_t writer = ::fork();
            ASSERT_GE(writer, 0);
            if (writer == 0) {
                char none = 0;
                ::close(gate[1]);
                game.g.joueurs.NomJoueur[1] = family(player);
                const bool opened = ::read(gate[0], &none, 1) == 0;
                record();
                ::_exit(opened && game.windows.messages.empty() ? 0 : 1);
            }
            writers.push_back(writer);
        }
        ::close(gate[0]);
        ::close(gate[1]);
        for (const pid_t writer : writers) {
            int status = -1;
            ASSERT_EQ(::waitpid(writer, &status, 0), writer);
            EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
        }
    }

    Game game;
};

TEST_P(SharedLog, HoldsTheRecordsOfAHundredGamesAtOnceWholeAndNoneTwice) {
    constexpr int players = 100;
    game.g.joueurs.NomJoueur[1] = family(players);
    record();
    const std::string one = game.folder.read(journal), name = toUtf8(family(players));
    const std::size_t place = one.find(name);
    ASSERT_NE(place, std::string::npos);
    if (!GetParam()) {
        game.files.remove(game.folder.path(journal));
    }
    recordAtOnce(players);
    const std::string log = game.folder.read(journal);
    const std::size_t expected = players + (GetParam() ? 1 : 0);
    ASSERT_EQ(log.size(), expected * one.size());
    std::set<std::string> names;
    for (std::size_t start = 0; start < log.size(); start += one.size()) {
        std::string record = log.substr(start, one.size());
        names.insert(record.substr(place, name.size()));
        record.replace(place, name.size(), name);
        ASSERT_EQ(record, one);
    }
    EXPECT_EQ(names.size(), expected);
}

INSTANTIATE_TEST_SUITE_P(Written, SharedLog, testing::Bool(), [](const auto &before) {
    return before.param ? "before" : "forTheFirstTime";
});

TEST(SharedLogOfAMonthThatEnds, MovedMeanwhileByAnotherGameIsBegunAnew) {
    Game game;
    game.prepare({});
    game.clock.set({2026, 2, 28, 12, 0, 0});
    game.files.replace(game.folder.path(journal), "février");
    game.clock.set({2026, 3, 1, 8, 0, 0});
    bool moved = false;
    // The time of the first file that is made: that of the month before, which is missing.
    game.files.writeTime = [&] {
        if (!std::exchange(moved, true)) {
            std::filesystem::rename(game.folder.bytePath(journal), game.folder.bytePath(previous));
        }
        return game.clock.now();
    };
    game.score.show();
    EXPECT_TRUE(game.score.CmdScore[0].userClick());
    EXPECT_TRUE(moved);
    EXPECT_TRUE(game.windows.messages.empty());
    EXPECT_EQ(game.folder.read(previous), "février");
    EXPECT_TRUE(game.folder.read(journal).starts_with("---"));
}

} // namespace grimoval::test::shared_log
