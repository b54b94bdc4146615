// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/painting.h"

#include <QFontDatabase>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace grimoval {

const QString &fontFamily() {
    static const QString family = [] {
        const QStringList installed = QFontDatabase::families();
        for (const char *wanted : {"Andika", "DejaVu Sans"}) {
            if (installed.contains(QLatin1String(wanted))) {
                return QString::fromLatin1(wanted);
            }
        }
        return QFont().family();
    }();
    return family;
}

QFont fontOf(double pixels, bool bold) {
    QFont font(fontFamily());
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

double fittingPixels(const QString &text, QSizeF place, double pixels, bool bold, bool wraps) {
    const int flags = Qt::AlignLeft | (wraps ? int(Qt::TextWordWrap) : 0);
    for (double size = std::round(pixels); size > 4; size -= std::max(1.0, size / 24)) {
        const QFontMetricsF metrics(fontOf(size, bold));
        const QRectF needed =
            metrics.boundingRect(QRectF(0, 0, wraps ? place.width() : 1e6, 1e6), flags, text);
        // The letters themselves need less than the line that a tall font reserves for them.
        const double spare = std::max(0.0, metrics.height() - size * 1.2);
        if (needed.width() <= place.width() + 0.5 &&
            needed.height() - spare <= place.height() + 0.5) {
            return size;
        }
    }
    return 4;
}

void drawFitted(QPainter &painter, const QRectF &place, const QString &text, double pixels,
                bool bold, bool wraps, Qt::Alignment alignment, const QColor &colour) {
    if (text.isEmpty()) {
        return;
    }
    painter.setFont(fontOf(fittingPixels(text, place.size(), pixels, bold, wraps), bold));
    painter.setPen(colour);
    painter.drawText(
        place, int(alignment) | int(Qt::TextDontClip) | (wraps ? int(Qt::TextWordWrap) : 0), text);
}

void drawNinePatch(QPainter &painter, const QRectF &area, const QImage &picture, double factor) {
    const double source = picture.width() / 600.0 * 40;
    const double border = std::min({40 * factor, area.width() / 2, area.height() / 2});
    const double from[] = {0, source, picture.width() - source, double(picture.width())};
    const double fromY[] = {0, source, picture.height() - source, double(picture.height())};
    // Whole pixels, so that no seam shows between the nine.
    const double x[] = {std::floor(area.left()), std::round(area.left() + border),
                        std::round(area.right() - border), std::ceil(area.right())};
    const double y[] = {std::floor(area.top()), std::round(area.top() + border),
                        std::round(area.bottom() - border), std::ceil(area.bottom())};
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            painter.drawImage(
                QRectF(QPointF(x[column], y[row]), QPointF(x[column + 1], y[row + 1])), picture,
                QRectF(QPointF(from[column], fromY[row]),
                       QPointF(from[column + 1], fromY[row + 1])));
        }
    }
}

void drawBackground(QPainter &painter, const QRectF &area, const QImage &picture, Surface surface,
                    double factor) {
    if (!picture.isNull()) {
        if (surface == Surface::parchment) {
            drawNinePatch(painter, area, picture, factor);
        } else {
            const QSizeF size =
                QSizeF(picture.size()).scaled(area.size(), Qt::KeepAspectRatioByExpanding);
            QRectF target(QPointF(), size);
            target.moveCenter(area.center());
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.drawImage(target, picture);
        }
        return;
    }
    QLinearGradient sky(area.topLeft(), area.bottomLeft());
    if (surface == Surface::parchment) {
        sky.setColorAt(0, shade::parchmentLight);
        sky.setColorAt(1, shade::parchment);
    } else {
        sky.setColorAt(0, shade::night);
        sky.setColorAt(1, shade::nightLight);
    }
    painter.fillRect(area, sky);
    if (surface == Surface::parchment) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(shade::goldDark, 2 * factor));
        const double inset = 6 * factor;
        painter.drawRoundedRect(area.adjusted(inset, inset, -inset, -inset), 10 * factor,
                                10 * factor);
    }
}

void drawPanel(QPainter &painter, const QRectF &area, Surface surface, double factor) {
    const bool onNight = surface == Surface::night;
    const QRectF inside = area.adjusted(factor, factor, -factor, -factor);
    painter.setBrush(onNight ? QColor(5, 10, 38, 150) : QColor(255, 250, 236, 150));
    painter.setPen(QPen(onNight ? shade::gold : shade::goldDark, 1.4 * factor));
    painter.drawRoundedRect(inside, 12 * factor, 12 * factor);
}

void drawFocusRing(QPainter &painter, const QRectF &area, double radius, double factor) {
    const double half = 1.6 * factor;
    const QRectF ring = area.adjusted(half, half, -half, -half);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(shade::ink, 3.2 * factor)); // seen on parchment too
    painter.drawRoundedRect(ring, radius, radius);
    painter.setPen(QPen(shade::gold, 2.2 * factor));
    painter.drawRoundedRect(ring, radius, radius);
}

void drawGoldFrame(QPainter &painter, const QRectF &outer, double thickness) {
    QLinearGradient gold(outer.topLeft(), outer.bottomRight());
    gold.setColorAt(0, QColor(0xff, 0xf3, 0xc4));
    gold.setColorAt(0.3, QColor(0xff, 0xd9, 0x7a));
    gold.setColorAt(0.62, shade::gold);
    gold.setColorAt(1, shade::goldDark);
    QPainterPath frame;
    frame.addRoundedRect(outer, thickness, thickness);
    frame.addRect(outer.adjusted(thickness, thickness, -thickness, -thickness));
    painter.fillPath(frame, gold);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0x2a, 0x1a, 0x0a), thickness / 8));
    painter.drawRect(outer.adjusted(thickness, thickness, -thickness, -thickness));
}

void drawTile(QPainter &painter, const QRectF &area, const QColor &face, const QColor &edge,
              double factor, bool pressed) {
    const double height = std::min(4 * factor, area.height() / 12);
    const double radius = std::min(9 * factor, area.width() / 5);
    QRectF top = area.adjusted(1, 1, -1, -1 - height);
    painter.setPen(Qt::NoPen);
    painter.setBrush(edge);
    painter.drawRoundedRect(top.translated(0, height), radius, radius);
    if (pressed) {
        top.translate(0, height * 0.8);
    }
    QLinearGradient light(top.topLeft(), top.bottomLeft());
    light.setColorAt(0, face.lighter(106));
    light.setColorAt(1, face.darker(108));
    painter.setBrush(light);
    painter.setPen(QPen(edge, std::max(1.0, factor)));
    painter.drawRoundedRect(top, radius, radius);
}

QPixmap scaledPicture(const QImage &picture, QSizeF place, double deviceRatio) {
    const QSize pixels = (place * deviceRatio).toSize();
    if (picture.isNull() || pixels.isEmpty()) {
        return {};
    }
    QPixmap pixmap =
        QPixmap::fromImage(picture.scaled(pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    pixmap.setDevicePixelRatio(deviceRatio);
    return pixmap;
}

} // namespace grimoval
