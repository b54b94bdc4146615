// SPDX-License-Identifier: GPL-3.0-or-later
// The settings of the sound, and the devices of the machine beside them.
#include "shell/GLBPAROL.h"
#include "shell/mdClvUtil.h"
#include "support/failures.h"
#include "support/world.h"

#include <gtest/gtest.h>

namespace grimoval::test::settings_sound {

struct SoundSettings : testing::Test {
    World world;
    Globales g{world.services};
    static constexpr const char16_t *file = u"GRIMOVA.INI";

    SoundSettings() { g.dossiers.DossierUtilisateur = asFolder(world.folder.path()); }
    void write(const std::string &bytes) { world.folder.write(file, bytes); }
    std::string read() const { return world.folder.read(file); }
    void devices(bool wave, bool midi) {
        world.sound.wave = wave;
        world.sound.midi = midi;
    }
};

TEST_F(SoundSettings, OfAFirstStartFollowTheDevicesInThisOrder) {
    for (const bool wave : {false, true}) {
        for (const bool midi : {false, true}) {
            devices(wave, midi);
            write("");
            LireConfigSon(g);
            const std::string w = wave ? "1" : "0", m = midi ? "1" : "0";
            EXPECT_EQ(read(), "[ConfigPC]\r\nConfDep=-1\r\nWavPr\xE9sent=" + w +
                                  "\r\nMidiPr\xE9sent=" + m + "\r\n[Le Grimoval]\r\nMusic=" + m +
                                  "\r\nParole=" + w + "\r\n");
            EXPECT_EQ(g.son.ConfDep, -1);
            EXPECT_EQ(g.son.WavPresent, wave ? 1 : 0);
            EXPECT_EQ(g.son.MidiPresent, midi ? 1 : 0);
            EXPECT_EQ(g.son.ParoleActive, wave ? 1 : 0);
            EXPECT_EQ(g.son.MusiqueActive, midi ? 1 : 0);
        }
    }
}

struct Row {
    const char *value;
    bool device;
    int memory;
    const char *after; // nullptr: as it was
};

TEST_F(SoundSettings, SwitchIsOnForAnyNumberButZeroAndTheDeviceDecidesForAnyOtherText) {
    const Row rows[] = {
        {"0", true, 0, nullptr},     {"1", true, 1, nullptr},   {"2", true, 1, nullptr},
        {"-1", true, 1, nullptr},    {"0.4", true, 1, nullptr}, {"0.0", true, 0, nullptr},
        {"99999", true, 1, nullptr}, {"1", false, 1, nullptr},  {"0", false, 0, nullptr},
        {"non", true, 1, "1"},       {"non", false, 0, "0"},    {"", true, 1, "1"},
        {"", false, 0, "0"},         {"Vrai", true, 1, "1"},
    };
    for (const Row &row : rows) {
        devices(row.device, row.device);
        const std::string device = row.device ? "1" : "0";
        const auto content = [&](const std::string &value) {
            return "[ConfigPC]\r\nConfDep=-1\r\nWavPr\xE9sent=" + device +
                   "\r\nMidiPr\xE9sent=" + device + "\r\n[Le Grimoval]\r\nMusic=" + value +
                   "\r\nParole=" + value + "\r\n";
        };
        write(content(row.value));
        LireConfigSon(g);
        EXPECT_EQ(g.son.MusiqueActive, row.memory) << row.value;
        EXPECT_EQ(g.son.ParoleActive, row.memory) << row.value;
        EXPECT_EQ(read(), content(row.after == nullptr ? row.value : row.after)) << row.value;
    }
}

TEST_F(SoundSettings, DeviceRecordIsOverwrittenAtEveryStartAndNeverRead) {
    devices(false, true);
    write("[ConfigPC]\r\nWavPr\xE9sent=1\r\nMidiPr\xE9sent=0\r\nConfDep=5\r\n");
    LireConfigSon(g);
    EXPECT_EQ(read(), "[ConfigPC]\r\nWavPr\xE9sent=0\r\nMidiPr\xE9sent=1\r\nConfDep=5\r\n"
                      "[Le Grimoval]\r\nMusic=1\r\nParole=0\r\n");
    EXPECT_EQ(g.son.ConfDep, 5);
}

TEST_F(SoundSettings, FormerDepartureIsKeptWhenItIsANumberOf16Bits) {
    const std::pair<const char *, int> rows[] = {{"7", 7}, {"-3", -3}, {"2.5", 2}, {"x", -1}};
    for (const auto &[value, memory] : rows) {
        write("[ConfigPC]\r\nConfDep=" + std::string(value) + "\r\n");
        LireConfigSon(g);
        EXPECT_EQ(g.son.ConfDep, memory) << value;
    }
    write("[ConfigPC]\r\nConfDep=40000\r\n");
    EXPECT_EQ(failureNumber([this] { LireConfigSon(g); }), 6);
}

TEST_F(SoundSettings, AreWrittenOneByOne) {
    g.son.ParoleActive = 1;
    g.son.MusiqueActive = 0;
    EcrireConfigSon(g, 1);
    EXPECT_EQ(read(), "[Le Grimoval]\r\nParole=1\r\n");
    EcrireConfigSon(g, 2);
    EXPECT_EQ(read(), "[Le Grimoval]\r\nParole=1\r\nMusic=0\r\n");
    g.son.ParoleActive = 0;
    EcrireConfigSon(g, 1);
    EXPECT_EQ(read(), "[Le Grimoval]\r\nParole=0\r\nMusic=0\r\n");
}

TEST_F(SoundSettings, OfAnotherNumberWriteTheLastKeyOnceMore) {
    EcrireConfigSon(g, 2);
    g.VBTINI.Cle = u"Autre";
    g.VBTINI.Valeur = u"12";
    EcrireConfigSon(g, 3);
    EXPECT_EQ(read(), "[Le Grimoval]\r\nMusic=0\r\nAutre=12\r\n");
}

TEST_F(SoundSettings, OfAMachineWithoutMidiStayOnInTheFileAndNoMusicSounds) {
    devices(true, false);
    write("[Le Grimoval]\r\nMusic=1\r\n");
    LireConfigSon(g);
    EXPECT_EQ(g.son.MusiqueActive, 1);
    EXPECT_NE(read().find("Music=1\r\n"), std::string::npos);
    world.windows.take();
    JouerMusique(g);
    EXPECT_EQ(world.windows.take(), Events{"musique arret"});
    EXPECT_TRUE(g.VBTINI.FichierMidi.empty());
}

} // namespace grimoval::test::settings_sound
