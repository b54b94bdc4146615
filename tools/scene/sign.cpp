// SPDX-License-Identifier: GPL-3.0-or-later
#include "sign.h"

#include <QFont>
#include <QFontDatabase>
#include <QGlyphRun>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <vector>

namespace scene {

using namespace Qt::StringLiterals;

namespace {

// At this size the font gives its bitmaps, of 136 by 128 pixels, as they are.
constexpr int fontSize = 128, width = 136, height = 128, margin = 4;
constexpr int larger = 3;

QFont font() {
    static const QString family = [] {
        const int id = QFontDatabase::addApplicationFont(QStringLiteral(EMOJI_FONT));
        const QStringList families = QFontDatabase::applicationFontFamilies(id);
        if (families.isEmpty()) {
            throw Error(QStringLiteral(EMOJI_FONT " is no font"));
        }
        return families.first();
    }();
    QFont made(family);
    made.setPixelSize(fontSize);
    made.setStyleStrategy(QFont::NoFontMerging);
    return made;
}

// As the font holds it. One glyph or none: an emoji unknown to the font comes as a box, or in
// pieces.
QImage bitmap(const QString &emoji) {
    QTextLayout layout(emoji, font());
    layout.beginLayout();
    layout.createLine().setPosition({0, 0});
    layout.endLayout();
    QList<quint32> glyphs;
    for (const QGlyphRun &run : layout.glyphRuns()) {
        glyphs += run.glyphIndexes();
    }
    if (glyphs.size() != 1 || glyphs.first() == 0) {
        throw Error(u"the font has no single drawing for %1"_s.arg(emoji));
    }
    QImage drawn(width + 2 * margin, height + 2 * margin, QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    layout.draw(&painter, {margin, margin});
    return drawn;
}

double lanczos(double x) {
    constexpr double lobes = 3;
    if (x == 0) {
        return 1;
    }
    if (std::abs(x) >= lobes) {
        return 0;
    }
    const double t = std::numbers::pi * x;
    return lobes * std::sin(t) * std::sin(t / lobes) / (t * t);
}

using Colour = std::array<float, 4>;
struct Plane {
    int w, h;
    std::vector<Colour> at;
    Plane(int width_, int height_)
        : w(width_), h(height_), at(static_cast<size_t>(width_) * static_cast<size_t>(height_)) {}
    Colour &operator()(int x, int y) {
        return at[static_cast<size_t>(std::clamp(y, 0, h - 1)) * static_cast<size_t>(w) +
                  static_cast<size_t>(std::clamp(x, 0, w - 1))];
    }
};

// One direction of the enlargement; the result lies on its side, so that doing it twice does both.
Plane enlargedAndTurned(Plane &from) {
    Plane to(from.h, from.w * larger);
    for (int i = 0; i < to.h; ++i) {
        const double centre = (i + 0.5) / larger - 0.5;
        const int first = static_cast<int>(std::floor(centre)) - 2;
        std::array<float, 6> weights{};
        float sum = 0;
        for (int k = 0; k < 6; ++k) {
            sum += weights[static_cast<size_t>(k)] =
                static_cast<float>(lanczos(centre - first - k));
        }
        for (int j = 0; j < to.w; ++j) {
            Colour mixed{};
            for (int k = 0; k < 6; ++k) {
                for (size_t c = 0; c < 4; ++c) {
                    mixed[c] += from(first + k, j)[c] * weights[static_cast<size_t>(k)] / sum;
                }
            }
            to(j, i) = mixed;
        }
    }
    return to;
}

// Enlarged, with its edges made steep again: pushed away from the mean of what is around, but never
// beyond the colours that the small drawing has there, so that no edge gets a halo.
QImage enlarged(const QImage &small) {
    Plane from(small.width(), small.height());
    for (int y = 0; y < from.h; ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(small.constScanLine(y));
        for (int x = 0; x < from.w; ++x) {
            const QRgb p = line[x];
            from(x, y) = {static_cast<float>(qRed(p)), static_cast<float>(qGreen(p)),
                          static_cast<float>(qBlue(p)), static_cast<float>(qAlpha(p))};
        }
    }
    Plane turned = enlargedAndTurned(from);
    Plane large = enlargedAndTurned(turned);

    constexpr int reach = 3;
    constexpr float push = 2.2f;
    QImage made(large.w, large.h, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < large.h; ++y) {
        auto *line = reinterpret_cast<QRgb *>(made.scanLine(y));
        for (int x = 0; x < large.w; ++x) {
            Colour mean{}, least{255, 255, 255, 255}, most{};
            for (int dy = -reach; dy <= reach; dy += reach) {
                for (int dx = -reach; dx <= reach; dx += reach) {
                    const Colour &near = large(x + dx, y + dy);
                    const Colour &held = from(x / larger + dx / reach, y / larger + dy / reach);
                    for (size_t c = 0; c < 4; ++c) {
                        mean[c] += near[c] / 9;
                        least[c] = std::min(least[c], held[c]);
                        most[c] = std::max(most[c], held[c]);
                    }
                }
            }
            std::array<int, 4> out{};
            for (size_t c = 0; c < 4; ++c) {
                const float own = large(x, y)[c];
                out[c] = static_cast<int>(
                    std::lround(std::clamp(own + push * (own - mean[c]), least[c], most[c])));
            }
            line[x] = qRgba(std::min(out[0], out[3]), std::min(out[1], out[3]),
                            std::min(out[2], out[3]), out[3]);
        }
    }
    return made;
}

} // namespace

QImage sign(const QString &emoji) {
    static std::map<QString, QImage> drawn;
    const auto known = drawn.find(emoji);
    if (known != drawn.end()) {
        return known->second;
    }
    return drawn[emoji] = enlarged(bitmap(emoji));
}

} // namespace scene
