// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of the house, and the readable ink that stands for a colour of the code on the
// surface that it lies on.
#pragma once

#include "platform/element.h"

#include <QColor>

namespace grimoval {

enum class Surface { night, parchment };

namespace shade {
inline const QColor night{0x0b, 0x14, 0x40};
inline const QColor nightMiddle{0x14, 0x20, 0x59};
inline const QColor nightLight{0x1d, 0x2f, 0x7a};
inline const QColor parchment{0xf6, 0xe7, 0xc1};
inline const QColor parchmentLight{0xff, 0xf7, 0xe2};
inline const QColor parchmentDark{0xe6, 0xcf, 0x97};
inline const QColor ink{0x2b, 0x1b, 0x0e};
inline const QColor gold{0xf2, 0xc1, 0x4e};
inline const QColor goldLight{0xff, 0xe9, 0xa6};
inline const QColor goldDark{0xa8, 0x74, 0x1a};
inline const QColor pale{0xf8, 0xf1, 0xdc};
inline const QColor emerald{0x1f, 0x7d, 0x3f}; // found
inline const QColor emeraldDark{0x0c, 0x46, 0x22};
inline const QColor emeraldLight{0x86, 0xe8, 0x94};
inline const QColor coral{0xff, 0xa8, 0x98}; // missed
inline const QColor coralDark{0xa8, 0x17, 0x17};
inline const QColor cover{0x2a, 0x40, 0xa0}; // the back of a tile: a small closed book
inline const QColor coverLight{0x42, 0x5c, 0xc4};
inline const QColor coverDark{0x14, 0x1f, 0x5e};
inline const QColor mist{0xc3, 0xce, 0xf6};  // what rests
inline const QColor amber{0xff, 0xb3, 0x47}; // time runs short
inline const QColor velvet{0x8e, 0x1b, 0x48};
inline const QColor velvetDark{0x36, 0x07, 0x28};
inline const QColor velvetLight{0xc2, 0x3a, 0x63};
} // namespace shade

// At least 4.5 to 1 against the worst shade of the surface.
QColor ink(Colour wanted, Surface surface);

// The shade of a surface that is hardest to write on.
QColor hardest(Surface surface);

// From 1 to 21, as the guidelines for accessible pages reckon it.
double contrast(const QColor &one, const QColor &other);

QColor toQt(Colour colour);

// "rouge", "vert"...; empty for a colour without a plain name.
Texte colourName(Colour colour);

} // namespace grimoval
