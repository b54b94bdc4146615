// SPDX-License-Identifier: GPL-3.0-or-later
// The end that comes from outside: a signal (TERM, HUP, INT), the end of the desktop's session, the
// death of the display. The program then ends at once, in order and without a question, wherever it
// stands: under a modal window or a box, too.
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace grimoval {

// One at a time. Needs a QApplication, on whose thread it is made.
class SessionEnd : public QObject {
public:
    // `last` is done once before the process ends. It may ask nothing of the display, which may
    // have gone; what it throws is lost.
    explicit SessionEnd(std::function<void()> last);
    ~SessionEnd() override;

    // The program ends by itself now, with this status: from here on an end from outside runs no
    // function any more, and has that status too.
    void handOver(int status = 0);

    // Runs the function given to the constructor, then ends the process.
    [[noreturn]] void end(int status);

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    std::function<void()> last_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace grimoval
