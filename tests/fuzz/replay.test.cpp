// SPDX-License-Identifier: GPL-3.0-or-later
// What strangers wrote: no input crashes its reader, and the laws of each reader hold.
#include "fuzz/replay.h"

#include <rapidcheck/gtest.h>

namespace grimoval::fuzz {
namespace {

TEST(ForeignBytes, OfAWordBase) { replay("words", words); }
TEST(ForeignBytes, OfAListOfBases) { replay("list", list); }
TEST(ForeignBytes, OfTheSettingsFile) { replay("settings", settings); }
TEST(ForeignBytes, OfAProfileThatIsWritten) { replay("profile", profile); }
TEST(ForeignBytes, OfTheSourceOfATheme) { replay("theme", theme); }
TEST(ForeignBytes, OfBasesThatTheToolReads) { replay("grimbases", grimbases); }
TEST(ForeignBytes, OfANameThatIsPasted) { replay("names", names); }
TEST(ForeignBytes, OfTheHelpFile) { replay("help", help); }

TEST(ForeignBytes, AnInputThatBreaksALawIsAFailure) {
    EXPECT_THROW(law(false, "never"), BrokenLaw);
    EXPECT_NO_THROW(law(true, "always"));
}

RC_GTEST_PROP(ForeignBytes, AreKeptAsATextThatIsReadBack, (const std::string &bytes)) {
    const std::string run = bytes + std::string(bytes.size() * 3, ' ') + bytes;
    const std::string text = encode(run);
    RC_ASSERT(decode(text) == run);
    RC_ASSERT(std::all_of(text.begin(), text.end(),
                          [](char c) { return c == '\n' || (c >= ' ' && c < 0x7F); }));
    RC_ASSERT(text.find(" \n") == std::string::npos);
}

TEST(ForeignBytes, InAFormThatIsNoneAreRefused) {
    EXPECT_EQ(decode("A\\00*3;\\ffB\n C"), std::string("A\0\0\0\xFF"
                                                       "B C",
                                                       8));
    for (const char *text : {"\\", "\\0", "\\g0", "\\00*;", "\\00*3", "\\00*99999999;"}) {
        EXPECT_THROW(decode(text), std::invalid_argument) << text;
    }
}

} // namespace
} // namespace grimoval::fuzz
