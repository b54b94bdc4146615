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

// One character that several keys make: a dead key and its letter; the Compose key and what follows
// it, two keys at least, up to a letter or a digit. A few rare characters have more of them.
class Composition {
public:
    // True if the key is one that begins a character.
    bool begins(int qtKey);
    // The key that follows is a part of the character. Without a character of its own it ends it.
    bool takes(char16_t character);
    void end() { state_ = State::none; }

private:
    enum class State { none, accent, composing };
    State state_ = State::none;
    int keys_ = 0;
    bool letter_ = false;
};

} // namespace grimoval
