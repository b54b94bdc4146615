// SPDX-License-Identifier: GPL-3.0-or-later
// The hidden word on its strip of parchment: a tile a letter, closed for a letter still to find. A
// text smaller than 15 points is a sentence and is written as one.
#pragma once

#include "platform/qt/labelview.h"
#include "platform/qt/motion.h"

namespace grimoval {

class WordView : public LabelView {
public:
    using LabelView::LabelView;
    void write(const LabelText &text) override;

    // How the word is laid out, for the eye and for tests.
    struct Piece {
        QChar character;
        QRectF place;
        enum Kind { open, closed, plain } kind;
        bool fresh; // just found: it lands
    };
    // What the colour of the word tells, shown by form as well.
    enum class Mood { playing, won, lost };
    Mood mood() const;
    const std::vector<Piece> &pieces() const { return pieces_; }
    const QString &comment() const { return comment_; }
    const QRectF &commentPlace() const { return commentPlace_; }

protected:
    void draw(QPainter &painter) override;
    void arrange() override;

private:
    bool isSentence() const { return written().points < 15; }
    QRectF inside() const;
    void lay(const QStringList &lines, double tile, const QRectF &place);
    void markFresh(const std::vector<Piece> &before);
    void drawStrip(QPainter &painter);
    void drawPiece(QPainter &painter, const Piece &piece, std::size_t index);

    std::vector<Piece> pieces_;
    Glide landing_{[this] { update(); }};
    QString comment_;
    QRectF commentPlace_;
};

} // namespace grimoval
