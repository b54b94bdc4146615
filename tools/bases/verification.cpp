// SPDX-License-Identifier: GPL-3.0-or-later
// What the game would refuse in a folder, told before it does.
#include "tools/bases/catalogue.h"

#include <map>

namespace grimoval::outils {

namespace {

class Verification {
public:
    Verification(Files &fichiers, const Texte &dossier) : fichiers_(fichiers), dossier_(dossier) {}

    Problemes faire() {
        std::vector<TypeBase> bases;
        try {
            bases = lireCatalogue(fichiers_, dossier_);
        } catch (const Failure &erreur) {
            signaler(nomListe, 0, u"la liste est illisible : " + failureMeaning(erreur.number));
            return problemes_;
        }
        if (bases.empty()) {
            signaler(nomListe, 0, u"la liste est vide : le jeu s'arrête");
            return problemes_;
        }
        if (bases.size() > leplusDeBases || bases.back().Numero != static_cast<int>(bases.size())) {
            signaler(
                nomListe, 0,
                u"le numéro du dernier enregistrement n'est pas leur nombre : le jeu s'arrête");
        }
        for (const Texte &nom : fichiers_.list(dossier_, u"*.dbs")) {
            ++libres_[upper(nom)];
        }
        int numero = 0, bonnes = 0;
        for (const TypeBase &base : bases) {
            bonnes += examiner(base, ++numero) ? 1 : 0;
        }
        if (bonnes == 0) {
            signaler(nomListe, 0, u"aucune base n'est bonne : le jeu s'arrête");
        }
        for (const auto &[nom, nombre] : libres_) {
            if (nombre > 0) {
                problemes_.push_back({nom, 0, u"aucun thème ne se sert de ce fichier", false});
            }
        }
        return problemes_;
    }

private:
    void signaler(const Texte &fichier, int ligne, const Texte &texte) {
        problemes_.push_back({extrait(fichier), ligne, texte});
    }

    // False for a base that the chooser does not show.
    bool examiner(const TypeBase &base, int numero) {
        const Texte nom = fichierDe(base);
        const auto trouve = libres_.find(nom);
        const bool present = trouve != libres_.end() && trouve->second > 0;
        if (present) {
            --trouve->second;
        }
        if (base.Actif == 0) {
            if (present) {
                signaler(nom, numero, u"la base est hors service mais son fichier existe");
            }
            return false;
        }
        if (!present) {
            signaler(nom, numero, u"le fichier de la base manque");
            return false;
        }
        std::vector<TypeMot> mots;
        try {
            mots = lireMots(fichiers_, dossier_, base);
        } catch (const Failure &erreur) {
            signaler(nom, numero, failureMeaning(erreur.number));
            return false;
        }
        if (mots.empty() || base.NbMots != static_cast<int>(mots.size())) {
            signaler(nom, numero,
                     u"la liste annonce " + decimal(base.NbMots) + u" mots, le fichier en a " +
                         decimal(static_cast<int>(mots.size())));
            return false;
        }
        int rang = 0;
        for (const TypeMot &mot : mots) {
            ++rang;
            const Texte texte = trim(mot.Mot.text());
            const Texte defaut = defautDeLEntree(texte);
            if (!defaut.empty()) {
                signaler(nom, rang, extrait(texte) + u" : " + defaut);
            }
        }
        return true;
    }

    const Texte nomListe = u"GRIMV.LST";
    Files &fichiers_;
    const Texte dossier_;
    std::map<Texte, int> libres_; // files that no record has claimed
    Problemes problemes_;
};

} // namespace

Problemes verifierBases(Files &fichiers, const Texte &dossier) {
    return Verification(fichiers, dossier).faire();
}

} // namespace grimoval::outils
