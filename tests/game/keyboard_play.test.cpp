// SPDX-License-Identifier: GPL-3.0-or-later
// The keyboard of the main window: letters, Enter for the next word, and nothing else.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::keyboard_play {

struct KeyInPlay : testing::Test {
    Game game;
    FMenu &menu = game.menu;
    ScoresPartie &scores = game.g.scores;
};

TEST_F(KeyInPlay, BeforeAnyWordHasBeenDrawnIsIgnoredWithoutASound) {
    game.key(u'A');
    game.enter();
    EXPECT_EQ(game.windows.take(), Events{});
    EXPECT_EQ(menu.IndiceLettre, 0);
}

TEST_F(KeyInPlay, IsDeadAgainWhenTheGameHasBeenScored) {
    game.start({.words = {u"AB", u"CD"}});
    game.propose("AB");
    game.stop();
    game.windows.take();
    game.key(u'A');
    game.enter();
    EXPECT_EQ(game.windows.take(), Events{});
}

TEST_F(KeyInPlay, ActsAsTheLettersButtonInCapitalsOrSmall) {
    game.start({.words = {u"BANANE"}});
    game.key(u'a');
    game.key(u'N');
    EXPECT_EQ(game.word(), "#ANAN#");
    EXPECT_EQ(scores.Score[1], 2);
    game.key(u'z');
    EXPECT_EQ(menu.ErreursMot[1], 1);
    EXPECT_EQ(menu.IndiceLettre, 25);
}

TEST_F(KeyInPlay, OfALetterAlreadyProposedPlaysTheRefusalAndChangesNothing) {
    game.start({.words = {u"BANANE"}});
    game.propose("AZ");
    game.windows.take();
    for (const char16_t key : {u'A', u'a', u'Z', u'z'}) {
        game.key(key);
        EXPECT_EQ(game.windows.take(), Events{"parole ohoh.Wav"});
    }
    EXPECT_EQ(menu.ErreursMot[1], 1);
    EXPECT_EQ(scores.Score[1], 1);
}

TEST_F(KeyInPlay, BetweenTwoWordsPlaysTheRefusalForAnyLetter) {
    game.start({.words = {u"AB", u"CD"}});
    game.propose("AB");
    game.windows.take();
    game.key(u'C');
    EXPECT_EQ(game.windows.take(), Events{"parole ohoh.Wav"});
}

TEST_F(KeyInPlay, EnterAsksForTheNextWordWhenOneIsToBeHadAndNeverElse) {
    game.start({.words = {u"AB", u"CD"}});
    game.windows.take();
    game.enter();
    EXPECT_EQ(game.windows.take(), Events{});
    EXPECT_EQ(scores.NbMotsProposes, 1);
    game.propose("AB");
    game.enter();
    EXPECT_EQ(scores.NbMotsProposes, 2);
    EXPECT_EQ(toUtf8(menu.MotCherche[1]), "CD");
}

TEST_F(KeyInPlay, ThatIsNoLetterDoesNothingInSilence) {
    game.start({.words = {u"ÉTÉ CHAUD"}});
    game.windows.take();
    for (const char16_t key : Texte(u"éÉèÇçœŒàù0123456789-'().,;!?*#@[`{_")) {
        game.key(key);
    }
    for (const Key::Code code : {Key::escape, Key::back, Key::tab}) {
        game.press(code);
    }
    EXPECT_EQ(game.windows.take(), Events{});
    EXPECT_EQ(menu.ErreursMot[1], 0);
    EXPECT_TRUE(menu.isShown());
}

TEST_F(KeyInPlay, AltWithF4DoesNothingInTheWindowItself) {
    game.start({.words = {u"AB"}});
    game.windows.take();
    Key key;
    key.code = Key::f4;
    key.alt = true;
    menu.pressKey(key);
    EXPECT_EQ(game.windows.take(), Events{});
    EXPECT_TRUE(menu.isShown());
}

TEST_F(KeyInPlay, IsSeenByTheWindowWhicheverControlHasTheFocus) {
    game.start({.words = {u"BANANE"}});
    menu.setFocus(menu.CmdTjr[3]);
    game.key(u'A');
    EXPECT_EQ(game.word(), "#A#A##");
    EXPECT_TRUE(game.click('N'));
    game.key(u'E');
    EXPECT_EQ(game.word(), "#ANANE");
}

TEST_F(KeyInPlay, GivesALetterItsIndexAndRefusesAnyOtherCharacter) {
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter) {
        menu.IndiceDeLettre(letter);
        EXPECT_EQ(menu.IndiceLettre, letter - u'A');
        menu.IndiceDeLettre(u'Q');
        menu.IndiceDeLettre(static_cast<char16_t>(letter + 32));
        EXPECT_EQ(menu.IndiceLettre, letter - u'A');
    }
    game.windows.take();
    menu.IndiceDeLettre(u'C');
    EXPECT_EQ(game.windows.take(), Events{});
    for (const char16_t other : Texte(u"É3 (@[`{")) {
        menu.IndiceDeLettre(other);
        EXPECT_EQ(menu.IndiceLettre, 2);
        EXPECT_EQ(game.windows.take(), Events{"parole ohoh.Wav"});
    }
}

} // namespace grimoval::test::keyboard_play
