// SPDX-License-Identifier: GPL-3.0-or-later
// The configuration window: mode, thinking time, errors, and the texts of its labels.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::configuration {

struct Configuration : testing::Test {
    Game game;
    FCHoix &window = game.choice;
    Reglages &settings = game.g.reglages;

    void open() { window.show(); }
    std::string time() const { return shown(window.BordLimit.Caption); }
    std::string errors() const { return shown(window.TxtNbBad.Caption); }
};

TEST_F(Configuration, ShowsTheThreeModesWithTheirTexts) {
    open();
    EXPECT_EQ(shown(window.TxtPlay[0].Caption), "1 Joueur");
    EXPECT_EQ(shown(window.TxtPlay[1].Caption), "2 Joueurs jouant sur le même mot");
    EXPECT_EQ(shown(window.TxtPlay[2].Caption), "2 Joueurs chacun son mot");
    EXPECT_EQ(shown(window.TxtActive.Caption), "Temps de réflexion limité");
}

struct ModeRow {
    int setting, index;
    const char *time; // after a click on the mode
    bool errors;
};

TEST_F(Configuration, ShowsTheModeOfTheSettingsInRedAndItsControls) {
    const ModeRow rows[] = {{1, 0, " par mot", true},
                            {2, 1, " par lettre", false},
                            {3, 2, " par mot", true},
                            {0, 0, " par mot", true},
                            {-5, 0, " par mot", true}};
    for (const ModeRow &row : rows) {
        settings.NombreJoueur = row.setting;
        open();
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(window.CmdNbPlay[i].BackColor.get(),
                      i == row.index ? colours::red : colours::green);
            EXPECT_EQ(window.TxtPlay[i].ForeColor.get(),
                      i == row.index ? colours::red : colours::black);
        }
        EXPECT_EQ(window.ConfMode, row.index);
        EXPECT_EQ(window.TxtNbBad.Visible.get(), row.errors);
        EXPECT_EQ(window.DefReflec[1].Visible.get(), row.errors);
        EXPECT_EQ(time(), "20 secondes"); // without a suffix until a click on a mode
        EXPECT_EQ(errors(), "6 erreurs par mot");
        window.unload();
    }
}

TEST_F(Configuration, ChangesTheModeByAClickOnItsButtonOrItsText) {
    const ModeRow rows[] = {{0, 1, "20 secondes par lettre", false},
                            {0, 2, "20 secondes par mot", true},
                            {0, 0, "20 secondes par mot", true}};
    for (const bool byText : {false, true}) {
        open();
        for (const ModeRow &row : rows) {
            ASSERT_TRUE(byText ? window.TxtPlay[row.index].userClick()
                               : window.CmdNbPlay[row.index].userClick());
            EXPECT_EQ(window.ConfMode, row.index);
            EXPECT_EQ(time(), row.time);
            EXPECT_EQ(window.TxtNbBad.Visible.get(), row.errors);
            EXPECT_EQ(window.DefReflec[1].Visible.get(), row.errors);
            EXPECT_EQ(window.CmdNbPlay[row.index].BackColor.get(), colours::red);
            EXPECT_EQ(settings.NombreJoueur, 1); // not before OK
        }
        window.unload();
    }
}

TEST_F(Configuration, ClickOnTheModeThatIsSelectedChangesNothingNotEvenTheLabel) {
    open();
    game.windows.take();
    window.CmdNbPlay[0].userClick();
    window.TxtPlay[0].userClick();
    EXPECT_EQ(game.windows.take(), Events{});
    EXPECT_EQ(time(), "20 secondes");
}

TEST_F(Configuration, MovedTimeDropsTheSuffixAndAnotherModeBringsItBack) {
    open();
    window.CmdNbPlay[1].userClick();
    EXPECT_EQ(time(), "20 secondes par lettre");
    window.DefReflec[0].userScroll(45);
    EXPECT_EQ(time(), "45 secondes");
    window.CmdNbPlay[2].userClick();
    EXPECT_EQ(time(), "45 secondes par mot");
    EXPECT_EQ(window.ConfTemps, 45);
}

TEST_F(Configuration, ReadsOneErrorAndSeveralErrors) {
    open();
    const std::pair<int, const char *> rows[] = {
        {1, "1 erreur par mot"}, {2, "2 erreurs par mot"}, {20, "20 erreurs par mot"}};
    for (const auto &[value, text] : rows) {
        window.DefReflec[1].userScroll(value);
        EXPECT_EQ(errors(), text);
        EXPECT_EQ(window.ConfErreurs, value);
    }
}

