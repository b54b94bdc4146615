// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/catalogue.h"

#include "tools/bases/empreintes.h"
#include "tools/bases/noms.h"

#include <algorithm>

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
    Installation(Files &fichiers, const Texte &dossier, std::vector<Fiche> &fiches,
                 const Menage &menage)
        : fichiers_(fichiers), dossier_(asFolder(dossier)), fiches_(fiches), menage_(menage) {
        if (fichiers.exists(cheminListe(dossier))) {
            anciennes_ = lireCatalogue(fichiers, dossier);
        }
        for (const TypeBase &base : anciennes_) {
            nommees_.insert(racineDe(base));
            if (base.Actif != 0) {
                vivantes_.insert(racineDe(base));
            }
        }
        if (!menage.registre.empty()) {
            registre_ = Empreintes::lire(fichiers, menage.registre);
        }
    }

    void ecrireLesBases() {
        const std::vector<const Fiche *> neuves = donnerLesRacines();
        ecrireLeJournal(neuves);
        for (const Fiche *fiche : neuves) {
            ecrites_.push_back(fichier(racineDe(fiche->base)));
            fichiers_.replace(ecrites_.back(), *fiche->mots);
        }
        fichiers_.flushFolder(dossier_);
    }
    // What the old list names may be in the folder until all is done.
    void tenirLeRegistre(const std::set<Texte> &anciennes) {
        if (menage_.registre.empty()) {
            return;
        }
        Empreintes registre;
        for (const Texte &racine : anciennes) {
            registre.reprendre(racine, registre_);
        }
        for (const Fiche &fiche : fiches_) {
            if (fiche.mots) {
                registre.noter(racineDe(fiche.base), *fiche.mots);
            } else {
                registre.reprendre(racineDe(fiche.base), registre_);
            }
        }
        if (registre.texte() != registre_.texte()) {
            fichiers_.replace(menage_.registre, registre.texte());
            registre_ = registre;
        }
    }
    void tenirLeRegistre() { tenirLeRegistre(nommees_); }
    void changerLaListe() {
        std::string liste;
        int numero = 0;
        for (Fiche &fiche : fiches_) {
            fiche.base.Numero = ++numero;
            liste += fiche.base.ecrire();
        }
        fichiers_.replace(cheminListe(dossier_), liste);
    }
    void effacer() {
        for (const Texte &nom : quiPartent()) {
            fichiers_.remove(dossier_ + nom);
        }
        tenirLeRegistre({});
        effacerLeJournal();
    }
    void annuler() {
        for (const Texte &chemin : ecrites_) {
            if (fichiers_.exists(chemin)) {
                fichiers_.remove(chemin);
            }
        }
        effacerLeJournal();
    }
    // What a process that died while writing has left.
    void effacerLesRestes() {
        for (const Texte &motif : {Texte(u"*.DBS~*"), Texte(u"GRIMV.LST~*"), journal + u"~*"}) {
            effacer(dossier_, motif);
        }
        const Texte registre = nomSeul(menage_.registre);
        effacer(menage_.registre.substr(0, menage_.registre.size() - registre.size()),
                registre + u"~*");
        const Empreintes encours = Empreintes::lire(fichiers_, dossier_ + journal);
        for (const Texte &nom : fichiers_.list(dossier_, u"*.dbs")) {
            const Texte racine = racineDuFichier(nom);
            if (!nommees_.contains(racine) &&
                (encours.connait(racine) || registre_.connait(racine))) {
                const std::string contenu = lire(nom);
                if (encours.connait(racine, contenu) || registre_.connait(racine, contenu)) {
                    fichiers_.remove(dossier_ + nom);
                }
            }
        }
    }

