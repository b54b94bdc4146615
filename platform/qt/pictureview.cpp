// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/pictureview.h"

#include "platform/qt/drapery.h"

#include <algorithm>

namespace grimoval {

namespace {
constexpr double frame = 11; // its width, at a factor of 1
}

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
    const double before = curtain_;
    if (!assign(curtain_, part)) {
        return;
    }
    if (part > before && part > 0) {
        fall_.moveTo(part, 420);
    } else {
        fall_.jumpTo(std::max(0.0, part));
    }
}

QRectF PictureView::inner() const {
    const double width = framed_ ? frame * factor() : 0;
    return area().adjusted(width, width, -width, -width);
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
        drawCurtain(painter);
    }
    if (framed_) {
        drawGoldFrame(painter, area(), frame * f);
    }
    if (hasFocus()) {
        drawFocusRing(painter, area(), 8 * f, f);
    }
}

double PictureView::edgeFor(double part) const {
    const double room = inner().height();
    return part >= 1 ? room + hem() : std::max(1.0, room * part);
}

void PictureView::drawCurtain(QPainter &painter) {
    const QRectF place = inner();
    const double edge = fall_.isMoving() && curtain_ >= 1 ? fall_.value() * edgeFor(1)
                                                          : edgeFor(std::min(1.0, fall_.value()));
    if (drapery_.isNull() || drapery_.devicePixelRatio() != devicePixelRatioF()) {
        drapery_ = makeDrapery({place.width(), place.height() + hem()}, hem(), devicePixelRatioF());
    }
    painter.save();
    painter.setClipRect(place);
    if (edge <= hem()) {
        // Rolled up to a golden line.
        painter.fillRect(QRectF(place.topLeft(), QSizeF(place.width(), edge)), shade::gold);
    } else {
        // The shade that it throws on the picture, then the cloth itself, whole at its lower edge.
        QLinearGradient shadow(place.left(), place.top() + edge, place.left(),
                               place.top() + edge + hem());
        shadow.setColorAt(0, QColor(0, 0, 0, 120));
        shadow.setColorAt(1, QColor(0, 0, 0, 0));
        painter.fillRect(
            QRectF(place.left(), place.top() + edge - hem() * 0.5, place.width(), hem() * 1.5),
            shadow);
        const double height = drapery_.deviceIndependentSize().height();
        painter.drawPixmap(QPointF(place.left(), place.top() + edge - height), drapery_);
    }
    painter.restore();
}

} // namespace grimoval
