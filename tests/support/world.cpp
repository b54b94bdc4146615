// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/world.h"

namespace grimoval::test {

World::World() {
    windows.wheel = &wheel;
    files.writeTime = [this] { return clock.now(); };
    clock.set({2026, 3, 7, 14, 5, 9});
    application.folder = folder.path(u"grimoval");
    application.userData = folder.path(u"donnees");
}

} // namespace grimoval::test
