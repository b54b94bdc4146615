// SPDX-License-Identifier: GPL-3.0-or-later
// The other commands of the main window.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::commands {

constexpr const char *invitation = "Pour commencer : appuie sur le bouton vert";

struct Command : testing::Test {
    Game game;
    FMenu &menu = game.menu;
};

TEST_F(Command, LoadInvitesWithEveryLabelEmptyAndEveryLetterIdle) {
    EXPECT_EQ(game.word(), invitation);
    EXPECT_EQ(menu.AffMot[0].FontSize.get(), 12);
    EXPECT_EQ(shown(menu.AffMot[1].Caption), "");
    EXPECT_EQ(shown(menu.RapTit.Caption), "");
    EXPECT_EQ(shown(menu.Rappel[1].Caption), "");
    EXPECT_EQ(shown(menu.Rappel[2].Caption), "");
    for (LetterButton &button : menu.VsAlpha) {
        EXPECT_FALSE(button.Enabled);
        EXPECT_EQ(shown(button.DisabledPicture), toUtf8(button.caption) + ".repos");
    }
    EXPECT_TRUE(menu.MessageEchec);
    EXPECT_FALSE(menu.FluxActif);
    EXPECT_FALSE(menu.FluxArme);
    EXPECT_FALSE(menu.PartieEnCours);
    EXPECT_EQ(menu.HeureLancement, (14 * 60 + 5) * 60 + 9);
}

TEST_F(Command, NewWordStartsCleanWithPlayer1) {
    game.start({.mode = 3, .words = {u"AB", u"CD", u"EF", u"GH"}});
    game.propose("ZAB");
    game.propose("ZCD");
    ASSERT_TRUE(menu.CmdJeux[0].userClick());
    EXPECT_EQ(menu.ErreursMot[1], 0);
    EXPECT_EQ(menu.ErreursMot[2], 0);
    EXPECT_EQ(menu.JoueurCourant, 1);
    EXPECT_EQ(toUtf8(menu.MotCherche[1] + u" " + menu.MotCherche[2]), "EF GH");
    EXPECT_EQ(menu.AffMot[0].ForeColor.get(), colours::blue);
    EXPECT_EQ(game.g.scores.NbMotsProposes, 2);
}

TEST_F(Command, StopShowsTheScoreBeforeTheInvitationComesBack) {
    game.start({.words = {u"AB", u"CD"}});
    game.propose("AB");
    std::string during;
    int proposed = 0, base = 0;
    game.windows.expectModal("FScore2", [&](Form &form) {
        during = game.word();
        proposed = game.g.scores.NbMotsProposes;
        base = game.g.scores.NbMotsBase;
        form.requestClose();
    });
    ASSERT_TRUE(menu.CmdTjr[0].userClick());
    EXPECT_EQ(during, "AB");
    EXPECT_EQ(proposed, 1);
    EXPECT_EQ(base, 2);
    EXPECT_EQ(game.word(), invitation);
    EXPECT_EQ(menu.AffMot[0].FontSize.get(), 12);
    EXPECT_EQ(menu.AffMot[0].ForeColor.get(), colours::blue);
    EXPECT_EQ(game.g.scores.NbMotsBase, 0);
    EXPECT_EQ(game.g.scores.NbMotsProposes, 0);
    EXPECT_FALSE(menu.PartieEnCours);
    EXPECT_EQ(shown(menu.Rappel[1].Caption), "MARIE D.");
}

TEST_F(Command, StopGreysEverythingBeforePendingEventsRun) {
    game.start({.words = {u"AB", u"CD"}});
    game.propose("AB");
    bool looked = false;
    game.windows.onProcessEvents = [&] {
        if (menu.CmdTjr[0].Inactif && !looked) {
            looked = true;
            EXPECT_TRUE(menu.CmdJeux[0].Inactif);
            EXPECT_TRUE(menu.CmdJeux[1].Inactif);
            EXPECT_TRUE(menu.CmdJeux[2].Inactif);
            EXPECT_FALSE(menu.PartieEnCours);
            EXPECT_FALSE(menu.CmdTjr[0].userClick());
        }
    };
    game.stop();
    EXPECT_TRUE(looked);
}

