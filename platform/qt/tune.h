// SPDX-License-Identifier: GPL-3.0-or-later
// Whether a MIDI file is whole, in form, and no more than a player can take. The library that plays
// it does not look: on a damaged one it can complain without an end, and a flood of notes or of
// tracks holds its threads.
#pragma once

#include <string_view>

namespace grimoval {

bool isTune(std::string_view bytes);

} // namespace grimoval
