// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/listes.h"

#include "tools/bases/noms.h"

#include <algorithm>
#include <filesystem>

namespace grimoval::outils {

namespace {

namespace fs = std::filesystem;

// A list on its way to its own name: no source, and nobody else's.
const Texte enRoute = u".grimbases";

bool nommeUneSource(const Texte &nom) {
    const Texte capitales = upper(nom);
    return capitales.ends_with(u".TXT") || capitales.ends_with(u".CSV");
}

// The sources that were kept under a title.
std::vector<Texte> gardees(Files &fichiers, const Lieu &lieu, const Texte &titre) {
    std::vector<Texte> trouvees;
    for (const Gardee &gardee : lireLesListes(fichiers, lieu.listes)) {
        if (memeTitre(gardee.theme.titre, titre)) {
            trouvees.push_back(gardee.chemin);
        }
    }
    return trouvees;
}

// What has the name of a source but is no file.
std::vector<Texte> nomsBizarres(Files &fichiers, const Texte &dossier) {
    std::vector<Texte> noms;
    std::error_code erreur;
    fs::directory_iterator entree(fichiers.resolve(dossier), erreur);
    if (erreur) {
        if (erreur == std::errc::no_such_file_or_directory) {
            return noms;
        }
        throw Failure(failureOf(erreur.value()));
    }
    for (; !erreur && entree != fs::directory_iterator(); entree.increment(erreur)) {
        std::error_code sansInteret;
        const Texte nom = fromPath(entree->path().filename().string());
        if (nommeUneSource(nom) && !entree->is_regular_file(sansInteret)) {
            noms.push_back(nom);
        }
    }
    std::sort(noms.begin(), noms.end());
    return noms;
}

} // namespace

std::vector<Texte> sourcesDe(Files &fichiers, const Texte &dossier) {
    std::vector<Texte> chemins;
    for (const Texte &nom : fichiers.list(dossier, u"*")) {
        if (nommeUneSource(nom)) {
            chemins.push_back(asFolder(dossier) + nom);
        }
    }
    return chemins;
}

std::vector<Gardee> lireLesListes(Files &fichiers, const Texte &dossier) {
    std::vector<Gardee> listes;
    const std::vector<Texte> bizarres = nomsBizarres(fichiers, dossier);
    for (const Texte &chemin : sourcesDe(fichiers, dossier)) {
        Gardee gardee{chemin, {}, {}};
        try {
            gardee.theme = lireTheme(fichiers, chemin, gardee.problemes);
        } catch (const Failure &erreur) {
            gardee.problemes = {{nomSeul(chemin), 0, failureMeaning(erreur.number)}};
        }
        listes.push_back(gardee);
    }
    for (const Texte &nom : bizarres) {
        listes.push_back({asFolder(dossier) + nom, {}, {{nom, 0, u"ce n'est pas un fichier"}}});
    }
    return listes;
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
    effacerLesRestes(fichiers, lieu);
    const std::vector<Texte> deja = gardees(fichiers, lieu, theme.titre);
    const auto chemin = [&](const Texte &racine) {
        return asFolder(lieu.listes) + racine + u".txt";
    };
    const Texte place = deja.empty()
                            ? chemin(racineLibre(theme.fichier,
                                                 [&](const Texte &racine) {
                                                     return !fichiers.exists(chemin(racine));
                                                 }))
                            : deja.front();
    fichiers.replace(asFolder(lieu.listes) + enRoute, ecrireTheme(theme));
    fichiers.move(asFolder(lieu.listes) + enRoute, place);
    for (std::size_t i = 1; i < deja.size(); ++i) {
        fichiers.remove(deja[i]);
    }
    fichiers.flushFolder(lieu.listes);
}

void oublier(Files &fichiers, const Lieu &lieu, const Texte &titre) {
    const std::vector<Texte> deja = gardees(fichiers, lieu, titre);
    for (const Texte &chemin : deja) {
        fichiers.remove(chemin);
    }
    if (!deja.empty()) {
        fichiers.flushFolder(lieu.listes);
    }
}

void effacerLesRestes(Files &fichiers, const Lieu &lieu) {
    for (const Texte &nom : fichiers.list(lieu.listes, enRoute + u"*")) {
        fichiers.remove(asFolder(lieu.listes) + nom);
    }
}

} // namespace grimoval::outils
