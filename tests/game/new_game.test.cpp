// SPDX-License-Identifier: GPL-3.0-or-later
// "Nouvelle partie": what it asks for, in which order, and what a cancel leaves.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::new_game {

struct NewGame : testing::Test {
    Game game;
    FMenu &menu = game.menu;

    bool press() { return menu.CmdTjr[2].userClick(); }
    void cancelChoice() {
        game.windows.expectModal("FCHoix", [this](Form &) { game.choice.Cmd[0].userClick(); });
    }
    void confirmChoice() {
        game.windows.expectModal("FCHoix", [this](Form &) { game.choice.Cmd[1].userClick(); });
        game.expectNames(u"Durand", u"Marie");
    }
    void cancelTheme() {
        game.windows.expectModal("FLstTitre",
                                 [this](Form &) { game.titles.CmdTitre[0].userClick(); });
    }
    void installOne() {
        game.install({{u"ESSAI", u"Un essai", {u"AB", u"CD"}}});
        game.write(u"IMAGES/IMG01.BMP", "BM");
    }
    // The state at rest with the three buttons back.
    void expectGivenUp() {
        EXPECT_FALSE(menu.CmdTjr[2].Inactif);
        EXPECT_TRUE(menu.CmdTjr[0].Inactif);
        EXPECT_FALSE(menu.CmdCfg[0].Inactif);
        EXPECT_TRUE(menu.CmdJeux[0].Inactif);
        EXPECT_FALSE(menu.VsAlpha[0].Enabled);
        EXPECT_FALSE(menu.PartieEnCours);
        EXPECT_EQ(game.g.scores.NbMotsProposes, 0);
        EXPECT_EQ(game.word(), ""); // the invitation has gone
        EXPECT_EQ(menu.AffMot[0].FontSize.get(), 15);
        EXPECT_EQ(game.prompts(), Events{});
    }
};

TEST_F(NewGame, WithoutABaseAsksForSettingsNamesAndThemeAndThenBegins) {
    installOne();
    confirmChoice();
    game.expectTheme(0);
    ASSERT_TRUE(press());
    EXPECT_EQ(game.word(), "##");
    EXPECT_EQ(shown(menu.RapTit.Caption), "Sujet : Un essai");
    EXPECT_EQ(shown(menu.Rappel[1].Caption), "MARIE D. A toi");
    EXPECT_TRUE(menu.PartieEnCours);
    EXPECT_EQ(game.screen.MousePointer.get(), 0);
}

TEST_F(NewGame, IsGivenUpWhenTheSettingsAreCancelled) {
    cancelChoice();
    ASSERT_TRUE(press());
    expectGivenUp();
}

TEST_F(NewGame, IsGivenUpWhenTheSettingsGoWithoutAnAnswerWhateverWasAnsweredBefore) {
    game.g.joueurs.NomJoueur[1] = u"DURAND";
    game.g.ReponseFenetre = 1;
    game.windows.expectModal("FCHoix", [](Form &form) { form.unload(); });
    ASSERT_TRUE(press());
    expectGivenUp();
}

TEST_F(NewGame, IsGivenUpWhenTheThemeIsCancelled) {
    installOne();
    confirmChoice();
    cancelTheme();
    ASSERT_TRUE(press());
    expectGivenUp();
    EXPECT_FALSE(game.g.base.BaseChargee);
    EXPECT_EQ(shown(menu.RapTit.Caption), "");
}

TEST_F(NewGame, IsGivenUpWhenTheNamesAllowNoGame) {
    installOne();
    game.windows.expectModal("FCHoix", [this](Form &form) {
        game.g.ReponseFenetre = 1; // confirmed, but without a name
        form.unload();
    });
    ASSERT_TRUE(press());
    expectGivenUp();
}