private:
    Texte fichier(const Texte &racine) const { return dossier_ + racine + fin; }

    void effacer(const Texte &dossier, const Texte &motif) {
        if (dossier.empty()) {
            return;
        }
        for (const Texte &nom : fichiers_.list(dossier, motif)) {
            fichiers_.remove(dossier + nom);
        }
    }

    // A file that is longer than any base is none of ours, whatever is in it.
    std::string lire(const Texte &nom) {
        constexpr std::int64_t leplusLong = leplusDeMots * TypeMot::taille;
        const Texte chemin = dossier_ + nom;
        return fichiers_.length(chemin) > leplusLong ? std::string() : fichiers_.read(chemin);
    }

    // The themes whose words must be written.
    std::vector<const Fiche *> donnerLesRacines() {
        for (const Fiche &fiche : fiches_) {
            if (!fiche.mots) {
                prises_.insert(racineDe(fiche.base));
            }
        }
        std::vector<const Fiche *> neuves;
        for (Fiche &fiche : fiches_) {
            if (fiche.mots) {
                const Texte racine = racinePour(fiche);
                prises_.insert(racine);
                fiche.base.Fichier = racine;
                fiche.base.NbMots = static_cast<int>(fiche.mots->size() / TypeMot::taille);
                if (!memesMots(racine, *fiche.mots)) {
                    neuves.push_back(&fiche);
                }
            }
        }
        return neuves;
    }
    // The names of files that the new list has no place for.
    std::vector<Texte> quiPartent() {
        std::vector<Texte> noms = fichiers_.list(dossier_, u"*.dbs");
        std::erase_if(noms, [this](const Texte &nom) {
            const Texte racine = racineDuFichier(nom);
            return prises_.contains(racine) || !vivantes_.contains(racine) ||
                   menage_.laisser.contains(racine);
        });
        return noms;
    }
    // Whoever comes after a death finds in it which files are nobody's.
    void ecrireLeJournal(const std::vector<const Fiche *> &neuves) {
        Empreintes encours;
        for (const Fiche *fiche : neuves) {
            encours.noter(racineDe(fiche->base), *fiche->mots);
        }
        for (const Texte &nom : quiPartent()) {
            encours.noter(racineDuFichier(nom), lire(nom));
        }
        if (!encours.vides()) {
            fichiers_.replace(dossier_ + journal, encours.texte());
            fichiers_.flushFolder(dossier_);
        }
    }
    void effacerLeJournal() {
        if (fichiers_.exists(dossier_ + journal)) {
            fichiers_.remove(dossier_ + journal);
        }
    }
    bool memesMots(const Texte &racine, const std::string &mots) {
        const Texte chemin = fichier(racine);
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
        return fichiers_.exists(fichier(racine)) ? memesMots(racine, mots)
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
    const Menage &menage_;
    const Texte journal = u"ENCOURS.TXT";
    Empreintes registre_;
    std::vector<TypeBase> anciennes_;
    std::set<Texte> nommees_;  // by the old list
    std::set<Texte> vivantes_; // of these, what the game plays
    std::set<Texte> prises_;   // by the new one
    std::vector<Texte> ecrites_;
};

} // namespace

Texte racineDuFichier(const Texte &nom) { return upper(nom.substr(0, nom.size() - fin.size())); }
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

void installer(Files &fichiers, const Texte &dossier, std::vector<Fiche> &fiches,
               const Menage &menage) {
    if (fiches.size() > leplusDeBases) {
        throw Failure(failure::overflow);
    }
    Installation installation(fichiers, dossier, fiches, menage);
    installation.effacerLesRestes();
    try {
        installation.ecrireLesBases();
        installation.tenirLeRegistre();
        installation.changerLaListe();
    } catch (const Failure &) {
        installation.annuler();
        throw;
    }
    // From here on the new list counts, whatever fails.
    fichiers.flushFolder(dossier);
    installation.effacer();
}

void effacerLesRestesDesBases(Files &fichiers, const Texte &dossier, const Texte &registre) {
    std::vector<Fiche> aucune;
    Installation(fichiers, dossier, aucune, Menage{registre, {}}).effacerLesRestes();
}

void construireBases(Files &fichiers, const std::vector<Theme> &themes, const Texte &dossier) {
    std::vector<Fiche> fiches = fichesPour(themes);
    installer(fichiers, dossier, fiches);
}

} // namespace grimoval::outils
