// SPDX-License-Identifier: GPL-3.0-or-later
// A widget that we draw ourselves: it knows how it stands under the mouse, hands a press out, and
// tells the accessibility bus what it is.
#pragma once

#include "platform/qt/painting.h"

#include <QAccessible>
#include <QWidget>

#include <functional>

namespace grimoval {

class Drawn : public QWidget {
public:
    Drawn(QWidget *parent, QAccessible::Role role);

    // A press by the mouse or by the accessibility bus; one without an action lets the mouse pass.
    std::function<void()> onPress;
    std::function<void()> onMove;

    QAccessible::Role role() const { return role_; }
    void setRole(QAccessible::Role role) { role_ = role; }
    double factor() const { return factor_; }
    void setFactor(double factor);
    Surface surface() const { return surface_; }
    void setSurface(Surface surface);
    // The state of a check box; nothing else has one.
    virtual bool isChecked() const { return false; }

    bool isDown() const { return down_ && under_; }
    bool isUnderMouse() const { return under_; }

protected:
    // Everything in pixels of the widget; the painter is smooth.
    virtual void draw(QPainter &painter) = 0;
    // Its size or its scale has changed.
    virtual void arrange() {}
    QRectF area() const { return QRectF(rect()); }

    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    QAccessible::Role role_;
    double factor_ = 1;
    Surface surface_ = Surface::night;
    bool under_ = false, down_ = false;
};

// Sets a member that is drawn; true if it is another value.
template <class T>
bool assign(T &member, const T &value) {
    if (member == value) {
        return false;
    }
    member = value;
    return true;
}

} // namespace grimoval
