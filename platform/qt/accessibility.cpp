// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/accessibility.h"

#include "platform/qt/drawn.h"

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
        return state;
    }

    QStringList actionNames() const override {
        QStringList names;
        if (drawn().onPress && drawn().isEnabled()) {
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
    Drawn &drawn() const { return static_cast<Drawn &>(*widget()); }
};

QAccessibleInterface *interfaceFor(const QString & /*className*/, QObject *object) {
    auto *drawn = dynamic_cast<Drawn *>(object);
    return drawn == nullptr ? nullptr : new DrawnInterface(drawn);
}

} // namespace

void installAccessibility() { QAccessible::installFactory(interfaceFor); }

} // namespace grimoval
