// SPDX-License-Identifier: GPL-3.0-or-later
// The mirrors are tested on a platform without a screen, with the accessibility interfaces on.
#include "support/temporary_folder.h"

#include <QAccessible>
#include <QApplication>
#include <gtest/gtest.h>

#include <optional>

#include <sys/stat.h>

// A server that dies leaves a little in its own library.
extern "C" const char *__lsan_default_suppressions();
const char *__lsan_default_suppressions() { return "leak:libpulse"; }

int main(int count, char **arguments) {
    // Nothing of the person's own is read or written. A test that starts this program again shares
    // the folder.
    std::optional<grimoval::test::TemporaryFolder> home;
    if (!qEnvironmentVariableIsSet("GRIMOVAL_TESTS_HOME")) {
        const QByteArray folder = QByteArray::fromStdString(home.emplace().bytePath(u""));
        ::chmod(folder.constData(), 0700); // the folder of a session is its owner's alone
        for (const char *place : {"GRIMOVAL_TESTS_HOME", "HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME",
                                  "XDG_CACHE_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"}) {
            qputenv(place, folder);
        }
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&count, arguments);
    QApplication application(count, arguments);
    return RUN_ALL_TESTS();
}
