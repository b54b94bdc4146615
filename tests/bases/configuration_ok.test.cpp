// SPDX-License-Identifier: GPL-3.0-or-later
// OK in the configuration window: the names are asked for, then settings and file change.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::configuration_ok {

struct ConfigurationOk : testing::Test {
    Game game;
    FCHoix &window = game.choice;
    Fnom &names = game.names;
    Reglages &settings = game.g.reglages;
    const Texte file = u"donnees/Calvenor/Le Grimoval/GRIMOVA.INI";

    ConfigurationOk() { game.choice.show(); }
    bool ok() { return window.Cmd[1].userClick(); }
    void cancelNames() {
        game.windows.expectModal("Fnom", [this](Form &) { names.Cmd[1].userClick(); });
    }
    std::string player(std::size_t field) const {
        return toUtf8(game.g.joueurs.NomJoueur[field].text());
    }
    std::string written() const {
        return game.folder.exists(file) ? game.folder.read(file) : "nothing";
    }
};

TEST_F(ConfigurationOk, InMode1AsksForOnePlayerThenTakesAndWritesTheSettings) {
    window.DefReflec[0].userScroll(45);
    window.DefReflec[1].userScroll(9);
    window.ConfActive.userClick();
    game.expectNames(u"Durand", u"Zoé");
    ASSERT_TRUE(ok());
    EXPECT_FALSE(window.isLoaded());
    EXPECT_FALSE(names.isLoaded());
    EXPECT_EQ(game.g.ReponseFenetre, 1);
    EXPECT_EQ(player(1), "DURAND         ");
    EXPECT_EQ(player(2), "ZOÉ            ");
    EXPECT_EQ(settings.NombreJoueur, 1);
    EXPECT_EQ(settings.RéflexionLimite, 0);
    EXPECT_EQ(settings.TempsRéflexion, 45);
    EXPECT_EQ(settings.NombreErreur, 9);
    EXPECT_EQ(written(), "[Le Grimoval]\r\nNombreJoueur=1\r\nR\xE9"
                         "flexionLimite=0\r\nTempsR\xE9"
                         "flexion=45\r\nNombreErreur=9\r\n");
}

TEST_F(ConfigurationOk, InMode2DoesNotWriteTheErrorsThoughTheSettingTakesThem) {
    window.DefReflec[1].userScroll(9);
    window.CmdNbPlay[1].userClick();
    game.expectNames(u"a", u"b");
    game.expectNames(u"c", u"d");
    ASSERT_TRUE(ok());
    EXPECT_EQ(settings.NombreJoueur, 2);
    EXPECT_EQ(settings.NombreErreur, 9);
    EXPECT_EQ(written(), "[Le Grimoval]\r\nNombreJoueur=2\r\nR\xE9"
                         "flexionLimite=1\r\nTempsR\xE9"
                         "flexion=20\r\n");
    EXPECT_EQ(player(1) + player(2) + player(3) + player(4),
              "A              B              C              D              ");
}

TEST_F(ConfigurationOk, AsksForTheSecondPlayerInBothModesOfTwoByHisOwnText) {
    for (const int mode : {1, 2}) {
        Game other;
        other.choice.show();
        other.choice.CmdNbPlay[mode].userClick();
        std::vector<std::string> asked;
        for (int i = 0; i < 2; ++i) {
            other.windows.expectModal("Fnom", [&](Form &) {
                asked.push_back(shown(other.names.NumJoueur.Caption));
                other.names.Saisie[0].Text = u"X";
                other.names.Saisie[1].Text = u"Y";
                other.names.Cmd[0].userClick();
            });
        }
        ASSERT_TRUE(other.choice.Cmd[1].userClick());
        EXPECT_EQ(asked, (std::vector<std::string>{"1er joueur", "2ème joueur"}));
    }
}

