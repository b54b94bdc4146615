// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader is to say of its own accord: a notification on the accessibility bus that
// nobody sees. All that happens in one turn of the event loop is one notification.
#pragma once

#include "platform/qt/drawn.h"

#include <QTimer>

#include <array>

namespace grimoval {

class Speaker : public Drawn {
public:
    explicit Speaker(QWidget *window);

    // In the order in which they are said; of one matter, the last word counts.
    enum Matter { letter, word, turn, matters };
    void say(Matter matter, const QString &text);

protected:
    void draw(QPainter & /*painter*/) override {}

private:
    void tell();

    std::array<QString, matters> waiting_;
    QTimer soon_, over_;
};

// A word in play as it is said: "É, 2 lettres cachées, R"; a sentence as it stands.
QString spokenWord(const QString &text);

} // namespace grimoval
