// SPDX-License-Identifier: GPL-3.0-or-later
// Text of the core and text of Qt.
#pragma once

#include "platform/text.h"

#include <QString>

namespace grimoval {

// To be shown: what a path alone can hold becomes U+FFFD.
inline QString toQt(const Texte &text) { return QString::fromStdString(toUtf8(text)); }

// What lies beyond 16 bits becomes U+FFFD, one for each character.
inline Texte fromQt(const QString &text) {
    Texte result;
    result.reserve(static_cast<std::size_t>(text.size()));
    for (const QChar unit : text) {
        if (unit.isHighSurrogate()) {
            result += u'\uFFFD';
        } else if (!unit.isLowSurrogate()) {
            result += static_cast<char16_t>(unit.unicode());
        }
    }
    return result;
}

} // namespace grimoval
