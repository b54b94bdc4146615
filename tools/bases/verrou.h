// SPDX-License-Identifier: GPL-3.0-or-later
// One writer at a time in a folder of bases.
#pragma once

#include "platform/files.h"

#include <chrono>

namespace grimoval::outils {

// A file in the folder that its owner alone can open, so that no other account can hold it; there
// as long as the lock is held. Nothing but this program asks for it.
class Verrou {
public:
    // All bases of a game are changed in less than a second, on a slow disk in a few.
    static constexpr std::chrono::seconds patience{10};

    // Waits so long for another one to end, then fails with 55, file already open.
    Verrou(Files &fichiers, const Texte &dossier, std::chrono::milliseconds attente = patience);
    ~Verrou();
    Verrou(const Verrou &) = delete;
    Verrou &operator=(const Verrou &) = delete;

private:
    bool essayer();
    int ouvrir() const;

    std::string dossier_, chemin_;
    int descripteur_ = -1;
};

} // namespace grimoval::outils
