// SPDX-License-Identifier: GPL-3.0-or-later
// A word lost or given up, and the booking of its errors.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::end_of_word {

struct EndOfWord : testing::Test {
    Game game;
    FMenu &menu = game.menu;
    ScoresPartie &scores = game.g.scores;

    Colour colour() const { return menu.AffMot[0].ForeColor; }
};

TEST_F(EndOfWord, LostInMode1ShowsTheAnswerInRedUnderAFullCurtain) {
    game.start({.words = {u"L'ÉTÉ (SAISON)"}, .errors = 2});
    game.propose("A");
    game.windows.take();
    game.propose("B");
    EXPECT_EQ(game.word(), "L'ÉTÉ (SAISON)");
    EXPECT_EQ(colour(), colours::red);
    EXPECT_EQ(menu.Shape1.Height.get(), 200);
    EXPECT_TRUE(menu.Shape1.Visible);
    EXPECT_EQ(game.prompts(), (Events{"CesPBon.Wav", "FauFaEff.Wav"}));
    EXPECT_EQ(scores.Score[1], 0);
    EXPECT_EQ(scores.MauvaisesLettres[1], 2);
}

TEST_F(EndOfWord, LimitOfOneLosesTheWordAtTheFirstWrongLetter) {
    game.start({.words = {u"AB"}, .errors = 1});
    EXPECT_FALSE(menu.Shape1.Visible);
    game.propose("Z");
    EXPECT_EQ(game.word(), "AB");
    EXPECT_FALSE(menu.CmdJeux[0].Inactif);
    EXPECT_EQ(menu.Shape1.Height.get(), 200);
    EXPECT_TRUE(menu.Shape1.Visible);
}

TEST_F(EndOfWord, LostByTimeBooksTheWholeLimitAndIsNotSpokenOfTwice) {
    game.start({.words = {u"AB"}, .limited = true, .seconds = 5});
    game.propose("YZ");
    game.windows.take();
    advance(game, 5);
    EXPECT_EQ(menu.ErreursMot[1], 6);
    EXPECT_EQ(scores.MauvaisesLettres[1], 6);
    EXPECT_EQ(game.prompts(), Events{"TropTar.Wav"});
    EXPECT_EQ(game.word(), "AB");
    EXPECT_EQ(colour(), colours::red);
    // The next loss is spoken of again.
    EXPECT_TRUE(menu.MessageEchec);
}

TEST_F(EndOfWord, LostByTimeCoversThePictureEvenWithoutAWrongLetter) {
    for (const int mode : {1, 3}) {
        Game other;
        other.start({.mode = mode, .words = {u"AB", u"CD"}, .limited = true, .seconds = 5});
        other.propose(mode == 3 ? "AB" : "A");
        EXPECT_FALSE(other.menu.Shape1.Visible);
        advance(other, 5);
        EXPECT_TRUE(other.menu.Shape1.Visible) << mode;
        EXPECT_EQ(other.menu.Shape1.Height.get(), 200) << mode;
    }
}

TEST_F(EndOfWord, LostInMode3NeverShowsTheAnswer) {
    game.start({.mode = 3, .words = {u"AB", u"CD"}, .errors = 1});
    game.propose("A");
    game.propose("Z");
    game.propose("C");
    game.propose("Z");
    EXPECT_EQ(game.word(), "C#");
    EXPECT_EQ(colour(), colours::blue);
    EXPECT_FALSE(menu.CmdJeux[0].Inactif);
}

TEST_F(EndOfWord, CannotBeALossInMode2) {
    game.start({.mode = 2, .words = {u"AB"}, .errors = 1});
    for (const char letter : std::string("CDEFGHIJKLMNOPQRSTUVWXYZ")) {
        game.propose(std::string(1, letter));
        EXPECT_LE(menu.ErreursMot[1], 1);
        EXPECT_LE(menu.ErreursMot[2], 1);
    }
    EXPECT_TRUE(menu.CmdJeux[0].Inactif);
    EXPECT_FALSE(menu.Shape1.Visible);
    EXPECT_FALSE(menu.CmdJeux[1].userClick()); // there is no button to give up
    EXPECT_FALSE(menu.CmdJeux[2].userClick());
    EXPECT_EQ(scores.MauvaisesLettres[1], 12);
    EXPECT_EQ(scores.MauvaisesLettres[2], 12);
    game.propose("AB");
    EXPECT_EQ(scores.MotsTrouves[1], 1);
    EXPECT_EQ(scores.MauvaisesLettres[1], 12); // the end of the word adds nothing
}

