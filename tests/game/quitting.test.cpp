// SPDX-License-Identifier: GPL-3.0-or-later
// The close request of the main window: the one way out of the program.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::quitting {

struct Quit : testing::Test {
    Game game;
    FMenu &menu = game.menu;

    void answer(int button) {
        game.windows.expectModal("Fmsg1",
                                 [=, this](Form &) { game.question.CmdMsg[button].userClick(); });
    }
};

constexpr int yes = 1, no = 2;

TEST_F(Quit, AtRestShowsNoScoreWindowAndSaysGoodBye) {
    answer(yes);
    ASSERT_TRUE(menu.CmdTjr[3].userClick());
    EXPECT_FALSE(menu.isLoaded());
    EXPECT_EQ(game.prompts(), (Events{"Quitter.Wav", "AlaProch.Wav"}));
}

TEST_F(Quit, SaysOneOfTwoGoodByesAtRandom) {
    game.random.numbers = {0.5f};
    answer(yes);
    menu.requestClose();
    EXPECT_EQ(game.prompts(), (Events{"Quitter.Wav", "Salut1.Wav"}));
}

TEST_F(Quit, IsRefusedByAnyAnswerButYes) {
    answer(no);
    ASSERT_TRUE(menu.CmdTjr[3].userClick());
    EXPECT_TRUE(menu.isShown());
    EXPECT_EQ(game.g.ReponseFenetre, 7);
    EXPECT_FALSE(game.g.FenetreModale);
    game.windows.expectModal("Fmsg1", [](Form &form) { form.requestClose(); });
    game.g.ReponseFenetre = 2;
    menu.requestClose();
    EXPECT_TRUE(menu.isShown());
    EXPECT_EQ(game.prompts(), (Events{"Quitter.Wav", "Quitter.Wav"}));
}

TEST_F(Quit, OfARunningGameShowsItsScoreFirst) {
    game.start({.words = {u"AB"}});
    game.windows.take();
    answer(yes);
    game.expectScore();
    menu.requestClose();
    EXPECT_FALSE(menu.isLoaded());
    EXPECT_EQ(game.prompts(), (Events{"Quitter.Wav", "Score.Wav", "AlaProch.Wav"}));
}

TEST_F(Quit, AfterAGameThatWasStoppedShowsNoScoreAgain) {
    game.start({.words = {u"AB"}});
    game.propose("AB");
    game.stop();
    answer(yes);
    menu.requestClose(); // a score window would be one that no test expected
    EXPECT_FALSE(menu.isLoaded());
}

TEST_F(Quit, NeedsBothWordsProposedAndABaseForTheScore) {
    game.g.scores.NbMotsProposes = 1;
    answer(yes);
    menu.requestClose();
    EXPECT_FALSE(menu.isLoaded());
}

TEST_F(Quit, ByItsButtonIsImpossibleWhileAModalWindowIsUp) {
    game.windows.expectModal("FOption", [this](Form &form) {
        EXPECT_TRUE(game.g.FenetreModale);
        menu.CmdTjr_Click(3);
        EXPECT_TRUE(menu.isShown());
        form.requestClose();
    });
    ASSERT_TRUE(menu.CmdCfg[1].userClick());
    EXPECT_EQ(game.prompts(), Events{});
    EXPECT_FALSE(game.g.FenetreModale);
}

TEST_F(Quit, IsNotTheEscapeKeyOfTheMainWindow) {
    game.press(Key::escape);
    EXPECT_TRUE(menu.isShown());
    EXPECT_EQ(game.windows.take(), Events{});
}

} // namespace grimoval::test::quitting
