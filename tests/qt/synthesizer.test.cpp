// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files.h"
#include "platform/qt/sound.h"

#include <QByteArray>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

namespace grimoval::test {
namespace {

// In a process of its own: one that had a synthesizer once keeps it.
[[noreturn]] void tellWithoutSynthesizer() {
    qputenv("SDL_AUDIODRIVER", "dummy");
    qputenv("SDL_MIXER_DISABLE_FLUIDSYNTH", "1");
    Files files;
    MixerSound sound(files);
    std::fprintf(stderr, "wave %d, midi %d", sound.waveAvailable(), sound.midiAvailable());
    std::_Exit(0);
}

TEST(Synthesizer, WithoutOneThereIsWaveButNoMidi) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(tellWithoutSynthesizer(), testing::ExitedWithCode(0), "wave 1, midi 0$");
}

} // namespace
} // namespace grimoval::test
