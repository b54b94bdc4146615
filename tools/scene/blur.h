// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <vector>

namespace scene {

// How opaque a picture is at each place, from 0 to 1, with an empty border around.
struct Cover {
    int w, h, border;
    std::vector<float> at;
    Cover(const QImage &image, int border);
    // A place of the picture; nothing beyond the border.
    float operator()(int x, int y) const;
    void blur(int reach);
};

} // namespace scene
