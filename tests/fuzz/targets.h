// SPDX-License-Identifier: GPL-3.0-or-later
// The readers of what strangers wrote, one function each: it takes any bytes at all and must
// neither crash nor hang, and its laws must hold. A fuzzer calls them with bytes of chance, the
// tests with the inputs that are kept in the tree.
#pragma once

#include <stdexcept>
#include <string_view>

namespace grimoval::fuzz {

void words(std::string_view bytes);     // a word base, opened, read and played
void list(std::string_view bytes);      // GRIMV.LST over a folder that is known
void settings(std::string_view bytes);  // GRIMOVA.INI at the start of the program
void profile(std::string_view bytes);   // a key written into any file
void theme(std::string_view bytes);     // the source of a theme
void grimbases(std::string_view bytes); // list and bases as the tool reads them
void names(std::string_view bytes);     // what is pasted as a player's name
void help(std::string_view bytes);      // the help file
void pictures(std::string_view bytes);  // faces and pictures, in tests-qt

struct BrokenLaw : std::logic_error {
    using std::logic_error::logic_error;
};

inline void law(bool holds, const char *what) {
    if (!holds) {
        throw BrokenLaw(what);
    }
}

} // namespace grimoval::fuzz
