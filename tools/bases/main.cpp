// SPDX-License-Identifier: GPL-3.0-or-later
// grimbases: makes, checks and prints word bases.
#include "tools/bases/catalogue.h"

#include <iostream>
#include <set>

namespace {

using namespace grimoval;
using namespace grimoval::outils;

enum Statut { bon = 0, mauvaisesBases = 1, mauvaisAppel = 2 };

constexpr const char *aide =
    "Usage :\n"
    "  grimbases construire DOSSIER_SOURCES DOSSIER_MASK\n"
    "      fait une base de chaque fichier .txt des sources, puis la liste GRIMV.LST\n"
    "  grimbases verifier DOSSIER_MASK\n"
    "      dit tout ce que le jeu refuserait, et pourquoi\n"
    "  grimbases lister DOSSIER_MASK\n"
    "      montre les thèmes et leurs mots\n"
    "Une source est un texte en UTF-8 : un mot par ligne, et avant le premier, si l'on veut,\n"
    "  Titre : Les animaux\n"
    "  Image : NOM\n"
    "  Niveau : facile, moyen ou difficile\n"
    "Les lignes vides et celles qui commencent par # ne comptent pas.\n";

int dire(const std::vector<Probleme> &problemes) {
    for (const Probleme &probleme : problemes) {
        std::cerr << toUtf8(probleme.fichier);
        if (probleme.ligne > 0) {
            std::cerr << ':' << probleme.ligne;
        }
        std::cerr << " : " << toUtf8(probleme.texte) << '\n';
    }
    return problemes.empty() ? bon : mauvaisesBases;
}

int construire(Files &fichiers, const Texte &sources, const Texte &dossier) {
    std::vector<Probleme> problemes;
    std::vector<Theme> themes;
    std::set<Texte> noms;
    for (const Texte &nom : fichiers.list(sources, u"*.txt")) {
        themes.push_back(lireTheme(fichiers, sources, nom, problemes));
        if (!noms.insert(themes.back().fichier).second) {
            problemes.push_back({nom, 0, u"un autre fichier porte déjà ce nom"});
        }
    }
    if (themes.empty()) {
        problemes.push_back({sources, 0, u"aucun fichier .txt dans ce dossier"});
    }
    if (!problemes.empty()) {
        return dire(problemes);
    }
    construireBases(fichiers, themes, dossier);
    return bon;
}

int executer(const std::vector<Texte> &mots) {
    Files fichiers;
    if (mots.size() == 1 && mots[0] == u"--aide") {
        std::cout << aide;
        return bon;
    }
    if (mots.size() == 3 && mots[0] == u"construire") {
        return construire(fichiers, mots[1], mots[2]);
    }
    if (mots.size() == 2 && mots[0] == u"verifier") {
        return dire(verifierBases(fichiers, mots[1]));
    }
    if (mots.size() == 2 && mots[0] == u"lister") {
        listerBases(fichiers, mots[1], std::cout);
        return bon;
    }
    std::cerr << aide;
    return mauvaisAppel;
}

} // namespace

int main(int nombre, char **arguments) {
    std::vector<Texte> mots;
    for (int i = 1; i < nombre; ++i) {
        mots.push_back(fromUtf8(arguments[i]));
    }
    try {
        return executer(mots);
    } catch (const Failure &erreur) {
        std::cerr << "grimbases : erreur " << erreur.number << " : "
                  << toUtf8(failureMeaning(erreur.number)) << '\n';
        return mauvaisesBases;
    }
}
