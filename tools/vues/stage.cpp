// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/vues/stage.h"

#include <QApplication>
#include <QDialog>
#include <QEnterEvent>
#include <QPainter>
#include <QScreen>

#include <cmath>

namespace grimoval::vues {

namespace {

const QColor desktop(0x5a, 0x6b, 0x7b); // what lies behind all windows of the program

// All that waits its turn, and what that brings with it.
void settle() {
    for (int turn = 0; turn < 4; ++turn) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

} // namespace

QImage screenWith(const std::vector<QWidget *> &windows) {
    settle();
    const QScreen *qtScreen = QGuiApplication::primaryScreen();
    const double ratio = qtScreen->devicePixelRatio();
    QImage whole((QSizeF(qtScreen->size()) * ratio).toSize(), QImage::Format_RGB32);
    whole.setDevicePixelRatio(ratio);
    whole.fill(desktop);
    QPainter painter(&whole);
    for (QWidget *window : windows) {
        if (window->isVisible()) {
            window->render(&painter, window->pos());
        }
    }
    return whole;
}

Stage::Stage(Files &files, const Texte &dataFolder,
             std::function<void(std::function<bool()>)> person)
    : QtWindows(files, dataFolder), person_(std::move(person)) {}

// The clocks of the windows stand still: the wheel alone moves them.
void Stage::loaded(Form &form) {
    QtWindows::loaded(form);
    for (const Control *control : form.controls()) {
        if (Mirror *mirror = windowOf(form)->mirrorOf(control)) {
            mirror->stop();
        }
    }
}

void Stage::unloaded(Form &form) {
    wheel.forget(form);
    QtWindows::unloaded(form);
}

void Stage::changed(Element &element, PropertyBase &property) {
    if (const auto *gauge = dynamic_cast<const Gauge *>(&element);
        gauge != nullptr && &property == &gauge->EnMarche) {
        wheel.gaugeChanged(*gauge);
    } else if (dynamic_cast<const Timer *>(&element) == nullptr) {
        QtWindows::changed(element, property);
    }
}

void Stage::runModal(Form &form) {
    person_([&form] { return form.isShown(); });
}

void Stage::message(const Message &message) {
    bool open = true;
    // No exception crosses the event loop of the box.
    QTimer::singleShot(0, qApp, [this, &open] {
        try {
            person_([this, &open] { return open && box() != nullptr && box()->isVisible(); });
        } catch (...) {
            thrown_ = std::current_exception();
            answer();
        }
    });
    QtWindows::message(message);
    open = false;
    if (thrown_) {
        std::rethrow_exception(std::exchange(thrown_, nullptr));
    }
}

bool Stage::answer() {
    if (box() == nullptr) {
        return false;
    }
    box()->accept();
    return true;
}

void Stage::point(Control *control) {
    if (pointed_) {
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(pointed_, &leave);
    }
    pointed_ = nullptr;
    if (control == nullptr) {
        return;
    }
    Mirror *mirror = windowOf(control->form())->mirrorOf(control);
    pointed_ = mirror == nullptr ? nullptr : mirror->widget();
    if (pointed_) {
        const QPointF middle = QRectF(pointed_->rect()).center();
        QEnterEvent enter(middle, middle, pointed_->mapToGlobal(middle));
        QCoreApplication::sendEvent(pointed_, &enter);
    }
}

QImage Stage::picture() {
    settle();
    std::vector<QWidget *> windows;
    for (const bool backdrop : {true, false}) {
        for (const Form *form : screen.loaded()) {
            if (form->backdrop == backdrop) {
                windows.push_back(windowOf(*form));
            }
        }
    }
    if (box() != nullptr) {
        windows.push_back(box());
    }
    return screenWith(windows);
}

} // namespace grimoval::vues
