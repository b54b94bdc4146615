// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files.h"
#include "platform/qt/sound.h"
#include "support/temporary_folder.h"

#include <QByteArray>
#include <gtest/gtest.h>

namespace grimoval::test {
namespace {

using namespace std::chrono_literals;

std::string number(unsigned value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text += static_cast<char>(value >> 8 * i & 0xff);
    }
    return text;
}

struct Shape {
    unsigned kind, tracks, perSecond, block, bits;
};
constexpr unsigned pcm = 1, real = 3, packed = 0x11;

std::string wave(const Shape &shape, std::size_t bytes) {
    const std::string data(bytes, '\x40');
    std::string header = number(shape.kind, 2) + number(shape.tracks, 2) +
                         number(shape.perSecond, 4) + number(shape.perSecond * shape.block, 4) +
                         number(shape.block, 2) + number(shape.bits, 2);
    if (shape.kind == packed) {
        header += number(2, 2) + number(505, 2);
    }
    return "RIFF" + number(unsigned(20 + header.size() + bytes), 4) + "WAVEfmt " +
           number(unsigned(header.size()), 4) + header + "data" + number(unsigned(bytes), 4) + data;
}

class ShortWaves : public testing::Test {
protected:
    ShortWaves() {
        qputenv("SDL_AUDIODRIVER", "disk");
        qputenv("SDL_DISKAUDIOFILE", folder.bytePath(u"heard.raw").c_str());
    }
    ~ShortWaves() override {
        qunsetenv("SDL_AUDIODRIVER");
        qunsetenv("SDL_DISKAUDIOFILE");
    }

    // Whether anything but silence comes out of it, twice in a row: what was played is then let go.
    bool sounds(const std::string &bytes) {
        folder.write(u"short.wav", bytes);
        {
            MixerSound sound(files);
            EXPECT_TRUE(sound.waveAvailable());
            for (int i = 0; i < 2; ++i) {
                sound.playWave(folder.path(u"short.wav"));
                sound.finishWave(5s);
            }
        }
        const std::string heard = folder.read(u"heard.raw");
        return heard.find_first_not_of('\0') != std::string::npos;
    }

    TemporaryFolder folder;
    Files files;
};

TEST_F(ShortWaves, AThousandthOfASecondIsHeard) {
    EXPECT_TRUE(sounds(wave({pcm, 1, 22050, 2, 16}, 2 * 22)));
    EXPECT_TRUE(sounds(wave({pcm, 1, 192000, 2, 16}, 2 * 192)));
    EXPECT_TRUE(sounds(wave({pcm, 2, 44100, 4, 16}, 4 * 45)));
    EXPECT_TRUE(sounds(wave({real, 2, 44100, 8, 32}, 8 * 45)));
    EXPECT_TRUE(sounds(wave({packed, 1, 8000, 256, 4}, 256)));
}

// The program lives on, and lets go of it without harm.
TEST_F(ShortWaves, WhatComesToNoSampleIsSilence) {
    for (const Shape &shape :
         {Shape{pcm, 1, 22050, 2, 16}, Shape{pcm, 1, 192000, 2, 16}, Shape{pcm, 2, 44100, 4, 16},
          Shape{real, 2, 44100, 8, 32}, Shape{packed, 1, 8000, 256, 4}}) {
        for (const std::size_t bytes : {0U, 1U, 3U}) {
            EXPECT_FALSE(sounds(wave(shape, bytes))) << shape.kind << " " << bytes;
        }
    }
}

} // namespace
} // namespace grimoval::test
