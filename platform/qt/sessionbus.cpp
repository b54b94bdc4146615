// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/sessionbus.h"

#include <QByteArray>
#include <QList>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <optional>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace grimoval {

namespace {

constexpr auto variable = "DBUS_SESSION_BUS_ADDRESS";
constexpr auto nowhere = "unix:path=/dev/null"; // no socket: who tries it fails at once

using Clock = std::chrono::steady_clock;

// The first address of the list, as a socket; nothing if it is of another kind.
std::optional<std::pair<sockaddr_un, socklen_t>> socketOf(const QByteArray &addresses) {
    const QByteArray first = addresses.split(';').front();
    if (!first.startsWith("unix:")) {
        return std::nullopt;
    }
    for (const QByteArray &part : first.mid(5).split(',')) {
        const bool abstract = part.startsWith("abstract=");
        if (!abstract && !part.startsWith("path=")) {
            continue;
        }
        QByteArray name = QByteArray::fromPercentEncoding(part.mid(part.indexOf('=') + 1));
        if (abstract) {
            name.prepend('\0');
        }
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        if (name.size() >= qsizetype(sizeof address.sun_path)) {
            return std::nullopt;
        }
        std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
        return std::pair(address, static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) +
                                                         static_cast<std::size_t>(name.size()) +
                                                         (abstract ? 0 : 1)));
    }
    return std::nullopt;
}

// The first message on a bus, which every bus answers.
QByteArray hello() {
    QByteArray fields;
    const auto field = [&fields](char code, char type, const QByteArray &text) {
        fields.append(QByteArray((8 - fields.size() % 8) % 8, '\0'));
        fields.append(code).append('\1').append(type).append('\0');
        const quint32 size = qToLittleEndian(static_cast<quint32>(text.size()));
        fields.append(reinterpret_cast<const char *>(&size), sizeof size).append(text).append('\0');
    };
    field(1, 'o', "/org/freedesktop/DBus");
    field(2, 's', "org.freedesktop.DBus");
    field(3, 's', "Hello");
    field(6, 's', "org.freedesktop.DBus");
    // Little-endian, a call, version 1, without a body, the first of its connection.
    QByteArray message("l\1\0\1\0\0\0\0\1\0\0\0", 12);
    const quint32 size = qToLittleEndian(static_cast<quint32>(fields.size()));
    message.append(reinterpret_cast<const char *>(&size), sizeof size).append(fields);
    return message.append(QByteArray((8 - message.size() % 8) % 8, '\0'));
}

// What comes back for what is sent; empty if it does not come in time, or the other has gone.
QByteArray exchange(int socket, const QByteArray &sent, Clock::time_point until) {
    if (::send(socket, sent.constData(), static_cast<std::size_t>(sent.size()), MSG_NOSIGNAL) < 0) {
        return {};
    }
    pollfd seen{socket, POLLIN, 0};
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(until - Clock::now()).count();
    if (::poll(&seen, 1, static_cast<int>(std::max<long long>(0, left))) <= 0) {
        return {};
    }
    std::array<char, 4096> buffer{};
    const ssize_t size = ::recv(socket, buffer.data(), buffer.size(), MSG_DONTWAIT);
    return QByteArray(buffer.data(), std::max<ssize_t>(0, size));
}

} // namespace

bool answers(const std::string &address, std::chrono::milliseconds patience) {
    const auto place = socketOf(QByteArray::fromStdString(address));
    if (!place) {
        return true;
    }
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket < 0) {
        return true;
    }
    const auto until = Clock::now() + patience;
    bool answered = true;
    if (::connect(socket, reinterpret_cast<const sockaddr *>(&place->first), place->second) == 0) {
        const QByteArray account = QByteArray::number(static_cast<qulonglong>(::getuid())).toHex();
        const QByteArray welcome =
            exchange(socket, QByteArray("\0AUTH EXTERNAL ", 15) + account + "\r\n", until);
        answered =
            !welcome.isEmpty() && (!welcome.startsWith("OK") ||
                                   !exchange(socket, "BEGIN\r\n" + hello(), until).isEmpty());
    } else {
        answered = errno != EAGAIN; // so many wait already that nobody can be served there
    }
    ::close(socket);
    return answered;
}

void forgetSilentBus(std::chrono::milliseconds patience) {
    QByteArray address = qgetenv(variable);
    if (address.isEmpty() && qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) {
        address = "unix:path=" + qgetenv("XDG_RUNTIME_DIR") + "/bus"; // where the bus library looks
    }
    if (!answers(address.toStdString(), patience)) {
        qputenv(variable, nowhere);
    }
}

} // namespace grimoval
