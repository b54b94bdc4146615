// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/startup.h"

namespace grimoval::test {

Startup::Startup() {
    folder.write(u"grimoval/MASK/GRIMV.LST", "x");
    folder.makeFolder(u"donnees");
}

int Startup::run() {
    if (!application.secondInstance) {
        windows.expectModal("frmSplash", [this](Form &) {
            if (atSplash) {
                atSplash();
            }
            if (all.splash.isShown()) {
                all.splash.Frame1.userClick();
            }
        });
        windows.expectModal("FMenu", [this](Form &form) {
            if (atMenu) {
                atMenu();
            }
            form.hide();
        });
    }
    try {
        Main(g, all);
    } catch (const ProgramEnd &end) {
        return end.status;
    }
}

} // namespace grimoval::test
