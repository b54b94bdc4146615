// SPDX-License-Identifier: GPL-3.0-or-later
#include "blur.h"

namespace scene {

Cover::Cover(const QImage &image, int border_)
    : w(image.width() + 2 * border_), h(image.height() + 2 * border_), border(border_),
      at(static_cast<size_t>(w) * static_cast<size_t>(h)) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            at[static_cast<size_t>(y + border) * static_cast<size_t>(w) +
               static_cast<size_t>(x + border)] =
                static_cast<float>(qAlpha(image.pixel(x, y))) / 255;
        }
    }
}

float Cover::operator()(int x, int y) const {
    x += border;
    y += border;
    if (x < 0 || y < 0 || x >= w || y >= h) {
        return 0;
    }
    return at[static_cast<size_t>(y) * static_cast<size_t>(w) + static_cast<size_t>(x)];
}

namespace {

// The mean over reach places on each side, along lines of so many places that lie so far apart.
void mean(std::vector<float> &at, int lines, int betweenLines, int places, int between, int reach) {
    std::vector<float> line(static_cast<size_t>(places));
    for (int l = 0; l < lines; ++l) {
        const auto place = [&](int i) -> float & {
            return at[static_cast<size_t>(l * betweenLines + i * between)];
        };
        for (int i = 0; i < places; ++i) {
            line[static_cast<size_t>(i)] = place(i);
        }
        float sum = 0;
        for (int i = -reach; i < places; ++i) {
            if (i + reach < places) {
                sum += line[static_cast<size_t>(i + reach)];
            }
            if (i - reach - 1 >= 0) {
                sum -= line[static_cast<size_t>(i - reach - 1)];
            }
            if (i >= 0) {
                place(i) = sum / static_cast<float>(2 * reach + 1);
            }
        }
    }
}

} // namespace

// Three means one after the other are near to the bell curve.
void Cover::blur(int reach) {
    for (int pass = 0; pass < 3; ++pass) {
        mean(at, h, w, w, 1, reach);
        mean(at, w, 1, h, w, reach);
    }
}

} // namespace scene
