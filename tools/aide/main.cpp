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
#include <QIcon>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

std::optional<grimoval::HelpFile> read(const fs::path &path) {
    std::error_code none;
    if (!fs::is_regular_file(path, none)) {
        return std::nullopt;
    }
    // One byte more than allowed tells a file that is too long.
    std::string bytes(grimoval::HelpFile::largestFile + 1, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return grimoval::HelpFile::parse(bytes);
}

} // namespace

int main(int count, char **arguments) {
    QApplication toolkit(count, arguments);
    QApplication::setApplicationName(QStringLiteral("grimoval-aide"));
    QApplication::setDesktopFileName(QStringLiteral("grimoval")); // of the game that opened it
    // By its bytes: a QString loses those that are no UTF-8.
    std::error_code none;
    const fs::path path = count > 1 ? fs::canonical(arguments[1], none) : fs::path();
    const QString keyword = count > 2 ? QString::fromUtf8(arguments[2]) : QStringLiteral("index");

    std::optional<grimoval::HelpFile> help = read(path);
    if (!help) {
        std::fputs("grimoval-aide : ce fichier d'aide ne peut pas être lu\n", stderr);
        return 1;
    }
    grimoval::Alone alone(QString::fromLatin1(path.string())); // a name of its own for any bytes
    if (!alone.take(keyword)) {
        return 0;
    }
    const QString folder = QString::fromStdString(path.parent_path().string());
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
