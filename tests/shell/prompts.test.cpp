// SPDX-License-Identifier: GPL-3.0-or-later
// Voice prompts by their numbers, the sound of refusal, and the music.
#include "shell/GLBPAROL.h"
#include "support/world.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace grimoval::test::prompts {

struct Prompt : testing::Test {
    World world;
    Globales g{world.services};

    Prompt() {
        g.dossiers.DossierSons = u"/jeu/SONS/";
        g.son = {1, 1, 1, 1, -1};
    }
    Events play(int number) {
        world.windows.take();
        JouerParole(g, number);
        return world.windows.take();
    }
};

// The first file of a number; nullptr: it has none.
const std::pair<int, const char *> numbers[] = {
    {1, "CALVENO.Wav"},   {3, "Quitter.Wav"},
    {4, "TPEUQIPO.Wav"},  {6, "TropTar.Wav"},
    {7, "TropTar.Wav"},   {8, "Score.Wav"},
    {9, "CesaiPrg.Wav"},  {10, "StoArexe.Wav"},
    {12, "AlaProch.Wav"}, {13, " "},
    {14, "AttCaCOm.Wav"}, {15, "CesPBon.Wav"},
    {16, "CesBien.Wav"},  {17, "Cestbien.Wav"},
    {18, "Cesmoy.Wav"},   {19, "FauFaEff.Wav"},
    {20, "Aideexer.Wav"}, {21, "confexer.Wav"},
    {24, "Aurevoir.Wav"}, {2, nullptr},
    {5, nullptr},         {11, nullptr},
    {22, nullptr},        {23, nullptr},
    {0, nullptr},         {-1, nullptr},
    {26, nullptr},        {32767, nullptr},
};

TEST_F(Prompt, IsTheFileOfItsNumberInTheFolderOfSounds) {
    for (const auto &[number, file] : numbers) {
        if (file == nullptr) {
            continue;
        }
        EXPECT_EQ(play(number), Events{"parole " + std::string(file)}) << number;
        EXPECT_EQ(toUtf8(g.VBTINI.FichierWav), "/jeu/SONS/" + std::string(file)) << number;
    }
}

TEST_F(Prompt, WithoutAFileShowsTheAlarmAndPlaysTheLastOneAgain) {
    for (const auto &[number, file] : numbers) {
        if (file != nullptr) {
            continue;
        }
        play(16);
        EXPECT_EQ(play(number),
                  (Events{R"(message information "Le Grimoval" "Lulu tu as deconné !")",
                          "parole CesBien.Wav"}))
            << number;
    }
}

TEST_F(Prompt, Number25PlaysTheLastFileAgainInSilenceAboutIt) {
    play(16);
    EXPECT_EQ(play(25), Events{"parole CesBien.Wav"});
}

TEST_F(Prompt, ThatHasTwoFilesDrawsOneOfThem) {
    const std::tuple<int, float, const char *> rows[] = {
        {6, 0.0f, "TropTar.Wav"},     {6, 0.499f, "TropTar.Wav"},  {6, 0.5f, "PaassRap.Wav"},
        {6, 0.999f, "PaassRap.Wav"},  {7, 0.0f, "TropTar.Wav"},    {7, 0.499f, "TropTar.Wav"},
        {7, 0.5f, "PaassRap.Wav"},    {7, 0.999f, "PaassRap.Wav"}, {12, 0.0f, "AlaProch.Wav"},
        {12, 0.499f, "AlaProch.Wav"}, {12, 0.5f, "Salut1.Wav"},    {12, 0.999f, "Salut1.Wav"}};
    for (const auto &[number, draw, file] : rows) {
        world.random.numbers = {draw};
        EXPECT_EQ(play(number), Events{"parole " + std::string(file)}) << number << " " << draw;
    }
    // No other prompt takes a random number.
    world.random.numbers = {0.75f};
    world.random.drawn = 0;
    for (const auto &[number, file] : numbers) {
        if (number != 6 && number != 7 && number != 12) {
            play(number);
        }
    }
    EXPECT_EQ(world.random.drawn, 0);
}

TEST_F(Prompt, ThatHasTwoFilesIsHeardAsBothOverManyDraws) {
    std::mt19937 generator(1);
    std::uniform_real_distribution<float> draw(0, 1);
    const Events late = {"parole PaassRap.Wav", "parole TropTar.Wav"};
    const Events leaving = {"parole AlaProch.Wav", "parole Salut1.Wav"};
    for (const int number : {6, 7, 12}) {
        std::map<std::string, int> heard;
        for (int i = 0; i < 400; ++i) {
            world.random.numbers = {std::min(draw(generator), 0.9999F)};
            const Events said = play(number);
            ASSERT_EQ(said.size(), 1u) << number;
            ++heard[said.front()];
        }
        Events files;
        for (const auto &[file, times] : heard) {
            files.push_back(file);
        }
        ASSERT_EQ(files, number == 12 ? leaving : late) << number;
        EXPECT_GT(heard.begin()->second, 150) << number;
        EXPECT_LT(heard.begin()->second, 250) << number;
    }
}

TEST_F(Prompt, NeedsTheDeviceAndTheSwitch) {
    for (const auto &[device, active] : {std::pair{0, 0}, {0, 1}, {1, 0}}) {
        g.son.WavPresent = device;
        g.son.ParoleActive = active;
        for (const auto &[number, file] : numbers) {
            EXPECT_EQ(play(number), Events{}) << number; // no alarm either
        }
        JouerErreur(g);
        EXPECT_EQ(world.windows.take(), Events{});
    }
    EXPECT_EQ(world.random.drawn, 0);
}

TEST_F(Prompt, OfRefusalStandsOutsideTheNumbers) {
    JouerErreur(g);
    EXPECT_EQ(world.windows.take(), Events{"parole ohoh.Wav"});
    EXPECT_EQ(toUtf8(g.VBTINI.FichierWav), "/jeu/SONS/ohoh.Wav");
}

TEST_F(Prompt, OfTheMusicLoopsWhereDeviceAndSwitchAreThereAndElseStopsTheTune) {
    JouerMusique(g);
    EXPECT_EQ(world.windows.take(), Events{"musique CLVMID1.mid"});
    EXPECT_EQ(toUtf8(g.VBTINI.FichierMidi), "/jeu/SONS/CLVMID1.mid");
    EXPECT_TRUE(world.sound.looping);
    g.VBTINI.FichierMidi = u"intact";
    for (const auto &[device, active] : {std::pair{0, 0}, {0, 1}, {1, 0}}) {
        g.son.MidiPresent = device;
        g.son.MusiqueActive = active;
        JouerMusique(g);
        EXPECT_EQ(world.windows.take(), Events{"musique arret"});
        EXPECT_EQ(toUtf8(g.VBTINI.FichierMidi), "intact");
    }
}

TEST_F(Prompt, OfTheMusicTurnedOnTwiceStartsTwiceAndLoopsEachTime) {
    for (int time = 0; time < 2; ++time) {
        g.VBTINI.FichierMidi = u"autre";
        g.VBTINI.BoucleMidi = world.sound.looping = false;
        JouerMusique(g);
        EXPECT_EQ(world.windows.take(), Events{"musique CLVMID1.mid"}) << time;
        EXPECT_EQ(toUtf8(g.VBTINI.FichierMidi), "/jeu/SONS/CLVMID1.mid") << time;
        EXPECT_TRUE(world.sound.looping) << time;
    }
}

} // namespace grimoval::test::prompts
