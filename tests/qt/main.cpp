// SPDX-License-Identifier: GPL-3.0-or-later
// The mirrors are tested on a platform without a screen, with the accessibility interfaces on.
#include <QAccessible>
#include <QApplication>
#include <gtest/gtest.h>

// A server that dies leaves a little in its own library.
extern "C" const char *__lsan_default_suppressions();
const char *__lsan_default_suppressions() { return "leak:libpulse"; }

int main(int count, char **arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&count, arguments);
    QApplication application(count, arguments);
    return RUN_ALL_TESTS();
}
