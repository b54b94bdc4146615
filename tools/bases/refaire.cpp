// SPDX-License-Identifier: GPL-3.0-or-later
// The command that makes all bases anew.
#include "tools/bases/ecriture.h"
#include "tools/bases/empreintes.h"
#include "tools/bases/listes.h"
#include "tools/bases/noms.h"

#include <algorithm>
#include <map>
#include <ostream>

namespace grimoval::outils {

namespace {

// Of the sources that were kept, those that are good, in the places of those with their titles.
void ajouterLesListes(Appel &appel, const Lieu &lieu, std::vector<Theme> &themes) {
    for (const Gardee &gardee :
         avec(appel, lieu.listes, [&] { return lireLesListes(appel.fichiers, lieu.listes); })) {
        if (graves(gardee.problemes)) {
            dire(gardee.problemes, appel.erreurs);
            appel.erreurs << toUtf8(montrable(gardee.chemin))
                          << " : cette liste est laissée de côté.\n";
            continue;
        }
        std::erase_if(
            themes, [&](const Theme &autre) { return memeTitre(autre.titre, gardee.theme.titre); });
        themes.push_back(gardee.theme);
    }
}

// The bases of a folder that came by another hand, or all of them where there are no sources: they
// stay what they are and get a record.
class BasesDAilleurs {
public:
    BasesDAilleurs(Appel &appel, const Lieu &lieu, const std::vector<Fiche> &themes)
        : appel_(appel), fichiers_(appel.fichiers), lieu_(lieu), themes_(themes),
          connues_(lieu.refaisable ? Empreintes::lire(fichiers_, lieu.registre) : Empreintes()) {}

    void chercher() {
        std::vector<TypeBase> nommees;
        if (fichiers_.exists(cheminListe(lieu_.masque))) {
            nommees = lireCatalogue(fichiers_, lieu_.masque);
        }
        for (const Texte &nom : fichiers_.list(lieu_.masque, u"*.dbs")) {
            restants_.try_emplace(racineDuFichier(nom), nom);
        }
        for (const TypeBase &base : nommees) {
            examiner(base, true);
        }
        // A name that grimbases would not give stands where the list has it, and is offered by
        // nobody else.
        std::erase_if(restants_, [](const auto &reste) { return !estUneRacine(reste.first); });
        while (!restants_.empty()) {
            TypeBase base;
            base.Fichier = restants_.begin()->first;
            base.Titre = titreLibre(titreDuNom(restants_.begin()->second));
            examiner(base, false);
        }
    }

    std::vector<Fiche> fiches;
    std::set<Texte> laissees; // stems of what cannot be played

private:
    void examiner(TypeBase base, bool nommee) {
        const auto fichier = restants_.extract(racineDe(base));
        if (fichier.empty()) {
            return;
        }
        const Texte racine = fichier.key();
        const std::string contenu = lireSiJouable(asFolder(lieu_.masque) + fichier.mapped());
        if (connues_.connait(racine, contenu) || (!nommee && estDUnTheme(contenu))) {
            return;
        }
        if (nommee && estUnTitre(titreDe(base))) {
            if (!connues_.vides() && !estDUnTheme(contenu)) {
                dire(base, "cette base n'était plus celle de sa liste ; elle est refaite.");
            }
            return;
        }
        if (contenu.empty()) {
            laissees.insert(racine);
            dire(base,
                 "cette base doit avoir de 1 à 32767 mots lisibles ; elle est laissée de côté.");
            return;
        }
        if (titreDe(base).empty()) {
            base.Titre = titreLibre(titreDuNom(fichierDe(base)));
        }
        base.NbMots = static_cast<int>(contenu.size() / TypeMot::taille);
        base.Actif = 1;
        fiches.push_back({base});
        if (lieu_.refaisable || !nommee) {
            dire(base, nommee
                           ? "cette base ne vient d'aucune liste ; elle est gardée."
                           : "cette base n'était dans aucune liste ; le jeu l'offre maintenant.");
        }
    }
    std::string lireSiJouable(const Texte &chemin) {
        try {
            const std::int64_t nombre = fichiers_.length(chemin) / TypeMot::taille;
            return nombre >= 1 && nombre <= leplusDeMots ? fichiers_.read(chemin) : std::string();
        } catch (const Failure &) {
            return {};
        }
    }
    void dire(const TypeBase &base, const char *suite) {
        appel_.sortie << toUtf8(extrait(fichierDe(base))) << " (" << toUtf8(extrait(titreDe(base)))
                      << ") : " << suite << '\n';
    }
    bool estDUnTheme(const std::string &contenu) const {
        return std::any_of(themes_.begin(), themes_.end(),
                           [&](const Fiche &fiche) { return fiche.mots == contenu; });
    }
    bool estUnTitre(const Texte &titre) const {
        const auto pareil = [&](const Fiche &fiche) {
            return memeTitre(titreDe(fiche.base), titre);
        };
        return std::any_of(themes_.begin(), themes_.end(), pareil);
    }
    // The title itself, or the first of "Titre 2", "Titre 3", ... that nobody has.
    Texte titreLibre(const Texte &titre) const {
        const auto pris = [&](const Texte &essai) {
            return estUnTitre(essai) ||
                   std::any_of(fiches.begin(), fiches.end(), [&](const Fiche &fiche) {
                       return memeTitre(titreDe(fiche.base), essai);
                   });
        };
        Texte essai = titre;
        for (int numero = 2; pris(essai); ++numero) {
            essai = titre.substr(0, largeurTitre - 6) + u" " + decimal(numero);
        }
        return essai;
    }

    Appel &appel_;
    Files &fichiers_;
    const Lieu &lieu_;
    const std::vector<Fiche> &themes_;
    const Empreintes connues_;
    std::map<Texte, Texte> restants_; // files by their stems, not looked at yet
};

} // namespace

int refaire(Appel &appel) {
    const Lieu lieu = appel.lieu(appel.mots.empty() ? nullptr : &appel.mots.front());
    if (lieu.refaisable && !appel.fichiers.folderExists(lieu.masque)) {
        avec(appel, lieu.masque, [&] { appel.fichiers.makeFolder(lieu.masque); });
    }
    const Verrou verrou = verrouiller(appel, lieu.masque);
    std::vector<Fiche> fiches;
    if (lieu.refaisable) {
        Problemes problemes;
        std::vector<Theme> themes = lireDossier(appel, lieu.modeles, problemes);
        exigerDesTitresUniques(themes, problemes);
        arreterSiGrave(appel, problemes);
        avec(appel, lieu.listes, [&] { effacerLesRestes(appel.fichiers, lieu); });
        ajouterLesListes(appel, lieu, themes);
        donnerLesRacines(themes);
        fiches = fichesPour(themes);
    }
    BasesDAilleurs autres(appel, lieu, fiches);
    avec(appel, lieu.masque, [&] {
        effacerLesRestesDesBases(appel.fichiers, lieu.masque,
                                 lieu.refaisable ? lieu.registre : Texte());
        autres.chercher();
    });
    fiches.insert(fiches.end(), autres.fiches.begin(), autres.fiches.end());
    if (fiches.empty()) {
        throw Arret{mauvaisesBases,
                    montrable(lieu.masque) +
                        u" : il n'y a ni liste de mots ni base ; « grimbases ajouter » y "
                        u"met votre liste"};
    }
    mettre(appel, lieu, fiches, autres.laissees);
    const bool juste = dire(verifierBases(appel.fichiers, lieu.masque), appel.erreurs);
    return juste ? bon : mauvaisesBases;
}

} // namespace grimoval::outils
