// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/noms.h"

#include "platform/failure.h"
#include "tools/bases/texte.h"

#include <algorithm>
#include <numeric>

namespace grimoval::outils {

namespace {

constexpr int leplusDeHomonymes = 32767;

bool deRacine(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'_' || c == u'-';
}

// Without the folders and the ending.
Texte nomNu(const Texte &chemin) {
    const Texte nom = nettoyer(nomSeul(chemin));
    const auto point = nom.find_last_of(u'.');
    return point == 0 ? nom : nom.substr(0, point);
}

// How many letters must be put in, left out or changed to make one of the other.
std::size_t distance(const Texte &un, const Texte &autre) {
    std::vector<std::size_t> rangee(autre.size() + 1);
    std::iota(rangee.begin(), rangee.end(), std::size_t{0});
    for (std::size_t i = 0; i < un.size(); ++i) {
        std::size_t diagonale = rangee[0];
        rangee[0] = i + 1;
        for (std::size_t j = 0; j < autre.size(); ++j) {
            const std::size_t change = diagonale + (un[i] == autre[j] ? 0 : 1);
            diagonale = rangee[j + 1];
            rangee[j + 1] = std::min({change, rangee[j] + 1, rangee[j + 1] + 1});
        }
    }
    return rangee.back();
}

} // namespace

bool estUneRacine(const Texte &nom) {
    return !nom.empty() && nom.size() <= largeurNom &&
           std::all_of(nom.begin(), nom.end(), deRacine);
}

Texte nomSeul(const Texte &chemin) {
    const auto place = chemin.find_last_of(u'/');
    return place == Texte::npos ? chemin : chemin.substr(place + 1);
}

Texte titreDuNom(const Texte &chemin) {
    Texte titre = nomNu(chemin);
    std::replace_if(
        titre.begin(), titre.end(), [](char16_t c) { return isControl(c) || c == u'_'; }, u' ');
    titre.erase(
        std::remove_if(titre.begin(), titre.end(), [](char16_t c) { return ansiCode(c) < 0; }),
        titre.end());
    titre = trim(titre).substr(0, largeurTitre);
    if (titre.empty()) {
        return u"Mes mots";
    }
    titre.front() = upper(titre.front());
    return trim(titre);
}

Texte racineDuNom(const Texte &chemin) {
    Texte racine;
    for (const char16_t c : plainCapitals(nomNu(chemin))) {
        if (deRacine(c)) {
            racine += c;
        }
    }
    if (!estUneRacine(racine)) {
        racine = racine.substr(0, largeurNom);
        racine.erase(racine.find_last_not_of(u"_-") + 1);
    }
    return racine.empty() ? u"LISTE" : racine;
}

Texte racineLibre(const Texte &racine, const std::function<bool(const Texte &)> &libre) {
    if (libre(racine)) {
        return racine;
    }
    for (int numero = 2; numero <= leplusDeHomonymes; ++numero) {
        const Texte fin = u"_" + decimal(numero);
        const Texte essai = racine.substr(0, largeurNom - fin.size()) + fin;
        if (libre(essai)) {
            return essai;
        }
    }
    throw Failure(failure::overflow);
}

bool memeTitre(const Texte &un, const Texte &autre) {
    return plainCapitals(trim(un)) == plainCapitals(trim(autre));
}

Texte leplusProche(const Texte &mot, const std::vector<Texte> &connus) {
    constexpr std::size_t tropLong = 60;
    Texte trouve;
    std::size_t ecart = mot.size() / 3 + 2; // and nearer than that
    const Texte cherche = plainCapitals(mot.substr(0, tropLong));
    for (const Texte &connu : connus) {
        const std::size_t essai = distance(cherche, plainCapitals(connu));
        if (essai < ecart) {
            ecart = essai;
            trouve = connu;
        }
    }
    return trouve;
}

} // namespace grimoval::outils
