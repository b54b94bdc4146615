// SPDX-License-Identifier: GPL-3.0-or-later
// Which buttons are greyed in each state of a game: no variable holds the state, they tell it.
#include "support/game.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace grimoval::test::buttons {

using Step = std::function<void(Game &)>;

const Step none = [](Game &) {};
const Step found = [](Game &g) { g.propose("AB"); };
const Step lost = [](Game &g) { g.propose("UVWXYZ"); };
const Step halfPair = [](Game &g) { g.propose("AB"); };
const Step pair = [](Game &g) { g.propose("AB"), g.propose("CD"); };
const Step pairLost = [](Game &g) { g.propose("AB"), g.propose("UVWXYZ"); };
const Step firstLost = [](Game &g) { g.propose("UVWXYZ"); };
const Step answer = [](Game &g) { ASSERT_TRUE(g.menu.CmdJeux[1].userClick()); };
const Step giveUp = [](Game &g) { g.propose("AB"), g.menu.CmdJeux[2].userClick(); };
const Step foundThenStopped = [](Game &g) { g.propose("AB"), g.stop(); };
const Step stopped = [](Game &g) { g.stop(); };
const Step pairThenStopped = [](Game &g) { g.propose("AB"), g.propose("CD"), g.stop(); };
const Step next = [](Game &g) { g.propose("AB"), g.enter(); };
const Step nextPair = [](Game &g) { g.propose("AB"), g.propose("CD"), g.enter(); };

// a active, g greyed, h hidden, in this order: "Nouvelle partie", "Stopper la partie", theme,
// settings, "Nouveau mot", "Voir la réponse", "Abandonner".
struct Row {
    const char *state;
    int mode;
    Step step;
    const char *buttons;
    bool letters; // some letter is enabled
};

const Row rows[] = {
    {"word, mode 1", 1, none, "gggggah", true},
    {"found, mode 1", 1, found, "gaggagh", false},
    {"lost, mode 1", 1, lost, "gaggagh", false},
    {"answer seen, mode 1", 1, answer, "gaggagh", false},
    {"next word, mode 1", 1, next, "gggggah", true},
    {"rest, mode 1", 1, foundThenStopped, "agaaggh", false},
    {"word, mode 2", 2, none, "gaggghh", true},
    {"wrong letters, mode 2", 2, lost, "gaggghh", true},
    {"found, mode 2", 2, found, "gaggahh", false},
    {"next word, mode 2", 2, next, "gaggghh", true},
    {"rest, mode 2", 2, stopped, "agaaghh", false},
    {"player 1, mode 3", 3, none, "ggggghg", true},
    {"player 2 after a word found, mode 3", 3, halfPair, "gggggha", true},
    {"player 2 after a word lost, mode 3", 3, firstLost, "gggggha", true},
    {"pair found, mode 3", 3, pair, "gaggahg", false},
    {"lost by player 2, mode 3", 3, pairLost, "gaggahg", false},
    {"given up, mode 3", 3, giveUp, "gaggahg", false},
    {"next pair, mode 3", 3, nextPair, "ggggghg", true},
    {"rest, mode 3", 3, pairThenStopped, "agaaghg", false},
};

std::string buttonsOf(FMenu &menu) {
    std::string text;
    for (const PictureButton *button :
         {&menu.CmdTjr[2], &menu.CmdTjr[0], &menu.CmdBase, &menu.CmdCfg[0], &menu.CmdJeux[0],
          &menu.CmdJeux[1], &menu.CmdJeux[2]}) {
        text += !button->Visible ? 'h' : button->Inactif ? 'g' : 'a';
    }
    return text;
}

TEST(Buttons, AreGreyedByTheStateOfTheGameAndItsMode) {
    for (const Row &row : rows) {
        Game game(false);
        game.start({.mode = row.mode, .words = {u"AB", u"CD", u"AB", u"CD"}});
        row.step(game);
        EXPECT_EQ(buttonsOf(game.menu), row.buttons) << row.state;
        const bool letters = std::any_of(game.menu.VsAlpha.begin(), game.menu.VsAlpha.end(),
                                         [](LetterButton &b) { return b.Enabled.get(); });
        EXPECT_EQ(letters, row.letters) << row.state;
        for (const PictureButton *always : {&game.menu.CmdTjr[1], &game.menu.CmdTjr[3],
                                            &game.menu.CmdCfg[1], &game.menu.lblAbout}) {
            EXPECT_FALSE(always->Inactif) << row.state << " " << always->path();
        }
    }
}

