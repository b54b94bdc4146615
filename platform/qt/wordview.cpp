// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/wordview.h"

#include <algorithm>
#include <cmath>

namespace grimoval {

namespace {

constexpr double tileHeight = 1.18; // to a width of 1
constexpr double gap = 0.09;
constexpr double commentHeight = 0.42;

WordView::Piece::Kind kindOf(QChar character) {
    if (character == u'#') {
        return WordView::Piece::closed;
    }
    return character.isLetter() ? WordView::Piece::open : WordView::Piece::plain;
}

double widthOf(QChar character) {
    if (kindOf(character) != WordView::Piece::plain) {
        return 1 + gap;
    }
    return character.isSpace() ? 0.5 : character.isDigit() ? 0.72 : 0.48;
}

double widthOf(const QString &line) {
    double width = 0;
    for (const QChar character : line) {
        width += widthOf(character);
    }
    return width;
}

double widestOf(const QStringList &lines) {
    double widest = 0.1;
    for (const QString &line : lines) {
        widest = std::max(widest, widthOf(line));
    }
    return widest;
}

// The tile that lets these lines, and a line of comment below them, stand in the place.
double tileFor(const QStringList &lines, bool comment, QSizeF place) {
    const double height = static_cast<double>(lines.size()) * (tileHeight + gap) +
                          (comment ? commentHeight + gap : 0);
    return std::min(place.width() / widestOf(lines), place.height() / height);
}

// The text in two lines, at each blank and after each hyphen.
std::vector<QStringList> inTwo(const QString &text) {
    std::vector<QStringList> ways;
    for (qsizetype i = 1; i + 1 < text.size(); ++i) {
        if (text[i].isSpace()) {
            ways.push_back({text.left(i), text.mid(i + 1)});
        } else if (text[i] == u'-') {
            ways.push_back({text.left(i + 1), text.mid(i + 1)});
        }
    }
    return ways;
}

} // namespace

QRectF WordView::inside() const {
    const double f = factor();
    return area().adjusted(14 * f, 8 * f, -14 * f, -8 * f);
}

void WordView::write(const LabelText &text) {
    if (text == written()) {
        return;
    }
    LabelView::write(text);
    arrange();
}

void WordView::arrange() {
    pieces_.clear();
    comment_.clear();
    const QRectF place = inside();
    if (isSentence() || place.isEmpty() || written().text.isEmpty()) {
        return;
    }
    QString word = written().text;
    word.replace(u'\n', u' ');
    if (const qsizetype bracket = word.indexOf(u'('); bracket >= 0) {
        comment_ = word.mid(bracket).trimmed();
        word.truncate(bracket);
    }
    word = word.trimmed();
    const bool comment = !comment_.isEmpty();
    QStringList best{word};
    double tile = tileFor(best, comment, place.size());
    for (const QStringList &lines : inTwo(word)) {
        const double other = tileFor(lines, comment, place.size());
        // Of two as large, the better balanced.
        const bool larger = other > tile * 1.001;
        if (larger ||
            (best.size() == 2 && other > tile * 0.999 && widestOf(lines) < widestOf(best))) {
            tile = other;
            best = lines;
        }
    }
    lay(best, std::min(tile, 64 * factor()), place);
}

void WordView::lay(const QStringList &lines, double tile, const QRectF &place) {
    const bool comment = !comment_.isEmpty();
    const double line = tile * (tileHeight + gap);
    const double word = line * static_cast<double>(lines.size());
    const double height =
        comment ? std::clamp(place.height() - word, 14 * factor(), 22 * factor()) : 0;
    const double used = word + (comment ? height : -tile * gap);
    double y = place.center().y() - used / 2;
    for (const QString &text : lines) {
        double x = place.center().x() - widthOf(text) * tile / 2;
        for (const QChar character : text) {
            const double width = widthOf(character) * tile;
            const double side = kindOf(character) == Piece::plain ? 0 : gap * tile / 2;
            pieces_.push_back({character, QRectF(x + side, y, width - 2 * side, tile * tileHeight),
                               kindOf(character)});
            x += width;
        }
        y += line;
    }
    commentPlace_ =
        QRectF(place.left(), std::min(y, area().bottom() - height - 2), place.width(), height);
}

void WordView::draw(QPainter &painter) {
    const double f = factor();
    const QRectF strip = area().adjusted(2 * f, 2 * f, -2 * f, -2 * f);
    QLinearGradient light(strip.topLeft(), strip.bottomLeft());
    light.setColorAt(0, shade::parchmentLight);
    light.setColorAt(1, shade::parchment);
    painter.setBrush(light);
    painter.setPen(QPen(shade::goldDark, 2 * f));
    painter.drawRoundedRect(strip, 12 * f, 12 * f);

    const QColor colour = ink(written().colour, Surface::parchment);
    if (isSentence()) {
        // On one line, unless that would make it small.
        const double largest = std::min(area().height() * 0.42, 34 * f);
        const QString &text = written().text;
        const bool wraps =
            fittingPixels(text, inside().size(), largest, true, false) < 0.6 * largest;
        drawFitted(painter, inside(), text, largest, true, wraps, Qt::AlignCenter, colour);
        return;
    }
    for (const Piece &piece : pieces_) {
        const double size = piece.place.width();
        if (piece.kind == Piece::closed) {
            drawTile(painter, piece.place, QColor(0x2c, 0x44, 0xa8), shade::night, f);
            const QPointF middle = piece.place.center() - QPointF(0, 2 * f);
            painter.setPen(Qt::NoPen);
            painter.setBrush(shade::gold);
            const double r = size * 0.2;
            painter.drawPolygon(
                QPolygonF({middle + QPointF(0, -r * 1.25), middle + QPointF(r, 0),
                           middle + QPointF(0, r * 1.25), middle + QPointF(-r, 0)}));
        } else if (piece.kind == Piece::open) {
            drawTile(painter, piece.place, Qt::white, shade::goldDark, f);
            drawFitted(painter, piece.place.adjusted(1, 0, -1, -3 * f), QString(piece.character),
                       size * 0.84, true, false, Qt::AlignCenter, colour);
        } else if (!piece.character.isSpace()) {
            const double tile = piece.place.height() / tileHeight;
            drawFitted(painter, piece.place, QString(piece.character), tile * 0.84, true, false,
                       Qt::AlignCenter, colour);
        }
    }
    if (!comment_.isEmpty()) {
        drawFitted(painter, commentPlace_, comment_, commentPlace_.height() * 0.8, false, false,
                   Qt::AlignCenter, ink(colours::black, Surface::parchment));
    }
}

} // namespace grimoval
