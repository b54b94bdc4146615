// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace grimoval {
namespace {

TEST(Trim, TakesTheBlanksAtBothEndsAndNoOther) {
    EXPECT_EQ(trim(u"  pomme de terre "), u"pomme de terre");
    EXPECT_EQ(trim(u"chat"), u"chat");
    EXPECT_EQ(trim(u"    "), u"");
    EXPECT_EQ(trim(u""), u"");
}

TEST(Trim, LeavesTabsLineEndsAndHardBlanks) {
    EXPECT_EQ(trim(u" \t mot\n "), u"\t mot\n");
    EXPECT_EQ(trim(u"\u00A0mot\u00A0"), u"\u00A0mot\u00A0");
}

TEST(Upper, CapitalisesFrenchLetters) {
    EXPECT_EQ(upper(u"abcxyz"), u"ABCXYZ");
    EXPECT_EQ(upper(u"àâäæçéèêëîïñôöœùûüÿ"), u"ÀÂÄÆÇÉÈÊËÎÏÑÔÖŒÙÛÜŸ");
    EXPECT_EQ(upper(u"šžþø"), u"ŠŽÞØ");
}

TEST(Upper, KeepsTheNumberOfCharactersAndWhatHasNoCapital) {
    EXPECT_EQ(upper(u"ß÷×µƒªº'-1é"), u"ß÷×µƒªº'-1É");
    EXPECT_EQ(upper(u"ľωж\uFB01"), u"ľωж\uFB01") << "no letters of Windows-1252";
}

TEST(Upper, OfEveryCharacterIsACapitalForGoodAndStaysInsideWindows1252) {
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const auto character = static_cast<char16_t>(code);
        const char16_t capital = upper(character);
        ASSERT_EQ(upper(capital), capital) << std::hex << code;
        if (capital != character) {
            ASSERT_GE(ansiCode(character), 0) << std::hex << code;
            ASSERT_GE(ansiCode(capital), 0) << std::hex << code;
        }
    }
}

struct Utf8Row {
    std::string bytes;
    Texte text;
};

TEST(Utf8, ReadsOneToThreeBytesACharacter) {
    const Utf8Row rows[] = {
        {"", u""},
        {"A\x7F", u"A\u007F"},
        {"\xC3\xA9\xC5\x93", u"éœ"},
        {"\xE2\x82\xAC", u"€"},
        {"\xEF\xBF\xBF", Texte(1, char16_t(0xFFFF))},
        {std::string("a\0b", 3), Texte(u"a\0b", 3)},
    };
    for (const Utf8Row &row : rows) {
        EXPECT_EQ(fromUtf8(row.bytes), row.text) << row.bytes;
        EXPECT_EQ(toUtf8(row.text), row.bytes) << row.bytes;
    }
}

TEST(Utf8, PutsTheReplacementCharacterForWhatIsIllFormedAndReadsOn) {
    const Utf8Row rows[] = {
        {"\x80z", u"\uFFFDz"},             // a continuation alone
        {"a\xC3", u"a\uFFFD"},             // cut at the end
        {"\xC3z", u"\uFFFDz"},             // cut by another character
        {"\xE2\x82z", u"\uFFFDz"},         // the same after two bytes
        {"\xC0\xAFz", u"\uFFFD\uFFFDz"},   // bytes that never occur
        {"\xFF\xFEz", u"\uFFFD\uFFFDz"},   //
        {"\xF0\x9F\x98\x80z", u"\uFFFDz"}, // a good character beyond 16 bits
    };
    for (const Utf8Row &row : rows) {
        EXPECT_EQ(fromUtf8(row.bytes), row.text) << testing::PrintToString(row.bytes);
    }
}

TEST(Utf8, NeverReadsOverlongFormsOrHalvesOfSurrogates) {
    for (const std::string bytes :
         {"\xE0\x80\xAF", "\xED\xA0\x80", "\xED\xBF\xBF", "\xF0\x80\x80\xAF", "\xF4\x90\x80\x80"}) {
        const Texte text = fromUtf8(bytes);
        EXPECT_FALSE(text.empty());
        EXPECT_EQ(text.find_first_not_of(u'\uFFFD'), Texte::npos) << testing::PrintToString(bytes);
    }
}

