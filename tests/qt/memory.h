// SPDX-License-Identifier: GPL-3.0-or-later
// How much memory the tests take up just now.
#pragma once

#include <cstddef>
#include <fstream>
#include <string>

#include <malloc.h>

namespace grimoval::test {

inline std::size_t residentKilobytes() {
    ::malloc_trim(0); // what was given back and is only kept for the next
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word && word != "VmRSS:") {
    }
    std::size_t size = 0;
    status >> size;
    return size;
}

} // namespace grimoval::test
