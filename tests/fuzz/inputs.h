// SPDX-License-Identifier: GPL-3.0-or-later
// Inputs as the tree keeps them: bytes in a text that can be read and compared. A printable ASCII
// character is itself, any other byte `\hh`; `\hh*12;` is twelve of them, and the breaks of lines
// do not count.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace grimoval::fuzz {

std::string decode(std::string_view text); // throws std::invalid_argument for what is none
std::string encode(std::string_view bytes);

struct Input {
    std::string name, bytes;
};

// Those of a folder, in order of their names; throws if there is none.
std::vector<Input> inputsOf(const std::string &folder);

} // namespace grimoval::fuzz
