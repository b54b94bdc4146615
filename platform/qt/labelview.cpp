// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/labelview.h"

namespace grimoval {

void LabelView::write(const LabelText &text) {
    if (assign(text_, text)) {
        update();
    }
}

// The player whose turn it is has the call on a plate of gold below the name.
void LabelView::drawPlayer(QPainter &painter, const QRectF &place) const {
    const double f = factor(), pixels = pixelsOf(text_.points, f);
    QString name = text_.text;
    const bool called = !text_.call.isEmpty() && name.endsWith(text_.call);
    QRectF above = place;
    if (called) {
        name.chop(text_.call.size());
        above.setHeight(place.height() * 0.5);
        const QFont font = fontOf(std::min(pixels, place.height() * 0.34), true);
        const double width =
            QFontMetricsF(font).horizontalAdvance(text_.call) + place.height() * 0.9;
        QRectF plate(place.left(), above.bottom(), std::min(place.width(), width),
                     place.height() * 0.5);
        QLinearGradient gold(plate.topLeft(), plate.bottomLeft());
        gold.setColorAt(0, shade::goldLight);
        gold.setColorAt(1, shade::gold);
        painter.setPen(QPen(shade::goldDark, f));
        painter.setBrush(gold);
        painter.drawRoundedRect(plate.adjusted(f, f, -f, -f), plate.height() / 2,
                                plate.height() / 2);
        const double r = plate.height() * 0.24;
        painter.setPen(Qt::NoPen);
        painter.setBrush(shade::nightMiddle);
        painter.drawPath(
            star(plate.topLeft() + QPointF(plate.height() * 0.55, plate.height() / 2), r, 5, 0.45));
        painter.setFont(font);
        painter.setPen(shade::night);
        painter.drawText(plate.adjusted(plate.height() * 0.5, 0, 0, 0),
                         int(Qt::AlignCenter) | int(Qt::TextDontClip), text_.call);
    }
    drawFitted(painter, above, name.trimmed(), pixels, true, !called,
               Qt::AlignLeft | Qt::AlignVCenter, ink(text_.colour, surface()));
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
    case Label::Look::player:
        drawPlayer(painter, place);
        return;
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
