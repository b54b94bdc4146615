// SPDX-License-Identifier: GPL-3.0-or-later
// The check of the catalogue GRIMV.LST against the base files that really lie in the folder. A
// catalogue that cannot be trusted stops the program: the game cannot make it anew.
#include "bases/FLstTitre.h"

#include <optional>
#include <unordered_map>

namespace grimoval {

namespace {

constexpr int listeDefectueuse = 1601; // raised here, beside the numbers of the file layer
constexpr std::u16string_view nomListe = u"GRIMV.LST";
constexpr std::u16string_view nomCopie = u"~GRIMV.TMP";

// Title, 50 blanks, file, 10 blanks, picture: fixed columns, of which only the first is for the
// eye.
Texte entreeDe(const TypeBase &base, const Texte &fichier) {
    const Texte blancs(10, u' ');
    Texte entree = base.Titre.text();
    for (int i = 0; i < 5; ++i) {
        entree += blancs;
    }
    return entree + fichier + blancs + base.Image.text();
}

} // namespace

// TmpLstFich as a bag of capitals, so that claiming a name does not search the whole list: the
// copies of one name are claimed in order.
class FLstTitre::NomsLibres {
public:
    explicit NomsLibres(const std::vector<Texte> &noms) : noms_(noms), restants_(noms.size()) {
        for (std::size_t i = noms.size(); i > 0; --i) {
            places_[upper(noms[i - 1])].push_back(i - 1);
        }
        libre_.assign(noms.size(), true);
    }

    bool vide() const { return restants_ == 0; }

    // FichierPresent: true if the name is there, which claims it.
    bool prendre(const Texte &nom) {
        const auto trouve = places_.find(upper(trim(nom)));
        if (trouve == places_.end() || trouve->second.empty()) {
            return false;
        }
        libre_[trouve->second.back()] = false;
        trouve->second.pop_back();
        --restants_;
        return true;
    }

