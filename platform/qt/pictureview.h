// SPDX-License-Identifier: GPL-3.0-or-later
// A picture in its frame, with the curtain that may hang before it.
#pragma once

#include "platform/qt/drawn.h"
#include "platform/qt/motion.h"

namespace grimoval {

class PictureView : public Drawn {
public:
    explicit PictureView(QWidget *parent);
    void setPicture(const QImage &picture);
    void setFramed(bool framed);
    // How far the curtain is down, from 0 to 1; nothing hangs below 0. It falls softly, and is
    // drawn up at once.
    void setCurtain(double part);

    // The room inside the frame, and the part of it that the curtain covers when it has fallen.
    QRectF inner() const;
    QRectF curtain() const;

protected:
    void draw(QPainter &painter) override;
    void arrange() override {
        scaled_ = {};
        drapery_ = {};
    }

private:
    void drawCurtain(QPainter &painter);
    double hem() const { return std::min(14 * factor(), inner().height() / 8); }
    // Where the lower edge of the cloth hangs: the hem of a closed curtain has left the frame.
    double edgeFor(double part) const;

    QImage picture_;
    QPixmap scaled_, drapery_;
    bool framed_ = false;
    double curtain_ = -1;
    Glide fall_{[this] { update(); }};
};

} // namespace grimoval
