// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/lieu.h"

#include <filesystem>

namespace grimoval::outils {

namespace {

namespace fs = std::filesystem;

Texte enTexte(const fs::path &chemin) { return fromPath(chemin.string()); }

} // namespace

Lieu lieuDe(Files &fichiers, const Texte &dossier) {
    Lieu lieu;
    const Texte dedans = asFolder(dossier) + u"MASK";
    // Of a game whose bases are gone the sources are left.
    const bool jeu =
        fichiers.folderExists(dedans) || fichiers.folderExists(asFolder(dossier) + u"mots");
    lieu.masque = jeu ? dedans : dossier;
    std::error_code erreur;
    fs::path nomme = fs::absolute(fichiers.resolve(lieu.masque), erreur).lexically_normal();
    if (!nomme.has_filename()) { // a separator at the end
        nomme = nomme.parent_path();
    }
    // Followed by hand, as the link may be there before the folder.
    const fs::path vise = fs::read_symlink(nomme, erreur);
    fs::path reel = fs::weakly_canonical(erreur ? nomme : nomme.parent_path() / vise, erreur);
    if (erreur) {
        reel = nomme;
    }
    lieu.masque = enTexte(reel);
    lieu.images = enTexte(nomme.parent_path() / "IMAGES");
    lieu.modeles = enTexte(nomme.parent_path() / "mots");
    lieu.listes = enTexte(reel.parent_path() / "listes");
    lieu.registre = enTexte(reel.parent_path() / "bases-faites.txt");
    lieu.refaisable = fichiers.folderExists(lieu.modeles);
    return lieu;
}

Texte jeuInstalle() {
    std::error_code erreur;
    const fs::path programme = fs::read_symlink("/proc/self/exe", erreur);
    if (erreur) {
        return {};
    }
    const fs::path ici = programme.parent_path();
    if (fs::is_directory(ici / "MASK", erreur)) {
        return enTexte(ici / "MASK");
    }
    for (const fs::path &jeu : {ici / "grimoval", ici.parent_path() / "share/games/grimoval"}) {
        if (fs::is_directory(jeu, erreur)) {
            return enTexte(jeu / "MASK");
        }
    }
    return {};
}

} // namespace grimoval::outils
