// SPDX-License-Identifier: GPL-3.0-or-later
// Scripts for the program without a screen, over an installation in a temporary folder.
#pragma once

#include "support/temporary_folder.h"

namespace grimoval::test {

class ScriptedRun {
public:
    // {APPLI} is an installation of two themes, "Animaux" (CHAT, LION, OURS, PUMA) and "Été (la
    // plage)" (MER, SABLE), with a picture for the first and default pictures; {DONNEES} the user's
    // data, empty; {VIDE} an installation without any file.
    ScriptedRun();

    // Runs commands and answers the events, line by line, with the placeholders in the places of
    // the real paths.
    std::vector<std::string> run(const std::string &commands);

    const TemporaryFolder folder;

private:
    std::vector<std::pair<std::string, std::string>> places() const;
};

} // namespace grimoval::test
