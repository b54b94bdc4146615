// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/canvas.h"

#include <cmath>

namespace grimoval {

void Pen::printStay(const Texte &text) {
    canvas_.drawText(x, y, text);
    x += canvas_.textWidth(text);
}

void Pen::print(const Texte &text) {
    canvas_.drawText(x, y, text);
    x = 0;
    y += canvas_.textHeight(text.empty() ? u" " : text);
}

void Pen::printZone(const Texte &text) {
    const double zone = zoneColumns * canvas_.textWidth(u"W");
    if (zone > 0) {
        x = (std::floor(x / zone) + 1) * zone;
    }
    print(text);
}

void Pen::print(int number) { print((number < 0 ? Texte() : u" ") + decimal(number) + u" "); }

} // namespace grimoval
