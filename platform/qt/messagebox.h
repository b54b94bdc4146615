// SPDX-License-Identifier: GPL-3.0-or-later
// The message box: an icon, a text, one button.
#pragma once

#include "platform/form.h"
#include "platform/qt/palette.h"

#include <QDialog>

namespace grimoval {

class MessageBox : public QDialog {
public:
    MessageBox(const Message &message, QWidget *over, double factor);

    void open() override; // in the middle of what it stands over

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QWidget *over_;
    double factor_;
};

} // namespace grimoval