TEST_F(NewGame, WithABaseAsksForNamesOnlyWhereTheModeNeedsThem) {
    const struct {
        int mode;
        std::array<const char16_t *, 4> names;
        bool asks;
    } rows[] = {
        {1, {u"DURAND", u"", u"", u""}, false}, {1, {u"", u"MARIE", u"", u""}, true},
        {1, {u"  ", u"MARIE", u"", u""}, true}, {2, {u"A", u"", u"B", u""}, false},
        {2, {u"A", u"X", u"", u"Y"}, true},     {2, {u"", u"X", u"B", u"Y"}, true},
        {3, {u"", u"", u"", u""}, false},       {3, {u"A", u"B", u"C", u"D"}, false},
    };
    for (const auto &row : rows) {
        Game other;
        other.prepare({.mode = row.mode, .words = {u"AB", u"CD"}});
        for (std::size_t i = 0; i < 4; ++i) {
            other.g.joueurs.NomJoueur[i + 1] = Texte(row.names[i]);
        }
        if (row.asks) {
            other.windows.expectModal("FCHoix", [&](Form &) { other.choice.Cmd[0].userClick(); });
        }
        ASSERT_TRUE(other.menu.CmdTjr[2].userClick());
        EXPECT_EQ(other.g.scores.NbMotsProposes, row.asks ? 0 : 1) << row.mode;
        EXPECT_EQ(only(other.windows.take(), "fenetre FCHoix affichee").size(), row.asks ? 1u : 0u);
    }
}

TEST_F(NewGame, WithNamesAskedForAfterTheBaseGoesOnWhenTheyAreGiven) {
    game.prepare({.words = {u"AB", u"CD"}, .names = {u"", u"", u"", u""}});
    confirmChoice();
    ASSERT_TRUE(press());
    EXPECT_EQ(game.word(), "##");
    EXPECT_EQ(shown(menu.Rappel[1].Caption), "MARIE D. A toi");
}

TEST_F(NewGame, RunsWithTheGaugesOldMaximumWhenTheTimeIsChangedOnTheWayIn) {
    game.prepare(
        {.words = {u"AB", u"CD"}, .limited = true, .seconds = 20, .names = {u"", u"", u"", u""}});
    game.windows.expectModal("FCHoix", [this](Form &) {
        game.choice.DefReflec[0].userScroll(60);
        game.expectNames(u"Durand", u"Marie");
        game.choice.Cmd[1].userClick();
    });
    ASSERT_TRUE(press());
    EXPECT_EQ(game.g.reglages.TempsRéflexion, 60);
    EXPECT_EQ(menu.FluReflec.Maximum.get(), 20);
    game.propose("AB");
    game.stop();
    ASSERT_TRUE(press());
    EXPECT_EQ(menu.FluReflec.Maximum.get(), 60);
}

TEST_F(NewGame, PlaysItsPromptLetsEventsRunAndThenDrawsTheFirstWord) {
    game.prepare({.words = {u"AB"}});
    int proposed = -1;
    Events before;
    game.windows.onProcessEvents = [&] {
        proposed = game.g.scores.NbMotsProposes;
        before = only(game.windows.events, "parole");
    };
    ASSERT_TRUE(press());
    EXPECT_EQ(proposed, 0);
    EXPECT_EQ(before, Events{"parole AttCaCOm.Wav"});
    EXPECT_EQ(game.g.scores.NbMotsProposes, 1);
}

TEST_F(NewGame, GreysItselfBeforeAnythingCanComeIn) {
    game.prepare({.words = {u"AB"}});
    game.windows.onProcessEvents = [&] {
        EXPECT_FALSE(press());
        EXPECT_FALSE(menu.CmdCfg[0].userClick());
        EXPECT_FALSE(menu.CmdTjr[0].userClick());
    };
    ASSERT_TRUE(press());
    EXPECT_EQ(game.g.scores.NbMotsProposes, 1);
}

TEST_F(NewGame, AfterTheFirstLeavesTheBaseAndTheListAlone) {
    game.prepare({.words = {u"AB", u"CD"}});
    ASSERT_TRUE(press());
    EXPECT_TRUE(menu.CmdBase.Inactif);
    EXPECT_EQ(game.g.scores.NbMotsBase, 2);
    game.propose("AB");
    game.g.scores.NbMotsBase = 77; // a new word does not count the base again
    game.enter();
    EXPECT_EQ(game.g.scores.NbMotsBase, 77);
}

TEST_F(NewGame, ShowsTheHourglassFromThePressOnAndTheArrowAtTheEnd) {
    game.prepare({.words = {u"AB"}});
    ASSERT_TRUE(press());
    EXPECT_EQ(only(game.windows.take(), "pointeur"), (Events{"pointeur 11", "pointeur 0"}));
}

} // namespace grimoval::test::new_game