TEST(Utf8, WritesHalvesOfSurrogatesAsTheReplacementCharacter) {
    const Texte halves{0xDE00, 0xD83D};
    EXPECT_EQ(toUtf8(halves), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

RC_GTEST_PROP(Utf8, ATextComesBackAsItWas, (const std::vector<std::uint16_t> &codes)) {
    Texte text;
    for (const std::uint16_t code : codes) {
        if (code < 0xD800 || code > 0xDFFF) {
            text += static_cast<char16_t>(code);
        }
    }
    RC_ASSERT(fromUtf8(toUtf8(text)) == text);
}

RC_GTEST_PROP(Utf8, AnyBytesReadAsAWellFormedText, (const std::string &bytes)) {
    const Texte text = fromUtf8(bytes);
    RC_ASSERT(text.size() <= bytes.size());
    RC_ASSERT(fromUtf8(toUtf8(text)) == text);
}

TEST(Utf8, WritesAPairOfSurrogatesAsTheCharacterThatItIs) {
    EXPECT_EQ(toUtf8(Texte{u'a', 0xD83D, 0xDE00, u'b'}), "a\xF0\x9F\x98\x80"
                                                         "b");
    EXPECT_EQ(toUtf8(Texte{0xDBFF, 0xDFFF}), "\xF4\x8F\xBF\xBF");
}

TEST(PathText, IsThatOfItsUtf8AndHoldsEachOtherByteByItself) {
    const Utf8Row rows[] = {
        {"/home/\xC3\x89lodie", u"/home/Élodie"},
        {"\xF0\x9F\x98\x80z", Texte{0xD83D, 0xDE00, u'z'}},
        {"\xEF\xBF\xBD", u"\uFFFD"},
        {"\xC9lodie", Texte{0xDCC9, u'l', u'o', u'd', u'i', u'e'}}, // Windows-1252
        {"\xE2\x82z", Texte{0xDCE2, 0xDC82, u'z'}},                 // cut
        {"\xED\xA0\x80", Texte{0xDCED, 0xDCA0, 0xDC80}},            // half a pair
        {"\xC3\xC3\xA9", Texte{0xDCC3, u'é'}},                      // the next begins a character
    };
    for (const Utf8Row &row : rows) {
        EXPECT_EQ(fromPath(row.bytes), row.text) << testing::PrintToString(row.bytes);
        EXPECT_EQ(toPath(row.text), row.bytes) << testing::PrintToString(row.bytes);
    }
}

TEST(PathText, CanBeShownWithASignForWhatIsNoCharacter) {
    EXPECT_EQ(toUtf8(fromPath("/home/\xC9lodie \xF0\x9F\x98\x80")),
              "/home/\xEF\xBF\xBDlodie \xF0\x9F\x98\x80");
}

RC_GTEST_PROP(PathText, OfAnyBytesGivesTheBytesBack, (const std::vector<std::uint8_t> &codes)) {
    const std::string bytes(codes.begin(), codes.end());
    RC_ASSERT(toPath(fromPath(bytes)) == bytes);
}

// Bytes that come close to being characters.
RC_GTEST_PROP(PathText, OfHalvesOfCharactersGivesTheBytesBack, ()) {
    const auto bytes = *rc::gen::container<std::string>(rc::gen::elementOf(
        std::string("a/\x80\x82\x8F\x90\x9F\xA0\xA9\xBF\xC3\xE0\xE2\xED\xEF\xF0\xF4\xF8\xFF")));
    RC_ASSERT(toPath(fromPath(bytes)) == bytes);
    RC_CLASSIFY(isUtf8(bytes), "well-formed");
}

RC_GTEST_PROP(PathText, OfTwoNamesIsTheSameForEqualBytesAlone,
              (const std::vector<std::uint8_t> &one, const std::vector<std::uint8_t> &other)) {
    const std::string left(one.begin(), one.end()), right(other.begin(), other.end());
    RC_ASSERT((fromPath(left) == fromPath(right)) == (left == right));
}

// The bytes 80 to 9F; the others are the character of their own code.
constexpr char16_t middleOfTheTable[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, // 80 to 87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, // 88 to 8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90 to 97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, // 98 to 9F
};

TEST(Ansi, EachOfThe256BytesIsOneCharacterBothWays) {
    for (int code = 0; code < 256; ++code) {
        const char16_t character = code >= 0x80 && code <= 0x9F ? middleOfTheTable[code - 0x80]
                                                                : static_cast<char16_t>(code);
        const std::string byte(1, static_cast<char>(code));
        EXPECT_EQ(fromAnsiCode(code), character) << code;
        EXPECT_EQ(ansiCode(character), code) << code;
        EXPECT_EQ(fromAnsi(byte), Texte(1, character)) << code;
        EXPECT_EQ(toAnsi(Texte(1, character)), byte) << code;
    }
}

TEST(Ansi, OnlyThese256CharactersHaveACodeAndTheOthersAreWrittenAsAQuestionMark) {
    int coded = 0;
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const auto character = static_cast<char16_t>(code);
        if (ansiCode(character) >= 0) {
            ++coded;
        } else {
            ASSERT_EQ(toAnsi(Texte(1, character)), "?") << std::hex << code;
        }
    }
    EXPECT_EQ(coded, 256);
    EXPECT_EQ(toAnsi(u"a→é\u0301"), "a?\xE9?");
}

TEST(Decimal, HasASignOnlyBelowZeroAndNoBlank) {
    EXPECT_EQ(decimal(0), u"0");
    EXPECT_EQ(decimal(32767), u"32767");
    EXPECT_EQ(decimal(-1), u"-1");
    EXPECT_EQ(decimal(-2147483647 - 1), u"-2147483648");
}

TEST(FixedText, IsPaddedWithBlanksAndCutAtItsWidth) {
    EXPECT_EQ(FixedText<5>(u"oie").text(), u"oie  ");
    EXPECT_EQ(FixedText<5>(u"cigogne").text(), u"cigog");
    EXPECT_EQ(FixedText<5>(u"héron").text(), u"héron");
    EXPECT_EQ(FixedText<5>(u"").text(), u"     ");
    EXPECT_EQ(FixedText<5>().text(), u"     ");
}

TEST(FixedText, HoldsABlankTextOfItsWidthUntilItIsGivenAnother) {
    FixedText<3> field;
    EXPECT_EQ(field.text(), u"   ");
    field = Texte(u"ane");
    const Texte &text = field;
    EXPECT_EQ(text, u"ane");
}

} // namespace
} // namespace grimoval
