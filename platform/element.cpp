// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/element.h"

#include <array>

namespace grimoval {

std::string shownValue(bool value) { return value ? "Vrai" : "Faux"; }

std::string shownValue(int value) { return std::to_string(value); }

std::string shownValue(Colour value) {
    static constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4) {
        text += digits[(value.rgb >> shift) & 0xF];
    }
    return text;
}

std::string shownValue(const Texte &value) {
    std::string text = "\"";
    for (const char letter : toUtf8(value)) {
        switch (letter) {
        case '\n':
            text += "\\n";
            break;
        case '\r':
            text += "\\r";
            break;
        case '\t':
            text += "\\t";
            break;
        case '"':
            text += "\\\"";
            break;
        case '\\':
            text += "\\\\";
            break;
        default:
            text += letter;
        }
    }
    return text + "\"";
}

std::string shownValue(const std::vector<Texte> &value) {
    std::string text;
    for (const Texte &item : value) {
        text += text.empty() ? "" : " ";
        text += shownValue(item);
    }
    return text;
}

std::string shownValue(const Rows &value) {
    std::string text;
    for (const auto &row : value) {
        text += text.empty() ? "" : " | ";
        text += shownValue(row);
    }
    return text;
}

std::vector<std::string> shownCells(const char *name, const Rows &value) {
    std::vector<std::string> lines;
    for (std::size_t row = 0; row < value.size(); ++row) {
        for (std::size_t column = 0; column < value[row].size(); ++column) {
            lines.push_back(std::string(name) + "(" + std::to_string(row) + ", " +
                            std::to_string(column) + ") = " + shownValue(value[row][column]));
        }
    }
    return lines;
}

} // namespace grimoval