TEST_F(Command, HelpOpensAtItsIndexAndTheGameGoesOn) {
    game.start({.words = {u"AB"}, .limited = true, .seconds = 9});
    game.windows.take();
    ASSERT_TRUE(menu.CmdTjr[1].userClick());
    EXPECT_EQ(game.windows.take(),
              Events{"aide \"" + toUtf8(game.g.dossiers.DossierAppli) + "Le Grimoval.HLP\" Index"});
    advance(game, 2);
    EXPECT_EQ(menu.FluReflec.Valeur.get(), 2);
}

TEST_F(Command, TheCatalogueIsADocumentOfTheApplicationsFolder) {
    ASSERT_TRUE(menu.Image1.userClick());
    EXPECT_EQ(game.windows.take(),
              Events{"document " + toUtf8(game.application.folder) + "/catalogue.chm"});
}

TEST_F(Command, ThemeShowsTheSubjectAndACancelKeepsTheOneBefore) {
    game.install({{u"ESSAI", u"  Un essai ", {u"AB", u"CD"}}});
    game.write(u"IMAGES/IMG01.BMP", "BM");
    const auto cancel = [this] {
        game.windows.expectModal("FLstTitre",
                                 [this](Form &) { game.titles.CmdTitre[0].userClick(); });
        ASSERT_TRUE(menu.CmdBase.userClick());
    };
    cancel();
    EXPECT_EQ(shown(menu.RapTit.Caption), "");
    game.expectTheme(0);
    ASSERT_TRUE(menu.CmdBase.userClick());
    EXPECT_EQ(shown(menu.RapTit.Caption), "Sujet : Un essai");
    cancel();
    EXPECT_EQ(shown(menu.RapTit.Caption), "Sujet : Un essai");
}

TEST_F(Command, SettingsShowTheNewPlayersAfterOkAndNothingAfterCancel) {
    game.prepare({.mode = 1});
    game.windows.expectModal("FCHoix", [this](Form &) {
        game.choice.CmdNbPlay[2].userClick();
        game.expectNames(u"un", u"deux");
        game.expectNames(u"trois", u"quatre");
        game.choice.Cmd[1].userClick();
    });
    ASSERT_TRUE(menu.CmdCfg[0].userClick());
    EXPECT_EQ(shown(menu.Rappel[1].Caption), "DEUX U.");
    EXPECT_EQ(shown(menu.Rappel[2].Caption), "QUATRE T.");
    EXPECT_TRUE(menu.CmdJeux[2].Visible);
    game.windows.expectModal("FCHoix", [this](Form &) {
        game.choice.CmdNbPlay[0].userClick();
        game.choice.Cmd[0].userClick();
    });
    ASSERT_TRUE(menu.CmdCfg[0].userClick());
    EXPECT_TRUE(menu.CmdJeux[2].Visible);
    EXPECT_EQ(game.g.reglages.NombreJoueur, 3);
}

TEST_F(Command, SettingsThatGoWithoutAnAnswerShowNothingNewWhateverWasAnsweredBefore) {
    game.prepare({.mode = 1});
    game.g.ReponseFenetre = 1;
    game.windows.expectModal("FCHoix", [this](Form &form) {
        game.g.joueurs.NomJoueur[2] = u"ANNE";
        form.unload();
    });
    ASSERT_TRUE(menu.CmdCfg[0].userClick());
    EXPECT_EQ(shown(menu.Rappel[1].Caption), "MARIE D.");
}

TEST_F(Command, PointerIsAnUpArrowOverButtonsAndAnArrowOverTheBackground) {
    for (Control *control :
         {static_cast<Control *>(&menu.CmdBase), static_cast<Control *>(&menu.CmdTjr[1]),
          static_cast<Control *>(&menu.CmdJeux[0]), static_cast<Control *>(&menu.CmdCfg[0]),
          static_cast<Control *>(&menu.lblAbout), static_cast<Control *>(&menu.Image1)}) {
        menu.MousePointer = 0;
        control->userHover();
        EXPECT_EQ(menu.MousePointer.get(), 10) << control->path();
        game.windows.take();
        control->userHover(); // not set again at each move
        EXPECT_EQ(game.windows.take(), Events{});
        menu.userHover();
        EXPECT_EQ(menu.MousePointer.get(), 0);
    }
}

} // namespace grimoval::test::commands
