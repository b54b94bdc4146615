// SPDX-License-Identifier: GPL-3.0-or-later
// One target as libFuzzer calls it. A law that is broken leaves by an exception that nobody
// catches, which ends the process with the input kept.
#include "fuzz/targets.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    grimoval::fuzz::GRIMOVAL_TARGET({reinterpret_cast<const char *>(data), size});
    return 0;
}
