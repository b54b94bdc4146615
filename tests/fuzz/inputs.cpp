// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/inputs.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace grimoval::fuzz {

namespace {

constexpr std::size_t lineLength = 100, longestRun = 1 << 20;

[[noreturn]] void refuse(const char *why) { throw std::invalid_argument(why); }

// Takes a number from the front of a text.
std::size_t number(std::string_view &text, std::size_t most, int base) {
    std::size_t value = 0;
    const char *end = text.data() + std::min(text.size(), most);
    const auto [stop, error] = std::from_chars(text.data(), end, value, base);
    if (error != std::errc()) {
        refuse("no number");
    }
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    return value;
}

// An asterisk behind a byte would tell a run.
bool plain(char c) { return c > ' ' && c < 0x7F && c != '\\' && c != '*'; }

std::string escaped(char c) {
    static constexpr char digits[] = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    return {'\\', digits[byte >> 4], digits[byte & 15]};
}

} // namespace

std::string decode(std::string_view text) {
    std::string bytes;
    while (!text.empty()) {
        const char c = text.front();
        text.remove_prefix(1);
        if (c == '\n') {
            continue;
        }
        if (c != '\\') {
            bytes += c;
            continue;
        }
        const std::size_t before = text.size();
        const char byte = static_cast<char>(number(text, 2, 16));
        if (before - text.size() != 2) {
            refuse("a byte has two digits");
        }
        std::size_t times = 1;
        if (text.starts_with('*')) {
            text.remove_prefix(1);
            times = number(text, 8, 10);
            if (!text.starts_with(';') || times > longestRun) {
                refuse("a run ends in a semicolon");
            }
            text.remove_prefix(1);
        }
        bytes.append(times, byte);
    }
    return bytes;
}

std::string encode(std::string_view bytes) {
    std::string text;
    std::size_t line = 0;
    while (!bytes.empty()) {
        const char c = bytes.front();
        const std::size_t run = std::min(bytes.find_first_not_of(c), bytes.size());
        std::string piece;
        std::size_t taken = 1;
        if (run > 4) {
            piece = escaped(c) + "*" + std::to_string(std::min(run, longestRun)) + ";";
            taken = std::min(run, longestRun);
        } else if (plain(c) || (c == ' ' && bytes.size() > 1 && plain(bytes[1]) &&
                                text.size() - line < lineLength - 1 && text.size() > line)) {
            piece = c;
        } else {
            piece = escaped(c);
        }
        bytes.remove_prefix(taken);
        text += piece;
        if (c == '\n' || text.size() - line >= lineLength) {
            text += '\n';
            line = text.size();
        }
    }
    return text.empty() || text.ends_with('\n') ? text : text + "\n";
}

std::vector<Input> inputsOf(const std::string &folder) {
    std::vector<Input> inputs;
    for (const auto &entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream stream(entry.path(), std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(stream), {}};
        inputs.push_back({entry.path().stem().string(), decode(text)});
    }
    if (inputs.empty()) {
        throw std::invalid_argument("no input in " + folder);
    }
    std::sort(inputs.begin(), inputs.end(),
              [](const Input &one, const Input &other) { return one.name < other.name; });
    return inputs;
}

} // namespace grimoval::fuzz
