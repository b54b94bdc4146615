// SPDX-License-Identifier: GPL-3.0-or-later
// The run-time failure that an action ends with.
#pragma once

#include "platform/failure.h"

namespace grimoval::test {

// Its number; 0 if the action succeeds.
template <class Action>
int failureNumber(Action action) {
    try {
        action();
    } catch (const Failure &failure) {
        return failure.number;
    }
    return 0;
}

} // namespace grimoval::test
