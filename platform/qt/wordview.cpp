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
    return area().adjusted(16 * f, 8 * f, -16 * f, -8 * f);
}

void WordView::write(const LabelText &text) {
    if (text == written()) {
        return;
    }
    const std::vector<Piece> before = std::move(pieces_);
    LabelView::write(text);
    arrange();
    markFresh(before);
}

// The tiles that have opened since.
void WordView::markFresh(const std::vector<Piece> &before) {
    if (before.size() != pieces_.size()) {
        return;
    }
    bool any = false;
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
        // A letter that stands at several places is written place by place: all of them land.
        const bool opened = before[i].kind == Piece::closed && pieces_[i].kind == Piece::open;
        pieces_[i].fresh = opened || (before[i].fresh && landing_.isMoving());
        any = any || opened;
    }
    if (any) {
        landing_.jumpTo(0);
        landing_.moveTo(1, 260);
    }
}

WordView::Mood WordView::mood() const {
    return written().colour == colours::green ? Mood::won
           : written().colour == colours::red ? Mood::lost
                                              : Mood::playing;
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
    lay(best, std::min(tile, 78 * factor()), place);
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
                               kindOf(character), false});
            x += width;
        }
        y += line;
    }
    commentPlace_ =
        QRectF(place.left(), std::min(y, area().bottom() - height - 2), place.width(), height);
}

// A strip of parchment between two rollers; won, its edge is a double line of emerald with stars at
// both ends; lost, a broken line.
void WordView::drawStrip(QPainter &painter) {
    const double f = factor();
    const QRectF strip = area().adjusted(2 * f, 2 * f, -2 * f, -2 * f);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(4, 8, 32, 90));
    painter.drawRoundedRect(strip.translated(0, 2 * f), 14 * f, 14 * f);
    QLinearGradient light(strip.topLeft(), strip.bottomLeft());
    light.setColorAt(0, shade::parchmentLight);
    light.setColorAt(0.6, shade::parchment);
    light.setColorAt(1, QColor(0xec, 0xd9, 0xab));
    painter.setBrush(light);
    painter.setPen(QPen(shade::goldDark, 2 * f));
    painter.drawRoundedRect(strip, 14 * f, 14 * f);
    const Mood now = isSentence() ? Mood::playing : mood();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(now == Mood::won    ? QPen(shade::emerald, 3 * f)
                   : now == Mood::lost ? QPen(shade::coralDark, 2 * f, Qt::DashLine)
                                       : QPen(QColor(0xa8, 0x74, 0x1a, 130), f));
    painter.drawRoundedRect(strip.adjusted(5 * f, 5 * f, -5 * f, -5 * f), 10 * f, 10 * f);
    if (now == Mood::won) {
        const double r = 8 * f;
        for (const double x : {strip.left() + r, strip.right() - r}) {
            painter.setPen(QPen(shade::goldDark, f));
            painter.setBrush(shade::gold);
            painter.drawPath(star({x, strip.center().y()}, r, 5, 0.45));
        }
    }
}

void WordView::drawPiece(QPainter &painter, const Piece &piece, std::size_t index) {
    const double f = factor(), size = piece.place.width();
    const QColor colour = ink(written().colour, Surface::parchment);
    if (piece.kind == Piece::plain) {
        if (!piece.character.isSpace()) {
            const double tile = piece.place.height() / tileHeight;
            drawFitted(painter, piece.place, QString(piece.character), tile * 0.84, true, false,
                       Qt::AlignCenter, colour);
        }
        return;
    }
    painter.save();
    const double landing = piece.fresh && landing_.isMoving() ? 1 - landing_.value() : 0;
    if (landing > 0) {
        painter.translate(piece.place.center());
        painter.scale(1 + 0.22 * landing, 1 + 0.22 * landing);
        painter.translate(-piece.place.center() - QPointF(0, piece.place.height() * 0.1 * landing));
    } else if (mood() == Mood::lost) {
        // The tiles of a lost word lie as they fell.
        painter.translate(piece.place.center());
        painter.rotate(index % 2 == 0 ? -2.5 : 2.5);
        painter.translate(-piece.place.center());
    }
    if (piece.kind == Piece::closed) {
        drawTile(painter, piece.place, shade::cover, shade::coverDark, f);
        const QRectF face = faceOfTile(piece.place, f);
        const double in = size * 0.1;
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(0xf2, 0xc1, 0x4e, 170), std::max(1.0, size * 0.025)));
        painter.drawRoundedRect(face.adjusted(in, in, -in, -in), size * 0.1, size * 0.1);
        painter.setPen(Qt::NoPen);
        painter.setBrush(shade::gold);
        painter.drawPath(star(face.center(), size * 0.25, 4, 0.38));
    } else {
        const QColor edge = mood() == Mood::won    ? shade::emerald
                            : mood() == Mood::lost ? shade::coralDark
                                                   : shade::goldDark;
        drawTile(painter, piece.place, QColor(0xff, 0xfd, 0xf6), edge, f);
        drawFitted(painter, faceOfTile(piece.place, f).adjusted(1, 0, -1, 0),
                   QString(piece.character), size * 0.86, true, false, Qt::AlignCenter, colour);
    }
    painter.restore();
}

void WordView::draw(QPainter &painter) {
    drawStrip(painter);
    const double f = factor();
    if (isSentence()) {
        // On one line, unless that would make it small.
        const double largest = std::min(area().height() * 0.42, 36 * f);
        const QString &text = written().text;
        const bool wraps =
            fittingPixels(text, inside().size(), largest, true, false) < 0.6 * largest;
        drawFitted(painter, inside(), text, largest, true, wraps, Qt::AlignCenter,
                   ink(written().colour, Surface::parchment));
        return;
    }
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
        drawPiece(painter, pieces_[i], i);
    }
    if (!comment_.isEmpty()) {
        drawFitted(painter, commentPlace_, comment_, commentPlace_.height() * 0.8, false, false,
                   Qt::AlignCenter, ink(colours::black, Surface::parchment));
    }
}

} // namespace grimoval
