// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/labelview.h"

namespace grimoval {

void LabelView::write(const LabelText &text) {
    if (assign(text_, text)) {
        update();
    }
}

void LabelView::draw(QPainter &painter) {
    const double f = factor();
    QRectF place = area();
    Surface ground = surface();
    switch (text_.look) {
    case Label::Look::panel:
        drawPanel(painter, place, ground, f);
        place.adjust(8 * f, 4 * f, -8 * f, -4 * f);
        break;
    case Label::Look::badge:
        if (text_.text.isEmpty()) {
            return;
        }
        ground = Surface::night;
        painter.setBrush(shade::night);
        painter.setPen(QPen(shade::gold, 1.6 * f));
        painter.drawRoundedRect(place.adjusted(f, f, -f, -f), 10 * f, 10 * f);
        place.adjust(4 * f, 2 * f, -4 * f, -2 * f);
        break;
    default:
        break;
    }
    const bool title = text_.look == Label::Look::title;
    const Qt::Alignment across = text_.alignment == Alignment::centre  ? Qt::AlignHCenter
                                 : text_.alignment == Alignment::right ? Qt::AlignRight
                                                                       : Qt::AlignLeft;
    const bool lines = text_.wraps || text_.text.contains(u'\n');
    const Qt::Alignment down = lines && !title && text_.look == Label::Look::plain && !text_.wraps
                                   ? Qt::AlignTop
                                   : Qt::AlignVCenter;
    const double pixels = pixelsOf(text_.points, f);
    const bool bold = text_.bold || title;
    QColor colour = ink(text_.colour, ground);
    if (title) {
        if (ground == Surface::night) {
            drawFitted(painter, place.translated(2 * f, 2 * f), text_.text, pixels, bold, lines,
                       across | down, QColor(5, 10, 38));
            if (text_.colour == colours::white || text_.colour == colours::black) {
                colour = shade::goldLight;
            }
        }
    }
    drawFitted(painter, place, text_.text, pixels, bold, lines, across | down, colour);
    if (hasFocus()) {
        drawFocusRing(painter, area(), 8 * f, f);
    }
}

} // namespace grimoval
