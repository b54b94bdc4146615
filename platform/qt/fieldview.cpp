// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/nativeviews.h"

#include <QSignalBlocker>

namespace grimoval {

FieldView::FieldView(QWidget *parent) : QLineEdit(parent) {
    setContextMenuPolicy(Qt::NoContextMenu);
    connect(this, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (onType) {
            onType(text);
        }
    });
}

void FieldView::set(const QString &text) {
    if (text == this->text()) {
        return;
    }
    const QSignalBlocker quiet(this);
    const int cursor = cursorPosition();
    const bool atEnd = cursor == this->text().size();
    setText(text);
    setCursorPosition(atEnd ? static_cast<int>(text.size())
                            : std::min(cursor, static_cast<int>(text.size())));
}

void FieldView::setFactor(double factor) { setFont(fontOf(18 * factor)); }

} // namespace grimoval
