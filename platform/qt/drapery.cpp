// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/drapery.h"

#include <cmath>
#include <numbers>

namespace grimoval {

namespace {

QColor between(const QColor &one, const QColor &other, double part) {
    const auto mix = [part](int a, int b) {
        return static_cast<int>(std::lround(a + (b - a) * part));
    };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()),
            mix(one.blue(), other.blue())};
}

// How far the cloth stands out at `x` of 0 to 1: folds, each a little unlike its neighbours.
double fold(double x) {
    constexpr double folds = 10;
    const double way = x * folds + 0.35 * std::sin(x * 17.0) + 0.2 * std::sin(x * 41.0 + 1.0);
    const double wave = 0.5 + 0.5 * std::sin(2 * std::numbers::pi * way);
    return std::pow(wave, 1.35);
}

void drawVelvet(QPainter &painter, const QRectF &area) {
    constexpr int strips = 320;
    QLinearGradient across(area.topLeft(), area.topRight());
    QGradientStops stops;
    for (int i = 0; i <= strips; ++i) {
        const double x = double(i) / strips, height = fold(x);
        const QColor body = between(shade::velvetDark, shade::velvet, std::min(1.0, height * 1.25));
        stops.append({x, between(body, shade::velvetLight, std::max(0.0, height - 0.72) * 1.9)});
    }
    across.setStops(stops);
    painter.fillRect(area, across);
    QLinearGradient depth(area.topLeft(), area.bottomLeft());
    depth.setColorAt(0, QColor(10, 0, 14, 150));
    depth.setColorAt(0.18, QColor(10, 0, 14, 30));
    depth.setColorAt(0.75, QColor(10, 0, 14, 0));
    depth.setColorAt(1, QColor(10, 0, 14, 90));
    painter.fillRect(area, depth);
}

// Braid above, strands below it.
void drawHem(QPainter &painter, const QRectF &hem) {
    QRectF braid = hem;
    braid.setHeight(hem.height() * 0.45);
    const double strand = hem.height() * 0.2;
    painter.setPen(Qt::NoPen);
    for (double x = hem.left(); x < hem.right(); x += strand) {
        const double light = fold((x - hem.left()) / hem.width());
        painter.setBrush(between(shade::goldDark, shade::goldLight, 0.25 + 0.6 * light));
        painter.drawRoundedRect(
            QRectF(x, braid.bottom() - 1, strand * 0.72, hem.bottom() - braid.bottom()),
            strand * 0.3, strand * 0.3);
    }
    QLinearGradient gold(braid.topLeft(), braid.bottomLeft());
    gold.setColorAt(0, shade::goldDark);
    gold.setColorAt(0.3, shade::goldLight);
    gold.setColorAt(0.6, shade::gold);
    gold.setColorAt(1, shade::goldDark);
    painter.fillRect(braid, gold);
    QLinearGradient shadow(braid.topLeft(), braid.topRight());
    QGradientStops stops;
    for (int i = 0; i <= 100; ++i) {
        stops.append({i / 100.0, QColor(40, 14, 0, static_cast<int>(110 * (1 - fold(i / 100.0))))});
    }
    shadow.setStops(stops);
    painter.fillRect(braid, shadow);
    // The braid is plaited.
    painter.setPen(QPen(QColor(0x7a, 0x4c, 0x0c), braid.height() * 0.12));
    for (double x = braid.left(); x < braid.right() + braid.height(); x += braid.height() * 0.8) {
        painter.drawLine(QPointF(x, braid.top() + braid.height() * 0.2),
                         QPointF(x - braid.height() * 0.5, braid.bottom() - braid.height() * 0.2));
    }
}

} // namespace

QPixmap makeDrapery(QSizeF place, double hem, double deviceRatio) {
    const QSize pixels = (place * deviceRatio).toSize();
    if (pixels.isEmpty()) {
        return {};
    }
    QPixmap cloth(pixels);
    cloth.fill(Qt::transparent);
    cloth.setDevicePixelRatio(deviceRatio);
    QPainter painter(&cloth);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF whole(QPointF(), place);
    drawVelvet(painter, whole.adjusted(0, 0, 0, -hem * 0.6));
    drawHem(painter, QRectF(0, place.height() - hem, place.width(), hem));
    return cloth;
}

} // namespace grimoval
