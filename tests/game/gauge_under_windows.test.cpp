// SPDX-License-Identifier: GPL-3.0-or-later
// Time goes on under modal windows; which of them stop the thinking time, and what is left of it.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::gauge_under_windows {

struct GaugeUnder : testing::Test {
    Game game;
    FMenu &menu = game.menu;
    Gauge &gauge = menu.FluReflec;

    void play(int mode) {
        game.start({.mode = mode, .words = {u"ABC", u"DEF"}, .limited = true, .seconds = 5});
        advance(game, 3);
        game.windows.take();
    }
    // Seconds pass under a window, which is then closed.
    void under(const char *form, int seconds, const std::function<void(Form &)> &close) {
        game.windows.expectModal(form, [=, this](Form &window) {
            advance(game, seconds);
            close(window);
        });
    }
    static void closing(Form &form) { form.requestClose(); }
};

TEST_F(GaugeUnder, TheSoundOptionsGoesOnAndItsEndThereIsNoTimeOut) {
    play(1);
    under("FOption", 10, closing);
    ASSERT_TRUE(menu.CmdCfg[1].userClick());
    EXPECT_EQ(game.prompts(), Events{});
    EXPECT_EQ(menu.ErreursMot[1], 0);
    EXPECT_FALSE(gauge.EnMarche);
    // That word is left without a limit.
    advance(game, 100);
    EXPECT_EQ(game.prompts(), Events{});
    EXPECT_EQ(gauge.Valeur.get(), 0);
    EXPECT_EQ(game.word(), "###");
    game.propose("ABC");
    EXPECT_EQ(game.g.scores.MotsTrouves[1], 1);
}

TEST_F(GaugeUnder, TheSoundOptionsRunsOnFromZeroWhenTheyGoInTime) {
    play(1);
    under("FOption", 1, closing);
    ASSERT_TRUE(menu.CmdCfg[1].userClick());
    EXPECT_EQ(gauge.Valeur.get(), 0);
    EXPECT_TRUE(gauge.EnMarche);
    advance(game, 5);
    EXPECT_EQ(game.prompts(), Events{"TropTar.Wav"});
}

TEST_F(GaugeUnder, TheSoundOptionsInMode2IsStartedAgainByTheNextLetter) {
    play(2);
    under("FOption", 10, closing);
    ASSERT_TRUE(menu.CmdCfg[1].userClick());
    EXPECT_FALSE(gauge.EnMarche);
    game.propose("A");
    EXPECT_TRUE(gauge.EnMarche);
}

TEST_F(GaugeUnder, TheAboutWindowStandsStillAndStartsAnewFromZero) {
    play(1);
    under("FAbout", 60, closing);
    ASSERT_TRUE(menu.lblAbout.userClick());
    EXPECT_EQ(game.prompts(), Events{});
    EXPECT_EQ(gauge.Valeur.get(), 0);
    EXPECT_TRUE(gauge.EnMarche);
    EXPECT_TRUE(menu.FluxArme);
    advance(game, 4);
    EXPECT_EQ(game.prompts(), Events{});
    advance(game, 1);
    EXPECT_EQ(game.prompts(), Events{"TropTar.Wav"});
}

TEST_F(GaugeUnder, TheAboutWindowOutsideAWordIsLeftAlone) {
    play(1);
    game.propose("ABC");
    under("FAbout", 60, closing);
    ASSERT_TRUE(menu.lblAbout.userClick());
    EXPECT_FALSE(gauge.EnMarche);
    EXPECT_FALSE(menu.FluxArme);
}

TEST_F(GaugeUnder, TheQuitQuestionCountsForNothingAndStartsAgainFromZeroWhenThePlayerStays) {
    play(1);
    under("Fmsg1", 60, [this](Form &) { game.question.CmdMsg[2].userClick(); });
    ASSERT_TRUE(menu.CmdTjr[3].userClick());
    EXPECT_EQ(game.prompts(), Events{"Quitter.Wav"});
    EXPECT_EQ(menu.ErreursMot[1], 0);
    EXPECT_EQ(gauge.Valeur.get(), 0);
    EXPECT_TRUE(gauge.EnMarche);
    EXPECT_TRUE(menu.FluxArme);
    advance(game, 5);
    EXPECT_EQ(game.prompts(), Events{"TropTar.Wav"});
}

TEST_F(GaugeUnder, TheQuitQuestionOutsideAWordIsNotStarted) {
    play(1);
    game.propose("ABC");
    under("Fmsg1", 1, [this](Form &) { game.question.CmdMsg[2].userClick(); });
    ASSERT_TRUE(menu.CmdTjr[3].userClick());
    EXPECT_FALSE(gauge.EnMarche);
}

TEST_F(GaugeUnder, AMessageBoxIsNoWindowOfTheProgramAndIsNotZeroed) {
    play(1);
    game.screen.message(u"Essai", MessageIcon::information);
    EXPECT_EQ(gauge.Valeur.get(), 3);
}

TEST_F(GaugeUnder, TheClockOfTheGameCountsUnderEveryWindow) {
    play(1);
    under("FOption", 10, closing);
    ASSERT_TRUE(menu.CmdCfg[1].userClick());
    EXPECT_EQ(game.g.scores.TempsEcoule, 13);
}

} // namespace grimoval::test::gauge_under_windows
