// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/speaker.h"

#include <QStringList>

namespace grimoval {

namespace {
constexpr int lasting = 2000; // milliseconds: time enough for a screen reader to ask what it says
}

Speaker::Speaker(QWidget *window) : Drawn(window, QAccessible::Notification) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(0, 0, 1, 1); // there is nothing to see
    hide();
    soon_.setSingleShot(true);
    connect(&soon_, &QTimer::timeout, this, [this] { tell(); });
    // Gone before its window may come into view again, which would say it again.
    over_.setSingleShot(true);
    connect(&over_, &QTimer::timeout, this, [this] { hide(); });
}

void Speaker::say(Matter matter, const QString &text) {
    if (window()->isVisible()) {
        waiting_[matter] = text;
        soon_.start(0);
    }
}

void Speaker::tell() {
    QStringList sentences;
    for (QString &text : waiting_) {
        if (!text.isEmpty()) {
            sentences << text;
        }
        text.clear();
    }
    if (sentences.isEmpty()) {
        return;
    }
    hide();
    setAccessibleName(sentences.join(QStringLiteral(". ")));
    show(); // a notification is said when it comes into view
    lower();
    over_.start(lasting);
}

QString spokenWord(const QString &text) {
    QStringList parts;
    int hidden = 0;
    const auto endHidden = [&] {
        if (hidden > 0) {
            parts << (hidden == 1 ? QStringLiteral("1 lettre cachée")
                                  : QStringLiteral("%1 lettres cachées").arg(hidden));
        }
        hidden = 0;
    };
    const qsizetype bracket = text.indexOf(u'(');
    const QString word = bracket < 0 ? text : text.left(bracket);
    if (!word.contains(u'#')) {
        return text;
    }
    for (const QChar character : word.trimmed()) {
        if (character == u'#') {
            ++hidden;
            continue;
        }
        endHidden();
        parts << (character == u'-'     ? QStringLiteral("tiret")
                  : character == u'\''  ? QStringLiteral("apostrophe")
                  : character.isSpace() ? QStringLiteral("espace")
                                        : QString(character));
    }
    endHidden();
    if (bracket >= 0) {
        parts << text.mid(bracket);
    }
    return parts.join(QStringLiteral(", "));
}

} // namespace grimoval
