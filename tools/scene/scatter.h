// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>
#include <vector>

namespace scene {

// One of many like things spread over a place.
struct Spot {
    double x, y;
    double
        size; // between the size of those farthest (at the top) and nearest, and a little by chance
    double turn; // from -1 to 1
    bool flip;
    int kind;
};

// Spread evenly but not in rows, far ones first; the same for the same seed on every machine.
std::vector<Spot> scattered(const QRectF &box, int count, double far, double near, int kinds,
                            unsigned seed);

} // namespace scene
