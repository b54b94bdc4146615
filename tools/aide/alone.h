// SPDX-License-Identifier: GPL-3.0-or-later
// One viewer for each help file and user: the first has the place, a later one hands it its
// keyword. They meet at a socket in the user's runtime folder; nothing goes over a network.
#pragma once

#include <QLocalServer>
#include <QObject>
#include <QString>

#include <functional>

namespace grimoval {

class Alone : public QObject {
public:
    // `file` is the help file, by its one true path.
    explicit Alone(const QString &file);
    ~Alone() override;

    // True: this is the first, and `asked` will be called with the keywords of the later ones.
    // False: the first has been told the keyword, and this one has nothing left to do.
    bool take(const QString &keyword);

    std::function<void(const QString &keyword)> asked;

private:
    bool lock();
    bool tell(const QString &keyword);
    void listen();

    QString place_;
    QLocalServer server_;
    int lock_ = -1;
};

} // namespace grimoval
