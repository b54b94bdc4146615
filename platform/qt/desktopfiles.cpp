// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/desktopfiles.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace grimoval {

namespace {
constexpr qint64 largest = 1 << 20; // bytes; those of desktops have some thousands
}

bool isSettingsFile(const QString &path) {
    const QFileInfo file(path);
    return file.isFile() && file.size() <= largest;
}

void avoidOddDesktop() {
    const QString folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/';
    for (const char *name : {"kdeglobals", "gtk-3.0/settings.ini", "gtk-4.0/settings.ini"}) {
        const QString path = folder + QLatin1String(name);
        if (QFileInfo::exists(path) && !isSettingsFile(path)) {
            qputenv("QT_QPA_PLATFORMTHEME", "generic");
        }
    }
}

} // namespace grimoval
