// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/theme.h"

#include <algorithm>
#include <optional>
#include <set>

namespace grimoval::outils {

namespace {

constexpr std::size_t largeurEntree = 30, largeurTitre = 30, largeurNom = 8;
constexpr std::size_t leplusDeMots = 32767;
constexpr int moinsDeLettres = 3; // masked, or there is nothing to guess

bool nomDeFichier(const Texte &nom) {
    return !nom.empty() && nom.size() <= largeurNom &&
           std::all_of(nom.begin(), nom.end(), [](char16_t c) {
               return (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'_' ||
                      c == u'-';
           });
}

std::vector<Texte> lignesDe(const std::string &contenu) {
    std::vector<Texte> lignes(1);
    Texte texte = fromUtf8(contenu);
    if (!texte.empty() && texte.front() == u'\uFEFF') {
        texte.erase(0, 1);
    }
    for (const char16_t caractere : texte) {
        if (caractere == u'\n') {
            lignes.emplace_back();
        } else if (caractere != u'\r') {
            lignes.back() += caractere == u'\t' ? u' ' : caractere;
        }
    }
    return lignes;
}

bool dansLaPage(const Texte &texte) {
    return std::all_of(texte.begin(), texte.end(),
                       [](char16_t c) { return c >= u' ' && ansiCode(c) >= 0; });
}

struct EnTete {
    Texte nom;    // in capitals, without accents
    Texte valeur; // without blanks around
};

// "Key : value", the key a single word of letters.
std::optional<EnTete> enTete(const Texte &ligne) {
    const std::size_t place = ligne.find(u':');
    if (place == Texte::npos) {
        return {};
    }
    const Texte nom = plainCapitals(trim(ligne.substr(0, place)));
    if (nom.empty() ||
        !std::all_of(nom.begin(), nom.end(), [](char16_t c) { return c >= u'A' && c <= u'Z'; })) {
        return {};
    }
    return EnTete{nom, trim(ligne.substr(place + 1))};
}

// "mots_de la-mer.txt" -> "Mots de la-mer"
Texte titreDuNom(const Texte &nom) {
    Texte titre = nom.substr(0, nom.find_last_of(u'.'));
    std::replace(titre.begin(), titre.end(), u'_', u' ');
    titre = trim(titre);
    if (!titre.empty()) {
        titre.front() = upper(titre.front());
    }
    return trim(titre.substr(0, largeurTitre));
}

// A heading takes its value, or says what is wrong with it.
struct Rangee {
    std::u16string_view nom;
    Texte (*prendre)(Theme &, const Texte &valeur);
};
constexpr Rangee enTetes[] = {
    {u"TITRE",
     [](Theme &theme, const Texte &valeur) -> Texte {
         theme.titre = valeur;
         return valeur.size() > largeurTitre || !dansLaPage(valeur)
                    ? u"le titre a plus de " + decimal(largeurTitre) +
                          u" caractères ou un caractère inconnu du jeu"
                    : Texte();
     }},
    {u"IMAGE",
     [](Theme &theme, const Texte &valeur) -> Texte {
         theme.image = upper(valeur);
         return !valeur.empty() && !nomDeFichier(theme.image)
                    ? u"le nom de l'image doit avoir 1 à 8 lettres sans accent ou chiffres"
                    : Texte();
     }},
    {u"NIVEAU",
     [](Theme &, const Texte &valeur) -> Texte {
         const Texte niveau = upper(valeur);
         return niveau == u"FACILE" || niveau == u"MOYEN" || niveau == u"DIFFICILE"
                    ? Texte()
                    : u"le niveau est facile, moyen ou difficile";
     }},
    {u"ORIGINE", [](Theme &, const Texte &) { return Texte(); }},
};

const Rangee *rangeeDe(const EnTete &lu) {
    const auto trouvee = std::find_if(std::begin(enTetes), std::end(enTetes),
                                      [&](const Rangee &rangee) { return rangee.nom == lu.nom; });
    return trouvee == std::end(enTetes) ? nullptr : trouvee;
}

// What is wrong with a heading; empty for a good one.
Texte prendreEnTete(Theme &theme, const EnTete &lu, std::set<Texte> &vus) {
    const Rangee *const rangee = rangeeDe(lu);
    if (rangee == nullptr) {
        return u"les en-têtes sont Titre, Image, Niveau et Origine";
    }
    if (!vus.insert(lu.nom).second) {
        return u"cet en-tête est déjà plus haut";
    }
    return rangee->prendre(theme, lu.valeur);
}

} // namespace

Texte defautDeLEntree(const Texte &entree) {
    if (entree.size() > largeurEntree) {
        return u"l'entrée a plus de " + decimal(largeurEntree) + u" caractères";
    }
    if (!dansLaPage(entree)) {
        return u"un caractère n'existe pas dans les fichiers du jeu";
    }
    const Texte mot = entree.substr(0, entree.find(u'('));
    if (mot != upper(mot)) {
        return u"le mot doit être en capitales";
    }
    const auto lettres =
        std::count_if(mot.begin(), mot.end(), [](char16_t c) { return c >= u'A' && c <= u'Z'; });
    if (lettres < moinsDeLettres) {
        return u"il y a moins de " + decimal(moinsDeLettres) + u" lettres à trouver";
    }
    return {};
}

Theme lireTheme(Files &fichiers, const Texte &dossier, const Texte &nom,
                std::vector<Probleme> &problemes) {
    Theme theme;
    const auto signaler = [&](int ligne, const Texte &texte) {
        problemes.push_back({nom, ligne, texte});
    };
    theme.fichier = upper(nom.substr(0, nom.find_last_of(u'.')));
    if (!nomDeFichier(theme.fichier)) {
        signaler(0, u"le nom du fichier doit avoir 1 à 8 lettres sans accent ou chiffres");
    }
    std::set<Texte> vues, enTetesVus;
    int numero = 0;
    for (const Texte &brute : lignesDe(fichiers.read(asFolder(dossier) + nom))) {
        ++numero;
        const Texte ligne = trim(brute);
        if (ligne.empty() || ligne.front() == u'#') {
            continue;
        }
        const std::optional<EnTete> lu = enTete(ligne);
        if (lu && theme.entrees.empty()) {
            const Texte defaut = prendreEnTete(theme, *lu, enTetesVus);
            if (!defaut.empty()) {
                signaler(numero, ligne + u" : " + defaut);
            }
            continue;
        }
        const Texte defaut = lu && rangeeDe(*lu) != nullptr
                                 ? u"un en-tête se met avant le premier mot"
                                 : defautDeLEntree(ligne);
        if (!defaut.empty()) {
            signaler(numero, ligne + u" : " + defaut);
        } else if (!vues.insert(ligne).second) {
            signaler(numero, ligne + u" : l'entrée est déjà dans ce thème");
        }
        theme.entrees.push_back({numero, ligne});
    }
    if (theme.titre.empty()) {
        theme.titre = titreDuNom(nom);
    }
    if (theme.entrees.empty()) {
        signaler(0, u"il n'y a aucun mot");
    } else if (theme.entrees.size() > leplusDeMots) {
        signaler(0, u"il y a plus de " + decimal(static_cast<int>(leplusDeMots)) + u" mots");
    }
    return theme;
}

} // namespace grimoval::outils
