// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/theme.h"

#include <algorithm>
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
    std::set<Texte> vues;
    int numero = 0, place = 0;
    for (const Texte &brute : lignesDe(fichiers.read(asFolder(dossier) + nom))) {
        ++numero;
        const Texte ligne = trim(brute);
        if (ligne.empty() || ligne.front() == u'#') {
            continue;
        }
        switch (place++) {
        case 0:
            theme.titre = ligne;
            if (ligne.size() > largeurTitre || !dansLaPage(ligne)) {
                signaler(numero, u"le titre a plus de " + decimal(largeurTitre) +
                                     u" caractères ou un caractère inconnu du jeu");
            }
            break;
        case 1:
            theme.image = ligne == u"-" ? Texte() : upper(ligne);
            if (!theme.image.empty() && !nomDeFichier(theme.image)) {
                signaler(numero,
                         u"le nom de l'image doit avoir 1 à 8 lettres sans accent ou chiffres");
            }
            break;
        default: {
            const Texte defaut = defautDeLEntree(ligne);
            if (!defaut.empty()) {
                signaler(numero, ligne + u" : " + defaut);
            } else if (!vues.insert(ligne).second) {
                signaler(numero, ligne + u" : l'entrée est déjà dans ce thème");
            }
            theme.entrees.push_back({numero, ligne});
        }
        }
    }
    if (theme.entrees.empty()) {
        signaler(0, u"il faut un titre, une image (ou -) et au moins un mot");
    } else if (theme.entrees.size() > leplusDeMots) {
        signaler(0, u"il y a plus de " + decimal(static_cast<int>(leplusDeMots)) + u" mots");
    }
    return theme;
}

} // namespace grimoval::outils
