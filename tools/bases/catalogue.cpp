// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/catalogue.h"

#include <map>
#include <ostream>
#include <set>

namespace grimoval::outils {

namespace {

Texte cheminListe(const Texte &dossier) { return asFolder(dossier) + u"GRIMV.LST"; }

Texte nomDeBase(const TypeBase &base) { return upper(trim(base.Fichier.text())) + u".DBS"; }

// Whole records of a file that is only looked at: opening it for records would create a missing
// one.
template <class Enregistrement>
std::vector<Enregistrement> lireEnregistrements(Files &fichiers, const Texte &chemin) {
    const std::string contenu = fichiers.read(chemin);
    constexpr auto taille = static_cast<std::size_t>(Enregistrement::taille);
    std::vector<Enregistrement> enregistrements;
    for (std::size_t place = 0; place + taille <= contenu.size(); place += taille) {
        enregistrements.push_back(
            Enregistrement::lire(std::string_view(contenu).substr(place, taille)));
    }
    return enregistrements;
}

} // namespace

std::vector<TypeBase> lireCatalogue(Files &fichiers, const Texte &dossier) {
    return lireEnregistrements<TypeBase>(fichiers, cheminListe(dossier));
}

void construireBases(Files &fichiers, const std::vector<Theme> &themes, const Texte &dossier) {
    std::string liste;
    int numero = 0;
    for (const Theme &theme : themes) {
        std::string mots;
        for (const Theme::Entree &entree : theme.entrees) {
            TypeMot mot;
            mot.Mot = entree.texte;
            mots += mot.ecrire();
        }
        fichiers.replace(asFolder(dossier) + theme.fichier + u".DBS", mots);
        TypeBase base;
        base.Numero = ++numero;
        base.NbMots = static_cast<int>(theme.entrees.size());
        base.Fichier = theme.fichier;
        base.Titre = theme.titre;
        base.Image = theme.image;
        base.Actif = 1;
        liste += base.ecrire();
    }
    fichiers.replace(cheminListe(dossier), liste);
}

std::vector<Probleme> verifierBases(Files &fichiers, const Texte &dossier) {
    std::vector<Probleme> problemes;
    const auto signaler = [&](const Texte &fichier, int ligne, const Texte &texte) {
        problemes.push_back({fichier, ligne, texte});
    };
    const Texte nomListe = u"GRIMV.LST";
    std::vector<TypeBase> bases;
    try {
        bases = lireCatalogue(fichiers, dossier);
    } catch (const Failure &erreur) {
        signaler(nomListe, 0, u"la liste est illisible : " + failureMeaning(erreur.number));
        return problemes;
    }
    if (bases.empty()) {
        signaler(nomListe, 0, u"la liste est vide : le jeu s'arrête");
        return problemes;
    }
    if (bases.size() > 32767 || bases.back().Numero != static_cast<int>(bases.size())) {
        signaler(nomListe, 0,
                 u"le numéro du dernier enregistrement n'est pas leur nombre : le jeu s'arrête");
    }
    std::map<Texte, int> libres;
    for (const Texte &nom : fichiers.list(dossier, u"*.dbs")) {
        ++libres[upper(nom)];
    }
    int numero = 0, bonnes = 0;
    for (const TypeBase &base : bases) {
        ++numero;
        const Texte nom = nomDeBase(base);
        const bool present = libres[nom] > 0;
        if (present) {
            --libres[nom];
        }
        if (base.Actif == 0) {
            if (present) {
                signaler(nom, numero, u"la base est hors service mais son fichier existe");
            }
            continue;
        }
        if (!present) {
            signaler(nom, numero, u"le fichier de la base manque");
            continue;
        }
        std::vector<TypeMot> mots;
        try {
            mots = lireEnregistrements<TypeMot>(fichiers, asFolder(dossier) + insideFolder(nom));
        } catch (const Failure &erreur) {
            signaler(nom, numero, failureMeaning(erreur.number));
            continue;
        }
        if (mots.empty() || base.NbMots != static_cast<int>(mots.size())) {
            signaler(nom, numero,
                     u"la liste annonce " + decimal(base.NbMots) + u" mots, le fichier en a " +
                         decimal(static_cast<int>(mots.size())));
            continue;
        }
        ++bonnes;
        int rang = 0;
        for (const TypeMot &mot : mots) {
            ++rang;
            const Texte texte = trim(mot.Mot.text());
            const Texte defaut = defautDeLEntree(texte);
            if (!defaut.empty()) {
                signaler(nom, rang, texte + u" : " + defaut);
            }
        }
    }
    if (bonnes == 0) {
        signaler(nomListe, 0, u"aucune base n'est bonne : le jeu s'arrête");
    }
    return problemes;
}

void listerBases(Files &fichiers, const Texte &dossier, std::ostream &sortie) {
    for (const TypeBase &base : lireCatalogue(fichiers, dossier)) {
        const Texte nom = nomDeBase(base);
        sortie << toUtf8(trim(base.Titre.text())) << " (" << toUtf8(nom) << ", "
               << static_cast<int>(base.NbMots) << " mots, image "
               << toUtf8(trim(base.Image.text())) << (base.Actif == 0 ? ", hors service" : "")
               << ")\n";
        if (base.Actif == 0) {
            continue;
        }
        for (const TypeMot &mot :
             lireEnregistrements<TypeMot>(fichiers, asFolder(dossier) + insideFolder(nom))) {
            sortie << "  " << toUtf8(trim(mot.Mot.text())) << '\n';
        }
    }
}

} // namespace grimoval::outils
