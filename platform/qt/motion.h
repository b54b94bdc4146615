// SPDX-License-Identifier: GPL-3.0-or-later
// Short, soft movements: they show what has just changed and hide nothing. A desktop that asks for
// none has none.
#pragma once

#include <QVariantAnimation>

#include <functional>

namespace grimoval {

namespace motion {
// Until the desktop has been asked: no.
bool isWanted();
void setWanted(bool wanted);
// Asks the desktop, now and whenever it changes its mind.
void followDesktop();
// What the settings files of the desktops say, in the folder that holds them.
bool settingsWantMotion(const QString &folder);
} // namespace motion

// A number on its way to another one.
class Glide {
public:
    // `moved` is called at each step, the last one included.
    explicit Glide(std::function<void()> moved);

    double value() const { return value_; }
    bool isMoving() const { return animation_.state() == QVariantAnimation::Running; }
    // Arrives at once where no motion is wanted.
    void moveTo(double target, int milliseconds);
    void jumpTo(double value);

private:
    std::function<void()> moved_;
    QVariantAnimation animation_;
    double value_ = 0;
};

} // namespace grimoval
