// SPDX-License-Identifier: GPL-3.0-or-later
// Long because all of it is told by one ear: the file that the sound goes to.
#include "platform/qt/sound.h"

#include "platform/files.h"
#include "platform/qt/tune.h"
#include "qt/memory.h"
#include "support/temporary_folder.h"

#include <QByteArray>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <numeric>

namespace grimoval::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr int rate = 44100;

std::string number(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text += static_cast<char>(value >> 8 * i & 0xff);
    }
    return text;
}

// A wave file of one channel that holds one value, which tells it from any other.
std::string wave(double seconds, int value, std::uint32_t perSecond = rate) {
    const auto samples = static_cast<std::uint32_t>(seconds * perSecond);
    std::string data;
    for (std::uint32_t i = 0; i < samples; ++i) {
        data += number(static_cast<std::uint32_t>(value), 2);
    }
    return "RIFF" + number(36 + 2 * samples, 4) + "WAVEfmt " + number(16, 4) + number(1, 2) +
           number(1, 2) + number(perSecond, 4) + number(2 * perSecond, 4) + number(2, 2) +
           number(16, 2) + "data" + number(2 * samples, 4) + data;
}

// How loud it is in each hundredth of a second.
std::vector<double> levels(const std::vector<int> &values) {
    constexpr std::size_t step = rate / 100;
    std::vector<double> result;
    for (std::size_t at = 0; at + step <= values.size(); at += step) {
        double sum = 0;
        for (std::size_t i = at; i < at + step; ++i) {
            sum += double(values[i]) * values[i];
        }
        result.push_back(std::sqrt(sum / step));
    }
    return result;
}

// How alike two stretches of sound rise and fall: 1 for the same.
double likeness(const std::vector<double> &one, const std::vector<double> &other) {
    const auto product = [](const auto &a, const auto &b) {
        return std::inner_product(a.begin(), a.end(), b.begin(), 0.0);
    };
    return product(one, other) / std::sqrt(product(one, one) * product(other, other));
}

class SoundHeard : public testing::Test {
protected:
    SoundHeard() {
        qputenv("SDL_AUDIODRIVER", "disk");
        qputenv("SDL_DISKAUDIOFILE", folder.bytePath(u"heard.raw").c_str());
    }
    ~SoundHeard() override {
        qunsetenv("SDL_AUDIODRIVER");
        qunsetenv("SDL_DISKAUDIOFILE");
        qunsetenv("SDL_DISKAUDIODELAY");
    }

    std::string file() const { return folder.bytePath(u"heard.raw"); }

    // The left side of what was written, from one moment on, in frames.
    std::vector<int> heard(std::size_t from = 0, std::size_t frames = SIZE_MAX / 4) const {
        std::ifstream stream(file(), std::ios::binary);
        stream.seekg(static_cast<std::streamoff>(4 * from));
        std::vector<int> values;
        for (char b[4]; values.size() < frames && stream.read(b, 4);) {
            values.push_back(static_cast<std::int16_t>(static_cast<unsigned char>(b[0]) |
                                                       static_cast<unsigned char>(b[1]) << 8));
        }
        return values;
    }
    std::size_t written() const {
        std::error_code none;
        const auto bytes = std::filesystem::file_size(file(), none);
        return none ? 0 : static_cast<std::size_t>(bytes) / 4;
    }
    // The first sound from a moment on.
    std::size_t onset(std::size_t from) const {
        for (;;) {
            const auto second = heard(from, rate);
            const auto found =
                std::find_if(second.begin(), second.end(), [](int value) { return value != 0; });
            if (found != second.end() || second.empty()) {
                return from + static_cast<std::size_t>(found - second.begin());
            }
            from += second.size();
        }
    }
    double secondsOf(int value) const {
        const auto values = heard();
        return static_cast<double>(std::count(values.begin(), values.end(), value)) / rate;
    }
    Texte made(const Texte &name, const std::string &bytes) const {
        folder.write(name, bytes);
        return folder.path(name);
    }

    TemporaryFolder folder;
    Files files;
};

