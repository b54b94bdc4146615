// SPDX-License-Identifier: GPL-3.0-or-later
// A signed 16-bit integer whose overflow is failure 6, never a wrap. Sums are reckoned wide, as
// int; what is stored must fit.
#pragma once

#include "platform/failure.h"

#include <cmath>

namespace grimoval {

class Int16 {
public:
    constexpr Int16() = default;
    constexpr Int16(int value) : value_(checked(value)) {}
    constexpr operator int() const { return value_; }

    Int16 &operator+=(int amount) {
        value_ = checked(static_cast<long long>(value_) + amount);
        return *this;
    }

    // Rounds to the nearest whole number, halves to the even neighbour (2.5 gives 2, 3.5 gives 4).
    // Failure 6 beyond 16 bits, and for what is no number.
    static Int16 rounded(double value) {
        const double even = std::nearbyint(value);
        if (!(even >= -32768.0 && even <= 32767.0)) {
            throw Failure(failure::overflow);
        }
        return Int16(static_cast<int>(even));
    }

private:
    static constexpr short checked(long long value) {
        if (value < -32768 || value > 32767) {
            throw Failure(failure::overflow);
        }
        return static_cast<short>(value);
    }

    short value_ = 0;
};

} // namespace grimoval
