// SPDX-License-Identifier: GPL-3.0-or-later
// fuzz-inputs FROM TO: the inputs of a folder as files of their bytes in another.
// fuzz-inputs FILE: a file's bytes as the tree keeps them.
#include "fuzz/inputs.h"

#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>

int main(int count, char **arguments) {
    using namespace grimoval::fuzz;
    if (count != 2 && count != 3) {
        std::cerr << "fuzz-inputs FROM TO, or fuzz-inputs FILE\n";
        return 2;
    }
    try {
        if (count == 2) {
            std::ifstream file(arguments[1], std::ios::binary);
            file.exceptions(std::ios::badbit | std::ios::failbit);
            std::cout << encode(std::string{std::istreambuf_iterator<char>(file), {}});
            return 0;
        }
        for (const Input &input : inputsOf(arguments[1])) {
            std::ofstream file(arguments[2] + ("/" + input.name), std::ios::binary);
            file.exceptions(std::ios::badbit | std::ios::failbit);
            file << input.bytes;
        }
    } catch (const std::exception &failed) {
        std::cerr << "fuzz-inputs: " << failed.what() << '\n';
        return 1;
    }
}
