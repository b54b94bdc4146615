// SPDX-License-Identifier: GPL-3.0-or-later
// What a person does with the window on top, told in words: `clic FMenu.CmdTjr(2)`. The toolkit, if
// there is one, is not asked.
#pragma once

#include "platform/form.h"

#include <optional>
#include <string>
#include <vector>

namespace grimoval::script {

using Words = std::vector<Texte>;
// Why a command was not carried out; nothing when it was.
using Refusal = std::optional<std::string>;

// Words of a line; quotes group, and inside them \" and \\ stand for themselves. Nothing for quotes
// that are not closed.
std::optional<Words> splitCommand(const Texte &line);

std::optional<int> wholeNumber(const Texte &text);

// A control of a loaded window, by the window's name and its own; null if there is none.
Control *findControl(const Screen &screen, const std::string &path);

Refusal act(Screen &screen, const Words &words);

} // namespace grimoval::script
