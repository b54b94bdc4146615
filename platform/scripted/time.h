// SPDX-License-Identifier: GPL-3.0-or-later
// A clock turned by hand, and the passing of time for windows.
#pragma once

#include "platform/services.h"

namespace grimoval::scripted {

// The moment so many seconds later (or earlier), by the calendar; no summer time.
DateTime later(const DateTime &moment, long long seconds);

struct ScriptedClock : Clock {
    DateTime start{2026, 1, 1, 12, 0, 0};
    long long elapsed = 0; // milliseconds since start

    DateTime now() override { return later(start, elapsed / 1000); }
    void set(const DateTime &moment) {
        start = moment;
        elapsed = 0;
    }
};

// Time passes for the windows that are loaded: timers fire and running gauges tick when their
// milliseconds are due; at one instant timers come first, then gauges, in the order of their
// windows and controls. The clock stands at the instant of each.
class TimeWheel {
public:
    TimeWheel(Screen &screen, ScriptedClock &clock) : screen_(screen), clock_(clock) {}
    void advance(long long milliseconds);
    // To be told of windows that go and of gauges that start or stop.
    void forget(const Form &form);
    void gaugeChanged(const Gauge &gauge);

private:
    Control *next(long long until);
    Screen &screen_;
    ScriptedClock &clock_;
    long long now_ = 0;
    std::unordered_map<const Control *, long long> due_;
};

} // namespace grimoval::scripted
