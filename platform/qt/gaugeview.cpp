// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/nativeviews.h"

#include <algorithm>

namespace grimoval {

GaugeView::GaugeView(QWidget *parent) : QProgressBar(parent) {
    setTextVisible(false);
    setFocusPolicy(Qt::NoFocus);
    setMouseTracking(true);
}

void GaugeView::set(int value, int maximum, const QString &text, const QColor &ink) {
    const int top = std::max(1, maximum);
    // A bar of the toolkit draws itself at once, at each of these; one drawing does.
    setUpdatesEnabled(false);
    setRange(0, top);
    setValue(std::clamp(value, 0, top));
    text_ = text;
    ink_ = ink;
    setUpdatesEnabled(true);
}

void GaugeView::setFactor(double factor) {
    factor_ = factor;
    update();
}

void GaugeView::setMeasure(Gauge::Measure measure) {
    measure_ = measure;
    update();
}

GaugeView::Haste GaugeView::haste() const {
    if (measure_ != Gauge::Measure::time) {
        return Haste::none;
    }
    const double gone = double(value()) / maximum();
    return gone >= 0.8 ? Haste::urgent : gone >= 0.5 ? Haste::brief : Haste::calm;
}

void GaugeView::drawFill(QPainter &painter, const QRectF &tube) const {
    struct Shade {
        QColor light, dark;
    };
    const Shade shades[] = {{shade::goldLight, {0xd9, 0x9a, 0x2b}},
                            {{0x9f, 0xe3, 0xd2}, {0x2f, 0x9c, 0x8c}},
                            {{0xff, 0xdd, 0x8a}, {0xe0, 0x8a, 0x1e}},
                            {{0xff, 0xb0, 0x9a}, {0xc8, 0x32, 0x2a}}};
    const Shade &chosen = shades[static_cast<int>(haste())];
    const double radius = tube.height() / 2;
    QRectF filled = tube;
    filled.setWidth(std::max(tube.height(), tube.width() * value() / maximum()));
    QPainterPath part;
    part.addRoundedRect(filled, radius, radius);
    QLinearGradient light(tube.topLeft(), tube.bottomLeft());
    light.setColorAt(0, chosen.light);
    light.setColorAt(1, chosen.dark);
    painter.fillPath(part, light);
    painter.save();
    painter.setClipPath(part);
    if (haste() == Haste::urgent) {
        const double step = tube.height() * 0.9;
        painter.setPen(QPen(QColor(0x6a, 0x0c, 0x18, 120), step * 0.34));
        for (double x = filled.left(); x < filled.right() + step; x += step) {
            painter.drawLine(QPointF(x - radius, tube.bottom() + 2),
                             QPointF(x + radius, tube.top() - 2));
        }
    }
    QLinearGradient shine(tube.topLeft(), tube.center());
    shine.setColorAt(0, QColor(255, 255, 255, 150));
    shine.setColorAt(1, QColor(255, 255, 255, 0));
    painter.fillRect(QRectF(tube.topLeft(), QSizeF(tube.width(), tube.height() * 0.45)), shine);
    painter.restore();
}

// An hourglass whose sand has run as far as the time, or a star that has been won.
void GaugeView::drawSign(QPainter &painter, const QRectF &place) const {
    QRadialGradient light(place.topLeft() + QPointF(place.width(), place.height()) * 0.35,
                          place.width() * 0.75);
    light.setColorAt(0, shade::coverLight);
    light.setColorAt(1, shade::coverDark);
    painter.setBrush(light);
    painter.setPen(QPen(shade::gold, place.width() * 0.055));
    painter.drawEllipse(place);
    const QPointF c = place.center();
    const double r = place.width() * 0.27;
    if (measure_ == Gauge::Measure::count) {
        painter.setPen(QPen(shade::goldDark, r * 0.16, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(shade::gold);
        painter.drawPath(star(c, r * 1.2, 5, 0.45));
        return;
    }
    const double w = r * 0.72, gone = double(value()) / maximum();
    QPainterPath glass;
    glass.addPolygon(QPolygonF({c + QPointF(-w, -r), c + QPointF(w, -r), c + QPointF(r * 0.1, 0),
                                c + QPointF(w, r), c + QPointF(-w, r), c + QPointF(-r * 0.1, 0)}));
    glass.closeSubpath();
    painter.fillPath(glass, QColor(0xe8, 0xf2, 0xff));
    QPainterPath sand;
    sand.addRect(QRectF(c + QPointF(-w, -r + r * gone), c + QPointF(w, 0)));
    sand.addRect(QRectF(c + QPointF(-w, r - r * gone * 0.9), c + QPointF(w, r)));
    painter.fillPath(glass.intersected(sand), haste() == Haste::urgent ? QColor(0xe2, 0x4a, 0x3c)
                                                                       : QColor(0xe0, 0x9a, 0x2b));
    painter.setPen(QPen(shade::goldLight, r * 0.26, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(c + QPointF(-w * 1.2, -r), c + QPointF(w * 1.2, -r));
    painter.drawLine(c + QPointF(-w * 1.2, r), c + QPointF(w * 1.2, r));
}

void GaugeView::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double f = factor_;
    const QRectF area = QRectF(rect()).adjusted(1.5 * f, 1.5 * f, -1.5 * f, -1.5 * f);
    const QRectF sign(area.topLeft(), QSizeF(area.height(), area.height()));
    const QRectF bar =
        area.adjusted(sign.width() * 0.5, area.height() * 0.13, 0, -area.height() * 0.13);
    const double radius = bar.height() / 2;
    painter.setPen(QPen(shade::gold, 1.6 * f));
    painter.setBrush(QColor(5, 10, 38, 215));
    painter.drawRoundedRect(bar, radius, radius);
    const QRectF tube = bar.adjusted(sign.width() * 0.5 - radius, 3 * f, -3 * f, -3 * f);
    if (value() > 0) {
        drawFill(painter, tube);
    }
    drawSign(painter, sign);

    if (!text_.isEmpty()) {
        // A dark outline keeps the text readable on both halves of the bar.
        const QRectF place = bar.adjusted(sign.width() * 0.5 + radius, 0, -radius, 0);
        const double pixels = fittingPixels(text_, place.size(), bar.height() * 0.74, true, false);
        const QFont font = fontOf(pixels, true);
        const QFontMetricsF metrics(font);
        QPainterPath letters;
        letters.addText(place.center().x() - metrics.horizontalAdvance(text_) / 2,
                        place.center().y() + (metrics.ascent() - metrics.descent()) / 2, font,
                        text_);
        painter.strokePath(letters,
                           QPen(shade::night, 4 * f, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.fillPath(letters, ink_);
    }
}

} // namespace grimoval
