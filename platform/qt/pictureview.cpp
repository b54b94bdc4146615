// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/pictureview.h"

#include <algorithm>
#include <cmath>

namespace grimoval {

PictureView::PictureView(QWidget *parent) : Drawn(parent, QAccessible::Graphic) {}

void PictureView::setPicture(const QImage &picture) {
    if (picture_.cacheKey() != picture.cacheKey()) {
        picture_ = picture;
        scaled_ = {};
        update();
    }
}

void PictureView::setFramed(bool framed) {
    if (assign(framed_, framed)) {
        arrange();
        update();
    }
}

void PictureView::setCurtain(double part) {
    if (assign(curtain_, part)) {
        update();
    }
}

QRectF PictureView::inner() const {
    const double frame = framed_ ? 9 * factor() : 0;
    return area().adjusted(frame, frame, -frame, -frame);
}

QRectF PictureView::curtain() const {
    QRectF place = inner();
    place.setHeight(curtain_ < 0 ? 0 : place.height() * std::min(1.0, curtain_));
    return place;
}

void PictureView::draw(QPainter &painter) {
    const double f = factor();
    const QRectF place = inner();
    if (framed_) {
        painter.fillRect(place, shade::night);
    }
    if (!picture_.isNull()) {
        if (scaled_.isNull() || scaled_.devicePixelRatio() != devicePixelRatioF()) {
            scaled_ = scaledPicture(picture_, place.size(), devicePixelRatioF());
        }
        QRectF target(QPointF(), scaled_.deviceIndependentSize());
        target.moveCenter(place.center());
        if (onPress && isEnabled() && isUnderMouse() && !isDown()) {
            target.adjust(-f, -f, f, f);
        }
        painter.drawPixmap(target, scaled_, QRectF(scaled_.rect()));
    }
    if (curtain_ >= 0) {
        drawCurtain(painter, curtain());
    }
    if (framed_) {
        drawGoldFrame(painter, area(), 9 * f);
    }
    if (hasFocus()) {
        drawFocusRing(painter, area(), 8 * f, f);
    }
}

void PictureView::drawCurtain(QPainter &painter, const QRectF &place) const {
    const double f = factor();
    const double hem = std::clamp(place.height() * 0.5, 1.0, 7 * f);
    painter.setPen(Qt::NoPen);
    // Folds: light and shade across, each one a little wider or narrower than its neighbours.
    constexpr int folds = 9;
    QLinearGradient drapery(place.topLeft(), place.topRight());
    for (int fold = 0; fold < folds; ++fold) {
        const double at = (fold + 0.18 * std::sin(fold * 2.4)) / folds;
        const double wide = 1.0 / folds;
        drapery.setColorAt(std::clamp(at, 0.0, 1.0), QColor(0x3a, 0x08, 0x2a));
        drapery.setColorAt(std::clamp(at + wide * 0.42, 0.0, 1.0), QColor(0x9c, 0x1f, 0x4c));
        drapery.setColorAt(std::clamp(at + wide * 0.6, 0.0, 1.0), QColor(0x7a, 0x16, 0x42));
    }
    drapery.setColorAt(1, QColor(0x3a, 0x08, 0x2a));
    painter.fillRect(place, drapery);
    QLinearGradient depth(place.topLeft(), place.bottomLeft());
    depth.setColorAt(0, QColor(0, 0, 0, 110));
    depth.setColorAt(0.25, QColor(0, 0, 0, 0));
    depth.setColorAt(1, QColor(0, 0, 0, 40));
    painter.fillRect(place, depth);

    QRectF border = place;
    border.setTop(place.bottom() - hem);
    QLinearGradient gold(border.topLeft(), border.bottomLeft());
    gold.setColorAt(0, shade::goldLight);
    gold.setColorAt(0.5, shade::gold);
    gold.setColorAt(1, shade::goldDark);
    painter.fillRect(border, gold);
}

} // namespace grimoval
