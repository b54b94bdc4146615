// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/scripted/time.h"

#include <chrono>

namespace grimoval::scripted {

namespace {

// The milliseconds between two firings; 0: it does not run.
int period(const Control &control) {
    if (const auto *timer = dynamic_cast<const Timer *>(&control)) {
        return timer->Enabled ? timer->Interval.get() : 0;
    }
    if (const auto *gauge = dynamic_cast<const Gauge *>(&control)) {
        return gauge->EnMarche ? 1000 : 0;
    }
    return 0;
}

} // namespace

DateTime later(const DateTime &moment, long long seconds) {
    using namespace std::chrono;
    const sys_days day = year(moment.year) / month(static_cast<unsigned>(moment.month)) /
                         std::chrono::day(static_cast<unsigned>(moment.day));
    const sys_seconds whole =
        sys_seconds(day) + std::chrono::seconds(moment.secondOfDay() + seconds);
    const sys_days midnight = floor<days>(whole);
    const year_month_day date(midnight);
    const auto second = static_cast<int>((whole - midnight).count());
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            second / 3600,
            second / 60 % 60,
            second % 60};
}

void TimeWheel::forget(const Form &form) {
    for (const Control *control : form.controls()) {
        due_.erase(control);
    }
}

void TimeWheel::gaugeChanged(const Gauge &gauge) {
    if (gauge.EnMarche) {
        due_[&gauge] = now_ + 1000;
    } else {
        due_.erase(&gauge);
    }
}

// The control that is due first, not later than `until`.
Control *TimeWheel::next(long long until) {
    Control *first = nullptr;
    for (const bool timers : {true, false}) {
        for (const Form *form : screen_.loaded()) {
            for (Control *control : form->controls()) {
                const int step = period(*control);
                if (step <= 0) {
                    due_.erase(control);
                    continue;
                }
                if ((dynamic_cast<Timer *>(control) != nullptr) != timers) {
                    continue;
                }
                const long long due = due_.try_emplace(control, now_ + step).first->second;
                if (due <= until && (first == nullptr || due < due_[first])) {
                    first = control;
                }
            }
        }
    }
    return first;
}

void TimeWheel::advance(long long milliseconds) {
    const long long until = now_ + milliseconds;
    const auto moveTo = [this](long long instant) {
        clock_.elapsed += instant - now_;
        now_ = instant;
    };
    while (Control *control = next(until)) {
        moveTo(due_[control]);
        due_[control] += period(*control);
        if (auto *timer = dynamic_cast<Timer *>(control)) {
            timer->fire();
        } else if (auto *gauge = dynamic_cast<Gauge *>(control)) {
            gauge->tick();
        }
    }
    moveTo(until);
}

} // namespace grimoval::scripted
