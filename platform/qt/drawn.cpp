// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/drawn.h"

#include <QMouseEvent>

namespace grimoval {

Drawn::Drawn(QWidget *parent, QAccessible::Role role) : QWidget(parent), role_(role) {
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_InputMethodEnabled, false);
}

void Drawn::setFactor(double factor) {
    if (assign(factor_, factor)) {
        arrange();
        update();
    }
}

void Drawn::setSurface(Surface surface) {
    if (assign(surface_, surface)) {
        update();
    }
}

bool Drawn::event(QEvent *event) {
    switch (event->type()) {
    case QEvent::Enter:
        under_ = true;
        update();
        break;
    case QEvent::Leave:
    case QEvent::Hide:
        under_ = false;
        down_ = false;
        update();
        break;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        update();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void Drawn::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    draw(painter);
}

void Drawn::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    arrange();
}

void Drawn::changeEvent(QEvent *event) {
    if (event->type() == QEvent::EnabledChange) {
        down_ = false;
        update();
    }
    QWidget::changeEvent(event);
}

void Drawn::mousePressEvent(QMouseEvent *event) {
    if (!onPress || event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    down_ = true;
    under_ = true;
    update();
}

void Drawn::mouseReleaseEvent(QMouseEvent *event) {
    if (!down_ || event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    down_ = false;
    update();
    if (rect().contains(event->position().toPoint()) && onPress) {
        onPress();
    }
}

void Drawn::mouseMoveEvent(QMouseEvent *event) {
    if (down_) {
        const bool inside = rect().contains(event->position().toPoint());
        if (assign(under_, inside)) {
            update();
        }
    }
    if (onMove) {
        onMove();
    } else if (!onPress) {
        event->ignore(); // the mouse is over the window, as far as anyone cares
    }
}

} // namespace grimoval
