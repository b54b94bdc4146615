// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/beat.h"

#include <algorithm>
#include <ctime>

namespace grimoval {

Beat::Beat(std::function<void()> action) : action_(std::move(action)) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { check(); });
}

Beat::Milliseconds Beat::monotonic() {
    std::timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now); // stands still while the machine sleeps
    return Milliseconds{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
}

void Beat::start(int interval) {
    interval_ = interval;
    due_ = clock() + interval;
    arm();
}

void Beat::arm() { timer_.start(static_cast<int>(std::max<Milliseconds>(0, remaining()))); }

void Beat::check() {
    const Milliseconds now = clock();
    if (now < due_) {
        arm();
        return;
    }
    due_ += interval_;
    if (due_ <= now) {
        due_ = now + interval_;
    }
    arm();
    action_(); // which may stop the beat, or start it anew
}

} // namespace grimoval
