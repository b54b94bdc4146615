// SPDX-License-Identifier: GPL-3.0-or-later
#include "scatter.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace scene {

std::vector<Spot> scattered(const QRectF &box, int count, double far, double near, int kinds,
                            unsigned seed) {
    std::mt19937 generator(
        seed); // its numbers are fixed by the standard; those of the distributions are not
    const auto chance = [&] { return static_cast<double>(generator()) / 4294967296.0; };
    // Steps by the plastic number never come near to one another.
    constexpr double stepX = 0.7548776662466927, stepY = 0.5698402909980532;
    const double startX = chance(), startY = chance();
    std::vector<Spot> spots;
    for (int i = 0; i < count; ++i) {
        const double u = std::fmod(startX + i * stepX + 0.03 * chance(), 1.0);
        const double v = std::fmod(startY + i * stepY + 0.03 * chance(), 1.0);
        const double size = (far + (near - far) * v) * (0.82 + 0.36 * chance());
        const double turn = 2 * chance() - 1;
        const bool flip = chance() < 0.5;
        const int kind = static_cast<int>(chance() * kinds);
        spots.push_back(
            {box.x() + u * box.width(), box.y() + v * box.height(), size, turn, flip, kind});
    }
    std::sort(spots.begin(), spots.end(), [](const Spot &a, const Spot &b) { return a.y < b.y; });
    return spots;
}

} // namespace scene