TEST(Buttons, BeforeTheFirstGameOfferNoWordAndAreThoseOfTheMode) {
    Game game;
    EXPECT_EQ(buttonsOf(game.menu), "agaaggh");
    EXPECT_FALSE(game.menu.Bord[3].Visible);
    EXPECT_TRUE(game.menu.FluxScore.Visible);
}

TEST(Buttons, OfTheDesignAreGreyedForNewWordAnswerAndStopAlone) {
    Game game;
    const std::pair<PictureButton *, bool> design[] = {
        {&game.menu.CmdTjr[0], true},   {&game.menu.CmdTjr[1], false},
        {&game.menu.CmdTjr[2], false},  {&game.menu.CmdTjr[3], false},
        {&game.menu.CmdJeux[0], true},  {&game.menu.CmdJeux[1], true},
        {&game.menu.CmdJeux[2], false}, {&game.menu.CmdBase, false},
        {&game.menu.CmdCfg[0], false},  {&game.menu.CmdCfg[1], false},
        {&game.menu.lblAbout, false}};
    for (const auto &[button, greyed] : design) {
        EXPECT_EQ(button->Inactif.get(), greyed) << button->path();
    }
}

TEST(Buttons, BearTheNamesOfTheirCommands) {
    Game game;
    const std::pair<PictureButton *, const char *> names[] = {
        {&game.menu.CmdTjr[0], "Stopper la partie"},
        {&game.menu.CmdTjr[1], "Aide"},
        {&game.menu.CmdTjr[2], "Nouvelle partie"},
        {&game.menu.CmdTjr[3], "Quitter"},
        {&game.menu.CmdJeux[0], "Nouveau mot"},
        {&game.menu.CmdJeux[1], "Voir la réponse"},
        {&game.menu.CmdJeux[2], "Abandonner"},
        {&game.menu.CmdBase, "Changer de thème"},
        {&game.menu.CmdCfg[0], "Configuration du jeu"},
        {&game.menu.CmdCfg[1], "Configuration du son"},
        {&game.menu.lblAbout, "A propos"}};
    for (const auto &[button, name] : names) {
        EXPECT_EQ(toUtf8(button->accessibleName), name);
        EXPECT_TRUE(button->tooltip) << name;
    }
    EXPECT_EQ(shown(game.menu.RapTit.ToolTipText), "Sujet : ");
    EXPECT_EQ(shown(game.menu.Rappel[1].ToolTipText), "A toi");
    EXPECT_EQ(shown(game.menu.Rappel[2].ToolTipText), "A toi");
}

TEST(Buttons, ThatLeadOnDrawTheEyeAndNoOther) {
    Game game;
    FMenu &menu = game.menu;
    for (const PictureButton *button :
         {&menu.CmdTjr[0], &menu.CmdTjr[1], &menu.CmdTjr[2], &menu.CmdTjr[3], &menu.CmdJeux[0],
          &menu.CmdJeux[1], &menu.CmdJeux[2], &menu.CmdBase, &menu.CmdCfg[0], &menu.CmdCfg[1],
          &menu.lblAbout}) {
        EXPECT_EQ(button->prominent, button == &menu.CmdTjr[2] || button == &menu.CmdJeux[0])
            << button->path();
    }
}

TEST(Buttons, AreReachedByTabFromTheLeftToTheRight) {
    Game game;
    FMenu &menu = game.menu;
    for (const Control *control : std::initializer_list<Control *>{
             &menu.CmdTjr[2], &menu.CmdBase, &menu.CmdCfg[0], &menu.CmdCfg[1], &menu.CmdTjr[1],
             &menu.lblAbout, &menu.CmdTjr[3], &menu.Image1, &menu.CmdTjr[2]}) {
        EXPECT_EQ(menu.focus(), control) << control->path();
        game.press(Key::tab);
    }
    game.start({.mode = 3, .words = {u"AB", u"CD"}});
    game.propose("AB"); // player 2 may give up
    menu.setFocus(menu.CmdTjr[3]);
    Key back;
    back.code = Key::tab;
    back.shift = true;
    menu.pressKey(back);
    EXPECT_EQ(menu.focus(), &menu.lblAbout);
}

TEST(Buttons, GreyedTakeNoClickWhichChangesNothing) {
    Game game;
    game.start({.words = {u"AB", u"CD"}});
    game.windows.take();
    for (PictureButton *greyed :
         {&game.menu.CmdTjr[2], &game.menu.CmdTjr[0], &game.menu.CmdBase, &game.menu.CmdCfg[0],
          &game.menu.CmdJeux[0], &game.menu.CmdJeux[2]}) {
        EXPECT_FALSE(greyed->userClick()) << greyed->path();
    }
    EXPECT_EQ(game.windows.take(), Events{});
}

} // namespace grimoval::test::buttons
