// SPDX-License-Identifier: GPL-3.0-or-later
// The curtain over the theme's picture, a gauge of the errors of the word.
#include "support/failures.h"
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::curtain {

const std::string wrong = "BCDEFGHIJKLMNOPQRSTU";

// For each limit, the height after 1, 2, 3 ... errors; the last one loses the word.
const std::pair<int, std::vector<int>> rows[] = {
    {1, {200}},
    {2, {101, 200}},
    {3, {67, 133, 200}},
    {4, {51, 101, 151, 200}},
    {5, {41, 81, 121, 161, 200}},
    {6, {34, 67, 100, 133, 166, 200}},
    {7, {29, 57, 85, 113, 141, 169, 200}},
    {8, {26, 51, 76, 101, 126, 151, 176, 200}},
    {9, {23, 45, 67, 89, 111, 133, 155, 177, 200}},
    {10, {21, 41, 61, 81, 101, 121, 141, 161, 181, 200}},
    {13, {16, 31, 46, 61, 76, 91, 106, 121, 136, 151, 166, 181, 200}},
    {20,
     {11, 21, 31, 41, 51, 61, 71, 81, 91, 101, 111, 121, 131, 141, 151, 161, 171, 181, 191, 200}},
};

struct Curtain : testing::Test {
    Game game;
    FMenu &menu = game.menu;
    Shape &shape = menu.Shape1;

    int height() const { return shape.Height; }
};

TEST_F(Curtain, FallsByTheWholePartOf200DividedByTheLimitAndToTheGroundAtALoss) {
    for (const auto &[limit, heights] : rows) {
        for (const int mode : {1, 3}) {
            Game other(false);
            other.start({.mode = mode, .words = {u"XY", u"ZV"}, .errors = limit});
            EXPECT_EQ(shown(other.menu.VSDessin.Tag),
                      std::to_string(limit == 1 ? 200 : heights[0] - 1));
            if (mode == 3) {
                other.propose("XY"); // player 2's half is the one whose loss stays on view
            }
            EXPECT_EQ(other.menu.Shape1.Height.get(), 1);
            EXPECT_FALSE(other.menu.Shape1.Visible);
            for (std::size_t i = 0; i < heights.size(); ++i) {
                other.propose(wrong.substr(i, 1));
                EXPECT_EQ(other.menu.Shape1.Height.get(), heights[i])
                    << "limit " << limit << ", error " << i + 1;
                EXPECT_TRUE(other.menu.Shape1.Visible);
            }
        }
    }
}

TEST_F(Curtain, OfALimitBeyond200StandsAsALineUntilTheWordIsLost) {
    game.start({.words = {u"XY"}, .errors = 250});
    EXPECT_EQ(shown(menu.VSDessin.Tag), "0");
    game.propose("ABCDE");
    EXPECT_EQ(height(), 1);
    EXPECT_TRUE(shape.Visible);
}

TEST_F(Curtain, OfALimitBeyond200ClosesWhenTheWordIsLostByErrorsOrByTime) {
    for (const auto &[limit, step] : {std::pair{200, 1}, {201, 0}, {250, 0}, {32767, 0}}) {
        for (const bool byTime : {false, true}) {
            Game other(false);
            other.start({.words = {u"XY"}, .errors = limit, .limited = true, .seconds = 20});
            EXPECT_EQ(shown(other.menu.VSDessin.Tag), std::to_string(step)) << limit;
            other.propose("ABCDEFGHIJKLMNOPQRSTUVW");
            EXPECT_EQ(other.menu.Shape1.Height.get(), 1 + 23 * step) << limit;
            EXPECT_TRUE(other.menu.CmdJeux[0].Inactif) << limit;
            if (byTime) {
                advance(other, 20);
            } else {
                other.menu.ErreursMot[1] = limit - 1; // no word has so many letters
                other.propose("Z");
            }
            EXPECT_EQ(other.menu.ErreursMot[1], limit);
            EXPECT_FALSE(other.menu.CmdJeux[0].Inactif) << limit;
            EXPECT_EQ(other.menu.Shape1.Height.get(), 200) << limit;
            EXPECT_TRUE(other.menu.Shape1.Visible) << limit;
        }
    }
}

TEST_F(Curtain, NeverMovesInMode2) {
    game.start({.mode = 2, .words = {u"XY"}, .errors = 1});
    game.propose("ABCDEFGH");
    EXPECT_EQ(height(), 1);
    EXPECT_FALSE(shape.Visible);
}

TEST_F(Curtain, IsLiftedAndHiddenAtEachNewWordInTheColoursOfThePicture) {
    game.start({.words = {u"XY", u"ZV"}, .errors = 1});
    game.propose("A");
    EXPECT_EQ(height(), 200);
    menu.VSDessin.backColour = Colour{0x123456};
    menu.VSDessin.foreColour = Colour{0x654321};
    game.enter();
    EXPECT_EQ(height(), 1);
    EXPECT_FALSE(shape.Visible);
    EXPECT_EQ(shape.BackColor.get(), (Colour{0x123456}));
    EXPECT_EQ(shape.ForeColor.get(), (Colour{0x654321}));
}

TEST_F(Curtain, StaysWhereItIsWhenTheWordIsFound) {
    game.start({.words = {u"XY"}});
    game.propose("ABXY");
    EXPECT_EQ(height(), 67);
    EXPECT_TRUE(shape.Visible);
}

TEST_F(Curtain, BecomesALineAtThePassageToPlayer2AndAtStop) {
    game.start({.mode = 3, .words = {u"XY", u"ZV"}});
    game.propose("ABXY");
    EXPECT_EQ(height(), 1);
    EXPECT_TRUE(shape.Visible);
    game.propose("ABCZV");
    EXPECT_EQ(height(), 100);
    game.stop();
    EXPECT_EQ(height(), 1);
    EXPECT_TRUE(shape.Visible);
}

TEST_F(Curtain, IsNotLoweredBeyondTheLimit) {
    game.start({.words = {u"XY"}});
    menu.ErreursMot[1] = 7;
    menu.AvancerVoile();
    EXPECT_EQ(height(), 1);
    EXPECT_TRUE(shape.Visible);
}

TEST_F(Curtain, OfALimitOfZeroIsADivisionByZero) {
    game.prepare({.words = {u"XY"}, .errors = 0});
    EXPECT_EQ(failureNumber([&] { menu.CmdTjr[2].userClick(); }), 11);
}

TEST_F(Curtain, LiesInThePictureWhichIsHiddenUntilOneIsSet) {
    EXPECT_FALSE(menu.VSDessin.Visible);
    EXPECT_FALSE(menu.DessTmp.Visible);
    EXPECT_EQ(shape.container, &menu.VSDessin);
    EXPECT_EQ(menu.VSDessin.scaleHeight, 200);
    EXPECT_EQ(shape.place.width, menu.VSDessin.place.width);
    EXPECT_EQ(shape.place.left, menu.VSDessin.place.left);
    EXPECT_EQ(shape.place.top, menu.VSDessin.place.top);
    EXPECT_EQ(shown(menu.VSDessin.ToolTipText), "Image du thème");
}

TEST_F(Curtain, CannotBeChangedWithItsPictureDuringAGame) {
    game.start({.words = {u"XY", u"ZV"}});
    EXPECT_FALSE(menu.CmdBase.userClick());
    game.propose("XY");
    EXPECT_FALSE(menu.CmdBase.userClick());
}

} // namespace grimoval::test::curtain
