// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/painting.h"

#include <QFontDatabase>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>
#include <numbers>

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

void drawBackground(QPainter &painter, const QRectF &area, Surface surface, double factor) {
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
    painter.setBrush(onNight ? QColor(5, 10, 38, 215) : QColor(255, 250, 236, 215));
    painter.setPen(QPen(onNight ? shade::gold : shade::goldDark, 1.4 * factor));
    painter.drawRoundedRect(inside, 12 * factor, 12 * factor);
}

void drawFocusRing(QPainter &painter, const QRectF &area, double radius, double factor) {
    const double half = 2.3 * factor;
    const QRectF ring = area.adjusted(half, half, -half, -half);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(shade::ink, 4.6 * factor)); // seen on parchment too
    painter.drawRoundedRect(ring, radius, radius);
    painter.setPen(QPen(shade::goldLight, 2.4 * factor));
    painter.drawRoundedRect(ring, radius, radius);
}

void drawGoldFrame(QPainter &painter, const QRectF &outer, double thickness) {
    const auto ring = [&](double from, double to, double radius, const QBrush &brush) {
        QPainterPath path;
        path.addRoundedRect(outer.adjusted(from, from, -from, -from), radius, radius);
        path.addRect(outer.adjusted(to, to, -to, -to));
        painter.fillPath(path, brush);
    };
    const auto slope = [&](const QColor &light, const QColor &middle, const QColor &dark) {
        QLinearGradient gradient(outer.topLeft(), outer.bottomRight());
        gradient.setColorAt(0, light);
        gradient.setColorAt(0.45, middle);
        gradient.setColorAt(1, dark);
        return gradient;
    };
    const double t = thickness;
    ring(0, t, t, slope({0xc9, 0x93, 0x2f}, shade::goldDark, {0x6b, 0x43, 0x0c}));
    // A rounded moulding, lit from the left top, and the groove inside it.
    ring(t * 0.12, t * 0.72, t * 0.8, slope({0xff, 0xf6, 0xd0}, shade::gold, {0xb8, 0x80, 0x20}));
    ring(t * 0.3, t * 0.52, t * 0.5, slope({0xff, 0xff, 0xf2}, shade::goldLight, shade::gold));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0x2a, 0x1a, 0x0a), t / 8));
    painter.drawRect(outer.adjusted(t, t, -t, -t));
    for (const QPointF corner :
         {outer.topLeft() + QPointF(t, t), outer.topRight() + QPointF(-t, t),
          outer.bottomLeft() + QPointF(t, -t), outer.bottomRight() + QPointF(-t, -t)}) {
        const QPointF inward = (outer.center() - corner) * (t * 0.28 / (outer.width() / 2));
        QRadialGradient stud(corner - inward - QPointF(t, t) * 0.2, t);
        stud.setColorAt(0, QColor(0xff, 0xfb, 0xe6));
        stud.setColorAt(0.5, shade::gold);
        stud.setColorAt(1, shade::goldDark);
        painter.setPen(QPen(QColor(0x5c, 0x3a, 0x0a), t / 10));
        painter.setBrush(stud);
        painter.drawPath(star(corner - inward, t * 0.92, 4, 0.62));
    }
}

namespace {
double riseOfTile(const QRectF &area, double factor) {
    return std::min(5 * factor, area.height() / 11);
}
} // namespace

QRectF faceOfTile(const QRectF &area, double factor) {
    return area.adjusted(1, 1, -1, -1 - riseOfTile(area, factor));
}

void drawTile(QPainter &painter, const QRectF &area, const QColor &face, const QColor &edge,
              double factor, bool pressed) {
    const double rise = riseOfTile(area, factor);
    const double radius = std::min(10 * factor, area.width() / 4.6);
    const double line = std::max(1.0, 1.2 * factor);
    QRectF top = faceOfTile(area, factor);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(4, 8, 32, 70)); // its shadow
    painter.drawRoundedRect(top.adjusted(-line / 2, rise, line / 2, rise * 1.5), radius, radius);
    painter.setBrush(edge);
    painter.drawRoundedRect(top.translated(0, rise), radius, radius);
    if (pressed) {
        top.translate(0, rise * 0.8);
    }
    QLinearGradient light(top.topLeft(), top.bottomLeft());
    light.setColorAt(0, face.lighter(108));
    light.setColorAt(0.5, face);
    light.setColorAt(1, face.darker(107));
    painter.setBrush(light);
    painter.setPen(QPen(edge, line));
    painter.drawRoundedRect(top, radius, radius);
    // The light catches its upper rim.
    painter.setBrush(Qt::NoBrush);
    QLinearGradient rim(top.topLeft(), top.bottomLeft());
    rim.setColorAt(0, QColor(255, 255, 255, 190));
    rim.setColorAt(0.5, QColor(255, 255, 255, 0));
    painter.setPen(QPen(rim, line));
    painter.drawRoundedRect(top.adjusted(line, line, -line, -line), radius - line, radius - line);
}

QPainterPath star(QPointF centre, double radius, int points, double waist) {
    QPolygonF corners;
    for (int i = 0; i < 2 * points; ++i) {
        const double angle = std::numbers::pi * i / points - std::numbers::pi / 2;
        const double r = i % 2 == 0 ? radius : radius * waist;
        corners << centre + QPointF(std::cos(angle), std::sin(angle)) * r;
    }
    QPainterPath path;
    path.addPolygon(corners);
    path.closeSubpath();
    return path;
}

void drawTick(QPainter &painter, QPointF centre, double radius) {
    painter.setPen(QPen(shade::emeraldDark, radius * 0.16));
    painter.setBrush(Qt::white);
    painter.drawEllipse(centre, radius, radius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(shade::emerald, radius * 0.42, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({centre + QPointF(-radius * 0.5, 0),
                                    centre + QPointF(-radius * 0.1, radius * 0.42),
                                    centre + QPointF(radius * 0.52, -radius * 0.4)}));
}

void drawCross(QPainter &painter, QPointF centre, double radius) {
    const QPointF corner(radius, radius);
    painter.setPen(QPen(shade::velvetDark, radius * 0.16));
    painter.setBrush(shade::coral);
    painter.drawRoundedRect(QRectF(centre - corner, centre + corner), radius * 0.4, radius * 0.4);
    painter.setPen(QPen(shade::velvetDark, radius * 0.4, Qt::SolidLine, Qt::RoundCap));
    const double r = radius * 0.45;
    painter.drawLine(centre + QPointF(-r, -r), centre + QPointF(r, r));
    painter.drawLine(centre + QPointF(-r, r), centre + QPointF(r, -r));
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
