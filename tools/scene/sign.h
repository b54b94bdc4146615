// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QString>
#include <stdexcept>

namespace scene {

// What is wrong with a scene, as the person who draws it needs to hear it.
struct Error : std::runtime_error {
    explicit Error(const QString &text) : std::runtime_error(text.toStdString()) {}
};

// The drawing of an emoji in the font of colour emoji, three times as large as the font holds it
// and sharp.
QImage sign(const QString &emoji);

} // namespace scene
