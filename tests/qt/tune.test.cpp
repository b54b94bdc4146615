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
    };
    for (const auto &[name, bytes] : bad) {
        EXPECT_FALSE(isTune(bytes)) << name;
    }
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
