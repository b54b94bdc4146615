// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text.h"

#include <cmath>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace grimoval {
namespace {

struct Accepted {
    Texte text;
    double value;
};

TEST(NumericValue, TakesSignsBlanksBothSeparatorsAndExponents) {
    const Accepted rows[] = {
        {u"7", 7},         {u" 7 ", 7},       {u"+3", 3},        {u"-7", -7},       {u"007", 7},
        {u"2,5", 2.5},     {u"2.5", 2.5},     {u",5", 0.5},      {u".5", 0.5},      {u"5,", 5},
        {u"5.", 5},        {u"-0,25", -0.25}, {u"1e2", 100},     {u"1E2", 100},     {u"1e+2", 100},
        {u"1e-2", 0.01},   {u"2,5e1", 25},    {u"  -1  ", -1},   {u"40000", 40000}, {u"-0", 0},
        {u"99999", 99999}, {u"0e999", 0},     {u"1e308", 1e308},
    };
    for (const Accepted &row : rows) {
        const auto value = numericValue(row.text);
        ASSERT_TRUE(value) << toUtf8(row.text);
        EXPECT_DOUBLE_EQ(*value, row.value) << toUtf8(row.text);
    }
}

TEST(NumericValue, RefusesEveryOtherText) {
    for (const Texte text :
         {u"",    u" ",   u"oui",   u"non",   u"vrai",  u".",     u",",         u"+",   u"-",
          u"5-",  u"--5", u"+-5",   u"1 2",   u"1,2,3", u"1.2,3", u"1..2",      u"0x1", u"&H1",
          u"1e",  u"1e+", u"e5",    u"1e2e3", u"1e2,5", u"1e 2",  u"inf",       u"nan", u"NaN",
          u"12a", u"a12", u"5%",    u"5 €",   u"١",     u"５",    u"½",         u"²",   u"−5",
          u"1f",  u"1L",  u"1'000", u"\"5\"", u"(5)",   u"5;",    u"1\u00A0000"}) {
        EXPECT_FALSE(numericValue(text)) << toUtf8(text);
    }
}

TEST(NumericValue, AValueTooLargeForARealIsNone) {
    const Texte nines(400, u'9');
    for (const Texte &text : {Texte(u"1e999"), Texte(u"-1e999"), Texte(u"1e99999999999999999999"),
                              nines, nines + u",5", nines + u"e-10", u"-" + nines}) {
        EXPECT_FALSE(numericValue(text)) << toUtf8(text);
    }
}

TEST(NumericValue, AValueTooSmallForARealIsZero) {
    const Texte zeros(400, u'0');
    for (const Texte &text : {Texte(u"1e-999"), Texte(u"-1e-999"), u"0," + zeros + u"1",
                              u"." + zeros + u"1e10", Texte(u"1e-99999999999999999999")}) {
        const auto value = numericValue(text);
        ASSERT_TRUE(value) << toUtf8(text);
        EXPECT_EQ(*value, 0) << toUtf8(text);
    }
}

TEST(NumericValue, ALongTextOfAnOrdinaryValueHasThatValue) {
    const Texte zeros(400, u'0');
    EXPECT_EQ(numericValue(zeros + u"12"), 12);
    EXPECT_EQ(numericValue(u"1" + zeros + u"e-400"), 1);
    EXPECT_EQ(numericValue(u"0," + zeros + u"1e401"), 1);
}

RC_GTEST_PROP(NumericValue, AWrittenNumberReadsAsItself, (int number)) {
    RC_ASSERT(numericValue(decimal(number)) == static_cast<double>(number));
}

RC_GTEST_PROP(NumericValue, PointAndCommaAreTheSameAndBlanksAroundDoNotMatter, (int whole)) {
    const Texte part = decimal(*rc::gen::inRange(0, 1000));
    const Texte before(static_cast<std::size_t>(*rc::gen::inRange(0, 4)), u' ');
    const Texte after(static_cast<std::size_t>(*rc::gen::inRange(0, 4)), u' ');
    const auto value = numericValue(decimal(whole) + u"." + part);
    RC_ASSERT(value.has_value());
    RC_ASSERT(numericValue(before + decimal(whole) + u"," + part + after) == value);
}

RC_GTEST_PROP(NumericValue, AnyTextIsAFiniteNumberOrNone, ()) {
    static const Texte alphabet = u"0123456789019.,+-eE x";
    const auto picks = *rc::gen::container<std::vector<std::size_t>>(
        rc::gen::inRange<std::size_t>(0, alphabet.size()));
    Texte text;
    for (const std::size_t pick : picks) {
        text += alphabet[pick];
    }
    const auto value = numericValue(text);
    RC_CLASSIFY(value.has_value());
    if (value) {
        RC_ASSERT(std::isfinite(*value));
        RC_ASSERT(text.find_first_of(u"0123456789") != Texte::npos);
        RC_ASSERT(text.find(u'x') == Texte::npos);
    }
}

} // namespace
} // namespace grimoval