TEST_F(Configuration, RaisesAShortTimeTo5AndBoundsALongOneTo120) {
    const std::pair<int, int> rows[] = {{4, 5},     {-1, 5},    {5, 5},      {6, 6},
                                        {120, 120}, {121, 120}, {3000, 120}, {32767, 120}};
    for (const auto &[stored, shownTime] : rows) {
        settings.TempsRéflexion = stored;
        open();
        EXPECT_EQ(time(), std::to_string(shownTime) + " secondes");
        EXPECT_EQ(window.DefReflec[0].Value.get(), shownTime);
        EXPECT_EQ(window.ConfTemps, shownTime);
        EXPECT_EQ(settings.TempsRéflexion, stored);
        window.unload();
    }
}

TEST_F(Configuration, ReplacesACountOfErrorsOutOfRangeBy6) {
    const std::pair<int, int> rows[] = {{0, 6}, {-3, 6}, {21, 6}, {1, 1}, {20, 20}, {7, 7}};
    for (const auto &[stored, used] : rows) {
        settings.NombreErreur = stored;
        open();
        EXPECT_EQ(window.DefReflec[1].Value.get(), used);
        EXPECT_EQ(window.ConfErreurs, used);
        window.unload();
    }
}

TEST_F(Configuration, HoldsItsBarsWithinTheirBounds) {
    open();
    EXPECT_EQ(window.DefReflec[0].Min.get(), 5);
    EXPECT_EQ(window.DefReflec[0].Max.get(), 120);
    EXPECT_EQ(window.DefReflec[0].smallChange, 5);
    EXPECT_EQ(window.DefReflec[0].largeChange, 5);
    EXPECT_EQ(window.DefReflec[1].Min.get(), 1);
    EXPECT_EQ(window.DefReflec[1].Max.get(), 20);
    EXPECT_EQ(window.DefReflec[1].smallChange, 1);
    EXPECT_EQ(window.DefReflec[1].largeChange, 5);
    window.DefReflec[0].userScroll(1000);
    EXPECT_EQ(time(), "120 secondes");
    window.DefReflec[0].userScroll(-1);
    EXPECT_EQ(time(), "5 secondes");
}

TEST_F(Configuration, CheckBoxHolds1ForAnyLimitAndLeavesTheTimeBarUsable) {
    const std::pair<int, int> rows[] = {{0, 0}, {1, 1}, {-7, 1}, {2, 1}};
    for (const auto &[stored, box] : rows) {
        settings.RéflexionLimite = stored;
        open();
        EXPECT_EQ(window.ConfActive.Value.get(), box);
        EXPECT_EQ(window.ConfLimite, box);
        window.unload();
    }
    open();
    window.ConfActive.Value = 1;
    ASSERT_TRUE(window.ConfActive.userClick());
    EXPECT_EQ(window.ConfLimite, 0);
    EXPECT_TRUE(window.DefReflec[0].userScroll(50));
    ASSERT_TRUE(window.TxtActive.userClick()); // the words beside the box
    EXPECT_EQ(window.ConfLimite, 1);
}

TEST_F(Configuration, LeavesNoWorkingValueAndAnEmptySharedTextWhenItGoes) {
    open();
    window.CmdNbPlay[2].userClick();
    game.g.TexteMessage = u"ancien";
    window.unload();
    EXPECT_EQ(window.ConfLimite, 0);
    EXPECT_EQ(window.ConfTemps, 0);
    EXPECT_EQ(window.ConfErreurs, 0);
    EXPECT_EQ(window.ConfMode, 0);
    EXPECT_EQ(toUtf8(game.g.TexteMessage), "");
}

TEST_F(Configuration, TellsTheModeInForceToWhoCannotSeeItsColour) {
    settings.NombreJoueur = 2;
    open();
    window.CmdNbPlay[2].userClick();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(toUtf8(window.CmdNbPlay[i].accessibleDescription), i == 2 ? "choisi" : "") << i;
    }
}

TEST_F(Configuration, IsCancelledByItsButtonEscapeAndTheCloseRequest) {
    const std::function<void()> ways[] = {[&] { window.Cmd[0].userClick(); },
                                          [&] { game.press(Key::escape); },
                                          [&] { window.requestClose(); }};
    for (const auto &way : ways) {
        open();
        window.CmdNbPlay[2].userClick();
        window.DefReflec[0].userScroll(60);
        game.g.ReponseFenetre = 1;
        way();
        EXPECT_FALSE(window.isLoaded());
        EXPECT_EQ(game.g.ReponseFenetre, 0);
        EXPECT_EQ(settings.NombreJoueur, 1);
        EXPECT_EQ(settings.TempsRéflexion, 20);
        EXPECT_EQ(window.ConfTemps + window.ConfErreurs + window.ConfMode + window.ConfLimite, 0);
    }
}

TEST_F(Configuration, HasNoKeyForOk) {
    open();
    window.setFocus(window.ConfActive);
    game.enter();
    EXPECT_TRUE(window.isShown());
}

} // namespace grimoval::test::configuration
