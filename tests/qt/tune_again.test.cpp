// SPDX-License-Identifier: GPL-3.0-or-later
// A tune that is asked for while it plays begins again: heard in the file that the sound goes to.
#include "platform/qt/sound.h"

#include "support/temporary_folder.h"

#include <QByteArray>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <thread>
#include <vector>

namespace grimoval::test {
namespace {

using namespace std::chrono_literals;

// One note of half a second, then nothing for twenty.
std::string oneNote() {
    const std::string track("\0\xc0\x10"        // an organ
                            "\0\x90\x3c\x64"    // from the start
                            "\x60\x80\x3c\0"    // for 96 of 192 ticks a second
                            "\x9e\0\xff\x2f\0", // to the end
                            16);
    return std::string("MThd\0\0\0\6\0\0\0\1\0\x60MTrk\0\0\0\x10", 22) + track;
}

struct TuneAgain : testing::Test {
    TuneAgain() {
        qputenv("SDL_AUDIODRIVER", "disk");
        qputenv("SDL_DISKAUDIOFILE", file().c_str());
        qputenv("SDL_DISKAUDIODELAY", "1"); // some twenty times as fast as a loudspeaker
    }
    ~TuneAgain() override {
        for (const char *name : {"SDL_AUDIODRIVER", "SDL_DISKAUDIOFILE", "SDL_DISKAUDIODELAY"}) {
            qunsetenv(name);
        }
    }
    std::string file() const { return folder.bytePath(u"heard.raw"); }
    std::uintmax_t written() const {
        std::error_code none;
        const auto size = std::filesystem::file_size(file(), none);
        return none ? 0 : size / 4 * 4;
    }
    // The loudest value of a quarter of a second that is written from now on.
    int loudness() const {
        constexpr std::size_t quarter = 44100; // bytes, of two channels of 16 bits
        const std::uintmax_t from = written();
        const auto until = std::chrono::steady_clock::now() + 30s;
        while (written() < from + quarter && std::chrono::steady_clock::now() < until) {
            std::this_thread::sleep_for(1ms);
        }
        std::ifstream stream(file(), std::ios::binary);
        stream.seekg(static_cast<std::streamoff>(from));
        std::vector<std::int16_t> values(quarter / 2);
        stream.read(reinterpret_cast<char *>(values.data()), quarter);
        return std::abs(*std::max_element(values.begin(), values.end(),
                                          [](int a, int b) { return std::abs(a) < std::abs(b); }));
    }
    // Within eight seconds of sound, far less than the tune lasts.
    template <class Wish>
    bool comesToBe(Wish wish) const {
        for (int quarter = 0; quarter < 32; ++quarter) {
            if (wish(loudness())) {
                return true;
            }
        }
        return false;
    }

    TemporaryFolder folder;
    Files files;
};

TEST_F(TuneAgain, BeginsAgainWhenItIsAskedForWhileItPlays) {
    folder.write(u"note.mid", oneNote());
    MixerSound sound(files);
    ASSERT_TRUE(sound.midiAvailable());
    const auto loud = [](int level) { return level > 1000; };
    const auto quiet = [](int level) { return level < 100; };
    for (int time = 0; time < 3; ++time) {
        sound.playMidi(folder.path(u"note.mid"), true);
        EXPECT_TRUE(comesToBe(loud)) << time;
        EXPECT_TRUE(comesToBe(quiet)) << time;
    }
}

} // namespace
} // namespace grimoval::test
