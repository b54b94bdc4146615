// SPDX-License-Identifier: GPL-3.0-or-later
// Two players: whose turn it is, and what the screen says of it.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::turns {

struct Turn : testing::Test {
    Game game;
    FMenu &menu = game.menu;
    ScoresPartie &scores = game.g.scores;

    std::string labels() const {
        return shown(menu.Rappel[1].Caption) + " | " + shown(menu.Rappel[2].Caption);
    }
};

TEST_F(Turn, OfEachWordIsPlayer1sAtFirstAndTheLabelInvites) {
    for (const int mode : {1, 2, 3}) {
        Game other(false);
        other.start({.mode = mode, .words = {u"A", u"B", u"C", u"D"}});
        EXPECT_EQ(other.menu.JoueurCourant, 1);
        EXPECT_EQ(shown(other.menu.Rappel[1].Caption), "MARIE D. A toi");
        EXPECT_EQ(shown(other.menu.Rappel[2].Caption), mode == 1 ? "" : "LÉO P.");
    }
}

TEST_F(Turn, PassesAtEachWrongLetterInMode2WhichIsBookedAtOnce) {
    game.start({.mode = 2, .words = {u"ABC"}});
    game.propose("Z");
    EXPECT_EQ(menu.JoueurCourant, 2);
    EXPECT_EQ(labels(), "MARIE D. | LÉO P. A toi");
    EXPECT_EQ(scores.MauvaisesLettres[1], 1);
    EXPECT_EQ(scores.ChangementsTour[1], 1);
    EXPECT_EQ(menu.ErreursMot[1], 0);
    game.propose("Y");
    EXPECT_EQ(menu.JoueurCourant, 1);
    EXPECT_EQ(labels(), "MARIE D. A toi | LÉO P.");
    EXPECT_EQ(scores.MauvaisesLettres[2], 1);
    EXPECT_EQ(scores.ChangementsTour[2], 1);
}

TEST_F(Turn, StaysAtAGoodLetterInMode2) {
    game.start({.mode = 2, .words = {u"ABC"}});
    game.propose("Z");
    game.propose("A");
    EXPECT_EQ(menu.JoueurCourant, 2);
    EXPECT_EQ(scores.Score[2], 1);
    EXPECT_EQ(scores.Score[1], 0);
    EXPECT_EQ(shown(menu.ImgScore[1].Caption), "1");
}

TEST_F(Turn, LeavesTheLettersAsTheyAreInMode2) {
    game.start({.mode = 2, .words = {u"ABC"}});
    game.propose("AZ");
    EXPECT_FALSE(game.click('A'));
    EXPECT_FALSE(game.click('Z'));
    EXPECT_EQ(shown(menu.VsAlpha[25].DisabledPicture), "Z.fausse");
}

TEST_F(Turn, IsPlayer1sAgainAtTheNextWordAndTheInvitationGoesBetweenWords) {
    game.start({.mode = 2, .words = {u"A", u"B"}});
    game.propose("ZA");
    EXPECT_EQ(labels(), "MARIE D. | LÉO P.");
    game.enter();
    EXPECT_EQ(menu.JoueurCourant, 1);
    EXPECT_EQ(labels(), "MARIE D. A toi | LÉO P.");
}

TEST_F(Turn, OfPlayer2InMode3BringsHisWordFreshLettersAndABareLine) {
    game.start({.mode = 3, .words = {u"AB", u"CDE"}});
    game.propose("ZAB");
    EXPECT_EQ(menu.JoueurCourant, 2);
    EXPECT_EQ(game.word(), "###");
    EXPECT_EQ(shown(menu.AffMot[1].Caption), "3");
    EXPECT_EQ(menu.AffMot[0].ForeColor.get(), colours::blue);
    EXPECT_EQ(labels(), "MARIE D. | LÉO P. A toi");
    for (LetterButton &button : menu.VsAlpha) {
        EXPECT_TRUE(button.Enabled);
    }
    EXPECT_EQ(menu.Shape1.Height.get(), 1);
    EXPECT_TRUE(menu.Shape1.Visible);
    EXPECT_TRUE(menu.CmdJeux[0].Inactif);
}

TEST_F(Turn, OfPlayer2InMode3UncoversHisOwnWordAlone) {
    game.start({.mode = 3, .words = {u"AB", u"CDE"}});
    game.propose("AB");
    game.propose("CA");
    EXPECT_EQ(game.word(), "C##");
    EXPECT_EQ(menu.ErreursMot[2], 1);
    EXPECT_EQ(menu.ErreursMot[1], 0);
    EXPECT_EQ(scores.Score[2], 1);
    game.propose("DE");
    EXPECT_EQ(scores.MotsTrouves[2], 1);
    EXPECT_EQ(labels(), "MARIE D. | LÉO P.");
    EXPECT_FALSE(menu.CmdJeux[0].Inactif);
}

TEST_F(Turn, EndsForPlayer1InMode3AlsoWithALostWordWhoseAnswerIsNotShown) {
    game.start({.mode = 3, .words = {u"AB", u"CDE"}, .errors = 1});
    game.windows.take();
    game.propose("Z");
    for (const std::string &event : only(game.windows.take(), "FMenu.AffMot(0)")) {
        EXPECT_EQ(event.find("AB"), std::string::npos) << event;
    }
    EXPECT_EQ(menu.JoueurCourant, 2);
    EXPECT_EQ(game.word(), "###");
}

TEST_F(Turn, WhichIsNotTheThinkingTimesComesWithoutALimitInMode2Too) {
    game.start({.mode = 2, .words = {u"AB"}});
    game.propose("Z");
    EXPECT_EQ(menu.JoueurCourant, 2);
    EXPECT_FALSE(menu.FluReflec.EnMarche);
}

TEST_F(Turn, PassesWithAGoodLetterInMode2WhereTheTimeIsLimitedButDoesNotRun) {
    for (const bool runs : {true, false}) {
        Game other;
        other.start({.mode = 2, .words = {u"AMI"}, .limited = true});
        other.menu.FluxActif = runs;
        other.propose("A");
        EXPECT_EQ(other.menu.JoueurCourant, runs ? 1 : 2);
        EXPECT_EQ(other.word(), "A##");
    }
}

} // namespace grimoval::test::turns
