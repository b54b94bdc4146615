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

bool LetterView::isAnswer(const QString &face) {
    return face.endsWith(u".trouvee") || face.endsWith(u".fausse");
}

void LetterView::draw(QPainter &painter) {
    const double f = factor();
    const QString face = shownFace();
    const QString letter = face.section(u'.', 0, 0);
    const QString state = face.section(u'.', 1);
    const QRectF tile = area().adjusted(2 * f, 2 * f, -2 * f, -2 * f);
    const QRectF place = faceOfTile(tile, f);
    const double pixels = tile.height() * 0.68;
    const double badge = tile.width() * 0.15;
    const QPointF corner = tile.topRight() + QPointF(-badge * 0.9, badge * 0.9);

    if (state == u"libre") {
        const bool raised = isEnabled() && isUnderMouse();
        drawTile(painter, tile, raised ? shade::parchmentLight : shade::parchment, shade::goldDark,
                 f, isDown());
        drawFitted(painter, place, letter, pixels, true, false, Qt::AlignCenter, shade::ink);
    } else if (state == u"trouvee") {
        // A jewel in its setting.
        drawTile(painter, tile, shade::emerald, shade::emeraldDark, f, isDown());
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(shade::gold, 1.6 * f));
        const double in = 3.2 * f;
        painter.drawRoundedRect(place.adjusted(in, in, -in, -in), 6 * f, 6 * f);
        drawFitted(painter, place.translated(0, isDown() ? 3 * f : 0), letter, pixels, true, false,
                   Qt::AlignCenter, Qt::white);
        drawTick(painter, corner, badge);
    } else if (state == u"fausse") {
        // The tile has gone: its empty place, a struck letter.
        const QRectF hole = place.adjusted(f, 2 * f, -f, 2 * f);
        painter.setPen(QPen(shade::coral, 1.4 * f, Qt::DashLine));
        painter.setBrush(QColor(0x0a, 0x0c, 0x2c, 215));
        painter.drawRoundedRect(hole, 9 * f, 9 * f);
        painter.setPen(QPen(shade::coral, 2.6 * f, Qt::SolidLine, Qt::RoundCap));
        const double x = hole.width() * 0.2, y = hole.height() * 0.24;
        painter.drawLine(hole.bottomLeft() + QPointF(x, -y), hole.topRight() + QPointF(-x, y));
        drawFitted(painter, hole, letter, pixels * 0.86, false, false, Qt::AlignCenter,
                   QColor(0xde, 0xbf, 0xc4));
        drawCross(painter, corner, badge * 0.88);
    } else {
        painter.setPen(QPen(QColor(0xc3, 0xce, 0xf6, 110), 1.4 * f));
        painter.setBrush(QColor(0x0b, 0x14, 0x40, 120));
        painter.drawRoundedRect(place.adjusted(2 * f, 3 * f, -2 * f, f), 9 * f, 9 * f);
        drawFitted(painter, place.translated(0, 2 * f), letter, pixels * 0.86, false, false,
                   Qt::AlignCenter, shade::mist);
    }
    if (hasFocus() && isEnabled()) {
        drawFocusRing(painter, area(), 11 * f, f);
    }
}

} // namespace grimoval
