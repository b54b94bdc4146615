// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/theme.h"

#include "tools/bases/noms.h"
#include "tools/bases/texte.h"

#include <algorithm>
#include <map>
#include <set>

namespace grimoval::outils {

namespace {

constexpr std::size_t largeurEntree = 30;
constexpr std::size_t leplusDeMots = 32767;
constexpr std::int64_t plusGrosseSource = 8 << 20; // bytes: beyond all the words that a base holds
constexpr int moinsDeLettres = 3;                  // masked, or there is nothing to guess

// The first character that the files of the game do not hold.
std::size_t placeInconnue(const Texte &texte) {
    const auto trouve = std::find_if(texte.begin(), texte.end(),
                                     [](char16_t c) { return isControl(c) || ansiCode(c) < 0; });
    return trouve == texte.end() ? Texte::npos : static_cast<std::size_t>(trouve - texte.begin());
}

Texte caractereInconnu(const Texte &texte, std::size_t place) {
    return u"le jeu ne connaît pas le caractère « " + extrait(texte.substr(place, 1)) +
           u" » : remplacez-le";
}

// Capitals before the parenthesis; what stands in it is as it is.
Texte enCapitales(const Texte &entree) {
    const std::size_t place = std::min(entree.find(u'('), entree.size());
    return upper(entree.substr(0, place)) + entree.substr(place);
}

// A heading takes its value, or says what is wrong with it.
struct EnTete {
    std::u16string_view cle; // in capitals, without accents
    Texte (*prendre)(Theme &, const Texte &valeur);
};
constexpr EnTete enTetes[] = {
    {u"TITRE",
     [](Theme &theme, const Texte &valeur) -> Texte {
         theme.titre = valeur;
         const std::size_t place = placeInconnue(valeur);
         return valeur.size() > largeurTitre
                    ? u"le titre a " + decimal(static_cast<int>(valeur.size())) +
                          u" caractères : 30 au plus, raccourcissez-le"
                : place != Texte::npos ? caractereInconnu(valeur, place)
                                       : Texte();
     }},
    {u"IMAGE",
     [](Theme &theme, const Texte &valeur) -> Texte {
         theme.image = upper(valeur);
         return valeur.empty() || estUneRacine(theme.image)
                    ? Texte()
                    : u"le nom d'une image a 1 à 8 lettres sans accent ou chiffres, sans .JPG : "
                      u"corrigez-le, ou effacez cette ligne";
     }},
    {u"NIVEAU",
     [](Theme &theme, const Texte &valeur) -> Texte {
         theme.niveau = valeur;
         const Texte niveau = plainCapitals(valeur);
         return niveau.empty() || niveau == u"FACILE" || niveau == u"MOYEN" ||
                        niveau == u"DIFFICILE"
                    ? Texte()
                    : u"le niveau est facile, moyen ou difficile";
     }},
    {u"ORIGINE",
     [](Theme &theme, const Texte &valeur) {
         theme.origine = valeur;
         return Texte();
     }},
};

// "Key : value", the key a single word of letters.
bool estEnTete(const Texte &ligne, Texte &cle, Texte &valeur) {
    const std::size_t place = ligne.find(u':');
    if (place == Texte::npos) {
        return false;
    }
    cle = plainCapitals(trim(ligne.substr(0, place)));
    valeur = trim(ligne.substr(place + 1));
    return !cle.empty() &&
           std::all_of(cle.begin(), cle.end(), [](char16_t c) { return c >= u'A' && c <= u'Z'; });
}

class Lecture {
public:
    Lecture(Theme &theme, const Texte &nom, Problemes &problemes)
        : theme_(theme), nom_(nom), problemes_(problemes) {}

    void lire(const std::vector<Texte> &lignes, bool csv) {
        const Tableau tableau(lignes, csv);
        for (std::size_t i = 0; i < lignes.size(); ++i) {
            numero_ = static_cast<int>(i) + 1;
            const Tableau::Rangee rangee = tableau.lire(i);
            if (rangee.mot.empty() || rangee.mot.front() == u'#') {
                continue;
            }
            if (rangee.ouverte) {
                signaler(rangee.mot, u"un guillemet n'est pas fermé : corrigez cette ligne");
            } else if (rangee.noms) {
                if (rangee.indice.empty()) { // it could be a word
                    remarquer(u"cette ligne donne le nom de la colonne, elle n'est pas un mot");
                }
            } else if (!prendreEnTete(rangee.mot)) {
                prendreMot(rangee);
            }
        }
        numero_ = 0;
    }
    void signaler(const Texte &montre, const Texte &texte) {
        problemes_.push_back(
            {nom_, numero_, montre.empty() ? texte : extrait(montre) + u" : " + texte});
    }

private:
    void remarquer(const Texte &texte) { problemes_.push_back({nom_, numero_, texte, false}); }

