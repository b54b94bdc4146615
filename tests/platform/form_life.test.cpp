// SPDX-License-Identifier: GPL-3.0-or-later
// The life of one window: load, show, activate, paint ... unload.
#include "support/world.h"
#include "told_window.h"

#include <gtest/gtest.h>
#include <memory>

namespace grimoval {
namespace {

using test::Events;

struct FormLifeTest : testing::Test {
    test::World world;
    test::ToldWindow window{world.screen, world.events, "FMenu"};

    Events take() { return world.windows.take(); }
};

TEST_F(FormLifeTest, ShowingLoadsShowsActivatesAndPaints) {
    window.show();
    EXPECT_EQ(take(),
              (Events{"FMenu load", "fenetre FMenu affichee", "FMenu activate", "FMenu paint"}));
    EXPECT_TRUE(window.isLoaded());
    EXPECT_TRUE(window.isShown());
}

TEST_F(FormLifeTest, AWindowIsLoadedOnceWithoutBeingShown) {
    window.load();
    window.load();
    EXPECT_EQ(take(), Events{"FMenu load"});
    EXPECT_TRUE(window.isLoaded());
    EXPECT_FALSE(window.isShown());
    window.show();
    EXPECT_EQ(take(), (Events{"fenetre FMenu affichee", "FMenu activate", "FMenu paint"}));
}

TEST_F(FormLifeTest, ShowingAWindowThatIsUpDoesNothing) {
    window.show();
    take();
    window.show();
    EXPECT_EQ(take(), Events{});
}

TEST_F(FormLifeTest, AHiddenWindowStaysLoadedAndIsActivatedAndPaintedWhenItComesBack) {
    window.show();
    take();
    window.hide();
    EXPECT_EQ(take(), Events{"fenetre FMenu cachee"});
    EXPECT_TRUE(window.isLoaded());
    EXPECT_FALSE(window.isShown());
    window.hide();
    EXPECT_EQ(take(), Events{});
    window.show();
    EXPECT_EQ(take(), (Events{"fenetre FMenu affichee", "FMenu activate", "FMenu paint"}));
}

TEST_F(FormLifeTest, UnloadingAsksThenTellsThenTheWindowGoes) {
    window.show();
    take();
    window.onUnload = [&] { EXPECT_TRUE(window.isLoaded()) << "still there in its last handler"; };
    window.unload();
    EXPECT_EQ(take(),
              (Events{"FMenu queryunload code", "FMenu unload", "fenetre FMenu dechargee"}));
    EXPECT_FALSE(window.isLoaded());
    EXPECT_FALSE(window.isShown());
    window.unload();
    window.requestClose();
    EXPECT_EQ(take(), Events{}) << "what is not loaded cannot go";
}

TEST_F(FormLifeTest, AClosingThatIsRefusedChangesNothing) {
    window.show();
    take();
    window.refusesToClose = true;
    window.unload();
    window.requestClose();
    EXPECT_EQ(take(), (Events{"FMenu queryunload code", "FMenu queryunload person"}));
    EXPECT_TRUE(window.isShown());
}

TEST_F(FormLifeTest, TheWindowManagersRequestIsTheMode) {
    window.show();
    take();
    window.requestClose();
    EXPECT_EQ(take(),
              (Events{"FMenu queryunload person", "FMenu unload", "fenetre FMenu dechargee"}));
}

TEST_F(FormLifeTest, AWindowIsLoadedAnewAfterItHasGone) {
    window.show();
    window.Caption = u"changé";
    window.unload();
    take();
    window.show();
    EXPECT_EQ(take(),
              (Events{"FMenu load", "fenetre FMenu affichee", "FMenu activate", "FMenu paint"}));
    EXPECT_EQ(window.Caption.get(), u"");
}

TEST_F(FormLifeTest, WhatTheLoadHandlerSetsIsToldAndIsNoDesign) {
    window.onLoad = [&] { window.Caption = window.Caption.get() + u"!"; };
    window.load();
    EXPECT_EQ(take(), (Events{"FMenu load", R"(FMenu.Caption = "!")"}));
    window.unload();
    take();
    window.load();
    EXPECT_EQ(take(), (Events{"FMenu load", R"(FMenu.Caption = "!")"}));
}

TEST_F(FormLifeTest, AWindowThatGoesInItsLoadHandlerIsNotShown) {
    window.onLoad = [&] { window.unload(); };
    window.show();
    EXPECT_EQ(take(), (Events{"FMenu load", "FMenu queryunload code", "FMenu unload",
                              "fenetre FMenu dechargee"}));
    EXPECT_FALSE(window.isShown());
    EXPECT_EQ(world.screen.active(), nullptr);
    window.showModal();
    EXPECT_FALSE(window.isShown());
}

TEST_F(FormLifeTest, AWindowThatHidesWhenItIsActivatedIsNotPainted) {
    window.onActivate = [&] { window.hide(); };
    window.show();
    EXPECT_EQ(take(), (Events{"FMenu load", "fenetre FMenu affichee", "FMenu activate",
                              "fenetre FMenu cachee"}));
}

TEST_F(FormLifeTest, ComingIntoViewAgainPaintsWithoutActivating) {
    window.show();
    take();
    window.expose();
    EXPECT_EQ(take(), Events{"FMenu paint"});
}

TEST_F(FormLifeTest, AChangedPropertyPaintsNothing) {
    window.show();
    take();
    window.Caption = u"Jeu";
    EXPECT_EQ(take(), Events{R"(FMenu.Caption = "Jeu")"});
}

TEST_F(FormLifeTest, TheMouseOverTheWindowIsItsEvent) {
    window.show();
    take();
    window.userHover();
    EXPECT_EQ(take(), Events{"FMenu mousemove"});
}

TEST_F(FormLifeTest, TheScreenKnowsWhatIsLoadedAndWhatIsOnTop) {
    test::ToldWindow other(world.screen, world.events, "Fplein");
    EXPECT_EQ(world.screen.active(), nullptr);
    window.load();
    other.show();
    EXPECT_EQ(world.screen.loaded(), (std::vector<Form *>{&window, &other}));
    EXPECT_EQ(world.screen.active(), &other);
    window.show();
    EXPECT_EQ(world.screen.active(), &window);
    EXPECT_TRUE(world.screen.reaches(window));
    EXPECT_FALSE(world.screen.reaches(other));
    window.hide();
    EXPECT_EQ(world.screen.active(), &other);
    other.unload();
    EXPECT_EQ(world.screen.active(), nullptr);
    EXPECT_EQ(world.screen.loaded(), std::vector<Form *>{&window});
}

TEST_F(FormLifeTest, AWindowThatIsDestroyedLeavesTheScreen) {
    auto other = std::make_unique<test::ToldWindow>(world.screen, world.events, "Fmsg1");
    other->show();
    take();
    other.reset();
    EXPECT_EQ(take(), Events{"fenetre Fmsg1 dechargee"});
    EXPECT_EQ(world.screen.active(), nullptr);
    EXPECT_TRUE(world.screen.loaded().empty());
}

TEST_F(FormLifeTest, TheScreenHandsOnWhatItIsAsked) {
    EXPECT_EQ(world.screen.Width(), 15360);
    EXPECT_EQ(world.screen.Height(), 11520);
    world.windows.width = 12000;
    EXPECT_EQ(world.screen.Width(), 12000);
    bool asked = false;
    world.windows.onProcessEvents = [&] { asked = true; };
    world.screen.processEvents();
    EXPECT_TRUE(asked);
    world.screen.beep();
    EXPECT_EQ(take(), (Events{"evenements", "bip"}));
    world.folder.write(u"a.bmp", "BM");
    EXPECT_EQ(world.screen.loadPicture(world.folder.path(u"a.bmp")), world.folder.path(u"a.bmp"));
}

} // namespace
} // namespace grimoval
