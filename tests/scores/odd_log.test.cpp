// SPDX-License-Identifier: GPL-3.0-or-later
// Something else in the place of a file of the log, or of a whole folder: it is told, nothing
// waits, and what was in the log stays.
#include "support/conditions.h"
#include "support/game.h"
#include "support/odd_files.h"

#include <algorithm>
#include <fcntl.h>
#include <gtest/gtest.h>

namespace grimoval::test::odd_log {

const Texte user = u"donnees/Calvenor/Le Grimoval/";
const Texte journal = user + u"SCORGRIM.TXT", previous = user + u"SCORGRIM.BAK";

struct OddLog : testing::Test {
    Game game;

    OddLog() { game.prepare({}); }
    std::string record() {
        const Deadline deadline(20);
        game.score.show();
        EXPECT_TRUE(game.score.CmdScore[0].userClick());
        EXPECT_FALSE(game.score.isLoaded());
        EXPECT_EQ(game.screen.MousePointer, 0);
        const std::string told =
            game.windows.messages.empty() ? "" : toUtf8(game.windows.messages.back().text);
        game.windows.messages.clear();
        return told;
    }
};

const std::pair<std::string, const char *> said[] = {
    {"pipe", "ERREUR 68\u00A0: Lecteur /: non disponible."},
    {"folder", "L'ERREUR 75 est survenue."},
    {"endlessDevice", "L'ERREUR 75 est survenue."},
    {"fullDevice", "L'ERREUR 75 est survenue."},
    {"linkToItself", "ERREUR 76\u00A0: Ce chemin d'accès n'existe pas."},
    {"linkIntoNothing", "L'ERREUR 53 est survenue."},
};

TEST_F(OddLog, IsToldAndTheNextRecordGoesIntoTheLogThatIsThereAgain) {
    for (const OddFile &odd : oddFiles()) {
        SCOPED_TRACE(odd.name);
        const auto *expected = std::find_if(std::begin(said), std::end(said),
                                            [&](const auto &row) { return row.first == odd.name; });
        ASSERT_NE(expected, std::end(said));
        put(odd, game.folder, journal);
        EXPECT_EQ(record(), expected->second);
        std::filesystem::remove_all(game.folder.bytePath(journal));
        EXPECT_EQ(record(), "");
        EXPECT_NE(game.folder.read(journal).find("DURAND"), std::string::npos);
    }
}

TEST_F(OddLog, OfTheMonthBeforeIsToldAndTheLogStaysAsItIs) {
    EXPECT_EQ(record(), "");
    const std::string log = game.folder.read(journal);
    for (const OddFile &odd : oddFiles()) {
        SCOPED_TRACE(odd.name);
        put(odd, game.folder, previous);
        EXPECT_NE(record(), "");
        EXPECT_EQ(game.folder.read(journal), log);
    }
}

TEST_F(OddLog, OfAFolderThatMayNotBeWrittenIsToldAndStaysAsItIs) {
    EXPECT_EQ(record(), "");
    const std::string log = game.folder.read(journal);
    namespace fs = std::filesystem;
    fs::permissions(game.folder.bytePath(journal), fs::perms(0444)); // it may be the child's own
    fs::permissions(game.folder.bytePath(user), fs::perms(0555));
    {
        const OrdinaryUser child;
        EXPECT_EQ(record(), "L'ERREUR 70 est survenue.");
    }
    EXPECT_EQ(game.folder.read(journal), log);
    fs::permissions(game.folder.bytePath(user), fs::perms(0755));
}

// A log whose last-write time is of no month of this world is moved or goes on, as any other.
TEST_F(OddLog, OfAnyAgeIsWritten) {
    for (const long long second :
         {-5'000'000'000LL, -1LL, 0LL, 4'102'444'800LL, 99'999'999'999LL}) {
        SCOPED_TRACE(second);
        game.folder.write(journal, "ancien\r\n");
        const timespec moment{second, 0}, both[2] = {moment, moment};
        ASSERT_EQ(::utimensat(AT_FDCWD, game.folder.bytePath(journal).c_str(), both, 0), 0);
        EXPECT_EQ(record(), "");
        const std::string log = game.folder.read(journal);
        EXPECT_TRUE(log.starts_with("ancien\r\n---") || game.folder.read(previous) == "ancien\r\n");
        EXPECT_NE(log.find("DURAND"), std::string::npos);
    }
}

} // namespace grimoval::test::odd_log