double secondsFor(const std::function<void()> &action) {
    const auto start = Clock::now();
    action();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

TEST_F(SoundHeard, NoSuchDriverIsNeitherWaveNorMidi) {
    qputenv("SDL_AUDIODRIVER", "nosuchdriver");
    const Texte voice = made(u"voice.wav", wave(0.2, 1000));
    MixerSound sound(files);
    for (int i = 0; i < 200 && sound.waveAvailable(); ++i) { // until that is known
        std::this_thread::sleep_for(50ms);
    }
    EXPECT_FALSE(sound.waveAvailable());
    EXPECT_FALSE(sound.midiAvailable());
    sound.playWave(voice);
    sound.playMidi(voice, true);
    sound.stopMidi();
    EXPECT_LT(secondsFor([&] { sound.finishWave(5s); }), 0.5);
}

TEST_F(SoundHeard, ADeviceIsWave) {
    MixerSound sound(files);
    EXPECT_TRUE(sound.waveAvailable());
}

TEST_F(SoundHeard, PlayingReturnsAtOnceEvenBeforeTheDeviceIsOpen) {
    const Texte voice = made(u"voice.wav", wave(0.3, 1000));
    const Texte large = made(u"large.wav", wave(60, 2000));
    MixerSound sound(files);
    // The machine itself may be busy: the quickest of a few.
    const auto quickest = [](const std::function<void()> &action) {
        return std::min({secondsFor(action), secondsFor(action), secondsFor(action)});
    };
    for (const Texte &path : {voice, large, voice}) {
        EXPECT_LT(quickest([&] { sound.playWave(path); }), 0.005);
    }
    EXPECT_LT(quickest([&] { sound.playMidi(voice, true); }), 0.005);
    EXPECT_LT(quickest([&] { sound.stopMidi(); }), 0.005);
    sound.finishWave(8s);
    // The last one whole, and what was heard of the first while the large one was read.
    EXPECT_GT(secondsOf(1000), 0.299);
    EXPECT_LT(secondsOf(1000), 0.7);
}

TEST_F(SoundHeard, FinishWaveReturnsWhenTheLastSampleIsOut) {
    const Texte voice = made(u"voice.wav", wave(0.5, 1000));
    MixerSound sound(files);
    ASSERT_TRUE(sound.waveAvailable());
    sound.playWave(voice);
    const double seconds = secondsFor([&] { sound.finishWave(5s); });
    EXPECT_NEAR(secondsOf(1000), 0.5, 0.001);
    EXPECT_GT(seconds, 0.45);
    EXPECT_LT(seconds, 1.5);
}

TEST_F(SoundHeard, FinishWaveWaitsNoLongerThanItsPatience) {
    const Texte voice = made(u"voice.wav", wave(20, 1000));
    MixerSound sound(files);
    ASSERT_TRUE(sound.waveAvailable());
    sound.playWave(voice);
    const double seconds = secondsFor([&] { sound.finishWave(300ms); });
    EXPECT_GE(seconds, 0.3);
    EXPECT_LT(seconds, 0.8);
}

TEST_F(SoundHeard, FinishWaveWithNothingPlayingReturnsAtOnce) {
    MixerSound sound(files);
    ASSERT_TRUE(sound.waveAvailable());
    EXPECT_LT(secondsFor([&] { sound.finishWave(5s); }), 0.3);
}

TEST_F(SoundHeard, ANewWaveTakesThePlaceOfTheOneThatSounds) {
    const Texte first = made(u"first.wav", wave(2, 1000));
    const Texte second = made(u"second.wav", wave(0.2, 2000));
    MixerSound sound(files);
    ASSERT_TRUE(sound.waveAvailable());
    sound.playWave(first);
    const auto until = Clock::now() + 5s;
    while (secondsOf(1000) <= 0.05 && Clock::now() < until) {
        std::this_thread::sleep_for(50ms);
    }
    sound.playWave(second);
    sound.finishWave(5s);
    EXPECT_GT(secondsOf(1000), 0.05);
    EXPECT_LT(secondsOf(1000), 1.5);
    EXPECT_NEAR(secondsOf(2000), 0.2, 0.001);
    EXPECT_EQ(secondsOf(3000), 0); // never both
}

TEST_F(SoundHeard, OfManyQuickWavesTheLastIsHeardWhole) {
    const Texte first = made(u"first.wav", wave(1, 1000));
    const Texte last = made(u"last.wav", wave(0.2, 2000));
    MixerSound sound(files);
    EXPECT_LT(secondsFor([&] {
                  for (int i = 0; i < 200; ++i) {
                      sound.playWave(first);
                  }
                  sound.playWave(last);
              }),
              0.2);
    EXPECT_LT(secondsFor([&] { sound.finishWave(5s); }), 2.5);
    EXPECT_NEAR(secondsOf(2000), 0.2, 0.001);
}

TEST_F(SoundHeard, WhatCannotBePlayedIsSilence) {
    const std::string good = wave(0.2, 1000);
    const std::vector<std::pair<Texte, std::string>> bad = {
        {u"empty.wav", ""},
        {u"header.wav", good.substr(0, 30)},
        {u"garbage.wav", std::string(20000, '\x5a')},
        {u"claims.wav", good.substr(0, 4) + std::string(2000, '\xff')},
        {u"text.wav", "RIFF of another kind"},
    };
    MixerSound sound(files);
    ASSERT_TRUE(sound.waveAvailable());
    for (const auto &[name, bytes] : bad) {
        sound.playWave(made(name, bytes));
        sound.playMidi(folder.path(name), true);
        EXPECT_LT(secondsFor([&] { sound.finishWave(5s); }), 0.5);
    }
    const Texte huge = made(u"huge.wav", good);
    std::filesystem::resize_file(folder.bytePath(u"huge.wav"), std::uintmax_t(3) << 30);
    sound.playWave(huge);
    sound.playWave(folder.path(u"missing.wav"));
    sound.playWave(folder.path(u" "));
    sound.playWave(folder.path());
    EXPECT_LT(secondsFor([&] { sound.finishWave(5s); }), 0.5);
    const auto values = heard();
    EXPECT_TRUE(std::all_of(values.begin(), values.end(), [](int value) { return value == 0; }));

    // And the next good one is heard.
    sound.playWave(made(u"good.wav", good));
    sound.finishWave(5s);
    EXPECT_NEAR(secondsOf(1000), 0.2, 0.001);
}

// A file unfolds to the rate of the device: at four samples a second eight million of them would
// take hundreds of gigabytes.
TEST_F(SoundHeard, WhatWouldFillTheMemoryIsSilence) {
    MixerSound sound(files);
    ASSERT_TRUE(sound.waveAvailable());
    for (const std::uint32_t perSecond : {0U, 4U, 8000U}) {
        const std::size_t before = residentKilobytes();
        const Texte slow = made(u"slow.wav", wave(1, 1000, perSecond));
        std::filesystem::resize_file(folder.bytePath(u"slow.wav"), 8'000'000);
        sound.playWave(slow);
        EXPECT_LT(secondsFor([&] { sound.finishWave(5s); }), 0.5) << perSecond;
        EXPECT_LT(residentKilobytes(), before + 20'000) << perSecond;
    }
}

// The library would complain of each of its bytes, for ever.
TEST_F(SoundHeard, ADamagedTuneIsSilenceAndNothingIsSaidOfIt) {
    std::string tune(20'000, '\0');
    const std::string start("MThd\0\0\0\6\0\0\0\1\0\x60MTrk\0\0\x4e\x0a", 22);
    tune.replace(0, start.size(), start);
    testing::internal::CaptureStderr();
    {
        MixerSound sound(files);
        EXPECT_TRUE(sound.midiAvailable());
        sound.playMidi(made(u"bad.mid", tune), true);
        sound.finishWave(5s);
        std::this_thread::sleep_for(100ms);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr().find("fluidsynth: error"), std::string::npos);
}

// As much in each second as is let through at all, again and again: that must not take all of the
// machine.
TEST_F(SoundHeard, TheFullestTuneLeavesTheMachineToOthers) {
    std::string notes;
    for (int i = 0; i < 124; ++i) {
        notes += std::string("\0\x90", 2) + static_cast<char>(i) + '\x50';
    }
    notes += std::string("\x83\x60\xff\x2f\0", 5); // a second, of 480 ticks
    std::string tune("MThd\0\0\0\6\0\0\0\1\0\xf0MTrk\0\0", 20);
    tune += static_cast<char>(notes.size() >> 8);
    tune += static_cast<char>(notes.size());
    tune += notes;
    ASSERT_TRUE(isTune(tune));
    MixerSound sound(files);
    ASSERT_TRUE(sound.midiAvailable());
    sound.playMidi(made(u"full.mid", tune), true);
    sound.finishWave(5s);
    const std::clock_t before = std::clock();
    std::this_thread::sleep_for(500ms);
    EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC * 2 / 5);
}

TEST_F(SoundHeard, AWaveThatCannotBePlayedLeavesTheSoundingOneAlone) {
    const Texte voice = made(u"voice.wav", wave(0.6, 1000));
    const Texte text = made(u"text.wav", "no sound");
    MixerSound sound(files);
    ASSERT_TRUE(sound.waveAvailable());
    sound.playWave(voice);
    std::this_thread::sleep_for(200ms);
    sound.playWave(text);
    sound.playWave(folder.path(u"missing.wav"));
    sound.finishWave(5s);
    EXPECT_NEAR(secondsOf(1000), 0.6, 0.001);
}

TEST_F(SoundHeard, AFileReplacedByGarbageIsNotPlayedAndSoundsAgainWhenItIsGood) {
    MixerSound sound(files);
    ASSERT_TRUE(sound.waveAvailable());
    const Texte voice = made(u"voice.wav", wave(5, 1000));
    sound.playWave(voice);
    std::this_thread::sleep_for(100ms);
    sound.playWave(made(u"voice.wav", "no sound"));
    sound.finishWave(100ms);
    sound.playWave(made(u"voice.wav", wave(0.2, 2000)));
    sound.finishWave(5s);
    EXPECT_LT(secondsOf(1000), 1);
    EXPECT_NEAR(secondsOf(2000), 0.2, 0.001);
}

TEST_F(SoundHeard, StoppingATuneThatDoesNotPlayLeavesTheVoiceAlone) {
    MixerSound sound(files);
    sound.stopMidi();
    sound.stopMidi();
    sound.playWave(made(u"voice.wav", wave(0.2, 1000)));
    sound.stopMidi();
    sound.finishWave(5s);
    EXPECT_NEAR(secondsOf(1000), 0.2, 0.001);
}

TEST_F(SoundHeard, GoesAtAnyMoment) {
    const Texte voice = made(u"voice.wav", wave(20, 1000));
    for (const auto moment : {0ms, 5ms, 150ms}) {
        EXPECT_LT(secondsFor([&] {
                      MixerSound sound(files);
                      sound.playWave(voice);
                      std::this_thread::sleep_for(moment);
                  }),
                  2);
    }
}

// The tune of the game itself: 72 bars of three at 104 beats a minute. The file is written some
// twenty times as fast as a loudspeaker plays.
TEST_F(SoundHeard, TheTuneStartsOverOnItsLastBarLineAndFromItsStartAfterAStop) {
    constexpr double length = 72 * 3 * 60 / 104.0;
    constexpr std::size_t opening = 5 * rate;
    const Texte tune = fromUtf8(GRIMOVAL_SOUNDS "/CLVMID1.mid");
    qputenv("SDL_DISKAUDIODELAY", "1"); // milliseconds for 1024 frames
    // Until so much was written after the first sound from a moment on, which it tells.
    const auto await = [this](std::size_t from, std::size_t frames) {
        const auto until = Clock::now() + 60s;
        std::size_t begin = onset(from);
        while (begin + frames > written() && Clock::now() < until) {
            std::this_thread::sleep_for(10ms);
            begin = onset(begin);
        }
        EXPECT_LE(begin + frames, written());
        return begin;
    };
    std::size_t start = 0, stopped = 0, again = 0;
    {
        MixerSound sound(files);
        ASSERT_TRUE(sound.midiAvailable());
        sound.playMidi(tune, true);
        start = await(0, static_cast<std::size_t>(length + 7) * rate);
        sound.stopMidi();
        const auto until = Clock::now() + 60s;
        do {
            std::this_thread::sleep_for(50ms);
            stopped = written();
        } while (onset(stopped - rate) < stopped && Clock::now() < until);
        sound.playMidi(tune, true);
        again = await(stopped, opening + 2 * rate);
    }
    const auto first = levels(heard(start, opening));
    ASSERT_GT(*std::max_element(first.begin(), first.end()), 500);
    // How far from a moment the opening is heard once more, in hundredths of a second.
    const auto awayFrom = [&](std::size_t moment) {
        const auto around = levels(heard(moment - rate, opening + 2 * rate));
        std::ptrdiff_t best = 0;
        double most = 0;
        for (std::size_t at = 0; at + first.size() <= around.size(); ++at) {
            const auto from = around.begin() + static_cast<std::ptrdiff_t>(at);
            const double alike =
                likeness(first, {from, from + static_cast<std::ptrdiff_t>(first.size())});
            if (alike > most) {
                most = alike;
                best = static_cast<std::ptrdiff_t>(at);
            }
        }
        EXPECT_GT(most, 0.95);
        return std::abs(best - 100);
    };
    EXPECT_LE(awayFrom(start + static_cast<std::size_t>(length * rate)), 5);
    EXPECT_GT(again, stopped); // silence between
    EXPECT_LE(awayFrom(again), 5);
}

} // namespace
} // namespace grimoval::test
