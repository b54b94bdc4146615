// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qtservices.h"

#include "platform/qt/strings.h"

#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <chrono>
#include <cstdlib>
#include <filesystem>

#include <cstdint>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace grimoval {

// Paths are bytes here: a QString loses those that are no UTF-8.
namespace {

namespace fs = std::filesystem;

// The folder of the running program itself, whatever link it was started by.
std::string programFolder() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path().string();
}

// In a process of its own that nobody waits for and that has nothing to read and nothing to say.
void startDetached(std::string program, std::string first, std::string second) {
    char *const words[] = {program.data(), first.data(), second.data(), nullptr};
    const pid_t between = ::fork();
    if (between == 0) {
        ::setsid();
        if (::fork() == 0) {
            const int nothing = ::open("/dev/null", O_RDWR);
            for (int stream = 0; stream < 3; ++stream) {
                ::dup2(nothing, stream);
            }
            ::execv(words[0], words);
        }
        ::_exit(0);
    }
    if (between > 0) {
        ::waitpid(between, nullptr, 0);
    }
}

// A plain file of this account, made if it is missing; -1 for whatever another account, or chance,
// has put in its place. Waits for nothing.
int openOwn(const QString &file) {
    const int descriptor = ::open(QFile::encodeName(file).constData(),
                                  O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
    struct stat found {};
    if (descriptor >= 0 && (::fstat(descriptor, &found) != 0 || !S_ISREG(found.st_mode) ||
                            found.st_uid != ::geteuid())) {
        ::close(descriptor);
        return -1;
    }
    return descriptor;
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
        const std::string file = files_.resolve(path);
        if (std::error_code error; fs::is_regular_file(file, error)) {
            QDesktopServices::openUrl(QUrl::fromEncoded(
                "file://" + QByteArray::fromStdString(file).toPercentEncoding("/")));
        }
    } catch (const Failure &) {
        // A document that cannot be opened is not opened.
    }
}

// In a process of its own, so that the game goes on; without a help file or its viewer nothing
// shows.
void QtDocuments::showHelp(const Texte &path, const Texte &keyword) {
    try {
        const std::string file = files_.resolve(path);
        if (std::error_code error; fs::is_regular_file(file, error)) {
            startDetached(helpViewerFor(programFolder()), file, toUtf8(keyword));
        }
    } catch (const Failure &) {
        // Help that cannot be found is not shown.
    }
}

// Beside the game, or where an installed tree keeps what no person starts.
std::string QtDocuments::helpViewerFor(const std::string &programFolder) {
    const std::string own = programFolder + "/grimoval-aide";
    const fs::path installed = programFolder + "/../libexec/grimoval/grimoval-aide";
    std::error_code error;
    return fs::exists(own, error) || !fs::is_regular_file(installed, error)
               ? own
               : fs::canonical(installed, error).string();
}

QtApplication::~QtApplication() { release(); }

void QtApplication::release() {
    if (lock_ >= 0) {
        ::close(lock_);
        lock_ = -1;
    }
}

bool QtApplication::previousInstance() {
    if (lock_ >= 0) {
        return false;
    }
    const auto account = static_cast<quint64>(::getuid());
    // The session's folder; the account's own where the session does not tell; shared ones.
    const QStringList folders = {qEnvironmentVariable("XDG_RUNTIME_DIR"),
                                 QStringLiteral("/run/user/%1").arg(account), QDir::tempPath(),
                                 QStringLiteral("/dev/shm")};
    for (const QString &folder : folders) {
        const int descriptor =
            folder.isEmpty() ? -1
                             : openOwn(folder + QStringLiteral("/grimoval-%1.lock").arg(account));
        if (descriptor < 0) {
            continue;
        }
        if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
            ::close(descriptor);
            return true;
        }
        lock_ = descriptor;
        return false;
    }
    return false; // nobody is kept from playing for want of a lock
}

std::string QtApplication::dataFolderFor(const std::string &programFolder) {
    if (Files().folderExists(fromPath(programFolder) + separator + u"MASK")) {
        return programFolder;
    }
    const fs::path shared = programFolder + "/../share/games/grimoval";
    std::error_code error;
    return fs::is_directory(shared, error) ? fs::canonical(shared, error).string() : programFolder;
}

Texte QtApplication::path() { return fromPath(dataFolderFor(programFolder())); }

// Where the desktops agree that it is. A path that is not absolute counts for none there.
std::optional<Texte> QtApplication::userDataFolder() {
    const auto placeOf = [](const char *name) {
        const char *value = std::getenv(name);
        const fs::path place = value == nullptr ? "" : value;
        return place.is_absolute() ? place : fs::path();
    };
    fs::path folder = placeOf("XDG_DATA_HOME");
    if (folder.empty()) {
        folder = placeOf("HOME");
        if (folder.empty()) {
            return std::nullopt;
        }
        folder /= ".local/share";
    }
    // A new account may have no such place yet; one that cannot be made is none.
    std::error_code error;
    fs::create_directories(folder, error);
    if (!fs::is_directory(folder, error)) {
        return std::nullopt;
    }
    return fromPath(folder.string());
}

} // namespace grimoval
