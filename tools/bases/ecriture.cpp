// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that make or change bases.
#include "tools/bases/ecriture.h"

#include "tools/bases/listes.h"
#include "tools/bases/noms.h"
#include "tools/bases/texte.h"

#include <algorithm>
#include <ostream>

namespace grimoval::outils {

Theme lire(Appel &appel, const Texte &chemin, Problemes &problemes) {
    return avec(appel, chemin, [&] { return lireTheme(appel.fichiers, chemin, problemes); });
}

std::vector<Theme> lireDossier(Appel &appel, const Texte &dossier, Problemes &problemes) {
    std::vector<Theme> themes;
    for (const Texte &chemin : sourcesDe(appel.fichiers, dossier)) {
        themes.push_back(lire(appel, chemin, problemes));
    }
    return themes;
}

Verrou verrouiller(Appel &appel, const Texte &dossier) {
    try {
        return Verrou(appel.fichiers, dossier, appel.attente);
    } catch (const Failure &erreur) {
        throw Arret{mauvaisesBases,
                    erreur.number == failure::fileAlreadyOpen
                        ? montrable(dossier) +
                              u" : une autre commande grimbases y travaille encore ; "
                              u"rien n'est changé, recommencez quand elle aura fini."
                        : raison(appel, dossier, erreur.number)};
    }
}

void mettre(Appel &appel, const Lieu &lieu, std::vector<Fiche> &fiches,
            const std::set<Texte> &laisser) {
    const Menage menage{lieu.refaisable ? lieu.registre : Texte(), laisser};
    avec(appel, lieu.masque, [&] { installer(appel.fichiers, lieu.masque, fiches, menage); });
}

void donnerLesRacines(std::vector<Theme> &themes) {
    std::set<Texte> prises;
    for (Theme &theme : themes) {
        theme.fichier = racineLibre(theme.fichier,
                                    [&](const Texte &racine) { return !prises.contains(racine); });
        prises.insert(theme.fichier);
    }
    std::sort(themes.begin(), themes.end(),
              [](const Theme &un, const Theme &autre) { return un.fichier < autre.fichier; });
}

namespace {

void retirerLeTitre(std::vector<Fiche> &fiches, const Texte &titre) {
    std::erase_if(fiches,
                  [&](const Fiche &fiche) { return memeTitre(titreDe(fiche.base), titre); });
}

// The game warns at each opening of the chooser of what else is wrong.
void direLesAutresDefauts(Appel &appel, const Lieu &lieu) {
    if (graves(verifierBases(appel.fichiers, lieu.masque))) {
        appel.erreurs << "Attention : d'autres bases de ce dossier ont un défaut. « grimbases "
                         "verifier » le dit, « grimbases refaire » recrée la liste.\n";
    }
}

const Texte *dernierSi(const Appel &appel, bool unDossier) {
    return unDossier ? &appel.mots.back() : nullptr;
}

} // namespace

int construire(Appel &appel) {
    Problemes problemes;
    std::vector<Theme> themes;
    const Texte &dossier = appel.mots.back();
    for (std::size_t i = 0; i + 1 < appel.mots.size(); ++i) {
        const std::vector<Theme> lus = lireDossier(appel, appel.mots[i], problemes);
        if (lus.empty()) {
            problemes.push_back({appel.mots[i], 0, u"aucun fichier .txt ou .csv dans ce dossier"});
        }
        themes.insert(themes.end(), lus.begin(), lus.end());
    }
    exigerDesTitresUniques(themes, problemes);
    arreterSiGrave(appel, problemes);
    donnerLesRacines(themes);
    const Verrou verrou = verrouiller(appel, dossier);
    avec(appel, dossier, [&] { construireBases(appel.fichiers, themes, dossier); });
    return bon;
}

int ajouter(Appel &appel) {
    const bool dossierDit = appel.mots.size() > 1 && appel.fichiers.folderExists(appel.mots.back());
    const Lieu lieu = appel.lieu(dernierSi(appel, dossierDit));
    Problemes problemes;
    std::vector<Theme> themes;
    for (std::size_t i = 0; i + (dossierDit ? 1 : 0) < appel.mots.size(); ++i) {
        themes.push_back(lire(appel, appel.mots[i], problemes));
        const Theme &theme = themes.back();
        if (!theme.image.empty() && appel.fichiers.folderExists(lieu.images) &&
            !appel.fichiers.exists(asFolder(lieu.images) + theme.image + u".JPG")) {
            problemes.push_back({theme.source, 0,
                                 u"l'image " + extrait(theme.image) + u".JPG n'est pas dans " +
                                     lieu.images + u" : le jeu en prendra une des siennes",
                                 false});
        }
    }
    exigerDesTitresUniques(themes, problemes);
    arreterSiGrave(appel, problemes);

    const Verrou verrou = verrouiller(appel, lieu.masque);
    std::vector<Fiche> fiches =
        avec(appel, lieu.masque, [&] { return fichesDe(appel.fichiers, lieu.masque); });
    const std::size_t avant = fiches.size();
    for (const Theme &theme : themes) {
        if (lieu.refaisable) {
            avec(appel, lieu.listes, [&] { garder(appel.fichiers, lieu, theme); });
        }
        retirerLeTitre(fiches, theme.titre);
    }
    const bool remplace = fiches.size() < avant;
    const std::vector<Fiche> nouvelles = fichesPour(themes);
    fiches.insert(fiches.end(), nouvelles.begin(), nouvelles.end());
    mettre(appel, lieu, fiches);
    for (std::size_t i = fiches.size() - themes.size(); i < fiches.size(); ++i) {
        appel.sortie << toUtf8(extrait(titreDe(fiches[i].base))) << " : "
                     << toUtf8(compter(fiches[i].base.NbMots, u"mot")) << ", dans "
                     << toUtf8(fichierDe(fiches[i].base)) << '\n';
    }
    appel.sortie << (remplace ? "Une liste du même titre est remplacée.\n" : "")
                 << "Dans le jeu : bouton « Changer de thème ».\n";
    direLesAutresDefauts(appel, lieu);
    return bon;
}

int retirer(Appel &appel) {
    const auto contientUneListe = [&](const Texte &dossier) {
        return appel.fichiers.folderExists(dossier) &&
               appel.fichiers.exists(cheminListe(lieuDe(appel.fichiers, dossier).masque));
    };
    const bool dossierDit = appel.mots.size() > 1 && contientUneListe(appel.mots.back());
    const Lieu lieu = appel.lieu(dernierSi(appel, dossierDit));
    const Verrou verrou = verrouiller(appel, lieu.masque);
    std::vector<Fiche> fiches =
        avec(appel, lieu.masque, [&] { return fichesDe(appel.fichiers, lieu.masque); });
    std::vector<Texte> titres, connus;
    for (const Fiche &fiche : fiches) {
        connus.push_back(titreDe(fiche.base));
        connus.push_back(racineDe(fiche.base));
    }
    for (std::size_t i = 0; i + (dossierDit ? 1 : 0) < appel.mots.size(); ++i) {
        const Texte &nom = appel.mots[i];
        const auto trouvee = std::find_if(fiches.begin(), fiches.end(), [&](const Fiche &fiche) {
            return upper(nom) == racineDe(fiche.base) || upper(nom) == fichierDe(fiche.base) ||
                   memeTitre(nettoyer(nom), titreDe(fiche.base));
        });
        if (trouvee == fiches.end()) {
            const Texte proche = leplusProche(nom, connus);
            throw Arret{mauvaisesBases,
                        u"aucun thème ne s'appelle « " + extrait(nom) + u" »" +
                            (proche.empty()
                                 ? u" : « grimbases lister » les montre tous"
                                 : u" : vouliez-vous dire « " + extrait(proche) + u" » ?")};
        }
        titres.push_back(titreDe(trouvee->base));
    }
    for (const Texte &titre : titres) {
        retirerLeTitre(fiches, titre);
    }
    if (fiches.empty()) {
        throw Arret{mauvaisesBases,
                    u"il ne resterait aucun thème, et le jeu en a besoin d'un : rien n'est changé"};
    }
    for (const Texte &titre : titres) {
        avec(appel, lieu.listes, [&] { return oublier(appel.fichiers, lieu, titre); });
    }
    mettre(appel, lieu, fiches);
    Problemes sansInteret;
    const std::vector<Theme> livres = lireDossier(appel, lieu.modeles, sansInteret);
    for (const Texte &titre : titres) {
        const bool livre = std::any_of(livres.begin(), livres.end(), [&](const Theme &theme) {
            return memeTitre(theme.titre, titre);
        });
        appel.sortie << toUtf8(extrait(titre)) << " : retiré."
                     << (livre ? " Un thème de ce nom vient avec le jeu : « grimbases refaire » ou "
                                 "une mise à jour le remettra."
                               : "")
                     << '\n';
    }
    direLesAutresDefauts(appel, lieu);
    return bon;
}

} // namespace grimoval::outils
