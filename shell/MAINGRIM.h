// SPDX-License-Identifier: GPL-3.0-or-later
// The entry of the program: its start-up in exact order, then the life of FMenu, then the end.
#pragma once

#include "game/FMenu.h"
#include "shell/Fplein.h"
#include "shell/frmSplash.h"

namespace grimoval {

// Ends the process itself, by ProgramEnd.
[[noreturn]] void Main(Globales &g, frmSplash &splash, Fplein &plein, FMenu &menu);

} // namespace grimoval