TEST_F(EndOfWord, GivenUpInMode1ShowsTheAnswerAndLeavesTheCurtainWhereItIs) {
    game.start({.words = {u"AB"}});
    game.propose("YZ");
    game.windows.take();
    ASSERT_TRUE(menu.CmdJeux[1].userClick());
    EXPECT_EQ(game.word(), "AB");
    EXPECT_EQ(colour(), colours::red);
    EXPECT_EQ(game.prompts(), Events{"FauFaEff.Wav"});
    EXPECT_EQ(scores.Abandons[1], 1);
    EXPECT_EQ(scores.MauvaisesLettres[1], 2);
    EXPECT_EQ(scores.Score[1], 0);
    EXPECT_EQ(menu.Shape1.Height.get(), 67);
    EXPECT_FALSE(menu.CmdJeux[0].Inactif);
}

TEST_F(EndOfWord, GivenUpInMode3DoesNotShowTheWord) {
    game.start({.mode = 3, .words = {u"AB", u"CD"}});
    game.propose("AB");
    game.propose("CZ");
    game.windows.take();
    ASSERT_TRUE(menu.CmdJeux[2].userClick());
    EXPECT_EQ(game.word(), "C#");
    EXPECT_EQ(colour(), colours::blue);
    EXPECT_EQ(game.prompts(), Events{"FauFaEff.Wav"});
    EXPECT_EQ(scores.Abandons[2], 1);
    EXPECT_EQ(scores.Abandons[1], 0);
    EXPECT_EQ(scores.MauvaisesLettres[2], 1);
    EXPECT_EQ(menu.Shape1.Height.get(), 34);
}

TEST_F(EndOfWord, GiveUpLetsPendingEventsRunBetweenThePromptAndTheBooking) {
    game.start({.words = {u"AB"}});
    game.windows.take();
    int abandons = -1;
    Events before;
    game.windows.onProcessEvents = [&] {
        abandons = scores.Abandons[1];
        before = game.windows.events;
    };
    ASSERT_TRUE(menu.CmdJeux[1].userClick());
    EXPECT_EQ(abandons, 0);
    EXPECT_EQ(before.end()[-2], "parole FauFaEff.Wav"); // then that they are let in
}

TEST_F(EndOfWord, BooksTheErrorsOfPlayer1TwiceInMode3AndThoseOfPlayer2Once) {
    game.start({.mode = 3, .words = {u"AB", u"CD"}});
    game.propose("WXYZAB");
    EXPECT_EQ(scores.MauvaisesLettres[1], 8);
    EXPECT_EQ(menu.ErreursMot[1], 0);
    game.propose("XYZCD");
    EXPECT_EQ(scores.MauvaisesLettres[2], 3);
    EXPECT_EQ(scores.MauvaisesLettres[1], 8);
    EXPECT_EQ(scores.ChangementsTour[1], 1);
    EXPECT_EQ(scores.ChangementsTour[2], 0);
}

TEST_F(EndOfWord, StoppedInMode2IsAbandonedWithoutAnyBooking) {
    game.start({.mode = 2, .words = {u"AB", u"CD"}});
    game.propose("ZA");
    std::array<Int16, 3> bad{};
    int proposed = 0;
    game.windows.expectModal("FScore2", [&](Form &form) {
        bad = scores.MauvaisesLettres;
        proposed = scores.NbMotsProposes;
        form.requestClose();
    });
    ASSERT_TRUE(menu.CmdTjr[0].userClick());
    EXPECT_EQ(bad[1], 1); // that of the change of turn
    EXPECT_EQ(bad[2], 0);
    EXPECT_EQ(proposed, 1);                                       // it counts as proposed
    EXPECT_EQ(shownValue(menu.LstMot[1].Items.get()), R"("CD")"); // its entry is gone
}

} // namespace grimoval::test::end_of_word
