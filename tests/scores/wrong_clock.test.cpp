// SPDX-License-Identifier: GPL-3.0-or-later
// A log that would give way is kept under the month of its last record: no clock, however wrong,
// and no neighbour costs a score.
#include "support/game.h"

#include <ctime>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace grimoval::test::wrong_clock {

const Texte user = u"donnees/Calvenor/Le Grimoval/";

struct WrongClock : testing::Test {
    Game game;

    WrongClock() { game.prepare({}); }
    void record(const DateTime &now, const Texte &family = u"DURAND") {
        game.clock.set(now);
        game.g.joueurs.NomJoueur[1] = family;
        game.score.show();
        ASSERT_TRUE(game.score.CmdScore[0].userClick());
        EXPECT_TRUE(game.windows.messages.empty());
    }
    void write(const Texte &name, const std::string &bytes, const DateTime &written) {
        game.clock.set(written);
        game.files.replace(game.folder.path(user + name), bytes);
    }
    std::string read(const Texte &name) const { return game.folder.read(user + name); }
    // The files of the user's folder.
    std::vector<std::string> all() const {
        std::vector<std::string> names;
        for (const Texte &name : Files().list(game.folder.path(user), u"*")) {
            names.push_back(toUtf8(name));
        }
        return names;
    }
};

using Names = std::vector<std::string>;

TEST_F(WrongClock, ForOneGameKeepsBothMonths) {
    write(u"SCORGRIM.BAK", "février\r\n", {2026, 2, 27, 12, 0, 0});
    write(u"SCORGRIM.TXT", "mars\r\n", {2026, 3, 6, 12, 0, 0});
    record({1970, 1, 1, 1, 0, 0}, u"MINUIT");
    EXPECT_EQ(read(u"SCORGRIM.BAK"), "mars\r\n"); // the two files are as ever
    EXPECT_NE(read(u"SCORGRIM.TXT").find("MINUIT"), std::string::npos);
    EXPECT_EQ(read(u"SCORGRIM-2026-02.BAK"), "février\r\n");
    record({2026, 3, 7, 12, 0, 0});
    EXPECT_NE(read(u"SCORGRIM.BAK").find("MINUIT"), std::string::npos);
    EXPECT_NE(read(u"SCORGRIM.TXT").find("DURAND"), std::string::npos);
    EXPECT_EQ(read(u"SCORGRIM-2026-02.BAK"), "février\r\n");
    EXPECT_EQ(read(u"SCORGRIM-2026-03.BAK"), "mars\r\n");
    EXPECT_EQ(all(), (Names{"SCORGRIM-2026-02.BAK", "SCORGRIM-2026-03.BAK", "SCORGRIM.BAK",
                            "SCORGRIM.TXT"}));
}

TEST_F(WrongClock, AgainAndAgainNeverWritesOverWhatIsKept) {
    write(u"SCORGRIM-2026-03.bak", "ancien", {2026, 3, 1, 12, 0, 0}); // whatever its case
    for (int i = 0; i < 4; ++i) {
        write(u"SCORGRIM.BAK", "mars " + std::to_string(i), {2026, 3, 6, 12, 0, i});
        write(u"SCORGRIM.TXT", "avril", {2026, 4, 6, 12, 0, 0});
        record({2026, 5, 1, 12, 0, 0});
    }
    EXPECT_EQ(read(u"SCORGRIM-2026-03.bak"), "ancien");
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(read(u"SCORGRIM-2026-03-" + decimal(i + 2) + u".BAK"),
                  "mars " + std::to_string(i));
    }
}

TEST_F(WrongClock, AYearOfRightMonthsKeepsEveryRecord) {
    for (int month = 1; month <= 12; ++month) {
        record({2026, month, 1, 8, 0, 0}, u"JOUEUR" + decimal(month));
        record({2026, month, 28, 8, 0, 0}, u"JOUEUR" + decimal(month));
    }
    for (int month = 1; month <= 12; ++month) {
        const Texte name = month == 12   ? Texte(u"SCORGRIM.TXT")
                           : month == 11 ? Texte(u"SCORGRIM.BAK")
                                         : u"SCORGRIM-2026-" + Texte(month < 10 ? u"0" : u"") +
                                               decimal(month) + u".BAK";
        const std::string log = read(name), player = toUtf8(u"JOUEUR" + decimal(month)) + " ";
        EXPECT_EQ(log.find(player) != std::string::npos, true) << toUtf8(name);
        EXPECT_NE(log.find(player), log.rfind(player)) << toUtf8(name);
    }
    EXPECT_EQ(all().size(), 12u); // and none for the month before the first, which held nothing
}

// All at the turn of a month, each in a process of its own. Files bear the time of the system, set
// with the writing: one that is set after it would for an instant be that of another month.
TEST_F(WrongClock, OfNoneOfFiftyGamesAtTheTurnOfAMonthLosesAScore) {
    constexpr int players = 50;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    const DateTime today{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, 12, 0, 0};
    for (int round = 0; round < 4; ++round) {
        SCOPED_TRACE(round);
        std::filesystem::remove_all(game.folder.bytePath(user));
        game.folder.makeFolder(user);
        game.files.writeTime = [&] { return DateTime{2020, today.month % 12 + 1, 15, 12, 0, 0}; };
        game.files.replace(game.folder.path(user + u"SCORGRIM.BAK"), "l'avant-dernier\r\n");
        game.files.replace(game.folder.path(user + u"SCORGRIM.TXT"), "le dernier\r\n");
        game.files.writeTime = nullptr;
        int gate[2];
        ASSERT_EQ(::pipe(gate), 0);
        std::vector<pid_t> writers;
        for (int player = 0; player < players; ++player) {
            const pid_t writer = ::fork();
            ASSERT_GE(writer, 0);
            if (writer == 0) {
                char none = 0;
                ::close(gate[1]);
                const bool opened = ::read(gate[0], &none, 1) == 0;
                record(today, u"J" + decimal(100 + player));
                ::_exit(opened && !HasFailure() ? 0 : 1);
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
        std::string everything;
        for (const std::string &name : all()) {
            EXPECT_TRUE(name.starts_with("SCORGRIM") && name.find('~') == std::string::npos)
                << name;
            everything += read(fromUtf8(name));
        }
        std::vector<std::string> wanted = {"l'avant-dernier\r\n", "le dernier\r\n"};
        for (int player = 0; player < players; ++player) {
            wanted.push_back("J" + std::to_string(100 + player) + " ");
        }
        for (const std::string &part : wanted) {
            EXPECT_NE(everything.find(part), std::string::npos) << part;
            EXPECT_EQ(everything.find(part), everything.rfind(part)) << part;
        }
    }
}

} // namespace grimoval::test::wrong_clock
