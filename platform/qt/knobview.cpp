// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/buttonviews.h"

namespace grimoval {

KnobView::KnobView(QWidget *parent) : Drawn(parent, QAccessible::PushButton) {
    setFocusPolicy(Qt::TabFocus);
}

void KnobView::setColour(Colour colour) {
    if (assign(colour_, colour)) {
        update();
    }
}

void KnobView::setRound(bool round) {
    if (assign(round_, round)) {
        update();
    }
}

void KnobView::draw(QPainter &painter) {
    const double f = factor();
    const QColor colour = colour_ == colours::red     ? QColor(0xd4, 0x2b, 0x2b)
                          : colour_ == colours::green ? QColor(0x3c, 0xa6, 0x4e)
                                                      : toQt(colour_);
    if (!round_) {
        painter.fillRect(area(), colour);
        return;
    }
    const double side = std::min(area().width(), area().height()) - 7 * f;
    QRectF disc(0, 0, side, side);
    disc.moveCenter(area().center());
    if (isDown()) {
        disc.adjust(f, f, -f, -f);
    }
    QRadialGradient light(disc.center() - QPointF(side / 6, side / 6), side * 0.7);
    light.setColorAt(0, colour.lighter(isUnderMouse() ? 150 : 130));
    light.setColorAt(1, colour);
    painter.setBrush(light);
    painter.setPen(QPen(shade::ink, 1.6 * f));
    painter.drawEllipse(disc);
    if (colour_ == colours::red) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::white);
        painter.drawEllipse(disc.center(), side * 0.2, side * 0.2);
    }
    if (hasFocus()) {
        drawFocusRing(painter, disc.adjusted(-3 * f, -3 * f, 3 * f, 3 * f), side, f);
    }
}

CheckView::CheckView(QWidget *parent) : Drawn(parent, QAccessible::CheckBox) {
    setFocusPolicy(Qt::TabFocus);
}

void CheckView::setChecked(bool checked) {
    if (assign(checked_, checked)) {
        update();
        QAccessible::State changed;
        changed.checked = true;
        QAccessibleStateChangeEvent event(this, changed);
        QAccessible::updateAccessibility(&event);
    }
}

void CheckView::draw(QPainter &painter) {
    const double f = factor();
    const double side = std::min(area().width(), area().height()) - 7 * f;
    QRectF box(0, 0, side, side);
    box.moveCenter(QPointF(3.5 * f + side / 2, area().center().y()));
    painter.setOpacity(isEnabled() ? 1 : 0.5);
    painter.setBrush(isUnderMouse() && isEnabled() ? Qt::white : shade::parchmentLight);
    painter.setPen(QPen(shade::goldDark, 2.2 * f));
    painter.drawRoundedRect(box, side * 0.24, side * 0.24);
    if (checked_) {
        painter.setPen(QPen(QColor(0x1d, 0x7a, 0x35), side * 0.17, Qt::SolidLine, Qt::RoundCap,
                            Qt::RoundJoin));
        painter.drawPolyline(QPolygonF({box.topLeft() + QPointF(side * 0.22, side * 0.54),
                                        box.topLeft() + QPointF(side * 0.43, side * 0.75),
                                        box.topLeft() + QPointF(side * 0.8, side * 0.27)}));
    }
    painter.setOpacity(1);
    if (hasFocus()) {
        drawFocusRing(painter, box.adjusted(-3 * f, -3 * f, 3 * f, 3 * f), side * 0.24, f);
    }
}

} // namespace grimoval
