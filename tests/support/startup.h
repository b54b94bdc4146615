// SPDX-License-Identifier: GPL-3.0-or-later
// The program from its very start, over real files.
#pragma once

#include "shell/MAINGRIM.h"
#include "support/world.h"

#include <optional>

namespace grimoval::test {

struct Startup : World {
    // MASK holds a catalogue of one byte, which the start-up only measures; the folder of the
    // user's data is there and empty.
    Startup();

    Globales g{services};
    FenetresDuJeu all{g};

    // What the person does with the splash; a click on it if nothing is said.
    std::function<void()> atSplash;
    // While the main window is up.
    std::function<void()> atMenu;

    // Runs Main; the status of the end. A failure goes through.
    int run();

    static constexpr const char16_t *settings = u"donnees/Calvenor/Le Grimoval/GRIMOVA.INI";
    std::string settingsFile() const { return folder.read(settings); }
};

} // namespace grimoval::test
