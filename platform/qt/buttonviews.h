// SPDX-License-Identifier: GPL-3.0-or-later
// The buttons: one with a picture as its face, one for a letter, a coloured knob, a check box.
#pragma once

#include "platform/qt/drawn.h"

namespace grimoval {

// A picture that rests, rises under the mouse, goes down, or is greyed.
class FaceButton : public Drawn {
public:
    explicit FaceButton(QWidget *parent);
    void setFace(const QImage &face);
    bool hasFace() const { return !face_.isNull(); }
    // One that can be pressed stands in a light of its own.
    void setProminent(bool prominent) { prominent_ = prominent; }

protected:
    void draw(QPainter &painter) override;
    void arrange() override { scaled_ = {}; }

private:
    void drawPlainFace(QPainter &painter, const QRectF &place);

    QImage face_;
    QPixmap scaled_, greyed_;
    bool prominent_ = false;
};

// The faces of a letter: "A.libre", "A.trouvee", "A.fausse", "A.repos".
class LetterView : public Drawn {
public:
    explicit LetterView(QWidget *parent);
    // The face at rest and the one shown while it is pressed.
    void setFaces(const QString &face, const QString &down);
    const QString &shownFace() const { return isDown() && !down_.isEmpty() ? down_ : face_; }
    // "disponible", "trouvée", "fausse", "au repos".
    static QString meaning(const QString &face);
    // Found or wrong: it has been proposed.
    static bool isAnswer(const QString &face);

protected:
    void draw(QPainter &painter) override;

private:
    QString face_, down_;
};

// A round knob that shows a colour; red, the colour of what is chosen, has a heart of its own.
class KnobView : public Drawn {
public:
    explicit KnobView(QWidget *parent);
    void setColour(Colour colour);
    void setRound(bool round);

protected:
    void draw(QPainter &painter) override;

private:
    Colour colour_;
    bool round_ = true;
};

class CheckView : public Drawn {
public:
    explicit CheckView(QWidget *parent);
    void setChecked(bool checked);
    bool isChecked() const override { return checked_; }

protected:
    void draw(QPainter &painter) override;

private:
    bool checked_ = false;
};

} // namespace grimoval
