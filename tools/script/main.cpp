// SPDX-License-Identifier: GPL-3.0-or-later
// grimoval-script: the whole program without a screen. Commands on standard input, one a line; what
// happens on standard output, one event a line, in order.
#include "tools/script/commands.h"

#include <iostream>

int main() {
    std::ios::sync_with_stdio(false);
    grimoval::script::Interpreter(std::cin, std::cout).run();
}
