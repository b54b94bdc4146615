// SPDX-License-Identifier: GPL-3.0-or-later
// Nothing thrown by the core crosses the event loop: every action that comes from Qt runs here. A
// failure that nobody caught is told in one box and ends the process with status 1.
#pragma once

#include "platform/form.h"

#include <functional>

namespace grimoval {

// Ends the process at once: what the program has written goes out, no destructor runs.
[[noreturn]] void endProcess(int status);

class Guard {
public:
    explicit Guard(std::function<void(const Message &)> showMessage)
        : showMessage_(std::move(showMessage)) {}

    // From the first failure on, actions are no longer run.
    void run(const std::function<void()> &action);
    // Reports the failure and ends the process; a failure of the report itself ends it too.
    void fail(int number);
    // What comes back from `end`, in a test alone, leaves everything closed.
    bool ended() const { return ended_; }
    // Nothing has failed, and nothing has ended.
    bool isOpen() const { return !reporting_ && !ended_; }

    std::function<void(int status)> end = endProcess;

private:
    void finish(int status);

    std::function<void(const Message &)> showMessage_;
    bool reporting_ = false, ended_ = false;
};

// What the failure report says.
Texte failureReport(int number);

} // namespace grimoval
