// SPDX-License-Identifier: GPL-3.0-or-later
// A picture in its frame, with the curtain that may hang before it.
#pragma once

#include "platform/qt/drawn.h"

namespace grimoval {

class PictureView : public Drawn {
public:
    explicit PictureView(QWidget *parent);
    void setPicture(const QImage &picture);
    void setFramed(bool framed);
    // How far the curtain is down, from 0 to 1; nothing hangs below 0.
    void setCurtain(double part);

    // The room inside the frame, and the part of it that the curtain covers.
    QRectF inner() const;
    QRectF curtain() const;

protected:
    void draw(QPainter &painter) override;
    void arrange() override { scaled_ = {}; }

private:
    void drawCurtain(QPainter &painter, const QRectF &place) const;

    QImage picture_;
    QPixmap scaled_;
    bool framed_ = false;
    double curtain_ = -1;
};

} // namespace grimoval
