// SPDX-License-Identifier: GPL-3.0-or-later
// The tools of the tests themselves: what they promise, the tests above them rely on.
#include "support/failures.h"
#include "support/world.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <memory>

namespace grimoval::test {
namespace {

struct Window : Form {
    explicit Window(Screen &screen, const char *name = "FEssai") : Form(screen, name) {}
    Timer timer{*this, "Minuterie"};
    Gauge gauge{*this, "Jauge"};
};

TEST(ScriptedClock, MovesOverMidnightMonthsAndLeapYears) {
    EXPECT_EQ(scripted::later({2026, 3, 7, 14, 5, 9}, 51), (DateTime{2026, 3, 7, 14, 6, 0}));
    EXPECT_EQ(scripted::later({2026, 12, 31, 23, 59, 59}, 1), (DateTime{2027, 1, 1, 0, 0, 0}));
    EXPECT_EQ(scripted::later({2024, 2, 28, 12, 0, 0}, 86400), (DateTime{2024, 2, 29, 12, 0, 0}));
    EXPECT_EQ(scripted::later({2100, 2, 28, 12, 0, 0}, 86400), (DateTime{2100, 3, 1, 12, 0, 0}));
    EXPECT_EQ(scripted::later({2026, 3, 1, 0, 0, 0}, -1), (DateTime{2026, 2, 28, 23, 59, 59}));
}

TEST(ScriptedRandom, AnswersItsNumbersThenZeroWhateverIsSeeded) {
    scripted::ScriptedRandom random;
    random.numbers = {0.25f, 0.5f};
    EXPECT_EQ(random.next(), 0.25f);
    random.seed();
    EXPECT_EQ(random.next(), 0.5f);
    EXPECT_EQ(random.next(), 0.0f);
    EXPECT_EQ(random.seeds, 1);
    EXPECT_EQ(random.drawn, 3);
}

TEST(RecordedWindows, AModalWindowThatNoTestExpectedEndsTheTest) {
    World world;
    Window window(world.screen);
    EXPECT_THROW(window.showModal(), ModalMistake);
}

TEST(RecordedWindows, AModalWindowOfAnotherNameEndsTheTest) {
    World world;
    Window window(world.screen);
    world.windows.expectModal("FAutre", [](Form &form) { form.hide(); });
    EXPECT_THROW(window.showModal(), ModalMistake);
}

TEST(RecordedWindows, AModalWindowLeftOnTheScreenEndsTheTest) {
    World world;
    Window window(world.screen);
    world.windows.expectModal("FEssai", [](Form &) {});
    EXPECT_THROW(window.showModal(), ModalMistake);
}

TEST(RecordedWindows, AnExpectedModalWindowThatNeverCameFailsTheTest) {
    World world;
    auto windows = std::make_unique<RecordedWindows>(world.files);
    windows->expectModal("FEssai", [](Form &) {});
    EXPECT_NONFATAL_FAILURE(windows.reset(), "FEssai was expected and never came");
}

TEST(RecordedWindows, AMessageWithoutATitleBearsTheApplications) {
    World world;
    world.screen.message(u"Bon\nsoir", MessageIcon::critical);
    world.screen.message(u"Oui", MessageIcon::exclamation, u"Titre");
    EXPECT_EQ(world.windows.take(), (Events{R"(message critique "Le Grimoval" "Bon\nsoir")",
                                            R"(message exclamation "Titre" "Oui")"}));
    EXPECT_EQ(world.events, Events{});
}

TEST(RecordedWindows, APictureMustExistAndBeOne) {
    World world;
    const auto check = [&](const Texte &name) {
        return failureNumber([&] { world.windows.checkPicture(world.folder.path(name)); });
    };
    world.folder.write(u"a.jpg", "\xFF\xD8\xFF\xE0");
    world.folder.write(u"b.bmp", "BM\x01");
    world.folder.write(u"c.png", "\x89PNG\r\n");
    world.folder.write(u"texte.bmp", "Bonjour");
    world.folder.makeFolder(u"dossier");
    EXPECT_EQ(check(u"a.jpg"), 0);
    EXPECT_EQ(check(u"B.BMP"), 0);
    EXPECT_EQ(check(u"c.png"), 0);
    EXPECT_EQ(check(u"texte.bmp"), failure::invalidPicture);
    EXPECT_EQ(check(u"dossier"), failure::pathAccess);
    EXPECT_EQ(check(u"absente.bmp"), failure::fileNotFound);
}

TEST(RecordedServices, TellWhatTheyWereAsked) {
    World world;
    world.sound.playWave(u"/jeu/SONS/CesPBon.Wav");
    world.sound.playMidi(u"/jeu/SONS/CLVMID1.mid", true);
    world.sound.stopMidi();
    world.documents.openWeb(u"http://exemple.fr");
    world.documents.writeMail(u"a@exemple.fr");
    world.documents.openDocument(u"/jeu/lisez.txt");
    world.documents.showHelp(u"/jeu/aide", u"Jouer");
    EXPECT_TRUE(world.sound.looping);
    EXPECT_EQ(world.events, (Events{"parole CesPBon.Wav", "musique CLVMID1.mid", "musique arret",
                                    "web http://exemple.fr", "courriel a@exemple.fr",
                                    "document /jeu/lisez.txt", "aide /jeu/aide Jouer"}));
}

TEST(Advance, MovesTheClockThenFiresTimersThenTicksGauges) {
    World world;
    Window window(world.screen);
    std::vector<std::string> order;
    window.load();
    window.timer.Interval = 500;
    window.timer.Tick = [&] { order.push_back("tic " + std::to_string(world.clock.now().second)); };
    window.gauge.Progression = [&] {
        order.push_back("jauge " + std::to_string(window.gauge.Valeur));
    };
    window.gauge.Lancer();
    world.clock.set({2026, 3, 7, 14, 0, 0});
    advance(world, 2);
    EXPECT_EQ(order, (Events{"tic 0", "tic 1", "jauge 1", "tic 1", "tic 2", "jauge 2"}));
}

TEST(Advance, ATimerOfThreeSecondsFiresAtTheThirdAndStartsAnewWhenDisabled) {
    World world;
    Window window(world.screen);
    int ticks = 0;
    window.load();
    window.timer.Interval = 3000;
    window.timer.Tick = [&] { ++ticks; };
    advance(world, 2);
    EXPECT_EQ(ticks, 0);
    advance(world, 1);
    EXPECT_EQ(ticks, 1);
    advance(world, 2);
    window.timer.Enabled = false;
    advance(world, 1);
    window.timer.Enabled = true;
    advance(world, 2);
    EXPECT_EQ(ticks, 1);
    advance(world, 1);
    EXPECT_EQ(ticks, 2);
}

TEST(Advance, WhatATimerStartsCountsFromTheNextSecond) {
    World world;
    Window window(world.screen);
    window.load();
    window.timer.Interval = 1000;
    window.timer.Tick = [&] { window.gauge.Lancer(); };
    advance(world, 1);
    EXPECT_EQ(window.gauge.Valeur.get(), 0);
    advance(world, 1);
    EXPECT_EQ(window.gauge.Valeur.get(), 1);
}

TEST(Advance, LeavesWindowsThatAreNotLoadedAlone) {
    World world;
    Window window(world.screen);
    window.gauge.Lancer();
    window.timer.Interval = 1000;
    window.timer.Tick = [] { FAIL() << "the window is not loaded"; };
    advance(world, 2);
    EXPECT_EQ(window.gauge.Valeur.get(), 0);
}

} // namespace
} // namespace grimoval::test
