// SPDX-License-Identifier: GPL-3.0-or-later
// Bases known by their bytes: what this program has made of sources, and what a change that was
// interrupted may have left. A base that is not among them came by another hand.
#pragma once

#include "platform/files.h"

namespace grimoval::outils {

class Empreintes {
public:
    // A file that is missing, odd or damaged knows nothing.
    static Empreintes lire(Files &fichiers, const Texte &chemin);

    void noter(const Texte &racine, const std::string &octets);
    void reprendre(const Texte &racine, const Empreintes &autres); // if they know it
    bool connait(const Texte &racine, const std::string &octets) const;
    bool connait(const Texte &racine) const { return sommes_.contains(racine); }
    bool vides() const { return sommes_.empty(); }

    // One a line: the stem, and a sum of the bytes in hexadecimal.
    std::string texte() const;

private:
    std::map<Texte, std::string> sommes_;
};

} // namespace grimoval::outils
