// SPDX-License-Identifier: GPL-3.0-or-later
// What a mode shows, it shows from the first coming of the main window on, whether or not anybody
// has been through the configuration.
#include "support/game.h"
#include "support/startup.h"

#include <gtest/gtest.h>

namespace grimoval::test::mode_on_view {

std::string shownOf(FMenu &menu) {
    const auto word = [](const char *name, bool visible) {
        return visible ? std::string(name) + " " : std::string();
    };
    return word("panel2", menu.Bord[3].isVisible()) + word("name2", menu.Rappel[2].isVisible()) +
           word("score2", menu.ImgScore[1].isVisible()) +
           word("found", menu.FluxScore.isVisible()) + word("answer", menu.CmdJeux[1].isVisible()) +
           word("giveUp", menu.CmdJeux[2].isVisible());
}

struct Row {
    int mode;
    const char *shown;
};

class ModeOnView : public testing::TestWithParam<Row> {};

TEST_P(ModeOnView, AtASecondStartIsThatOfTheSettings) {
    Startup start;
    start.folder.write(Startup::settings,
                       "[Le Grimoval]\r\nNombreJoueur=" + std::to_string(GetParam().mode) + "\r\n");
    bool looked = false;
    start.atMenu = [&] {
        EXPECT_EQ(shownOf(start.all.menu), GetParam().shown);
        EXPECT_EQ(shown(start.all.menu.Rappel[1].Caption), "");
        EXPECT_EQ(shown(start.all.menu.Rappel[2].Caption), "");
        EXPECT_FALSE(start.all.menu.CmdJeux[1].isOpen());
        EXPECT_FALSE(start.all.menu.CmdJeux[2].isOpen());
        looked = true;
    };
    EXPECT_EQ(start.run(), 0);
    EXPECT_TRUE(looked);
}

// The mode changes at once with OK, and no names are asked for in mode 3 where a theme is chosen.
TEST_P(ModeOnView, IsThatOfTheConfigurationAlsoWhenTheNamesWereRefused) {
    Game game;
    game.windows.expectModal("FCHoix", [&](Form &form) {
        game.choice.CmdNbPlay[GetParam().mode - 1].userClick();
        game.windows.expectModal("Fnom", [](Form &names) { names.requestClose(); });
        game.choice.Cmd[1].userClick();
        form.requestClose();
    });
    ASSERT_TRUE(game.menu.CmdCfg[0].userClick());
    EXPECT_EQ(shownOf(game.menu), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Modes, ModeOnView,
                         testing::Values(Row{1, "found answer "}, Row{2, "panel2 name2 score2 "},
                                         Row{3, "panel2 name2 score2 giveUp "}),
                         [](const auto &row) { return "Mode" + std::to_string(row.param.mode); });

TEST(ModeOnView, OfAGameOfMode3BegunWithoutTheConfigurationHasAllOfPlayer2) {
    Game game;
    game.g.reglages.NombreJoueur = 3;
    game.install({{u"BETES", u"Bêtes", {u"BOA", u"CHAT"}}});
    game.write(u"IMAGES/IMG01.BMP", "BM");
    game.menu.hide();
    game.menu.show();
    game.expectTheme(0);
    ASSERT_TRUE(game.menu.CmdBase.userClick());
    ASSERT_TRUE(game.menu.CmdTjr[2].userClick()); // no window comes
    EXPECT_EQ(shownOf(game.menu), "panel2 name2 score2 giveUp ");
    EXPECT_FALSE(game.menu.CmdJeux[2].userClick()); // player 2 alone gives up
    game.propose(toUtf8(game.menu.MotCherche[1]));
    EXPECT_EQ(shown(game.menu.Rappel[2].Caption), " A toi");
    EXPECT_TRUE(game.menu.CmdJeux[2].userClick());
    EXPECT_EQ(game.g.scores.Abandons[2], 1);
}

} // namespace grimoval::test::mode_on_view
