// SPDX-License-Identifier: GPL-3.0-or-later
// A written label, its panel, its badge.
#pragma once

#include "platform/controls.h"
#include "platform/qt/drawn.h"

namespace grimoval {

struct LabelText {
    QString text;
    Colour colour;
    int points = 10;
    Label::Look look = Label::Look::plain;
    Alignment alignment = Alignment::left;
    bool bold = false;
    bool wraps = false;
    QString call = {}; // what follows a player's name at that player's turn
    bool operator==(const LabelText &) const = default;
};

class LabelView : public Drawn {
public:
    explicit LabelView(QWidget *parent) : Drawn(parent, QAccessible::StaticText) {}
    virtual void write(const LabelText &text);
    const LabelText &written() const { return text_; }

protected:
    void draw(QPainter &painter) override;

private:
    void drawPlayer(QPainter &painter, const QRectF &place) const;

    LabelText text_;
};

} // namespace grimoval
