// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/int16.h"

#include <gtest/gtest.h>

namespace grimoval {
namespace {

TEST(Int16, RoundsHalvesToTheEvenNeighbour) {
    EXPECT_EQ(Int16::rounded(0.5), 0);
    EXPECT_EQ(Int16::rounded(1.5), 2);
    EXPECT_EQ(Int16::rounded(2.5), 2);
    EXPECT_EQ(Int16::rounded(-2.5), -2);
    EXPECT_EQ(Int16::rounded(3.4), 3);
}

} // namespace
} // namespace grimoval
