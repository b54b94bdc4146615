// SPDX-License-Identifier: GPL-3.0-or-later
// The gauge of the thinking time: when it runs, and what its end is.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::thinking_time {

struct ThinkingTime : testing::Test {
    Game game;
    FMenu &menu = game.menu;
    Gauge &gauge = menu.FluReflec;
    ScoresPartie &scores = game.g.scores;

    int value() const { return gauge.Valeur; }
};

TEST_F(ThinkingTime, OfTheDesignIsTwentySeconds) { EXPECT_EQ(gauge.Maximum.get(), 20); }

TEST_F(ThinkingTime, FillsOneUnitASecondAndShowsItsValue) {
    game.start({.words = {u"AB"}, .limited = true, .seconds = 10});
    EXPECT_EQ(gauge.Maximum.get(), 10);
    EXPECT_EQ(value(), 0);
    EXPECT_EQ(shown(gauge.TexteFlux), "0");
    for (int second = 1; second <= 9; ++second) {
        advance(game, 1);
        EXPECT_EQ(value(), second);
        EXPECT_EQ(shown(gauge.TexteFlux), std::to_string(second));
    }
    EXPECT_TRUE(gauge.EnMarche);
    EXPECT_EQ(menu.ErreursMot[1], 0);
}

TEST_F(ThinkingTime, WithoutALimitIsHiddenNeverStartedAndNeverEnds) {
    for (const int mode : {1, 2, 3}) {
        Game other;
        other.start({.mode = mode, .words = {u"AB", u"CD"}});
        other.windows.expectModal("FAbout", [](Form &form) { form.requestClose(); });
        ASSERT_TRUE(other.menu.lblAbout.userClick()); // the window is activated
        EXPECT_FALSE(other.menu.FluReflec.Visible);
        other.windows.take();
        advance(other, 500);
        EXPECT_EQ(only(other.windows.take(), "parole"), Events{});
        EXPECT_FALSE(other.menu.FluReflec.EnMarche);
        EXPECT_FALSE(other.menu.FluxActif);
        EXPECT_FALSE(other.menu.FluxArme);
        EXPECT_EQ(other.menu.FluReflec.Valeur.get(), 0);
        other.propose("Z");
        EXPECT_FALSE(other.menu.FluReflec.EnMarche);
    }
}

TEST_F(ThinkingTime, EndLosesTheWordInModes1And3WithTheWholeLimitOfErrors) {
    for (const int mode : {1, 3}) {
        Game other;
        other.start({.mode = mode, .words = {u"AB", u"CD"}, .limited = true, .seconds = 5});
        other.propose("YZ");
        other.windows.take();
        advance(other, 5);
        EXPECT_EQ(other.prompts(), Events{"TropTar.Wav"}); // and no word about the loss
        EXPECT_EQ(other.g.scores.MauvaisesLettres[1], mode == 1 ? 6 : 12);
        EXPECT_EQ(other.menu.JoueurCourant, mode == 1 ? 1 : 2);
        EXPECT_EQ(other.menu.CmdJeux[0].Inactif.get(), mode == 3);
        EXPECT_TRUE(other.menu.MessageEchec);
    }
}

TEST_F(ThinkingTime, EndDrawsOneOfTwoPrompts) {
    const std::pair<float, const char *> rows[] = {{0.0f, "TropTar.Wav"},
                                                   {0.49f, "TropTar.Wav"},
                                                   {0.5f, "PaassRap.Wav"},
                                                   {0.99f, "PaassRap.Wav"}};
    for (const auto &[number, file] : rows) {
        Game other(false);
        other.start({.words = {u"AB"}, .limited = true, .seconds = 5});
        other.windows.take();
        other.random.numbers = {number};
        advance(other, 5);
        EXPECT_EQ(other.prompts(), Events{file}) << number;
    }
}

TEST_F(ThinkingTime, EndInMode2CostsNothingAndStartsAnewForTheSamePlayer) {
    game.start({.mode = 2, .words = {u"AB"}, .limited = true, .seconds = 5});
    game.propose("Z");
    game.windows.take();
    for (int round = 0; round < 3; ++round) {
        advance(game, 4);
        EXPECT_EQ(value(), 4);
        advance(game, 1);
        EXPECT_EQ(game.prompts(), Events{"TropTar.Wav"});
        EXPECT_EQ(value(), 0);
        EXPECT_TRUE(gauge.EnMarche);
        EXPECT_EQ(menu.JoueurCourant, 2);
        EXPECT_EQ(menu.ErreursMot[2], 0);
    }
    EXPECT_EQ(scores.MauvaisesLettres[1], 1);
    EXPECT_EQ(scores.MauvaisesLettres[2], 0);
}

TEST_F(ThinkingTime, OfModes1And3IsForTheWholeWord) {
    for (const int mode : {1, 3}) {
        Game other(false);
        other.start({.mode = mode, .words = {u"ABCD", u"EFGH"}, .limited = true, .seconds = 9});
        advance(other, 3);
        other.propose("AZ");
        EXPECT_EQ(other.menu.FluReflec.Valeur.get(), 3);
        advance(other, 1);
        EXPECT_EQ(other.menu.FluReflec.Valeur.get(), 4);
    }
}

