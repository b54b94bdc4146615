// SPDX-License-Identifier: GPL-3.0-or-later
// The session ends under the program: what it writes then, from wherever it stands, without a
// window, a question or a message.
#include "support/scored.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace grimoval::test {
namespace {

const Texte journal = u"donnees/Calvenor/Le Grimoval/SCORGRIM.TXT";

// What the log holds after `leave` has been done with a game of known counters.
template <class Leave>
std::string logAfter(int mode, Leave leave) {
    Scored scored(mode);
    leave(scored);
    return scored.folder.exists(journal) ? scored.folder.read(journal) : std::string();
}

void byEscape(Scored &scored) {
    scored.score.show();
    scored.score.pressKey({.code = Key::escape});
}

TEST(SessionEnd, LeavesTheRecordThatEscapeWouldWithTheScoreWindowUpOrNotYetOpen) {
    for (const int mode : {1, 2, 3}) {
        const std::string wanted = logAfter(mode, byEscape);
        ASSERT_FALSE(wanted.empty());
        EXPECT_EQ(logAfter(mode,
                           [](Scored &scored) {
                               scored.score.show();
                               scored.score.FinirSession();
                           }),
                  wanted);
        EXPECT_EQ(logAfter(mode, [](Scored &scored) { scored.score.FinirSession(); }), wanted);
    }
}

TEST(SessionEnd, WhileTheScoreWindowOpensLeavesTheRecordToo) {
    const std::string wanted = logAfter(1, byEscape);
    EXPECT_EQ(logAfter(1,
                       [](Scored &scored) {
                           scored.windows.onProcessEvents = [&] { scored.score.FinirSession(); };
                           scored.score.load();
                       }),
              wanted);
}

TEST(SessionEnd, TouchesNoWindowAndAsksNothing) {
    Scored scored(1);
    scored.score.show();
    scored.windows.take();
    scored.score.FinirSession();
    EXPECT_EQ(scored.windows.take(), Events());
    EXPECT_TRUE(scored.score.isShown());
}

TEST(SessionEnd, WithoutAWordProposedOrABaseWritesNothing) {
    for (const auto &[words, base] : {std::pair{0, 40}, {7, 0}}) {
        EXPECT_EQ(logAfter(1,
                           [words = words, base = base](Scored &scored) {
                               scored.g.scores.NbMotsProposes = words;
                               scored.g.scores.NbMotsBase = base;
                               scored.score.FinirSession();
                           }),
                  "");
    }
}

TEST(SessionEnd, AfterARecordWritesNoSecondOne) {
    const std::string once = logAfter(1, byEscape);
    EXPECT_EQ(logAfter(1,
                       [](Scored &scored) {
                           byEscape(scored);
                           scored.score.FinirSession();
                       }),
              once);
    EXPECT_EQ(logAfter(1,
                       [](Scored &scored) {
                           scored.score.FinirSession();
                           scored.score.FinirSession();
                       }),
              once);
    EXPECT_EQ(logAfter(1,
                       [](Scored &scored) {
                           scored.score.show();
                           scored.score.EcrireScore();
                           scored.score.FinirSession();
                       }),
              once);
}

TEST(SessionEnd, TellsNobodyOfAFailureNorTriesARecordTwice) {
    Scored scored(1);
    scored.folder.makeFolder(journal); // a folder in the file's place
    scored.score.FinirSession();
    EXPECT_TRUE(scored.windows.messages.empty());
    Scored overflowing(1); // its words not found are more than a number holds
    overflowing.g.scores.NbMotsProposes = 1;
    overflowing.g.scores.MotsTrouves[1] = -32768;
    overflowing.score.FinirSession();
    EXPECT_TRUE(overflowing.windows.messages.empty());
}

TEST(SessionEnd, WhileTheFailureOfTheRecordIsToldDoesNotTryAgain) {
    Scored scored(1);
    scored.folder.makeFolder(journal);
    scored.windows.onMessage = [&](const Message &) {
        ASSERT_EQ(::rmdir(scored.folder.bytePath(journal).c_str()), 0); // now it could be written
        scored.score.FinirSession();
    };
    byEscape(scored);
    EXPECT_EQ(scored.windows.messages.size(), 1u);
    EXPECT_FALSE(scored.folder.exists(journal));
}

} // namespace
} // namespace grimoval::test
