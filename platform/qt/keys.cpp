// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/keys.h"

#include <QKeyEvent>

namespace grimoval {

bool isModifier(int qtKey) {
    switch (qtKey) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_Mode_switch:
        return true;
    default:
        return false;
    }
}

bool isDeadKey(int qtKey) {
    return qtKey >= Qt::Key_Dead_Grave && qtKey <= Qt::Key_Dead_Longsolidusoverlay;
}

bool Composition::begins(int qtKey) {
    if (qtKey == Qt::Key_Multi_key) {
        state_ = State::composing;
        keys_ = 0;
        letter_ = false;
        return true;
    }
    if (!isDeadKey(qtKey)) {
        return false;
    }
    if (state_ == State::composing) {
        ++keys_;
    } else {
        state_ = State::accent;
    }
    return true;
}

bool Composition::takes(char16_t character) {
    if (state_ == State::none || character == 0) {
        end();
        return false;
    }
    if (state_ == State::accent) {
        end();
        return true;
    }
    letter_ = letter_ || QChar(character).isLetterOrNumber();
    if (++keys_ >= 2 && letter_) {
        end();
    }
    return true;
}

Key keyOf(const QKeyEvent &event) {
    const Qt::KeyboardModifiers held = event.modifiers();
    const QString text = event.text();
    Key key;
    const bool plain = !(held & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (plain && text.size() == 1 && text[0].isPrint()) {
        key = Key::typed(static_cast<char16_t>(text[0].unicode()));
    }
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        key.code = Key::enter;
        break;
    case Qt::Key_Escape:
        key.code = Key::escape;
        break;
    case Qt::Key_Backspace:
        key.code = Key::back;
        break;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        key.code = Key::tab;
        break;
    case Qt::Key_F4:
        key.code = Key::f4;
        break;
    default:
        break;
    }
    key.alt = held.testFlag(Qt::AltModifier);
    key.shift = held.testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab;
    return key;
}

} // namespace grimoval
