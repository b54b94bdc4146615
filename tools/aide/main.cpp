// SPDX-License-Identifier: GPL-3.0-or-later
// The viewer of the help:
//
//   grimoval-aide FILE [KEYWORD]
//
// Ends with 0 once the page has been shown, here or in a viewer that is open already, and with 1,
// without a window, if the file is none that it can show.
#include "tools/aide/alone.h"
#include "tools/aide/viewer.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QIcon>

#include <cstdio>

namespace {

std::optional<grimoval::HelpFile> read(const QString &path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    // One byte more than allowed tells a file that is too long.
    const QByteArray bytes = file.read(qint64(grimoval::HelpFile::largestFile) + 1);
    return grimoval::HelpFile::parse({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace

int main(int count, char **arguments) {
    QApplication toolkit(count, arguments);
    QApplication::setApplicationName(QStringLiteral("grimoval-aide"));
    QApplication::setDesktopFileName(QStringLiteral("grimoval")); // of the game that opened it
    const QStringList words = QApplication::arguments();
    const QString path = words.size() > 1 ? QFileInfo(words[1]).canonicalFilePath() : QString();
    const QString keyword = words.size() > 2 ? words[2] : QStringLiteral("index");

    std::optional<grimoval::HelpFile> help = read(path);
    if (!help) {
        std::fputs("grimoval-aide : ce fichier d'aide ne peut pas être lu\n", stderr);
        return 1;
    }
    grimoval::Alone alone(path);
    if (!alone.take(keyword)) {
        return 0;
    }
    const QString folder = QFileInfo(path).absolutePath();
    QApplication::setWindowIcon(QIcon(folder + QStringLiteral("/IMAGES/icone-64.png")));
    grimoval::HelpWindow window(std::move(*help), folder);
    alone.asked = [&window](const QString &wanted) {
        window.ask(wanted);
        window.comeToFront();
    };
    window.ask(keyword);
    window.show();
    return QApplication::exec();
}
