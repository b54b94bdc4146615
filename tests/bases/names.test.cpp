// SPDX-License-Identifier: GPL-3.0-or-later
// The window of a player's two names.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::player_names {

struct Names : testing::Test {
    Game game;
    Fnom &window = game.names;

    // As its caller shows it.
    void open(const Texte &family = u"", const Texte &first = u"") {
        window.load();
        window.JoueurDemande = u"1er joueur";
        window.Saisie[0].Text = family;
        window.Saisie[1].Text = first;
        game.g.ReponseFenetre = 0;
        window.show();
        game.windows.take();
    }
    std::string field(int index) const { return shown(window.Saisie[index].Text); }
    int answer() const { return game.g.ReponseFenetre; }
};

TEST_F(Names, SayWhichPlayerIsAskedAndStartInTheFirstField) {
    open();
    EXPECT_EQ(shown(window.NumJoueur.Caption), "1er joueur");
    EXPECT_EQ(shown(window.Etiquette1.Caption), "Nom :");
    EXPECT_EQ(shown(window.Etiquette2.Caption), "Prénom :");
    EXPECT_EQ(window.focus(), &window.Saisie[0]);
    window.hide();
    window.JoueurDemande = u"2ème joueur";
    window.show();
    EXPECT_EQ(shown(window.NumJoueur.Caption), "2ème joueur");
}

TEST_F(Names, ComeOutInCapitalsWhateverIsTypedInBothFields) {
    open();
    game.type(window, u"d'Été");
    game.enter();
    game.type(window, u"zoé-œil3");
    EXPECT_EQ(field(0), "D'ÉTÉ");
    EXPECT_EQ(field(1), "ZOÉ-ŒIL3");
}

TEST_F(Names, PutInByTheCallerAreNotConverted) {
    open(u"Durand", u"Zoé");
    EXPECT_EQ(field(0), "Durand");
    EXPECT_EQ(field(1), "Zoé");
}

TEST_F(Names, TakeThirteenCharactersAndRefuseTheFourteenth) {
    open();
    game.type(window, u"abcdefghijklmno");
    EXPECT_EQ(field(0), "ABCDEFGHIJKLM");
    game.enter();
    game.type(window, u"1234567890123");
    EXPECT_EQ(field(1), "1234567890123");
    game.key(u'X');
    EXPECT_EQ(field(1), "1234567890123");
}

TEST_F(Names, TakeBackspaceAndBlanksAsTheyAre) {
    open();
    game.type(window, u"le  roi");
    game.press(Key::back);
    EXPECT_EQ(field(0), "LE  RO");
}

struct OkRow {
    const char16_t *family, *first;
    bool active;
};

TEST_F(Names, OfferOkWhenBothFieldsHoldMoreThanBlanks) {
    const OkRow rows[] = {{u"", u"", false},   {u"A", u"", false},  {u"", u"B", false},
                          {u"A", u"B", true},  {u" ", u"B", false}, {u"A", u"   ", false},
                          {u" A ", u"B", true}};
    for (const OkRow &row : rows) {
        open(row.family, row.first);
        EXPECT_EQ(window.Cmd[0].Inactif.get(), !row.active)
            << toUtf8(row.family) << "/" << toUtf8(row.first);
        window.unload();
    }
}

TEST_F(Names, OfferOkWithTheLastCharacterAndTakeItBackWithIt) {
    open();
    game.type(window, u"a");
    EXPECT_TRUE(window.Cmd[0].Inactif);
    game.enter();
    game.type(window, u"b");
    EXPECT_FALSE(window.Cmd[0].Inactif);
    game.press(Key::back);
    EXPECT_TRUE(window.Cmd[0].Inactif);
}

TEST_F(Names, SetTheStateOfOkOnlyWhenItChanges) {
    open(u"A", u"B");
    game.type(window, u"c");
    EXPECT_EQ(only(game.windows.take(), "Fnom.Cmd(0)"), Events{});
}

TEST_F(Names, EnterInTheFirstFieldGoesToTheSecondAndNeverConfirms) {
    open(u"A", u"B");
    game.enter();
    EXPECT_TRUE(window.isShown());
    EXPECT_EQ(answer(), 0);
    EXPECT_EQ(window.focus(), &window.Saisie[1]);
}

TEST_F(Names, EnterInTheSecondFieldConfirmsWhereOkIsActiveAndDoesNothingElse) {
    open(u"A", u"");
    game.enter();
    game.enter();
    EXPECT_TRUE(window.isShown());
    EXPECT_EQ(game.prompts(), Events{});
    game.type(window, u"b");
    game.enter();
    EXPECT_FALSE(window.isShown());
    EXPECT_TRUE(window.isLoaded()); // hidden: its caller reads the fields
    EXPECT_EQ(answer(), 1);
    EXPECT_EQ(field(1), "B");
}

TEST_F(Names, RefuseAnEmptyFieldWithASoundAndGoToIt) {
    open(u"A", u"  ");
    window.Cmd_Click(0);
    EXPECT_EQ(game.prompts(), Events{"ohoh.Wav"});
    EXPECT_EQ(window.focus(), &window.Saisie[1]);
    window.Saisie[0].Text = u" ";
    window.Cmd_Click(0);
    EXPECT_EQ(game.prompts(), Events{"ohoh.Wav"}); // the first field alone is told
    EXPECT_EQ(window.focus(), &window.Saisie[0]);
    EXPECT_TRUE(window.isShown());
    EXPECT_EQ(answer(), 0);
}

TEST_F(Names, AreCancelledByTheButtonEscapeAndTheCloseRequestWhichOnlyHide) {
    const std::function<void()> ways[] = {[&] { window.Cmd[1].userClick(); },
                                          [&] { game.press(Key::escape); },
                                          [&] { window.requestClose(); }};
    for (const auto &way : ways) {
        open(u"A", u"B");
        way();
        EXPECT_EQ(answer(), 2);
        EXPECT_FALSE(window.isShown());
        EXPECT_TRUE(window.isLoaded());
        EXPECT_EQ(field(0), "A");
    }
}

TEST_F(Names, RepaintSendsTheFocusHomeWhileTheSecondFieldIsBeingFilled) {
    open(u"A", u"B");
    game.enter();
    game.type(window, u"x");
    game.screen.MousePointer = 11;
    window.expose();
    EXPECT_EQ(window.focus(), &window.Saisie[0]);
    EXPECT_EQ(game.screen.MousePointer.get(), 0);
    game.type(window, u"y");
    EXPECT_EQ(field(0), "AY");
    EXPECT_EQ(field(1), "BX");
}

TEST_F(Names, KeepWhatWasTypedForTheNextShowingUntilTheCallerPutsNewTextsIn) {
    open();
    game.type(window, u"abc");
    window.Cmd[1].userClick();
    window.show();
    EXPECT_EQ(field(0), "ABC");
}

TEST_F(Names, DressTheirButtonsAndStandInTheCentre) {
    open();
    const std::string images = toUtf8(game.g.dossiers.DossierImages);
    EXPECT_EQ(shown(window.Cmd[0].Face), images + "_OK_ovale.tga");
    EXPECT_EQ(shown(window.Cmd[1].Face), images + "_Annuler_ovale.tga");
    EXPECT_EQ(window.Left.get(), (15360 - window.Width) / 2);
}

} // namespace grimoval::test::player_names
