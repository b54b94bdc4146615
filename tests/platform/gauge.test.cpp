// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/world.h"

#include <gtest/gtest.h>

namespace grimoval {
namespace {

using test::Events;

struct Window : Form {
    explicit Window(Screen &screen) : Form(screen, "FEssai") {}
    Gauge gauge{*this, "Jauge"};
};

struct GaugeTest : testing::Test {
    test::World world;
    Window window{world.screen};
    Gauge &gauge = window.gauge;
    Events order;

    GaugeTest() {
        window.load();
        gauge.Maximum = 3;
        gauge.Progression = [this] { order.push_back("Progression " + gauge.Valeur.shown()); };
        gauge.Fin = [this] { order.push_back("Fin " + gauge.Valeur.shown()); };
    }
    void ticks(int count) {
        for (int i = 0; i < count; ++i) {
            gauge.tick();
        }
    }
};

TEST_F(GaugeTest, ReportsEachUnitAndThenTheEndOnce) {
    gauge.Lancer();
    ticks(5);
    EXPECT_EQ(order, (Events{"Progression 1", "Progression 2", "Progression 3", "Fin 3"}));
    EXPECT_FALSE(gauge.EnMarche);
    EXPECT_EQ(gauge.Valeur.get(), 3);
}

TEST_F(GaugeTest, DoesNothingUntilItIsStarted) {
    ticks(5);
    EXPECT_EQ(order, Events{});
    EXPECT_EQ(gauge.Valeur.get(), 0);
}

TEST_F(GaugeTest, StandsStillWhenItIsStoppedAndGoesOnFromThere) {
    gauge.Lancer();
    ticks(1);
    gauge.Arreter();
    ticks(3);
    EXPECT_EQ(gauge.Valeur.get(), 1);
    gauge.Lancer();
    ticks(1);
    EXPECT_EQ(order, (Events{"Progression 1", "Progression 2"}));
}

TEST_F(GaugeTest, ItsValueIsSetWithoutAnyEvent) {
    gauge.Lancer();
    gauge.Valeur = 2;
    gauge.Valeur = 0;
    gauge.Valeur = 3;
    EXPECT_EQ(order, Events{});
    EXPECT_TRUE(gauge.EnMarche);
}

TEST_F(GaugeTest, StartedFullItEndsAtTheFirstSecondWithoutProgression) {
    gauge.Valeur = 3;
    gauge.Lancer();
    ticks(2);
    EXPECT_EQ(order, Events{"Fin 3"});
    gauge.Valeur = 7;
    gauge.Lancer();
    ticks(1);
    EXPECT_EQ(order, (Events{"Fin 3", "Fin 7"}));
}

TEST_F(GaugeTest, StoppedWhileItReportsTheLastUnitItDoesNotEnd) {
    gauge.Valeur = 2;
    gauge.Progression = [this] {
        order.push_back("Progression");
        gauge.Arreter();
    };
    gauge.Lancer();
    ticks(2);
    EXPECT_EQ(order, Events{"Progression"});
}

TEST_F(GaugeTest, SetBackWhileItReportsTheLastUnitItGoesOn) {
    gauge.Valeur = 2;
    gauge.Progression = [this] { gauge.Valeur = 0; };
    gauge.Lancer();
    ticks(1);
    EXPECT_EQ(order, Events{});
    EXPECT_TRUE(gauge.EnMarche);
}

TEST_F(GaugeTest, ItsEndFindsItStoppedAndMayStartItAgain) {
    gauge.Valeur = 2;
    gauge.Fin = [this] {
        order.push_back(gauge.EnMarche ? "Fin en marche" : "Fin");
        gauge.Valeur = 0;
        gauge.Lancer();
    };
    gauge.Lancer();
    ticks(2);
    EXPECT_EQ(order, (Events{"Progression 3", "Fin", "Progression 1"}));
}

TEST_F(GaugeTest, AMaximumBelowTheValueEndsItAtTheNextSecond) {
    gauge.Maximum = 20;
    gauge.Lancer();
    ticks(5);
    order.clear();
    gauge.Maximum = 4;
    ticks(2);
    EXPECT_EQ(order, Events{"Fin 5"});
}

TEST_F(GaugeTest, RunsOneUnitASecondOfTheClock) {
    gauge.Maximum = 20;
    gauge.Lancer();
    test::advance(world, 7);
    EXPECT_EQ(gauge.Valeur.get(), 7);
    gauge.Visible = false;
    test::advance(world, 2);
    EXPECT_EQ(gauge.Valeur.get(), 9) << "also when nobody sees it";
}

} // namespace
} // namespace grimoval
