// SPDX-License-Identifier: GPL-3.0-or-later
// The .tga pictures of the button faces: true colour of 24 or 32 bits, plain or run-length coded.
#pragma once

#include <QByteArray>
#include <QImage>

namespace grimoval {

// A null image for what is no such picture, or is cut short, or has a side above the largest.
QImage readTga(const QByteArray &bytes, int largest);

} // namespace grimoval
