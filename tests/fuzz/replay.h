// SPDX-License-Identifier: GPL-3.0-or-later
// The inputs of the tree, once more, as a test.
#pragma once

#include "fuzz/inputs.h"
#include "fuzz/targets.h"

#include <gtest/gtest.h>

namespace grimoval::fuzz {

inline void replay(const std::string &target, void (*run)(std::string_view)) {
    for (const Input &input : inputsOf(GRIMOVAL_INPUTS "/" + target)) {
        EXPECT_NO_THROW(run(input.bytes)) << target << "/" << input.name << ".txt";
    }
}

} // namespace grimoval::fuzz
