// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/listes.h"

#include "tools/bases/noms.h"

namespace grimoval::outils {

namespace {

// The sources that were kept under a title.
std::vector<Texte> gardees(Files &fichiers, const Lieu &lieu, const Texte &titre) {
    std::vector<Texte> trouvees;
    for (const Texte &chemin : sourcesDe(fichiers, lieu.listes)) {
        Problemes sansInteret;
        if (memeTitre(lireTheme(fichiers, chemin, sansInteret).titre, titre)) {
            trouvees.push_back(chemin);
        }
    }
    return trouvees;
}

} // namespace

std::vector<Texte> sourcesDe(Files &fichiers, const Texte &dossier) {
    std::vector<Texte> chemins;
    for (const Texte &nom : fichiers.list(dossier, u"*")) {
        const Texte capitales = upper(nom);
        if (capitales.ends_with(u".TXT") || capitales.ends_with(u".CSV")) {
            chemins.push_back(asFolder(dossier) + nom);
        }
    }
    return chemins;
}

void exigerDesTitresUniques(const std::vector<Theme> &themes, Problemes &problemes) {
    for (std::size_t i = 0; i < themes.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (memeTitre(themes[i].titre, themes[j].titre)) {
                problemes.push_back(
                    {themes[i].source, 0,
                     u"le titre « " + extrait(themes[i].titre) + u" » est déjà celui de " +
                         themes[j].source +
                         u" : changez l'un des deux par une ligne « Titre : ... »"});
            }
        }
    }
}

void garder(Files &fichiers, const Lieu &lieu, const Theme &theme) {
    if (!fichiers.folderExists(lieu.listes)) {
        fichiers.makeFolder(lieu.listes);
    }
    const std::vector<Texte> deja = gardees(fichiers, lieu, theme.titre);
    const auto chemin = [&](const Texte &racine) {
        return asFolder(lieu.listes) + racine + u".txt";
    };
    fichiers.replace(deja.empty() ? chemin(racineLibre(theme.fichier,
                                                       [&](const Texte &racine) {
                                                           return !fichiers.exists(chemin(racine));
                                                       }))
                                  : deja.front(),
                     ecrireTheme(theme));
    fichiers.flushFolder(lieu.listes);
}

bool oublier(Files &fichiers, const Lieu &lieu, const Texte &titre) {
    const std::vector<Texte> deja = gardees(fichiers, lieu, titre);
    for (const Texte &chemin : deja) {
        fichiers.remove(chemin);
    }
    if (!deja.empty()) {
        fichiers.flushFolder(lieu.listes);
    }
    return !deja.empty();
}

} // namespace grimoval::outils
