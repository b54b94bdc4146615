// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/nativeviews.h"

#include <QAccessible>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionSlider>

namespace grimoval {

ScrollView::ScrollView(QWidget *parent) : QScrollBar(Qt::Horizontal, parent) {
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::NoContextMenu);
    connect(this, &QScrollBar::valueChanged, this, [this](int value) {
        if (onScroll) {
            onScroll(value);
        }
    });
}

void ScrollView::set(int minimum, int maximum, int value, int smallChange, int largeChange) {
    const QSignalBlocker quiet(this);
    setSingleStep(smallChange);
    setPageStep(largeChange);
    setRange(minimum, maximum);
    setValue(value);
    update();
    QAccessibleValueChangeEvent event(this, this->value());
    QAccessible::updateAccessibility(&event);
}

void ScrollView::setFactor(double factor) {
    factor_ = factor;
    const QString side = QString::number(std::max(12, int(26 * factor)));
    setStyleSheet(QStringLiteral("QScrollBar:horizontal { border: none; background: none;"
                                 " margin: 0 %1px 0 %1px; }"
                                 "QScrollBar::handle:horizontal { min-width: %1px; }"
                                 "QScrollBar::add-line:horizontal { width: %1px;"
                                 " subcontrol-position: right; subcontrol-origin: margin; }"
                                 "QScrollBar::sub-line:horizontal { width: %1px;"
                                 " subcontrol-position: left; subcontrol-origin: margin; }")
                      .arg(side));
}

void ScrollView::paintEvent(QPaintEvent * /*event*/) {
    QStyleOptionSlider option;
    initStyleOption(&option);
    const auto place = [&](QStyle::SubControl part) {
        return QRectF(style()->subControlRect(QStyle::CC_ScrollBar, &option, part, this));
    };
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double f = factor_;
    QRectF groove = place(QStyle::SC_ScrollBarGroove);
    const double thick = std::min(10 * f, groove.height() * 0.5);
    groove.setTop(groove.center().y() - thick / 2);
    groove.setHeight(thick);
    painter.setPen(QPen(shade::goldDark, f));
    painter.setBrush(shade::parchmentLight);
    painter.drawRoundedRect(groove.adjusted(f, 0, -f, 0), thick / 2, thick / 2);

    const QRectF slider = place(QStyle::SC_ScrollBarSlider);
    const double side = std::min(slider.height() - 2, 26 * f);
    QRectF knob(0, 0, std::max(side, slider.width() - 4), side);
    knob.moveCenter(slider.center());
    drawTile(painter, knob, shade::gold, shade::goldDark, f);

    for (const bool left : {true, false}) {
        const QRectF end = place(left ? QStyle::SC_ScrollBarSubLine : QStyle::SC_ScrollBarAddLine);
        const double size = std::min(end.width(), end.height());
        QRectF button(0, 0, size - 2, size - 2);
        button.moveCenter(end.center());
        drawTile(painter, button, shade::nightLight, shade::night, f);
        const QPointF middle = button.center() - QPointF(0, 1.5 * f);
        const double r = (left ? -1 : 1) * size * 0.2;
        painter.setPen(Qt::NoPen);
        painter.setBrush(shade::goldLight);
        painter.drawPolygon(QPolygonF({middle + QPointF(r, 0), middle + QPointF(-r * 0.8, r),
                                       middle + QPointF(-r * 0.8, -r)}));
    }
    if (hasFocus()) {
        drawFocusRing(painter, QRectF(rect()), 8 * f, f);
    }
}

} // namespace grimoval
