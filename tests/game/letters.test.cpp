// SPDX-License-Identifier: GPL-3.0-or-later
// A letter proposed by mouse: good or wrong, what it brings, what the player sees of it.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::letters {

struct Letter : testing::Test {
    Game game;
    FMenu &menu = game.menu;
    ScoresPartie &scores = game.g.scores;

    std::string face(char letter) const {
        const LetterButton &button = menu.VsAlpha[letter - 'A'];
        return button.Enabled ? "available" : shown(button.DisabledPicture);
    }
};

TEST_F(Letter, GoodIsUncoveredAtAllItsPlacesForOnePointAndOneGoodLetter) {
    game.start({.words = {u"BANANA BLEUE"}});
    game.propose("A");
    EXPECT_EQ(game.word(), "#A#A#A #####");
    EXPECT_EQ(scores.BonnesLettres[1], 1);
    EXPECT_EQ(scores.Score[1], 1);
    EXPECT_EQ(menu.ErreursMot[1], 0);
    EXPECT_EQ(shown(menu.ImgScore[0].Caption), "1");
    EXPECT_TRUE(menu.BonneLettre);
}

TEST_F(Letter, WrongIsAnErrorAndCostsNoPoint) {
    game.start({.words = {u"BANANE"}});
    game.propose("AZ");
    EXPECT_EQ(game.word(), "#A#A##");
    EXPECT_EQ(menu.ErreursMot[1], 1);
    EXPECT_EQ(scores.Score[1], 1);
    EXPECT_EQ(scores.BonnesLettres[1], 1);
    EXPECT_EQ(scores.MauvaisesLettres[1], 0); // booked at the end of the word
    EXPECT_FALSE(menu.BonneLettre);
}

TEST_F(Letter, IsSoughtAmongTheCharactersInPlayAndNoFurther) {
    game.start({.words = {u"AMI (I)"}});
    for (const char16_t character : {u'(', u' ', u')'}) {
        const int before = menu.ErreursMot[1];
        menu.ProposerLettre(character); // the blank before the comment is in play
        EXPECT_EQ(menu.ErreursMot[1], before + (character == u' ' ? 0 : 1));
        EXPECT_EQ(game.word(), "### (I)");
    }
    game.propose("I");
    EXPECT_EQ(game.word(), "##I (I)");
}

TEST_F(Letter, GoodSpeaksOfItselfOnlyOnTheScreenInThisOrder) {
    game.start({.words = {u"BANANE"}});
    game.windows.take();
    game.propose("A");
    EXPECT_EQ(
        game.windows.take(),
        (Events{R"(FMenu.AffMot(0).Caption = "#A####")", R"(FMenu.AffMot(0).Caption = "#A#A##")",
                R"(FMenu.VsAlpha(0).DisabledPicture = "A.trouvee")",
                "FMenu.VsAlpha(0).Enabled = Faux", R"(FMenu.ImgScore(0).Caption = "1")"}));
}

TEST_F(Letter, WrongSpeaksBeforeItsButtonClosesAndTheCurtainFalls) {
    game.start({.words = {u"BANANE"}});
    game.windows.take();
    game.propose("Z");
    EXPECT_EQ(game.windows.take(),
              (Events{"parole CesPBon.Wav", "FMenu.VsAlpha(25).Enabled = Faux",
                      "FMenu.Shape1.Visible = Vrai", "FMenu.Shape1.Height = 34"}));
}

TEST_F(Letter, EIsAnErrorWhereTheWordReadsAnAccent) {
    game.start({.words = {u"L'ÉTÉ (SAISON)"}});
    game.propose("E");
    EXPECT_EQ(menu.ErreursMot[1], 1);
    EXPECT_EQ(game.word(), "#'É#É (SAISON)");
}

TEST_F(Letter, InsideTheParenthesesIsAnErrorAndChangesNothingThere) {
    game.start({.words = {u"L'ÉTÉ (SAISON)"}});
    game.propose("S");
    EXPECT_EQ(menu.ErreursMot[1], 1);
    EXPECT_EQ(game.word(), "#'É#É (SAISON)");
    game.propose("LT");
    EXPECT_EQ(game.word(), "L'ÉTÉ (SAISON)");
    EXPECT_EQ(scores.MotsTrouves[1], 1);
}

TEST_F(Letter, AloneFindsAWordWithHyphenBlankAndDigit) {
    game.start({.words = {u"PORTE-MANTEAU 2"}});
    game.propose("PORTEMANU");
    EXPECT_EQ(game.word(), "PORTE-MANTEAU 2");
    EXPECT_EQ(scores.MotsTrouves[1], 1);
    EXPECT_EQ(scores.Score[1], 9 + 5);
}

TEST_F(Letter, OfASmallWordCanNeverBeFound) {
    game.start({.words = {u"aMI"}, .errors = 20});
    game.propose("MIA");
    EXPECT_EQ(game.word(), "#MI");
    EXPECT_EQ(menu.ErreursMot[1], 1);
    EXPECT_EQ(scores.MotsTrouves[1], 0);
}

TEST_F(Letter, IsProposedOnceInAWord) {
    game.start({.words = {u"BANANE"}});
    game.propose("AZ");
    game.windows.take();
    EXPECT_FALSE(game.click('A'));
    EXPECT_FALSE(game.click('Z'));
    EXPECT_EQ(game.windows.take(), Events{});
    EXPECT_EQ(scores.BonnesLettres[1], 1);
    EXPECT_EQ(menu.ErreursMot[1], 1);
}

TEST_F(Letter, ShowsFourStatesApart) {
    EXPECT_EQ(face('B'), "B.repos");
    game.start({.words = {u"AB"}});
    EXPECT_EQ(face('B'), "available");
    EXPECT_EQ(shown(menu.VsAlpha[1].Picture), "B.libre");
    game.propose("BZ");
    EXPECT_EQ(face('B'), "B.trouvee");
    EXPECT_EQ(face('Z'), "Z.fausse");
    EXPECT_EQ(face('A'), "available");
    game.propose("A"); // the word is found
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        EXPECT_EQ(face(letter), std::string(1, letter) + ".repos");
    }
}

TEST_F(Letter, ComesBackForTheNextWord) {
    game.start({.words = {u"AB", u"CD"}});
    game.propose("BZA");
    game.enter();
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        EXPECT_EQ(face(letter), "available");
        EXPECT_EQ(shown(menu.VsAlpha[letter - 'A'].DisabledPicture),
                  std::string(1, letter) + ".fausse");
    }
}

TEST_F(Letter, ButtonsBearTheCapitalsInOrderAndTheirTwinsAreNeverOnTheScreen) {
    for (int i = 0; i < 26; ++i) {
        EXPECT_EQ(menu.VsAlpha[i].caption, Texte(1, static_cast<char16_t>(u'A' + i)));
        EXPECT_FALSE(menu.VsAlphabis[i].isVisible());
        EXPECT_FALSE(menu.VsAlphabis[i].userClick());
    }
    // Two rows of thirteen.
    EXPECT_EQ(menu.VsAlpha[0].place.top, menu.VsAlpha[12].place.top);
    EXPECT_LT(menu.VsAlpha[12].place.top, menu.VsAlpha[13].place.top);
    EXPECT_EQ(menu.VsAlpha[13].place.top, menu.VsAlpha[25].place.top);
    EXPECT_EQ(menu.VsAlpha[0].place.left, menu.VsAlpha[13].place.left);
}

} // namespace grimoval::test::letters
