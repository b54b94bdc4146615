// SPDX-License-Identifier: GPL-3.0-or-later
// A program that is never left: what a game or a window takes, it gives back.
#include "support/game.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <malloc.h>

namespace grimoval::test::thousand_games {

// Zero under a sanitizer, which looks after the memory itself.
std::size_t memoryInUse() { return ::mallinfo2().uordblks; }

long openFiles() {
    const std::filesystem::directory_iterator descriptors("/proc/self/fd");
    return std::distance(begin(descriptors), end(descriptors));
}

struct Repeated : testing::Test {
    Game game;

    // Once warm, the hundredth time and the thousandth hold the same.
    void expectFlat(const std::function<void()> &step, int times) {
        std::size_t memory = 0;
        long files = 0;
        for (int time = 1; time <= times; ++time) {
            step();
            game.windows.events = {};
            game.windows.messages = {};
            if (time == times / 10) {
                memory = memoryInUse();
                files = openFiles();
            }
        }
        EXPECT_LE(memoryInUse(), memory + 4096);
        EXPECT_EQ(openFiles(), files);
    }
};

TEST_F(Repeated, AThousandGamesLeaveNothingBehind) {
    game.install({{u"ESSAI", u"Essai", {u"AB", u"CD", u"EF"}}});
    game.prepare({.words = {u"AB", u"CD", u"EF"}, .errors = 2, .limited = true, .seconds = 5});
    int mode = 0;
    expectFlat(
        [&] {
            mode = mode % 3 + 1;
            game.g.reglages.NombreJoueur = mode;
            game.menu.AfficherJoueurs();
            ASSERT_TRUE(game.menu.CmdTjr[2].userClick());
            for (char letter = 'A'; letter <= 'Z'; ++letter) {
                game.click(letter);
            }
            advance(game, 6);
            for (char letter = 'A'; letter <= 'Z'; ++letter) {
                game.click(letter);
            }
            game.stop();
        },
        1000);
}

TEST_F(Repeated, AThousandOpeningsOfEachWindowLeaveNothingBehind) {
    game.prepare({});
    const auto close = [](Form &form) { form.requestClose(); };
    expectFlat(
        [&] {
            for (const char *name : {"FAbout", "FOption", "FCHoix"}) {
                game.windows.expectModal(name, close);
            }
            ASSERT_TRUE(game.menu.lblAbout.userClick());
            ASSERT_TRUE(game.menu.CmdCfg[1].userClick());
            ASSERT_TRUE(game.menu.CmdCfg[0].userClick());
            for (Form *form :
                 {static_cast<Form *>(&game.names), static_cast<Form *>(&game.score)}) {
                form->show();
                form->unload();
            }
        },
        1000);
}

// Each opening reads and flushes files: fewer of them.
TEST_F(Repeated, AHundredChoicesOfAThemeAndRecordsLeaveNothingBehind) {
    game.install({{u"ESSAI", u"Essai", {u"AB", u"CD"}}, {u"AUTRE", u"Autre", {u"EF"}}});
    game.write(u"IMAGES/IMG01.BMP", "BM");
    game.prepare({});
    expectFlat(
        [&] {
            game.expectTheme(1);
            ASSERT_TRUE(game.menu.CmdBase.userClick());
            game.score.show();
            game.score.CmdScore[0].userClick();
        },
        100);
}

} // namespace grimoval::test::thousand_games