TEST_F(ConfigurationOk, CancelledForTheFirstPlayerStaysOpenWithTheModeAlreadyChanged) {
    window.CmdNbPlay[2].userClick();
    window.DefReflec[0].userScroll(60);
    cancelNames();
    ok();
    EXPECT_TRUE(window.isShown());
    EXPECT_EQ(game.g.ReponseFenetre, 0);
    EXPECT_EQ(settings.NombreJoueur, 3);
    EXPECT_EQ(settings.TempsRéflexion, 20);
    EXPECT_EQ(player(1), "               ");
    EXPECT_TRUE(names.isLoaded()); // hidden, and found so at a later use
    EXPECT_FALSE(names.isShown());
    EXPECT_EQ(written(), "nothing");
    // A later cancel does not undo the mode.
    window.Cmd[0].userClick();
    EXPECT_EQ(settings.NombreJoueur, 3);
    EXPECT_EQ(game.g.ReponseFenetre, 0);
}

TEST_F(ConfigurationOk, CancelledForTheSecondPlayerKeepsTheFirstPlayersNewNames) {
    window.CmdNbPlay[1].userClick();
    game.expectNames(u"Durand", u"Marie");
    cancelNames();
    ok();
    EXPECT_TRUE(window.isShown());
    EXPECT_EQ(player(1), "DURAND         ");
    EXPECT_EQ(player(3), "               ");
    EXPECT_EQ(settings.TempsRéflexion, 20);
    EXPECT_EQ(written(), "nothing");
}

TEST_F(ConfigurationOk, IsConfirmedForTheSecondPlayerByAnythingButCancelForTheFirstByOkAlone) {
    const auto leave = [this](int answer) {
        game.windows.expectModal("Fnom", [=, this](Form &form) {
            game.g.ReponseFenetre = answer;
            form.hide();
        });
    };
    window.CmdNbPlay[1].userClick();
    for (const int answer : {0, 2, 7}) { // the first player
        leave(answer);
        ok();
        EXPECT_TRUE(window.isShown()) << answer;
    }
    leave(1);
    leave(2); // the second player
    ok();
    EXPECT_TRUE(window.isShown());
    leave(1);
    leave(0);
    ok();
    EXPECT_FALSE(window.isLoaded());
    EXPECT_EQ(game.g.ReponseFenetre, 1);
}

TEST_F(ConfigurationOk, OffersTheNamesThatAreKnownWithoutTheirBlanks) {
    game.g.joueurs.NomJoueur[1] = Texte(u" DURAND");
    game.g.joueurs.NomJoueur[2] = Texte(u"MARIE");
    game.windows.expectModal("Fnom", [this](Form &) {
        EXPECT_EQ(shown(names.Saisie[0].Text), "DURAND");
        EXPECT_EQ(shown(names.Saisie[1].Text), "MARIE");
        EXPECT_FALSE(names.Cmd[0].Inactif); // OK is active at once
        game.enter();
        game.enter();
    });
    ASSERT_TRUE(ok());
    EXPECT_FALSE(window.isLoaded());
    EXPECT_EQ(player(1), "DURAND         ");
}

TEST_F(ConfigurationOk, TurnsAnyLimitOfTheFileInto1) {
    window.unload();
    settings.RéflexionLimite = -7;
    window.show();
    game.expectNames(u"a", u"b");
    ASSERT_TRUE(ok());
    EXPECT_EQ(settings.RéflexionLimite, 1);
}

TEST_F(ConfigurationOk, KeepsTheOldErrorsOfTheFileInMode2) {
    game.folder.write(file, "[Le Grimoval]\r\nNombreErreur=4\r\nNombreJoueur=1\r\n");
    window.CmdNbPlay[1].userClick();
    window.DefReflec[1].Visible = true;
    window.DefReflec[1].userScroll(12);
    game.expectNames(u"a", u"b");
    game.expectNames(u"c", u"d");
    ASSERT_TRUE(ok());
    EXPECT_EQ(settings.NombreErreur, 12);
    EXPECT_EQ(written(), "[Le Grimoval]\r\nNombreErreur=4\r\nNombreJoueur=2\r\nR\xE9"
                         "flexionLimite=1\r\nTempsR\xE9"
                         "flexion=20\r\n");
}

} // namespace grimoval::test::configuration_ok
