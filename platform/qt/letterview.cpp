// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/buttonviews.h"

namespace grimoval {

LetterView::LetterView(QWidget *parent) : Drawn(parent, QAccessible::PushButton) {
    setFocusPolicy(Qt::TabFocus);
}

void LetterView::setFaces(const QString &face, const QString &down) {
    if (assign(down_, down) | assign(face_, face)) {
        update();
    }
}

QString LetterView::meaning(const QString &face) {
    const QString state = face.section(u'.', 1);
    return state == u"libre"     ? QStringLiteral("disponible")
           : state == u"trouvee" ? QStringLiteral("trouvée")
           : state == u"fausse"  ? QStringLiteral("fausse")
           : state == u"repos"   ? QStringLiteral("au repos")
                                 : QString();
}

void LetterView::draw(QPainter &painter) {
    const double f = factor();
    const QString face = shownFace();
    const QString letter = face.section(u'.', 0, 0);
    const QString state = face.section(u'.', 1);
    const QRectF tile = area().adjusted(2 * f, 2 * f, -2 * f, -2 * f);
    const double pixels = tile.height() * 0.66;
    QRectF place = tile.adjusted(0, 0, 0, -4 * f);

    if (state == u"libre") {
        const bool raised = isEnabled() && isUnderMouse();
        drawTile(painter, tile, raised ? shade::parchmentLight : shade::parchment, shade::goldDark,
                 f, isDown());
        drawFitted(painter, place.translated(0, isDown() ? 3 * f : 0), letter, pixels, true, false,
                   Qt::AlignCenter, shade::ink);
    } else if (state == u"trouvee") {
        drawTile(painter, tile, shade::green, QColor(0x14, 0x4d, 0x22), f, isDown());
        drawFitted(painter, place, letter, pixels, true, false, Qt::AlignCenter, Qt::white);
        // A tick in the corner.
        const double r = tile.width() * 0.15;
        const QPointF corner = tile.topRight() + QPointF(-r * 1.25, r * 1.25);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::white);
        painter.drawEllipse(corner, r, r);
        painter.setPen(QPen(QColor(0x14, 0x6b, 0x2a), r * 0.42, Qt::SolidLine, Qt::RoundCap));
        painter.drawPolyline(
            QPolygonF({corner + QPointF(-r * 0.5, 0), corner + QPointF(-r * 0.1, r * 0.42),
                       corner + QPointF(r * 0.52, -r * 0.4)}));
    } else if (state == u"fausse") {
        painter.setPen(QPen(QColor(0x5c, 0x27, 0x20), 1.2 * f));
        painter.setBrush(QColor(0x6b, 0x30, 0x28, 190));
        painter.drawRoundedRect(tile.adjusted(1, 2 * f, -1, -2 * f), 9 * f, 9 * f);
        drawFitted(painter, tile, letter, pixels * 0.9, true, false, Qt::AlignCenter,
                   QColor(0xf0, 0xc9, 0xb8));
        painter.setPen(QPen(QColor(0xff, 0x9a, 0x86), 2.6 * f, Qt::SolidLine, Qt::RoundCap));
        const QRectF cross = tile.adjusted(tile.width() * 0.2, tile.height() * 0.2,
                                           -tile.width() * 0.2, -tile.height() * 0.2);
        painter.drawLine(cross.topLeft(), cross.bottomRight());
        painter.drawLine(cross.topRight(), cross.bottomLeft());
    } else {
        painter.setPen(QPen(QColor(0xa9, 0xb8, 0xee, 120), 1.4 * f));
        painter.setBrush(QColor(0x0b, 0x14, 0x40, 90));
        painter.drawRoundedRect(tile.adjusted(2 * f, 2 * f, -2 * f, -2 * f), 9 * f, 9 * f);
        drawFitted(painter, tile, letter, pixels * 0.86, false, false, Qt::AlignCenter,
                   QColor(0xb4, 0xc1, 0xf0));
    }
    if (hasFocus() && isEnabled()) {
        drawFocusRing(painter, area(), 10 * f, f);
    }
}

} // namespace grimoval
