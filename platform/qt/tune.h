// SPDX-License-Identifier: GPL-3.0-or-later
// Whether a MIDI file is whole and in form. The library that plays it does not look: on a damaged
// one it can complain without an end.
#pragma once

#include <string_view>

namespace grimoval {

bool isTune(std::string_view bytes);

} // namespace grimoval