TEST_F(ThinkingTime, OfMode2IsForEachLetterGoodOrWrong) {
    game.start({.mode = 2, .words = {u"ABCD"}, .limited = true, .seconds = 9});
    for (const char letter : {'A', 'Z', 'B'}) {
        advance(game, 3);
        EXPECT_EQ(value(), 3);
        game.propose(std::string(1, letter));
        EXPECT_EQ(value(), 0);
        EXPECT_EQ(shown(gauge.TexteFlux), "0");
        EXPECT_TRUE(gauge.EnMarche);
    }
}

TEST_F(ThinkingTime, StartsAnewForThePlayer2OfMode3) {
    game.start({.mode = 3, .words = {u"A", u"B"}, .limited = true, .seconds = 9});
    advance(game, 4);
    game.propose("A");
    EXPECT_EQ(menu.JoueurCourant, 2);
    EXPECT_EQ(value(), 0);
    EXPECT_TRUE(gauge.EnMarche);
    EXPECT_TRUE(menu.FluxActif);
    EXPECT_TRUE(menu.FluxArme);
}

TEST_F(ThinkingTime, StopsWhenTheWordIsFoundLostOrGivenUpAndRaisesNoTimeOut) {
    const std::pair<int, std::function<void(Game &)>> rows[] = {
        {1, [](Game &g) { g.propose("AB"); }},
        {1, [](Game &g) { g.propose("UVWXYZ"); }},
        {1, [](Game &g) { g.menu.CmdJeux[1].userClick(); }},
        {2, [](Game &g) { g.propose("AB"); }},
        {3, [](Game &g) { g.propose("ABCD"); }},
        {3,
         [](Game &g) {
             g.propose("AB");
             g.menu.CmdJeux[2].userClick();
         }},
    };
    for (const auto &[mode, end] : rows) {
        Game other(false);
        other.start({.mode = mode, .words = {u"AB", u"CD"}, .limited = true, .seconds = 5});
        advance(other, 2);
        end(other);
        EXPECT_FALSE(other.menu.CmdJeux[0].Inactif) << mode;
        EXPECT_FALSE(other.menu.FluReflec.EnMarche);
        EXPECT_FALSE(other.menu.FluxActif);
        EXPECT_FALSE(other.menu.FluxArme);
        other.windows.take();
        advance(other, 60);
        EXPECT_EQ(other.prompts(), Events{});
    }
}

TEST_F(ThinkingTime, StopsWithTheGame) {
    game.start({.mode = 2, .words = {u"AB"}, .limited = true, .seconds = 5});
    game.stop();
    game.windows.take();
    EXPECT_FALSE(gauge.EnMarche);
    EXPECT_FALSE(menu.FluxActif);
    advance(game, 60);
    EXPECT_EQ(game.prompts(), Events{});
}

TEST_F(ThinkingTime, EndIsIgnoredWhileItIsNotArmed) {
    game.start({.words = {u"AB"}, .limited = true, .seconds = 5});
    menu.FluxArme = false;
    game.windows.take();
    advance(game, 5);
    EXPECT_EQ(game.prompts(), Events{});
    EXPECT_EQ(menu.ErreursMot[1], 0);
    EXPECT_FALSE(gauge.EnMarche);
}

TEST_F(ThinkingTime, OfAWordWithoutLettersFindsItAtItsEndInEveryMode) {
    for (const int mode : {1, 2, 3}) {
        Game other(false);
        other.start({.mode = mode, .words = {u"1900", u"CD"}, .limited = true, .seconds = 5});
        other.windows.take();
        advance(other, 5);
        EXPECT_EQ(other.g.scores.MotsTrouves[1], 1) << mode;
        EXPECT_EQ(other.g.scores.Score[1], 5) << mode;
        EXPECT_EQ(other.prompts(),
                  (Events{"TropTar.Wav", mode == 2 ? "CesBien.Wav" : "Cestbien.Wav"}));
    }
}

TEST_F(ThinkingTime, IsZeroedAndShownOrHiddenAtEachActivationOfTheWindow) {
    game.start({.mode = 2, .words = {u"AB"}, .limited = true, .seconds = 9});
    advance(game, 4);
    game.windows.expectModal("FOption", [](Form &form) { form.requestClose(); });
    ASSERT_TRUE(menu.CmdCfg[1].userClick());
    EXPECT_EQ(value(), 0);
    EXPECT_EQ(shown(gauge.TexteFlux), "0");
    EXPECT_TRUE(gauge.Visible);
    EXPECT_TRUE(gauge.EnMarche); // neither stopped nor started
    game.g.reglages.RéflexionLimite = 0;
    game.windows.expectModal("FOption", [](Form &form) { form.requestClose(); });
    ASSERT_TRUE(menu.CmdCfg[1].userClick());
    EXPECT_FALSE(gauge.Visible);
    game.g.reglages.RéflexionLimite = -7;
    game.windows.expectModal("FOption", [](Form &form) { form.requestClose(); });
    ASSERT_TRUE(menu.CmdCfg[1].userClick());
    EXPECT_TRUE(gauge.Visible);
}

TEST_F(ThinkingTime, ThatWasStoppedIsNoTimeOutWhenItsEndComesLate) {
    Game other;
    other.start({.words = {u"AB"}, .limited = true});
    other.propose("AB");
    EXPECT_FALSE(other.menu.FluxArme);
    const int score = other.g.scores.Score[1];
    other.prompts();
    other.menu.FluReflec_Fin();
    EXPECT_EQ(other.prompts(), Events{});
    EXPECT_EQ(other.g.scores.Score[1], score);
}

} // namespace grimoval::test::thinking_time
