// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/tune.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>

namespace grimoval::test {
namespace {

using namespace std::string_literals;

std::string tune(const std::string &events, const std::string &header = "\0\0\0\1\0\x60"s) {
    return "MThd\0\0\0\6"s + header + "MTrk\0\0\0"s + static_cast<char>(events.size()) + events;
}

const std::string note = "\0\x90\x3c\x50\x60\x3c\0"s, end = "\0\xff\x2f\0"s;

TEST(Tune, OfTheGameAndASmallOneAreInForm) {
    std::ifstream file(GRIMOVAL_SOUNDS "/CLVMID1.mid", std::ios::binary);
    EXPECT_TRUE(isTune(std::string(std::istreambuf_iterator<char>(file), {})));
    EXPECT_TRUE(isTune(tune(note + end)));
    EXPECT_TRUE(isTune(tune("\0\xc0\x10\0\xf0\2\1\xf7\0\xff\1\3abc"s + note + end + "rest")));
}

TEST(Tune, WhatIsCutShortIsNone) {
    const std::string whole = tune(note + end);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(isTune(whole.substr(0, length))) << length;
    }
}

TEST(Tune, WhatIsOutOfFormIsNone) {
    const std::pair<const char *, std::string> bad[] = {
        {"no end", tune(note)},
        {"no length", tune(end)},
        {"a quantity of five bytes", tune("\x80\x80\x80\x80\x01"s + note + end)},
        {"data without a status", tune("\0\x3c\x50"s + note + end)},
        {"data above 127", tune("\0\x90\x3c\x80"s + note + end)},
        {"a status of no file", tune("\0\xf4"s + note + end)},
        {"an event longer than its track", tune("\0\xff\1\x7f"s + note + end)},
        {"songs one after the other", tune(note + end, "\0\2\0\1\0\x60"s)},
        {"no track", tune(note + end, "\0\0\0\0\0\x60"s)},
        {"a track too few", tune(note + end, "\0\1\0\2\0\x60"s)},
        {"no ticks", tune(note + end, "\0\0\0\1\0\0"s)},
        {"frames of a film", tune(note + end, "\0\0\0\1\xe7\x28"s)},
        {"another kind", "RIFF" + tune(note + end)},
        {"a tempo of no byte", tune("\0\xff\x51\0"s + note + end)},
        {"a tempo of four bytes", tune("\0\xff\x51\4\1\0\0\0"s + note + end)},
        {"a tempo without time", tune("\0\xff\x51\3\0\0\0"s + note + end)},
        {"a key of no byte", tune("\0\xff\x59\0"s + note + end)},
        {"a key of three bytes", tune("\0\xff\x59\3\0\0\0"s + note + end)},
        {"bars of no byte", tune("\0\xff\x58\0"s + note + end)},
        {"frames of no byte", tune("\0\xff\x54\0"s + note + end)},
        {"an end of one byte", tune(note + "\0\xff\x2f\1x"s)},
    };
    for (const auto &[name, bytes] : bad) {
        EXPECT_FALSE(isTune(bytes)) << name;
    }
}

// A header of so many tracks, and the tracks: `first`, then empty ones.
std::string tracks(unsigned count, const std::string &first) {
    const auto two = [](std::size_t n) {
        return std::string{static_cast<char>(n >> 8), static_cast<char>(n)};
    };
    std::string text = "MThd\0\0\0\6\0\1"s + two(count) + "\0\x60"s;
    for (unsigned i = 0; i < count; ++i) {
        const std::string &events = i == 0 ? first : end;
        text += "MTrk\0\0"s + two(events.size()) + events;
    }
    return text;
}

// So many notes, each so many ticks (below 128) after the one before; 192 ticks are a second.
std::string notes(int count, int apart) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += std::string{static_cast<char>(apart)} + "\x90\x3c\x50"s;
    }
    return text;
}

TEST(Tune, OfMoreTracksThanAnyHasIsNone) {
    EXPECT_TRUE(isTune(tracks(64, note + end)));
    EXPECT_FALSE(isTune(tracks(65, note + end)));
    EXPECT_FALSE(isTune(tracks(50'000, note + end)));
}

TEST(Tune, OfMoreNotesInASecondThanCanBePlayedIsNone) {
    EXPECT_TRUE(isTune(tracks(1, notes(120, 0) + "\x81\x40"s + end.substr(1))));
    EXPECT_FALSE(isTune(tracks(1, notes(130, 0) + "\x81\x40"s + end.substr(1))));
    EXPECT_TRUE(isTune(tracks(1, notes(5'000, 2) + end)));
    EXPECT_FALSE(isTune(tracks(1, notes(5'000, 1) + end)));
    // The same notes at twice the tempo, told in the same track.
    EXPECT_FALSE(isTune(tracks(1, "\0\xff\x51\3\3\xd0\x90"s + notes(5'000, 2) + end)));
    // Played again and again, a short one is as full.
    EXPECT_TRUE(isTune(tracks(1, notes(10, 0) + "\x40"s + end.substr(1))));
    EXPECT_FALSE(isTune(tracks(1, notes(10, 0) + "\1"s + end.substr(1))));
}

TEST(Tune, AnyBytesAreReadToAnEnd) {
    std::mt19937 chance(1);
    const std::string whole = tune(note + "\0\xf0\2\1\xf7\0\xff\1\3abc"s + note + end);
    for (int i = 0; i < 20'000; ++i) {
        std::string bytes = whole;
        for (int changes = 1 + i % 4; changes > 0; --changes) {
            bytes[chance() % bytes.size()] = static_cast<char>(chance());
        }
        isTune(bytes);
    }
}

} // namespace
} // namespace grimoval::test