    std::vector<Texte> reste() const {
        std::vector<Texte> noms;
        for (std::size_t i = 0; i < noms_.size(); ++i) {
            if (libre_[i]) {
                noms.push_back(noms_[i]);
            }
        }
        return noms;
    }

private:
    std::vector<Texte> noms_;
    std::unordered_map<Texte, std::vector<std::size_t>> places_; // the first in order at the back
    std::vector<bool> libre_;
    std::size_t restants_;
};

void FLstTitre::traiterErreurListe(int numero) {
    if (numero == failure::windowUnloaded) {
        throw Failure(numero);
    }
    const bool fatale = numero == failure::badFileNameOrNumber || numero == failure::fileNotFound ||
                        numero == failure::badRecordNumber || numero == failure::badFileName ||
                        numero == listeDefectueuse;
    Texte texte;
    if (fatale) {
        ErreurListe = true;
        texte = u"Le fichier " + Texte(nomListe) + u" est introuvable ou défectueux." +
                g.SautLigne + g.SautLigne +
                u"Pour assurer le bon fonctionnement du \"Grimoval\" :" + g.SautLigne +
                u" Il est nécessaire de recréer la liste des bases," +
                u" avec le programme de Gestion des Bases.";
    } else {
        texte = u"L'ERREUR " + decimal(numero) + u" est survenue.";
    }
    screen().beep();
    screen().message(texte, MessageIcon::critical, u"ERREUR : " + decimal(numero));
}

void FLstTitre::AvertirListe() {
    screen().message(
        u"Attention ! les informations concernant les fichiers de bases sont erronés." +
            g.SautLigne + u"Il est vivement conseillé de recréer la liste des bases.",
        MessageIcon::critical);
}

void FLstTitre::ChargerListeBases() {
    try {
        verifierListe();
    } catch (const Failure &erreur) {
        // The window went during the check: there is nothing left to fill.
        if (erreur.number != failure::windowUnloaded) {
            throw;
        }
    }
}

void FLstTitre::verifierListe() {
    ListeOk = false;
    ErreurListe = false;
    Files &fichiers = g.services.files;
    const Texte liste = g.dossiers.DossierBases + Texte(nomListe);
    const Texte copie = g.dossiers.DossierTemp + Texte(nomCopie);
    const auto traiter = [this](int numero) { traiterErreurListe(numero); };
    const auto etape = [&traiter](auto action) { essayer(action, traiter); };

    LstTitre.Clear();
    etape([&] { RecordFile(fichiers, liste, TypeBase::taille); });
    std::optional<std::int64_t> longueur;
    etape([&] { longueur = fichiers.length(liste); });
    if (longueur == 0) {
        traiter(listeDefectueuse);
        etape([&] { fichiers.remove(liste); });
    }
    if (ErreurListe) {
        g.services.application.end();
    }
    if (LstFichier.ListCount() == 0) {
        screen().message(u"Aucun fichier de bases .DBS n'est trouvé dans le répertoire " +
                             g.dossiers.DossierBases,
                         MessageIcon::information);
        return;
    }
    NomsLibres libres(LstFichier.Items);
    std::optional<WorkFile> travail;
    std::optional<RecordFile> catalogue;
    etape([&] {
        const std::string octets = fichiers.read(liste);
        travail.emplace(fichiers, copie);
        travail->write(octets);
    });
    etape([&] {
        if (!travail) { // its opening makes a missing copy
            travail.emplace(fichiers, copie);
        }
        catalogue.emplace(travail->records(TypeBase::taille));
    });
    const auto enleverCopie = [&] {
        catalogue.reset();
        etape([&] { travail ? travail->remove() : fichiers.remove(copie); });
    };

    // The failure exit: the copy goes, and the program with it.
    const auto arreterSiErreur = [&] {
        if (ErreurListe) {
            enleverCopie();
            g.services.application.end();
        }
    };
    arreterSiErreur();

    Int16 nombre;
    const auto lire = [&](int numero) {
        etape([&] {
            if (!catalogue) {
                throw Failure(failure::badFileNameOrNumber);
            }
            EnregBase = TypeBase::lire(catalogue->read(numero));
        });
    };
    etape([&] {
        const std::int64_t enregistrements = catalogue ? catalogue->count() : 0;
        if (enregistrements > 32767) {
            throw Failure(failure::overflow);
        }
        nombre = static_cast<int>(enregistrements);
    });
    lire(nombre);
    if (!ErreurListe && EnregBase.Numero != nombre) {
        traiter(listeDefectueuse);
    }
    arreterSiErreur();

    std::vector<Texte> entrees;
    for (int i = 1; i <= nombre; ++i) {
        lire(i);
        NomFichierCourant = upper(trim(EnregBase.Fichier.text())) + u".DBS";
        if (libres.vide()) {
            break;
        }
        examiner(libres.prendre(NomFichierCourant), entrees);
        arreterSiErreur();
    }
    TmpLstFich.Items = libres.reste();
    sortFrench(entrees);
    LstTitre.Items = entrees;

    enleverCopie();
    if (ListeOk) {
        LstTitre.ListIndex = 0;
        return;
    }
    etape([&] { fichiers.remove(liste); });
    CmdTitre[1].Inactif = true;
    LstTitre.Enabled = false;
    g.services.application.end();
}

void FLstTitre::examiner(bool present, std::vector<Texte> &entrees) {
    if (EnregBase.Actif == 0 ? present : !present) {
        AvertirListe();
        return;
    }
    if (EnregBase.Actif == 0) {
        return;
    }
    Int16 mots;
    essayer([&] { mots = CompterMots(g, insideFolder(NomFichierCourant)); },
            [this](int numero) { traiterErreurListe(numero); });
    if (ErreurListe) {
        return;
    }
    if (mots == 0 || mots != EnregBase.NbMots) {
        AvertirListe();
        return;
    }
    entrees.push_back(entreeDe(EnregBase, NomFichierCourant));
    ListeOk = true;
}

} // namespace grimoval
