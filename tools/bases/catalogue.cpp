// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/catalogue.h"

#include "tools/bases/noms.h"

#include <algorithm>
#include <set>

namespace grimoval::outils {

namespace {

const Texte fin = u".DBS";

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

// What takes the place of the set in a folder.
class Installation {
public:
    Installation(Files &fichiers, const Texte &dossier, std::vector<Fiche> &fiches)
        : fichiers_(fichiers), dossier_(asFolder(dossier)), fiches_(fiches) {
        if (fichiers.exists(cheminListe(dossier))) {
            anciennes_ = lireCatalogue(fichiers, dossier);
        }
        for (const TypeBase &base : anciennes_) {
            nommees_.insert(racineDe(base));
        }
    }

    void ecrireLesBases() {
        for (const Fiche &fiche : fiches_) {
            if (!fiche.mots) {
                prises_.insert(racineDe(fiche.base));
            }
        }
        for (Fiche &fiche : fiches_) {
            if (fiche.mots) {
                const Texte racine = racinePour(fiche);
                prises_.insert(racine);
                fiche.base.Fichier = racine;
                fiche.base.NbMots = static_cast<int>(fiche.mots->size() / TypeMot::taille);
                if (!memesMots(racine, *fiche.mots)) {
                    fichiers_.replace(dossier_ + racine + fin, *fiche.mots);
                    ecrites_.push_back(dossier_ + racine + fin);
                }
            }
        }
        fichiers_.flushFolder(dossier_);
    }
    void changerLaListe() {
        std::string liste;
        int numero = 0;
        for (Fiche &fiche : fiches_) {
            fiche.base.Numero = ++numero;
            liste += fiche.base.ecrire();
        }
        fichiers_.replace(cheminListe(dossier_), liste);
    }
    void effacer(bool toutes) {
        for (const Texte &nom : fichiers_.list(dossier_, u"*.dbs")) {
            const Texte racine = upper(nom.substr(0, nom.size() - fin.size()));
            if (!prises_.contains(racine) && (toutes || nommees_.contains(racine))) {
                fichiers_.remove(dossier_ + nom);
            }
        }
    }
    void annuler() {
        for (const Texte &chemin : ecrites_) {
            fichiers_.remove(chemin);
        }
    }
    // What a process that died while writing has left.
    void effacerLesRestes() {
        for (const Texte &motif : {Texte(u"*.DBS~*"), Texte(u"GRIMV.LST~*")}) {
            for (const Texte &nom : fichiers_.list(dossier_, motif)) {
                fichiers_.remove(dossier_ + nom);
            }
        }
    }

private:
    bool memesMots(const Texte &racine, const std::string &mots) {
        const Texte chemin = dossier_ + racine + fin;
        return fichiers_.exists(chemin) &&
               fichiers_.length(chemin) == static_cast<std::int64_t>(mots.size()) &&
               fichiers_.read(chemin) == mots;
    }
    // A file in the folder serves only where it holds these very words: until the list is switched
    // the old one counts.
    bool libre(const Texte &racine, const std::string &mots) {
        if (prises_.contains(racine)) {
            return false;
        }
        return fichiers_.exists(dossier_ + racine + fin) ? memesMots(racine, mots)
                                                         : !nommees_.contains(racine);
    }
    Texte racinePour(const Fiche &fiche) {
        for (const TypeBase &ancienne : anciennes_) {
            const Texte racine = racineDe(ancienne);
            if (memeTitre(titreDe(ancienne), titreDe(fiche.base)) && estUneRacine(racine) &&
                libre(racine, *fiche.mots)) {
                return racine;
            }
        }
        return racineLibre(racineDe(fiche.base),
                           [&](const Texte &racine) { return libre(racine, *fiche.mots); });
    }

    Files &fichiers_;
    const Texte dossier_;
    std::vector<Fiche> &fiches_;
    std::vector<TypeBase> anciennes_;
    std::set<Texte> nommees_; // by the old list
    std::set<Texte> prises_;  // by the new one
    std::vector<Texte> ecrites_;
};

} // namespace

Texte cheminListe(const Texte &dossier) { return asFolder(dossier) + u"GRIMV.LST"; }
Texte racineDe(const TypeBase &base) { return upper(trim(base.Fichier.text())); }
Texte titreDe(const TypeBase &base) { return trim(base.Titre.text()); }
Texte fichierDe(const TypeBase &base) { return racineDe(base) + fin; }

std::vector<TypeBase> lireCatalogue(Files &fichiers, const Texte &dossier) {
    return lireEnregistrements<TypeBase>(fichiers, cheminListe(dossier));
}

std::vector<TypeMot> lireMots(Files &fichiers, const Texte &dossier, const TypeBase &base) {
    return lireEnregistrements<TypeMot>(fichiers,
                                        asFolder(dossier) + insideFolder(fichierDe(base)));
}

std::vector<Fiche> fichesPour(const std::vector<Theme> &themes) {
    std::vector<Fiche> fiches;
    for (const Theme &theme : themes) {
        std::string mots;
        for (const Theme::Entree &entree : theme.entrees) {
            TypeMot mot;
            mot.Mot = entree.texte;
            mots += mot.ecrire();
        }
        TypeBase base;
        base.Fichier = theme.fichier;
        base.Titre = theme.titre;
        base.Image = theme.image;
        base.Actif = 1;
        fiches.push_back({base, mots});
    }
    return fiches;
}

std::vector<Fiche> fichesDe(Files &fichiers, const Texte &dossier) {
    std::vector<Fiche> fiches;
    if (fichiers.exists(cheminListe(dossier))) {
        for (const TypeBase &base : lireCatalogue(fichiers, dossier)) {
            if (base.Actif != 0) {
                fiches.push_back({base});
            }
        }
    }
    return fiches;
}

void installer(Files &fichiers, const Texte &dossier, std::vector<Fiche> &fiches, bool seul) {
    if (fiches.size() > leplusDeBases) {
        throw Failure(failure::overflow);
    }
    Installation installation(fichiers, dossier, fiches);
    installation.effacerLesRestes();
    try {
        installation.ecrireLesBases();
        installation.changerLaListe();
    } catch (const Failure &) {
        installation.annuler();
        throw;
    }
    // From here on the new list counts, whatever fails.
    fichiers.flushFolder(dossier);
    installation.effacer(seul);
}

void construireBases(Files &fichiers, const std::vector<Theme> &themes, const Texte &dossier) {
    std::vector<Fiche> fiches = fichesPour(themes);
    installer(fichiers, dossier, fiches);
}

} // namespace grimoval::outils
