// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/turns.h"

#include <QCoreApplication>
#include <QMouseEvent>

#include <memory>
#include <utility>

namespace grimoval {

namespace {

// What begins handlers, as it can be sent once more; nothing for any other event. A wheel, a drop
// and a touch reach the program through what they change, or as a click.
std::function<void(QObject &)> again(const QEvent &event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick: {
        // No copy: events of one mouse share the place that the last of them has.
        const auto &mouse = static_cast<const QMouseEvent &>(event);
        return [type = mouse.type(), place = mouse.position(), scene = mouse.scenePosition(),
                global = mouse.globalPosition(), button = mouse.button(), buttons = mouse.buttons(),
                held = mouse.modifiers()](QObject &receiver) {
            QMouseEvent same(type, place, scene, global, button, buttons, held);
            QCoreApplication::sendEvent(&receiver, &same);
        };
    }
    case QEvent::KeyPress:
    case QEvent::InputMethod:
    case QEvent::Close: {
        const std::shared_ptr<QEvent> copy(event.clone());
        return [copy](QObject &receiver) { QCoreApplication::sendEvent(&receiver, copy.get()); };
    }
    default:
        return nullptr;
    }
}

} // namespace

Turns::Turns() {
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { release(); });
    QCoreApplication::instance()->installEventFilter(this);
}

bool Turns::busy() const {
    return modals_.empty() ? running_ > 0 : modals_.back().gone || running_ > modals_.back().below;
}

// What waits already comes first.
bool Turns::mustWait() const { return busy() || (!taken_ && !waiting_.empty()); }

bool Turns::wait(QObject &window, std::function<void()> action) {
    if (!mustWait()) {
        return false;
    }
    waiting_.push_back({&window, std::move(action)});
    return true;
}

bool Turns::eventFilter(QObject *receiver, QEvent *event) {
    const auto action = mustWait() ? again(*event) : nullptr;
    if (!action) {
        return false;
    }
    event->ignore(); // a window that is asked to close stays
    return wait(*receiver, [receiver, action] { action(*receiver); });
}

void Turns::gone(const void *modal) {
    for (Modal &each : modals_) {
        each.gone = each.gone || each.what == modal;
    }
}

// From the event loop: the handler has returned to it.
void Turns::releaseLater() {
    if (!waiting_.empty() && !busy()) {
        timer_.start(0);
    }
}

void Turns::release() {
    const Turn turn(*this);
    while (!waiting_.empty() && !busy()) {
        const Waiting next = std::move(waiting_.front());
        waiting_.pop_front();
        if (next.window) {
            next.action();
        }
    }
}

Turns::Handler::~Handler() {
    if (--turns_.running_ == 0 && turns_.idle) {
        turns_.idle();
    }
    turns_.releaseLater();
}

Turns::Pause::Pause(Turns &turns, const void *modal)
    : turns_(turns), taken_(std::exchange(turns.taken_, false)) {
    turns.modals_.push_back({modal, turns.running_});
}

Turns::Pause::~Pause() {
    turns_.modals_.pop_back();
    turns_.taken_ = taken_;
    turns_.releaseLater();
}

} // namespace grimoval
