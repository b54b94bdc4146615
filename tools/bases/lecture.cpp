// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that look at bases, and what all commands share.
#include "tools/bases/catalogue.h"
#include "tools/bases/commandes.h"
#include "tools/bases/noms.h"

#include <algorithm>
#include <ostream>
#include <unistd.h>

namespace grimoval::outils {

namespace {

Theme themeDe(Appel &appel, const Texte &dossier, const TypeBase &base) {
    Theme theme;
    theme.fichier = racineDe(base);
    theme.titre = titreDe(base);
    theme.image = trim(base.Image.text());
    for (const TypeMot &mot : lireMots(appel.fichiers, dossier, base)) {
        theme.entrees.push_back({0, trim(mot.Mot.text())});
    }
    return theme;
}

bool pareils(const Theme &un, const Theme &autre) {
    const auto texte = [](const Theme::Entree &entree) { return entree.texte; };
    return un.titre == autre.titre && un.image == autre.image &&
           std::ranges::equal(un.entrees, autre.entrees, {}, texte, texte);
}

} // namespace

Lieu Appel::lieu(const Texte *dossier) {
    const Texte choisi = dossier != nullptr ? *dossier : jeuInstalle();
    if (choisi.empty()) {
        throw Arret{mauvaisAppel, u"le jeu n'est pas à sa place : dites en plus le dossier de ses "
                                  u"bases, par exemple build/grimoval/MASK"};
    }
    return avec(*this, choisi, [&] { return lieuDe(fichiers, choisi); });
}

Texte raison(const Appel &appel, const Texte &chemin, int numero) {
    if (numero == failure::permissionDenied && ::geteuid() != 0) {
        return montrable(chemin) + u" : il faut le mot de passe de l'administrateur. Recommencez " +
               (appel.ligne ? u"en mettant sudo devant :\n  sudo " + *appel.ligne
                            : Texte(u"la même commande en mettant sudo devant."));
    }
    return montrable(chemin) + u" : " + failureMeaning(numero) + u" (erreur " + decimal(numero) +
           u")";
}

void arreterSiGrave(Appel &appel, const Problemes &problemes) {
    if (!dire(problemes, appel.erreurs)) {
        throw Arret{mauvaisesBases, u"rien n'est changé."};
    }
}

Texte compter(int nombre, const Texte &un) {
    return decimal(nombre) + u" " + un + (nombre > 1 ? u"s" : u"");
}

int verifier(Appel &appel) {
    const Lieu lieu = appel.lieu(appel.mots.empty() ? nullptr : &appel.mots.front());
    const bool juste = dire(verifierBases(appel.fichiers, lieu.masque), appel.erreurs);
    if (!juste) {
        throw Arret{mauvaisesBases,
                    lieu.refaisable || !appel.fichiers.list(lieu.masque, u"*.dbs").empty()
                        ? Texte(u"« grimbases refaire » peut recréer la liste des bases.")
                        : Texte(u"il n'y a aucune base ici.")};
    }
    int mots = 0;
    const std::vector<Fiche> fiches = fichesDe(appel.fichiers, lieu.masque);
    for (const Fiche &fiche : fiches) {
        mots += static_cast<int>(fiche.base.NbMots);
    }
    appel.sortie << toUtf8(compter(static_cast<int>(fiches.size()), u"thème")) << ", "
                 << toUtf8(compter(mots, u"mot")) << " : le jeu acceptera tout.\n";
    return bon;
}

int lister(Appel &appel) {
    const Lieu lieu = appel.lieu(appel.mots.empty() ? nullptr : &appel.mots.front());
    avec(appel, lieu.masque, [&] {
        for (const TypeBase &base : lireCatalogue(appel.fichiers, lieu.masque)) {
            const Texte image = trim(base.Image.text());
            appel.sortie << toUtf8(extrait(titreDe(base))) << " ("
                         << toUtf8(extrait(fichierDe(base))) << ", "
                         << toUtf8(compter(base.NbMots, u"mot"))
                         << (image.empty() ? "" : ", image ") << toUtf8(extrait(image))
                         << (base.Actif == 0 ? ", hors service" : "") << ")\n";
            if (base.Actif == 0) {
                continue;
            }
            for (const TypeMot &mot : lireMots(appel.fichiers, lieu.masque, base)) {
                appel.sortie << "  " << toUtf8(extrait(trim(mot.Mot.text()))) << '\n';
            }
        }
    });
    return bon;
}

int extraire(Appel &appel) {
    const Lieu lieu = appel.lieu(appel.mots.size() > 1 ? &appel.mots.front() : nullptr);
    const Texte cible = asFolder(appel.mots.back());
    avec(appel, cible, [&] {
        if (!appel.fichiers.folderExists(cible)) {
            appel.fichiers.makeFolder(appel.mots.back());
        }
    });
    Problemes problemes;
    for (const Fiche &fiche :
         avec(appel, lieu.masque, [&] { return fichesDe(appel.fichiers, lieu.masque); })) {
        const Texte nom = racineDe(fiche.base) + u".txt";
        if (!estUneRacine(racineDe(fiche.base))) {
            problemes.push_back({extrait(nom), 0, u"ce nom n'est pas celui d'une base"});
            continue;
        }
        const Theme theme = avec(appel, fichierDe(fiche.base),
                                 [&] { return themeDe(appel, lieu.masque, fiche.base); });
        const std::string texte = ecrireTheme(theme);
        const Texte chemin = cible + nom;
        avec(appel, chemin, [&] {
            if (!appel.fichiers.exists(chemin)) {
                appel.fichiers.replace(chemin, texte);
            } else if (appel.fichiers.read(chemin) != texte) {
                problemes.push_back({nom, 0,
                                     u"ce fichier existe déjà, il reste ce qu'il est : "
                                     u"choisissez un dossier vide"});
            }
        });
        // What the game takes and a source does not: a word too short, in small letters, twice.
        const std::size_t avant = problemes.size();
        const Theme relu = lireTexte(texte, nom, problemes);
        if (avant == problemes.size() && !pareils(theme, relu)) {
            problemes.push_back(
                {nom, 0, u"ce texte donnera une base un peu différente de celle-ci", false});
        }
    }
    return dire(problemes, appel.erreurs) ? bon : mauvaisesBases;
}

} // namespace grimoval::outils
