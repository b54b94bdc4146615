// SPDX-License-Identifier: GPL-3.0-or-later
// The keys of a window: its form sees each of them first.
#include "platform/qt/drawn.h"
#include "platform/qt/formwindow.h"
#include "platform/qt/keys.h"
#include "platform/qt/nativeviews.h"
#include "platform/qt/strings.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QWindow>

namespace grimoval {

bool FormWindow::event(QEvent *event) {
    if (event->type() == QEvent::KeyPress) {
        if (!forwarding_) {
            pressKey(*static_cast<QKeyEvent *>(event));
        }
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

bool FormWindow::eventFilter(QObject *object, QEvent *event) {
    if (object == windowHandle()) {
        if (event->type() == QEvent::Expose) {
            exposed();
        }
        return false;
    }
    switch (event->type()) {
    case QEvent::KeyPress:
        if (forwarding_) {
            return false;
        }
        pressKey(*static_cast<QKeyEvent *>(event));
        event->accept();
        return true;
    case QEvent::InputMethod: {
        auto *field = dynamic_cast<FieldView *>(object);
        auto *typed = static_cast<QInputMethodEvent *>(event);
        if (forwarding_ || field == nullptr || typed->commitString().isEmpty()) {
            return false;
        }
        const QString text = typed->commitString();
        const QScopedValueRollback forwarding(forwarding_, true);
        QInputMethodEvent rest(typed->preeditString(), typed->attributes());
        QCoreApplication::sendEvent(field, &rest);
        commit(*field, text);
        return true;
    }
    case QEvent::FocusOut:
        update(ringOf(dynamic_cast<QWidget *>(object)));
        return false;
    case QEvent::FocusIn: {
        update(ringOf(dynamic_cast<QWidget *>(object)));
        const auto reason = static_cast<QFocusEvent *>(event)->reason();
        // A click may find the window asleep: then the focus comes with its waking.
        const bool woken = reason == Qt::ActiveWindowFocusReason && !followPending_;
        if (!following_ &&
            (woken || reason == Qt::MouseFocusReason || reason == Qt::OtherFocusReason)) {
            if (Control *control = controlOf(*this, object);
                control != nullptr && control->takesFocus()) {
                notice([control](Form &form) { form.userFocus(*control); });
            } else {
                followFocusLater();
            }
        }
        return false;
    }
    case QEvent::MouseMove:
        if (dynamic_cast<Drawn *>(object) == nullptr) { // which tell it themselves
            Control *control = controlOf(*this, object);
            if (control != nullptr && control->MouseMove) {
                notice([control](Form &) { control->userHover(); });
            }
        }
        return false;
    default:
        return false;
    }
}

// A held key repeats where a person writes or moves through a list; it never commands twice.
bool FormWindow::isRepeatWelcome(const QKeyEvent &event, const Control *focus) const {
    const Key key = keyOf(event);
    if (key.code == Key::enter || key.code == Key::escape) {
        return false;
    }
    if (key.code == Key::tab || dynamic_cast<const TextField *>(focus) != nullptr) {
        return true;
    }
    return key.character == 0 && (dynamic_cast<const List *>(focus) != nullptr ||
                                  dynamic_cast<const ScrollBar *>(focus) != nullptr);
}

void FormWindow::pressKey(const QKeyEvent &event) {
    if (!isOpen() || isModifier(event.key())) {
        return;
    }
    const Turns::Turn turn(host_.turns);
    const bool inField = dynamic_cast<TextField *>(form_->focus()) != nullptr;
    // A field has its characters composed; this window has no use for them.
    if (inField) {
        composition_.end();
        if (event.key() == Qt::Key_Multi_key || isDeadKey(event.key())) {
            return;
        }
    } else if (composition_.begins(event.key())) {
        return;
    }
    Key key = keyOf(event);
    if (composition_.takes(key.character)) {
        return;
    }
    if (event.isAutoRepeat() && !isRepeatWelcome(event, form_->focus())) {
        return;
    }
    const char16_t typed = key.character;
    bool passed = false;
    run([&](Form &form) { passed = form.previewKey(key); });
    if (!passed || !isOpen()) {
        return;
    }
    if (key.alt && key.code == Key::f4) {
        run([](Form &form) { form.requestClose(); });
        return;
    }
    const Mirror *mirror = mirrorOf(form_->focus());
    QWidget *widget = mirror == nullptr ? nullptr : mirror->widget();
    auto *field = dynamic_cast<FieldView *>(widget);
    const bool native = field != nullptr || dynamic_cast<ListView *>(widget) != nullptr ||
                        dynamic_cast<ScrollView *>(widget) != nullptr;
    if (!native || key.code == Key::tab) {
        run([&](Form &form) { form.navigate(key); });
    } else if (field != nullptr && key.character >= u' ') {
        field->insert(QString(QChar(key.character)));
    } else if (typed == key.character || key.character == 0) {
        giveToWidget(*widget, event);
    }
}

void FormWindow::giveToWidget(QWidget &widget, const QKeyEvent &event) {
    const QScopedValueRollback forwarding(forwarding_, true);
    QKeyEvent copy(QEvent::KeyPress, event.key(), event.modifiers(), event.nativeScanCode(),
                   event.nativeVirtualKey(), event.nativeModifiers(), event.text(),
                   event.isAutoRepeat(), static_cast<quint16>(event.count()));
    QCoreApplication::sendEvent(&widget, &copy);
}

// A text composed of several keys: each character as if it had been typed.
void FormWindow::commit(FieldView &field, const QString &text) {
    const Turns::Turn turn(host_.turns);
    for (const char16_t character : fromQt(text)) {
        Key key = Key::typed(character);
        bool passed = false;
        if (isOpen()) {
            run([&](Form &form) { passed = form.previewKey(key); });
        }
        if (passed && key.character >= u' ') {
            field.insert(QString(QChar(key.character)));
        }
    }
}

} // namespace grimoval
