// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/buttonviews.h"

#include <cmath>

namespace grimoval {

namespace {

QPixmap withoutColour(const QPixmap &picture) {
    QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int grey = qGray(line[x]);
            line[x] = qRgba(grey, grey, grey, qAlpha(line[x]) * 2 / 5);
        }
    }
    QPixmap result = QPixmap::fromImage(image);
    result.setDevicePixelRatio(picture.devicePixelRatio());
    return result;
}

} // namespace

FaceButton::FaceButton(QWidget *parent) : Drawn(parent, QAccessible::PushButton) {
    setFocusPolicy(Qt::TabFocus);
}

void FaceButton::setFace(const QImage &face) {
    if (face_.cacheKey() != face.cacheKey()) {
        face_ = face;
        scaled_ = {};
        update();
    }
}

void FaceButton::draw(QPainter &painter) {
    const double f = factor();
    // At rest the face leaves room to grow under the mouse and for the ring.
    const double margin = std::min(area().width(), area().height()) * (prominent_ ? 0.1 : 0.06);
    const QRectF rest = area().adjusted(margin, margin, -margin, -margin);
    const bool live = isEnabled();
    const bool raised = live && isUnderMouse() && !isDown();
    if (live && prominent_) {
        QRadialGradient light(area().center(), std::min(area().width(), area().height()) / 2);
        light.setColorAt(0.72, QColor(0xff, 0xe9, 0xa6, 200));
        light.setColorAt(0.86, QColor(0xf2, 0xc1, 0x4e, 90));
        light.setColorAt(1, QColor(0xf2, 0xc1, 0x4e, 0));
        painter.fillRect(area(), light);
    }
    if (live && hasFocus()) {
        const bool disc = std::abs(area().width() - area().height()) < area().width() * 0.1;
        drawFocusRing(painter, area(), disc ? area().width() / 2 : 14 * f, f);
    }
    if (face_.isNull()) {
        painter.setOpacity(live ? 1 : 0.4);
        drawPlainFace(painter, rest);
        return;
    }
    if (scaled_.isNull() || scaled_.devicePixelRatio() != devicePixelRatioF()) {
        scaled_ = scaledPicture(face_, rest.size(), devicePixelRatioF());
        greyed_ = withoutColour(scaled_);
    }
    const QPixmap &picture = live ? scaled_ : greyed_;
    QRectF target(QPointF(), picture.deviceIndependentSize());
    target.moveCenter(rest.center());
    if (raised) {
        const double grow = margin * 0.7;
        target.adjust(-grow, -grow, grow, grow);
    } else if (isDown()) {
        target.adjust(margin * 0.4, margin * 0.4, -margin * 0.4, -margin * 0.4);
        target.translate(0, 1.5 * f);
    }
    if (raised || isDown()) {
        painter.drawPixmap(target, picture, QRectF(picture.rect()));
        // Lighter or darker, where the face is.
        painter.setClipRect(target);
        painter.setOpacity(isDown() ? 0.24 : 0.16);
        QPixmap veil(picture.size());
        veil.fill(Qt::transparent);
        QPainter inner(&veil);
        QPixmap plain = picture;
        plain.setDevicePixelRatio(1);
        inner.drawPixmap(0, 0, plain);
        inner.setCompositionMode(QPainter::CompositionMode_SourceIn);
        inner.fillRect(veil.rect(), isDown() ? Qt::black : Qt::white);
        inner.end();
        painter.drawPixmap(target, veil, QRectF(veil.rect()));
    } else {
        painter.drawPixmap(target.topLeft(), picture);
    }
}

void FaceButton::drawPlainFace(QPainter &painter, const QRectF &place) {
    const double f = factor();
    QRectF plate = place;
    if (plate.height() > plate.width() * 0.5) {
        plate.setHeight(plate.width() * 0.5);
        plate.moveCenter(place.center());
    }
    const QColor face = isUnderMouse() && isEnabled() ? shade::goldLight : shade::gold;
    drawTile(painter, plate, face, shade::goldDark, f, isDown());
    drawFitted(painter, plate.adjusted(4 * f, 2 * f, -4 * f, -5 * f), accessibleName(),
               plate.height() * 0.45, true, true, Qt::AlignCenter, shade::ink);
}

} // namespace grimoval
