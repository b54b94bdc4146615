// SPDX-License-Identifier: GPL-3.0-or-later
// A program run to its end.
#pragma once

#include <string>
#include <vector>

namespace grimoval::test {

struct Answer {
    int status = -1;     // of a program that ended by itself
    bool killed = false; // by a signal
    std::string output, errors;
};

// Settings of the environment are "NAME=value", in addition to the test's own. An ordinary user
// runs it where that is asked for and can be had. The input is what it reads.
Answer run(const std::vector<std::string> &words, const std::vector<std::string> &settings = {},
           bool ordinaryUser = false, const std::string &input = {});

} // namespace grimoval::test
