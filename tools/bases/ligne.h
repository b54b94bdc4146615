// SPDX-License-Identifier: GPL-3.0-or-later
// A call as it can be typed again.
#pragma once

#include "platform/text.h"

#include <optional>

namespace grimoval::outils {

// "grimbases" and its words, each quoted for the shell where it needs to be. Nothing where a word
// cannot be shown as it is: what is typed again must be what was meant.
std::optional<Texte> ligneDe(const std::vector<std::string> &mots);

} // namespace grimoval::outils
