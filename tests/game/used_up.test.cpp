// SPDX-License-Identifier: GPL-3.0-or-later
// A list with no word left ends the game.
#include "support/game.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace grimoval::test::used_up {

constexpr const char *allProposed =
    R"(message information "Le Grimoval " "Tous les mots ont été proposés.\n\n)"
    R"(Pour recommencer avec le même sujet : cliquer sur la flêche verte.\n\n)"
    R"(Pour changer de sujet : cliquer sur \"Choisir sujet\".\n")";

Events messages(Game &game) { return only(game.windows.take(), "message"); }

void expectRest(Game &game) {
    EXPECT_EQ(game.word(), "Pour commencer : appuie sur le bouton vert");
    EXPECT_EQ(game.menu.AffMot[0].FontSize.get(), 12);
    EXPECT_FALSE(game.menu.CmdTjr[2].Inactif);
    EXPECT_TRUE(game.menu.CmdTjr[0].Inactif);
    EXPECT_TRUE(game.menu.CmdJeux[0].Inactif);
    EXPECT_FALSE(game.menu.CmdBase.Inactif);
    EXPECT_FALSE(game.menu.VsAlpha[0].Enabled);
    EXPECT_EQ(game.g.scores.NbMotsBase, 0);
}

TEST(UsedUpList, OfNWordsInMode1SaysSoAtDrawNPlus1WithNWordsProposed) {
    Game game;
    game.start({.words = {u"A", u"B", u"C"}});
    for (const char letter : {'A', 'B', 'C'}) {
        game.propose(std::string(1, letter));
        EXPECT_EQ(messages(game), Events{});
        if (letter != 'C') {
            game.enter();
        }
    }
    int proposed = 0;
    game.windows.expectModal("FScore2", [&](Form &form) {
        proposed = game.g.scores.NbMotsProposes;
        form.requestClose();
    });
    game.enter();
    EXPECT_EQ(proposed, 3);
    EXPECT_EQ(messages(game), Events{allProposed});
    expectRest(game);
    EXPECT_FALSE(game.menu.PartieEnCours);
}

TEST(UsedUpList, OfOneWordInMode3EndsTheGameAtItsVeryFirstDraw) {
    Game game;
    game.prepare({.mode = 3, .words = {u"SEUL"}});
    game.expectScore();
    ASSERT_TRUE(game.menu.CmdTjr[2].userClick());
    EXPECT_EQ(messages(game), Events{allProposed});
    expectRest(game);
    EXPECT_EQ(game.g.scores.NbMotsProposes, 0);
    // The steps after the draw are taken all the same: the clock of a game runs.
    EXPECT_TRUE(game.menu.PartieEnCours);
}

TEST(UsedUpList, OfAnOddNumberInMode3NeverPlaysTheLastWord) {
    Game game;
    game.start({.mode = 3, .words = {u"A", u"B", u"C"}});
    game.propose("A");
    game.propose("B");
    EXPECT_EQ(shownValue(game.menu.LstMot[1].Items.get()), R"("C")");
    game.expectScore();
    game.enter();
    EXPECT_EQ(messages(game), Events{allProposed});
    expectRest(game);
}

TEST(UsedUpList, OfNoWordAtAllTakesTheSamePath) {
    for (const int mode : {1, 2, 3}) {
        Game game(false);
        game.prepare({.mode = mode, .words = {}});
        game.expectScore();
        ASSERT_TRUE(game.menu.CmdTjr[2].userClick());
        EXPECT_EQ(messages(game), Events{allProposed}) << mode;
        expectRest(game);
    }
}

TEST(UsedUpList, InMode2SaysSoAsInMode1) {
    Game game(false);
    game.start({.mode = 2, .words = {u"A"}});
    game.propose("A");
    game.expectScore();
    game.enter();
    EXPECT_EQ(messages(game), Events{allProposed});
    expectRest(game);
}

TEST(UsedUpList, TellsFirstThenInvitesThenStops) {
    Game game(false);
    game.start({.words = {u"A"}});
    game.propose("A");
    game.windows.take();
    game.expectScore();
    game.enter();
    const Events events = game.windows.take();
    const auto place = [&](const std::string &event) {
        return std::find(events.begin(), events.end(), event) - events.begin();
    };
    const auto message = place(allProposed), font = place("FMenu.AffMot(0).FontSize = 12"),
               text = place(
                   R"(FMenu.AffMot(0).Caption = "Pour commencer : appuie sur le bouton vert")"),
               score = place("fenetre FScore2 affichee");
    EXPECT_LT(message, font);
    EXPECT_LT(font, text);
    EXPECT_LT(text, score);
    EXPECT_LT(score, static_cast<std::ptrdiff_t>(events.size()));
}

TEST(UsedUpList, CanBePlayedAgainFromItsBeginning) {
    Game game;
    game.start({.words = {u"A"}});
    game.propose("A");
    game.expectScore();
    game.enter();
    ASSERT_TRUE(game.menu.CmdTjr[2].userClick());
    EXPECT_EQ(toUtf8(game.menu.MotCherche[1]), "A");
    EXPECT_EQ(game.word(), "#");
}

} // namespace grimoval::test::used_up
