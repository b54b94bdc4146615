// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qtservices.h"

#include "platform/qt/strings.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <chrono>

#include <cstdint>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace grimoval {

namespace {

// The folder of the running program itself, whatever link it was started by.
std::string programFolder() {
    const QFileInfo program(QCoreApplication::applicationFilePath());
    return QFileInfo(program.canonicalFilePath()).absolutePath().toStdString();
}

} // namespace

DateTime QtClock::now() {
    const QDateTime now = QDateTime::currentDateTime();
    const QDate date = now.date();
    const QTime time = now.time();
    return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

void QtRandom::seed() {
    const auto now =
        static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
    std::seed_seq seeds{static_cast<std::uint32_t>(now), static_cast<std::uint32_t>(now >> 32)};
    generator_.seed(seeds);
}

// As many bits as a float holds, so that nothing is rounded up to 1.
float QtRandom::next() { return static_cast<float>(generator_() >> 8) * 0x1p-24F; }

void QtDocuments::openWeb(const Texte &address) {
    QDesktopServices::openUrl(QUrl::fromUserInput(toQt(address)));
}

// As it stands: QDesktopServices would write %20 for its blanks.
void QtDocuments::writeMail(const Texte &address) {
    const QString mail = toQt(address);
    if (!QProcess::startDetached(QStringLiteral("xdg-open"), {mail})) {
        QDesktopServices::openUrl(QUrl(mail, QUrl::TolerantMode));
    }
}

void QtDocuments::openDocument(const Texte &path) {
    try {
        const QString file = QString::fromStdString(files_.resolve(path));
        if (QFileInfo(file).isFile()) {
            QDesktopServices::openUrl(QUrl::fromLocalFile(file));
        }
    } catch (const Failure &) {
        // A document that cannot be opened is not opened.
    }
}

// In a process of its own, so that the game goes on; without a help file or its viewer nothing
// shows.
void QtDocuments::showHelp(const Texte &path, const Texte &keyword) {
    try {
        const QString file = QString::fromStdString(files_.resolve(path));
        if (!QFileInfo(file).isFile()) {
            return;
        }
        QProcess viewer;
        viewer.setProgram(QString::fromStdString(helpViewerFor(programFolder())));
        viewer.setArguments({file, toQt(keyword)});
        viewer.setStandardInputFile(QProcess::nullDevice());
        viewer.setStandardOutputFile(QProcess::nullDevice());
        viewer.setStandardErrorFile(QProcess::nullDevice());
        viewer.startDetached();
    } catch (const Failure &) {
        // Help that cannot be found is not shown.
    }
}

// Beside the game, or where an installed tree keeps what no person starts.
std::string QtDocuments::helpViewerFor(const std::string &programFolder) {
    const std::string own = programFolder + "/grimoval-aide";
    const QFileInfo installed(
        QString::fromStdString(programFolder + "/../libexec/grimoval/grimoval-aide"));
    return QFileInfo::exists(QString::fromStdString(own)) || !installed.isFile()
               ? own
               : installed.canonicalFilePath().toStdString();
}

QtApplication::~QtApplication() {
    if (lock_ >= 0) {
        ::close(lock_);
    }
}

bool QtApplication::previousInstance() {
    if (lock_ >= 0) {
        return false;
    }
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty()) {
        folder = QDir::tempPath();
    }
    const QString file =
        folder + QStringLiteral("/grimoval-%1.lock").arg(static_cast<quint64>(::getuid()));
    const int descriptor = ::open(QFile::encodeName(file).constData(),
                                  O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (descriptor < 0) {
        return false; // nobody is kept from playing for want of a lock
    }
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        ::close(descriptor);
        return true;
    }
    lock_ = descriptor;
    return false;
}

std::string QtApplication::dataFolderFor(const std::string &programFolder) {
    const QString own = QString::fromStdString(programFolder);
    const QStringList bases =
        QDir(own).entryList({QStringLiteral("mask")}, QDir::Dirs | QDir::NoDotAndDotDot);
    if (!bases.isEmpty()) { // case-blind, as name filters are
        return programFolder;
    }
    const QFileInfo shared(own + QStringLiteral("/../share/games/grimoval"));
    return shared.isDir() ? shared.canonicalFilePath().toStdString() : programFolder;
}

Texte QtApplication::path() { return fromUtf8(dataFolderFor(programFolder())); }

std::optional<Texte> QtApplication::userDataFolder() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    // A new account may have no such place yet; one that cannot be made is none.
    if (folder.isEmpty() || !QDir().mkpath(folder)) {
        return std::nullopt;
    }
    return fromQt(folder);
}

} // namespace grimoval
