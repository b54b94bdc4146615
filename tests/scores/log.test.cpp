// SPDX-License-Identifier: GPL-3.0-or-later
// The log itself: its two files, the month that ends, the separator, and what can go wrong.
#include "support/conditions.h"
#include "support/game.h"

#include <cmath>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace grimoval::test {
namespace {

const Texte user = u"donnees/Calvenor/Le Grimoval/";
const Texte journal = user + u"SCORGRIM.TXT", previous = user + u"SCORGRIM.BAK";

struct Log : Game {
    Log() { prepare({}); }
    void record() {
        score.show();
        ASSERT_TRUE(score.CmdScore[0].userClick());
    }
    std::string firstLine() {
        const std::string text = folder.read(journal);
        return text.substr(0, text.find("\r\n"));
    }
    void write(const Texte &name, const std::string &bytes, const DateTime &written) {
        clock.set(written);
        files.replace(folder.path(name), bytes);
    }
    Texte told() { return windows.messages.empty() ? Texte() : windows.messages.back().text; }
};

TEST(Log, FirstUseMakesBothFilesAndMovesNothing) {
    Log log;
    log.record();
    EXPECT_EQ(log.folder.read(previous), "");
    EXPECT_EQ(log.firstLine(), std::string(68, '-'));
    EXPECT_TRUE(log.windows.messages.empty());
}

TEST(Log, RecordsFollowOneAnotherAndEarlierOnesStayAsTheyAre) {
    Log log;
    log.record();
    const std::string first = log.folder.read(journal);
    log.g.scores.NbMotsProposes = 3;
    log.record();
    const std::string both = log.folder.read(journal);
    EXPECT_EQ(both.substr(0, first.size()), first);
    EXPECT_EQ(both.size(), 2 * first.size());
}

TEST(Log, ANewMonthMovesTheWholeFileAndBeginsAnother) {
    Log log;
    log.record();
    const std::string oneRecord = log.folder.read(journal);
    log.write(previous, "janvier", {2026, 1, 31, 12, 0, 0});
    log.write(journal, "février\r\n", {2026, 2, 28, 23, 59, 59});
    log.clock.set({2026, 3, 7, 14, 5, 9});
    log.record();
    EXPECT_EQ(log.folder.read(previous), "février\r\n");
    EXPECT_EQ(log.folder.read(journal), oneRecord);
    // The next one of that month follows it.
    log.record();
    EXPECT_EQ(log.folder.read(journal), oneRecord + oneRecord);
    EXPECT_EQ(log.folder.read(previous), "février\r\n");
}

TEST(Log, TheSameMonthOfAnotherYearGoesOn) {
    Log log;
    log.write(journal, "mars\r\n", {2025, 3, 31, 12, 0, 0});
    log.clock.set({2026, 3, 1, 8, 0, 0});
    log.record();
    EXPECT_EQ(log.folder.read(journal).substr(0, 6), "mars\r\n");
    EXPECT_EQ(log.folder.read(previous), "");
}

TEST(Separator, IsAsWideAsThePrintedPage) {
    struct Row {
        double page, character;
        std::size_t dashes;
    };
    for (const Row &row : {Row{11000, 120, 92}, Row{1200, 120, 10}, Row{1201, 120, 11},
                           Row{0, 120, 0}, Row{-5, 120, 0}, Row{480000, 120, 4000}}) {
        Log log;
        log.printer.measures = {row.page, row.character, 240};
        log.record();
        EXPECT_EQ(log.firstLine(), std::string(row.dashes, '-')) << row.page;
    }
}

TEST(Separator, HasSixtyEightDashesForAPrinterThatAnswersNonsense) {
    const double infinite = HUGE_VAL, none = std::nan("");
    for (const auto &[page, character] : {std::pair{11000.0, 0.0},
                                          {11000.0, -3.0},
                                          {infinite, 120.0},
                                          {none, 120.0},
                                          {11000.0, none},
                                          {1e12, 1e-3},
                                          {480001.0, 120.0}}) {
        Log log;
        log.printer.measures = {page, character, 240};
        log.record();
        EXPECT_EQ(log.firstLine(), std::string(68, '-')) << page << " " << character;
    }
}

TEST(Failure, AFullDiskIsToldAndEarlierRecordsStayWhole) {
    Log log;
    log.folder.makeFolder(u"petit");
    const SmallDisk disk(log.folder.bytePath(u"petit"), "64k");
    if (!disk.there()) {
        GTEST_SKIP() << "no file system can be mounted here";
    }
    log.g.dossiers.DossierScore = log.folder.path(u"petit");
    log.record();
    const std::string first = log.folder.read(u"petit/SCORGRIM.TXT");
    try {
        for (int i = 0; i < 4096; ++i) {
            AppendFile(log.files, log.folder.path(u"petit/reste")).write(std::string(64, 'x'));
        }
        FAIL() << "the disk does not fill";
    } catch (const grimoval::Failure &full) {
        ASSERT_EQ(full.number, failure::diskFull);
    }
    // What is left of the last block of the file is used up, too.
    for (int i = 0; i < 40 && log.windows.messages.empty(); ++i) {
        log.record();
    }
    EXPECT_EQ(log.told(), u"Disque / est saturé.");
    EXPECT_EQ(log.windows.messages.back().title, u"Le Grimoval v3.0");
    EXPECT_EQ(log.windows.messages.back().icon, MessageIcon::critical);
    EXPECT_EQ(log.folder.read(u"petit/SCORGRIM.TXT").substr(0, first.size()), first);
    EXPECT_FALSE(log.score.isLoaded());
    EXPECT_EQ(log.screen.MousePointer, 0);
}

TEST(Failure, ADeviceThatIsGoneIsTold) {
    Log log;
    // A pipe that nobody reads answers a writer as a device that is away.
    ASSERT_EQ(::mkfifo(log.folder.bytePath(journal).c_str(), 0600), 0);
    log.record();
    EXPECT_EQ(toUtf8(log.told()), "ERREUR 68\u00A0: Lecteur /: non disponible.");
}

TEST(Failure, AFolderThatIsGoneIsTold) {
    Log log;
    log.g.dossiers.DossierScore = log.folder.path(u"absent");
    log.record();
    EXPECT_EQ(toUtf8(log.told()), "ERREUR 76\u00A0: Ce chemin d'accès n'existe pas.");
    EXPECT_EQ(log.g.dossiers.DossierScore.back(), separator); // the value stays changed
}

TEST(Log, AProcessKilledWhileItWritesLeavesEarlierRecordsWhole) {
    Log log;
    log.record();
    const std::string first = log.folder.read(journal);
    for (int instant = 0; instant < 40; ++instant) {
        const pid_t writer = ::fork();
        ASSERT_GE(writer, 0);
        if (writer == 0) {
            for (;;) {
                log.score.show();
                log.score.CmdScore[0].userClick();
            }
        }
        ::usleep(static_cast<useconds_t>(instant * 137));
        ::kill(writer, SIGKILL);
        ASSERT_EQ(::waitpid(writer, nullptr, 0), writer);
        const std::string text = log.folder.read(journal);
        ASSERT_EQ(text.substr(0, first.size()), first);
        // Every record but the last is whole, and what is cut there is the beginning of one.
        for (std::size_t i = first.size(); i < text.size(); i += first.size()) {
            const std::string record = text.substr(i, first.size());
            ASSERT_EQ(record, first.substr(0, record.size()));
        }
        log.files.replace(log.folder.path(journal), first); // as old as the clock says
    }
}

TEST(Failure, AnyOtherIsToldByItsNumberAndLeavesTheRecordUnwritten) {
    Log log;
    log.folder.makeFolder(journal); // a folder in the file's place
    log.score.show();
    log.score.EcrireScore();
    EXPECT_EQ(log.told(), u"L'ERREUR 75 est survenue.");
    EXPECT_TRUE(log.score.ScoreNonEcrit);
}

} // namespace
} // namespace grimoval::test
