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
    setRange(0, top);
    setValue(std::clamp(value, 0, top));
    text_ = text;
    ink_ = ink;
    update();
}

void GaugeView::setFactor(double factor) {
    factor_ = factor;
    update();
}

void GaugeView::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double f = factor_;
    const QRectF bar = QRectF(rect()).adjusted(1.5 * f, 1.5 * f, -1.5 * f, -1.5 * f);
    const double radius = bar.height() / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(5, 10, 38, 200));
    painter.drawRoundedRect(bar, radius, radius);

    if (value() > 0) {
        QPainterPath whole;
        whole.addRoundedRect(bar.adjusted(2 * f, 2 * f, -2 * f, -2 * f), radius, radius);
        QRectF filled = bar.adjusted(2 * f, 2 * f, -2 * f, -2 * f);
        filled.setWidth(filled.width() * value() / maximum());
        QPainterPath part;
        part.addRect(filled);
        QLinearGradient light(bar.topLeft(), bar.bottomLeft());
        light.setColorAt(0, QColor(0xff, 0xd9, 0x7a));
        light.setColorAt(1, QColor(0xd9, 0x9a, 0x2b));
        painter.fillPath(whole.intersected(part), light);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(shade::gold, 1.6 * f));
    painter.drawRoundedRect(bar, radius, radius);

    if (!text_.isEmpty()) {
        // A dark outline keeps the text readable on both halves of the bar.
        const QRectF place = bar.adjusted(radius, 1, -radius, -1);
        const double pixels = fittingPixels(text_, place.size(), bar.height() * 0.62, true, false);
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
