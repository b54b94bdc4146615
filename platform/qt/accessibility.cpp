// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/accessibility.h"

#include "platform/qt/drawn.h"
#include "platform/qt/formwindow.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <QTimer>

namespace grimoval {

namespace {

class DrawnInterface : public QAccessibleWidget {
public:
    explicit DrawnInterface(Drawn *drawn) : QAccessibleWidget(drawn, drawn->role()) {}

    QAccessible::Role role() const override { return drawn().role(); }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        if (role() == QAccessible::CheckBox) {
            state.checkable = true;
            state.checked = drawn().isChecked();
        }
        state.pressed = drawn().isDown();
        state.disabled = state.disabled || !takesPress();
        return state;
    }

    QStringList actionNames() const override {
        QStringList names;
        if (drawn().onPress && drawn().isEnabled() && takesPress()) {
            names << (role() == QAccessible::CheckBox ? toggleAction() : pressAction());
        }
        return names + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override {
        if (name != pressAction() && name != toggleAction()) {
            QAccessibleWidget::doAction(name);
            return;
        }
        // The caller has its answer at once, whatever window the press opens.
        const QPointer<QWidget> target(widget());
        QTimer::singleShot(0, widget(), [target] {
            const auto *pressed = dynamic_cast<Drawn *>(target.data());
            if (pressed != nullptr && pressed->isEnabled() && pressed->onPress) {
                pressed->onPress();
            }
        });
    }

private:
    // Not while another window stands over it.
    bool takesPress() const {
        const auto *window = dynamic_cast<const FormWindow *>(widget()->window());
        return !drawn().onPress || window == nullptr || window->isOpen();
    }

    Drawn &drawn() const { return static_cast<Drawn &>(*widget()); }
};

class WindowInterface : public QAccessibleWidget {
public:
    explicit WindowInterface(QWidget *window) : QAccessibleWidget(window, QAccessible::Window) {}

    QAccessible::Role role() const override {
        return widget()->isModal() ? QAccessible::Dialog : QAccessible::Window;
    }
};

QAccessibleInterface *interfaceFor(const QString & /*className*/, QObject *object) {
    if (auto *drawn = dynamic_cast<Drawn *>(object)) {
        return new DrawnInterface(drawn);
    }
    if (auto *window = dynamic_cast<FormWindow *>(object)) {
        return new WindowInterface(window);
    }
    return nullptr;
}

} // namespace

void installAccessibility() { QAccessible::installFactory(interfaceFor); }

} // namespace grimoval
