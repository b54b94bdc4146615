// SPDX-License-Identifier: GPL-3.0-or-later
// The utility control: properties that keep their values, and operations by their numbers.
#include "shell/Clvutil.h"
#include "support/world.h"

#include <gtest/gtest.h>

namespace grimoval::test::utility_control {

struct UtilityControl : testing::Test {
    World world;
    Clvutil control{world.services};

    void profile(const Texte &section, const Texte &key) {
        control.FichierIni = world.folder.path(u"a.ini");
        control.Section = section;
        control.Cle = key;
    }
};

TEST_F(UtilityControl, ReadsAKeyOfAMissingFileAsEmptyAndCreatesNothing) {
    profile(u"S", u"C");
    control.Valeur = u"avant";
    control.Action(2);
    EXPECT_EQ(control.Valeur, u"");
    EXPECT_EQ(world.folder.list(), std::vector<std::string>{});
}

TEST_F(UtilityControl, WritesAKeyOfAMissingFileWithItsSection) {
    profile(u"S", u"C");
    control.Valeur = u"7";
    control.Action(1);
    EXPECT_EQ(world.folder.read(u"a.ini"), "[S]\r\nC=7\r\n");
}

TEST_F(UtilityControl, KeepsFileSectionAndKeyBetweenOperations) {
    profile(u"S", u"C");
    control.Valeur = u"7";
    control.Action(1);
    control.Cle = u"D";
    control.Action(1);
    control.Valeur = u"";
    control.Cle = u"C";
    control.Action(2);
    EXPECT_EQ(toUtf8(control.Valeur), "7");
    EXPECT_EQ(world.folder.read(u"a.ini"), "[S]\r\nC=7\r\nD=7\r\n");
    control.Section = u"T";
    control.Action(2);
    EXPECT_EQ(control.Valeur, u""); // neither section
}

TEST_F(UtilityControl, FailsToWriteInSilence) {
    control.FichierIni = world.folder.path(u"absent/a.ini");
    control.Section = u"S";
    control.Cle = u"C";
    control.Valeur = u"7";
    control.Action(1);
    EXPECT_EQ(world.folder.list(), std::vector<std::string>{});
    EXPECT_EQ(world.windows.take(), Events{});
}

TEST_F(UtilityControl, HandsEachOperationOverByItsNumber) {
    control.FichierAide = u"/jeu/aide.hlp";
    control.Cle = u"Index";
    control.FichierMidi = u"/jeu/a.mid";
    control.BoucleMidi = true;
    control.FichierWav = u"/jeu/a.wav";
    control.AdresseWeb = u"http://exemple.fr";
    const std::pair<int, const char *> rows[] = {{3, "aide /jeu/aide.hlp Index"},
                                                 {4, "musique a.mid"},
                                                 {5, "musique arret"},
                                                 {6, "parole a.wav"},
                                                 {12, "web http://exemple.fr"}};
    for (const auto &[code, event] : rows) {
        control.Action(code);
        EXPECT_EQ(world.windows.take(), Events{event}) << code;
    }
    EXPECT_TRUE(world.sound.looping);
    control.OuvrirDocument(u"/jeu/catalogue.chm");
    EXPECT_EQ(world.windows.take(), Events{"document /jeu/catalogue.chm"});
}

TEST_F(UtilityControl, ChangesNoAnswerButThatOfTheOperation) {
    profile(u"S", u"C");
    control.FichierIni = world.folder.path(u"absent/a.ini"); // a write fails in silence
    control.Valeur = u"7";
    control.ValeurRegistre = u"ancienne";
    for (const int code : {1, 3, 4, 5, 6, 12}) {
        control.Action(code);
        EXPECT_EQ(toUtf8(control.Valeur), "7") << code;
        EXPECT_EQ(toUtf8(control.ValeurRegistre), "ancienne") << code;
    }
    world.windows.take();
    for (const int code : {1, 2, 9}) { // files and folders are neither seen nor heard
        control.Action(code);
        EXPECT_EQ(world.windows.take(), Events{}) << code;
    }
}

TEST_F(UtilityControl, StartsWithoutALoopAndInNoBranchOfTheRegistry) {
    EXPECT_FALSE(control.BoucleMidi);
    EXPECT_EQ(control.RacineRegistre, 0);
    EXPECT_EQ(control.hote, nullptr);
}

TEST_F(UtilityControl, DoesNothingForTheNumbersThatAreNotUsed) {
    for (const int code : {0, 7, 8, 10, 11, 13, -1}) {
        control.Action(code);
        EXPECT_EQ(world.windows.take(), Events{}) << code;
    }
}

TEST_F(UtilityControl, ReadsTheUsersPlaceAndNothingElseOfTheRegistry) {
    const auto read = [this](int root, const Texte &value) {
        control.RacineRegistre = root;
        control.NomRegistre = value;
        control.Action(9);
        return toUtf8(control.ValeurRegistre);
    };
    EXPECT_EQ(read(1, u"AppData"), toUtf8(*world.application.userData));
    EXPECT_EQ(read(1, u"Desktop"), "error");
    EXPECT_EQ(read(2, u"AppData"), "error");
    world.application.userData.reset();
    EXPECT_EQ(read(1, u"AppData"), "error");
}

TEST_F(UtilityControl, TellsWhichDevicesTheMachineHas) {
    world.sound.wave = false;
    EXPECT_FALSE(control.WavDispo());
    EXPECT_TRUE(control.MidiDispo());
    world.sound.midi = false;
    world.sound.wave = true;
    EXPECT_TRUE(control.WavDispo());
    EXPECT_FALSE(control.MidiDispo());
}

TEST_F(UtilityControl, LoadsItsWindowAtItsFirstUse) {
    Form host(world.screen, "FEssai");
    const std::function<void()> uses[] = {[&] { control.Action(5); }, [&] { control.WavDispo(); },
                                          [&] { control.MidiDispo(); },
                                          [&] { control.OuvrirDocument(u"x"); }};
    control.hote = &host;
    for (const auto &use : uses) {
        EXPECT_FALSE(host.isLoaded());
        use();
        EXPECT_TRUE(host.isLoaded());
        EXPECT_FALSE(host.isShown());
        host.unload();
    }
}

} // namespace grimoval::test::utility_control
