// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/int16.h"

#include "support/failures.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>

namespace grimoval {
namespace {

using test::failureNumber;

TEST(Int16, HoldsEveryValueOf16Bits) {
    for (int value = -32768; value <= 32767; ++value) {
        ASSERT_EQ(static_cast<int>(Int16(value)), value);
    }
    EXPECT_EQ(Int16(), 0);
}

TEST(Int16, AValueBeyondIsFailure6) {
    for (const int value : {32768, -32769, 40000, 65536, std::numeric_limits<int>::max(),
                            std::numeric_limits<int>::min()}) {
        EXPECT_EQ(failureNumber([&] { Int16 number(value); }), failure::overflow) << value;
    }
}

TEST(Int16, ASumThatOverflowsIsFailure6AndLeavesTheValue) {
    Int16 top = 32767;
    EXPECT_EQ(failureNumber([&] { top += 1; }), failure::overflow);
    EXPECT_EQ(top, 32767);
    Int16 bottom = -32768;
    EXPECT_EQ(failureNumber([&] { bottom += -1; }), failure::overflow);
    EXPECT_EQ(bottom, -32768);
    EXPECT_EQ(failureNumber([&] { top = top + 1; }), failure::overflow);
}

TEST(Int16, ASumWithTheLargestAmountIsFailure6AsWell) {
    Int16 one = 1;
    EXPECT_EQ(failureNumber([&] { one += std::numeric_limits<int>::max(); }), failure::overflow);
    Int16 minus = -1;
    EXPECT_EQ(failureNumber([&] { minus += std::numeric_limits<int>::min(); }), failure::overflow);
    EXPECT_EQ(one, 1);
    EXPECT_EQ(minus, -1);
}

TEST(Int16, SumsAndProductsAreReckonedWide) {
    const Int16 large = 32767;
    EXPECT_EQ(large * 100 / 200, 16383);
    EXPECT_EQ(large + large - large, 32767);
}

RC_GTEST_PROP(Int16, ASumIsTheTrueOneOrFailure6, ()) {
    const int start = *rc::gen::inRange(-32768, 32768);
    const int amount = *rc::gen::inRange(-70000, 70000);
    Int16 number = start;
    const int failed = failureNumber([&] { number += amount; });
    const bool fits = start + amount >= -32768 && start + amount <= 32767;
    RC_ASSERT(failed == (fits ? 0 : failure::overflow));
    RC_ASSERT(static_cast<int>(number) == (fits ? start + amount : start));
}

TEST(Int16, RoundsHalvesToTheEvenNeighbour) {
    EXPECT_EQ(Int16::rounded(0.5), 0);
    EXPECT_EQ(Int16::rounded(1.5), 2);
    EXPECT_EQ(Int16::rounded(2.5), 2);
    EXPECT_EQ(Int16::rounded(3.5), 4);
    EXPECT_EQ(Int16::rounded(-0.5), 0);
    EXPECT_EQ(Int16::rounded(-1.5), -2);
    EXPECT_EQ(Int16::rounded(-2.5), -2);
}

TEST(Int16, RoundsOtherValuesToTheNearest) {
    EXPECT_EQ(Int16::rounded(3.4), 3);
    EXPECT_EQ(Int16::rounded(3.6), 4);
    EXPECT_EQ(Int16::rounded(2.5000001), 3);
    EXPECT_EQ(Int16::rounded(-3.6), -4);
}

TEST(Int16, ARoundedValueThatFitsIsTakenAndAnotherIsFailure6) {
    EXPECT_EQ(Int16::rounded(32767.4), 32767);
    EXPECT_EQ(Int16::rounded(-32768.5), -32768);
    for (const double value :
         {32767.5, 32768.0, -32768.6, 40000.0, 1e300, -1e300, HUGE_VAL, -HUGE_VAL, std::nan("")}) {
        EXPECT_EQ(failureNumber([&] { Int16::rounded(value); }), failure::overflow) << value;
    }
}

} // namespace
} // namespace grimoval
