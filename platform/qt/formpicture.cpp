// SPDX-License-Identifier: GPL-3.0-or-later
// What a window paints itself: the picture behind its controls, and the ring around what Qt draws.
#include "platform/qt/formwindow.h"
#include "platform/qt/nativeviews.h"

#include <QCoreApplication>
#include <QPainter>
#include <QTimer>

#include <cmath>
#include <utility>

namespace grimoval {

void FormWindow::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (painted_.isNull() || painted_.size() != size() * devicePixelRatioF()) {
        painted_ = QPixmap(size() * devicePixelRatioF());
        painted_.setDevicePixelRatio(devicePixelRatioF());
        // A ratio that is no whole number leaves parts of pixels at seams and edges.
        painted_.fill(surface_ == Surface::parchment ? shade::parchment : shade::night);
        QPainter once(&painted_);
        once.setRenderHint(QPainter::Antialiasing);
        if (form_ != nullptr) {
            paintBackground(once);
        }
    }
    painter.drawPixmap(0, 0, painted_);
    if (form_ != nullptr && form_->backdrop) {
        painted_ = {}; // as large as the screen, and it never changes
    }
    if (const QRect ring = ringOf(focusWidget()); !ring.isEmpty() && isActiveWindow()) {
        drawFocusRing(painter, QRectF(ring), 9 * factor_, factor_);
    }
    if (host_.firstPicture) {
        QTimer::singleShot(0, qApp, std::exchange(host_.firstPicture, {}));
    }
}

QSize backgroundOf(const Form &form, QSize inside, QSize picture) {
    return form.backdrop ? picture.scaled(inside, Qt::KeepAspectRatioByExpanding) : inside;
}

// The picture is drawn for the places of the controls and lies where they lie; that of the backdrop
// covers the screen, whatever its shape.
void FormWindow::paintBackground(QPainter &painter) const {
    if (!hasPicture()) {
        if (form_->backdrop) {
            painter.fillRect(rect(), toQt(form_->BackColor));
        } else {
            drawBackground(painter, QRectF(rect()), surface_, factor_);
        }
        return;
    }
    QRect target = rect().adjusted(origin_.x(), origin_.y(), -origin_.x(), -origin_.y());
    if (form_->backdrop) {
        target.setSize(backgroundOf(*form_, size(), pictureSize_));
        target.moveCenter(rect().center());
    }
    painter.fillRect(rect(), shade::night.darker(200));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(
        target, host_.pictures.background(form_->path(), target.size() * devicePixelRatioF()));
}

QRect FormWindow::ringOf(const QWidget *widget) const {
    if (dynamic_cast<const ListView *>(widget) == nullptr &&
        dynamic_cast<const FieldView *>(widget) == nullptr) {
        return {};
    }
    const int room = static_cast<int>(std::lround(4 * factor_));
    return widget->geometry().adjusted(-room, -room, room, room);
}

} // namespace grimoval
