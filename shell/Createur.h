// SPDX-License-Identifier: GPL-3.0-or-later
// Who makes the game: the one place is CMakeLists.txt.
#pragma once

namespace grimoval::createur {

extern const char16_t *const nom, *const ligne, *const courriel, *const site;

} // namespace grimoval::createur
