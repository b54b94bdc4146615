// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the windows of the game on a screen of any size:
//
//   vues DATA PICTURES WIDTHxHEIGHT RATIO SCRIPT...
//
// DATA is the game's folder, which stays as it is; the scripts are those of tools/vues/. The pixels
// of the pictures are those of the screen; RATIO says how many of them, a side, are one pixel of
// the program. PICTURES/vues.txt tells of each picture, one a line: its name, a tabulator, its
// caption. Needs no display.
#include "tools/vues/views.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <fstream>
#include <iostream>
#include <regex>

namespace {

int mistake(const std::string &text) {
    std::cerr << "vues : " << text << '\n';
    return 1;
}

// The platform without a screen reads what screen it is to play from a file.
bool setScreen(const QString &folder, int width, int height, double ratio) {
    const QString name = folder + QStringLiteral("/screen.json");
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    file.write(QStringLiteral(R"({"windowFrameMargins": false, "screens": [{"name": "vues",
"x": 0, "y": 0, "width": %1, "height": %2, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": %3}]})")
                   .arg(std::lround(width / ratio))
                   .arg(std::lround(height / ratio))
                   .arg(ratio)
                   .toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + name.toUtf8());
    return true;
}

} // namespace

int main(int count, char **arguments) {
    using namespace grimoval;
    std::cmatch size;
    const bool good =
        count >= 6 &&
        std::regex_match(arguments[3], size, std::regex("([1-9][0-9]{2,4})x([1-9][0-9]{2,4})"));
    const double ratio = good ? numericValue(fromUtf8(arguments[4])).value_or(0) : 0;
    if (ratio < 0.5 || ratio > 4) {
        return mistake("vues DONNEES IMAGES LARGEURxHAUTEUR RAPPORT SCRIPT...");
    }
    const QTemporaryDir folder; // nothing of the person's own is read or written
    if (!folder.isValid() ||
        !setScreen(folder.path(), std::stoi(size[1]), std::stoi(size[2]), ratio)) {
        return mistake("pas de dossier temporaire");
    }
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.path()));
    for (const char *name :
         {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI", "QT_ENABLE_HIGHDPI_SCALING",
          "QT_STYLE_OVERRIDE", "QT_QPA_PLATFORMTHEME"}) {
        qunsetenv(name);
    }
    qputenv("QT_LOGGING_RULES", "default.warning=false"); // the platform cannot raise a window
    QApplication toolkit(count, arguments);
    QApplication::setCursorFlashTime(0); // the mark in a text field stands still

    const QString pictures = QFile::decodeName(arguments[2]);
    QDir().mkpath(pictures);
    std::ofstream list((pictures + QStringLiteral("/vues.txt")).toStdString());
    for (int i = 5; i < count; ++i) {
        std::ifstream script(arguments[i]);
        if (!script || !list) {
            return mistake("pas de script à lire, ou pas de liste à écrire");
        }
        try {
            vues::Views(QFile::decodeName(arguments[1]), pictures, script, list).run();
        } catch (const vues::Mistake &found) {
            return mistake(std::string(arguments[i]) + ", ligne " + std::to_string(found.line) +
                           " : " + found.reason);
        }
    }
    return 0;
}
