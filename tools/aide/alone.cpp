// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/aide/alone.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QFile>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>
#include <QTimer>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace grimoval {

namespace {

constexpr int patience = 3000; // ms
constexpr qint64 longestKeyword = 200;

} // namespace

Alone::Alone(const QString &file) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty()) {
        return; // in a folder of everybody's any account could stand in the way
    }
    const QByteArray mark =
        QCryptographicHash::hash(file.toUtf8(), QCryptographicHash::Sha256).toHex().left(12);
    place_ = QStringLiteral("%1/grimoval-aide-%2-%3")
                 .arg(folder)
                 .arg(static_cast<quint64>(::getuid()))
                 .arg(QString::fromLatin1(mark));
}

Alone::~Alone() {
    server_.close();
    if (lock_ >= 0) {
        ::close(lock_);
    }
}

bool Alone::take(const QString &keyword) {
    QElapsedTimer clock;
    clock.start();
    do { // the first may be just opening its socket, or just ending
        if (lock()) {
            listen();
            return true;
        }
        if (tell(keyword)) {
            return false;
        }
        QThread::msleep(50);
    } while (clock.elapsed() < patience);
    return true; // the other does not answer: help is better twice than not at all
}

// Gone with the process, however it ends.
bool Alone::lock() {
    if (place_.isEmpty()) {
        return true;
    }
    const int descriptor = ::open(QFile::encodeName(place_ + QStringLiteral(".lock")).constData(),
                                  O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (descriptor < 0) {
        return true; // no place to meet: each for itself
    }
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        ::close(descriptor);
        return false;
    }
    lock_ = descriptor;
    return true;
}

bool Alone::tell(const QString &keyword) {
    QLocalSocket socket;
    socket.connectToServer(place_);
    if (!socket.waitForConnected(patience)) {
        return false;
    }
    socket.write(keyword.toUtf8().left(longestKeyword - 1) + '\n');
    // Until it is answered, nobody has heard it.
    return socket.waitForBytesWritten(patience) && socket.waitForReadyRead(patience);
}

void Alone::listen() {
    if (lock_ < 0) {
        return;
    }
    QLocalServer::removeServer(place_); // left by one that was killed
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket *socket = server_.nextPendingConnection()) {
            connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
            QTimer::singleShot(patience, socket, [socket] { socket->abort(); });
            const auto read = [this, socket] {
                if (socket->canReadLine()) {
                    const QByteArray line = socket->readLine(longestKeyword + 1);
                    socket->write("!");
                    socket->flush();
                    socket->disconnectFromServer();
                    if (asked) {
                        asked(QString::fromUtf8(line).trimmed());
                    }
                } else if (socket->bytesAvailable() > longestKeyword) {
                    socket->abort();
                }
            };
            connect(socket, &QLocalSocket::readyRead, this, read);
            read();
        }
    });
    server_.listen(place_);
}

} // namespace grimoval