    // False for what is an entry.
    bool prendreEnTete(const Texte &ligne) {
        Texte cle, valeur;
        if (!estEnTete(ligne, cle, valeur)) {
            return false;
        }
        const auto enTete = std::find_if(std::begin(enTetes), std::end(enTetes),
                                         [&](const EnTete &rangee) { return rangee.cle == cle; });
        const bool connu = enTete != std::end(enTetes);
        if (!theme_.entrees.empty() && !connu) {
            return false;
        }
        const Texte defaut =
            !theme_.entrees.empty() ? u"cette ligne doit être avant le premier mot"
            : !connu
                ? u"les en-têtes sont Titre, Image, Niveau et Origine ; un mot n'a pas de « : »"
            : !cles_.insert(cle).second
                ? u"il y a déjà cet en-tête plus haut : effacez l'un des deux"
                : enTete->prendre(theme_, valeur);
        if (!defaut.empty()) {
            signaler(ligne, defaut);
        }
        return true;
    }

    void prendreMot(const Tableau::Rangee &rangee) {
        const Texte mot = avecIndice(enCapitales(rangee.mot), rangee.indice);
        Texte defaut = defautDeLEntree(mot);
        if (defaut.empty() && nommeDesColonnes(mot)) {
            defaut = u"ce sont les noms des colonnes : effacez cette ligne";
        }
        const auto [avant, nouveau] = mots_.try_emplace(mot, numero_);
        if (!defaut.empty()) {
            signaler(rangee.mot, defaut);
        } else if (!nouveau) {
            signaler(rangee.mot, u"ce mot est déjà à la ligne " + decimal(avant->second) +
                                     u" : effacez l'un des deux");
        }
        if (rangee.deTrop && !deTropDit_) {
            deTropDit_ = true;
            remarquer(u"le jeu ne se sert que des deux premières colonnes, le mot et son indice");
        }
        theme_.entrees.push_back({numero_, mot});
    }

    Texte avecIndice(const Texte &mot, Texte indice) {
        if (indice.size() > 1 && indice.front() == u'(' && indice.back() == u')') {
            indice = trim(indice.substr(1, indice.size() - 2));
        }
        if (indice.empty()) {
            return mot;
        }
        const Texte entier = mot + u" (" + indice + u")";
        if (entier.size() <= largeurEntree && placeInconnue(indice) == Texte::npos &&
            mot.find(u'(') == Texte::npos) {
            return entier;
        }
        remarquer(extrait(mot) + u" : l'indice « " + extrait(indice) +
                  u" » ne peut pas être mis, le mot reste sans lui");
        return mot;
    }

    Theme &theme_;
    const Texte &nom_;
    Problemes &problemes_;
    int numero_ = 0;
    std::map<Texte, int> mots_; // and the line of each
    std::set<Texte> cles_;
    bool deTropDit_ = false;
};

} // namespace

Texte defautDeLEntree(const Texte &entree) {
    if (entree.size() > largeurEntree) {
        return u"il y a " + decimal(static_cast<int>(entree.size())) +
               u" caractères : 30 au plus, raccourcissez cette ligne";
    }
    const std::size_t place = placeInconnue(entree);
    if (place != Texte::npos) {
        return caractereInconnu(entree, place);
    }
    if (entree != enCapitales(entree)) {
        return u"le mot doit être en capitales";
    }
    const Texte mot = entree.substr(0, entree.find(u'('));
    const auto lettres =
        std::count_if(mot.begin(), mot.end(), [](char16_t c) { return c >= u'A' && c <= u'Z'; });
    if (lettres < moinsDeLettres) {
        return u"il n'y a pas 3 lettres à trouver (une lettre accentuée est montrée dès le "
               u"début) : changez ou effacez cette ligne";
    }
    return {};
}

Theme lireTexte(const std::string &octets, const Texte &nom, Problemes &problemes) {
    Theme theme;
    theme.source = nom;
    theme.fichier = racineDuNom(nom);
    Lecture lecture(theme, nom, problemes);
    const std::optional<Texte> texte = decoder(octets);
    if (!texte) {
        lecture.signaler({}, u"ce n'est pas un fichier de texte : enregistrez votre liste comme "
                             u"« texte » ou « CSV »");
        return theme;
    }
    lecture.lire(lignesDe(nettoyer(*texte)), upper(nom).ends_with(u".CSV"));
    if (theme.titre.empty()) {
        theme.titre = titreDuNom(nom);
    }
    if (theme.entrees.empty()) {
        lecture.signaler({}, u"il n'y a aucun mot : écrivez-en un par ligne");
    } else if (theme.entrees.size() > leplusDeMots) {
        lecture.signaler({}, u"il y a plus de 32767 mots : partagez cette liste en deux");
    }
    return theme;
}

Theme lireTheme(Files &fichiers, const Texte &chemin, Problemes &problemes) {
    if (fichiers.length(chemin) > plusGrosseSource) {
        problemes.push_back(
            {nomSeul(chemin), 0, u"ce fichier est trop gros pour une liste de mots"});
        return {};
    }
    return lireTexte(fichiers.read(chemin), nomSeul(chemin), problemes);
}

std::string ecrireTheme(const Theme &theme) {
    Texte texte;
    const auto enTete = [&](const Texte &cle, const Texte &valeur) {
        if (!valeur.empty()) {
            texte += cle + u" : " + valeur + u"\n";
        }
    };
    enTete(u"Titre", theme.titre);
    enTete(u"Image", theme.image);
    enTete(u"Niveau", theme.niveau);
    enTete(u"Origine", theme.origine);
    texte += u"\n";
    for (const Theme::Entree &entree : theme.entrees) {
        texte += entree.texte + u"\n";
    }
    return toUtf8(texte);
}

} // namespace grimoval::outils
