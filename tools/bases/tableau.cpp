// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/texte.h"

#include <algorithm>

namespace grimoval::outils {

namespace {

constexpr std::u16string_view separateurs = u";\t,"; // the likelier before

// Cells of a line, without the blanks around them. Within quotation marks a separator is text, and
// a doubled mark is one.
std::vector<Texte> cellules(const Texte &ligne, char16_t separateur, bool &ouverte) {
    std::vector<Texte> trouvees(1);
    ouverte = false;
    bool debut = true;
    for (std::size_t i = 0; i < ligne.size(); ++i) {
        const char16_t c = ligne[i];
        if (ouverte && c == u'"' && i + 1 < ligne.size() && ligne[i + 1] == u'"') {
            trouvees.back() += ligne[++i];
        } else if (c == u'"' && (ouverte || debut)) {
            ouverte = !ouverte;
            debut = false;
        } else if (!ouverte && c == separateur) {
            trouvees.emplace_back();
            debut = true;
        } else {
            trouvees.back() += c == u'\t' ? u' ' : c;
            debut = debut && c == u' ';
        }
    }
    for (Texte &cellule : trouvees) {
        cellule = trim(cellule);
    }
    return trouvees;
}

Texte sansTabulations(Texte ligne) {
    std::replace(ligne.begin(), ligne.end(), u'\t', u' ');
    return trim(ligne);
}

bool parmi(const Texte &texte, std::initializer_list<std::u16string_view> mots) {
    return std::find(mots.begin(), mots.end(), plainCapitals(texte)) != mots.end();
}

bool nomDesMots(const Texte &texte) { return parmi(texte, {u"MOT", u"MOTS"}); }
bool nomDesIndices(const Texte &texte) {
    return parmi(texte, {u"INDICE", u"INDICES", u"PRECISION", u"PRECISIONS", u"DEFINITION"});
}

// Neither blank nor a comment.
bool compte(const Texte &ligne) {
    const auto place = ligne.find_first_not_of(u" \t");
    return place != Texte::npos && ligne[place] != u'#';
}

bool partage(const Texte &ligne, char16_t separateur) {
    bool ouverte = false;
    const auto debut = ligne.find_first_not_of(u" \t"), fin = ligne.find_last_not_of(u" \t");
    return compte(ligne) &&
           cellules(ligne.substr(debut, fin - debut + 1), separateur, ouverte).size() > 1;
}

bool nommentDesColonnes(const std::vector<Texte> &noms) {
    return noms.size() > 1 && nomDesMots(noms[0]) && nomDesIndices(noms[1]);
}

} // namespace

bool nommeDesColonnes(const Texte &ligne) {
    bool ouverte = false;
    return std::any_of(separateurs.begin(), separateurs.end(), [&](char16_t separateur) {
        return nommentDesColonnes(cellules(ligne, separateur, ouverte));
    });
}

Tableau::Tableau(const std::vector<Texte> &lignes, bool csv) : lignes_(lignes) {
    const auto premiere = std::find_if(lignes.begin(), lignes.end(), [](const Texte &ligne) {
        return compte(ligne) && ligne.find(u':') == Texte::npos; // no heading of the theme
    });
    if (premiere == lignes.end()) {
        return;
    }
    bool ouverte = false;
    for (const char16_t separateur : separateurs) {
        const std::vector<Texte> noms = cellules(*premiere, separateur, ouverte);
        if (nommentDesColonnes(noms) || (csv && nomDesMots(noms[0]))) {
            noms_ = static_cast<std::size_t>(premiere - lignes.begin());
        }
        const bool possible = csv || noms_ || separateur == u'\t';
        if (possible && std::any_of(lignes.begin(), lignes.end(), [&](const Texte &ligne) {
                return partage(ligne, separateur);
            })) {
            separateur_ = separateur;
            return;
        }
    }
    if (csv) {
        separateur_ = separateurs.front();
    }
}

Tableau::Rangee Tableau::lire(std::size_t numero) const {
    Rangee rangee;
    // Without columns the quotation marks are text as well.
    const std::vector<Texte> lues = separateur_
                                        ? cellules(lignes_[numero], *separateur_, rangee.ouverte)
                                        : std::vector<Texte>{sansTabulations(lignes_[numero])};
    rangee.mot = lues[0];
    rangee.indice = lues.size() > 1 ? lues[1] : Texte();
    rangee.deTrop = std::any_of(lues.begin() + std::min<std::ptrdiff_t>(2, std::ssize(lues)),
                                lues.end(), [](const Texte &cellule) { return !cellule.empty(); });
    rangee.noms = numero == noms_;
    return rangee;
}

} // namespace grimoval::outils
