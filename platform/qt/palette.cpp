// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/palette.h"

#include <algorithm>
#include <cmath>

namespace grimoval {

namespace {

struct Ink {
    Colour wanted;
    QColor onNight, onParchment;
    const char16_t *name;
};

const Ink inks[] = {
    {colours::black, {0xf8, 0xf1, 0xdc}, {0x2b, 0x1b, 0x0e}, u"noir"},
    {colours::white, {0xff, 0xff, 0xff}, {0x4a, 0x34, 0x13}, u"blanc"},
    {colours::blue, {0xa9, 0xcd, 0xff}, {0x1b, 0x3f, 0xa0}, u"bleu"},
    {colours::green, {0x86, 0xe8, 0x94}, {0x16, 0x65, 0x2a}, u"vert"},
    {colours::red, {0xff, 0xa8, 0x98}, {0xa8, 0x17, 0x17}, u"rouge"},
};

double luminance(const QColor &colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

} // namespace

QColor toQt(Colour colour) { return QColor::fromRgb(0xFF000000U | colour.rgb); }

double contrast(const QColor &one, const QColor &other) {
    const double a = luminance(one), b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor hardest(Surface surface) {
    return surface == Surface::night ? QColor(0x2a, 0x3f, 0x95) : shade::parchmentDark;
}

QColor ink(Colour wanted, Surface surface) {
    for (const Ink &known : inks) {
        if (known.wanted == wanted) {
            return surface == Surface::night ? known.onNight : known.onParchment;
        }
    }
    // Any other colour keeps its hue and moves away from the surface until it can be read.
    QColor colour = toQt(wanted);
    const QColor ground = hardest(surface);
    for (int step = 0; step < 40 && contrast(colour, ground) < 4.5; ++step) {
        float hue = 0, saturation = 0, lightness = 0;
        colour.getHslF(&hue, &saturation, &lightness);
        lightness += surface == Surface::night ? 0.03F : -0.03F;
        colour =
            QColor::fromHslF(std::max(0.0F, hue), saturation, std::clamp(lightness, 0.0F, 1.0F));
    }
    return colour;
}

Texte colourName(Colour colour) {
    for (const Ink &known : inks) {
        if (known.wanted == colour) {
            return known.name;
        }
    }
    return {};
}

} // namespace grimoval
