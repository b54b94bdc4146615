// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/empreintes.h"

#include "tools/bases/noms.h"
#include "tools/bases/texte.h"

#include <algorithm>

namespace grimoval::outils {

namespace {

constexpr std::size_t longueur = 16;         // digits of a sum
constexpr std::int64_t leplusLong = 1 << 20; // bytes: more than 32,767 lines take
constexpr std::string_view chiffres = "0123456789abcdef";

// FNV-1a: it tells bases apart, and guards against nobody.
std::string somme(const std::string &octets) {
    std::uint64_t valeur = 0xcbf29ce484222325;
    for (const char c : octets) {
        valeur = (valeur ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    }
    std::string texte(longueur, '0');
    for (auto place = texte.rbegin(); place != texte.rend(); ++place, valeur >>= 4) {
        *place = chiffres[valeur & 15];
    }
    return texte;
}

} // namespace

Empreintes Empreintes::lire(Files &fichiers, const Texte &chemin) {
    Empreintes lues;
    std::string octets;
    try {
        if (!fichiers.exists(chemin) || fichiers.length(chemin) > leplusLong) {
            return lues;
        }
        octets = fichiers.read(chemin);
    } catch (const Failure &) {
        return lues;
    }
    for (const Texte &ligne : lignesDe(fromAnsi(octets))) {
        const std::size_t place = std::min(ligne.find(u' '), ligne.size());
        const Texte racine = ligne.substr(0, place);
        const std::string valeur = toUtf8(ligne.substr(std::min(place + 1, ligne.size())));
        if (estUneRacine(racine) && valeur.size() == longueur &&
            valeur.find_first_not_of(chiffres) == std::string::npos) {
            lues.sommes_[racine] = valeur;
        }
    }
    return lues;
}

void Empreintes::noter(const Texte &racine, const std::string &octets) {
    sommes_[racine] = somme(octets);
}

void Empreintes::reprendre(const Texte &racine, const Empreintes &autres) {
    const auto trouvee = autres.sommes_.find(racine);
    if (trouvee != autres.sommes_.end()) {
        sommes_.insert(*trouvee);
    }
}

bool Empreintes::connait(const Texte &racine, const std::string &octets) const {
    const auto trouvee = sommes_.find(racine);
    return trouvee != sommes_.end() && trouvee->second == somme(octets);
}

std::string Empreintes::texte() const {
    std::string texte;
    for (const auto &[racine, valeur] : sommes_) {
        texte += toUtf8(racine) + " " + valeur + "\n";
    }
    return texte;
}

} // namespace grimoval::outils
