// SPDX-License-Identifier: GPL-3.0-or-later
// Keys of Qt as keys of the windows.
#pragma once

#include "platform/form.h"

class QKeyEvent;

namespace grimoval {

Key keyOf(const QKeyEvent &event);
// Shift and its like, which do nothing alone.
bool isModifier(int qtKey);
// An accent that waits for its letter.
bool isDeadKey(int qtKey);

} // namespace grimoval
