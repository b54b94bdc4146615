// SPDX-License-Identifier: GPL-3.0-or-later
// A timer that does not drift: each beat is due one interval after the last one was due, on a clock
// that stands still while the machine sleeps. One that comes late by more than an interval is one
// beat all the same, and the count starts again from it.
#pragma once

#include <QTimer>

#include <functional>

namespace grimoval {

class Beat {
public:
    using Milliseconds = qint64;
    explicit Beat(std::function<void()> action);

    void start(int interval);
    void stop() { timer_.stop(); }
    bool isRunning() const { return timer_.isActive(); }
    int interval() const { return interval_; }
    // How long until the next beat is due.
    Milliseconds remaining() const { return due_ - clock(); }

    // What the timer does when it goes off. It may go off early.
    void check();

    static Milliseconds monotonic();
    std::function<Milliseconds()> clock = monotonic;

private:
    void arm();

    std::function<void()> action_;
    QTimer timer_;
    int interval_ = 0;
    Milliseconds due_ = 0;
};

} // namespace grimoval
