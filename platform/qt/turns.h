// SPDX-License-Identifier: GPL-3.0-or-later
// One handler at a time. Wherever a handler lets events in, repaints, timers and sound go on, but
// nothing that a person does begins another handler inside it:
//   - Clicks, keys, close requests and presses by the accessibility bus wait until the handler has
//     returned. Then they come in their order, as if they were done only now.
//   - A window or box that comes up meanwhile ends the waiting for good: an impatient click does
//     not act on what has come up since.
// The mouse is followed all the time: no command hears of where it goes.
// A handler that waits for a modal window or a box stands aside for as long as that is up.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <deque>
#include <functional>
#include <vector>

namespace grimoval {

class Turns : public QObject {
public:
    Turns(); // needs the application, whose events it sees first

    // No handler runs any more, nor one that stands aside.
    std::function<void()> idle;
    bool isIdle() const { return running_ == 0; }

    // Keeps what has to wait, for as long as the window lives. False: it is to be done at once.
    bool wait(QObject &window, std::function<void()> action);
    // A window or a box comes up.
    void forget() { waiting_.clear(); }
    // The modal window or box has gone; the handler that waits for it has yet to go on.
    void gone(const void *modal);

    // A handler runs to the end of the block.
    class Handler {
    public:
        explicit Handler(Turns &turns) : turns_(turns) { ++turns.running_; }
        ~Handler();
        Handler(const Handler &) = delete;
        Handler &operator=(const Handler &) = delete;

    private:
        Turns &turns_;
    };

    // What a person did is done in several steps, to the end of the block: what waits comes after.
    class Turn {
    public:
        explicit Turn(Turns &turns) : turns_(turns), before_(turns.taken_) { turns.taken_ = true; }
        ~Turn() { turns_.taken_ = before_; }
        Turn(const Turn &) = delete;
        Turn &operator=(const Turn &) = delete;

    private:
        Turns &turns_;
        bool before_;
    };

    // The handlers that run stand aside for a modal window or a box, to the end of the block.
    class Pause {
    public:
        Pause(Turns &turns, const void *modal);
        ~Pause();
        Pause(const Pause &) = delete;
        Pause &operator=(const Pause &) = delete;

    private:
        Turns &turns_;
        bool taken_;
    };

protected:
    bool eventFilter(QObject *receiver, QEvent *event) override;

private:
    struct Modal {
        const void *what;
        int below; // handlers that stand aside
        bool gone = false;
    };
    struct Waiting {
        QPointer<QObject> window;
        std::function<void()> action;
    };

    bool busy() const;
    bool mustWait() const;
    void release();
    void releaseLater();

    std::deque<Waiting> waiting_;
    std::vector<Modal> modals_;
    int running_ = 0; // handlers, one inside the other
    bool taken_ = false;
    QTimer timer_;
};

} // namespace grimoval
