// SPDX-License-Identifier: GPL-3.0-or-later
// Modal windows and message boxes, and what their opener hears when they go.
#include "support/world.h"
#include "told_window.h"

#include <gtest/gtest.h>

namespace grimoval {
namespace {

using test::Events;

struct ModalTest : testing::Test {
    test::World world;
    test::ToldWindow menu{world.screen, world.events, "FMenu"};
    test::ToldWindow choice{world.screen, world.events, "FCHoix"};
    test::ToldWindow names{world.screen, world.events, "Fnom"};

    ModalTest() {
        menu.show();
        world.windows.take();
    }
    Events take() { return world.windows.take(); }
    void openChoice() {
        choice.showModal();
        menu.tell("next statement");
    }
};

TEST_F(ModalTest, ItsOpenerIsActivatedThenPaintedBeforeTheNextStatement) {
    world.windows.expectModal("FCHoix", [](Form &form) { form.unload(); });
    openChoice();
    EXPECT_EQ(take(),
              (Events{"FCHoix load", "fenetre FCHoix affichee", "FCHoix activate", "FCHoix paint",
                      "FCHoix queryunload code", "FCHoix unload", "fenetre FCHoix dechargee",
                      "FMenu activate", "FMenu paint", "FMenu next statement"}));
}

TEST_F(ModalTest, ItReturnsAsWellWhenItIsHiddenAndKeepsItsState) {
    choice.load();
    world.windows.expectModal("FCHoix", [](Form &form) {
        form.Caption = u"choisi";
        form.hide();
    });
    take();
    openChoice();
    EXPECT_EQ(take(), (Events{"fenetre FCHoix affichee", "FCHoix activate", "FCHoix paint",
                              R"(FCHoix.Caption = "choisi")", "fenetre FCHoix cachee",
                              "FMenu activate", "FMenu paint", "FMenu next statement"}));
    EXPECT_EQ(choice.Caption.get(), u"choisi");
}

TEST_F(ModalTest, ItIsOnTopWhileItIsUp) {
    world.windows.expectModal("FCHoix", [&](Form &form) {
        EXPECT_EQ(world.screen.active(), &form);
        EXPECT_FALSE(world.screen.reaches(menu));
        EXPECT_TRUE(menu.isShown());
        form.hide();
    });
    choice.showModal();
    EXPECT_EQ(world.screen.active(), &menu);
}

TEST_F(ModalTest, OneOverAnotherGivesTheFocusBackToTheOneBelow) {
    world.windows.expectModal("FCHoix", [&](Form &form) {
        take();
        names.showModal();
        choice.tell("next statement");
        form.unload();
    });
    world.windows.expectModal("Fnom", [](Form &form) { form.requestClose(); });
    openChoice();
    EXPECT_EQ(take(),
              (Events{"Fnom load", "fenetre Fnom affichee", "Fnom activate", "Fnom paint",
                      "Fnom queryunload person", "Fnom unload", "fenetre Fnom dechargee",
                      "FCHoix activate", "FCHoix paint", "FCHoix next statement",
                      "FCHoix queryunload code", "FCHoix unload", "fenetre FCHoix dechargee",
                      "FMenu activate", "FMenu paint", "FMenu next statement"}));
}

TEST_F(ModalTest, OneThatHidesWhenItIsActivatedReturnsAtOnce) {
    choice.onActivate = [&] { choice.hide(); };
    openChoice();
    EXPECT_EQ(take(), (Events{"FCHoix load", "fenetre FCHoix affichee", "FCHoix activate",
                              "fenetre FCHoix cachee", "FMenu activate", "FMenu paint",
                              "FMenu next statement"}));
}

TEST_F(ModalTest, AnOpenerThatHasGoneHearsNothing) {
    world.windows.expectModal("FCHoix", [&](Form &form) {
        menu.unload();
        take();
        form.hide();
    });
    openChoice();
    EXPECT_EQ(take(), (Events{"fenetre FCHoix cachee", "FMenu next statement"}));
}

TEST_F(ModalTest, WithoutAnyOtherWindowItJustReturns) {
    menu.unload();
    world.windows.expectModal("FCHoix", [](Form &form) { form.hide(); });
    choice.showModal();
    EXPECT_EQ(world.screen.active(), nullptr);
}

TEST_F(ModalTest, OneThatIsUpIsNotShownTwice) {
    world.windows.expectModal("FCHoix", [&](Form &form) {
        take();
        choice.showModal();
        EXPECT_EQ(take(), Events{});
        form.hide();
    });
    choice.showModal();
}

TEST_F(ModalTest, ARefusedCloseRequestLeavesItUp) {
    choice.refusesToClose = true;
    world.windows.expectModal("FCHoix", [&](Form &form) {
        form.requestClose();
        EXPECT_TRUE(form.isShown());
        form.hide();
    });
    choice.showModal();
}

TEST_F(ModalTest, TimersGoOnUnderIt) {
    struct Ticking : Form {
        explicit Ticking(Screen &screen) : Form(screen, "FJeu") {}
        Timer timer{*this, "Minuterie"};
    } game(world.screen);
    int ticks = 0;
    game.timer.Interval = 1000;
    game.timer.Tick = [&] { ++ticks; };
    game.show();
    world.windows.expectModal("FCHoix", [&](Form &form) {
        test::advance(world, 3);
        form.hide();
    });
    choice.showModal();
    EXPECT_EQ(ticks, 3);
}

TEST_F(ModalTest, AMessageBoxThatGoesPaintsTheWindowBelowAndDoesNotActivateIt) {
    world.screen.message(u"Bravo", MessageIcon::information, u"Fin");
    menu.tell("next statement");
    EXPECT_EQ(take(), (Events{R"(message information "Fin" "Bravo")", "FMenu paint",
                              "FMenu next statement"}));
}

TEST_F(ModalTest, AMessageBoxPaintsTheModalWindowThatIsOnTopAlone) {
    world.windows.expectModal("FCHoix", [&](Form &form) {
        take();
        world.screen.message(u"Non", MessageIcon::exclamation);
        form.hide();
    });
    openChoice();
    EXPECT_EQ(take(), (Events{R"(message exclamation "Le Grimoval" "Non")", "FCHoix paint",
                              "fenetre FCHoix cachee", "FMenu activate", "FMenu paint",
                              "FMenu next statement"}));
}

TEST_F(ModalTest, AMessageBoxWithoutAnyWindowIsAnswered) {
    menu.unload();
    take();
    world.screen.message(u"Adieu", MessageIcon::critical);
    EXPECT_EQ(take(), Events{R"(message critique "Le Grimoval" "Adieu")"});
}

TEST_F(ModalTest, TheWindowBelowAMessageBoxIsTheOneOnTopWhenItGoes) {
    world.windows.onMessage = [&](const Message &) { choice.show(); };
    world.screen.message(u"Tic", MessageIcon::information);
    EXPECT_EQ(take(), (Events{R"(message information "Le Grimoval" "Tic")", "FCHoix load",
                              "fenetre FCHoix affichee", "FCHoix activate", "FCHoix paint",
                              "FCHoix paint"}));
}

} // namespace
} // namespace grimoval
